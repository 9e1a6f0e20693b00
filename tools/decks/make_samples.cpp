// Makes the sample presentations and templates that are delivered.
//
//   make_samples product
//
// The company and all figures in them are invented.

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "decks/deck_builder.h"
#include "decks/templates.h"

namespace vellumark::samples {
namespace {

using decks::DeckBuilder;
using decks::ShapeBuilder;
using decks::ShapeTree;
using decks::SlideBuilder;
using decks::TextStyle;
using decks::Theme;

// The page: 960 by 540 points, the same margins on every slide.
constexpr double left = 48;
constexpr double width = 864;
constexpr double right = left + width;

const std::string navy = "tx2";
const std::string paper = "bg2";
const std::string teal = "accent1";
const std::string coral = "accent2";
const std::string green = "accent3";
const std::string amber = "accent4";
const std::string slate = "accent5";
const std::string mist = "accent6";
const std::string ink = "tx1";
const std::string white = "bg1";

const Theme fernhill{.name = "Fernhill",
                     .colors = {"22303C", "FFFFFF", "16324F", "F1F4F6", "1F7A8C", "D1495B", "4C956C",
                                "E3A33B", "5C6B7A", "C9D3DB", "1F7A8C", "5C6B7A"},
                     .headings = "Arial",
                     .body = "Arial",
                     .title = {.size = 24, .bold = true, .color = navy},
                     .bodySize = 18};

void design(DeckBuilder& deck) {
  const auto master = deck.master().theme(fernhill);
  master.find("title").frame(left, 28, width, 62).anchor("ctr").insets(0, 0, 0, 0);
  master.find("body").frame(left, 116, width, 370).insets(0, 0, 0, 0);
  master.find("dt").frame(left, 508, 120, 20);
  master.find("ftr").frame(300, 508, 360, 20);
  master.find("sldNum").frame(right - 60, 508, 60, 20).anchor("ctr").insets(0, 0, 0, 0);
  master.shape("rect", 0, 28, 10, 62).fill(teal).noLine().named("Marker");
  master.connector("line", left, 504, right, 504).line(mist, 0.75).named("Footer line");
  master
      .textBox(left, 508, 400, 20, "Fernhill Components  |  Quarterly business review  |  Q3 2024",
               {.size = 9, .color = slate})
      .anchor("ctr")
      .insets(0, 0, 0, 0)
      .named("Footer text");

  const auto opening = master.layout("title").hideMasterShapes().background(navy);
  opening.find("ctrTitle").frame(left, 168, 620, 120).anchor("b").insets(0, 0, 0, 0);
  opening.find("subTitle").frame(left, 312, 620, 80).insets(0, 0, 0, 0);
  opening.shape("rect", left, 298, 96, 4).fill(amber).noLine().named("Accent bar");
  opening.shape("parallelogram", 690, 0, 400, 540).adjust({32000}).fill(teal).noLine().named("Band");
  opening.shape("parallelogram", 830, 0, 260, 540).adjust({40600}).fill("1B6878").noLine().named("Band 2");
}

SlideBuilder content(DeckBuilder& deck, const std::string& headline) {
  auto slide = deck.slide("titleOnly");
  slide.placeholder("title").text(headline).named("Title");
  slide.placeholder("sldNum", 12).named("Slide number").text("", {.size = 9, .color = slate, .align = "r"});
  return slide;
}

void source(const SlideBuilder& slide, const std::string& text) {
  slide.textBox(left, 482, width, 18, text, {.size = 9, .italic = true, .color = slate})
      .insets(0, 0, 0, 0)
      .anchor("ctr")
      .named("Source");
}

/// A filled box without a line.
ShapeBuilder box(const ShapeTree& tree, double x, double y, double w, double h, const std::string& fill,
                 const std::string& preset = "rect") {
  return tree.shape(preset, x, y, w, h).fill(fill).noLine();
}

/// White, or navy where white would be hard to read.
std::string textOn(const std::string& fill) { return fill == amber ? navy : white; }

void opening(DeckBuilder& deck) {
  auto slide =
      deck.slide("title").notes("Welcome. Forty minutes, then the three decisions on the last slide.");
  slide.placeholder("ctrTitle")
      .named("Title")
      .text("Quarterly business review", {.size = 40, .bold = true, .color = white});
  slide.placeholder("subTitle", 1)
      .named("Subtitle")
      .text("Third quarter 2024", {.size = 20, .color = white, .bullet = "none"})
      .text("Management board, 17 October 2024",
            {.size = 14, .color = mist, .bullet = "none", .spaceBefore = 6});
}

void summary(DeckBuilder& deck) {
  auto slide = content(deck, "Growth and margin are on plan; delivery reliability is the one thing to mend");
  slide.notes(
      "Keep this to three minutes. The delivery figure will draw the questions: go to slide 4 for it.");
  struct Message {
    std::string head, text, color;
  };
  const std::vector<Message> messages{
      {"Revenue up 8 % to € 48.2 million", "Volume and prices carry the growth, every region contributes.",
       teal},
      {"EBIT margin 12.4 %, 0.3 points above last year", "Price rises have caught up with material costs.",
       teal},
      {"On-time delivery down to 91.5 %",
       "Production takes 14 days instead of 10: two lines are short of staff.", coral},
      {"Order backlog at € 61 million", "Covers the fourth quarter in full and half of the first.", teal}};
  double y = 118;
  int number = 1;
  for (const auto& message : messages) {
    const auto group = slide.group(left, y, 560, 70).named("Message " + std::to_string(number));
    box(group.children(), left, y + 8, 44, 44, message.color, "ellipse")
        .text(std::to_string(number++), {.size = 18, .bold = true, .color = white})
        .insets(0, 0, 0, 0);
    group.children()
        .textBox(left + 60, y, 500, 70)
        .named("Text")
        .text(message.head, {.size = 17, .bold = true, .color = navy})
        .text(message.text, {.size = 14, .color = ink, .spaceBefore = 3})
        .insets(0, 4, 0, 0);
    y += 90;
  }
  box(slide, 640, 118, right - 640, 340, paper)
      .named("Decisions")
      .anchor("t")
      .insets(18, 18, 18, 12)
      .text("Decisions for today", {.size = 16, .bold = true, .color = navy, .align = "l"})
      .text("Second shift on lines 3 and 4 from November",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 14})
      .text("€ 1.2 million for the test bench in Graz",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 10})
      .text("Price list 2025 with an average rise of 2.5 %",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 10})
      .text("Outlook for the year",
            {.size = 16, .bold = true, .color = navy, .align = "l", .spaceBefore = 28})
      .text("Revenue of € 192 million, margin of 12.2 %: confirmed",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 14})
      .text("On-time delivery back to 93 % by year's end",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 10});
  slide.connector("line", 640, 118, 640, 458).line(amber, 3).named("Decisions edge");
}

