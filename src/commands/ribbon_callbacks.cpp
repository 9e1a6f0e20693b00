#include "commands/ribbon_callbacks.h"

#include "base/conversions.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "core/failure.h"
#include "core/globals.h"
#include "host/picture.h"
#include "platform/paths.h"
#include "services/icons.h"
#include "services/languages.h"

namespace vellumark::commands {
namespace {

constexpr std::int16_t firstLanguage = 1093, lastLanguage = 1095;
constexpr std::int16_t fitToText = 1085, wrapText = 1086;
constexpr std::int16_t firstCommand = 1002, behindCommands = 1118;
constexpr std::int16_t firstWithRule = 1032, lastWithRule = 1117;

/// The place (0 to 2) of a language button; -1 for other controls.
int languagePlace(std::int16_t number) {
  return number >= firstLanguage && number <= lastLanguage ? number - firstLanguage : -1;
}

std::int32_t shortcut(int place) {
  return core::globals().languageShortcuts[static_cast<std::size_t>(place)];
}

host::TextFrame selectedFrames() {
  return core::globals().powerPointApp.ActiveWindow().Selection().ShapeRange().TextFrame();
}

}  // namespace

void onAction(const host::IRibbonControl& control) {
  runUndoFix();
  if (const char* counter = counterOf(controlNumber(control.Id()))) count(counter);
  const std::int16_t number = controlNumber(control.Id());
  if (number < firstCommand || number >= behindCommands) return;
  const Command* command = findCommand(number);
  // Toggle buttons have a callback of their own.
  if (!command || command->toggle) return;
  const int place = languagePlace(number);
  if (place >= 0) return runMethod(command->method, std::to_string(shortcut(place)));
  runMethod(command->method);
}

void onActionTB(const host::IRibbonControl& control, bool pressed) {
  runUndoFix();
  switch (controlNumber(control.Id())) {
    case fitToText:
      selectedFrames().AutoSize(pressed ? host::ppAutoSizeShapeToFitText : host::ppAutoSizeNone);
      break;
    case wrapText:
      selectedFrames().WordWrap(pressed);
      break;
    default:
      break;
  }
}

void copyright_onAction(const host::IRibbonControl& control) {
  runUndoFix();
  if (core::globals().powerPointApp.Windows().Count() < 1) return;
  runMethod("insertCopyright", std::to_string(base::toInt16(control.Tag())));
}

bool getEnabled(const host::IRibbonControl& control) {
  const std::int16_t number = controlNumber(control.Id());
  if (number < firstWithRule || number > lastWithRule) return true;
  const std::optional<Rule> rule = ruleOf(number);
  if (!rule) return true;
  const core::ApplicationEvents* events = core::globals().applicationEvents;
  return rule->holds(events ? events->flags() : core::SelectionFlags{});
}

bool getVisible(const host::IRibbonControl& control) {
  const std::int16_t number = controlNumber(control.Id());
  if (number == styleChooser) return core::globals().styleNames.size() >= 2;
  const int place = languagePlace(number);
  return place < 0 || shortcut(place) >= 1;
}

std::string getLabel(const host::IRibbonControl& control) {
  const int place = languagePlace(controlNumber(control.Id()));
  if (place < 0 || shortcut(place) < 1) return {};
  return services::languageList().Item("ID" + std::to_string(shortcut(place))).Name();
}

host::ObjectRef getImage(const host::IRibbonControl& control) {
  const std::string id = control.Id();
  const int place = languagePlace(controlNumber(id));
  if (place >= 0) {
    return host::pictureOf(services::icons().languagePictures[static_cast<std::size_t>(place)].canvas());
  }
  return host::loadPictureFromFile(platform::toSystem(core::globals().uiFolder + id + ".png"));
}

bool getPressed(const host::IRibbonControl& control) {
  bool pressed = false;
  core::resumeNext([&] {
    switch (controlNumber(control.Id())) {
      case fitToText:
        pressed = selectedFrames().AutoSize() == host::ppAutoSizeShapeToFitText;
        break;
      case wrapText:
        pressed = selectedFrames().WordWrap() != host::msoFalse;
        break;
      default:
        break;
    }
  });
  return pressed;
}

}  // namespace vellumark::commands
