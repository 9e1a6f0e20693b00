#pragma once
// Sorting of keyed lists by a property that is read by name.

#include <string>
#include <utility>

#include "core/failure.h"
#include "core/keyed_list.h"
#include "host/value.h"

namespace vellumark::core {

/// Whether `a` comes before `b`, as values of any type compare: numbers by value and texts by code unit. A
/// number comes before every text, and an empty value counts as 0 or as the empty text. 13 for objects.
bool comesBefore(const host::Value& a, const host::Value& b);

/// Sorts a list in place by selection: each position in turn gets the best of what is left, the first of
/// several equals. `property(item, name)` reads an item's property. What is moved goes in under the key that
/// it reads as `keyProperty`, and without a key where that is empty, because moving loses the key.
template <typename T, typename Reader>
void SortCollection(KeyedList<T>& list, const std::string& sortProperty, bool descending,
                    const std::string& keyProperty, Reader&& property) {
  trap("Globals, SortCollection", [&] {
    const int count = list.Count();
    for (int i = 1; i < count; ++i) {
      int best = i;
      host::Value bestValue = property(std::as_const(list).Item(i), sortProperty);
      for (int j = i + 1; j <= count; ++j) {
        host::Value value = property(std::as_const(list).Item(j), sortProperty);
        if (descending ? comesBefore(bestValue, value) : comesBefore(value, bestValue)) {
          best = j;
          bestValue = std::move(value);
        }
      }
      if (best == i) continue;
      T item = std::move(list.Item(best));
      list.Remove(best);
      const std::string key =
          keyProperty.empty() ? std::string() : property(std::as_const(item), keyProperty).toString();
      list.AddBefore(i, std::move(item), key);
    }
  });
}

}  // namespace vellumark::core
