// The family of agenda slides: each item that asks for one has a slide that shows all rows, its own
// highlighted.

#include <algorithm>
#include <optional>

#include "agenda/agenda_colors.h"
#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::attributeText;
using core::resumeNext;

bool isOneOf(const std::string& kind, std::initializer_list<const char*> wanted) {
  return std::find(wanted.begin(), wanted.end(), kind) != wanted.end();
}

/// Shapes that the user added stay.
void deleteGenerated(const host::Shapes& shapes) {
  for (int i = shapes.Count(); i >= 1; --i) {
    const host::Shape shape = shapes.Item(i);
    if (isOneOf(shape.Tags().Item(tags::kind), {kinds::box, kinds::bar, kinds::subtitle, kinds::title})) {
      shape.Delete();
    }
  }
}

/// Behind whatever the user put on the slide.
void sendGeneratedToBack(const host::Shapes& shapes) {
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Shape shape = shapes.Item(i);
    if (isOneOf(shape.Tags().Item(tags::kind), {kinds::box, kinds::bar, kinds::subtitle})) {
      shape.ZOrder(host::msoSendToBack);
    }
  }
}

void tellOfNewSlides(std::int16_t count) {
  if (count == 1) {
    core::message(
        "A new agenda slide has been inserted at the end of the presentation.\r\n"
        "Please move it to the appropriate position within the presentation.",
        ui::Icon::information);
  } else if (count > 1) {
    core::message(
        "New agenda slides have been inserted at the end of the presentation.\r\n"
        "Please move them to the appropriate positions within the presentation.",
        ui::Icon::information);
  }
}

}  // namespace

// The procedure's own trap ends with the title of the first slide that is made: a failure from there on goes
// up to whoever called, and nothing is stored on the presentation.
void AgendaWizard::createAgendaSlides() {
  bool ownTrap = true;
  core::trap(
      "AgendaWizard, createAgendaSlides",
      [&] {
        std::int16_t currentVisibleIndex = 0, newSlideCount = 0;
        AgendaNumbers numbers;
        for (const pugi::xml_node& item : agendaDoc.items()) {
          const bool shown = flag(item, "showAgendaItem");
          if (shown) {
            currentVisibleIndex = base::add16(currentVisibleIndex, 1);
            status_->say("Processing item " + std::to_string(currentVisibleIndex) + " of " +
                         std::to_string(visibleItemCount) + "...");
          }
          if (const host::Slide slide = slideFor(item, newSlideCount)) {
            ownTrap = false;
            setTitle(slide);
            if (agendaDoc.subtitle()) addSubtitle(slide);
            numbers.mainNumber = 0;  // the second level's goes on from slide to slide
            addRows(slide, numbers, currentVisibleIndex);
            sendGeneratedToBack(slide.Shapes());
          }
          if (shown) status_->advance();
        }
        deleteObsoleteSlides();
        status_->advance();
        tellOfNewSlides(newSlideCount);
      },
      [&](const base::Error&) {
        if (!ownTrap) throw;
        return false;
      });
}

/// The slide that an item's rows go on, free of earlier ones; nothing for an item that asks for none, whose
/// slide is deleted. A slide that the user deleted comes back at the end.
host::Slide AgendaWizard::slideFor(const pugi::xml_node& item, std::int16_t& newSlideCount) {
  const host::Slide found = findSlide(agendaPresentation, attributeText(item, "slideID"));
  if (!flag(item, "generateAgendaSlide")) {
    if (found) {
      found.Delete();
      set(item, "slideID", core::getGUID());
    }
    return {};
  }
  if (found) {
    deleteGenerated(found.Shapes());
    return found;
  }
  const host::Slides slides = agendaPresentation.Slides();
  const host::Slide slide = slides.Add(slides.Count() + 1, static_cast<host::PpSlideLayout>(slideLayout));
  newSlideCount = base::add16(newSlideCount, 1);
  const std::string id = core::getGUID();
  slide.Tags().Add(tags::slideID, id);
  slide.Tags().Add(tags::kind, kinds::agendaSlide);
  set(item, "slideID", id);
  return slide;
}

void AgendaWizard::setTitle(const host::Slide& slide) const {
  // Fails where the slide has its title still.
  resumeNext([&] { slide.Shapes().AddPlaceholder(host::ppPlaceholderTitle); });
  const host::Shape title = slide.Shapes().Placeholders().Item(1);
  title.Tags().Add(tags::kind, kinds::title);
  title.TextFrame().TextRange().Text(tbTitle.text());
  saveShapeContent(title, tbTitle.text());
}

