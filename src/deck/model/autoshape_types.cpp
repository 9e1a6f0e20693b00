#include "deck/model/autoshape_types.h"

#include <algorithm>
#include <array>

#include "host/constants.h"

namespace vellumark::deck {
namespace {

struct AutoShape {
  std::int32_t type;
  std::string_view preset;
  std::string_view name;
};

constexpr AutoShape autoShapes[] = {
    {1, "rect", "Rectangle"},
    {2, "parallelogram", "Parallelogram"},
    {3, "trapezoid", "Trapezoid"},
    {4, "diamond", "Diamond"},
    {5, "roundRect", "Rounded Rectangle"},
    {6, "octagon", "Octagon"},
    {7, "triangle", "Isosceles Triangle"},
    {8, "rtTriangle", "Right Triangle"},
    {9, "ellipse", "Oval"},
    {10, "hexagon", "Hexagon"},
    {11, "plus", "Cross"},
    {12, "pentagon", "Regular Pentagon"},
    {13, "can", "Can"},
    {14, "cube", "Cube"},
    {15, "bevel", "Bevel"},
    {16, "foldedCorner", "Folded Corner"},
    {17, "smileyFace", "Smiley Face"},
    {18, "donut", "Donut"},
    {19, "noSmoking", "\"No\" Symbol"},
    {20, "blockArc", "Block Arc"},
    {21, "heart", "Heart"},
    {22, "lightningBolt", "Lightning Bolt"},
    {23, "sun", "Sun"},
    {24, "moon", "Moon"},
    {25, "arc", "Arc"},
    {26, "bracketPair", "Double Bracket"},
    {27, "bracePair", "Double Brace"},
    {28, "plaque", "Plaque"},
    {29, "leftBracket", "Left Bracket"},
    {30, "rightBracket", "Right Bracket"},
    {31, "leftBrace", "Left Brace"},
    {32, "rightBrace", "Right Brace"},
    {33, "rightArrow", "Right Arrow"},
    {34, "leftArrow", "Left Arrow"},
    {35, "upArrow", "Up Arrow"},
    {36, "downArrow", "Down Arrow"},
    {37, "leftRightArrow", "Left-Right Arrow"},
    {38, "upDownArrow", "Up-Down Arrow"},
    {39, "quadArrow", "Quad Arrow"},
    {40, "leftRightUpArrow", "Left-Right-Up Arrow"},
    {41, "bentArrow", "Bent Arrow"},
    {42, "uturnArrow", "U-Turn Arrow"},
    {43, "leftUpArrow", "Left-Up Arrow"},
    {44, "bentUpArrow", "Bent-Up Arrow"},
    {45, "curvedRightArrow", "Curved Right Arrow"},
    {46, "curvedLeftArrow", "Curved Left Arrow"},
    {47, "curvedUpArrow", "Curved Up Arrow"},
    {48, "curvedDownArrow", "Curved Down Arrow"},
    {49, "stripedRightArrow", "Striped Right Arrow"},
    {50, "notchedRightArrow", "Notched Right Arrow"},
    {51, "homePlate", "Pentagon"},
    {52, "chevron", "Chevron"},
    {53, "rightArrowCallout", "Right Arrow Callout"},
    {54, "leftArrowCallout", "Left Arrow Callout"},
    {55, "upArrowCallout", "Up Arrow Callout"},
    {56, "downArrowCallout", "Down Arrow Callout"},
    {57, "leftRightArrowCallout", "Left-Right Arrow Callout"},
    {58, "upDownArrowCallout", "Up-Down Arrow Callout"},
    {59, "quadArrowCallout", "Quad Arrow Callout"},
    {60, "circularArrow", "Circular Arrow"},
    {61, "flowChartProcess", "Flowchart: Process"},
    {62, "flowChartAlternateProcess", "Flowchart: Alternate Process"},
    {63, "flowChartDecision", "Flowchart: Decision"},
    {64, "flowChartInputOutput", "Flowchart: Data"},
    {65, "flowChartPredefinedProcess", "Flowchart: Predefined Process"},
    {66, "flowChartInternalStorage", "Flowchart: Internal Storage"},
    {67, "flowChartDocument", "Flowchart: Document"},
    {68, "flowChartMultidocument", "Flowchart: Multidocument"},
    {69, "flowChartTerminator", "Flowchart: Terminator"},
    {70, "flowChartPreparation", "Flowchart: Preparation"},
    {71, "flowChartManualInput", "Flowchart: Manual Input"},
    {72, "flowChartManualOperation", "Flowchart: Manual Operation"},
    {73, "flowChartConnector", "Flowchart: Connector"},
    {74, "flowChartOffpageConnector", "Flowchart: Off-page Connector"},
    {75, "flowChartPunchedCard", "Flowchart: Card"},
    {76, "flowChartPunchedTape", "Flowchart: Punched Tape"},
    {77, "flowChartSummingJunction", "Flowchart: Summing Junction"},
    {78, "flowChartOr", "Flowchart: Or"},
    {79, "flowChartCollate", "Flowchart: Collate"},
    {80, "flowChartSort", "Flowchart: Sort"},
    {81, "flowChartExtract", "Flowchart: Extract"},
    {82, "flowChartMerge", "Flowchart: Merge"},
    {83, "flowChartOnlineStorage", "Flowchart: Stored Data"},
    {84, "flowChartDelay", "Flowchart: Delay"},
    {85, "flowChartMagneticTape", "Flowchart: Sequential Access Storage"},
    {86, "flowChartMagneticDisk", "Flowchart: Magnetic Disk"},
    {87, "flowChartMagneticDrum", "Flowchart: Direct Access Storage"},
    {88, "flowChartDisplay", "Flowchart: Display"},
    {89, "irregularSeal1", "Explosion 1"},
    {90, "irregularSeal2", "Explosion 2"},
    {91, "star4", "4-Point Star"},
    {92, "star5", "5-Point Star"},
    {93, "star8", "8-Point Star"},
    {94, "star16", "16-Point Star"},
    {95, "star24", "24-Point Star"},
    {96, "star32", "32-Point Star"},
    {97, "ribbon2", "Up Ribbon"},
    {98, "ribbon", "Down Ribbon"},
    {99, "ellipseRibbon2", "Curved Up Ribbon"},
    {100, "ellipseRibbon", "Curved Down Ribbon"},
    {101, "verticalScroll", "Vertical Scroll"},
    {102, "horizontalScroll", "Horizontal Scroll"},
    {103, "wave", "Wave"},
    {104, "doubleWave", "Double Wave"},
    {105, "wedgeRectCallout", "Rectangular Callout"},
    {106, "wedgeRoundRectCallout", "Rounded Rectangular Callout"},
    {107, "wedgeEllipseCallout", "Oval Callout"},
    {108, "cloudCallout", "Cloud Callout"},
    {109, "borderCallout1", "Line Callout 1"},
    {110, "borderCallout2", "Line Callout 2"},
    {111, "borderCallout3", "Line Callout 3"},
    {113, "accentCallout1", "Line Callout 1 (Accent Bar)"},
    {114, "accentCallout2", "Line Callout 2 (Accent Bar)"},
    {115, "accentCallout3", "Line Callout 3 (Accent Bar)"},
    {117, "callout1", "Line Callout 1 (No Border)"},
    {118, "callout2", "Line Callout 2 (No Border)"},
    {119, "callout3", "Line Callout 3 (No Border)"},
    {121, "accentBorderCallout1", "Line Callout 1 (Border and Accent Bar)"},
    {122, "accentBorderCallout2", "Line Callout 2 (Border and Accent Bar)"},
    {123, "accentBorderCallout3", "Line Callout 3 (Border and Accent Bar)"},
    {125, "actionButtonBlank", "Action Button: Custom"},
    {126, "actionButtonHome", "Action Button: Home"},
    {127, "actionButtonHelp", "Action Button: Help"},
    {128, "actionButtonInformation", "Action Button: Information"},
    {129, "actionButtonBackPrevious", "Action Button: Back or Previous"},
    {130, "actionButtonForwardNext", "Action Button: Forward or Next"},
    {131, "actionButtonBeginning", "Action Button: Beginning"},
    {132, "actionButtonEnd", "Action Button: End"},
    {133, "actionButtonReturn", "Action Button: Return"},
    {134, "actionButtonDocument", "Action Button: Document"},
    {135, "actionButtonSound", "Action Button: Sound"},
    {136, "actionButtonMovie", "Action Button: Movie"},
    {139, "flowChartOfflineStorage", "Flowchart: Offline Storage"},
    {140, "leftRightRibbon", "Left-Right Ribbon"},
    {141, "diagStripe", "Diagonal Stripe"},
    {142, "pie", "Pie"},
    {143, "nonIsoscelesTrapezoid", "Non-isosceles Trapezoid"},
    {144, "decagon", "Decagon"},
    {145, "heptagon", "Heptagon"},
    {146, "dodecagon", "Dodecagon"},
    {147, "star6", "6-Point Star"},
    {148, "star7", "7-Point Star"},
    {149, "star10", "10-Point Star"},
    {150, "star12", "12-Point Star"},
    {151, "round1Rect", "Round Single Corner Rectangle"},
    {152, "round2SameRect", "Round Same Side Corner Rectangle"},
    {153, "round2DiagRect", "Round Diagonal Corner Rectangle"},
    {154, "snipRoundRect", "Snip and Round Single Corner Rectangle"},
    {155, "snip1Rect", "Snip Single Corner Rectangle"},
    {156, "snip2SameRect", "Snip Same Side Corner Rectangle"},
    {157, "snip2DiagRect", "Snip Diagonal Corner Rectangle"},
    {158, "frame", "Frame"},
    {159, "halfFrame", "Half Frame"},
    {160, "teardrop", "Teardrop"},
    {161, "chord", "Chord"},
    {162, "corner", "L-Shape"},
    {163, "mathPlus", "Plus"},
    {164, "mathMinus", "Minus"},
    {165, "mathMultiply", "Multiply"},
    {166, "mathDivide", "Division"},
    {167, "mathEqual", "Equal"},
    {168, "mathNotEqual", "Not Equal"},
    {169, "cornerTabs", "Corner Tabs"},
    {170, "squareTabs", "Square Tabs"},
    {171, "plaqueTabs", "Plaque Tabs"},
    {172, "gear6", "Gear 6"},
    {173, "gear9", "Gear 9"},
    {174, "funnel", "Funnel"},
    {175, "pieWedge", "Pie Wedge"},
    {176, "leftCircularArrow", "Left Circular Arrow"},
    {177, "leftRightCircularArrow", "Left-Right Circular Arrow"},
    {178, "swooshArrow", "Swoosh Arrow"},
    {179, "cloud", "Cloud"},
    {180, "chartX", "Chart X"},
    {181, "chartStar", "Chart Star"},
    {182, "chartPlus", "Chart Plus"},
    {183, "lineInv", "Line Inverse"},
};

/// Types of older hosts that share a preset with another type; the preset reads as the other one.
constexpr AutoShape synonyms[] = {
    {112, "borderCallout3", "Line Callout 4"},
    {116, "accentCallout3", "Line Callout 4 (Accent Bar)"},
    {120, "callout3", "Line Callout 4 (No Border)"},
    {124, "accentBorderCallout3", "Line Callout 4 (Border and Accent Bar)"},
    {137, "wedgeRoundRectCallout", "Balloon"},
};

constexpr auto byPreset = [] {
  std::array<AutoShape, std::size(autoShapes)> sorted{};
  std::ranges::copy(autoShapes, sorted.begin());
  std::ranges::sort(sorted, {}, &AutoShape::preset);
  return sorted;
}();
static_assert(std::ranges::is_sorted(autoShapes, {}, &AutoShape::type));

const AutoShape* find(std::int32_t type) {
  const auto* found = std::ranges::lower_bound(autoShapes, type, {}, &AutoShape::type);
  if (found != std::end(autoShapes) && found->type == type) return found;
  const auto* synonym = std::ranges::find(synonyms, type, &AutoShape::type);
  return synonym != std::end(synonyms) ? synonym : nullptr;
}

}  // namespace

std::int32_t autoShapeType(std::string_view preset) {
  const auto* found = std::ranges::lower_bound(byPreset, preset, {}, &AutoShape::preset);
  return found != byPreset.end() && found->preset == preset ? found->type : host::msoShapeMixed;
}

std::string_view presetOf(std::int32_t autoShapeType) {
  const AutoShape* shape = find(autoShapeType);
  return shape ? shape->preset : std::string_view();
}

std::string_view autoShapeName(std::int32_t autoShapeType) {
  const AutoShape* shape = find(autoShapeType);
  return shape ? shape->name : std::string_view();
}

}  // namespace vellumark::deck
