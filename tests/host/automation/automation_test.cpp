// The two adapters face to face: a call that leaves as COM and comes back must be the call that it was.

#include <gtest/gtest.h>

#include "base/error_number.h"
#include "host/automation/event_sink.h"
#include "host/automation/probe.h"
#include "host/automation/served_object.h"

namespace vellumark::host::automation::test {
namespace {

const long liveBefore = liveObjects();

class Automation : public testing::Test {
 protected:
  ~Automation() override { EXPECT_EQ(liveObjects(), liveBefore) << "somebody still holds an object"; }
};

TEST_F(Automation, ValuesOfAllTypesCrossUnchangedInBothDirections) {
  Served served;
  const ObjectRef nested = std::make_shared<Probe>();
  const std::vector<Value> values{Value(),
                                  Value(missing),
                                  Value(true),
                                  Value(false),
                                  Value(std::int32_t{INT32_MIN}),
                                  Value(1.1f),
                                  Value(1e300),
                                  Value(""),
                                  Value("Größe \xF0\x9F\x98\x80"),
                                  Value(std::string("a\0b", 3)),
                                  Value(nested),
                                  Value(ObjectRef())};
  served.call("Anything", values);
  EXPECT_EQ(served.probe->last.arguments, values)
      << "the order is kept, and objects of this program come back as such";
  for (const Value& value : values) {
    if (value.isMissing()) continue;
    served.probe->answer = value;
    EXPECT_EQ(served.call("Anything"), value);
  }
}

TEST_F(Automation, ForeignTypesAreReadAsWhatTheSeamHas) {
  const auto read = [](VARTYPE type, auto set) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = type;
    set(variant);
    return fromVariant(variant);
  };
  EXPECT_EQ(read(VT_I2, [](VARIANT& v) { v.iVal = -3; }), Value(std::int32_t{-3}));
  EXPECT_EQ(read(VT_UI1, [](VARIANT& v) { v.bVal = 200; }), Value(std::int32_t{200}));
  EXPECT_EQ(read(VT_UI4, [](VARIANT& v) { v.ulVal = 4000000000u; }), Value(4e9))
      << "too large for 32 bits with sign";
  EXPECT_EQ(read(VT_I8, [](VARIANT& v) { v.llVal = 7; }), Value(std::int32_t{7}));
  EXPECT_EQ(read(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 12500; }), Value(1.25));
  EXPECT_EQ(read(VT_DATE, [](VARIANT& v) { v.date = 39000.5; }), Value(39000.5));
  EXPECT_EQ(read(VT_NULL, [](VARIANT&) {}), Value());
  VARIANT_BOOL flag = VARIANT_TRUE;
  EXPECT_EQ(read(VT_BOOL | VT_BYREF, [&](VARIANT& v) { v.pboolVal = &flag; }), Value(true));
  VARIANT inner;
  inner.vt = VT_R4;
  inner.fltVal = 2.5f;
  EXPECT_EQ(read(VT_VARIANT | VT_BYREF, [&](VARIANT& v) { v.pvarVal = &inner; }), Value(2.5f));
  EXPECT_EQ(vellumark::test::errorNumber(
                [&] { read(VT_ARRAY | VT_VARIANT, [](VARIANT& v) { v.parray = nullptr; }); }),
            base::errors::typeMismatch);
}

TEST_F(Automation, PutsArriveAsPutsWithTheNewValueLast) {
  Served served;
  served.call("Item", {Value(std::int32_t{2}), Value(0.5f)}, Invoke::put);
  EXPECT_EQ(served.probe->last.kind, Invoke::put);
  EXPECT_EQ(served.probe->last.arguments, (std::vector<Value>{Value(std::int32_t{2}), Value(0.5f)}));
  const ObjectRef picture = std::make_shared<Probe>();
  served.call("Picture", {Value(picture)}, Invoke::put);
  EXPECT_EQ(served.probe->last.arguments, std::vector<Value>{Value(picture)});
}

TEST_F(Automation, FailuresKeepNumberSourceAndDescription) {
  Served served;
  const struct {
    int number;
    const char* description;
  } failures[] = {
      {base::errors::invalidRequest, "Selection (unknown member): Invalid request."},
      {base::errors::outOfRange, "The specified value is out of range."},
      {base::errors::unspecific, "/tmp/x.pptx: part slide1.xml is broken"},
      {base::errors::noSuchMember, "Object doesn't support this property or method"},
      {base::errors::typeMismatch, "Type mismatch"},
      {base::errors::typeMismatch, "The name has to be a text"},
      {base::errors::wrongArgumentCount, "Wrong number of arguments or invalid property assignment"},
      {base::errors::subscript, "Integer out of range. 7 is not in 1 to 3."},
      {base::errors::objectNotSet, "Object variable or With block variable not set"},
      {base::errors::registryWrite, "Failed to set registry value"}};
  for (const auto& [number, description] : failures) {
    served.probe->failure = base::Error(number, description, "Host.Source");
    try {
      served.call("Anything");
      ADD_FAILURE() << number << " was lost";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), number);
      EXPECT_EQ(error.description(), description);
    }
  }
  served.probe->failure.reset();
  EXPECT_EQ(vellumark::test::errorNumber([&] { served.call("Unknown"); }), base::errors::noSuchMember);
}

