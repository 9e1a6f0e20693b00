#include "situation.h"

#include "arguments.h"
#include "base/error.h"
#include "failure.h"
#include "files.h"
#include "session.h"

namespace vellumark::app {

void arrange(Session& session, const Situation& situation) {
  session.open(situation.deck);
  if (!situation.style.empty()) session.chooseStyle(situation.style);
  // What the host refuses here was asked for wrongly, unless the deck is broken.
  try {
    session.goToSlide(situation.slide);
    if (!situation.view.empty()) session.showView(parseView(situation.view));
    if (!situation.copy.empty()) session.copyShapes(situation.copy);
    if (!situation.select.empty()) session.selectShapes(situation.select);
    if (!situation.slides.empty()) session.selectSlides(situation.slides);
    if (!situation.text.empty()) session.selectText(situation.text);
    if (!situation.cells.empty()) session.selectCells(situation.cells);
  } catch (const base::Error& error) {
    if (error.number() == base::errors::unspecific) throw deckFailure(situation.deck, error);
    const std::string option = !situation.select.empty()   ? "--select: "
                               : !situation.slides.empty() ? "--slides: "
                               : !situation.text.empty()   ? "--text: "
                               : !situation.cells.empty()  ? "--cells: "
                               : !situation.copy.empty()   ? "--copy: "
                                                           : "--view: ";
    throw Failure(Exit::usage, option + error.description());
  }
}

}  // namespace vellumark::app
