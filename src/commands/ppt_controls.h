#pragma once
// The toolbars of hosts before the ribbon.

#include <string>
#include <vector>

#include "commands/tools_bar.h"
#include "core/globals.h"

namespace vellumark::commands {

/// Builds the bars at start-up, keeps their click handlers alive, saves their positions and removes them at
/// the end.
class pptControls : public core::ToolbarControls {
 public:
  /// The host; an empty handle lets go of it.
  void PowerPointApp(const host::Application& application);

  /// Builds the bars. One that an earlier run left behind stays as it is.
  void CreateControls() override;
  void DeleteControls() override;
  /// Where there is a style box: shows the style in it, and makes what it shows the current one.
  void setStyle(const std::string& name) override;
  /// Loads "menu.xml" and what else a ribbon host loads in onLoad.
  void generateMenuFromXML();

  /// The bar of that name, made where it is missing. DeleteControls() removes it.
  host::CommandBar createCmdBar(const std::string& name);
  /// Keeps and restores where a bar stands, in the settings store's subkey of its name.
  void saveCmdBarPosition(const std::string& name);
  void getCmdBarPosition(const std::string& name);

  /// Shows a button as pressed or not.
  void checkButton(const host::CommandBar& bar, const std::string& name, bool checked);
  /// Enables every tool entry, on the tools bar and in its popup "Tools".
  void enableControls();

  /// The click of an entry of the tools bar. Nothing is done for an entry that is disabled now; in help mode
  /// the entry's help opens instead.
  void tlnButton_Click(const host::CommandBarButton& button, bool& cancelDefault);

 private:
  struct Button {
    std::string parameter;
    std::string caption;
    int icon = 0;             ///< index into the add-in's own pictures, or the number of a face of the host's
    bool customIcon = false;  ///< which of the two `icon` means
    bool beginGroup = false;
    int helpId = 0;
  };
  void addButton(const host::CommandBarControls& controls, const Button& button);
  void addEntry(const host::CommandBar& bar, const toolsBar::Entry& entry);
  void addPopupEntry(const host::CommandBarPopup& popup, const toolsBar::Entry& entry);
  host::CommandBarPopup addPopup(const host::CommandBar& bar, const std::string& caption);
  void AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup);
  void addLanguageButtons(const host::CommandBar& bar);
  void createToolsBar();
  host::CommandBar findBar(const std::string& name) const;
  /// The drop-down list on the Slide Wizard's bar; nothing where the bar doesn't stand.
  host::CommandBarComboBox styleBox() const;

  host::Application application_;
  std::vector<host::CommandBar> bars_;
  std::vector<host::Subscription> clicks_;
  std::vector<std::string> shownHelpIds_;  ///< empty shows all entries
};

}  // namespace vellumark::commands
