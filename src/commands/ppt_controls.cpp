#include "commands/ppt_controls.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/text.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/registry.h"
#include "library/configuration.h"
#include "services/languages.h"

namespace vellumark::commands {
namespace {

using core::resumeNext;
using core::trap;

constexpr const char* toolsTag = "zorp_TrimlineTools";
constexpr const char* toolsPopup = "Tools";
constexpr const char* helpPopup = "Help";
constexpr int floating = 4;

/// One entry of the tools bar or its popups. The caption is the command's label.
struct ToolEntry {
  const char* parameter;
  int icon;
  bool beginGroup;
  int helpId;
  bool hostFace = false;
};

constexpr ToolEntry logo{"!about", 1, false, 1000};
constexpr ToolEntry alignEntries[] = {
    {"alignLefts", 2, false, 1100}, {"alignCenters", 3, false, 1101}, {"alignRights", 4, false, 1102},
    {"alignTops", 5, true, 1103},   {"alignMiddles", 6, false, 1104}, {"alignBottoms", 7, false, 1105},
};
/// The host's own controls for distributing shapes stand between the two lists.
constexpr int distributeHorizontally = 408, distributeVertically = 465;
constexpr ToolEntry barEntries[] = {
    {"alignWidths", 8, true, 1120},
    {"alignHeights", 9, false, 1121},
    {"alignWidthsAndHeights", 10, false, 1122},
    {"alignAngles", 11, true, 1130},
    {"processChain", 12, false, 1131},
    {"adjustPentagonHeader", 13, false, 1132},
    {"stretchLeft", 14, true, 1140},
    {"stretchRight", 15, false, 1141},
    {"stretchTop", 16, false, 1142},
    {"stretchBottom", 17, false, 1143},
    {"moveLeftToMasterRight", 18, true, 1150},
    {"moveRightToMasterLeft", 19, false, 1151},
    {"moveTopToMasterBottom", 20, false, 1152},
    {"moveBottomToMasterTop", 21, false, 1153},
    {"stretchLeftToMasterRight", 22, true, 1160},
    {"stretchRightToMasterLeft", 23, false, 1161},
    {"stretchTopToMasterBottom", 24, false, 1162},
    {"stretchBottomToMasterTop", 25, false, 1163},
    {"switchObjects", 26, true, 1170},
    {"adjustAutoShapeToText", 29, true, 1180},
    {"wrapText", 30, false, 1181},
    {"setMargins", 31, false, 1182},
    {"beautifyIndents", 32, true, 1190},
    {"removeIndent", 33, false, 1191},
    {"addIndent", 34, false, 1192},
};
constexpr ToolEntry popupEntries[] = {
    {"showAgendaWizard", 0, true, 0},          {"disconnectAgendaSlides", 0, false, 0},
    {"saveSelectedSlides", 35, true, 1210},    {"emailSelectedSlides", 36, false, 1211},
    {"openContainingFolder", 37, false, 1212}, {"hideShapes", 38, true, 1220},
    {"unhideShapes", 39, false, 1221},         {"roundedRectangles", 51, true, 1245},
    {"beautifyBlockArrow", 41, false, 1231},   {"tweakAutoShapeAdjustments", 49, false, 1242},
    {"pickColorFromScreen", 42, true, 1237},   {"resetCustomColors", 42, true, 1244},
    {"setBlackWhiteMode", 50, true, 1243},     {"pasteOnSelectedSlides", 46, true, 1232},
    {"removeAllSpeechNotes", 40, false, 1230}, {"alignVerticallyInGoldenSection", 47, false, 1235},
    {"createMotionPath", 43, false, 1233},     {"countWords", 44, false, 1234},
    {"!showSettings", 855, true, 1240, true},
};
constexpr ToolEntry helpEntries[] = {
    {"!reference", 984, false, 0, true},
    {"!FAQ", 610, false, 0, true},
    {"!startUpdate", 610, false, 0, true},
    {"!homepage", 610, false, 0, true},
    {"!feedback", 363, true, 0, true},
    {"!recommend", 363, false, 0, true},
    {"!about", 1, true, 0},
};

std::string labelOf(std::string_view parameter) {
  if (parameter.starts_with('!')) parameter.remove_prefix(1);
  const Command* command = findCommand(parameter);
  return command ? command->label : "";
}

}  // namespace

void pptControls::PowerPointApp(const host::Application& application) {
  trap("pptControls, PowerPointApp [Set]", [&] {
    application_ = application;
    if (!application) handlers_.clear();
  });
}

void pptControls::CreateControls() {
  trap("pptControls, CreateControls", [&] {
    shownHelpIds_ = base::split(core::getRegistry("tlnControls", "", ""), ';');
    if (!findBar(toolsBarName)) createToolsBar();
    generateMenuFromXML();
  });
}

void pptControls::createToolsBar() {
  const host::CommandBar bar = createCmdBar(toolsBarName);
  const auto addAll = [&](const host::CommandBarControls& controls, const auto& entries) {
    for (const ToolEntry& entry : entries) {
      addButton(controls, {entry.parameter, labelOf(entry.parameter), entry.icon,
                           !entry.hostFace && entry.icon > 0, entry.beginGroup, entry.helpId});
    }
  };
  addButton(bar.Controls(),
            {logo.parameter, "Vellumark for presentations", logo.icon, true, false, logo.helpId});
  addAll(bar.Controls(), alignEntries);
  AddStandardItemToToolbar(bar, distributeHorizontally, true);
  AddStandardItemToToolbar(bar, distributeVertically, false);
  addAll(bar.Controls(), barEntries);
  addLanguageButtons(bar);
  addAll(addPopup(bar, toolsPopup), popupEntries);
  addAll(addPopup(bar, helpPopup), helpEntries);
  getCmdBarPosition(toolsBarName);
}

void pptControls::DeleteControls() {
  trap("pptControls, DeleteControls", [&] {
    while (!bars_.empty()) {
      saveCmdBarPosition(bars_.back().Name());
      bars_.back().Delete();
      bars_.pop_back();
    }
    handlers_.clear();
  });
}

void pptControls::generateMenuFromXML() {
  trap("pptControls, generateMenuFromXML", [&] { library::loadConfiguration(library::Surface::toolbars); });
}

host::CommandBar pptControls::findBar(const std::string& name) {
  host::CommandBar bar;
  resumeNext([&] { bar = application_.CommandBars().Item(name); });
  return bar;
}

host::CommandBar pptControls::createCmdBar(const std::string& name) {
  return trap("pptControls, createCmdBar", [&] {
    host::CommandBar bar = findBar(name);
    if (!bar) bar = application_.CommandBars().Add(name, 1, true);
    bars_.push_back(bar);
    return bar;
  });
}

void pptControls::saveCmdBarPosition(const std::string& name) {
  trap("pptControls, saveCmdBarPosition", [&] {
    const host::CommandBar bar = findBar(name);
    if (!bar) return;
    core::setRegistry("position", std::to_string(bar.Position()), name);
    core::setRegistry("row", std::to_string(bar.RowIndex()), name);
    core::setRegistry("top", std::to_string(bar.Top()), name);
    core::setRegistry("left", std::to_string(bar.Left()), name);
    core::setRegistry("visible", bar.Visible() ? "-1" : "0", name);
  });
}

void pptControls::getCmdBarPosition(const std::string& name) {
  trap("pptControls, getCmdBarPosition", [&] {
    const host::CommandBar bar = findBar(name);
    if (!bar) return;
    const auto number = [&](const char* value, const char* otherwise) {
      return base::toInt32(core::getRegistry(value, name, otherwise));
    };
    bar.Position(number("position", "4"));
    bar.RowIndex(number("row", "1"));
    bar.Top(number("top", "200"));
    bar.Left(number("left", "200"));
    bar.Visible(base::toBool(core::getRegistry("visible", name, "-1")));
    if (bar.Position() == floating) bar.Height(52);
  });
}

void pptControls::addButton(const host::CommandBarControls& controls, const Entry& entry) {
  trap("pptControls, addButton", [&] {
    const host::CommandBarButton button = controls.Add(host::msoControlButton);
    if (entry.customIcon) {
      resumeNext([&] { button.Style(0); });
      resumeNext([&] { button.DescriptionText(std::to_string(entry.icon)); });
    } else {
      button.FaceId(entry.icon);
    }
    button.Tag(toolsTag);
    button.Caption(entry.caption);
    button.TooltipText(entry.caption);
    button.BeginGroup(entry.beginGroup);
    button.Parameter(entry.parameter);
    if (entry.helpId > 0) button.HelpContextId(entry.helpId);
    if (!entry.hasHandler) return;
    handlers_.push_back(
        host::subscribe(button.object(), [this](host::Member event, std::span<host::Value> arguments) {
          if (event != host::member::Click || arguments.size() < 2) return;
          bool cancelDefault = arguments[1].toBool();
          tlnButton_Click(host::CommandBarButton(arguments[0].toObject()), cancelDefault);
          arguments[1] = host::Value(cancelDefault);
        }));
    // An empty setting shows all entries.
    if (!shownHelpIds_.empty()) {
      button.Visible(std::ranges::find(shownHelpIds_, std::to_string(entry.helpId)) != shownHelpIds_.end());
    }
  });
}

host::CommandBarControls pptControls::addPopup(const host::CommandBar& bar, const std::string& caption) {
  return trap("pptControls, addPopup", [&] {
    const host::CommandBarPopup popup = bar.Controls().Add(host::msoControlPopup);
    popup.Caption(caption);
    popup.TooltipText(caption);
    popup.BeginGroup(true);
    return popup.Controls();
  });
}

void pptControls::AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup) {
  trap("pptControls, AddStandardItemToToolbar",
       [&] { bar.Controls().Add(host::msoControlButton, id).BeginGroup(beginGroup); });
}

