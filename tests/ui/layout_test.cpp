// The layout engine: nothing is cut, nothing overlaps, what stretches fills.

#include "ui/layout.h"

#include <gtest/gtest.h>

#include "ui/form.h"
#include "ui/pages_form.h"

namespace vellumark::ui {
namespace {

/// Each character is 7 by 16 pixels.
class FixedMeasurer : public TextMeasurer {
 public:
  Size text(std::string_view text, double scale, bool, int wrapWidth) const override {
    int lines = 1, width = 0, longest = 0;
    for (const char c : text) {
      if (c == '\n' || (wrapWidth > 0 && (width + 7) > wrapWidth)) {
        ++lines;
        width = 0;
      }
      if (c != '\n') width += 7;
      longest = std::max(longest, width);
    }
    return {static_cast<int>(longest * scale), static_cast<int>(lines * 16 * scale)};
  }
  Size character() const override { return {7, 16}; }
};

class LayoutForm : public Form {
 public:
  LayoutForm() : Form("LayoutForm", "Layout") {
    text.multiLine(true);
    text.size(30, 4);
    explanation.wrapAt(40);
    layout(column(
        {Box(explanation),
         grid(2, {Box(nameLabel), Box(name).stretch(), Box(longLabel), Box(phone).stretch()}).in(frame),
         Box(text).stretch(), row({space(), Box(ok), Box(cancel)})}));
  }
  Label explanation{*this, "explanation", std::string(200, 'x')};
  Frame frame{*this, "frame", "Contact"};
  Label nameLabel{*this, "nameLabel", "Name"};
  TextBox name{*this, "name"};
  Label longLabel{*this, "longLabel", "A much longer label than the other"};
  TextBox phone{*this, "phone"};
  TextBox text{*this, "text"};
  CommandButton ok{*this, "ok", "&OK"};
  CommandButton cancel{*this, "cancel", "A very long caption of a button"};
};

bool overlap(const Rect& a, const Rect& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

void checkSound(const LayoutForm& form, const Arrangement& arrangement, const FixedMeasurer& measurer) {
  for (const auto& [control, place] : arrangement.places) {
    EXPECT_GE(place.x, 0) << control->name();
    EXPECT_LE(place.x + place.width, arrangement.size.width) << control->name();
    EXPECT_LE(place.y + place.height, arrangement.size.height) << control->name();
    for (const auto& [other, otherPlace] : arrangement.places) {
      if (control == other || control == &form.frame || other == &form.frame) continue;
      EXPECT_FALSE(overlap(place, otherPlace)) << control->name() << " and " << other->name();
    }
    if (const auto* label = dynamic_cast<const Label*>(control)) {
      const Size needed = measurer.text(label->caption(), 1, false, label->wrapAt() * 7);
      EXPECT_GE(place.width, needed.width) << label->name();
      EXPECT_GE(place.height, needed.height) << label->name();
    }
    if (const auto* button = dynamic_cast<const CommandButton*>(control)) {
      EXPECT_GT(place.width, measurer.text(plainCaption(button->caption()), 1, false, 0).width);
    }
  }
}

TEST(Layout, NothingIsCutAndNothingOverlaps) {
  const FixedMeasurer measurer;
  LayoutForm form;
  const Arrangement natural = arrange(form.layout(), measurer);
  EXPECT_EQ(natural.places.size(), form.controls().size());
  checkSound(form, natural, measurer);
  const Arrangement wide = arrange(form.layout(), measurer, {900, 700});
  EXPECT_EQ(wide.size, (Size{900, 700}));
  checkSound(form, wide, measurer);
  const Arrangement tooSmall = arrange(form.layout(), measurer, {10, 10});
  EXPECT_EQ(tooSmall.size, natural.size) << "never below its natural size";
}

TEST(Layout, WhatStretchesTakesWhatIsLeft) {
  const FixedMeasurer measurer;
  LayoutForm form;
  const Arrangement natural = arrange(form.layout(), measurer);
  const Arrangement wide =
      arrange(form.layout(), measurer, {natural.size.width + 100, natural.size.height + 60});
  EXPECT_EQ(wide.places.at(&form.text).height, natural.places.at(&form.text).height + 60);
  EXPECT_EQ(wide.places.at(&form.phone).width, natural.places.at(&form.phone).width + 100);
  EXPECT_EQ(wide.places.at(&form.longLabel).width, natural.places.at(&form.longLabel).width);
  EXPECT_EQ(wide.places.at(&form.cancel).x, natural.places.at(&form.cancel).x + 100)
      << "the space pushes the buttons";
  EXPECT_EQ(wide.places.at(&form.name).x, wide.places.at(&form.phone).x) << "columns are in line";
  EXPECT_EQ(wide.places.at(&form.name).width, wide.places.at(&form.phone).width);
}

TEST(Layout, OfPagesInOnePlaceOnlyTheFrontOneIsSeen) {
  const FixedMeasurer measurer;
  PagesForm form;
  form.load();
  const auto seen = [&] {
    std::string names;
    const Arrangement places = arrange(form.layout(), measurer);
    for (const Control* control : form.controls()) {
      EXPECT_EQ(places.places.contains(control) || control == &form.page[0] || control == &form.page[1],
                !isCovered(form.layout(), *control));
      if (places.places.contains(control)) names += control->name() + " ";
    }
    return names;
  };
  const Size size = arrange(form.layout(), measurer).size;
  EXPECT_EQ(seen(), "second page(0) text answer ");
  EXPECT_TRUE(form.reachable(form.text));
  EXPECT_FALSE(form.reachable(form.marks));
  EXPECT_TRUE(form.click(form.second));
  EXPECT_EQ(seen(), "second page(1) marks ");
  EXPECT_EQ(arrange(form.layout(), measurer).size, size) << "room for the largest page, whichever is seen";
  EXPECT_TRUE(form.focus(form.marks));
  EXPECT_TRUE(form.tab());
  EXPECT_EQ(form.focused(), &form.marks) << "the tab key passes over what is covered";
}

}  // namespace
}  // namespace vellumark::ui
