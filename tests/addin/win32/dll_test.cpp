// The DLL under hosts that behave, and under hosts that don't.

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "addin/win32/loaded_dll.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "host/automation/served_object.h"
#include "ribbon.h"
#include "support/fake_host.h"
#include "support/temp_folder.h"
#include "windows/window_questions.h"

namespace vellumark::test {

using namespace decks;
namespace {

using host::Value;

Value control(const std::string& id) { return Value(std::make_shared<app::RibbonControl>(id)); }

class Dll : public testing::Test {
 protected:
  Dll() {
    DeckBuilder builder;
    auto slide = builder.slide();
    slide.shape("rect", 10, 20, 100, 50).named("Follower");
    slide.shape("rect", 200, 100, 120, 200).named("Master");
    builder.save(deck_);
  }

  /// A ribbon host with a deck and two shapes selected.
  static std::unique_ptr<deck::EmbeddedHost> host(const std::string& deck) {
    auto host = std::make_unique<deck::EmbeddedHost>("14.0");
    host->open(deck);
    return host;
  }
  static std::vector<host::Shape> selectBoth(deck::EmbeddedHost& host) {
    const host::Shapes shapes = host.application().ActiveWindow().View().Slide().Shapes();
    const std::vector<host::Shape> both{shapes.Item(1), shapes.Item(2)};
    host.selectShapes(both);
    return both;
  }
  static bool enabled(HostedAddIn& addIn) {
    Value answer;
    EXPECT_EQ(addIn.callBack("getEnabled", {control("zp_1036")}, answer), S_OK) << addIn.failure();
    return answer.toBool();
  }

