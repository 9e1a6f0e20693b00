#pragma once
// The embedded host: PowerPoint's object model on .pptx files, without PowerPoint.

#include <memory>
#include <span>
#include <string>

#include "deck/model/host_state.h"
#include "host/application.h"

namespace vellumark::deck {

/// What a save says that an event handler cancelled, under the number of unspecific failures.
inline constexpr const char* saveCancelled = "Presentation.Save: Failed. An event handler cancelled it.";

/// One running host. Programs open decks and speak to it through its application object, as they would to
/// PowerPoint; what a user does with the mouse (selecting, changing the view) has functions here.
class EmbeddedHost {
 public:
  /// `version` is what Application.Version reports: "9.0" to "16.0".
  explicit EmbeddedHost(const std::string& version = "14.0");
  ~EmbeddedHost();
  EmbeddedHost(const EmbeddedHost&) = delete;
  EmbeddedHost& operator=(const EmbeddedHost&) = delete;

  host::Application application() const { return host::Application(application_); }
  const HostRef& state() const { return state_; }

  /// Opens a deck in a window and makes it the active one. A deck that can't be read raises -2147467259, and
  /// the description tells what is wrong with it.
  host::Presentation open(const std::string& path, bool readOnly = false);

  // What a user does in the active window.
  /// Brings the active pane to a view type (PpViewType).
  void showView(std::int32_t type);
  /// Selects shapes of the slide in view in that order, all at once; nothing for an empty list.
  void selectShapes(std::span<const host::Shape> shapes);
  /// Selects cells of one table.
  void selectCells(std::span<const host::Cell> cells);
  /// Selects slides by position from 1.
  void selectSlides(std::span<const std::int32_t> positions);

 private:
  HostRef state_;
  host::ObjectRef application_;
};

}  // namespace vellumark::deck
