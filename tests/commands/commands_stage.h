#pragma once
// A deck in an embedded host with the whole command surface connected to it.

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "agenda/agenda_commands.h"
#include "commands/ppt_controls.h"
#include "commands/ppt_events.h"
#include "core/failure.h"
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
    g.iconsFolder = g.configFolder + "icons\\";
    g.stylesFolder = g.configFolder + "styles\\";
    g.uiFolder = platform::fromSystem(TEST_SOURCE_DIR "/product/program/ui/");
    g.myElementsFolder = root + "user\\myelements\\";
    folder.write("customization/menu.xml", "<Vellumark>" + menu + "</Vellumark>");
    folder.write("user/myelements/myelements.xml", "<Vellumark xmlns='urn:x'>" + elements + "</Vellumark>");
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

  /// What stands on a bar or in a popup, a line each, popups entered: caption, parameter in brackets, then
  /// what is not as usual. "picture" has a mask too.
  static std::string tree(const host::CommandBarControls& controls, const std::string& indent = {}) {
    std::string text;
    for (int i = 1; i <= controls.Count(); ++i) {
      const host::CommandBarControl control = controls.Item(i);
      text += indent + (control.Id() == 1 ? control.Caption() : "host " + std::to_string(control.Id()));
      if (!control.Parameter().empty()) text += " [" + control.Parameter() + "]";
      if (control.BeginGroup()) text += " group";
      if (control.HelpContextId() != 0) text += " help=" + std::to_string(control.HelpContextId());
      if (control.TooltipText() != control.Caption()) text += " tip=" + control.TooltipText();
      if (control.Type() == host::msoControlButton && control.Id() == 1) {
        if (control.Tag() != "zorp_TrimlineTools") text += " tag=" + control.Tag();
        if (control.FaceId() != 0) text += " face=" + std::to_string(control.FaceId());
        if (!control.DescriptionText().empty()) text += " icon=" + control.DescriptionText();
        text += pictureOf(control);
      }
      if (control.Type() == host::msoControlDropdown) {
        text += "box";
        for (int item = 1; item <= control.ListCount(); ++item) text += " | " + control.List(item);
      }
      text += "\n";
      if (control.Type() == host::msoControlPopup) text += tree(control.Controls(), indent + "  ");
    }
    return text;
  }
  static std::string pictureOf(const host::CommandBarButton& button) {
    const auto has = [](const host::Value& picture) {
      return picture.isObject() && picture != host::Value(host::ObjectRef());
    };
    bool picture = false, mask = false;
    core::resumeNext([&] { picture = has(button.Picture()); });
    core::resumeNext([&] { mask = has(button.Mask()); });
    return picture && mask ? " picture" : picture ? " unmasked" : mask ? " mask alone" : "";
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
  host::CommandBarControls bar(const char* name = commands::toolsBar::name) {
    return host->application().CommandBars().Item(name).Controls();
  }
  host::CommandBarControl entry(const std::string& caption, const std::string& popup = {}) {
    return (popup.empty() ? bar() : bar().Item(popup).Controls()).Item(caption);
  }

  // What the next open() finds in menu.xml and in the index of My Elements.
  std::string menu = "<style name='Blue' folder='blue'/>";
  std::string elements;

  agenda::AgendaCommands agenda;
  std::optional<commands::pptEvents> events;
  std::optional<commands::pptControls> controls;
};

}  // namespace vellumark::test