void keyFigures(DeckBuilder& deck) {
  auto slide = content(deck, "Three of four key figures are better than last year");
  slide.notes(
      "The tiles were drawn by hand: tops, widths and gaps differ. Straighten them before the meeting.");
  struct Tile {
    std::string name, label, value, change, color;
    double x, y, w;
  };
  // Out of line and of different widths on purpose: this is the slide to try the align commands on.
  const std::vector<Tile> tiles{
      {"Revenue", "Revenue", "€ 48.2 m", "+8 % on Q3 2023", teal, 48, 118, 216},
      {"Margin", "EBIT margin", "12.4 %", "+0.3 points", green, 276, 131, 188},
      {"Delivery", "On-time delivery", "91.5 %", "−2.8 points", coral, 479, 109, 202},
      {"Customers", "Customer score", "47", "+4 points", navy, 702, 139, 178}};
  for (const auto& tile : tiles) {
    slide.shape("roundRect", tile.x, tile.y, tile.w, 150)
        .adjust({7000})
        .fill(tile.color)
        .line(white, 3)
        .named("Tile " + tile.name)
        .insets(8, 8, 8, 8)
        .text(tile.label, {.size = 14, .color = white})
        .text(tile.value, {.size = 32, .bold = true, .color = white, .spaceBefore = 6})
        .text(tile.change, {.size = 13, .color = white, .spaceBefore = 6});
  }
  box(slide, left, 318, width, 150, paper).named("Panel");
  box(slide, 64, 346, 120, 34, amber, "homePlate")
      .adjust({35000})
      .named("So what")
      .text("So what?", {.size = 14, .bold = true, .color = navy})
      .insets(4, 0, 8, 0);
  const TextStyle point{.size = 14, .color = ink, .bullet = "•", .spaceBefore = 7};
  slide.textBox(212, 328, 680, 130)
      .named("Reading")
      .anchor("ctr")
      .text(
          "The plan for the year (€ 192 m, 12.2 % margin) is within reach without a stronger fourth quarter",
          point)
      .text(
          "Delivery is the only figure below plan: each point costs about € 0.4 m of follow-up orders a year",
          point)
      .text("Customers see the better quality, but two of the ten largest complain about late deliveries",
            point);
  source(slide, "Source: controlling, customer survey of September 2024 (n = 312)");
}

