#include "commands/ppt_controls.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/text.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "core/config.h"
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
constexpr const char* slideWizardBar = "Vellumark for presentations - Slide Wizard";
constexpr int dockedAtTop = 1, floating = 4;
constexpr int floatingHeight = 52;  // pixels
constexpr int tickFace = 990, noFace = 1;

}  // namespace

void pptControls::PowerPointApp(const host::Application& application) {
  trap("pptControls, PowerPointApp [Set]", [&] { application_ = application; });
}

void pptControls::CreateControls() {
  trap("pptControls, CreateControls", [&] {
    shownHelpIds_ = base::split(core::getRegistry("tlnControls", "", ""), ';');
    if (!findBar(toolsBar::name)) createToolsBar();
    generateMenuFromXML();
  });
}

void pptControls::createToolsBar() {
  const host::CommandBar bar = createCmdBar(toolsBar::name);
  const toolsBar::Entry& logo = toolsBar::logo;
  addButton(bar.Controls(),
            {logo.parameter, std::string(core::productTitle), logo.icon, true, logo.beginGroup, logo.helpId});
  for (const toolsBar::Entry& entry : toolsBar::alignEntries()) addEntry(bar, entry);
  AddStandardItemToToolbar(bar, toolsBar::distributeHorizontally, true);
  AddStandardItemToToolbar(bar, toolsBar::distributeVertically, false);
  for (const toolsBar::Entry& entry : toolsBar::barEntries()) addEntry(bar, entry);
  addLanguageButtons(bar);
  const host::CommandBarPopup tools = addPopup(bar, toolsBar::toolsPopup);
  for (const toolsBar::Entry& entry : toolsBar::toolsEntries()) addPopupEntry(tools, entry);
  const host::CommandBarPopup help = addPopup(bar, toolsBar::helpPopup);
  for (const toolsBar::Entry& entry : toolsBar::helpEntries()) addPopupEntry(help, entry);
  getCmdBarPosition(toolsBar::name);
}

void pptControls::DeleteControls() {
  trap("pptControls, DeleteControls", [&] {
    while (!bars_.empty()) {
      saveCmdBarPosition(bars_.back().Name());
      bars_.back().Delete();
      bars_.pop_back();
    }
  });
}

void pptControls::generateMenuFromXML() {
  trap("pptControls, generateMenuFromXML", [&] { library::loadConfiguration(library::Surface::toolbars); });
}

/// A missing bar is an ordinary answer.
host::CommandBar pptControls::findBar(const std::string& name) const {
  host::CommandBar bar;
  resumeNext([&] { bar = application_.CommandBars().Item(name); });
  return bar;
}

host::CommandBar pptControls::createCmdBar(const std::string& name) {
  return trap("pptControls, createCmdBar", [&] {
    host::CommandBar bar = findBar(name);
    if (!bar) bar = application_.CommandBars().Add(name, dockedAtTop, true);
    bars_.push_back(bar);
    return bar;
  });
}

host::CommandBarComboBox pptControls::styleBox() const {
  const host::CommandBar bar = findBar(slideWizardBar);
  if (!bar) return {};
  const host::CommandBarControls controls = bar.Controls();
  const int count = controls.Count();
  for (int i = 1; i <= count; ++i) {
    if (const auto control = controls.Item(i); control.Type() == host::msoControlDropdown) return control;
  }
  return {};
}

// The first item stands for no style, the second is the first real one.
void pptControls::setStyle(const std::string& name) {
  trap("pptControls, setStyle", [&] {
    const host::CommandBarComboBox box = styleBox();
    if (!box) return;
    constexpr int firstStyle = 2;
    const int count = box.ListCount();
    int chosen = firstStyle;
    for (int i = firstStyle; i <= count && !name.empty(); ++i) {
      if (box.List(i) == name) chosen = i;
    }
    if (count == 1) {
      box.ListIndex(1);
      return;
    }
    box.ListIndex(chosen);
    core::globals().currentStyle = box.Text();
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
    const auto number = [&](const char* value, const char* defaultValue) {
      return base::toInt32(core::getRegistry(value, name, defaultValue));
    };
    bar.Position(number("position", "4"));
    bar.RowIndex(number("row", "1"));
    bar.Top(number("top", "200"));
    bar.Left(number("left", "200"));
    bar.Visible(base::toBool(core::getRegistry("visible", name, "-1")));
    if (bar.Position() == floating) bar.Height(floatingHeight);
  });
}

