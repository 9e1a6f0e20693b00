// How wide the columns of an agenda are, measured by the host itself with the real font on a scratch slide.

#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

/// A time slot and a page number of the usual width.
constexpr const char* sampleTimeSlot = "55:55 – 55:55";
constexpr const char* samplePageNumber = "999";

}  // namespace

void AgendaWizard::calculateMetrics() {
  core::trap("AgendaWizard, calculateMetrics", [&] {
    visibleItemCount = 0;
    for (const pugi::xml_node& item : agendaDoc.items()) {
      if (flag(item, "showAgendaItem")) visibleItemCount = base::add16(visibleItemCount, 1);
    }
    const host::Slides slides = agendaPresentation.Slides();
    measureSlide_ = slides.Add(slides.Count() + 1, host::ppLayoutBlank);
    readFormat();
    anyBold = agendaDoc.has("/Vellumark/agenda/styles/style/bar/*[@fontBold='1']");
    anyItalic = agendaDoc.has("/Vellumark/agenda/styles/style/bar/*[@fontItalic='1']");
    takeSizesFromFont();
    fit(measureColumns());
    measureSlide_.Delete();
    measureSlide_ = {};
  });
}

void AgendaWizard::readFormat() {
  const pugi::xml_node format = agendaDoc.format();
  frameLeft = number(format, "left");
  frameTop = number(format, "top");
  frameWidth = number(format, "width");
  frameHeight = number(format, "height");
  rowFontSize = number(format, "baseFontSize");
  boxFontRatio = number(format, "boxFontRatio");
  boxBarSpacing = number(format, "boxBarSpacing");
  fontName = core::attributeText(format, "fontName");
  slideLayout = integer(format, "slideLayout");
  barOnly = optionalFlag(format, "barOnly");
  goldenCanon = optionalFlag(format, "goldenCanon");
  readNumberRules();
}

void AgendaWizard::readNumberRules() {
  const pugi::xml_node format = agendaDoc.format();
  enumerate2ndLevel = core::attributeText(format, "enumerate2ndLevel");
  enumerateBreak = integer(format, "enumerateBreak");
}

/// Items that aren't shown are measured too.
AgendaMetrics::Widths AgendaWizard::measureColumns() {
  Widths widths;
  const double first = getMaxWidth("/Vellumark/agenda/items/item[@level='1']/@text");
  const double second = getMaxWidth("/Vellumark/agenda/items/item[@level='2']/@text") + step();
  widths.textWidth = second > first ? second : first;
  widths.showResponsible = cbShowResponsible.value();
  widths.showTime = cbShowTimeSlots.value();
  widths.showPage = cbShowPageNumbers.value();
  if (widths.showResponsible)
    widths.responsibleWidth = getMaxWidth("/Vellumark/agenda/items/item/@responsible");
  if (widths.showTime) widths.timeWidth = getWidth(sampleTimeSlot);
  if (widths.showPage) widths.pageWidth = getWidth(samplePageNumber);
  return widths;
}

/// A text box on the scratch slide whose text is never wrapped, so that its width is that of the text.
host::Shape AgendaWizard::measuringBox(const std::string& text) {
  const host::Shape box =
      measureSlide_.Shapes().AddTextbox(host::msoTextOrientationHorizontal, 0, 0, 100, 100);
  const host::TextRange range = box.TextFrame().TextRange();
  range.Text(text);
  range.Font().Name(fontName);
  range.Font().Bold(anyBold);
  range.Font().Italic(anyItalic);
  range.Font().Size(base::toSingle(rowFontSize));
  box.TextFrame().WordWrap(false);
  return box;
}

double AgendaWizard::getWidth(const std::string& text) {
  const host::Shape box = measuringBox(text);
  const double width = box.TextFrame().TextRange().BoundWidth();
  box.Delete();
  return width;
}

double AgendaWizard::getMaxWidth(const std::string& xpath) {
  const host::Shape box = measuringBox("test");
  const host::TextRange range = box.TextFrame().TextRange();
  double widest = 0;
  for (const std::string& value : agendaDoc.values(xpath)) {
    range.Text(value);
    const double width = range.BoundWidth();
    if (width > widest) widest = width;
  }
  box.Delete();
  return widest;
}

}  // namespace vellumark::agenda
