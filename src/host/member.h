#pragma once
// Interned member names of the host's object model.

#include <cstdint>
#include <string>
#include <string_view>

namespace vellumark::host {

/// A member name as a small number: comparing two compares two integers. Names match in any case, as the
/// host's do; the first spelling is kept.
class Member {
 public:
  /// The member of that name, interned on first use. Late-bound names come in this way.
  explicit Member(std::string_view name);

  std::uint16_t id() const { return id_; }
  const std::string& name() const;
  friend bool operator==(Member, Member) = default;

  /// A member that is known at compile time, by its place in members.inc.
  struct Known {
    std::uint16_t id;
  };
  constexpr Member(Known known) : id_(known.id) {}  // NOLINT(google-explicit-constructor)

 private:
  std::uint16_t id_;
};

namespace member {
namespace ids {
enum Id : std::uint16_t {
#define VELLUMARK_MEMBER(name) name,
#include "host/members.inc"
#undef VELLUMARK_MEMBER
  count
};
}  // namespace ids
#define VELLUMARK_MEMBER(name) inline constexpr Member name{Member::Known{ids::name}};
#include "host/members.inc"
#undef VELLUMARK_MEMBER
}  // namespace member

}  // namespace vellumark::host