void AgendaWizard::addSubtitle(const host::Slide& slide) const {
  const pugi::xml_node look = agendaDoc.subtitle();
  const auto length = [&](const char* attribute) { return base::toSingle(number(look, attribute)); };
  const host::Shape shape = slide.Shapes().AddShape(host::msoShapeRectangle, length("left"), length("top"),
                                                    length("width"), length("height"));
  colorShape(shape, kinds::subtitle, look);
  const host::TextFrame frame = shape.TextFrame();
  frame.AutoSize(host::ppAutoSizeNone);
  const host::TextRange text = frame.TextRange();
  text.Text(tbSubtitle.text());
  saveShapeContent(shape, tbSubtitle.text());
  text.ParagraphFormat().Alignment(integer(look, "align"));
  text.ParagraphFormat().Bullet().Visible(false);
  const host::Font font = text.Font();
  font.Name(fontName);
  setColor(font.Color(), attributeText(look, "fontColor"));
  // The one number that is read as the user's locale writes it.
  font.Size(base::toSingle(base::toDouble(attributeText(look, "fontSize"))));
  font.Bold(flag(look, "fontBold"));
  font.Italic(flag(look, "fontItalic"));
  frame.MarginLeft(0);
  frame.MarginRight(0);
  frame.MarginTop(0);
  frame.MarginBottom(0);
}

/// A page number is empty as long as the item's slide isn't made. Items that aren't shown and breaks take
/// their time; an item of the first level doesn't stand for the sum of those below it.
void AgendaWizard::addRows(const host::Slide& slide, AgendaNumbers& numbers,
                           std::int16_t currentVisibleIndex) {
  const std::optional<PageNumbers> pages =
      cbShowPageNumbers.value() ? std::optional<PageNumbers>(agendaPresentation) : std::nullopt;
  std::int16_t clock = integer(agendaDoc.agenda(), "startTime");
  std::int16_t rowIndex = 0;
  for (const pugi::xml_node& item : agendaDoc.items()) {
    const std::int16_t duration = integer(item, "duration");
    const std::int16_t begin = clock;
    clock = base::add16(clock, duration);
    if (!flag(item, "showAgendaItem")) continue;
    rowIndex = base::add16(rowIndex, 1);
    const std::string number = cbShowItemNumbers.value() ? numberOf(numbers, item) : "";
    const std::string timeSlot = duration > 0 ? timeText(begin) + " – " + timeText(clock) : "";
    addAgendaItem(slide, integer(item, "level"), rowIndex == currentVisibleIndex ? 1 : 0,
                  integer(item, "break"), rowIndex, number, attributeText(item, "text"),
                  attributeText(item, "responsible"), timeSlot,
                  pages ? pages->of(attributeText(item, "slideID")) : "");
  }
}

std::string AgendaWizard::numberOf(AgendaNumbers& numbers, const pugi::xml_node& item) const {
  return numbers.text(numbers.count(integer(item, "level"), flag(item, "break"), *this));
}

/// Slides of deleted items go, and the order of all that stay is remembered while page numbers are shown.
void AgendaWizard::deleteObsoleteSlides() {
  status_->say("Deleting obsolete agenda slides...");
  if (!deletedItemIDs.empty()) deletedItemIDs.pop_back();
  const std::vector<std::string> obsolete = base::split(deletedItemIDs, ';');
  std::string slideOrder;
  const host::Slides slides = agendaPresentation.Slides();
  for (int i = slides.Count(); i >= 1; --i) {
    const host::Slide slide = slides.Item(i);
    const std::string id = slide.Tags().Item(tags::slideID);
    if (!id.empty() && std::ranges::find(obsolete, id) != obsolete.end()) slide.Delete();
    // A slide just deleted fails here.
    if (cbShowPageNumbers.value()) resumeNext([&] { slideOrder = orderEntry(slide) + slideOrder; });
  }
  deletedItemIDs.clear();
  if (slideOrder.empty()) {
    agendaPresentation.Tags().Delete(tags::slideOrder);
  } else {
    agendaPresentation.Tags().Add(tags::slideOrder, slideOrder);
  }
}

}  // namespace vellumark::agenda
