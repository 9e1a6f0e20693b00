#include "host/value.h"

#include "base/conversions.h"
#include "base/error.h"
#include "host/object.h"

namespace vellumark::host {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void mismatch() { base::raise(base::errors::typeMismatch); }

}  // namespace

bool Value::toBool() const {
  return std::visit(
      Overloaded{[](bool value) { return value; }, [](std::int32_t value) { return value != 0; },
                 [](float value) { return value != 0; }, [](double value) { return value != 0; },
                 [](const std::string& value) { return base::toBool(value); },
                 [](std::monostate) { return false; }, [](Missing) -> bool { mismatch(); },
                 [](const ObjectRef&) -> bool { mismatch(); }},
      store_);
}

std::int32_t Value::toInt() const {
  return std::visit(
      Overloaded{[](bool value) { return value ? -1 : 0; }, [](std::int32_t value) { return value; },
                 [](float value) { return base::toInt32(static_cast<double>(value)); },
                 [](double value) { return base::toInt32(value); },
                 [](const std::string& value) { return base::toInt32(value); },
                 [](std::monostate) { return 0; }, [](Missing) -> std::int32_t { mismatch(); },
                 [](const ObjectRef&) -> std::int32_t { mismatch(); }},
      store_);
}

double Value::toDouble() const {
  return std::visit(
      Overloaded{[](bool value) { return value ? -1.0 : 0.0; },
                 [](std::int32_t value) { return static_cast<double>(value); },
                 [](float value) { return static_cast<double>(value); }, [](double value) { return value; },
                 [](const std::string& value) { return base::toDouble(value); },
                 [](std::monostate) { return 0.0; }, [](Missing) -> double { mismatch(); },
                 [](const ObjectRef&) -> double { mismatch(); }},
      store_);
}

float Value::toFloat() const {
  if (const auto* value = std::get_if<float>(&store_)) return *value;
  return base::toSingle(toDouble());
}

std::string Value::toString() const {
  return std::visit(
      Overloaded{[](bool value) { return std::string(value ? "True" : "False"); },
                 [](std::int32_t value) { return std::to_string(value); },
                 [](float value) { return base::singleText(value); },
                 [](double value) { return base::doubleText(value); },
                 [](const std::string& value) { return value; }, [](std::monostate) { return std::string(); },
                 [](Missing) -> std::string { mismatch(); },
                 [](const ObjectRef&) -> std::string { mismatch(); }},
      store_);
}

ObjectRef Value::toObject() const {
  const auto* object = std::get_if<ObjectRef>(&store_);
  if (!object) mismatch();
  if (!*object) base::raise(base::errors::objectNotSet);
  return *object;
}

}  // namespace vellumark::host
