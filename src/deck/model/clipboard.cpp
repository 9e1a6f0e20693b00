#include "deck/model/clipboard.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/error.h"
#include "deck/drawing/shape_drawing.h"
#include "deck/model/new_presentation.h"
#include "deck/model/placeholder_paste.h"
#include "deck/model/shape_copier.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_copier.h"
#include "deck/model/slide_copier.h"
#include "deck/model/units.h"
#include "platform/clipboard_drawing.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr double aside = 12 * emuPerPoint;

bool samePlace(const ShapeFrame& a, const ShapeFrame& b, double offset) {
  return a.x + offset == b.x && a.y + offset == b.y && a.width == b.width && a.height == b.height;
}

std::string_view nameOf(const ShapeKey& shape) {
  return drawingProperties(shape.node).attribute("name").value();
}

void moveBy(const std::vector<ShapeKey>& shapes, double offset) {
  for (const ShapeKey& shape : shapes) {
    ShapeFrame frame = slideFrame(shape);
    frame.x += offset;
    frame.y += offset;
    setSlideFrame(shape, frame);
  }
}

/// Moves copies until none of them covers one that came from the same shape.
void moveAside(const std::vector<ShapeKey>& copies) {
  struct Taken {
    std::string_view name;
    ShapeFrame frame;
  };
  std::vector<Taken> others, own;
  for (const xml_node node : shapeNodes(copies.front().sheet.shapeTree())) {
    const ShapeKey shape{copies.front().sheet, node};
    const bool copy = std::ranges::find(copies, shape) != copies.end();
    (copy ? own : others).push_back({nameOf(shape), slideFrame(shape)});
  }
  double offset = 0;
  const auto covers = [&](const Taken& one) {
    return std::ranges::any_of(others, [&](const Taken& other) {
      return one.name == other.name && samePlace(one.frame, other.frame, offset);
    });
  };
  while (std::ranges::any_of(own, covers)) offset += aside;
  if (offset > 0) moveBy(copies, offset);
}

}  // namespace

Clipboard::~Clipboard() {
  if (store_) platform::withdrawDrawing();
}

void Clipboard::start(const DocumentRef& from) {
  platform::withdrawDrawing();
  shapes_.clear();
  slides_.clear();
  links_.clear();
  places_.clear();
  media_ = {};
  store_ = Document::scratch(from->package().isStrict());
}

void Clipboard::keepLinks(Part& sheet, PartCopier& copier) {
  Package& package = store_->package();
  for (const Relationship& relationship : sheet.relationships()) {
    const PartRef slide = relationship.is("slide") ? sheet.target(relationship) : nullptr;
    if (!slide) continue;
    links_.push_back(
        {package.addXml(package.freeName("ppt/links/slide%d.xml"), slideContentType, newSlideXml({})),
         slide});
    copier.standIn(slide, links_.back().stub);
  }
}

void Clipboard::restoreLinks(PartCopier& copier) const {
  for (const Linked& link : links_) {
    const PartRef slide = link.slide.lock();
    if (slide && !slide->removed() && &slide->package() == &copier.to()) copier.standIn(link.stub, slide);
  }
}

/// A layout comes along whole, since the presentation where its slides are pasted may lack it; a master
/// without its pictures and theme: what it says of placeholders is wanted.
Sheet Clipboard::bringParent(const Sheet& sheet, PartCopier& copier, Parents& known) {
  const Sheet parent = sheet.parent();
  if (!parent) return {};
  if (const auto found = known.find(parent.part); found != known.end()) return found->second;
  // A master has none above it; a ring in a broken file ends here as well.
  known.emplace(parent.part, Sheet());
  const Sheet above = bringParent(parent, copier, known);
  return known[parent.part] =
             store_->sheet(above ? copyUnder(parent, above, copier) : copier.copyAlone(parent.part));
}

void Clipboard::copyShapes(const std::vector<ShapeKey>& shapes) {
  const std::vector<ShapeKey> sorted = inZOrder(shapes);
  if (sorted.empty()) base::raise(base::errors::invalidRequest);
  const Sheet& source = sorted.front().sheet;
  start(source.document);
  PartCopier copier(store_->package(), &media_);
  const PartRef part = store_->package().addXml("ppt/slides/slide1.xml", slideContentType, newSlideXml({}));
  Parents known;
  if (const Sheet parent = bringParent(source, copier, known))
    part->relate(*parent.part, parentRelationship(parent));
  keepLinks(*source.part, copier);
  shapes_ = deck::copyShapes(sorted, store_->sheet(part), copier);
  places_.push_back(source.part);
  platform::offerDrawing([sorted] { return drawShapes(sorted); });
}

void Clipboard::copySlides(const DocumentRef& document, const std::vector<std::int32_t>& ids) {
  if (ids.empty()) base::raise(base::errors::invalidRequest);
  std::vector<Sheet> sources;
  for (const std::int32_t id : ids) sources.push_back(document->slide(id));
  start(document);
  PartCopier copier(store_->package(), &media_);
  Parents known;
  const auto layoutOf = [&](const Sheet& slide) {
    if (Sheet layout = bringParent(slide, copier, known)) return layout;
    throw FormatError(slide.part->name(), "follows no slide layout");
  };
  for (const Sheet& slide : sources) keepLinks(*slide.part, copier);
  for (const std::int32_t id : deck::copySlides(sources, *store_, 0, copier, layoutOf)) {
    slides_.push_back(store_->slide(id));
  }
}

std::vector<ShapeKey> Clipboard::pasteShapes(const Sheet& target) {
  if (!holdsShapes()) {
    base::raise(base::errors::invalidRequest,
                "Shapes.Paste: Invalid request. The clipboard is empty or holds what can't be pasted here.");
  }
  PartCopier copier(target.document->package(), &media_);
  restoreLinks(copier);
  const std::vector<ShapeKey> copies = deck::copyShapes(shapes_, target, copier);
  placePlaceholders(copies, shapes_);
  const auto isTarget = [&](const std::weak_ptr<Part>& place) { return place.lock() == target.part; };
  if (std::ranges::any_of(places_, isTarget)) {
    moveAside(copies);
  } else {
    places_.push_back(target.part);
  }
  return copies;
}

std::vector<std::int32_t> Clipboard::pasteSlides(Document& target, std::size_t position) {
  if (!holdsSlides()) {
    base::raise(base::errors::invalidRequest,
                "Slides.Paste: Invalid request. The clipboard is empty or holds what can't be pasted here.");
  }
  PartCopier copier(target.package(), &media_);
  restoreLinks(copier);
  return deck::copySlides(slides_, target, position, copier);
}

std::vector<ShapeKey> duplicateShapes(const std::vector<ShapeKey>& shapes) {
  const std::vector<ShapeKey> sorted = inZOrder(shapes);
  if (sorted.empty()) base::raise(base::errors::invalidRequest);
  const Sheet& sheet = sorted.front().sheet;
  PartCopier copier(sheet.document->package());
  const std::vector<ShapeKey> copies = copyShapes(sorted, sheet, copier);
  placePlaceholders(copies, sorted);
  moveBy(copies, aside);
  return copies;
}

}  // namespace vellumark::deck
