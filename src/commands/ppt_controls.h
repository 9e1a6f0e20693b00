#pragma once
// The toolbars of hosts before the ribbon.

#include <string>
#include <vector>

#include "core/globals.h"

namespace vellumark::commands {

inline constexpr const char* toolsBarName = "Vellumark for presentations - Trimline Tools";

/// Builds the bars at start-up, keeps their click handlers alive, saves their positions and removes them at
/// the end.
class pptControls : public core::ToolbarControls {
 public:
  /// The host; an empty handle lets go of it.
  void PowerPointApp(const host::Application& application);

  void CreateControls() override;
  void DeleteControls() override;
  /// Loads "menu.xml" and what else a ribbon host loads in onLoad.
  void generateMenuFromXML();

  /// The bar of that name, made where it is missing.
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
  struct Entry {
    std::string parameter;
    std::string caption;
    int icon = 0;            ///< index into the image lists, or the host's own face
    bool customIcon = true;  ///< whether `icon` means the image lists
    bool beginGroup = false;
    int helpId = 0;
    bool hasHandler = true;
  };
  void addButton(const host::CommandBarControls& controls, const Entry& entry);
  host::CommandBarControls addPopup(const host::CommandBar& bar, const std::string& caption);
  void AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup);
  void addLanguageButtons(const host::CommandBar& bar);
  void createToolsBar();
  host::CommandBar findBar(const std::string& name);

  host::Application application_;
  std::vector<host::CommandBar> bars_;
  std::vector<host::Subscription> handlers_;
  std::vector<std::string> shownHelpIds_;
};

}  // namespace vellumark::commands
