#include "deck/embedded_host.h"

#include "deck/model/application.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/table.h"
#include "deck/model/windows.h"

namespace vellumark::deck {

EmbeddedHost::EmbeddedHost(const std::string& version)
    : state_(std::make_shared<HostState>(version)), application_(makeApplication(state_)) {}

/// Whatever still holds an object of this host finds everything closed.
EmbeddedHost::~EmbeddedHost() {
  for (const WindowRef& window : state_->windows) window->open = false;
  state_->windows.clear();
  for (const DocumentRef& document : state_->documents) document->close();
  state_->documents.clear();
  state_->addIns.clear();
  state_->macros.clear();
}

host::Presentation EmbeddedHost::open(const std::string& path, bool readOnly) {
  return application().Presentations().Open(path, readOnly, false, true);
}

void EmbeddedHost::showView(std::int32_t type) {
  state_->activeWindow();
  deck::showView(state_, state_->windows.front(), type);
}

void EmbeddedHost::selectShapes(std::span<const host::Shape> shapes) {
  if (shapes.empty()) {
    state_->activeWindow();
    state_->select(state_->windows.front(), {});
    return;
  }
  std::vector<ShapeKey> keys;
  keys.reserve(shapes.size());
  for (const host::Shape& shape : shapes) {
    const ShapeKey* key = shape ? shapeKeyOf(*shape.object()) : nullptr;
    if (!key) base::raise(base::errors::invalidRequest);
    keys.push_back(*key);
  }
  makeShapeRange(state_, std::move(keys))->invoke(host::member::Select, host::Invoke::call, {});
}

void EmbeddedHost::selectCells(std::span<const host::Cell> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    i == 0 ? cells[i].Select() : addToSelection(state_, cells[i]);
  }
}

void EmbeddedHost::selectSlides(std::span<const std::int32_t> positions) {
  WindowState& window = state_->activeWindow();
  const auto& slides = window.document->slides();
  SelectionState selection;
  for (const std::int32_t position : positions) {
    selection.slides.push_back(slides[collectionIndex(position, slides.size())].id);
  }
  if (!selection.slides.empty()) {
    selection.type = 1;
    window.sheet = window.document->slide(selection.slides.front());
  }
  state_->select(state_->windows.front(), std::move(selection));
}

}  // namespace vellumark::deck
