#include "press.h"

#include <charconv>
#include <optional>

#include "bars.h"
#include "base/text.h"
#include "commands/ribbon_callbacks.h"
#include "failure.h"
#include "services/language_rows.h"

namespace vellumark::app {
namespace {

[[noreturn]] void refuse(const CommandCall& call, const std::string& why) {
  throw Failure(Exit::refused, std::string(call.command->method) + ": " + why);
}

/// The number of "1032" or "zp_1032".
std::optional<std::int16_t> ribbonNumber(std::string_view text) {
  if (base::equalsIgnoreCase(text.substr(0, 3), "zp_")) text.remove_prefix(3);
  std::int16_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < 1) return std::nullopt;
  return number;
}

/// The ribbon has no button for each language, but one for each of the user's three: that of the argument, or
/// the first.
std::int16_t languageNumber(AddIn& addIn, const CommandCall& call) {
  if (call.argument.empty()) return call.number;
  for (const services::LanguageRow& row : services::languageRows) {
    if (std::to_string(row.languageId) != call.argument) continue;
    for (const std::int16_t number : {1093, 1094, 1095}) {
      if (addIn.callBack("getLabel", ribbonControl(number)).toString() == row.name) return number;
    }
  }
  refuse(call, call.argument + " is none of the user's languages; take a host with toolbars: --host 11.0");
}

/// The ribbon's menu of notices is made anew each time it opens; its entries carry the notice's number.
void chooseNotice(AddIn& addIn, const CommandCall& call) {
  if (call.argument.empty())
    refuse(call, "which notice? Name it by its number, for example \"insertCopyright 1\"");
  // The chooser of styles is in view before the menu can be opened; it takes the first style where none is
  // chosen.
  addIn.callBack("style_getSelectedItemIndex", ribbonControl(commands::styleChooser));
  const auto entry = std::make_shared<RibbonControl>("copyright_" + call.argument, call.argument);
  addIn.callBack("copyright_onAction", host::IRibbonControl(entry));
}

void pressOnRibbon(Session& session, const CommandCall& call) {
  if (base::equalsIgnoreCase(call.command->method, "insertCopyright"))
    return chooseNotice(session.addIn(), call);
  if (call.number == 0)
    refuse(call, "the ribbon has no button for it; take a host with toolbars: --host 11.0");
  const bool language = base::equalsIgnoreCase(call.command->method, "setLanguage");
  AddIn& addIn = session.addIn();
  const std::int16_t number = language ? languageNumber(addIn, call) : call.number;
  const host::IRibbonControl control = ribbonControl(number);
  if (!addIn.callBack("getEnabled", control).toBool()) {
    const auto rule = commands::ruleOf(number);
    refuse(call, "disabled for this selection; it needs " + (rule ? rule->text() : "another one") +
                     ": see --select and --slides");
  }
  if (call.command->toggle) {
    const bool pressed = addIn.callBack("getPressed", control).toBool();
    addIn.callBack("onActionTB", {host::Value(control.object()), host::Value(!pressed)});
  } else {
    addIn.callBack("onAction", control);
  }
}

std::string missingButton(const CommandCall& call) {
  if (base::equalsIgnoreCase(call.command->method, "insertCopyright")) {
    return call.argument.empty()
               ? "which notice? Name it by its number, for example \"insertCopyright 1\""
               : "there is no notice " + call.argument + "; \"vellumark toolbars\" lists them";
  }
  if (base::equalsIgnoreCase(call.command->method, "setLanguage")) {
    return call.argument.empty() ? "which language? Name it by its id, for example \"setLanguage 1033\""
                                 : call.argument +
                                       " is none of the user's languages; \"vellumark toolbars\" "
                                       "lists them";
  }
  return "no toolbar has a button for it; take a host with a ribbon: --host 14.0";
}

void pressOnToolbar(Session& session, const CommandCall& call) {
  const std::string method = call.command->method;
  const std::string parameter = call.argument.empty() ? method : method + " " + call.argument;
  const host::CommandBarControl button =
      findButton(session.application().CommandBars(), {parameter, "!" + parameter});
  if (!button) refuse(call, missingButton(call));
  if (!button.Visible()) {
    refuse(call, "hidden on the toolbar by the setting tlnControls; list its help id there, or none at all");
  }
  if (!button.Enabled()) {
    refuse(call, "disabled for this selection on the toolbar; on the ribbon it needs " +
                     call.command->rule.text() + ": see --select, --slides and --view");
  }
  button.Execute();
}

}  // namespace

CommandCall findCommand(const std::string& name) {
  std::string text = base::trim(name);
  if (text.starts_with('!')) text.erase(0, 1);
  if (const auto number = ribbonNumber(text)) {
    if (const commands::Command* command = commands::findCommand(*number)) return {command, *number, {}};
  } else {
    const std::size_t blank = text.find(' ');
    const std::string method = text.substr(0, blank);
    if (const commands::Command* command = commands::findCommand(method)) {
      return {command, command->id, blank == std::string::npos ? "" : text.substr(blank + 1)};
    }
  }
  throw Failure(Exit::usage, name + ": there is no such command; \"vellumark commands\" lists them");
}

void press(Session& session, const CommandCall& call) {
  try {
    session.hasRibbon() ? pressOnRibbon(session, call) : pressOnToolbar(session, call);
  } catch (const base::Error& error) {
    // What has a text of its own says all; the standard texts are told apart by their numbers.
    const bool standard = error.description() == base::standardDescription(error.number());
    refuse(call, error.description() + (standard ? " (" + std::to_string(error.number()) + ")" : ""));
  }
}

}  // namespace vellumark::app
