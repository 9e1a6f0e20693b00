#pragma once
// The Agenda Wizard's dialog, worked by the program as a user works it.

#include <optional>
#include <string>
#include <vector>

#include "agenda/agenda_wizard.h"
#include "agenda_items.h"

namespace vellumark::app {

/// What can be set for an agenda as a whole; what is left out stays as it is.
struct AgendaOptions {
  std::optional<std::string> style, title, subtitle, start;
  std::optional<bool> numbers, responsible, times, pages;
};

class AgendaEditor {
 public:
  /// Opens the dialog, without showing it, on the active presentation; an agenda that is new begins in that
  /// style, where there is one of the name. A Failure where the dialog has nothing to work on.
  explicit AgendaEditor(const std::string& newStyle);

  /// Failures of usage where the dialog refuses a value.
  void setOptions(const AgendaOptions& options);
  /// Makes the list of items this one. Items that the agenda has already stay the same items, so that their
  /// slides stay where they are with all that lies on them: those of the same text, wherever they are now and
  /// on whatever level, and those that were reworded in their place. The result tells in lines what became of
  /// items that are not as they were.
  std::string setItems(const std::vector<AgendaItem>& items);
  /// Presses OK. A Failure where no item has a slide: the agenda would go with its last one.
  void finish();

 private:
  void chooseStyle(const std::string& style);
  void write(ui::TextBox& box, const std::string& text, const char* option);
  void tick(ui::CheckBox& box, bool on);
  void select(const std::string& id);
  std::vector<std::string> ids() const;
  void deleteOthers(const std::vector<std::string>& kept);
  void addItem(std::size_t position);
  void moveUp(const std::string& id, std::size_t from, std::size_t to);
  void fillIn(const std::string& id, const AgendaItem& item);

  agenda::AgendaWizard wizard_;
};

/// The items of an agenda's document.
std::vector<AgendaItem> itemsOf(const agenda::AgendaDocument& document);

}  // namespace vellumark::app
