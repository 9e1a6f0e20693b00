// The slides that OK makes: which there are, what stands on them and where.

#include <gtest/gtest.h>

#include <algorithm>

#include "agenda/agenda_stage.h"
#include "base/conversions.h"

namespace vellumark::agenda {
namespace {

using test::AgendaXml;
using test::Texts;

constexpr const char* status =
    "Status [none] Please wait a few moments, your agenda slides are being generated / updated...";
constexpr const char* oneNew =
    "Vellumark for presentations [information] A new agenda slide has been inserted at the end of the "
    "presentation.\r\nPlease move it to the appropriate position within the presentation.";
constexpr const char* severalNew =
    "Vellumark for presentations [information] New agenda slides have been inserted at the end of the "
    "presentation.\r\nPlease move them to the appropriate positions within the presentation.";

class AgendaSlides : public test::AgendaStage {
 protected:
  AgendaSlides() { open(2); }

  void ok() {
    wizard().OK();
    closeWizard();
  }
  host::Slide slide(int position) { return presentation.Slides().Item(position); }
  std::string tag(const char* name) { return presentation.Tags().Item(name); }
  static std::string tag(const host::Slide& slide, const char* name) { return slide.Tags().Item(name); }

  /// The generated shapes of a kind, from the top down.
  std::vector<host::Shape> shapes(int position, const std::string& kind) {
    std::vector<host::Shape> found;
    const host::Shapes all = slide(position).Shapes();
    for (int i = 1; i <= all.Count(); ++i) {
      if (const host::Shape shape = all.Item(i); shape.Tags().Item(tags::kind) == kind)
        found.push_back(shape);
    }
    std::ranges::sort(found, {}, [](const host::Shape& shape) { return shape.Top(); });
    return found;
  }
  static std::string textOf(const host::Shape& shape) { return shape.TextFrame().TextRange().Text(); }
  /// Boxes and bars, one row a line; the highlighted one marked.
  std::string rows(int position) {
    std::string text;
    const auto boxes = shapes(position, kinds::box), bars = shapes(position, kinds::bar);
    for (std::size_t i = 0; i < bars.size(); ++i) {
      if (!boxes.empty()) text += "[" + textOf(boxes[i]) + "] ";
      const bool selected = (bars[i].Fill().ForeColor().RGB() >> 8 & 0xff) == 1;
      text += textOf(bars[i]) + (selected ? " <\n" : "\n");
    }
    return text;
  }
  static std::string frameOf(const host::Shape& shape) {
    return base::singleText(shape.Left()) + " " + base::singleText(shape.Top()) + " " +
           base::singleText(shape.Width()) + " " + base::singleText(shape.Height());
  }
  static std::string tabsOf(const host::Shape& shape) {
    std::string text;
    const host::TabStops stops = shape.TextFrame().Ruler().TabStops();
    for (int i = 1; i <= stops.Count(); ++i) {
      text += (stops.Item(i).Type() == host::ppTabStopRight ? "right " : "left ") +
              base::formatFixed(stops.Item(i).Position(), 1) + "; ";
    }
    return text;
  }
};

TEST_F(AgendaSlides, OneForEachItemThatAsksForIt) {
  edit({{.text = "a"},
        {.level = 2, .text = "b"},
        {.text = "hidden", .shown = false, .ownSlide = false},
        {.text = "c", .isBreak = true, .ownSlide = false},
        {.text = "d"}});
  ok();
  EXPECT_EQ(failures.take(), Texts{});
  EXPECT_EQ(messages.take(), (Texts{status, severalNew}));
  ASSERT_EQ(presentation.Slides().Count(), 5) << "and no scratch slide";
  EXPECT_EQ(rows(3), "[1] a <\n[1.1] b\n[] c\n[2] d\n");
  EXPECT_EQ(rows(4), "[1] a\n[1.1] b <\n[] c\n[2] d\n");
  EXPECT_EQ(rows(5), "[1] a\n[1.1] b\n[] c\n[2] d <\n");
  for (int i = 3; i <= 5; ++i) {
    EXPECT_EQ(tag(slide(i), tags::kind), "agendaSlide");
    EXPECT_EQ(textOf(shapes(i, kinds::title).at(0)), "Agenda");
    EXPECT_EQ(textOf(shapes(i, kinds::subtitle).at(0)), "Of the day");
  }
  // What is stored knows the slides.
  EXPECT_EQ(tag(tags::style), "Blue");
  EXPECT_EQ(tag(tags::slideOrder), "");
  AgendaDocument stored;
  ASSERT_TRUE(stored.parse(tag(tags::document)));
  EXPECT_EQ(stored.items()[4].attribute("slideID").value(), tag(slide(5), tags::slideID));
  EXPECT_EQ(findSlide(presentation, stored.items()[1].attribute("slideID").value()).SlideIndex(), 4);
}

TEST_F(AgendaSlides, RowsLieInTheFrame) {
  edit({{.text = "a"}, {.level = 2, .text = "b"}});
  wizard().cbShowResponsible.value(true);
  wizard().cbShowTimeSlots.value(true);
  ok();
  const auto boxes = shapes(3, kinds::box), bars = shapes(3, kinds::bar);
  EXPECT_EQ(frameOf(boxes.at(0)), "40 120 28 28");
  EXPECT_EQ(frameOf(bars.at(0)), "74 120 606 28");
  EXPECT_EQ(frameOf(boxes.at(1)), "74 176 28 28");
  EXPECT_EQ(frameOf(bars.at(1)), "108 176 572 28") << "all bars end at the frame's right edge";
  EXPECT_EQ(textOf(bars.at(0)), "a\t\t09:00 – 09:30");
  EXPECT_EQ(bars.at(0).Tags().Item(tags::content), "/a\t\t09:00 – 09:30");
  EXPECT_EQ(bars.at(0).Tags().Item(tags::properties), "74/120/606/28");
  EXPECT_EQ(shapes(3, kinds::subtitle).at(0).Tags().Item(tags::properties), "");
  const host::TextFrame box = boxes.at(0).TextFrame(), bar = bars.at(0).TextFrame();
  EXPECT_EQ(box.MarginLeft() + box.MarginTop() + box.MarginRight() + box.MarginBottom(), 0);
  EXPECT_EQ(box.TextRange().ParagraphFormat().Alignment(), host::ppAlignCenter);
  EXPECT_EQ(box.TextRange().Font().Bold(), host::msoTrue);
  EXPECT_EQ(bar.TextRange().Font().Bold(), host::msoFalse);
  EXPECT_EQ(bar.MarginLeft(), 8);
  EXPECT_EQ(bar.TextRange().Font().Size(), 20);
  // The second level's text begins one step further right, and so do its columns.
  const std::string first = tabsOf(bars.at(0)), second = tabsOf(bars.at(1));
  EXPECT_TRUE(first.ends_with("right 590.0; ")) << first;
  EXPECT_TRUE(second.ends_with("right 556.0; ")) << second;
  EXPECT_NEAR(bars.at(0).TextFrame().Ruler().TabStops().Item(1).Position() -
                  bars.at(1).TextFrame().Ruler().TabStops().Item(1).Position(),
              34, 0.01);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, RowsOfOneBar) {
  blue.format["barOnly"] = "1";
  edit({{.text = "a"}, {.level = 2, .text = "b"}, {.text = "pause", .isBreak = true}});
  ok();
  EXPECT_EQ(shapes(3, kinds::box).size(), 0U);
  EXPECT_EQ(rows(3), "1.\ta <\n1.1\tb\npause\n");
  auto bars = shapes(3, kinds::bar);
  EXPECT_EQ(frameOf(bars.at(1)), "40 176 640 28");
  // Half of the line's two points comes off.
  EXPECT_EQ(bars.at(0).TextFrame().MarginLeft(), 7);
  EXPECT_EQ(bars.at(1).TextFrame().MarginLeft(), 35);
  EXPECT_EQ(bars.at(2).TextFrame().MarginLeft(), 7) << "a break keeps the indent of numbers";
  EXPECT_EQ(tabsOf(bars.at(0)), "left 28.0; ");
  EXPECT_EQ(tabsOf(bars.at(1)), "left 37.3; ");
  EXPECT_EQ(bars.at(2).TextFrame().TextRange().ParagraphFormat().Bullet().Visible(), host::msoFalse);

  wizard().cbShowItemNumbers.value(false);
  wizard().cbShowPageNumbers.value(true);
  ok();
  bars = shapes(3, kinds::bar);
  EXPECT_EQ(textOf(bars.at(2)), "pause\t5");
  EXPECT_EQ(bars.at(1).TextFrame().MarginLeft(), 27) << "without numbers a level is one font size";
  EXPECT_EQ(tabsOf(bars.at(1)), "right 604.0; ");
  EXPECT_EQ(bars.at(1).TextFrame().TextRange().ParagraphFormat().Bullet().Visible(), host::msoTrue);
  EXPECT_EQ(bars.at(1).TextFrame().TextRange().IndentLevel(), 2);
  EXPECT_EQ(bars.at(1).TextFrame().Ruler().Levels().Item(2).LeftMargin(), 20);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, WhatTheUserDidStays) {
  edit({{.text = "a"}, {.text = "b"}});
  ok();
  const host::Shape note = slide(3).Shapes().AddShape(host::msoShapeOval, 1, 2, 30, 40);
  note.Name("note");
  slide(4).Delete();
  shapes(3, kinds::title).at(0).TextFrame().TextRange().Text("by hand");
  messages.take();
  wizard().tbTitle.text("Again");
  ok();
  EXPECT_EQ(messages.take().back(), oneNew) << "a slide that was deleted comes back";
  EXPECT_EQ(presentation.Slides().Count(), 4);
  EXPECT_EQ(rows(3), "[1] a <\n[2] b\n");
  EXPECT_EQ(textOf(shapes(3, kinds::title).at(0)), "Again");
  EXPECT_EQ(slide(3).Shapes().Item("note").ZOrderPosition(), slide(3).Shapes().Count() - 1)
      << "behind it lies what was generated, the title excepted";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, SlidesGoWithTheirItems) {
  edit({{.text = "a"}, {.text = "b"}, {.text = "c"}});
  ok();
  const std::string a = tag(slide(3), tags::slideID), c = tag(slide(5), tags::slideID);
  wizard().tvItems.select("s_" + tag(slide(4), tags::slideID));
  wizard().click(wizard().btnDeleteItem);
  wizard().tvItems.select("s_" + c);
  wizard().click(wizard().cbShowAgendaItem);
  ok();
  ASSERT_EQ(presentation.Slides().Count(), 3);
  EXPECT_EQ(tag(slide(3), tags::slideID), a);
  EXPECT_EQ(rows(3), "[1] a <\n");
  AgendaDocument stored;
  ASSERT_TRUE(stored.parse(tag(tags::document)));
  EXPECT_NE(stored.items()[1].attribute("slideID").value(), c) << "the id of a slide that is gone";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, PageNumbersAreCompleteTheSecondTime) {
  edit({{.text = "a"}, {.text = "b"}, {.text = "c", .ownSlide = false}});
  wizard().cbShowPageNumbers.value(true);
  ok();
  EXPECT_EQ(rows(3), "[1] a\t3 <\n[2] b\t\n[3] c\t\n");
  EXPECT_EQ(rows(4), "[1] a\t3\n[2] b\t4 <\n[3] c\t\n");
  std::string order;
  for (int i = 1; i <= 4; ++i) order += std::to_string(slide(i).SlideID()) + ";";
  EXPECT_EQ(tag(tags::slideOrder), order);
  slide(1).Delete();
  tools.agendaUpdatePagenumbers();
  EXPECT_EQ(rows(2), "[1] a\t2 <\n[2] b\t3\n[3] c\t\n");
  wizard().cbShowPageNumbers.value(false);
  ok();
  EXPECT_EQ(tag(tags::slideOrder), "");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, ColumnsAndTimes) {
  edit({{.text = "a", .responsible = "Ann", .duration = 60},
        {.text = "off", .duration = 30, .shown = false, .ownSlide = false},
        {.level = 2, .text = "b", .duration = 0, .ownSlide = false}});
  wizard().udStart.value(-1410);
  wizard().cbShowResponsible.value(true);
  wizard().cbShowTimeSlots.value(true);
  ok();
  EXPECT_EQ(rows(3), "[1] a\tAnn\t23:30 – 00:30 <\n[1.1] b\t\t\n");
}

TEST_F(AgendaSlides, HandMadeDocuments) {
  // A slide of its own for an item that isn't shown highlights the visible one before it.
  edit({{.text = "a", .ownSlide = false}, {.text = "b", .shown = false}, {.text = "c", .ownSlide = false}});
  ok();
  EXPECT_EQ(rows(3), "[1] a <\n[2] c\n");
  // A look that the style lacks leaves its row half built, and the others are made.
  presentation.Tags().Delete(tags::document);
  edit({{.level = 3, .text = "a"}, {.text = "b"}});
  ok();
  EXPECT_EQ(failures.take(), (Texts{"AgendaWizard, addAgendaItem: 91", "AgendaWizard, addAgendaItem: 91"}));
  EXPECT_EQ(textOf(shapes(5, kinds::bar).at(0)), "b");
  // An item that names a slide by the host's own number keeps that slide.
  presentation.Tags().Delete(tags::document);
  edit({{.text = "a", .slideID = std::to_string(slide(2).SlideID())}, {.text = "b", .slideID = "99999"}});
  const int before = presentation.Slides().Count();
  ok();
  EXPECT_EQ(presentation.Slides().Count(), before + 1);
  EXPECT_EQ(rows(2), "[1] a <\n[2] b\n");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaSlides, FailuresKeepWhatIsStored) {
  edit({{.text = "a"}});
  ok();
  const std::string stored = tag(tags::document);
  blue.format["slideLayout"] = "12";  // without any placeholder
  closeWizard();
  folder.write("styles/Blue/agendawizard.xml", blue.text());
  wizard().focus(wizard().cbStyle);
  wizard().focus(wizard().tbTitle);
  wizard().click(wizard().btnAddItem);
  messages.take();
  wizard().OK();
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, btnOK_Click: -2147188160"});
  EXPECT_EQ(tag(tags::document), stored);
  EXPECT_FALSE(wizard().loaded());

  presentation.Tags().Add(tags::document, "broken");
  closeWizard();
  tools.agendaUpdatePagenumbers();
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, btnOK_Click: 91"});
  EXPECT_EQ(tag(tags::document), "broken");
}

}  // namespace
}  // namespace vellumark::agenda
