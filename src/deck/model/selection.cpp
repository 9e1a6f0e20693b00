// What is selected in a window.

#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/windows.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

/// A selection is live: it always tells what its window has selected now.
class SelectionObject : public ModelObject<SelectionObject> {
 public:
  static constexpr const char* className = "Selection";
  static const MemberTable<SelectionObject>& members() {
    static const MemberTable<SelectionObject> table{
        property<&SelectionObject::type>(member::Type),
        property<&SelectionObject::slideRange>(member::SlideRange),
        property<&SelectionObject::shapeRange>(member::ShapeRange),
        property<&SelectionObject::textRange>(member::TextRange),
        property<&SelectionObject::parent>(member::Parent),
        method<&SelectionObject::copy>(member::Copy),
        method<&SelectionObject::cut>(member::Cut),
        method<&SelectionObject::unselect>(member::Unselect),
    };
    return table;
  }
  SelectionObject(HostRef host, WindowRef window)
      : ModelObject(std::move(host)), window_(std::move(window)) {}
  void requireAlive() const {
    if (!window_->open)
      base::raise(base::errors::invalidRequest, "Selection: Invalid request. The window was closed.");
  }

  std::int32_t type() { return state().type; }

  /// The selected slides, or the one in view.
  host::ObjectRef slideRange() {
    std::vector<std::int32_t> ids = state().slides;
    if (state().type != host::ppSelectionSlides) {
      const std::int32_t inView =
          window_->viewType == host::ppViewSlideSorter ? 0 : window_->document->slideId(window_->sheet);
      if (inView == 0) {
        base::raise(base::errors::invalidRequest,
                    "Selection.SlideRange: Invalid request. No slide is currently in view.");
      }
      ids = {inView};
    }
    return makeSlideRange(host(), window_->document, std::move(ids));
  }

  host::ObjectRef shapeRange() {
    if (state().shapes.empty()) {
      base::raise(base::errors::invalidRequest,
                  "Selection.ShapeRange: Invalid request. Nothing appropriate is currently selected.");
    }
    return makeShapeRange(host(), state().shapes);
  }

  host::ObjectRef textRange() {
    const SelectionState& now = state();
    if (now.type == host::ppSelectionText) {
      return makeTextRange(host(), now.shapes.front(), now.textStart, now.textLength);
    }
    // A single selected shape stands for all its text.
    if (now.type == host::ppSelectionShapes && now.shapes.size() == 1) {
      const host::ObjectRef frame =
          makeShape(host(), now.shapes.front())->invoke(member::TextFrame, Invoke::get, {}).toObject();
      return frame->invoke(member::TextRange, Invoke::get, {}).toObject();
    }
    base::raise(base::errors::invalidRequest,
                "Selection.TextRange: Invalid request. Nothing appropriate is currently selected.");
  }

  host::ObjectRef parent() { return makeWindow(host(), window_); }
  /// Shapes or slides. Text alone is not copied.
  void copy() { copied()->invoke(member::Copy, Invoke::call, {}); }
  void cut() { copied()->invoke(member::Cut, Invoke::call, {}); }
  void unselect() { host()->select(window_, {}); }

 private:
  host::ObjectRef copied() {
    switch (state().type) {
      case host::ppSelectionSlides:
        return slideRange();
      case host::ppSelectionShapes:
        return shapeRange();
      default:
        base::raise(base::errors::invalidRequest,
                    "Selection.Copy: Invalid request. Neither shapes nor slides are selected.");
    }
  }
  const SelectionState& state() const { return window_->selection; }
  WindowRef window_;
};

}  // namespace

host::ObjectRef makeSelection(const HostRef& host, const WindowRef& window) {
  return std::make_shared<SelectionObject>(host, window);
}

}  // namespace vellumark::deck
