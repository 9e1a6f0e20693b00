#pragma once
// What a user has in front of them when a command begins: the deck, the view, the selection.

#include <string>

namespace vellumark::app {

class Session;

struct Situation {
  std::string deck;
  int slide = 1;
  std::string copy;    ///< shapes that are copied to the clipboard first
  std::string select;  ///< shapes in the order of selecting
  std::string slides;
  std::string text;
  std::string cells;
  std::string view;
  std::string style;  ///< chosen in the box of styles
  std::string host = "14.0";
};

/// Opens the deck and brings its window to where the situation has it. A Failure of usage for what the deck
/// has not.
void arrange(Session& session, const Situation& situation);

}  // namespace vellumark::app