void process(DeckBuilder& deck) {
  auto slide = content(deck, "Order to delivery takes 29 days, and production is half of it");
  slide.notes("Target is 24 days. The two measures in production bring four days, those in assembly one.");
  struct Step {
    std::string name, days;
    std::vector<std::string> points;
    double y, w;
  };
  // A few points of misalignment here and there: a chain as it grows when people draw it by hand.
  const std::vector<Step> steps{
      {"Quote", "3 days", {"Price check automated", "Approval above € 50,000 only"}, 124, 184},
      {"Order entry", "2 days", {"Portal takes 70 % of orders", "Drawings still checked by hand"}, 127, 190},
      {"Production",
       "14 days",
       {"Lines 3 and 4 short of staff", "Second shift saves three days", "Smaller lots save one"},
       121,
       181},
      {"Assembly", "6 days", {"Waits for the test bench", "New bench saves one day"}, 124, 188},
      {"Dispatch", "4 days", {"Two pick-ups a day", "Customs papers now digital"}, 130, 176}};
  double x = left;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Step& step = steps[i];
    const bool critical = step.name == "Production";
    box(slide, x, step.y, step.w, 72, critical ? coral : teal, i == 0 ? "homePlate" : "chevron")
        .adjust({28000})
        .named("Step " + step.name)
        .insets(i == 0 ? 4 : 20, 2, 16, 2)
        .text(step.name, {.size = 15, .bold = true, .color = white})
        .text(step.days, {.size = 13, .color = white});
    auto points = slide.textBox(x + 4, 216, 158, 120).named("Measures " + step.name).insets(0, 0, 0, 0);
    for (const auto& text : step.points) {
      points.text(text, {.size = 13, .color = ink, .bullet = "•", .spaceBefore = 6});
    }
    x += 172;
  }
  // The days as one bar below, in proportion.
  const std::vector<std::pair<int, std::string>> days{
      {3, teal}, {2, green}, {14, coral}, {6, amber}, {4, slate}};
  slide.textBox(left, 352, 400, 22, "Days from order to delivery", {.size = 13, .bold = true, .color = navy})
      .insets(0, 0, 0, 0)
      .named("Bar title");
  double at = left;
  for (const auto& [count, color] : days) {
    const double length = width * count / 29;
    box(slide, at, 378, length, 40, color)
        .line(white, 1.5)
        .named("Bar " + std::to_string(count))
        .insets(0, 0, 0, 0)
        .text(std::to_string(count), {.size = 14, .bold = true, .color = textOn(color)});
    at += length;
  }
  slide.connector("straightConnector1", left, 440, left + width * 24 / 29, 440)
      .line(slate, 1.5)
      .arrowHead()
      .named("Target");
  slide
      .textBox(left, 444, width * 24 / 29, 22, "Target for the second quarter of 2025: 24 days",
               {.size = 12, .color = slate, .align = "r"})
      .insets(0, 0, 4, 0)
      .named("Target text");
  source(slide, "Source: order system, median of 1,840 orders delivered in Q3 2024");
}

