#include "situation.h"

#include "arguments.h"
#include "base/error.h"
#include "failure.h"
#include "files.h"
#include "session.h"

namespace vellumark::app {

// What the host refuses here was asked for wrongly, unless the deck is broken.
void arrange(Session& session, const Situation& situation) {
  session.open(situation.deck);
  if (!situation.style.empty()) session.chooseStyle(situation.style);
  const auto with = [&](const char* option, const std::string& value, auto&& act) {
    if (value.empty()) return;
    try {
      act(value);
    } catch (const base::Error& error) {
      if (error.number() == base::errors::unspecific) throw deckFailure(situation.deck, error);
      throw Failure(Exit::usage, std::string(option) + ": " + error.description());
    }
  };
  with("--slide", std::to_string(situation.slide), [&](auto&) { session.goToSlide(situation.slide); });
  with("--copy", situation.copy, [&](auto& value) { session.copyShapes(value); });
  with("--view", situation.view, [&](auto& value) { session.showView(parseView(value)); });
  with("--select", situation.select, [&](auto& value) { session.selectShapes(value); });
  with("--slides", situation.slides, [&](auto& value) { session.selectSlides(value); });
  with("--text", situation.text, [&](auto& value) { session.selectText(value); });
  with("--cells", situation.cells, [&](auto& value) { session.selectCells(value); });
}

}  // namespace vellumark::app
