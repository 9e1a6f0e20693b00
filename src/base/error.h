#pragma once
// The one kind of failure that the add-in knows: a number, the source that raised it and a description.

#include <exception>
#include <string>
#include <utility>

namespace vellumark::base {

/// A failure of the language, of the host or of the platform. `what()` is the description.
class Error : public std::exception {
 public:
  Error(int number, std::string description, std::string source = {})
      : number_(number), description_(std::move(description)), source_(std::move(source)) {}

  int number() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }
  const std::string& source() const noexcept { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
  std::string source_;
};

/// The numbers of failures. Small ones belong to the language, large negative ones to the host.
namespace errors {
inline constexpr int invalidCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int subscript = 9;
inline constexpr int divisionByZero = 11;
inline constexpr int typeMismatch = 13;
inline constexpr int internal = 51;
inline constexpr int fileNotFound = 53;
inline constexpr int fileAccess = 75;
inline constexpr int pathNotFound = 76;
inline constexpr int objectNotSet = 91;
inline constexpr int noSuchMember = 438;
inline constexpr int noSuchNamedArgument = 448;
inline constexpr int wrongArgumentCount = 450;
inline constexpr int duplicateKey = 457;
inline constexpr int registryWrite = 26001;
inline constexpr int invalidRequest = -2147188160;  ///< 80048240: not possible in this state
inline constexpr int unspecific = -2147467259;  ///< 80004005: a file can't be opened, a window in transition
inline constexpr int outOfRange = -2147024809;  ///< 80070057: this object lacks that member or item
}  // namespace errors

/// The standard description that belongs to a number, "Application-defined or object-defined error" if none
/// does.
std::string standardDescription(int number);

/// Throws an Error with the standard description of `number`.
[[noreturn]] void raise(int number);

/// Throws an Error with a description of its own.
[[noreturn]] void raise(int number, std::string description);

}  // namespace vellumark::base
