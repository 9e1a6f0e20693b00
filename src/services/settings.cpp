#include "services/settings.h"

#include <utility>

#include "base/conversions.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/registry.h"
#include "services/languages.h"
#include "services/tool_controls.h"

namespace vellumark::services {
namespace {

using core::globals;
using core::trap;

constexpr ui::Color black = ui::rgb(0, 0, 0);
constexpr ui::Color white = ui::rgb(255, 255, 255);
constexpr ui::Color chosenGround = ui::rgb(192, 42, 38);
constexpr ui::Color entryGround = ui::rgb(224, 224, 224);

const char* textOf(bool on) { return on ? "1" : "0"; }

/// A check box's setting: a number, 0 for off.
bool isOn(const char* setting) { return base::toDouble(core::getRegistry(setting, "", "1")) != 0; }

/// Cuts the separator off the end.
std::string withoutLast(std::string list) {
  if (!list.empty()) list.pop_back();
  return list;
}

}  // namespace

Settings::Settings() : Form("Settings", "") {
  for (std::size_t i = 0; i < lngLabel.size(); ++i) {
    lngLabel[i].caption("Button " + std::to_string(i + 1));
    lngPic[i].foreColor(white);
    lngPic[i].visible(false);
  }
  menuFrame[generalPage].caption("General settings");
  menuFrame[textPage].caption("Show spell checking buttons for the following languages:");
  menuFrame[toolsPage].caption("Show the following buttons in the \"Trimline Tools\" bar");
  lAutoUpdateInfo.wrapAt(56);
  tlnList.lines(12);
  tlnSelect.link(true);
  btnSave.isDefault(true);
  btnClose.isCancel(true);
  bind();
}

void Settings::bind() {
  onLoad = [this] { Form_Load(); };
  for (std::size_t i = 0; i < pages; ++i) {
    menuBox[i].onClick = [this, i] { menuBox_Click(i); };
    menuBox[i].onMouseMove = [this, i] { menuBox_MouseMove(i); };
    menuLabel[i].onClick = [this, i] { menuLabel_Click(i); };
    menuLabel[i].onMouseMove = [this, i] { menuLabel_MouseMove(i); };
  }
  for (std::size_t i = 0; i < lngDropdown.size(); ++i) {
    lngDropdown[i].onClick = [this, i] { lngDropdown_Click(i); };
  }
  cbAutoUpdateProgram.onClick = [this] { cbAutoUpdateProgram_Click(); };
  cbAutoUpdateCustomization.onClick = [this] { cbAutoUpdateCustomization_Click(); };
  tlnSelect.onClick = [this] { tlnSelect_Click(); };
  tlnSelect.onMouseMove = [this] { tlnSelect_MouseMove(); };
  btnSave.onClick = [this] { btnSave_Click(); };
  btnClose.onClick = [this] { btnClose_Click(); };
}

/// An entry that is not shown takes no place.
ui::Box Settings::menuColumn() {
  std::vector<ui::Box> entries;
  for (std::size_t i = 0; i < pages; ++i) {
    if (!menuBox[i].visible()) continue;
    entries.push_back(ui::row({ui::Box(menuBox[i]), ui::Box(menuLabel[i]).stretch()}).gap(0));
  }
  entries.push_back(ui::space());
  return ui::column(std::move(entries)).gap(0);
}

void Settings::arrange() {
  std::vector<ui::Box> languages;
  for (std::size_t i = 0; i < lngDropdown.size(); ++i) {
    languages.emplace_back(lngLabel[i]);
    languages.push_back(ui::Box(lngDropdown[i]).stretch());
    languages.emplace_back(lngPic[i]);
  }
  std::vector<ui::Box> contents(pages);
  contents[generalPage] = ui::column({ui::Box(cbScreensaver)});
  contents[textPage] = ui::column({ui::grid(3, std::move(languages))});
  contents[updatesPage] = ui::column(
      {ui::Box(cbAutoUpdateProgram), ui::Box(cbAutoUpdateCustomization), ui::Box(lAutoUpdateInfo)});
  contents[toolsPage] = ui::column({ui::Box(tlnList).stretch(), ui::Box(tlnSelect).align(ui::Align::start)});
  std::vector<ui::Box> stacked;
  for (std::size_t i = 0; i < pages; ++i) {
    stacked.push_back(ui::column({std::move(contents[i]).stretch()}).in(menuFrame[i]));
  }
  layout(ui::column({ui::row({menuColumn(), ui::stack(std::move(stacked)).stretch()}).stretch(),
                     ui::row({ui::space(), ui::Box(btnSave), ui::Box(btnClose)})})
             .gap(3));
}

void Settings::Form_Load() {
  trap("Settings, Form_Load", [&] {
    addMenuEntry("General", true);
    addMenuEntry("Slide Wizard", false);
    addMenuEntry("My Elements", false);
    addMenuEntry("Shapes", false);
    addMenuEntry("Text", true);
    addMenuEntry("Updates", true);
    addMenuEntry("Trimline Tools", core::isHostVersion(host::toolbarHosts));
    arrange();
    showPage(generalPage);
    caption(std::string(core::productTitle) + " - Settings");
    cbScreensaver.value(globals().screenSaverOff);
    fillLanguages();
    if (core::isHostVersion(host::toolbarHosts)) fillTools();
    readUpdates();
  });
}

void Settings::addMenuEntry(const std::string& caption, bool visible) {
  trap("Settings, addMenuEntry", [&] {
    const std::size_t index = entries_++;
    menuLabel[index].caption(caption);
    for (ui::Label* part : {&menuBox[index], &menuLabel[index]}) {
      part->backColor(entryGround);
      part->visible(visible);
    }
  });
}

void Settings::showPage(std::size_t index) {
  menuFrame[index].toFront();
  for (std::size_t i = 0; i < pages; ++i) {
    for (ui::Label* part : {&menuBox[i], &menuLabel[i]}) {
      part->backColor(i == index ? chosenGround : entryGround);
      part->foreColor(i == index ? white : black);
    }
  }
}

void Settings::fillLanguages() {
  for (std::size_t i = 0; i < lngDropdown.size(); ++i) {
    ui::ComboBox& dropdown = lngDropdown[i];
    dropdown.addItem("[No language selected]");
    dropdown.listIndex(0);
    for (int place = 1; place <= languageList().Count(); ++place) {
      const Language& language = languageList().Item(place);
      dropdown.addItem(language.Name(), language.LanguageID());
      if (language.LanguageID() == globals().languageShortcuts[i]) dropdown.listIndex(place);
    }
  }
}

void Settings::fillTools() {
  for (const host::CommandBarControl& control : toolControls()) {
    const int index = tlnList.listCount();
    tlnList.addItem(control.Caption());
    toolKeys_.push_back(toolKey(control));
    tlnList.image(index, toolPictureFile(control));
    tlnList.checked(index, control.Visible());
  }
}

/// Templates are only updated together with the program.
void Settings::readUpdates() {
  const host::COMAddIns addIns = globals().powerPointApp.COMAddIns();
  const int count = addIns.Count();
  for (int i = 1; i <= count && !updater_; ++i) {
    const host::COMAddIn addIn = addIns.Item(i);
    if (addIn.ProgId() == core::updaterProgId) updater_ = addIn;
  }
  if (!updater_) {
    for (ui::CheckBox* box : {&cbAutoUpdateProgram, &cbAutoUpdateCustomization}) {
      box->value(false);
      box->enabled(false);
    }
    lAutoUpdateInfo.caption("The Add-In for automatic updates has not been installed properly.");
    return;
  }
  cbAutoUpdateProgram.value(isOn("autoUpdateProgram"));
  cbAutoUpdateCustomization.value(isOn("autoUpdateCustomization"));
  if (cbAutoUpdateCustomization.value()) cbAutoUpdateProgram.value(true);
  if (!cbAutoUpdateProgram.value()) cbAutoUpdateCustomization.value(false);
}

void Settings::menuBox_Click(std::size_t index) {
  trap("Settings, menuBox_Click", [&] { showPage(index); });
}

void Settings::menuBox_MouseMove(std::size_t index) {
  trap("Settings, menuBox_MouseMove", [&] { menuBox[index].handCursor(true); });
}

void Settings::menuLabel_Click(std::size_t index) {
  trap("Settings, menuLabel_Click", [&] { showPage(index); });
}

void Settings::menuLabel_MouseMove(std::size_t index) {
  trap("Settings, menuLabel_MouseMove", [&] { menuLabel[index].handCursor(true); });
}

void Settings::lngDropdown_Click(std::size_t index) {
  trap("Settings, lngDropdown_Click", [&] {
    const int chosen = lngDropdown[index].listIndex();
    if (chosen > 0) createLanguageIcon(lngPic, index, languageList().Item(chosen).ISO639());
    lngPic[index].visible(chosen > 0);
  });
}

void Settings::cbAutoUpdateProgram_Click() {
  trap("Settings, cbAutoUpdateProgram_Click", [&] {
    if (!cbAutoUpdateProgram.value()) cbAutoUpdateCustomization.value(false);
  });
}

void Settings::cbAutoUpdateCustomization_Click() {
  trap("Settings, cbAutoUpdateCustomization_Click", [&] {
    if (cbAutoUpdateCustomization.value()) cbAutoUpdateProgram.value(true);
  });
}

void Settings::tlnSelect_Click() {
  trap("Settings, tlnSelect_Click", [&] {
    for (int i = 0; i < tlnList.listCount(); ++i) tlnList.checked(i, true);
  });
}

void Settings::tlnSelect_MouseMove() {
  trap("Settings, tlnSelect_MouseMove", [&] { tlnSelect.handCursor(true); });
}

void Settings::btnSave_Click() {
  trap("Settings, btnSave_Click", [&] {
    core::setRegistry("screenSaverOff", textOf(cbScreensaver.value()), "");
    globals().screenSaverOff = cbScreensaver.value();
    saveLanguages();
    saveTools();
    if (updater_) {
      core::setRegistry("autoUpdateProgram", textOf(cbAutoUpdateProgram.value()), "");
      core::setRegistry("autoUpdateCustomization", textOf(cbAutoUpdateCustomization.value()), "");
    }
    unload();
  });
}

/// The buttons of a ribbon change at once, those of a toolbar with the next start.
void Settings::saveLanguages() {
  std::string chosen;
  bool changed = false;
  for (std::size_t i = 0; i < lngDropdown.size(); ++i) {
    const int place = lngDropdown[i].listIndex();
    const std::int32_t id = place > 0 ? lngDropdown[i].items()[static_cast<std::size_t>(place)].data : 0;
    const std::int32_t before = std::exchange(globals().languageShortcuts[i], id);
    if (place <= 0) continue;
    changed = changed || id != before;
    chosen += std::to_string(id) + ";";
  }
  core::setRegistry("languages", withoutLast(chosen), "");

  Icons::LanguagePictures& pictures = icons().languagePictures;
  for (std::size_t i = 0; i < lngPic.size(); ++i) {
    pictures[i].canvas() = lngPic[i].canvas();
    pictures[i].refresh();
  }
  if (core::isHostVersion(host::ribbonHosts)) {
    for (const char* button : {"zp_1093", "zp_1094", "zp_1095"}) globals().ribbonUI.InvalidateControl(button);
  } else if (changed) {
    core::message("The language settings will take effect after restarting PowerPoint.",
                  ui::Icon::information);
  }
}

/// Where there is no list, its setting stays for the host that has one.
void Settings::saveTools() {
  if (toolKeys_.empty()) return;
  std::string shown;
  std::vector<host::CommandBarControl> controls = toolControls();
  for (std::size_t i = 0; i < toolKeys_.size(); ++i) {
    const host::CommandBarControl control = takeControl(controls, toolKeys_[i]);
    const bool on = tlnList.checked(static_cast<int>(i));
    if (on) shown += std::to_string(control.HelpContextId()) + ";";
    control.Visible(on);
  }
  core::setRegistry("tlnControls", withoutLast(shown), "");
}

void Settings::btnClose_Click() {
  trap("Settings, btnClose_Click", [&] { unload(); });
}

void showSettings() {
  trap("TrimlineTools, showSettings", [] { Settings().showModal(); });
}

}  // namespace vellumark::services
