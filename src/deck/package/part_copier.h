#pragma once
// Copies of parts with everything that they refer to, within a package or into another one.

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "deck/package/package.h"

namespace vellumark::deck {

/// Pictures, sounds and films that stand in several packages, so that a package which has one already isn't
/// given it twice.
class SharedMedia {
 public:
  void note(const PartRef& one, const PartRef& same);
  /// The part in `package` that holds the same; nothing where none is known.
  PartRef in(const Package& package, const PartRef& media) const;

 private:
  struct Pair {
    std::weak_ptr<Part> one, same;
  };
  std::vector<Pair> pairs_;
};

/// Brings parts into a package, each once however often it is referred to. The relationships of a copy have
/// the ids of the original's, so that its XML stays as it is. Within one package media are shared instead of
/// copied. What belongs to a presentation as a whole (slides, layouts, masters, notes, comments) is never
/// copied on the way: another package has stand-ins for it, or it is left out.
class PartCopier {
 public:
  explicit PartCopier(Package& to, SharedMedia* media = nullptr) : to_(to), media_(media) {}

  Package& to() const { return to_; }

  /// References to `source` lead to `target` in the copies, or nowhere where that is nothing.
  void standIn(const PartRef& source, PartRef target) { known_[source] = std::move(target); }

  /// The part in the package that stands for `source`; nothing where references to it are left out.
  PartRef copy(const PartRef& source);
  /// A copy of `source` itself, whatever it is and however often it was copied before.
  PartRef copyAnew(const PartRef& source);
  /// The same without its relationships.
  PartRef copyAlone(const PartRef& source);

  /// Relates `target` to what a relationship of `source` leads to, and returns the id: `id` or, where that is
  /// empty, a new one. Empty where the relationship is left out.
  std::string relate(Part& source, const Relationship& relationship, Part& target,
                     const std::string& id = {});

  /// The ids of relationships that were left out when `copy` was made.
  std::vector<std::string> leftOut(const PartRef& copy) const;

 private:
  struct Task {
    PartRef source, target;
  };
  PartRef counterpart(const PartRef& source);
  std::string relateOne(Part& source, const Relationship& relationship, Part& target, const std::string& id);
  void finish();

  Package& to_;
  SharedMedia* media_;
  std::unordered_map<PartRef, PartRef> known_;
  std::vector<Task> tasks_;  ///< copies whose relationships are still to be made
  std::unordered_map<PartRef, std::vector<std::string>> leftOut_;
};

}  // namespace vellumark::deck
