#pragma once
// What crosses the seam to the host: arguments and results of its members.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace vellumark::host {

class Object;
using ObjectRef = std::shared_ptr<Object>;

/// Stands for an optional argument that is left out.
struct Missing {
  friend bool operator==(Missing, Missing) = default;
};
inline constexpr Missing missing{};

/// A value of the host: empty, missing, bool, int32, float, double, string (UTF-8) or object. Reading it as
/// another type converts as the language does: 13 where that is impossible, 6 out of range.
class Value {
 public:
  Value() = default;
  Value(Missing) : store_(Missing{}) {}                          // NOLINT(google-explicit-constructor)
  Value(bool value) : store_(value) {}                           // NOLINT(google-explicit-constructor)
  Value(std::int32_t value) : store_(value) {}                   // NOLINT(google-explicit-constructor)
  Value(float value) : store_(value) {}                          // NOLINT(google-explicit-constructor)
  Value(double value) : store_(value) {}                         // NOLINT(google-explicit-constructor)
  Value(std::string value) : store_(std::move(value)) {}         // NOLINT(google-explicit-constructor)
  Value(std::string_view value) : store_(std::string(value)) {}  // NOLINT(google-explicit-constructor)
  Value(const char* value) : store_(std::string(value)) {}       // NOLINT(google-explicit-constructor)
  Value(ObjectRef value) : store_(std::move(value)) {}           // NOLINT(google-explicit-constructor)
  template <typename T, typename = std::enable_if_t<std::is_base_of_v<Object, T>>>
  Value(std::shared_ptr<T> value)
      : store_(ObjectRef(std::move(value))) {}  // NOLINT(google-explicit-constructor)

  bool isEmpty() const { return std::holds_alternative<std::monostate>(store_); }
  bool isMissing() const { return std::holds_alternative<Missing>(store_); }
  bool isString() const { return std::holds_alternative<std::string>(store_); }
  bool isObject() const { return std::holds_alternative<ObjectRef>(store_); }
  bool isNumber() const {
    return std::holds_alternative<std::int32_t>(store_) || std::holds_alternative<float>(store_) ||
           std::holds_alternative<double>(store_) || std::holds_alternative<bool>(store_);
  }
  bool isBool() const { return std::holds_alternative<bool>(store_); }
  bool isSingle() const { return std::holds_alternative<float>(store_); }
  bool isFloating() const {
    return std::holds_alternative<float>(store_) || std::holds_alternative<double>(store_);
  }

  /// As boolean: any number but 0 is true.
  bool toBool() const;
  /// As 32-bit integer, halves to even; true is -1.
  std::int32_t toInt() const;
  float toFloat() const;
  double toDouble() const;
  /// As text: numbers in their shortest form, "True" and "False".
  std::string toString() const;
  /// The object; 424-like failure 13 for other values, 91 where the object is nothing.
  ObjectRef toObject() const;

  template <typename T>
  T as() const {
    if constexpr (std::is_same_v<T, bool>) {
      return toBool();
    } else if constexpr (std::is_same_v<T, float>) {
      return toFloat();
    } else if constexpr (std::is_same_v<T, double>) {
      return toDouble();
    } else if constexpr (std::is_same_v<T, std::string>) {
      return toString();
    } else if constexpr (std::is_enum_v<T> || std::is_same_v<T, std::int32_t>) {
      return static_cast<T>(toInt());
    } else if constexpr (std::is_same_v<T, Value>) {
      return *this;
    } else {
      return T(toObject());
    }
  }

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, Missing, bool, std::int32_t, float, double, std::string, ObjectRef> store_;
};

/// The Office family's booleans on the wire: true is -1, false is 0.
inline Value triState(bool value) { return Value(std::int32_t{value ? -1 : 0}); }
/// What a range answers where its members differ.
inline constexpr std::int32_t mixed = -2;

}  // namespace vellumark::host
