#pragma once
// How each preset is drawn, by family. A form that several presets share takes what they differ in.

#include "deck/drawing/form.h"

namespace vellumark::deck::forms {

enum class TabForm : std::uint8_t { triangle, round, square };

// Rectangles with other corners, polygons, frames and brackets.
void rect(Form& form);
void roundRect(Form& form);
void round1Rect(Form& form);
void round2SameRect(Form& form);
void round2DiagRect(Form& form);
void snip1Rect(Form& form);
void snip2SameRect(Form& form);
void snip2DiagRect(Form& form);
void snipRoundRect(Form& form);
void octagon(Form& form);
void plaque(Form& form);
void flowChartAlternateProcess(Form& form);
void triangle(Form& form);
void rtTriangle(Form& form);
void diamond(Form& form);
void parallelogram(Form& form);
void trapezoid(Form& form);
void nonIsoscelesTrapezoid(Form& form);
void hexagon(Form& form);
void pentagonOrHeptagon(Form& form, int corners);
void decagon(Form& form);
void dodecagon(Form& form);
void plus(Form& form);
void diagStripe(Form& form);
void frame(Form& form);
void halfFrame(Form& form);
void corner(Form& form);
void bevel(Form& form);
void cube(Form& form);
void foldedCorner(Form& form);
void rightBracket(Form& form);
void rightBrace(Form& form);
void bracketPair(Form& form);
void bracePair(Form& form);
void chartMark(Form& form, bool cross, bool diagonals, bool upright);
void tabs(Form& form, TabForm kind);

// Ellipses and their parts, and what is drawn by curves.
void ellipse(Form& form);
void donut(Form& form);
void arc(Form& form);
void pie(Form& form);
void chord(Form& form);
void blockArc(Form& form);
void pieWedge(Form& form);
void noSmoking(Form& form);
void teardrop(Form& form);
void heart(Form& form);
void moon(Form& form);
void sun(Form& form);
void smileyFace(Form& form);
void can(Form& form);
void funnel(Form& form);
void wave(Form& form, int waves);

// Arrows of straight lines and bends, to the right where they exist in several directions.
void rightArrow(Form& form);
void leftRightArrow(Form& form);
void notchedRightArrow(Form& form);
void stripedRightArrow(Form& form);
void homePlate(Form& form);
void chevron(Form& form);
void quadArrow(Form& form);
void leftRightUpArrow(Form& form);
void leftUpArrow(Form& form);
void bentUpArrow(Form& form);
void bentArrow(Form& form);
void uturnArrow(Form& form);
void swooshArrow(Form& form);
void rightArrowCallout(Form& form);
void leftRightArrowCallout(Form& form);
void quadArrowCallout(Form& form);

// Arrows along ellipses.
void curvedRightArrow(Form& form);
void curvedLeftArrow(Form& form);
void curvedDownArrow(Form& form);
void curvedUpArrow(Form& form);
void circularArrow(Form& form);
void leftCircularArrow(Form& form);
void leftRightCircularArrow(Form& form);

// Ribbons and scrolls.
void ribbon(Form& form);
void ellipseRibbon(Form& form);
void leftRightRibbon(Form& form);
void horizontalScroll(Form& form);

// Stars, gears and what else is jagged; the cloud.
void star(Form& form, int points, double stretchX, double stretchY);
void irregularSeal1(Form& form);
void irregularSeal2(Form& form);
void lightningBolt(Form& form);
void gear(Form& form, int teeth, double mostTaper);
void cloudBody(Form& form);
void cloudCreases(Form& form);
void cloud(Form& form);

// Lines and connectors; an elbow has legs, one more than turns.
void line(Form& form);
void bentConnector(Form& form, int legs);
void curvedConnector(Form& form, int legs);

// Callouts.
void lineCallout(Form& form, int legs, bool border, bool accent);
void wedgeRectCallout(Form& form);
void wedgeRoundRectCallout(Form& form);
void wedgeEllipseCallout(Form& form);
void cloudCallout(Form& form);

// Symbols of flow charts.
void flowChartInputOutput(Form& form);
void flowChartManualInput(Form& form);
void flowChartManualOperation(Form& form);
void flowChartPunchedCard(Form& form);
void flowChartCollate(Form& form);
void flowChartExtract(Form& form);
void flowChartMerge(Form& form);
void flowChartOffpageConnector(Form& form);
void flowChartPreparation(Form& form);
void flowChartOfflineStorage(Form& form);
void flowChartSort(Form& form);
void flowChartInternalStorage(Form& form);
void flowChartPredefinedProcess(Form& form);
void flowChartOr(Form& form);
void flowChartSummingJunction(Form& form);
void flowChartMagneticDisk(Form& form);
void flowChartMagneticDrum(Form& form);
void flowChartMagneticTape(Form& form);
void flowChartDelay(Form& form);
void flowChartDisplay(Form& form);
void flowChartOnlineStorage(Form& form);
void flowChartTerminator(Form& form);
void flowChartPunchedTape(Form& form);
void flowChartDocument(Form& form);
void flowChartMultidocument(Form& form);

// Signs of arithmetic.
void mathPlus(Form& form);
void mathMinus(Form& form);
void mathEqual(Form& form);
void mathDivide(Form& form);
void mathMultiply(Form& form);
void mathNotEqual(Form& form);

// Action buttons.
void actionButtonBackPrevious(Form& form);
void actionButtonBeginning(Form& form);
void actionButtonEnd(Form& form);
void actionButtonForwardNext(Form& form);
void actionButtonHelp(Form& form);
void actionButtonMovie(Form& form);
void actionButtonReturn(Form& form);
void actionButtonDocument(Form& form);
void actionButtonHome(Form& form);
void actionButtonInformation(Form& form);
void actionButtonSound(Form& form);

}  // namespace vellumark::deck::forms
