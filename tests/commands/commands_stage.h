#pragma once
// A deck in an embedded host with the whole command surface connected to it.

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "agenda/agenda_commands.h"
#include "commands/ppt_controls.h"
#include "commands/ppt_events.h"
#include "core/registry.h"
#include "platform/paths.h"
#include "services/languages.h"
#include "support/fake_host.h"
#include "tools/stage.h"

namespace vellumark::test {

class CommandsStage : public Stage {
 protected:
  /// Opens what `deck` has become and connects events and, on hosts before the ribbon, toolbars.
  void open(const std::string& version = "14.0") {
    controls.reset();
    events.reset();
    core::globals() = core::Globals{};
    Stage::open(version);
    core::Globals& g = core::globals();
    g.agenda = &agenda;
    const std::string root = platform::fromSystem(folder.root().string() + "/");
    g.programFolder = root + "program\\";
    g.configFolder = root + "customization\\";
    g.myElementsFolder = root + "user\\myelements\\";
    folder.write("customization/menu.xml", "<Vellumark><style name='Blue' folder='blue'/></Vellumark>");
    folder.write("user/myelements/myelements.xml", "<Vellumark/>");
    events.emplace();
    g.applicationEvents = &*events;
    events->PowerPointApp(g.powerPointApp);
    services::initializeLanguages();
    if (!core::isHostVersion(host::toolbarHosts)) return;
    controls.emplace();
    g.toolbarControls = &*controls;
    controls->PowerPointApp(g.powerPointApp);
    controls->CreateControls();
    events->toggleOff();
  }

  static host::IRibbonControl control(const std::string& id, const std::string& tag = {}) {
    return host::IRibbonControl(std::make_shared<FakeObject>(
        "IRibbonControl", std::map<std::string, host::Value>{{"Id", id}, {"Tag", tag}}));
  }
  static host::IRibbonControl control(int number) { return control("zp_" + std::to_string(number)); }

  /// The counters that are not 0, as "statsTrimlineTools 1; ".
  static std::string counters() {
    std::string text;
    for (const char* name :
         {"statsSlideWizard", "statsMyElements", "statsAgendaWizard", "statsTrimlineTools"}) {
      const std::string value = core::getRegistry(name, "", "0");
      if (value != "0") text += std::string(name) + " " + value + "; ";
    }
    return text;
  }
  static void clearCounters() {
    for (const char* name :
         {"statsSlideWizard", "statsMyElements", "statsAgendaWizard", "statsTrimlineTools"}) {
      core::setRegistry(name, "0", "");
    }
  }

  static int numberOf(const std::function<void()>& statement) {
    try {
      statement();
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0;
  }

  /// An entry of the tools bar, or of a popup on it.
  host::CommandBarControls bar() {
    return host->application().CommandBars().Item(commands::toolsBar::name).Controls();
  }
  host::CommandBarControl entry(const std::string& caption, const std::string& popup = {}) {
    return (popup.empty() ? bar() : bar().Item(popup).Controls()).Item(caption);
  }

  agenda::AgendaCommands agenda;
  std::optional<commands::pptEvents> events;
  std::optional<commands::pptControls> controls;
};

}  // namespace vellumark::test
