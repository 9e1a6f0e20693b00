#pragma once
// Document windows: opening, activating, what their panes show.

#include "deck/model/host_state.h"

namespace vellumark::deck {

/// Opens a window in normal view on the first slide and makes it the active one, without telling the
/// listeners.
WindowRef openWindow(const HostRef& host, const DocumentRef& document);
/// Makes a window the active one and raises WindowActivate.
void activateWindow(const HostRef& host, const WindowRef& window);
/// The windows of one presentation.
host::ObjectRef makeWindowsOf(const HostRef& host, const DocumentRef& document);

/// PpViewType of a pane, from 1, of the window as it is now.
std::int32_t paneViewType(const WindowState& window, std::int32_t pane);
/// How many panes the window's view has: three in normal view, else one.
std::int32_t paneCount(const WindowState& window);
/// Brings the window to where its active pane has that view type: slide, outline, thumbnails and notes page
/// lie in normal view, others fill the window. The slide in view stays, or becomes the master that the view
/// is of. An error where the presentation has no such sheet, or the type is unknown.
void showView(const HostRef& host, const WindowRef& window, std::int32_t paneType);

}  // namespace vellumark::deck
