#pragma once

#include <string>
#include <vector>

#include "agenda_editor.h"
#include "surroundings.h"

namespace vellumark::app {

struct AgendaCommandOptions {
  std::string deck;
  std::string items;  ///< a file of items; empty keeps those that the deck's agenda has
  AgendaOptions agenda;
  bool exportItems = false;  ///< write the items instead of making slides
  std::vector<std::string> dialogs;
  std::vector<std::string> answers;
  std::string out;
  bool inPlace = false;
  std::string root;
};

/// Makes the agenda slides of a deck, through the Agenda Wizard's dialog, or writes the items of its agenda.
Exit agenda(const AgendaCommandOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
