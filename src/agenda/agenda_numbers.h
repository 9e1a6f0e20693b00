#pragma once
// Numbers and times of an agenda's items, as the dialog's tree and the slides both count them.

#include <cstdint>
#include <string>

namespace vellumark::agenda {

/// How a style numbers what isn't a plain item of the first level.
struct NumberRules {
  std::string enumerate2ndLevel;    ///< "dot", "continuous", anything else for no number
  std::int16_t enumerateBreak = 0;  ///< 1 numbers breaks like other items
};

/// The counters of one walk over the items.
struct AgendaNumbers {
  enum class Kind {
    none,       ///< the item takes no number
    main,       ///< the next main number, under which the second level begins anew
    mainBreak,  ///< the next main number, the second level going on
    sub,        ///< main and sub number
    continued   ///< the next main number, for an item of the second level
  };

  /// Counts an item that is shown and tells what its number is made of.
  Kind count(std::int16_t level, bool isBreak, const NumberRules& rules);
  /// "3", or "3.1" for a number of the second level.
  std::string text(Kind kind) const;

  std::int16_t mainNumber = 0;
  std::int16_t subNumber = 0;
};

/// Minutes after midnight as "hh:mm". Whole days are dropped, so that times past midnight wrap round.
std::string timeText(std::int16_t minutes);

}  // namespace vellumark::agenda
