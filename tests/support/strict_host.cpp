#include "support/strict_host.h"

#include <map>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::test {
namespace {

using host::Invoke;
using host::Member;
using host::ObjectRef;
using host::Value;

enum class Type { whole, single, number, text, flag, object, any };
enum class Kind { method, property, readOnly };

struct Parameter {
  Type type;
  bool required;
};

struct Facts {
  Kind kind;
  Type result;
  std::vector<Parameter> parameters;
};

Type typeNamed(std::string_view name) {
  const std::pair<std::string_view, Type> types[] = {{"whole", Type::whole},   {"single", Type::single},
                                                     {"number", Type::number}, {"text", Type::text},
                                                     {"flag", Type::flag},     {"object", Type::object}};
  for (const auto& [known, type] : types) {
    if (known == name) return type;
  }
  return Type::any;
}

using Key = std::pair<std::string, std::uint16_t>;  // class and number of the member

std::map<Key, Facts> readFacts() {
  std::map<Key, Facts> all;
  const auto add = [&](const char* className, const char* member, Kind kind, Type result,
                       const char* parameters) {
    Facts facts{kind, result, {}};
    for (std::string_view word : base::split(parameters, ' ')) {
      const bool required = !word.starts_with('?');
      facts.parameters.push_back({typeNamed(required ? word : word.substr(1)), required});
    }
    all.emplace(Key(className, Member(member).id()), std::move(facts));
  };
#define MEMBER(className, member, kind, result, parameters) \
  add(#className, #member, Kind::kind, Type::result, parameters);
#include "support/host_members.inc"
#undef MEMBER
  return all;
}

const Facts& factsOf(const std::string& className, Member member) {
  static const std::map<Key, Facts> all = readFacts();
  const auto found = all.find(Key(className, member.id()));
  if (found == all.end()) {
    base::raise(base::errors::noSuchMember, className + "." + member.name() + " is not documented");
  }
  return found->second;
}

class StrictObject : public host::Object {
 public:
  explicit StrictObject(ObjectRef below) : below_(std::move(below)) {}
  const ObjectRef& below() const { return below_; }

  std::string typeName() const override { return below_->typeName(); }
  Value invoke(Member member, Invoke kind, std::span<const Value> arguments) override;

 private:
  ObjectRef below_;
};

class StrictSource : public StrictObject, public host::EventSource {
 public:
  using StrictObject::StrictObject;
  host::Subscription subscribe(host::EventHandler handler) override {
    return host::subscribe(below(), [handler](Member event, std::span<Value> arguments) {
      std::vector<Value> passed(arguments.begin(), arguments.end());
      for (Value& value : passed) {
        if (value.isObject()) value = strict(value.toObject());
      }
      handler(event, passed);
      for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!passed[i].isObject()) arguments[i] = passed[i];
      }
    });
  }
};

/// As Automation converts what a caller passes, or a member answers.
Value converted(const Value& value, Type type) {
  switch (type) {
    case Type::whole:
      return value.toInt();
    case Type::single:
      return value.toFloat();
    case Type::number:
      return value.toDouble();
    case Type::text:
      return value.toString();
    case Type::flag:
      return value.toBool();
    case Type::object:
      if (!value.isObject()) base::raise(base::errors::typeMismatch);
      return value;
    case Type::any:
      break;
  }
  return value;
}

Value passed(const Value& value, Type type) {
  Value result = converted(value, type);
  if (!result.isObject() || result == Value(ObjectRef())) return result;
  const auto object = std::dynamic_pointer_cast<StrictObject>(result.toObject());
  return object ? Value(object->below()) : result;
}

/// Runs a conversion; its failure tells of which member.
template <typename Convert>
Value of(const std::string& className, Member member, Convert&& convert) {
  try {
    return convert();
  } catch (const base::Error& error) {
    base::raise(error.number(), className + "." + member.name() + ": " + error.description());
  }
}

Value StrictObject::invoke(Member member, Invoke kind, std::span<const Value> arguments) {
  const bool put = kind == Invoke::put;
  const std::string className = below_->typeName();
  const Facts& facts = factsOf(className, member);
  if (put && facts.kind != Kind::property) base::raise(base::errors::noSuchMember);
  const std::size_t own = arguments.size() - (put ? 1 : 0);
  if (own > facts.parameters.size()) base::raise(base::errors::wrongArgumentCount);
  std::vector<Value> values;
  for (std::size_t i = 0; i < facts.parameters.size(); ++i) {
    const bool given = i < own && !arguments[i].isMissing();
    if (!given && facts.parameters[i].required) base::raise(base::errors::wrongArgumentCount);
    if (i >= own) continue;
    const Type type = facts.parameters[i].type;
    values.push_back(given ? of(className, member, [&] { return passed(arguments[i], type); })
                           : arguments[i]);
  }
  if (put) values.push_back(of(className, member, [&] { return passed(arguments.back(), facts.result); }));
  const Value answer = below_->invoke(member, kind, values);
  if (put || answer.isEmpty()) return answer;
  if (!answer.isObject()) return of(className, member, [&] { return converted(answer, facts.result); });
  return answer == Value(ObjectRef()) ? answer : Value(strict(answer.toObject()));
}

}  // namespace

ObjectRef strict(ObjectRef object) {
  if (!object) return object;
  if (dynamic_cast<host::EventSource*>(object.get()) != nullptr) {
    return std::make_shared<StrictSource>(std::move(object));
  }
  return std::make_shared<StrictObject>(std::move(object));
}

}  // namespace vellumark::test
