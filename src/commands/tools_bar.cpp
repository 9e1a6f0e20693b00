#include "commands/tools_bar.h"

#include "commands/command_table.h"

namespace vellumark::commands::toolsBar {
namespace {

constexpr Entry alignRows[] = {
    {"alignLefts", 2, false, 1100}, {"alignCenters", 3, false, 1101}, {"alignRights", 4, false, 1102},
    {"alignTops", 5, true, 1103},   {"alignMiddles", 6, false, 1104}, {"alignBottoms", 7, false, 1105},
};
constexpr Entry barRows[] = {
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
constexpr Entry toolsRows[] = {
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
constexpr Entry helpRows[] = {
    {"!reference", 984, false, 0, true},
    {"!FAQ", 610, false, 0, true},
    {"!startUpdate", 610, false, 0, true},
    {"!homepage", 610, false, 0, true},
    {"!feedback", 363, true, 0, true},
    {"!recommend", 363, false, 0, true},
    {"!about", 1, true, 0},
};

}  // namespace

std::string Entry::caption() const {
  const Command* command = findCommand(ToolbarCall(parameter).method);
  return command ? command->label : "";
}

std::span<const Entry> alignEntries() { return alignRows; }
std::span<const Entry> barEntries() { return barRows; }
std::span<const Entry> toolsEntries() { return toolsRows; }
std::span<const Entry> helpEntries() { return helpRows; }

}  // namespace vellumark::commands::toolsBar
