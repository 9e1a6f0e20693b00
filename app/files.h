#pragma once
// The decks that a command line names: what can be said about them before the host sees them, and what the
// host's failures with them mean.

#include <string>
#include <utility>

#include "base/error.h"
#include "failure.h"

namespace vellumark::app {

/// A Failure where there is no such file.
void requireDeck(const std::string& deck);

/// A Failure of usage where `out` is the deck itself under whatever name, the host would take it for another
/// file that differs only in the case of letters, or it is of a kind that loses the deck's macros.
void requireOther(const std::string& out, const std::string& deck);

/// The failure that an error of the host while it reads or writes `path` ends the program with.
Failure deckFailure(const std::string& path, const base::Error& error);

/// Runs `body`, in which every failure of the host means that the deck is broken.
template <typename Body>
auto readingDeck(const std::string& deck, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const base::Error& error) {
    throw deckFailure(deck, error);
  }
}

}  // namespace vellumark::app
