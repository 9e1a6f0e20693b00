#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/application.h"
#include "services/icons.h"
#include "ui/form.h"

namespace vellumark::services {

/// The user's options on a few pages, which a menu column on the left switches. They are read when the dialog
/// opens and written when it saves.
class Settings : public ui::Form {
 public:
  Settings();

  static constexpr std::size_t pages = 7;
  static constexpr std::size_t generalPage = 0, textPage = 4, updatesPage = 5, toolsPage = 6;

  // The menu column: a coloured box and a label for each page.
  ui::ControlArray<ui::Label, pages> menuBox{*this, "menuBox"};
  ui::ControlArray<ui::Label, pages> menuLabel{*this, "menuLabel"};
  ui::ControlArray<ui::Frame, pages> menuFrame{*this, "menuFrame"};

  ui::CheckBox cbScreensaver{*this, "cbScreensaver", "Disable screensaver while presenting"};

  ui::ControlArray<ui::Label, 3> lngLabel{*this, "lngLabel"};
  ui::ControlArray<ui::ComboBox, 3> lngDropdown{*this, "lngDropdown"};
  Icons::LanguagePictures lngPic{*this, "lngPic", Icons::pictureSize, Icons::pictureSize};

  ui::CheckBox cbAutoUpdateProgram{*this, "cbAutoUpdateProgram", "Update program files"};
  ui::CheckBox cbAutoUpdateCustomization{*this, "cbAutoUpdateCustomization",
                                         "Update Slide Wizard and Agenda Wizard templates"};
  ui::Label lAutoUpdateInfo{*this, "lAutoUpdateInfo",
                            "Please note: If you would like to update Slide Wizard and Agenda Wizard "
                            "templates, program updates are mandatory."};

  ui::ListBox tlnList{*this, "tlnList", true};
  ui::Label tlnSelect{*this, "tlnSelect", "Select all"};

  ui::CommandButton btnSave{*this, "btnSave", "&Save"};
  ui::CommandButton btnClose{*this, "btnClose", "&Close"};

 private:
  void bind();
  void arrange();
  ui::Box menuColumn();

  void addMenuEntry(const std::string& caption, bool visible);
  void showPage(std::size_t index);
  void fillLanguages();
  void fillTools();
  void readUpdates();
  void saveLanguages();
  void saveTools();

  void Form_Load();
  void menuBox_Click(std::size_t index);
  void menuBox_MouseMove(std::size_t index);
  void menuLabel_Click(std::size_t index);
  void menuLabel_MouseMove(std::size_t index);
  void lngDropdown_Click(std::size_t index);
  void cbAutoUpdateProgram_Click();
  void cbAutoUpdateCustomization_Click();
  void tlnSelect_Click();
  void tlnSelect_MouseMove();
  void btnSave_Click();
  void btnClose_Click();

  std::size_t entries_ = 0;            ///< of the menu column, shown or not
  host::COMAddIn updater_;             ///< none where it isn't installed
  std::vector<std::string> toolKeys_;  ///< of the items of tlnList: "ID" and the control's help id
};

/// Shows the dialog.
void showSettings();

}  // namespace vellumark::services