void pptControls::addButton(const host::CommandBarControls& controls, const Button& entry) {
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
    clicks_.push_back(
        host::subscribe(button.object(), [this](host::Member event, std::span<host::Value> arguments) {
          if (event != host::member::Click || arguments.size() < 2) return;
          bool cancelDefault = arguments[1].toBool();
          tlnButton_Click(host::CommandBarButton(arguments[0].toObject()), cancelDefault);
          arguments[1] = cancelDefault;
        }));
    if (!shownHelpIds_.empty()) {
      button.Visible(std::ranges::find(shownHelpIds_, std::to_string(entry.helpId)) != shownHelpIds_.end());
    }
  });
}

void pptControls::addEntry(const host::CommandBar& bar, const toolsBar::Entry& entry) {
  trap("pptControls, addEntry", [&] {
    addButton(bar.Controls(), {entry.parameter, entry.caption(), entry.icon,
                               entry.icon > 0 && !entry.hostFace, entry.beginGroup, entry.helpId});
  });
}

void pptControls::addPopupEntry(const host::CommandBarPopup& popup, const toolsBar::Entry& entry) {
  trap("pptControls, addPopupEntry", [&] {
    addButton(popup.Controls(), {entry.parameter, entry.caption(), entry.icon,
                                 entry.icon > 0 && !entry.hostFace, entry.beginGroup, entry.helpId});
  });
}

host::CommandBarPopup pptControls::addPopup(const host::CommandBar& bar, const std::string& caption) {
  return trap("pptControls, addPopup", [&] {
    const host::CommandBarPopup popup = bar.Controls().Add(host::msoControlPopup);
    popup.Caption(caption);
    popup.TooltipText(caption);
    popup.BeginGroup(true);
    return popup;
  });
}

void pptControls::AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup) {
  trap("pptControls, AddStandardItemToToolbar",
       [&] { bar.Controls().Add(host::msoControlButton, id).BeginGroup(beginGroup); });
}

void pptControls::addLanguageButtons(const host::CommandBar& bar) {
  trap("pptControls, addLanguageButtons", [&] {
    bool beginGroup = true;
    for (const std::int32_t id : core::globals().languageShortcuts) {
      if (id <= 0) continue;
      const std::string& name = services::languageList().Item("ID" + std::to_string(id)).Name();
      addButton(bar.Controls(), {.parameter = "setLanguage " + std::to_string(id),
                                 .caption = name + " spell checking for selected slides or shapes",
                                 .beginGroup = beginGroup});
      beginGroup = false;
    }
  });
}

void pptControls::checkButton(const host::CommandBar& bar, const std::string& name, bool checked) {
  trap("pptControls, checkButton", [&] {
    const host::CommandBarButton button = bar.Controls().Item(name);
    button.State(checked ? host::msoButtonDown : host::msoButtonUp);
    button.FaceId(checked ? tickFace : noFace);
  });
}

void pptControls::enableControls() {
  trap("pptControls, enableControls", [&] {
    const auto enableAll = [](const host::CommandBarControls& controls) {
      const int count = controls.Count();
      for (int i = 1; i <= count; ++i) {
        const host::CommandBarControl control = controls.Item(i);
        if (control.Tag() == toolsTag) control.Enabled(true);
      }
    };
    const host::CommandBarControls controls = application_.CommandBars().Item(toolsBar::name).Controls();
    enableAll(controls);
    enableAll(controls.Item(toolsBar::toolsPopup).Controls());
  });
}

// The host's own action of such a button is none, so there is nothing to cancel.
void pptControls::tlnButton_Click(const host::CommandBarButton& button, bool& /*cancelDefault*/) {
  trap("pptControls, tlnButton_Click", [&] {
    const core::Globals& globals = core::globals();
    if (globals.helpMode) {
      core::showHelpContextID(button.HelpContextId());
      return;
    }
    if (globals.applicationEvents) globals.applicationEvents->toggle();
    if (!button.Enabled()) return;
    const ToolbarCall call(button.Parameter());
    if (call.counted) count(counterOf(call.text));
    runUndoFix();
    runMethod(call.method, call.argument);
  });
}

}  // namespace vellumark::commands
