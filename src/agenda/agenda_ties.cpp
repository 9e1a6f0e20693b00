#include "agenda/agenda_ties.h"

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"

namespace vellumark::agenda {
namespace {

using core::trap;

constexpr std::size_t guidLength = 36;

/// A move too small to change the seven digits of a number isn't seen.
std::string geometryText(const host::Shape& shape) {
  return base::join({base::singleText(shape.Left()), base::singleText(shape.Top()),
                     base::singleText(shape.Width()), base::singleText(shape.Height())},
                    "/");
}

}  // namespace

bool isAgendaSlide(const host::Slide& slide) { return slide.Tags().Item(tags::kind) == kinds::agendaSlide; }

std::string orderEntry(const host::Slide& slide) { return std::to_string(slide.SlideID()) + ";"; }

host::Slide findSlide(const host::Presentation& presentation, const std::string& slideID) {
  return trap("AgendaWizard, findSlide", [&] {
    host::Slide slide;
    if (base::length16(slideID) < guidLength) {
      core::resumeNext([&] { slide = presentation.Slides().FindBySlideID(base::toInt32(slideID)); });
      return slide;
    }
    const host::Slides slides = presentation.Slides();
    const int count = slides.Count();
    for (int i = 1; i <= count; ++i) {
      slide = slides.Item(i);
      if (slide.Tags().Item(tags::slideID) == slideID) return slide;
    }
    return host::Slide();
  });
}

PageNumbers::PageNumbers(const host::Presentation& presentation) : presentation_(presentation) {
  trap("AgendaWizard, findSlide", [&] {
    const host::Slides slides = presentation_.Slides();
    const int count = slides.Count();
    for (int i = 1; i <= count; ++i) {
      const host::Slide slide = slides.Item(i);
      const std::string id = slide.Tags().Item(tags::slideID);
      if (!id.empty()) numbers_.try_emplace(id, slide.SlideNumber());
    }
  });
}

std::string PageNumbers::of(const std::string& slideID) const {
  if (base::length16(slideID) < guidLength) {
    const host::Slide slide = findSlide(presentation_, slideID);
    return slide ? std::to_string(slide.SlideNumber()) : "";
  }
  const auto found = numbers_.find(slideID);
  return found == numbers_.end() ? "" : std::to_string(found->second);
}

void saveShapeContent(const host::Shape& shape, const std::string& text) {
  shape.Tags().Add(tags::content, "/" + text);
}

void saveShapeProperties(const host::Shape& shape) {
  trap("AgendaWizard, saveShapeProperties", [&] { shape.Tags().Add(tags::properties, geometryText(shape)); });
}

bool checkShapeProperties(const host::Shape& shape) {
  return trap("AgendaWizard, checkShapeProperties", [&] {
    const std::string remembered = shape.Tags().Item(tags::properties);
    return remembered.empty() || remembered == geometryText(shape);
  });
}

}  // namespace vellumark::agenda
