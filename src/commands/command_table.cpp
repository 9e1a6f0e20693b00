#include "commands/command_table.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "library/my_elements.h"
#include "services/settings.h"
#include "services/splash.h"
#include "tools/trimline_tools.h"

namespace vellumark::commands {
namespace {

using tools::TrimlineTools;

constexpr Rule always{};
constexpr Rule twoShapes{.fewestShapes = 2};
constexpr Rule oneShape{.fewestShapes = 1};
constexpr Rule exactlyTwo{.exactShapes = 2};
constexpr Rule textShapes{.textShapes = true};
constexpr Rule slidesSelected{.slides = true};
constexpr Rule windowOpen{.window = true};
constexpr Rule rounded{.fewestShapes = 1, .roundedRectangles = true};
constexpr Rule language{.shapesOrSlides = true};

constexpr const char* agenda = counters::agendaWizard;
constexpr const char* elements = counters::myElements;
constexpr const char* trimline = counters::trimlineTools;

constexpr Command row(std::int16_t id, const char* method, const char* label, const char* counter,
                      Rule rule) {
  return {id, 0, method, label, counter, rule, rule};
}
/// A split button: its main part and the first entry of its menu.
constexpr Command split(std::int16_t id, std::int16_t secondId, const char* method, const char* label,
                        const char* counter, Rule rule, Rule secondRule) {
  return {id, secondId, method, label, counter, rule, secondRule};
}
constexpr Command toggle(std::int16_t id, const char* method, const char* label) {
  return {id, 0, method, label, nullptr, textShapes, textShapes, true};
}
constexpr Command routine(std::int16_t id, const char* name, const char* label, const char* counter,
                          void (*work)()) {
  return {id, 0, name, label, counter, always, always, false, work};
}

constexpr Command table[] = {
    {1002, 1010, "about", "Info", nullptr, always, always, false, services::about},
    row(1005, "startUpdate", "Check for updates", nullptr, always),
    row(1006, "homepage", "Vellumark web site", nullptr, always),
    row(1007, "feedback", "Send feedback", nullptr, always),
    row(1008, "recommend", "Recommend to a friend", nullptr, always),
    routine(1011, "showSettings", "Settings", nullptr, services::showSettings),
    row(1013, "gettingStarted", "", nullptr, always),
    row(1014, "FAQ", "FAQ", nullptr, always),
    row(1015, "tutorialVideos", "", nullptr, always),
    row(1018, "showAgendaWizard", "Agenda Wizard", agenda, always),
    row(1020, "disconnectAgendaSlides", "Disconnect selected agenda slides from Agenda Wizard", agenda,
        always),
    row(1021, "agendaUpdatePagenumbers", "", agenda, always),
    routine(1028, "addMyElements", "Add selection to My Elements", elements, library::addMyElements),
    routine(1029, "manageMyElements", "Manage My Elements", elements, library::manageMyElements),
    row(1032, "alignLefts", "Align left to master left", trimline, twoShapes),
    row(1033, "alignCenters", "Align center to master center", trimline, twoShapes),
    row(1034, "alignRights", "Align right to master right", trimline, twoShapes),
    row(1036, "alignTops", "Align top to master top", trimline, twoShapes),
    row(1037, "alignMiddles", "Align middle to master middle", trimline, twoShapes),
    row(1038, "alignBottoms", "Align bottom to master bottom", trimline, twoShapes),
    row(1040, "alignWidths", "Stretch to master width", trimline, twoShapes),
    row(1041, "alignHeights", "Stretch to master height", trimline, twoShapes),
    row(1042, "alignWidthsAndHeights", "Stretch to master width and height", trimline, twoShapes),
    split(1044, 1046, "stretchLeft", "Stretch to master left", trimline, twoShapes, twoShapes),
    row(1047, "stretchRight", "Stretch to master right", trimline, twoShapes),
    row(1048, "stretchTop", "Stretch to master top", trimline, twoShapes),
    row(1049, "stretchBottom", "Stretch to master bottom", trimline, twoShapes),
    split(1051, 1053, "moveLeftToMasterRight", "Move left to master right", trimline, twoShapes, twoShapes),
    row(1054, "moveRightToMasterLeft", "Move right to master left", trimline, twoShapes),
    row(1055, "moveTopToMasterBottom", "Move top to master bottom", trimline, twoShapes),
    row(1056, "moveBottomToMasterTop", "Move bottom to master top", trimline, twoShapes),
    row(1058, "stackHorizontally", "", trimline, twoShapes),
    row(1059, "stackVertically", "", trimline, twoShapes),
    row(1061, "alignVerticallyInGoldenSection", "Align vertically in golden section", trimline, twoShapes),
    split(1063, 1065, "stretchLeftToMasterRight", "Stretch left to master right", trimline, twoShapes,
          twoShapes),
    row(1066, "stretchRightToMasterLeft", "Stretch right to master left", trimline, twoShapes),
    row(1067, "stretchTopToMasterBottom", "Stretch top to master bottom", trimline, twoShapes),
    row(1068, "stretchBottomToMasterTop", "Stretch bottom to master top", trimline, twoShapes),
    split(1071, 1073, "alignAngles", "Align angles", trimline, oneShape,
          {.fewestShapes = 2, .pentagons = true}),
    row(1074, "processChain", "Align process chain", trimline,
        {.fewestShapes = 2, .rightAngled = true, .sameOrientation = true, .pentagons = true}),
    row(1075, "adjustPentagonHeader", "Adjust pentagon header", trimline, exactlyTwo),
    row(1076, "beautifyBlockArrow", "Beautify block arrows", trimline,
        {.fewestShapes = 1, .blockArrows = true}),
    split(1078, 1080, "roundedRectangles", "Rounded rectangles", trimline, rounded,
          {.fewestShapes = 2, .roundedRectangles = true}),
    row(1081, "roundedRectanglesNumeric", "", trimline, rounded),
    row(1082, "switchObjects", "Switch objects", trimline, exactlyTwo),
    toggle(1085, "adjustAutoShapeToText", "Fit AutoShape to text"),
    toggle(1086, "wrapText", "Wrap text in AutoShape"),
    row(1087, "setMargins", "Set AutoShape margins", trimline, textShapes),
    row(1089, "beautifyIndents", "Beautify indents", trimline, textShapes),
    row(1090, "removeIndent", "Decrease indent level", trimline, textShapes),
    row(1091, "addIndent", "Increase indent level", trimline, textShapes),
    row(1093, "setLanguage", "", trimline, language),
    row(1094, "setLanguage", "", trimline, language),
    row(1095, "setLanguage", "", trimline, language),
    split(1098, 1100, "emailSelectedSlides", "E-mail selected slides", trimline, slidesSelected,
          slidesSelected),
    row(1101, "saveSelectedSlides", "Save selected slides as new presentation", trimline, slidesSelected),
    row(1102, "openContainingFolder", "Open containing folder", trimline, windowOpen),
    row(1104, "pickColorFromScreen", "Pick color from screen", trimline, windowOpen),
    row(1108, "removeAllSpeechNotes", "Remove all speech notes", trimline, windowOpen),
    row(1109, "tweakAutoShapeAdjustments", "Tweak AutoShape adjustments", trimline, oneShape),
    row(1110, "setBlackWhiteMode", "Set black and white mode", trimline, windowOpen),
    row(1111, "createMotionPath", "Create motion path", trimline, exactlyTwo),
    row(1112, "countWords", "Text statistics", trimline, oneShape),
    row(1114, "hideShapes", "Hide selected shapes", trimline, oneShape),
    row(1115, "unhideShapes", "Unhide all hidden shapes", trimline, windowOpen),
    row(1117, "pasteOnSelectedSlides", "Paste on selected slides", trimline, slidesSelected),
    // Without a button of their own on the ribbon.
    row(0, "reference", "Reference", nullptr, always),
    row(0, "resetCustomColors", "Reset custom colors", trimline, always),
    row(0, "insertCopyright", "", counters::slideWizard, always),
};

}  // namespace

bool Rule::holds(const core::SelectionFlags& flags) const {
  if (flags.shapeCount < fewestShapes || (exactShapes != 0 && flags.shapeCount != exactShapes)) return false;
  if ((rightAngled && !flags.allRightAngled) || (sameOrientation && !flags.allSameOrientation) ||
      (blockArrows && !flags.allBlockArrows) || (pentagons && !flags.allPentagons) ||
      (roundedRectangles && !flags.allRoundedRectangles) || (textShapes && !flags.allTextShapes)) {
    return false;
  }
  if (shapesOrSlides && flags.shapeCount < 1 && flags.slideCount < 1) return false;
  if (slides && flags.slideCount < 1) return false;
  return !window || core::globals().powerPointApp.Windows().Count() >= 1;
}

std::string Rule::text() const {
  std::vector<std::string> parts;
  if (fewestShapes == 1) parts.push_back("at least 1 shape");
  if (fewestShapes > 1) parts.push_back("at least " + std::to_string(fewestShapes) + " shapes");
  if (exactShapes != 0) parts.push_back("exactly " + std::to_string(exactShapes) + " shapes");
  if (blockArrows) parts.push_back("all of them block arrows");
  if (pentagons) parts.push_back("all of them pentagons or chevrons");
  if (roundedRectangles) parts.push_back("all of them rounded rectangles");
  if (rightAngled) parts.push_back("turned by multiples of 90 degrees");
  if (sameOrientation) parts.push_back("all turned and flipped alike");
  if (textShapes) parts.push_back("only shapes that take text");
  if (shapesOrSlides) parts.push_back("at least 1 shape or slides selected");
  if (slides) parts.push_back("slides selected");
  if (window) parts.push_back("a window is open");
  return parts.empty() ? "always" : base::join(parts, ", ");
}

std::span<const Command> commandTable() { return table; }

const Command* findCommand(std::int16_t id) {
  if (id == 0) return nullptr;
  const auto found = std::ranges::find_if(
      table, [&](const Command& command) { return command.id == id || command.secondId == id; });
  return found == std::end(table) ? nullptr : found;
}

const Command* findCommand(std::string_view method) {
  const auto found = std::ranges::find_if(
      table, [&](const Command& command) { return base::equalsIgnoreCase(command.method, method); });
  return found == std::end(table) ? nullptr : found;
}

std::optional<Rule> ruleOf(std::int16_t id) {
  // Menus and split buttons that only open.
  switch (id) {
    case 1070:
      return oneShape;
    case 1077:
      return rounded;
    case 1105:
      return windowOpen;
    default:
      break;
  }
  const Command* command = findCommand(id);
  if (!command) return std::nullopt;
  return command->secondId == id ? command->secondRule : command->rule;
}

ToolbarCall::ToolbarCall(std::string_view parameter) {
  if (parameter.starts_with('!')) {
    counted = false;
    parameter.remove_prefix(1);
  }
  text = parameter;
  const std::size_t blank = parameter.find(' ');
  method = parameter.substr(0, blank);
  if (blank != std::string_view::npos) argument = parameter.substr(blank + 1);
}

void runMethod(const std::string& method, const std::optional<std::string>& argument) {
  const Command* command = findCommand(method);
  if (command && command->routine) {
    if (argument) base::raise(base::errors::wrongArgumentCount);
    command->routine();
    return;
  }
  if (!core::globals().tools) base::raise(base::errors::objectNotSet);
  core::globals().tools->callMethod(method, argument);
}

}  // namespace vellumark::commands
