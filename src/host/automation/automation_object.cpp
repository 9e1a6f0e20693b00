#include "host/automation/automation_object.h"

#include <cstring>
#include <map>
#include <vector>

#include "host/automation/event_sink.h"
#include "host/automation/failures.h"
#include "host/automation/variant.h"

namespace vellumark::host::automation {
namespace {

struct IdOrder {
  bool operator()(const IID& a, const IID& b) const { return std::memcmp(&a, &b, sizeof a) < 0; }
};

/// The numbers of members by type. Types are few and members fewer; objects of a host live on one thread, and
/// so does this.
using Numbers = std::map<std::uint16_t, DISPID>;
std::map<IID, Numbers, IdOrder>& numbersByType() {
  static std::map<IID, Numbers, IdOrder> numbers;
  return numbers;
}

DISPID askForNumber(IDispatch& dispatch, Member member) {
  std::wstring name = toWide(member.name());
  LPOLESTR names[] = {name.data()};
  DISPID number = DISPID_UNKNOWN;
  const HRESULT result = dispatch.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number);
  if (FAILED(result)) raiseFor(result);
  return number;
}

/// Arguments in the order of COM, which is the reverse of ours.
class ArgumentList {
 public:
  explicit ArgumentList(std::span<const Value> arguments) {
    values_.reserve(arguments.size());
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
      values_.push_back(toVariant(*value));
  }
  ~ArgumentList() {
    for (VARIANT& value : values_) VariantClear(&value);
  }
  ArgumentList(const ArgumentList&) = delete;
  ArgumentList& operator=(const ArgumentList&) = delete;

  /// For a put, the new value is a named argument.
  DISPPARAMS parameters(bool put) {
    DISPPARAMS parameters{values_.data(), nullptr, static_cast<UINT>(values_.size()), 0};
    if (put) {
      parameters.rgdispidNamedArgs = &putName_;
      parameters.cNamedArgs = 1;
    }
    return parameters;
  }

 private:
  std::vector<VARIANT> values_;
  DISPID putName_ = DISPID_PROPERTYPUT;
};

}  // namespace

std::string AutomationObject::typeName() const {
  ComPtr<ITypeInfo> info;
  if (FAILED(dispatch_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) || !info) return {};
  Bstr name;
  if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr))) return {};
  std::string text = fromBstr(name.get());
  if (text.starts_with('_')) text.erase(0, 1);
  return text;
}

/// The id of the object's type information, asked for once.
IID AutomationObject::type() {
  if (typeKnown_) return type_;
  typeKnown_ = true;
  ComPtr<ITypeInfo> info;
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(dispatch_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) && info &&
      SUCCEEDED(info->GetTypeAttr(&attributes)) && attributes != nullptr) {
    type_ = attributes->guid;
    info->ReleaseTypeAttr(attributes);
  }
  return type_;
}

DISPID AutomationObject::numberOf(Member member) {
  const IID id = type();
  if (id == IID_NULL) return askForNumber(*dispatch_.Get(), member);
  Numbers& numbers = numbersByType()[id];
  const auto known = numbers.find(member.id());
  if (known != numbers.end()) return known->second;
  const DISPID number = askForNumber(*dispatch_.Get(), member);
  numbers.emplace(member.id(), number);
  return number;
}

Value AutomationObject::invoke(Member member, Invoke kind, std::span<const Value> arguments) {
  const bool put = kind == Invoke::put;
  const DISPID number = numberOf(member);
  ArgumentList list(arguments);
  DISPPARAMS parameters = list.parameters(put);
  // Hosts have properties where scripts see methods and the other way round, so reads and calls ask for
  // either.
  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  if (put)
    flags =
        !arguments.empty() && arguments.back().isObject() ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;

  const auto call = [&](WORD how, VARIANT* result, EXCEPINFO* failure) {
    UINT faulty = 0;
    return dispatch_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters, result, failure,
                             &faulty);
  };
  Variant answer;
  EXCEPINFO failure{};
  HRESULT result = call(flags, put ? nullptr : answer.get(), &failure);
  if (result == DISP_E_MEMBERNOTFOUND && flags == DISPATCH_PROPERTYPUTREF) {
    result = call(DISPATCH_PROPERTYPUT, nullptr, &failure);
  }
  if (FAILED(result)) raiseFor(result, &failure);
  return fromVariant(answer.value());
}

Subscription AutomationObject::subscribe(EventHandler handler) {
  ComPtr<IConnectionPointContainer> container;
  if (SUCCEEDED(dispatch_.As(&container))) {
    for (const EventInterface& events : eventInterfaces()) {
      if (Subscription subscription = EventSink::connect(*container.Get(), events, handler))
        return subscription;
    }
  }
  base::raise(base::errors::noSuchMember);
}

}  // namespace vellumark::host::automation
