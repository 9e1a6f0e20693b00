#pragma once
// What carries shapes without being a slide (masters, notes pages), backgrounds, and designs.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// A master.
host::ObjectRef makeMaster(const HostRef& host, const Sheet& master);
/// A notes page, which the host gives as a range of slides.
host::ObjectRef makeNotesPage(const HostRef& host, const Sheet& page);
host::ObjectRef makeBackground(const HostRef& host, const Sheet& sheet);
/// The designs of a presentation: one for each slide master.
host::ObjectRef makeDesigns(const HostRef& host, const DocumentRef& document);

}  // namespace vellumark::deck
