#include "deck/model/host_state.h"

#include <algorithm>
#include <utility>

#include "base/conversions.h"
#include "base/error.h"
#include "deck/model/objects.h"
#include "host/constants.h"

namespace vellumark::deck {

HostState::HostState(std::string version)
    : version_(std::move(version)), versionNumber_(base::val(version_)) {}

WindowState& HostState::activeWindow() {
  if (windows.empty()) {
    base::raise(base::errors::invalidRequest,
                "Application (unknown member): Invalid request. There is no active document window.");
  }
  return *windows.front();
}

WindowRef HostState::windowOf(const DocumentRef& document) const {
  for (const WindowRef& window : windows) {
    if (window->document == document) return window;
  }
  return nullptr;
}

void HostState::raiseEvent(host::Member event, std::span<host::Value> arguments) {
  // A handler may connect or disconnect others, so the walk is over a copy.
  const auto listeners = listeners_;
  for (const auto& listener : listeners) {
    if (listener->connected) listener->handler(event, arguments);
  }
}

host::Subscription HostState::subscribe(host::EventHandler handler) {
  auto listener = std::make_shared<Listener>(Listener{std::move(handler)});
  listeners_.push_back(listener);
  return host::Subscription([self = weak_from_this(), listener] {
    listener->connected = false;
    if (const HostRef host = self.lock()) host->listeners_.remove(listener);
  });
}

void HostState::select(const WindowRef& window, SelectionState selection) {
  if (window->viewType == host::ppViewNormal) {
    if (selection.type == host::ppSelectionSlides) window->activePane = 1;
    const bool thumbnails = window->activePane == 1 && !window->outline;
    const bool text = selection.type == host::ppSelectionText;
    if (selection.type == host::ppSelectionShapes || (text && thumbnails)) window->activePane = 2;
  }
  window->selection = std::move(selection);
  host::Value arguments[] = {makeSelection(shared_from_this(), window)};
  raiseEvent(host::member::WindowSelectionChange, arguments);
}

void HostState::forgetDeleted() {
  for (const WindowRef& window : windows) {
    const DocumentRef& document = window->document;
    if (window->sheet && window->sheet.part->removed()) {
      const auto& slides = document->slides();
      window->sheet = slides.empty() ? Sheet{} : document->slide(slides.front().id);
    }
    SelectionState selection = window->selection;
    std::erase_if(selection.slides, [&](std::int32_t id) { return document->slidePosition(id) < 0; });
    std::erase_if(selection.shapes, [](const ShapeKey& shape) { return shape.deleted(); });
    const bool emptied = (selection.type == 1 && selection.slides.empty()) ||
                         (selection.type >= 2 && selection.shapes.empty());
    if (emptied) selection = {};
    if (selection.slides != window->selection.slides || selection.shapes != window->selection.shapes) {
      select(window, std::move(selection));
    }
  }
}

}  // namespace vellumark::deck
