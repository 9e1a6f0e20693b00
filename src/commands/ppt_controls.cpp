#include "commands/ppt_controls.h"

#include "base/conversions.h"
#include "base/text.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/registry.h"
#include "library/configuration.h"

namespace vellumark::commands {
namespace {

using core::resumeNext;
using core::trap;

constexpr int dockedAtTop = 1, floating = 4;
constexpr int floatingHeight = 52;  // pixels
constexpr int tickFace = 990, noFace = 1;

/// Controls of the host's own.
constexpr int shortcuts[] = {1402, 164, 165,  166,  167,  170,  171,  196,  197, 199,
                             198,  206, 1042, 1043, 2061, 2062, 2063, 2710, 58,  57};

/// Where a bar floats that was never moved, in pixels.
const char* defaultTop(const std::string& bar) {
  if (bar == slideWizardBar) return "260";
  return bar == shortcutsBar ? "320" : "200";
}

}  // namespace

void pptControls::PowerPointApp(const host::Application& application) {
  trap("pptControls, PowerPointApp [Set]", [&] { application_ = application; });
}

void pptControls::CreateControls() {
  trap("pptControls, CreateControls", [&] {
    shownHelpIds_ = base::split(core::getRegistry("tlnControls", "", ""), ';');
    if (!findBar(toolsBar::name)) createToolsBar();
    if (!findBar(slideWizardBar)) {
      createSlideWizardBar();
    } else {
      library::loadConfiguration(library::Surface::toolbars);
    }
    if (!findBar(shortcutsBar)) createShortcutsBar();
  });
}

void pptControls::createToolsBar() {
  const host::CommandBar bar = createCmdBar(toolsBar::name);
  addLogoButton(bar);
  for (const toolsBar::Entry& entry : toolsBar::alignEntries()) addEntry(bar, Button::of(entry));
  AddStandardItemToToolbar(bar, toolsBar::distributeHorizontally, true);
  AddStandardItemToToolbar(bar, toolsBar::distributeVertically, false);
  for (const toolsBar::Entry& entry : toolsBar::barEntries()) addEntry(bar, Button::of(entry));
  addLanguageButtons();
  const host::CommandBarPopup tools = addPopup(bar, {toolsBar::toolsPopup});
  for (const toolsBar::Entry& entry : toolsBar::toolsEntries()) addPopupEntry(tools, Button::of(entry));
  const host::CommandBarPopup help = addPopup(bar, {toolsBar::helpPopup});
  for (const toolsBar::Entry& entry : toolsBar::helpEntries()) addPopupEntry(help, Button::of(entry));
  getCmdBarPosition(toolsBar::name);
}

void pptControls::createShortcutsBar() {
  const host::CommandBar bar = createCmdBar(shortcutsBar);
  addLogoButton(bar);
  for (const int id : shortcuts) AddStandardItemToToolbar(bar, id, false);
  getCmdBarPosition(shortcutsBar);
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
    bar.Top(number("top", defaultTop(name)));
    bar.Left(number("left", "200"));
    bar.Visible(base::toBool(core::getRegistry("visible", name, "-1")));
    if (bar.Position() == floating) bar.Height(floatingHeight);
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
        if (control.Tag() == toolsBar::tag) control.Enabled(true);
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
