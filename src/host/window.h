#pragma once
// Windows, their panes and views, and the selection.

#include "host/constants.h"
#include "host/handle.h"
#include "host/presentation.h"
#include "host/shape.h"
#include "host/text.h"

namespace vellumark::host {

/// What is selected in a window.
class Selection : public Handle {
 public:
  using Handle::Handle;
  int Type() const { return get<int>(member::Type); }  ///< PpSelectionType
  /// Raises in a view without a current slide.
  host::SlideRange SlideRange() const { return get<host::SlideRange>(member::SlideRange); }
  /// Raises where no shape is selected.
  host::ShapeRange ShapeRange() const { return get<host::ShapeRange>(member::ShapeRange); }
  /// Raises where no text is selected.
  host::TextRange TextRange() const { return get<host::TextRange>(member::TextRange); }
  /// The window, untyped.
  ObjectRef Parent() const { return get<Value>(member::Parent).toObject(); }
  void Copy() const { call(member::Copy); }
  void Unselect() const { call(member::Unselect); }
};

/// What a window or pane shows.
class View : public Handle {
 public:
  using Handle::Handle;
  int Type() const { return get<int>(member::Type); }  ///< PpViewType
  host::Slide Slide() const { return get<host::Slide>(member::Slide); }
  int Zoom() const { return get<int>(member::Zoom); }  ///< per cent
  void Zoom(int percent) const { put(member::Zoom, percent); }
  void GotoSlide(int index) const { call(member::GotoSlide, index); }
  /// Pastes and leaves what was pasted selected.
  void Paste() const { call(member::Paste); }
};

class Pane : public Handle {
 public:
  using Handle::Handle;
  int ViewType() const { return get<int>(member::ViewType); }  ///< PpViewType
  void Activate() const { call(member::Activate); }
};

class Panes : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Pane Item(int index) const { return get<Pane>(member::Item, index); }
};

class DocumentWindow : public Handle {
 public:
  using Handle::Handle;
  host::Selection Selection() const { return get<host::Selection>(member::Selection); }
  host::View View() const { return get<host::View>(member::View); }
  host::Presentation Presentation() const { return get<host::Presentation>(member::Presentation); }
  Pane ActivePane() const { return get<Pane>(member::ActivePane); }
  host::Panes Panes() const { return get<host::Panes>(member::Panes); }
  int ViewType() const { return get<int>(member::ViewType); }
  void ViewType(PpViewType type) const { put(member::ViewType, type); }
  void Activate() const { call(member::Activate); }
  void Close() const { call(member::Close); }
};

class DocumentWindows : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  DocumentWindow Item(int index) const { return get<DocumentWindow>(member::Item, index); }
};

}  // namespace vellumark::host