  // Boxes and dialogs that come up are answered as a user would who wants to be rid of them.
  std::unique_ptr<app::Questions> questions_ = app::windowQuestions({}, {});
  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(Dll, ComesUpWorksAndGoesAgainAndAgain) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_FALSE(LoadedDll::isLoaded());
    LoadedDll dll;
    EXPECT_TRUE(dll.canUnload()) << "nobody holds anything yet";
    const auto host = Dll::host(deck_);
    {
      HostedAddIn addIn(dll);
      EXPECT_FALSE(dll.canUnload());
      ASSERT_EQ(addIn.connect(host->application().object()), S_OK);
      const auto shapes = selectBoth(*host);
      EXPECT_TRUE(enabled(addIn)) << "the selection's event has reached the add-in";
      Value answer;
      EXPECT_EQ(addIn.callBack("onAction", {control("zp_1036")}, answer), S_OK) << addIn.failure();
      EXPECT_EQ(shapes[0].Top(), 100);
      EXPECT_EQ(addIn.disconnect(), S_OK);
    }
    EXPECT_TRUE(dll.canUnload()) << "round " << round;
  }
  EXPECT_FALSE(LoadedDll::isLoaded());
}

TEST_F(Dll, OnlyTheClassItselfIsMade) {
  LoadedDll dll;
  ComPtr<IUnknown> found;
  EXPECT_EQ(dll.getClassObject(CLSID_StdGlobalInterfaceTable, IID_PPV_ARGS(&found)),
            CLASS_E_CLASSNOTAVAILABLE);
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(dll.getClassObject(addin::win32::connectClass, IID_PPV_ARGS(&factory)), S_OK);
  HostedAddIn addIn(dll);
  EXPECT_EQ(factory->CreateInstance(addIn.object(), IID_PPV_ARGS(&found)), CLASS_E_NOAGGREGATION);
  ComPtr<IUnknown> first, second;
  addIn.object()->QueryInterface(IID_PPV_ARGS(&first));
  ComPtr<IUnknown> face;
  ASSERT_EQ(
      first->QueryInterface(addin::win32::ribbonInterface, reinterpret_cast<void**>(face.GetAddressOf())),
      S_OK);
  face->QueryInterface(IID_PPV_ARGS(&second));
  EXPECT_EQ(first.Get(), second.Get()) << "each face leads back to the one object";
}

TEST_F(Dll, FailuresOfCallbacksReachTheHostAsResults) {
  LoadedDll dll;
  const auto host = Dll::host(deck_);
  HostedAddIn addIn(dll);
  Value answer;
  EXPECT_EQ(addIn.callBack("getEnabled", {control("zp_1036")}, answer), E_POINTER) << "nothing is connected";
  ASSERT_EQ(addIn.connect(host->application().object()), S_OK);
  EXPECT_EQ(addIn.callBack("noSuchCallback", {}, answer), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(addIn.callBack("getEnabled", {}, answer), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(addIn.callBack("getEnabled", {Value("zp_1036")}, answer), DISP_E_TYPEMISMATCH);
  const auto broken = std::make_shared<FakeObject>(
      "IRibbonControl", std::map<std::string, Value>{},
      std::map<std::string, FakeObject::Function>{{"Id", [](std::span<const Value>) -> Value {
                                                     base::raise(base::errors::unspecific,
                                                                 "the window is gone");
                                                   }}});
  EXPECT_EQ(addIn.callBack("getEnabled", {Value(broken)}, answer), DISP_E_EXCEPTION);
  EXPECT_EQ(addIn.failure(), "the window is gone");
  EXPECT_EQ(addIn.disconnect(), S_OK);
}

TEST_F(Dll, TheRibbonIsThereBeforeTheConnection) {
  LoadedDll dll;
  HostedAddIn addIn(dll);
  std::string definition;
  EXPECT_EQ(addIn.customUi(definition), S_OK);
  EXPECT_NE(definition.find("zp_1032"), std::string::npos);
}

TEST_F(Dll, AHostThatFailsIsReportedAndLetGo) {
  LoadedDll dll;
  {
    HostedAddIn addIn(dll);
    // It calls itself PowerPoint and then answers nothing.
    const auto application = std::make_shared<FakeObject>(
        "Application", std::map<std::string, Value>{{"Name", Value("Microsoft PowerPoint")}});
    EXPECT_EQ(addIn.connect(application), S_OK);
    EXPECT_EQ(addIn.disconnect(), S_OK);
  }
  EXPECT_TRUE(dll.canUnload());
}

TEST_F(Dll, AnotherProgramIsLeftAlone) {
  LoadedDll dll;
  const auto application = std::make_shared<FakeObject>(
      "Application", std::map<std::string, Value>{{"Name", Value("Microsoft Excel")}});
  HostedAddIn addIn(dll);
  EXPECT_EQ(addIn.connect(application), S_OK);
  EXPECT_FALSE(application->hasListener());
  EXPECT_EQ(addIn.disconnect(), S_OK);
}

TEST_F(Dll, EventsAfterTheDisconnectionDoNothing) {
  LoadedDll dll;
  const auto host = Dll::host(deck_);
  {
    HostedAddIn addIn(dll);
    ASSERT_EQ(addIn.connect(host->application().object()), S_OK);
    // A listener that disconnects the add-in first: the host then goes on with its walk over the listeners.
    selectBoth(*host);
    EXPECT_EQ(addIn.disconnect(), S_OK);
    selectBoth(*host);
  }
  selectBoth(*host);
  EXPECT_TRUE(dll.canUnload());
}

/// What somebody does while the add-in waits for its user: once, when a window of that class is there.
class WhileItWaits {
 public:
  WhileItWaits(const wchar_t* windowClass, std::function<void()> act)
      : windowClass_(windowClass), act_(std::move(act)) {
    current() = this;
    timer_ = SetTimer(nullptr, 0, 5, [](HWND, UINT, UINT_PTR, DWORD) { current()->look(); });
  }
  ~WhileItWaits() { KillTimer(nullptr, timer_); }
  bool done() const { return act_ == nullptr; }

 private:
  static WhileItWaits*& current() {
    static WhileItWaits* one = nullptr;
    return one;
  }
  void look() {
    if (FindWindowW(windowClass_, nullptr) == nullptr) return;
    if (const auto act = std::exchange(act_, nullptr)) act();
  }

  const wchar_t* windowClass_;
  std::function<void()> act_;
  UINT_PTR timer_ = 0;
};

TEST_F(Dll, ADisconnectionUnderAnOpenDialogWaitsForIt) {
  struct Case {
    const char* what;
    const wchar_t* window;
    std::vector<std::string> dialogs, answers;
    std::function<void(deck::EmbeddedHost&, HostedAddIn&)> call;
  };
  const auto press = [](const char* id) {
    return [id](deck::EmbeddedHost& host, HostedAddIn& addIn) {
      selectBoth(host);
      Value answer;
      EXPECT_EQ(addIn.callBack("onAction", {control(id)}, answer), S_OK) << addIn.failure();
    };
  };
  const Case cases[] = {
      {"a form", L"VellumarkForm", {"SwitchObjectsInput: obAnchor(0)=1; btnOK"}, {}, press("zp_1082")},
      {"a box of an event", L"#32770", {}, {"OK", "No"}, [&](deck::EmbeddedHost& host, HostedAddIn&) {
         const host::Presentation presentation = host.application().ActivePresentation();
         presentation.Tags().Add("zorp_slideOrder", "999;");
         presentation.SaveAs(folder_.path("saved.pptx"));
       }}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    questions_.reset();
    LoadedDll dll;
    const auto host = Dll::host(deck_);
    auto addIn = std::make_unique<HostedAddIn>(dll);
    ASSERT_EQ(addIn->connect(host->application().object()), S_OK);
    HRESULT left = E_FAIL;
    bool canUnload = true;
    const WhileItWaits meanwhile(c.window, [&] {
      left = addIn->disconnect();
      canUnload = dll.canUnload();
    });
    questions_ = app::windowQuestions(c.dialogs, c.answers);  // whose turn comes after
    questions_->begin();
    c.call(*host, *addIn);
    EXPECT_TRUE(meanwhile.done());
    EXPECT_EQ(left, S_OK);
    EXPECT_FALSE(canUnload) << "its code still runs";
    EXPECT_NO_THROW(questions_->requireWhole(c.what));
    Value answer;
    EXPECT_EQ(addIn->callBack("getEnabled", {control("zp_1036")}, answer), E_POINTER) << "it has gone";
    addIn.reset();
    EXPECT_TRUE(dll.canUnload());
  }
}

TEST_F(Dll, ASecondConnectionSharesTheAddIn) {
  LoadedDll dll;
  const auto host = Dll::host(deck_);
  {
    HostedAddIn first(dll), second(dll);
    ASSERT_EQ(first.connect(host->application().object()), S_OK);
    ASSERT_EQ(second.connect(host->application().object()), S_OK);
    ASSERT_EQ(second.connect(host->application().object()), S_OK) << "the same one again";
    selectBoth(*host);
    EXPECT_TRUE(enabled(second));
    EXPECT_EQ(first.disconnect(), S_OK);
    EXPECT_EQ(first.disconnect(), S_OK);
    EXPECT_TRUE(enabled(second)) << "the other's end is not its own";
    EXPECT_EQ(second.disconnect(), S_OK);
  }
  EXPECT_TRUE(dll.canUnload());
}

TEST_F(Dll, AHostThatLetsGoInTheWrongOrderCrashesNothing) {
  LoadedDll dll;
  {
    const auto host = Dll::host(deck_);
    HostedAddIn addIn(dll);
    ASSERT_EQ(addIn.connect(host->application().object()), S_OK);
    // released while still connected
  }
  EXPECT_TRUE(dll.canUnload()) << "the last release disconnects";
  {
    HostedAddIn addIn(dll);
    auto host = Dll::host(deck_);
    ASSERT_EQ(addIn.connect(host->application().object()), S_OK);
    selectBoth(*host);
    host.reset();  // all its windows and presentations are gone
    Value answer;
    addIn.callBack("getEnabled", {control("zp_1117")}, answer);
    addIn.callBack("onAction", {control("zp_1036")}, answer);
    EXPECT_EQ(addIn.disconnect(), S_OK);
  }
  EXPECT_TRUE(dll.canUnload());
}

}  // namespace
}  // namespace vellumark::test