void pptControls::addLanguageButtons(const host::CommandBar& bar) {
  trap("pptControls, addLanguageButtons", [&] {
    bool first = true;
    for (const std::int32_t id : core::globals().languageShortcuts) {
      if (id <= 0) continue;
      const std::string name = services::languageList().Item("ID" + std::to_string(id)).Name();
      addButton(bar.Controls(), {"setLanguage " + std::to_string(id),
                                 name + " spell checking for selected slides or shapes", 0, false, first});
      first = false;
    }
  });
}

/// Pressed buttons show the host's tick.
void pptControls::checkButton(const host::CommandBar& bar, const std::string& name, bool checked) {
  trap("pptControls, checkButton", [&] {
    constexpr int tick = 990, none = 1;
    const host::CommandBarButton button = bar.Controls().Item(name);
    button.State(checked ? host::msoButtonDown : host::msoButtonUp);
    button.FaceId(checked ? tick : none);
  });
}

void pptControls::enableControls() {
  trap("pptControls, enableControls", [&] {
    const auto enableAll = [](const host::CommandBarControls& controls) {
      for (int i = 1; i <= controls.Count(); ++i) {
        if (controls.Item(i).Tag() == toolsTag) controls.Item(i).Enabled(true);
      }
    };
    const host::CommandBarControls controls = application_.CommandBars().Item(toolsBarName).Controls();
    enableAll(controls);
    enableAll(controls.Item(toolsPopup).Controls());
  });
}

void pptControls::tlnButton_Click(const host::CommandBarButton& button, bool& cancelDefault) {
  (void)cancelDefault;  // the host's own action of such a button is none
  trap("pptControls, tlnButton_Click", [&] {
    const core::Globals& globals = core::globals();
    if (globals.helpMode) {
      core::showHelpContextID(button.HelpContextId());
      return;
    }
    if (globals.applicationEvents) globals.applicationEvents->toggle();
    if (!button.Enabled()) return;
    std::string parameter = button.Parameter();
    if (parameter.starts_with('!')) {
      parameter.erase(0, 1);
    } else {
      count(counterOf(std::string_view(parameter)));
    }
    runUndoFix();
    runParameter(parameter);
  });
}

}  // namespace vellumark::commands
