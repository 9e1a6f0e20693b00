#include "deck/model/windows.h"

#include <algorithm>

#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/shape_actions.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

[[noreturn]] void noSuchView(const char* what) {
  base::raise(base::errors::invalidRequest,
              std::string("View: Invalid request. The presentation has no ") + what + ".");
}

Sheet firstSlide(Document& document) {
  const auto& slides = document.slides();
  return slides.empty() ? Sheet{} : document.slide(slides.front().id);
}

/// The sheet that a view of that type shows, coming from `current`.
Sheet sheetFor(const DocumentRef& document, const Sheet& current, std::int32_t viewType) {
  const bool onSlide = current && document->slideId(current) != 0;
  switch (viewType) {
    case host::ppViewSlideMaster: {
      const Sheet layout = onSlide ? current.parent() : Sheet{};
      const Sheet master = layout ? layout.parent() : Sheet{};
      if (master) return master;
      const auto masters = document->masters();
      if (masters.empty()) noSuchView("slide master");
      return masters.front();
    }
    case host::ppViewTitleMaster:
      for (const Sheet& layout : document->layouts()) {
        if (std::string_view(layout.part->root().attribute("type").value()) == "title") return layout;
      }
      noSuchView("title master");
    case host::ppViewHandoutMaster:
      if (const Sheet master = document->related("handoutMaster")) return master;
      noSuchView("handout master");
    case host::ppViewNotesMaster:
      if (const Sheet master = document->related("notesMaster")) return master;
      noSuchView("notes master");
    default:
      return onSlide ? current : firstSlide(*document);
  }
}

class PaneObject : public ModelObject<PaneObject> {
 public:
  static constexpr const char* className = "Pane";
  static const MemberTable<PaneObject>& members() {
    static const MemberTable<PaneObject> table{
        property<&PaneObject::viewType>(member::ViewType),
        property<&PaneObject::active>(member::Active),
        method<&PaneObject::activate>(member::Activate),
    };
    return table;
  }
  PaneObject(HostRef host, WindowRef window, std::int32_t pane)
      : ModelObject(std::move(host)), window_(std::move(window)), pane_(pane) {}
  void requireAlive() const {
    if (!window_->open || pane_ > paneCount(*window_)) base::raise(base::errors::invalidRequest);
  }

  std::int32_t viewType() { return paneViewType(*window_, pane_); }
  Value active() { return host::triState(window_->activePane == pane_ || paneCount(*window_) == 1); }
  void activate() { window_->activePane = pane_; }

 private:
  WindowRef window_;
  std::int32_t pane_;
};

class PanesObject : public ModelObject<PanesObject> {
 public:
  static constexpr const char* className = "Panes";
  static const MemberTable<PanesObject>& members() {
    static const MemberTable<PanesObject> table{
        property<&PanesObject::count>(member::Count),
        method<&PanesObject::item>(member::Item, 1),
    };
    return table;
  }
  PanesObject(HostRef host, WindowRef window) : ModelObject(std::move(host)), window_(std::move(window)) {}

  std::int32_t count() { return paneCount(*window_); }
  host::ObjectRef item(Arguments arguments) {
    const auto place = collectionIndex(arguments[0].toInt(), static_cast<std::size_t>(paneCount(*window_)));
    return std::make_shared<PaneObject>(host(), window_, static_cast<std::int32_t>(place + 1));
  }

 private:
  WindowRef window_;
};

class ViewObject : public ModelObject<ViewObject> {
 public:
  static constexpr const char* className = "View";
  static const MemberTable<ViewObject>& members() {
    static const MemberTable<ViewObject> table{
        property<&ViewObject::type>(member::Type),
        property<&ViewObject::slide>(member::Slide),
        property<&ViewObject::zoom, &ViewObject::setZoom>(member::Zoom),
        method<&ViewObject::gotoSlide>(member::GotoSlide, 1),
        method<&ViewObject::paste>(member::Paste),
    };
    return table;
  }
  ViewObject(HostRef host, WindowRef window) : ModelObject(std::move(host)), window_(std::move(window)) {}
  void requireAlive() const {
    if (!window_->open) base::raise(base::errors::invalidRequest);
  }

