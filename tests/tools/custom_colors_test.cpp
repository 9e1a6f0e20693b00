// The presentation's own colours: reset to those of the settings, and picked from the screen.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/registry.h"
#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

const std::string product = "Vellumark for presentations ";
constexpr int red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000, white = 0xFFFFFF;

class CustomColors : public test::Stage {
 protected:
  CustomColors() {
    deck.slide().shape("rect", 0, 0, 10, 10).named("A");
    open();
  }
  void configure(const std::string& colors) { core::setRegistry("customColors", colors, ""); }
  void have(const std::vector<int>& colors) {
    presentation.ExtraColors().Clear();
    for (const int color : colors) presentation.ExtraColors().Add(color);
  }
  std::vector<int> colors() {
    std::vector<int> all;
    for (int i = 1; i <= presentation.ExtraColors().Count(); ++i)
      all.push_back(presentation.ExtraColors().Item(i));
    return all;
  }
  std::vector<int> last(std::size_t count) {
    const std::vector<int> all = colors();
    return {all.end() - static_cast<std::ptrdiff_t>(count), all.end()};
  }
};

TEST_F(CustomColors, AResetPushesAllOldOnesOutAndPutsTheConfiguredOnesLast) {
  struct Case {
    std::vector<int> before;
    std::string setting;
    std::vector<int> last;
  };
  const Case cases[] = {
      {{}, "#FF0000,#00FF00", {red, green}},
      {{1, 2, 3}, "#FF0000,#00FF00", {red, green}},
      {{1, 2, 3, 4, 5, 6, 7, 8}, "x00ff00", {green}},
      // What was there already counts as old, too, and what fills the list must not be what is wanted.
      {{green, 2, 3, red}, "#FF0000,#00FF00", {red, green}},
      {{white, white - 1},
       "#FEFFFF,#FFFFFF,\xE2\x82\xAC"
       "FFFEFF",
       {0xFFFFFE, white, 0xFFFEFF}},
      {{1, 2},
       " 000001, 000002, 000003, 000004, 000005, 000006, 000007, 000008, 000009",
       {0x020000, 0x030000, 0x040000, 0x050000, 0x060000, 0x070000, 0x080000, 0x090000}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.setting);
    have(c.before);
    configure(c.setting);
    tools.resetCustomColors();
    EXPECT_EQ(messages.take(), Texts{product + "[information] Custom colors have been reset."});
    EXPECT_EQ(last(c.last.size()), c.last);
    EXPECT_EQ(colors().size(), 8u);
    for (const int old : c.before) {
      const std::vector<int> all = colors();
      const bool wanted = std::find(c.last.begin(), c.last.end(), old) != c.last.end();
      EXPECT_EQ(std::find(all.begin(), all.end(), old) != all.end(), wanted) << old;
    }
  }
  EXPECT_EQ(failures.take(), Texts{});
  reopen();
  EXPECT_EQ(colors().back(), 0x090000);
}

TEST_F(CustomColors, AResetThatCannotBeDoneChangesNothing) {
  have({1, 2});
  for (const char* setting :
       {"#FF0000,#12345", "#FF0000,", "#FF0000,#0x00FF", "FF0000", "#FF00000", "#FF0000, #00FF00"}) {
    SCOPED_TRACE(setting);
    configure(setting);
    tools.resetCustomColors();
    EXPECT_EQ(failures.take(), Texts{"TrimlineTools, resetCustomColors: 13"});
    EXPECT_EQ(colors(), (std::vector{1, 2}));
  }
  configure("");
  tools.resetCustomColors();
  EXPECT_EQ(messages.take(), Texts{product + "[information] Custom colors are not configured."});
  EXPECT_EQ(colors(), (std::vector{1, 2}));
}

}  // namespace
}  // namespace vellumark::tools
