#pragma once
// The toolbars of hosts before the ribbon.

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "commands/tools_bar.h"
#include "core/globals.h"

namespace vellumark::commands {

/// The other two bars, beside toolsBar::name.
inline constexpr const char* slideWizardBar = "Vellumark for presentations - Slide Wizard";
inline constexpr const char* shortcutsBar = "Vellumark for presentations - Shortcuts";
/// The popup of the user's own elements on the Slide Wizard's bar.
inline constexpr const char* myElementsPopup = "My Elements";

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
  void generateMyElementsMenu() override;
  void enableControls() override;
  /// Loads "menu.xml" and what else a ribbon host loads in onLoad, and puts the menus of elements on the
  /// Slide Wizard's bar.
  void generateMenuFromXML();

  /// The bar of that name, made where it is missing. DeleteControls() removes it.
  host::CommandBar createCmdBar(const std::string& name);
  /// Keeps and restores where a bar stands, in the settings store's subkey of its name.
  void saveCmdBarPosition(const std::string& name);
  void getCmdBarPosition(const std::string& name);

  /// Shows a button as pressed or not.
  void checkButton(const host::CommandBar& bar, const std::string& name, bool checked);

  /// The click of an entry of the tools bar. Nothing is done for an entry that is disabled now; in help mode
  /// the entry's help opens instead.
  void tlnButton_Click(const host::CommandBarButton& button, bool& cancelDefault);
  /// The click of an entry of the popup "My Elements": adds, manages or inserts an element.
  void meButton_Click(const host::CommandBarButton& button, bool& cancelDefault);
  /// The click of an element of the Slide Wizard: inserts it in the chosen style.
  void wizButton_Click(const host::CommandBarButton& button, bool& cancelDefault);
  /// The user's choice in the style box: the current style, which the presentation remembers.
  void styleDropdown_Change(const host::CommandBarComboBox& box);

 private:
  /// What a new button shows. One with a handler has the click of the tools, and the user's settings may hide
  /// it.
  struct Button {
    std::string parameter;
    std::string caption;
    int icon = 0;             ///< index into the add-in's own pictures, or the number of a face of the host's
    bool customIcon = false;  ///< which of the two `icon` means
    bool beginGroup = false;
    int helpId = 0;
    bool hasHandler = true;

    static Button of(const toolsBar::Entry& entry);
  };
  struct Popup {
    std::string caption;
    bool beginGroup = true;
    std::string tooltip{};  ///< empty for the caption
  };
  using ClickHandler = void (pptControls::*)(const host::CommandBarButton& button, bool& cancelDefault);
  using Clicks = std::vector<host::Subscription>;

  host::CommandBarButton addButton(const host::CommandBarControls& controls, const Button& entry);
  host::CommandBarButton addEntry(const host::CommandBar& bar, const Button& entry);
  host::CommandBarButton addPopupEntry(const host::CommandBarPopup& popup, const Button& entry);
  host::CommandBarButton addSubPopupEntry(const host::CommandBarPopup& subPopup, const Button& entry);
  host::CommandBarPopup addPopup(const host::CommandBar& bar, const Popup& popup);
  host::CommandBarPopup addSubPopup(const host::CommandBarPopup& popup, const Popup& subPopup);
  void AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup);
  void addLogoButton(const host::CommandBar& bar);
  void addLanguageButtons();
  void connectClick(const host::CommandBarButton& button, ClickHandler handler, Clicks& clicks);

  void createToolsBar();
  void createSlideWizardBar();
  void createShortcutsBar();
  void addStyleBox(const host::CommandBar& bar);
  void addCopyrightMenu(const host::CommandBar& bar);
  void generateMenu(const host::CommandBar& bar, const pugi::xml_node& menu);
  void addMyElement(const host::CommandBarButton& button);

  host::CommandBar findBar(const std::string& name) const;
  /// The drop-down list on the Slide Wizard's bar; nothing where the bar doesn't stand.
  host::CommandBarComboBox styleBox() const;

  host::Application application_;
  std::vector<host::CommandBar> bars_;
  Clicks clicks_;
  Clicks myElementsClicks_;                ///< of the popup "My Elements", which is made anew again and again
  std::vector<std::string> shownHelpIds_;  ///< empty shows all entries
};

}  // namespace vellumark::commands