  std::int32_t type() { return window_->viewType; }
  host::ObjectRef slide() {
    if (!window_->sheet) {
      base::raise(base::errors::invalidRequest,
                  "View.Slide: Invalid request. No slide is currently in view.");
    }
    return makeSlide(host(), window_->sheet);
  }
  void gotoSlide(Arguments arguments) {
    const auto& slides = window_->document->slides();
    window_->sheet =
        window_->document->slide(slides[collectionIndex(arguments[0].toInt(), slides.size())].id);
    host()->select(window_, {});
  }
  std::int32_t zoom() { return window_->zoom; }
  void setZoom(std::int32_t percent) {
    constexpr std::int32_t smallest = 10, largest = 400;
    if (percent < smallest || percent > largest) base::raise(base::errors::outOfRange);
    window_->zoom = percent;
  }
  /// Shapes come onto the slide or master in view, slides behind those that are selected or in view. What was
  /// pasted is selected.
  void paste() {
    if (host()->clipboard.holdsSlides()) return pasteSlides();
    const bool showsShapes = window_->viewType == host::ppViewNormal || showsMaster(window_->viewType);
    if (!showsShapes || !window_->sheet) {
      base::raise(base::errors::invalidRequest, "View.Paste: Invalid request. This view takes no shapes.");
    }
    selectShapes(host(), host()->clipboard.pasteShapes(window_->sheet), true);
  }

 private:
  static bool showsMaster(std::int32_t type) {
    return type == host::ppViewSlideMaster || type == host::ppViewTitleMaster ||
           type == host::ppViewHandoutMaster || type == host::ppViewNotesMaster;
  }
  void pasteSlides() {
    Document& document = *window_->document;
    std::vector<std::int32_t> before = window_->selection.slides;
    if (before.empty()) before = {document.slideId(window_->sheet)};
    int last = -1;
    for (const std::int32_t id : before) last = std::max(last, document.slidePosition(id));
    const auto position = last < 0 ? document.slideCount() : static_cast<std::size_t>(last) + 1;
    const std::vector<std::int32_t> ids = host()->clipboard.pasteSlides(document, position);
    window_->sheet = document.slide(ids.front());
    host()->select(window_, {.type = host::ppSelectionSlides, .slides = ids, .shapes = {}});
  }

  WindowRef window_;
};

class WindowObject : public ModelObject<WindowObject> {
 public:
  static constexpr const char* className = "DocumentWindow";
  static const MemberTable<WindowObject>& members() {
    static const MemberTable<WindowObject> table{
        property<&WindowObject::selection>(member::Selection),
        property<&WindowObject::view>(member::View),
        property<&WindowObject::presentation>(member::Presentation),
        property<&WindowObject::activePane>(member::ActivePane),
        property<&WindowObject::panes>(member::Panes),
        property<&WindowObject::viewType, &WindowObject::setViewType>(member::ViewType),
        property<&WindowObject::caption>(member::Caption),
        property<&WindowObject::active>(member::Active),
        method<&WindowObject::activate>(member::Activate),
        method<&WindowObject::close>(member::Close),
    };
    return table;
  }
  WindowObject(HostRef host, WindowRef window) : ModelObject(std::move(host)), window_(std::move(window)) {}
  void requireAlive() const {
    if (!window_->open)
      base::raise(base::errors::invalidRequest, "DocumentWindow: Invalid request. The window was closed.");
  }

  host::ObjectRef selection() { return makeSelection(host(), window_); }
  host::ObjectRef view() { return std::make_shared<ViewObject>(host(), window_); }
  host::ObjectRef presentation() { return makePresentation(host(), window_->document); }
  host::ObjectRef activePane() {
    return std::make_shared<PaneObject>(host(), window_, std::min(window_->activePane, paneCount(*window_)));
  }
  host::ObjectRef panes() { return std::make_shared<PanesObject>(host(), window_); }
  std::int32_t viewType() { return window_->viewType; }
  void setViewType(std::int32_t type) { showView(host(), window_, type); }
  std::string caption() { return window_->document->name(); }
  Value active() { return host::triState(host()->windows.front() == window_); }
  void activate() { activateWindow(host(), window_); }
  /// Closing the last window of a presentation closes the presentation.
  void close() {
    const auto& windows = host()->windows;
    const auto own = std::ranges::count_if(
        windows, [&](const WindowRef& other) { return other->document == window_->document; });
    if (own > 1) {
      window_->open = false;
      std::erase(host()->windows, window_);
      return;
    }
    presentation()->invoke(member::Close, Invoke::call, {});
  }

