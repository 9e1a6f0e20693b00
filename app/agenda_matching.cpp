#include "agenda_matching.h"

#include <algorithm>
#include <functional>
#include <string>

namespace vellumark::app {
namespace {

/// Longer texts are compared by their beginnings.
constexpr std::size_t mostCompared = 60;
constexpr double alike = 0.5;

/// A table of the best values for the first i of one list and the first j of another: either's last one is
/// left out, or both are taken together for what `together` adds.
class BestPairs {
 public:
  BestPairs(std::size_t rows, std::size_t columns,
            const std::function<double(std::size_t, std::size_t)>& together)
      : columns_(columns), values_((rows + 1) * (columns + 1)) {
    for (std::size_t i = 1; i <= rows; ++i) {
      for (std::size_t j = 1; j <= columns; ++j) {
        at(i, j) = std::max({at(i - 1, j), at(i, j - 1), at(i - 1, j - 1) + together(i - 1, j - 1)});
      }
    }
  }
  double& at(std::size_t i, std::size_t j) { return values_[i * (columns_ + 1) + j]; }

 private:
  std::size_t columns_;
  std::vector<double> values_;
};

/// How alike two texts are, from 0 to 1: what they have in common in the same order.
double likeness(const std::string& a, const std::string& b) {
  const std::size_t first = std::min(a.size(), mostCompared), second = std::min(b.size(), mostCompared);
  if (first + second == 0) return 1;
  BestPairs common(first, second, [&](std::size_t i, std::size_t j) { return a[i] == b[j] ? 1.0 : 0.0; });
  return 2 * common.at(first, second) / static_cast<double>(first + second);
}

class Matching {
 public:
  using Partners = std::vector<std::optional<std::size_t>>;

  Matching(const std::vector<AgendaItem>& before, const std::vector<AgendaItem>& after)
      : before_(before), after_(after), newOf_(before.size()), oldOf_(after.size()) {}

  void matchEqual(const std::function<bool(const AgendaItem&, const AgendaItem&)>& same) {
    for (std::size_t j = 0; j < after_.size(); ++j) {
      for (std::size_t i = 0; i < before_.size() && !oldOf_[j]; ++i) {
        if (!newOf_[i] && same(before_[i], after_[j])) pair(i, j);
      }
    }
  }

  /// Pairs what is left over between the same two neighbours, the beginnings and ends of the lists among
  /// them.
  void matchBetween() {
    for (std::size_t begin = 0; begin < oldOf_.size();) {
      std::size_t end = begin;
      while (end < oldOf_.size() && !oldOf_[end]) ++end;
      const std::size_t oldBegin = begin == 0 ? 0 : *oldOf_[begin - 1] + 1;
      const std::size_t oldEnd = end == oldOf_.size() ? newOf_.size() : *oldOf_[end];
      bool free = oldBegin <= oldEnd;
      for (std::size_t i = oldBegin; i < oldEnd; ++i) free = free && !newOf_[i];
      if (free) pairRuns(oldBegin, oldEnd, begin, end);
      begin = end + 1;
    }
  }

  /// Pairs what is left over anywhere, the most alike first.
  void matchAlike() {
    struct Candidate {
      double likeness;
      std::size_t i, j;
    };
    std::vector<Candidate> candidates;
    for (std::size_t i = 0; i < before_.size(); ++i) {
      for (std::size_t j = 0; j < after_.size(); ++j) {
        if (newOf_[i] || oldOf_[j]) continue;
        const double found = likeness(before_[i].text, after_[j].text);
        if (found >= alike) candidates.push_back({found, i, j});
      }
    }
    std::ranges::stable_sort(candidates, std::greater(), &Candidate::likeness);
    for (const Candidate& one : candidates) {
      if (!newOf_[one.i] && !oldOf_[one.j]) pair(one.i, one.j);
    }
  }

  const Partners& result() const { return oldOf_; }

 private:
  void pair(std::size_t i, std::size_t j) {
    newOf_[i] = j;
    oldOf_[j] = i;
  }

  /// As many pairs as there can be, the most alike.
  void pairRuns(std::size_t oldBegin, std::size_t oldEnd, std::size_t begin, std::size_t end) {
    const auto together = [&](std::size_t i, std::size_t j) {
      return 1 + likeness(before_[oldBegin + i].text, after_[begin + j].text);
    };
    BestPairs best(oldEnd - oldBegin, end - begin, together);
    for (std::size_t i = oldEnd - oldBegin, j = end - begin; i > 0 && j > 0;) {
      if (best.at(i, j) == best.at(i - 1, j)) {
        --i;
      } else if (best.at(i, j) == best.at(i, j - 1)) {
        --j;
      } else {
        --i;
        --j;
        pair(oldBegin + i, begin + j);
      }
    }
  }

  const std::vector<AgendaItem>& before_;
  const std::vector<AgendaItem>& after_;
  Partners newOf_, oldOf_;
};

}  // namespace

std::vector<std::optional<std::size_t>> matchItems(const std::vector<AgendaItem>& before,
                                                   const std::vector<AgendaItem>& after) {
  Matching matching(before, after);
  matching.matchEqual(
      [](const AgendaItem& a, const AgendaItem& b) { return a.text == b.text && a.level == b.level; });
  matching.matchEqual([](const AgendaItem& a, const AgendaItem& b) { return a.text == b.text; });
  matching.matchBetween();
  matching.matchAlike();
  return matching.result();
}

}  // namespace vellumark::app