TEST_F(Automation, TheSameObjectIsTheSameFromOutside) {
  const ObjectRef object = std::make_shared<Probe>();
  const auto first = wrap(object), second = wrap(object);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(unwrap(first.Get()), object);
  const ObjectRef foreign = std::make_shared<AutomationObject>(first.Get());
  EXPECT_EQ(wrap(foreign).Get(), first.Get()) << "what came from COM goes back as what it was";
}

TEST_F(Automation, ClassesHaveTheirNames) {
  EXPECT_EQ(Served("Application").object->typeName(), "Application");
  EXPECT_EQ(Served("CommandBarButton").object->typeName(), "CommandBarButton");
}

/// Counts how often the host is asked for a member's number.
class Counting : public Unknown<Counting, IDispatch> {
 public:
  explicit Counting(ComPtr<IDispatch> inner) : inner_(std::move(inner)) {}
  void* find(REFIID id) {
    return id == IID_IUnknown || id == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return inner_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return inner_->GetTypeInfo(index, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    ++asked;
    return inner_->GetIDsOfNames(id, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID id, LCID locale, WORD kind, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* failure, UINT* faulty) override {
    return inner_->Invoke(number, id, locale, kind, arguments, result, failure, faulty);
  }
  int asked = 0;

 private:
  ComPtr<IDispatch> inner_;
};

TEST_F(Automation, MemberNumbersAreAskedForOncePerTypeAndMember) {
  int asked = 0;
  for (const char* type : {"CountedShape", "CountedShape", "CountedSlide"}) {
    const auto probe = std::make_shared<Probe>(type);
    const ComPtr<Counting> counting = adopt(new Counting(wrap(probe)));
    AutomationObject object(counting.Get());
    for (int i = 0; i < 3; ++i) object.invoke(member::Left, Invoke::get, {});
    object.invoke(member::Top, Invoke::get, {});
    asked += counting->asked;
  }
  EXPECT_EQ(asked, 4) << "two members of two types";
}

TEST_F(Automation, EventsArriveAndGiveBackWhatGoesByReference) {
  Served served("Application");
  std::vector<Value> received;
  Subscription subscription = subscribe(served.object, [&](Member event, std::span<Value> arguments) {
    if (event != member::PresentationBeforeSave) return;
    received.assign(arguments.begin(), arguments.end());
    arguments[1] = true;
  });
  ASSERT_TRUE(served.probe->handler);
  Value arguments[] = {Value(ObjectRef(served.probe)), Value(false)};
  served.probe->handler(member::PresentationBeforeSave, arguments);
  EXPECT_EQ(received, (std::vector<Value>{Value(ObjectRef(served.probe)), Value(false)}));
  EXPECT_EQ(arguments[1], Value(true)) << "the cancel flag comes back";
  subscription.reset();
  EXPECT_FALSE(served.probe->handler) << "disconnected";
}

TEST_F(Automation, AListenerThatFailsOrLeavesDuringItsEventDisturbsNobody) {
  Served served("CommandBarButton");
  Subscription subscription;
  subscription = subscribe(served.object, [&](Member, std::span<Value>) {
    subscription.reset();
    base::raise(base::errors::overflow);
  });
  const EventHandler raise = served.probe->handler;
  Value arguments[] = {Value(ObjectRef(served.probe)), Value(false)};
  raise(member::Click, arguments);
  raise(member::Click, arguments);  // a host that goes on although nobody listens
  EXPECT_EQ(arguments[1], Value(false));
}

TEST_F(Automation, OnlyObjectsThatRaiseEventsTakeListeners) {
  Served served("Shape");
  EXPECT_EQ(vellumark::test::errorNumber([&] { subscribe(served.object, [](Member, std::span<Value>) {}); }),
            base::errors::noSuchMember);
}

TEST_F(Automation, ASinkIsKnownByTheIdOfItsEvents) {
  for (const EventInterface& events : eventInterfaces()) {
    const ComPtr<EventSink> sink = adopt(new EventSink(events, [](Member, std::span<Value>) {}));
    ComPtr<IUnknown> found;
    EXPECT_EQ(sink->QueryInterface(events.id, reinterpret_cast<void**>(found.GetAddressOf())), S_OK)
        << events.source;
    EXPECT_EQ(
        sink->QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(found.ReleaseAndGetAddressOf())),
        E_NOINTERFACE);
  }
}

}  // namespace
}  // namespace vellumark::host::automation::test
