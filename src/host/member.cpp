#include "host/member.h"

#include <deque>
#include <unordered_map>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::host {
namespace {

/// The names by number and the numbers by name in lower case. Objects of the host live on one thread, and so
/// does this.
struct Registry {
  std::deque<std::string> names;
  std::unordered_map<std::string, std::uint16_t> ids;

  Registry() {
#define VELLUMARK_MEMBER(name) add(#name);
#include "host/members.inc"
#undef VELLUMARK_MEMBER
  }

  std::uint16_t add(std::string_view name) {
    const auto [entry, isNew] =
        ids.try_emplace(base::toLower(name), static_cast<std::uint16_t>(names.size()));
    if (isNew) {
      if (names.size() >= UINT16_MAX) base::raise(base::errors::outOfMemory);
      names.emplace_back(name);
    }
    return entry->second;
  }
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

Member::Member(std::string_view name) : id_(registry().add(name)) {}

const std::string& Member::name() const { return registry().names[id_]; }

}  // namespace vellumark::host
