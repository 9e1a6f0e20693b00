#pragma once
// The one table of commands: what each is called, when it is enabled and what it does. The ribbon, the
// toolbars and the command line all go by it.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/globals.h"

namespace vellumark::commands {

/// When a command is enabled, in terms of what the selection watch found.
struct Rule {
  std::int16_t fewestShapes = 0;
  std::int16_t exactShapes = 0;  ///< 0 asks for no exact number
  bool rightAngled = false;
  bool sameOrientation = false;
  bool blockArrows = false;
  bool pentagons = false;
  bool roundedRectangles = false;
  bool textShapes = false;
  bool shapesOrSlides = false;  ///< at least one shape, or slides selected
  bool slides = false;
  bool window = false;

  bool holds(const core::SelectionFlags& flags) const;
  /// "at least 2 shapes", "always".
  std::string text() const;
};

/// The usage counters, by their names in the settings store.
namespace counters {
inline constexpr const char* slideWizard = "statsSlideWizard";
inline constexpr const char* myElements = "statsMyElements";
inline constexpr const char* agendaWizard = "statsAgendaWizard";
inline constexpr const char* trimlineTools = "statsTrimlineTools";
}  // namespace counters

struct Command {
  std::int16_t id;        ///< number on the ribbon, 0 where only toolbars have it
  std::int16_t secondId;  ///< the entry of a split button's menu that does the same, 0 for none
  const char* method;   ///< the method of the Trimline Tools that does it, as in a toolbar entry's parameter
  const char* label;    ///< caption on toolbars; empty where only the ribbon has it
  const char* counter;  ///< nullptr counts nothing
  Rule rule;
  Rule secondRule;              ///< of secondId
  bool toggle = false;          ///< a toggle button of the ribbon, which sets the host's property itself
  void (*routine)() = nullptr;  ///< what does it, where that is no method of the Trimline Tools
};

std::span<const Command> commandTable();
/// The command with that ribbon number, or nothing.
const Command* findCommand(std::int16_t id);
/// The command with that method name, in any case, or nothing.
const Command* findCommand(std::string_view method);

/// The rule of a ribbon number, of menus and split buttons that only open too; nothing where it has none.
std::optional<Rule> ruleOf(std::int16_t id);

/// What the parameter of a toolbar's entry asks for: a name, behind the first blank an argument ("setLanguage
/// 1031"), and in front a "!" where the usage isn't counted ("!about").
struct ToolbarCall {
  explicit ToolbarCall(std::string_view parameter);

  std::string text;  ///< the parameter without the "!"
  std::string method;
  std::optional<std::string> argument;
  bool counted = true;
};

/// Runs a command of that name in any case; 438 where there is none.
void runMethod(const std::string& method, const std::optional<std::string>& argument = {});

}  // namespace vellumark::commands
