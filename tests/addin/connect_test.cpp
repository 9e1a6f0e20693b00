#include "addin/connect.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "addin/callbacks.h"
#include "base/error.h"
#include "core/globals.h"
#include "core/registry.h"
#include "deck/embedded_host.h"
#include "platform/environment_guard.h"
#include "platform/instance_mutex.h"
#include "platform/paths.h"
#include "support/failures.h"
#include "support/fake_host.h"
#include "support/messages.h"
#include "support/temp_folder.h"

namespace vellumark::addin {
namespace {

using core::globals;
using test::FakeObject;
using Texts = std::vector<std::string>;

const char* const product = "Vellumark for presentations";
const char* const toolsBar = "Vellumark for presentations - Trimline Tools";

int numberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

/// An add-in that lies in an installation of its own, in a folder of any name.
class ConnectTest : public testing::Test {
 protected:
  void connect(const host::Application& application) {
    addIn().IDTExtensibility2_OnConnection(application, 1, host::COMAddIn(), {});
  }
  void disconnect() { addIn().IDTExtensibility2_OnDisconnection(0, {}); }
  Connect& addIn() { return *addIn_; }
  /// A control of the ribbon.
  static host::IRibbonControl control(const char* id) {
    return host::IRibbonControl(
        std::make_shared<FakeObject>("IRibbonControl", std::map<std::string, host::Value>{{"Id", id}}));
  }
  static host::IRibbonUI ribbon() { return host::IRibbonUI(std::make_shared<FakeObject>("IRibbonUI")); }
  static std::shared_ptr<FakeObject> fakeApplication(const char* version) {
    return std::make_shared<FakeObject>(
        "Application",
        std::map<std::string, host::Value>{{"Name", "Microsoft PowerPoint"}, {"Version", version}});
  }

