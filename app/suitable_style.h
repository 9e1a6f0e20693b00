#pragma once
// Which style's agendas suit slides of a size.

#include <string>

#include "agenda/agenda_document.h"

namespace vellumark::app {

/// The style whose agendas make the most of slides of that size, in points: the widest that stays on them, of
/// equally wide ones the first; empty where none stays.
std::string styleForSlides(double width, double height);

/// Whether the rows of an agenda stay on slides of that size. 91 where the document says nothing of them.
bool staysOnSlides(const agenda::AgendaDocument& document, double width, double height);

}  // namespace vellumark::app
