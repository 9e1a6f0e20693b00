#include "deck/drawing/outline.h"

#include <algorithm>
#include <cmath>

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck {
namespace {

using namespace forms;

struct Preset {
  std::string_view name;
  Form::Draw draw;
};

/// Sorted by name.
constexpr Preset presets[] = {
    {"accentBorderCallout1", [](Form& f) { lineCallout(f, 1, true, true); }},
    {"accentBorderCallout2", [](Form& f) { lineCallout(f, 2, true, true); }},
    {"accentBorderCallout3", [](Form& f) { lineCallout(f, 3, true, true); }},
    {"accentCallout1", [](Form& f) { lineCallout(f, 1, false, true); }},
    {"accentCallout2", [](Form& f) { lineCallout(f, 2, false, true); }},
    {"accentCallout3", [](Form& f) { lineCallout(f, 3, false, true); }},
    {"actionButtonBackPrevious", actionButtonBackPrevious},
    {"actionButtonBeginning", actionButtonBeginning},
    {"actionButtonBlank", rect},
    {"actionButtonDocument", actionButtonDocument},
    {"actionButtonEnd", actionButtonEnd},
    {"actionButtonForwardNext", actionButtonForwardNext},
    {"actionButtonHelp", actionButtonHelp},
    {"actionButtonHome", actionButtonHome},
    {"actionButtonInformation", actionButtonInformation},
    {"actionButtonMovie", actionButtonMovie},
    {"actionButtonReturn", actionButtonReturn},
    {"actionButtonSound", actionButtonSound},
    {"arc", arc},
    {"bentArrow", bentArrow},
    {"bentConnector2", [](Form& f) { bentConnector(f, 2); }},
    {"bentConnector3", [](Form& f) { bentConnector(f, 3); }},
    {"bentConnector4", [](Form& f) { bentConnector(f, 4); }},
    {"bentConnector5", [](Form& f) { bentConnector(f, 5); }},
    {"bentUpArrow", bentUpArrow},
    {"bevel", bevel},
    {"blockArc", blockArc},
    {"borderCallout1", [](Form& f) { lineCallout(f, 1, true, false); }},
    {"borderCallout2", [](Form& f) { lineCallout(f, 2, true, false); }},
    {"borderCallout3", [](Form& f) { lineCallout(f, 3, true, false); }},
    {"bracePair", bracePair},
    {"bracketPair", bracketPair},
    {"callout1", [](Form& f) { lineCallout(f, 1, false, false); }},
    {"callout2", [](Form& f) { lineCallout(f, 2, false, false); }},
    {"callout3", [](Form& f) { lineCallout(f, 3, false, false); }},
    {"can", can},
    {"chartPlus", [](Form& f) { chartMark(f, true, false, true); }},
    {"chartStar", [](Form& f) { chartMark(f, false, true, true); }},
    {"chartX", [](Form& f) { chartMark(f, false, true, false); }},
    {"chevron", chevron},
    {"chord", chord},
    {"circularArrow", circularArrow},
    {"cloud", cloud},
    {"cloudCallout", cloudCallout},
    {"corner", corner},
    {"cornerTabs", [](Form& f) { tabs(f, TabForm::triangle); }},
    {"cube", cube},
    {"curvedConnector2", [](Form& f) { curvedConnector(f, 2); }},
    {"curvedConnector3", [](Form& f) { curvedConnector(f, 3); }},
    {"curvedConnector4", [](Form& f) { curvedConnector(f, 4); }},
    {"curvedConnector5", [](Form& f) { curvedConnector(f, 5); }},
    {"curvedDownArrow", curvedDownArrow},
    {"curvedLeftArrow", curvedLeftArrow},
    {"curvedRightArrow", curvedRightArrow},
    {"curvedUpArrow", curvedUpArrow},
    {"decagon", decagon},
    {"diagStripe", diagStripe},
    {"diamond", diamond},
    {"dodecagon", dodecagon},
    {"donut", donut},
    {"doubleWave", [](Form& f) { wave(f, 2); }},
    {"downArrow", lying<Lie::transposed, rightArrow>},
    {"downArrowCallout", lying<Lie::transposed, rightArrowCallout>},
    {"ellipse", ellipse},
    {"ellipseRibbon", ellipseRibbon},
    {"ellipseRibbon2", lying<Lie::flipped, ellipseRibbon>},
    {"flowChartAlternateProcess", flowChartAlternateProcess},
    {"flowChartCollate", flowChartCollate},
    {"flowChartConnector", ellipse},
    {"flowChartDecision", diamond},
    {"flowChartDelay", flowChartDelay},
    {"flowChartDisplay", flowChartDisplay},
    {"flowChartDocument", flowChartDocument},
    {"flowChartExtract", flowChartExtract},
    {"flowChartInputOutput", flowChartInputOutput},
    {"flowChartInternalStorage", flowChartInternalStorage},
    {"flowChartMagneticDisk", flowChartMagneticDisk},
    {"flowChartMagneticDrum", flowChartMagneticDrum},
    {"flowChartMagneticTape", flowChartMagneticTape},
    {"flowChartManualInput", flowChartManualInput},
    {"flowChartManualOperation", flowChartManualOperation},
    {"flowChartMerge", flowChartMerge},
    {"flowChartMultidocument", flowChartMultidocument},
    {"flowChartOfflineStorage", flowChartOfflineStorage},
    {"flowChartOffpageConnector", flowChartOffpageConnector},
    {"flowChartOnlineStorage", flowChartOnlineStorage},
    {"flowChartOr", flowChartOr},
    {"flowChartPredefinedProcess", flowChartPredefinedProcess},
    {"flowChartPreparation", flowChartPreparation},
    {"flowChartProcess", rect},
    {"flowChartPunchedCard", flowChartPunchedCard},
    {"flowChartPunchedTape", flowChartPunchedTape},
    {"flowChartSort", flowChartSort},
    {"flowChartSummingJunction", flowChartSummingJunction},
    {"flowChartTerminator", flowChartTerminator},
    {"foldedCorner", foldedCorner},
    {"frame", frame},
    {"funnel", funnel},
    {"gear6", [](Form& f) { gear(f, 6, 0.05358); }},
    {"gear9", [](Form& f) { gear(f, 9, 0.02679); }},
    {"halfFrame", halfFrame},
    {"heart", heart},
    {"heptagon", [](Form& f) { pentagonOrHeptagon(f, 7); }},
    {"hexagon", hexagon},
    {"homePlate", homePlate},
    {"horizontalScroll", horizontalScroll},
    {"irregularSeal1", irregularSeal1},
    {"irregularSeal2", irregularSeal2},
    {"leftArrow", lying<Lie::mirrored, rightArrow>},
    {"leftArrowCallout", lying<Lie::mirrored, rightArrowCallout>},
    {"leftBrace", lying<Lie::mirrored, rightBrace>},
    {"leftBracket", lying<Lie::mirrored, rightBracket>},
    {"leftCircularArrow", leftCircularArrow},
    {"leftRightArrow", leftRightArrow},
    {"leftRightArrowCallout", leftRightArrowCallout},
    {"leftRightCircularArrow", leftRightCircularArrow},
    {"leftRightRibbon", leftRightRibbon},
    {"leftRightUpArrow", leftRightUpArrow},
    {"leftUpArrow", leftUpArrow},
    {"lightningBolt", lightningBolt},
    {"line", line},
    {"lineInv", lying<Lie::flipped, line>},
    {"mathDivide", mathDivide},
    {"mathEqual", mathEqual},
    {"mathMinus", mathMinus},
    {"mathMultiply", mathMultiply},
    {"mathNotEqual", mathNotEqual},
    {"mathPlus", mathPlus},
    {"moon", moon},
    {"noSmoking", noSmoking},
    {"nonIsoscelesTrapezoid", nonIsoscelesTrapezoid},
    {"notchedRightArrow", notchedRightArrow},
    {"octagon", octagon},
    {"parallelogram", parallelogram},
    {"pentagon", [](Form& f) { pentagonOrHeptagon(f, 5); }},
    {"pie", pie},
    {"pieWedge", pieWedge},
    {"plaque", plaque},
    {"plaqueTabs", [](Form& f) { tabs(f, TabForm::round); }},
    {"plus", plus},
    {"quadArrow", quadArrow},
    {"quadArrowCallout", quadArrowCallout},
    {"rect", rect},
    {"ribbon", ribbon},
    {"ribbon2", lying<Lie::flipped, ribbon>},
    {"rightArrow", rightArrow},
    {"rightArrowCallout", rightArrowCallout},
    {"rightBrace", rightBrace},
    {"rightBracket", rightBracket},
    {"round1Rect", round1Rect},
    {"round2DiagRect", round2DiagRect},
    {"round2SameRect", round2SameRect},
    {"roundRect", roundRect},
    {"rtTriangle", rtTriangle},
    {"smileyFace", smileyFace},
    {"snip1Rect", snip1Rect},
    {"snip2DiagRect", snip2DiagRect},
    {"snip2SameRect", snip2SameRect},
    {"snipRoundRect", snipRoundRect},
    {"squareTabs", [](Form& f) { tabs(f, TabForm::square); }},
    {"star10", [](Form& f) { star(f, 10, f.ratio(1), 1); }},
    {"star12", [](Form& f) { star(f, 12, 1, 1); }},
    {"star16", [](Form& f) { star(f, 16, 1, 1); }},
    {"star24", [](Form& f) { star(f, 24, 1, 1); }},
    {"star32", [](Form& f) { star(f, 32, 1, 1); }},
    {"star4", [](Form& f) { star(f, 4, 1, 1); }},
    {"star5", [](Form& f) { star(f, 5, f.ratio(1), f.ratio(2)); }},
    {"star6", [](Form& f) { star(f, 6, f.ratio(1), 1); }},
    {"star7", [](Form& f) { star(f, 7, f.ratio(1), f.ratio(2)); }},
    {"star8", [](Form& f) { star(f, 8, 1, 1); }},
    {"straightConnector1", [](Form& f) { line(f.lines()); }},
    {"stripedRightArrow", stripedRightArrow},
    {"sun", sun},
    {"swooshArrow", swooshArrow},
    {"teardrop", teardrop},
    {"trapezoid", trapezoid},
    {"triangle", triangle},
    {"upArrow", lying<Lie::up, rightArrow>},
    {"upArrowCallout", lying<Lie::up, rightArrowCallout>},
    {"upDownArrow", lying<Lie::transposed, leftRightArrow>},
    {"upDownArrowCallout", lying<Lie::transposed, leftRightArrowCallout>},
    {"uturnArrow", uturnArrow},
    {"verticalScroll", lying<Lie::transposed, horizontalScroll>},
    {"wave", [](Form& f) { wave(f, 1); }},
    {"wedgeEllipseCallout", wedgeEllipseCallout},
    {"wedgeRectCallout", wedgeRectCallout},
    {"wedgeRoundRectCallout", wedgeRoundRectCallout},
};
static_assert(std::ranges::is_sorted(presets, {}, &Preset::name));

/// A frame has some extent at least, so that no measure of it divides by nothing.
double extent(double size) { return std::isfinite(size) ? std::clamp(size, 1e-6, 1e6) : 1e-6; }

bool isFinite(const OutlinePath& path) {
  return std::ranges::all_of(path.path.segments(), [](const platform::Path::Segment& segment) {
    return std::ranges::all_of(segment.points, [](const platform::DrawPoint& point) {
      return std::isfinite(point.x) && std::isfinite(point.y);
    });
  });
}

}  // namespace

Outline presetOutline(std::string_view preset, double width, double height,
                      std::span<const std::int32_t> guides) {
  const auto* found = std::ranges::lower_bound(presets, preset, {}, &Preset::name);
  const bool known = found != std::end(presets) && found->name == preset;
  Form form(extent(width), extent(height), guides);
  (known ? found->draw : rect)(form);
  Outline outline = form.take();
  std::erase_if(outline, [](const OutlinePath& path) { return !isFinite(path); });
  return outline;
}

}  // namespace vellumark::deck
