#pragma once
// Lists of agenda items as people write them: plain text, or a table in CSV form.

#include <string>
#include <vector>

namespace vellumark::app {

struct AgendaItem {
  int level = 1;
  std::string text;
  std::string responsible;
  int minutes = 30;
  bool isBreak = false;
  bool shown = true;
  bool ownSlide = true;

  friend bool operator==(const AgendaItem&, const AgendaItem&) = default;
};

/// Whether a text is printable and has no end of a line in it, as the dialog's fields hold it.
bool isOneLine(const std::string& text);

/// Reads a file of items.
///
/// Plain text has an item a line; a tab or two blanks in front make it one of the second level. CSV, told by
/// the name's ending or by a header line, has the columns level, text, responsible, minutes, break, shown and
/// own slide, divided by commas, semicolons or tabs; a header line may leave some out and give them another
/// order. Empty lines are passed over.
///
/// A Failure of usage, with file and line, where it can't be read so, or where the items are no agenda.
std::vector<AgendaItem> readAgendaItems(const std::string& path);

/// The items in CSV form with a header line, as readAgendaItems() reads them.
std::string toCsv(const std::vector<AgendaItem>& items);

}  // namespace vellumark::app