void regions(DeckBuilder& deck) {
  auto slide = content(deck, "All regions grow; Western Europe and Rest of world deliver too late");
  const std::vector<std::vector<std::string>> rows{
      {"Region", "Revenue, € m", "vs. Q3 2023", "EBIT margin", "On-time delivery", "Outlook for Q4"},
      {"DACH", "18.6", "+5 %", "13.9 %", "94 %", "Stable, large frame orders signed"},
      {"Nordics", "9.4", "+12 %", "14.2 %", "93 %", "Strong, wind power goes on"},
      {"Western Europe", "12.1", "+9 %", "11.0 %", "89 %", "Good, if delivery recovers"},
      {"Rest of world", "8.1", "+10 %", "9.1 %", "88 %", "Mixed, currency weighs on margin"},
      {"Total", "48.2", "+8 %", "12.4 %", "91.5 %", "Plan for the year within reach"}};
  const TextStyle figure{.size = 14, .color = ink, .align = "r"};
  auto table = slide.table(left, 122, width, 330, rows)
                   .named("Regions")
                   .columnWidths({142, 116, 112, 112, 138, 244})
                   .insets(12, 4, 12, 4)
                   .rowHeights({48, 56, 56, 56, 56, 58})
                   .cell(-1, -1, figure)
                   .cell(-1, 0, {.size = 14, .bold = true, .color = navy})
                   .cell(-1, 5, {.size = 13, .color = ink})
                   .cell(0, -1, {.size = 13, .bold = true, .color = white, .align = "r"}, navy)
                   .cell(0, 0, {.size = 13, .bold = true, .color = white}, navy)
                   .cell(0, 5, {.size = 13, .bold = true, .color = white}, navy)
                   .cell(5, -1, {.size = 14, .bold = true, .color = navy, .align = "r"}, paper)
                   .cell(5, 0, {.size = 14, .bold = true, .color = navy}, paper)
                   .cell(5, 5, {.size = 13, .bold = true, .color = navy}, paper)
                   .rule(-1, mist);
  for (const int late : {3, 4}) table.cell(late, 4, {.size = 14, .bold = true, .color = coral, .align = "r"});
  source(slide, "Source: controlling; growth at constant scope, not adjusted for currency");
}

void bridge(DeckBuilder& deck) {
  auto slide = content(deck, "Volume and prices brought most of the € 3.6 million of growth");
  slide.notes("Columns are plain rectangles, scaled by hand: 25 points to the million, starting at 40.");
  struct Column {
    std::string label, value, color;
    double from, to;  // € million
  };
  const std::vector<Column> columns{
      {"Q3 2023", "44.6", navy, 40, 44.6},     {"Volume", "+2.1", green, 44.6, 46.7},
      {"Price", "+1.4", green, 46.7, 48.1},    {"New products", "+0.9", green, 48.1, 49.0},
      {"Currency", "−0.8", coral, 48.2, 49.0}, {"Q3 2024", "48.2", navy, 40, 48.2}};
  constexpr double base = 420, scale = 30, step = 106, columnWidth = 74;
  const auto level = [](double million) { return base - (million - 40) * scale; };
  slide.textBox(left, 104, 400, 20, "Revenue, € million", {.size = 13, .bold = true, .color = navy})
      .insets(0, 0, 0, 0)
      .named("Chart title");
  double x = left + 8;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    box(slide, x, level(column.to), columnWidth, level(column.from) - level(column.to), column.color)
        .named("Column " + column.label);
    slide
        .textBox(x - 10, level(column.to) - 22, columnWidth + 20, 20, column.value,
                 {.size = 14, .bold = true, .color = ink, .align = "ctr"})
        .insets(0, 0, 0, 0)
        .named("Value " + column.label);
    slide
        .textBox(x - 14, base + 6, columnWidth + 28, 20, column.label,
                 {.size = 12, .color = ink, .align = "ctr"})
        .insets(0, 0, 0, 0)
        .named("Label " + column.label);
    if (i + 1 < columns.size()) {
      const double y = level(column.label == "Currency" ? column.from : column.to);
      slide.connector("line", x + columnWidth, y, x + step, y).line(slate, 0.75).dash("dash");
    }
    x += step;
  }
  slide.connector("line", left, base, left + 6 * step - 16, base).line(ink, 1.25).named("Axis");
  box(slide, 712, 124, right - 712, 296, paper)
      .named("Comment")
      .anchor("t")
      .insets(16, 16, 14, 12)
      .text("What is behind it", {.size = 15, .bold = true, .color = navy, .align = "l"})
      .text("Volume: wind power in the Nordics, rail in DACH",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 12})
      .text("Price: list 2024 fully in force since May",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 8})
      .text("New products: sealed couplings, 140 customers so far",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 8})
      .text("Currency: dollar and krona, not hedged this year",
            {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 8});
  source(slide, "Source: controlling; columns start at € 40 million");
}