 private:
  WindowRef window_;
};

/// The windows of one presentation, or all where there is none given; the active one first.
class WindowsObject : public ModelObject<WindowsObject> {
 public:
  static constexpr const char* className = "DocumentWindows";
  static const MemberTable<WindowsObject>& members() {
    static const MemberTable<WindowsObject> table{
        property<&WindowsObject::count>(member::Count),
        method<&WindowsObject::item>(member::Item, 1),
    };
    return table;
  }
  WindowsObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}

  std::int32_t count() { return static_cast<std::int32_t>(windows().size()); }
  host::ObjectRef item(Arguments arguments) {
    const auto all = windows();
    return makeWindow(host(), all[collectionIndex(arguments[0].toInt(), all.size())]);
  }

 private:
  std::vector<WindowRef> windows() {
    std::vector<WindowRef> found = host()->windows;
    if (document_)
      std::erase_if(found, [&](const WindowRef& window) { return window->document != document_; });
    return found;
  }
  DocumentRef document_;
};

}  // namespace

WindowRef openWindow(const HostRef& host, const DocumentRef& document) {
  auto window = std::make_shared<WindowState>();
  window->document = document;
  window->sheet = firstSlide(*document);
  host->windows.insert(host->windows.begin(), window);
  return window;
}

void activateWindow(const HostRef& host, const WindowRef& window) {
  auto& windows = host->windows;
  const auto place = std::ranges::find(windows, window);
  if (place == windows.end()) return;
  std::rotate(windows.begin(), place, place + 1);
  Value arguments[] = {Value(makePresentation(host, window->document)), Value(makeWindow(host, window))};
  host->raiseEvent(member::WindowActivate, arguments);
}

std::int32_t paneCount(const WindowState& window) { return window.viewType == host::ppViewNormal ? 3 : 1; }

std::int32_t paneViewType(const WindowState& window, std::int32_t pane) {
  if (window.viewType != host::ppViewNormal) return window.viewType;
  if (pane == 1) return window.outline ? host::ppViewOutline : host::ppViewThumbnails;
  return pane == 2 ? host::ppViewSlide : host::ppViewNotesPage;
}

void showView(const HostRef& host, const WindowRef& window, std::int32_t type) {
  switch (type) {
    case host::ppViewNormal:
    case host::ppViewSlide:
    case host::ppViewOutline:
    case host::ppViewThumbnails: {
      const Sheet sheet = sheetFor(window->document, window->sheet, type);
      window->viewType = host::ppViewNormal;
      window->activePane = type == host::ppViewOutline || type == host::ppViewThumbnails ? 1 : 2;
      if (window->activePane == 1) window->outline = type == host::ppViewOutline;
      window->sheet = sheet;
      break;
    }
    case host::ppViewSlideMaster:
    case host::ppViewNotesPage:
    case host::ppViewHandoutMaster:
    case host::ppViewNotesMaster:
    case host::ppViewSlideSorter:
    case host::ppViewTitleMaster: {
      const Sheet sheet = sheetFor(window->document, window->sheet, type);
      window->viewType = type;
      window->activePane = 1;
      window->sheet = sheet;
      break;
    }
    default:
      base::raise(base::errors::outOfRange);
  }
  host->select(window, {});
}

host::ObjectRef makeWindow(const HostRef& host, const WindowRef& window) {
  return std::make_shared<WindowObject>(host, window);
}

host::ObjectRef makeWindows(const HostRef& host) { return std::make_shared<WindowsObject>(host, nullptr); }

host::ObjectRef makeWindowsOf(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<WindowsObject>(host, document);
}

}  // namespace vellumark::deck
