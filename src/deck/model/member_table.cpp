#include "deck/model/member_table.h"

namespace vellumark::deck {

std::size_t collectionIndex(std::int32_t index, std::size_t count) {
  if (index < 1 || static_cast<std::size_t>(index) > count) {
    base::raise(base::errors::invalidRequest, "Integer out of range. " + std::to_string(index) +
                                                  " is not in the valid range of 1 to " +
                                                  std::to_string(count) + ".");
  }
  return static_cast<std::size_t>(index) - 1;
}

void raiseFormatError(const FormatError& error) { base::raise(base::errors::unspecific, error.what()); }

}  // namespace vellumark::deck
