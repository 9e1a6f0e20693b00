#pragma once
// What the embedded host holds: open presentations, windows with their selections, listeners. Objects of the
// model are views on it.

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "deck/model/clipboard.h"
#include "deck/model/document.h"
#include "deck/model/file_dialogs.h"
#include "host/object.h"

namespace vellumark::deck {

class HostState;
using HostRef = std::shared_ptr<HostState>;

/// What is selected in a window: nothing, slides by id, shapes in the order of selecting, or text in one
/// shape.
struct SelectionState {
  std::int32_t type = 0;             ///< PpSelectionType
  std::vector<std::int32_t> slides;  ///< slide ids
  std::vector<ShapeKey> shapes;
  std::vector<ShapeKey> cells{};  ///< selected cells of a selected table
  std::int32_t textStart = 1;     ///< UTF-16 units from 1
  std::int32_t textLength = 0;
};

/// A document window on a presentation.
struct WindowState {
  DocumentRef document;
  std::int32_t viewType = 9;    ///< PpViewType of the window
  std::int32_t activePane = 2;  ///< from 1; 2 is the slide in normal view
  bool outline = false;         ///< normal view's first pane shows the outline instead of thumbnails
  Sheet sheet;                  ///< the slide or master in view; no part where there is none
  SelectionState selection;
  std::int32_t zoom = 100;  ///< per cent
  bool open = true;
};
using WindowRef = std::shared_ptr<WindowState>;

/// Another add-in that the host knows.
struct AddInState {
  std::string progId;
  bool connected = false;
  host::ObjectRef object;
};

class HostState : public std::enable_shared_from_this<HostState> {
 public:
  explicit HostState(std::string version);

  const std::string& version() const { return version_; }
  double versionNumber() const { return versionNumber_; }
  /// Hosts up to 11.0 have command bars and count adjustments and nodes in their own way.
  bool beforeRibbon() const { return versionNumber_ < 12; }

  std::vector<DocumentRef> documents;  ///< in the order of opening
  std::vector<WindowRef> windows;      ///< the active one first
  std::vector<AddInState> addIns;
  /// Macros that Run finds, by lower-case address.
  std::map<std::string, std::function<void()>> macros;
  Clipboard clipboard;
  FileAnswerer fileAnswerer;     ///< shows dialogs for files; without one they are cancelled
  int presentationsCreated = 0;  ///< numbers "Presentation1" and so on
  host::ObjectRef commandBars;   ///< made on first use, hosts up to 11.0

  /// The active window; "Invalid request." where there is none.
  WindowState& activeWindow();
  WindowRef windowOf(const DocumentRef& document) const;

  /// Raises an event at every listener, synchronously.
  void raiseEvent(host::Member event, std::span<host::Value> arguments);
  host::Subscription subscribe(host::EventHandler handler);

  /// Changes the selection of a window and tells the listeners. In normal view slides are selected in the
  /// first pane, shapes and text in that of the slide; text in the outline too.
  void select(const WindowRef& window, SelectionState selection);
  /// Drops what is no longer there from all selections and views (after a deletion).
  void forgetDeleted();

 private:
  std::string version_;
  double versionNumber_;
  struct Listener {
    host::EventHandler handler;
    bool connected = true;
  };
  std::list<std::shared_ptr<Listener>> listeners_;
};

}  // namespace vellumark::deck
