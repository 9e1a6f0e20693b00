#pragma once
// Ordered lists whose items also have keys, and their sorting.

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::core {

/// An ordered list, counted from 1, in which an item may have a key. Keys match in any case.
template <typename T>
class KeyedList {
 public:
  int Count() const { return static_cast<int>(items_.size()); }
  bool empty() const { return items_.empty(); }
  /// Appends an item; 457 where the key is taken.
  void Add(T item, const std::string& key = {}) { insert(items_.size(), std::move(item), key); }
  /// Inserts an item before the one at `position`.
  void AddBefore(int position, T item, const std::string& key = {}) {
    insert(index(position), std::move(item), key);
  }
  /// 9 outside the list.
  T& Item(int position) { return items_[index(position)].item; }
  const T& Item(int position) const { return items_[index(position)].item; }
  /// 5 for a key that is not there.
  const T& Item(const std::string& key) const {
    const auto found = find(key);
    if (found == items_.end()) base::raise(base::errors::invalidCall);
    return found->item;
  }
  bool contains(const std::string& key) const { return find(key) != items_.end(); }
  void Remove(int position) { items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index(position))); }
  void clear() { items_.clear(); }

 private:
  struct Entry {
    T item;
    std::string key;
  };

  std::size_t index(int position) const {
    if (position < 1 || position > Count()) base::raise(base::errors::subscript);
    return static_cast<std::size_t>(position) - 1;
  }
  auto find(const std::string& key) const {
    return std::find_if(items_.begin(), items_.end(), [&](const Entry& entry) {
      return !entry.key.empty() && base::equalsIgnoreCase(entry.key, key);
    });
  }
  void insert(std::size_t at, T item, const std::string& key) {
    if (!key.empty() && contains(key)) base::raise(base::errors::duplicateKey);
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), Entry{std::move(item), key});
  }

  std::vector<Entry> items_;
};

}  // namespace vellumark::core
