#pragma once
// What a statement raised, for tables of expected failures.

#include "base/error.h"

namespace vellumark::test {

/// The number of the base::Error that `statement` raises, 0 where it raises none.
template <typename Statement>
int errorNumber(Statement&& statement) {
  try {
    static_cast<void>(statement());
    return 0;
  } catch (const base::Error& error) {
    return error.number();
  }
}

}  // namespace vellumark::test