void roadmap(DeckBuilder& deck) {
  auto slide = content(deck, "Delivery returns to 95 % in three steps by autumn 2025");
  slide.notes("The test bench is on the critical path: it has to be ordered this month.");
  const std::vector<std::string> quarters{"Q4 2024", "Q1 2025", "Q2 2025", "Q3 2025"};
  constexpr double labels = 44, columnWidth = (width - labels) / 4, top = 112;
  for (std::size_t i = 0; i < quarters.size(); ++i) {
    const double x = left + labels + columnWidth * static_cast<double>(i);
    box(slide, x, top, columnWidth - 4, 28, navy)
        .named("Quarter " + quarters[i])
        .text(quarters[i], {.size = 13, .bold = true, .color = white});
  }
  struct Bar {
    std::string text;
    double start, length;  // quarters
    double y;
  };
  struct Lane {
    std::string name, color;
    std::vector<Bar> bars;
  };
  const std::vector<Lane> lanes{
      {"People",
       teal,
       {{"Second shift, lines 3 and 4", 0.15, 1.5, 8}, {"Cross-training of 40 staff", 1.0, 1.9, 52}}},
      {"Plant",
       amber,
       {{"Order and build test bench", 0.0, 1.75, 8}, {"Ramp-up to 120 units a day", 1.75, 1.6, 52}}},
      {"Planning", green, {{"New lot sizes", 0.5, 1.1, 8}, {"Planning with live stock data", 1.5, 2.4, 52}}}};
  double y = top + 36;
  for (const auto& lane : lanes) {
    box(slide, left + labels, y, width - labels - 4, 100, paper).named("Lane " + lane.name);
    // The label stands upright in the file and is turned, as people do it: 100 wide, 36 high, about its
    // centre.
    box(slide, left + 18 - 50, y + 50 - 18, 100, 36, lane.color)
        .rotate(270)
        .named("Label " + lane.name)
        .text(lane.name, {.size = 13, .bold = true, .color = textOn(lane.color)});
    for (const auto& bar : lane.bars) {
      box(slide, left + labels + columnWidth * bar.start + 6, y + bar.y, columnWidth * bar.length - 12, 40,
          lane.color, "rightArrow")
          .adjust({72000, 40000})
          .named("Arrow " + bar.text)
          .insets(6, 0, 2, 0)
          .text(bar.text, {.size = 12, .bold = true, .color = textOn(lane.color), .align = "l"});
    }
    y += 108;
  }
  const auto milestone = [&](double quarter, double atY, const std::string& name) {
    box(slide, left + labels + columnWidth * quarter - 8, atY, 16, 16, coral)
        .rotate(45)
        .named("Milestone " + name);
  };
  milestone(1.75, top + 36 + 108 + 20, "Bench ready");
  milestone(3.0, top + 36 + 64, "Staff trained");
  milestone(3.92, top + 36 + 216 + 64, "95 %");
  box(slide, left + labels, 474, 12, 12, coral).rotate(45).named("Legend mark");
  slide
      .textBox(left + labels + 20, 471, 500, 18, "Milestone: test bench ready, staff trained, 95 % on time",
               {.size = 11, .color = slate})
      .insets(0, 0, 0, 0)
      .anchor("ctr")
      .named("Legend");
}

