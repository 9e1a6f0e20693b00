#include "core/sort_collection.h"

#include "base/error.h"
#include "base/text.h"

namespace vellumark::core {

bool comesBefore(const host::Value& a, const host::Value& b) {
  const auto comparable = [](const host::Value& value) {
    return value.isEmpty() || value.isNumber() || value.isString();
  };
  if (!comparable(a) || !comparable(b)) base::raise(base::errors::typeMismatch);

  const auto text = [](const host::Value& value) {
    return value.isEmpty() ? std::u16string() : base::toUtf16(value.toString());
  };
  const auto number = [](const host::Value& value) { return value.isEmpty() ? 0.0 : value.toDouble(); };

  if (a.isNumber() && b.isString()) return true;
  if (a.isString() && b.isNumber()) return false;
  if (a.isString() || b.isString()) return text(a) < text(b);
  return number(a) < number(b);
}

}  // namespace vellumark::core
