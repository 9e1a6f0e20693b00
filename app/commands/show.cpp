#include "commands/show.h"

#include <nlohmann/json.hpp>

#include "console.h"
#include "deck/embedded_host.h"
#include "deck_report.h"
#include "files.h"

namespace vellumark::app {

Exit show(const ShowOptions& options) {
  requireDeck(options.deck);
  const deck::EmbeddedHost host;
  const DeckReport report = readingDeck(options.deck, [&] {
    return reportDeck(host.application().Presentations().Open(options.deck, true, false, false));
  });
  print(options.json ? jsonText(toJson(report)) : toText(report));
  return Exit::done;
}

}  // namespace vellumark::app