void organisation(DeckBuilder& deck) {
  auto slide = content(deck, "Three teams with one owner each carry the programme from November");
  slide.notes("Ask for the decisions one by one. Owners report every second Tuesday.");
  box(slide, 330, 112, 300, 52, navy, "roundRect")
      .named("Steering")
      .text("Steering committee", {.size = 15, .bold = true, .color = white})
      .text("Management board, every second Tuesday", {.size = 11, .color = mist});
  struct Team {
    std::string name, owner, color;
    std::vector<std::string> tasks;
  };
  const std::vector<Team> teams{
      {"People",
       "Owner: head of production",
       teal,
       {"Second shift from November", "Cross-training plan", "Works council agreed"}},
      {"Plant",
       "Owner: head of engineering",
       amber,
       {"Test bench in Graz", "Layout of line 4", "Spare parts on site"}},
      {"Planning",
       "Owner: head of supply chain",
       green,
       {"Smaller lots", "Live stock data", "Weekly forecast with sales"}}};
  constexpr double teamWidth = 272, gap = 24;
  double x = left;
  for (const auto& team : teams) {
    const double middle = x + teamWidth / 2;
    slide.connector("line", middle, 184, middle, 204).line(slate, 1.25).named("Line to " + team.name);
    const auto group = slide.group(x, 204, teamWidth, 170).named("Team " + team.name);
    box(group.children(), x, 204, teamWidth, 52, team.color)
        .named("Head")
        .text(team.name, {.size = 15, .bold = true, .color = textOn(team.color)})
        .text(team.owner, {.size = 12, .color = textOn(team.color)});
    auto body =
        box(group.children(), x, 256, teamWidth, 118, paper).named("Tasks").anchor("ctr").insets(14, 6, 8, 6);
    for (const auto& task : team.tasks) {
      body.text(task, {.size = 13, .color = ink, .align = "l", .bullet = "•", .spaceBefore = 5});
    }
    x += teamWidth + gap;
  }
  slide.connector("line", 480, 164, 480, 184).line(slate, 1.25).named("Line from steering");
  slide.connector("line", left + teamWidth / 2, 184, right - teamWidth / 2, 184)
      .line(slate, 1.25)
      .named("Line across");
  box(slide, left, 396, 172, 76, coral, "homePlate")
      .adjust({22000})
      .named("Decide")
      .text("Please decide today", {.size = 15, .bold = true, .color = white})
      .insets(10, 2, 16, 2);
  const std::vector<std::string> decisions{"Second shift on lines 3 and 4",
                                           "€ 1.2 million for the test bench", "Price list 2025, +2.5 %"};
  x = 236;
  for (std::size_t i = 0; i < decisions.size(); ++i) {
    box(slide, x, 396, 212, 76, white, "roundRect")
        .adjust({9000})
        .line(coral, 1.5)
        .named("Decision " + std::to_string(i + 1))
        .text(decisions[i], {.size = 14, .bold = true, .color = navy});
    x += 232;
  }
}

DeckBuilder quarterlyReview() {
  DeckBuilder deck;
  deck.title("Quarterly business review, Q3 2024").extraColor("1B6878");
  design(deck);
  opening(deck);
  summary(deck);
  keyFigures(deck);
  process(deck);
  regions(deck);
  bridge(deck);
  roadmap(deck);
  organisation(deck);
  return deck;
}

/// The notices that copyright.txt names, one a slide: a line below the footers of a master.
void saveNotices(const std::string& folder, const std::string& color) {
  DeckBuilder deck;
  for (const char* notice : {"Internal use only", "Confidential – do not pass on without permission"}) {
    deck.slide("blank")
        .textBox(24, 521, 420, 15, notice, {.size = 8, .color = color})
        .insets(0, 0, 0, 0)
        .anchor("ctr")
        .named("Copyright notice");
  }
  for (const char* file : {"/copyright_slide.ppt", "/copyright_title.ppt"}) deck.save(folder + file);
}

}  // namespace
}  // namespace vellumark::samples

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_samples PRODUCT\n";
    return 2;
  }
  try {
    const std::string product = argv[1], styles = product + "/customization/styles/";
    vellumark::samples::quarterlyReview().save(product + "/samples/quarterly_review.pptx");
    for (const char* size : {"", " Wide"}) {
      vellumark::samples::saveNotices(styles + "Vellumark Blue" + size, "44546A");
      vellumark::samples::saveNotices(styles + "Vellumark Grey" + size, "595959");
    }
    for (const auto& [path, bytes] : vellumark::samples::templates()) {
      std::ofstream out(styles + path, std::ios::binary);
      out << bytes;
      if (!out.flush()) throw std::runtime_error(styles + path + ": can't be written");
    }
  } catch (const std::exception& failure) {
    std::cerr << "make_samples: " << failure.what() << "\n";
    return 1;
  }
}
