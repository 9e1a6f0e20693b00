// One row of an agenda: a box with the number and a bar with all the rest, or one bar with everything. The
// columns of a bar are runs of one text, and its tab stops line them up across the rows.

#include "agenda/agenda_colors.h"
#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/xml.h"
#include "tools/trimline_tools.h"

namespace vellumark::agenda {
namespace {

using base::toSingle;
using core::attributeText;

void append(const host::TextRange& text, const std::string& run, const pugi::xml_node& look) {
  const host::Font font = text.InsertAfter(run).Font();
  font.Bold(flag(look, "fontBold"));
  font.Italic(flag(look, "fontItalic"));
}

void removeTabs(const host::Shape& shape) {
  const host::TabStops stops = shape.TextFrame().Ruler().TabStops();
  for (int left = stops.Count(); left > 0; --left) stops.Item(1).Clear();
}

void addTab(const host::Shape& bar, host::PpTabStopType type, double position) {
  bar.TextFrame().Ruler().TabStops().Add(type, toSingle(position));
}

double innerWidth(const host::Shape& bar) {
  const host::TextFrame frame = bar.TextFrame();
  return static_cast<double>(bar.Width()) - frame.MarginLeft() - frame.MarginRight();
}

/// What both kinds of bar have in common, set after all runs.
void formatBar(const host::Shape& bar, double fontSize, double rightMargin, const pugi::xml_node& look) {
  const host::TextFrame frame = bar.TextFrame();
  frame.MarginTop(0);
  frame.MarginRight(toSingle(rightMargin));
  frame.MarginBottom(0);
  frame.VerticalAnchor(host::msoAnchorMiddle);
  const host::TextRange text = frame.TextRange();
  text.ParagraphFormat().Alignment(host::ppAlignLeft);
  text.Font().Size(toSingle(fontSize));
  setColor(text.Font().Color(), attributeText(look, "fontColor"));
  frame.AutoSize(host::ppAutoSizeNone);
}

void remember(const host::Shape& shape) { saveShapeContent(shape, shape.TextFrame().TextRange().Text()); }

}  // namespace

void AgendaWizard::addAgendaItem(const host::Slide& slide, std::int16_t level, std::int16_t selected,
                                 std::int16_t isBreak, std::int16_t index, const std::string& number,
                                 const std::string& text, const std::string& responsible,
                                 const std::string& timeSlot, const std::string& pageNo) {
  core::trap("AgendaWizard, addAgendaItem", [&] {
    const AgendaRow row{level, selected, isBreak, index, number, text, responsible, timeSlot, pageNo};
    barOnly ? addBarRow(slide, row) : addRowWithBox(slide, row);
  });
}

void AgendaWizard::addRowWithBox(const host::Slide& slide, const AgendaRow& row) {
  const double top = rowTop(row.index), indent = row.level * step();
  const host::Shape box =
      slide.Shapes().AddShape(host::msoShapeRectangle, toSingle(frameLeft + (row.level - 1) * step()),
                              toSingle(top), toSingle(boxSize), toSingle(boxSize));
  const host::Shape bar =
      slide.Shapes().AddShape(host::msoShapeRectangle, toSingle(frameLeft + indent), toSingle(top),
                              toSingle(frameWidth - indent), toSingle(boxSize));
  const pugi::xml_node style = agendaDoc.style(row.level, row.selected, row.isBreak);
  fillBox(box, row.number, style.child("box"));

  const pugi::xml_node look = style.child("bar");
  colorShape(bar, kinds::bar, look);
  writeBar(bar.TextFrame().TextRange(), row, style);
  bar.TextFrame().MarginLeft(toSingle(textMargin));
  formatBar(bar, rowFontSize, textMargin, look);
  bar.TextFrame().TextRange().ParagraphFormat().Bullet().Visible(false);
  removeTabs(bar);
  if (firstTabPosition > 0) addTab(bar, host::ppTabStopLeft, firstTabPosition - (row.level - 1) * step());
  if (hasRightTab > 0) addTab(bar, host::ppTabStopRight, innerWidth(bar));

  remember(box);
  remember(bar);
  saveShapeProperties(box);
  saveShapeProperties(bar);
}

/// A row without number still has its box, which is then empty.
void AgendaWizard::fillBox(const host::Shape& box, const std::string& number,
                           const pugi::xml_node& look) const {
  colorShape(box, kinds::box, look);
  const host::TextFrame frame = box.TextFrame();
  frame.MarginLeft(0);
  frame.MarginTop(0);
  frame.MarginRight(0);
  frame.MarginBottom(0);
  frame.VerticalAnchor(host::msoAnchorMiddle);
  const host::TextRange text = frame.TextRange();
  text.Text(number);
  text.ParagraphFormat().Alignment(host::ppAlignCenter);
  text.ParagraphFormat().Bullet().Visible(false);
  const host::Font font = text.Font();
  font.Bold(flag(look, "fontBold"));
  font.Italic(flag(look, "fontItalic"));
  font.Size(toSingle(rowFontSize));
  setColor(font.Color(), attributeText(look, "fontColor"));
  frame.AutoSize(host::ppAutoSizeNone);
}

// Only in this kind of row half the weight of the bar's line comes off margins and tabs.
void AgendaWizard::addBarRow(const host::Slide& slide, const AgendaRow& row) {
  const host::Shape bar =
      slide.Shapes().AddShape(host::msoShapeRectangle, toSingle(frameLeft), toSingle(rowTop(row.index)),
                              toSingle(frameWidth), toSingle(boxSize));
  const pugi::xml_node style = agendaDoc.style(row.level, row.selected, row.isBreak);
  const pugi::xml_node look = style.child("bar");
  colorShape(bar, kinds::bar, look);
  const double halfLine = number(look, "lineWeight") / 2;
  const host::TextFrame frame = bar.TextFrame();
  const host::TextRange text = frame.TextRange();
  if (!row.number.empty()) {
    const bool hasDot = row.number.find('.') != std::string::npos;
    append(text, row.number + (hasDot ? "\t" : ".\t"), style.child("box"));
  }
  writeBar(text, row, style);
  formatBar(bar, rowFontSize, textMargin, look);
  removeTabs(bar);

  const bool indentsAsNumbered = !row.number.empty() || (cbShowItemNumbers.value() && row.isBreak != 0);
  const double levelIndent = (row.level - 1) * (indentsAsNumbered ? boxSize : rowFontSize);
  frame.MarginLeft(toSingle(levelIndent + textMargin - halfLine));
  text.ParagraphFormat().Bullet().Visible(!indentsAsNumbered);
  if (indentsAsNumbered) {
    addTab(bar, host::ppTabStopLeft, row.level == 1 ? boxSize : boxSize * 4 / 3);
  } else {
    // A bullet stands in the place of a number.
    text.IndentLevel(2);
    core::globals().tools->beautify(frame);
  }
  if (firstTabPosition > 0) {
    addTab(bar, host::ppTabStopLeft, firstTabPosition - frame.MarginLeft() + textMargin - halfLine);
  }
  if (hasRightTab > 0) addTab(bar, host::ppTabStopRight, innerWidth(bar) - halfLine);

  remember(bar);
  saveShapeProperties(bar);
}

/// An optional column is written even where it is empty, so that the tabs stay in step.
void AgendaWizard::writeBar(const host::TextRange& text, const AgendaRow& row,
                            const pugi::xml_node& style) const {
  const pugi::xml_node bar = style.child("bar");
  append(text, row.text, bar.child("text"));
  if (cbShowResponsible.value()) append(text, "\t" + row.responsible, bar.child("responsible"));
  if (cbShowTimeSlots.value()) append(text, "\t" + row.timeSlot, bar.child("timeSlot"));
  if (cbShowPageNumbers.value()) append(text, "\t" + row.pageNo, bar.child("pageNo"));
}

}  // namespace vellumark::agenda