  test::TempFolder folder_;
  const std::string root_ = platform::fromSystem(folder_.root().string()) + "\\";
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  test::EnvironmentGuard locks_{"XDG_RUNTIME_DIR", folder_.root().string()};
  test::Messages messages_;
  std::optional<Connect> addIn_{std::in_place, root_ + "Add-In 1"};
  test::Failures failures_;  // behind the add-in, which sets the route of failures itself
};

TEST_F(ConnectTest, FoldersFollowFromTheAddInsOwn) {
  struct Case {
    bool userMenu;
    const char* config;
  };
  for (const Case& c : {Case{false, "customization\\"}, Case{true, "user\\"}}) {
    if (c.userMenu) folder_.write("user/menu.xml", "<Vellumark/>");
    connect(host::Application(fakeApplication("14.0")));
    const core::Globals& g = globals();
    EXPECT_EQ(g.rootFolder, root_);
    EXPECT_EQ(g.userFolder, root_ + "user\\");
    EXPECT_EQ(g.myElementsFolder, root_ + "user\\myelements\\");
    EXPECT_EQ(g.configFolder, root_ + c.config);
    EXPECT_EQ(g.iconsFolder, root_ + c.config + "icons\\");
    EXPECT_EQ(g.stylesFolder, root_ + c.config + "styles\\");
    EXPECT_EQ(g.thumbsFolder, root_ + c.config + "styles\\thumbs\\");
    EXPECT_EQ(g.programFolder, root_ + "program\\");
    EXPECT_EQ(g.uiFolder, root_ + "program\\ui\\");
    disconnect();
  }
  EXPECT_FALSE(platform::directoryExists(root_ + "program"));
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(ConnectTest, AnotherApplicationIsLeftAlone) {
  connect(host::Application(std::make_shared<FakeObject>("Workbook")));
  EXPECT_FALSE(globals().powerPointApp);
  EXPECT_EQ(globals().applicationEvents, nullptr);
  EXPECT_TRUE(platform::InstanceMutex::isSet(product));
  disconnect();
  EXPECT_FALSE(platform::InstanceMutex::isSet(product));
  disconnect();
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(ConnectTest, OnlyHostsBeforeTheRibbonGetToolbars) {
  for (const auto& [version, toolbars] :
       {std::pair("9.0", true), {"11.0", true}, {"12.0", false}, {"14.0", false}}) {
    SCOPED_TRACE(version);
    const deck::EmbeddedHost host(version);
    connect(host.application());
    EXPECT_EQ(globals().hostVersion, version);
    EXPECT_NE(globals().applicationEvents, nullptr);
    EXPECT_NE(globals().tools, nullptr);
    EXPECT_EQ(globals().toolbarControls != nullptr, toolbars);
    EXPECT_EQ(globals().languageShortcuts[1], 1031);
    const auto bar = [&] { return host.application().CommandBars().Item(toolsBar); };
    if (toolbars) {
      EXPECT_GT(bar().Controls().Count(), 20);
      EXPECT_EQ(globals().menuDoc != nullptr, true);
      EXPECT_EQ(messages_.take().size(), 2U);  // neither a configuration nor own elements
    }
    disconnect();
    EXPECT_NE(numberOf([&] { bar(); }), 0);
    EXPECT_EQ(messages_.take(), Texts{});
  }
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(ConnectTest, LaterHostsPresentThemselvesAsTheLastKnown) {
  struct Case {
    const char* reported;
    const char* asReported;  // the setting
    const char* seen;
    int invalidations;
  };
  for (const Case& c :
       {Case{"14.0", "0", "14.0", 1}, Case{"12.0", "0", "12.0", 1}, Case{"15.0", "0", "14.0", 1},
        Case{"16.0", "0", "14.0", 1}, Case{"16.0", "-1", "16.0", 0}}) {
    SCOPED_TRACE(std::string(c.reported) + " " + c.asReported);
    core::setRegistry("hostVersionAsReported", c.asReported, "");
    deck::EmbeddedHost host(c.reported);
    connect(host.application());
    EXPECT_EQ(globals().hostVersion, c.seen);
    EXPECT_EQ(globals().powerPointApp.Version(), c.seen);
    EXPECT_EQ(globals().toolbarControls, nullptr);
    int invalidations = 0;
    globals().ribbonUI = host::IRibbonUI(
        std::make_shared<FakeObject>("IRibbonUI", std::map<std::string, host::Value>{},
                                     std::map<std::string, FakeObject::Function>{{"Invalidate", [&](auto) {
                                                                                    ++invalidations;
                                                                                    return host::Value();
                                                                                  }}}));
    host.application().Presentations().Add(true);
    host.selectShapes({});
    EXPECT_EQ(invalidations, c.invalidations);
    EXPECT_EQ(globals().powerPointApp.Presentations().Count(), 1);
    disconnect();
    host.selectShapes({});
    EXPECT_EQ(invalidations, c.invalidations) << "its events are no longer listened to";
  }
  EXPECT_EQ(failures_.take(), Texts{});
}

// While a box is open the host can do what it likes.
TEST_F(ConnectTest, ADisconnectionWaitsForTheCallThatRuns) {
  struct Case {
    const char* what;
    bool connectsAgain;
    const char* answer;
    std::function<void(const host::Presentation&)> call;
  };
  const auto pressOpenFolder = [this](const host::Presentation&) {
    const host::Value arguments[] = {host::Value(control("zp_1102").object())};
    callBack(*findCallback("onAction"), addIn(), arguments);
  };
  const Case cases[] = {
      {"callback", false, "OK", pressOpenFolder},
      {"callback, connected anew", true, "OK", pressOpenFolder},
      {"event", false, "No",
       [this](const host::Presentation& presentation) {
         presentation.Tags().Add("zorp_slideOrder", "256;");  // of a slide that is gone
         presentation.SaveAs(folder_.path("saved.pptx"));
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const deck::EmbeddedHost host;
    connect(host.application());
    const host::Presentation presentation = host.application().Presentations().Add(true);
    int boxes = 0;
    bool worksOn = false;
    messages_.toolkit().addAnswer(c.answer);
    messages_.toolkit().observer = [&](const ui::Shown&) {
      ++boxes;
      disconnect();
      worksOn = globals().powerPointApp && globals().tools && globals().applicationEvents;
      if (c.connectsAgain) connect(host.application());
    };
    c.call(presentation);
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(worksOn) << "the box is still open";
    EXPECT_EQ(static_cast<bool>(globals().powerPointApp), c.connectsAgain);
    EXPECT_EQ(globals().tools != nullptr, c.connectsAgain);
    EXPECT_EQ(failures_.take(), Texts{});
    disconnect();
    EXPECT_FALSE(globals().powerPointApp);
  }
}

TEST_F(ConnectTest, DisconnectionReleasesEverythingAndAllowsAnother) {
  folder_.write("customization/menu.xml", "<Vellumark><style name='A' folder='A'/></Vellumark>");
  const auto application = fakeApplication("14.0");
  for (int round = 1; round <= 2; ++round) {
    connect(host::Application(application));
    addIn().onLoad(ribbon());
    EXPECT_TRUE(application->hasListener());
    EXPECT_EQ(globals().styleNames, Texts{"A"});
    EXPECT_EQ(addIn().getLabel(control("zp_1093")), "English US");
    EXPECT_FALSE(addIn().getVisible(control("zp_1095")));

    disconnect();
    EXPECT_FALSE(application->hasListener());
    EXPECT_FALSE(globals().powerPointApp || globals().ribbonUI || globals().menuDoc);
    EXPECT_EQ(globals().applicationEvents, nullptr);
    EXPECT_EQ(globals().tools, nullptr);
    EXPECT_EQ(globals().currentStyle, "");
    EXPECT_FALSE(platform::InstanceMutex::isSet(product));
  }
  connect(host::Application(application));
  addIn_.reset();
  EXPECT_FALSE(application->hasListener());
  EXPECT_FALSE(platform::InstanceMutex::isSet(product));
  EXPECT_EQ(application.use_count(), 1);
}

TEST_F(ConnectTest, AFailureEndsTheConnectionWhereItIs) {
  connect(host::Application(std::make_shared<FakeObject>(
      "Application", std::map<std::string, host::Value>{{"Name", "Microsoft PowerPoint"}})));
  EXPECT_EQ(failures_.take(), Texts{"Connect, IDTExtensibility2_OnConnection: 438"});
  EXPECT_TRUE(globals().powerPointApp);
  EXPECT_EQ(globals().tools, nullptr);
  disconnect();
  EXPECT_FALSE(globals().powerPointApp);

  core::setRegistry("screenSaverOff", "maybe", "");
  const auto application = fakeApplication("14.0");
  connect(host::Application(application));
  EXPECT_EQ(failures_.take(), Texts{"Connect, IDTExtensibility2_OnConnection: 13"});
  EXPECT_TRUE(application->hasListener());
  EXPECT_EQ(globals().languageShortcuts[0], 0);
  disconnect();
  EXPECT_FALSE(application->hasListener());
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(ConnectTest, LoadingTheRibbonReadsSettingsAndConfiguration) {
  core::setRegistry("screenSaverOff", "1", "");
  connect(host::Application(fakeApplication("14.0")));
  EXPECT_TRUE(globals().screenSaverOff);
  addIn().onLoad(ribbon());
  EXPECT_EQ(addIn().thumbnails().thumbsWidth, 160);
  EXPECT_EQ(addIn().thumbnails().thumbsHeight, 120);
  const Texts told = messages_.take();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_TRUE(told[0].starts_with("Vellumark for presentations [critical] The Slide Wizard configuration"));
  EXPECT_TRUE(told[1].starts_with("Vellumark for presentations [information] You haven't added"));

  core::setRegistry("thumbsWidth", "99.5", "");
  core::setRegistry("thumbsDate_slideWizard", "39000.25 or so", "");
  core::setRegistry("thumbsDate_myElements", "never", "");
  addIn().onLoad(ribbon());
  EXPECT_EQ(addIn().thumbnails().thumbsWidth, 100);
  EXPECT_EQ(addIn().thumbnails().thumbsDate_slideWizard, 39000.25);
  EXPECT_EQ(addIn().thumbnails().thumbsDate_myElements, 0);

  // Without a trap, a failure goes to the host.
  core::setRegistry("thumbsHeight", "40000", "");
  EXPECT_EQ(numberOf([&] { addIn().onLoad(ribbon()); }), base::errors::overflow);
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(ConnectTest, TheRibbonsDefinitionIsReadInTheCodePage) {
  connect(host::Application(fakeApplication("14.0")));
  EXPECT_EQ(numberOf([&] { addIn().IRibbonExtensibility_GetCustomUI("x"); }), base::errors::pathNotFound);
  folder_.write("program/ui/zorpUI.xml",
                "<customUI label='Gr\xF6\xDF"
                "e'/>\r\n");
  EXPECT_EQ(addIn().IRibbonExtensibility_GetCustomUI("x"), "<customUI label='Größe'/>\r\n");
}

TEST_F(ConnectTest, LeftOverExtractsAreDeleted) {
  const auto round = [&](const std::string& extracts) {
    core::setRegistry("slideExtracts", extracts, "");
    connect(host::Application(fakeApplication("14.0")));
    disconnect();
    return core::getRegistry("slideExtracts", "", "default");
  };
  // Extracts lie in folders of their own.
  const std::string sent = root_ + "sent\\";
  folder_.write("sent/a.ppt", "");
  folder_.write("sent/b.ppt", "");
  EXPECT_EQ(round(sent + "a.ppt;" + sent + "missing.ppt;" + sent + "b.ppt;"), "");
  EXPECT_FALSE(platform::fileExists(sent + "a.ppt") || platform::fileExists(sent + "b.ppt"));
  EXPECT_EQ(round(";"), "");
  EXPECT_EQ(round(""), "");
  EXPECT_EQ(failures_.take(), Texts{});

  // A file that can't be deleted leaves the whole list, and the rest of the disconnection goes on.
  const std::string stuck = "/proc/self/status;" + sent + "c.ppt;";
  folder_.write("sent/c.ppt", "");
  EXPECT_EQ(round(stuck), stuck);
  EXPECT_TRUE(platform::fileExists(sent + "c.ppt"));
  EXPECT_EQ(failures_.take(), Texts{"Connect, killSlideExtracts: 75"});
  EXPECT_FALSE(globals().powerPointApp);
}

}  // namespace
}  // namespace vellumark::addin
