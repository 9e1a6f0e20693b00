// Presentations, slides, tags: opening, changing, saving, reopening.

#include <gtest/gtest.h>

#include <filesystem>

#include "base/error.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "platform/paths.h"
#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using test::TempFolder;

int errorNumber(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

struct Events {
  explicit Events(const EmbeddedHost& host)
      : subscription(host::subscribe(host.application().object(),
                                     [this](host::Member event, std::span<host::Value> arguments) {
                                       names.push_back(event.name());
                                       if (event == host::member::PresentationBeforeSave)
                                         arguments[1] = host::Value(cancelSave);
                                       if (event == host::member::PresentationClose) {
                                         presentationsAtClose =
                                             host::Application(application).Presentations().Count();
                                       }
                                     })),
        application(host.application().object()) {}
  bool cancelSave = false;
  int presentationsAtClose = -1;
  std::vector<std::string> names;
  host::Subscription subscription;
  host::ObjectRef application;
};

class Presentations : public ::testing::Test {
 protected:
  std::string save(const DeckBuilder& deck, const std::string& name = "deck.pptx") {
    const std::string path = folder.path(name);
    deck.save(path);
    return path;
  }
  void expectSound(const std::string& path) {
    EXPECT_EQ(test::packageFaults(test::readZipFile(path)), std::vector<std::string>{});
  }
  static DeckBuilder threeSlides() {
    DeckBuilder deck;
    for (const char* name : {"A", "B", "C"})
      deck.slide("titleOnly").shape("rect", 10, 20, 100, 50).named(name);
    return deck;
  }

  TempFolder folder;
  EmbeddedHost host;
};

TEST_F(Presentations, OpensWithAndWithoutWindow) {
  const std::string path = save(threeSlides());
  const host::Application app = host.application();
  EXPECT_EQ(errorNumber([&] { app.ActiveWindow(); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { app.ActivePresentation(); }), base::errors::invalidRequest);

  const host::Presentation hidden = app.Presentations().Open(path, true, false, false);
  EXPECT_EQ(app.Windows().Count(), 0);
  EXPECT_EQ(app.Presentations().Count(), 1);
  EXPECT_EQ(hidden.ReadOnly(), host::msoTrue);
  EXPECT_EQ(errorNumber([&] { app.ActivePresentation(); }), base::errors::invalidRequest);

  const host::Presentation shown = host.open(path);
  EXPECT_EQ(app.ActivePresentation().FullName(), path);
  EXPECT_EQ(shown.Name(), "deck.pptx");
  EXPECT_EQ(std::filesystem::path(shown.Path()) / "deck.pptx", std::filesystem::path(path));
  EXPECT_EQ(shown.Saved(), host::msoTrue);
  EXPECT_FLOAT_EQ(shown.PageSetup().SlideWidth(), 960);

  const host::Presentation untitled = app.Presentations().Open(path, false, true, false);
  EXPECT_EQ(untitled.Path(), "");
  EXPECT_EQ(untitled.FullName(), untitled.Name());
}

TEST_F(Presentations, BrokenFilesAreOneClearError) {
  try {
    host.open(folder.write("broken.pptx", "no zip at all"));
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), base::errors::unspecific);
    EXPECT_NE(error.description().find("broken.pptx"), std::string::npos);
    EXPECT_EQ(error.description().find('\n'), std::string::npos);
  }
  EXPECT_EQ(host.application().Presentations().Count(), 0);
}

TEST_F(Presentations, EventsComeInOrderAndSavingCanBeCancelled) {
  const std::string path = save(threeSlides());
  const std::string before = test::readFile(path);
  Events events(host);
  const host::Presentation presentation = host.open(path);
  presentation.Slides().Item(1).Shapes().Item(1).Delete();
  EXPECT_EQ(presentation.Saved(), host::msoFalse);

  events.cancelSave = true;
  EXPECT_EQ(errorNumber([&] { presentation.Save(); }), base::errors::unspecific);
  EXPECT_EQ(errorNumber([&] { presentation.SaveAs(folder.path("no.pptx")); }), base::errors::unspecific);
  EXPECT_FALSE(std::filesystem::exists(folder.path("no.pptx")));
  EXPECT_EQ(test::readFile(path), before);
  EXPECT_EQ(presentation.Saved(), host::msoFalse);

  events.cancelSave = false;
  presentation.Save();
  EXPECT_NE(test::readFile(path), before);
  EXPECT_EQ(presentation.Saved(), host::msoTrue);

  presentation.Close();
  EXPECT_EQ(events.presentationsAtClose, 1)
      << "the event comes before the presentation leaves the collection";
  EXPECT_EQ(host.application().Presentations().Count(), 0);
  EXPECT_EQ(errorNumber([&] { presentation.Slides(); }), base::errors::invalidRequest);
  EXPECT_EQ(events.names, (std::vector<std::string>{"PresentationOpen", "WindowActivate",
                                                    "PresentationBeforeSave", "PresentationBeforeSave",
                                                    "PresentationBeforeSave", "PresentationClose"}));
}

TEST_F(Presentations, NothingIsWrittenOverWhatOthersWrote) {
  const std::string path = save(threeSlides()), other = save(threeSlides(), "other.pptx");
  const host::Presentation mine = host.open(path);
  EmbeddedHost elsewhere;
  const host::Presentation theirs = elsewhere.open(path);
  theirs.Slides().Item(1).Delete();
  theirs.Save();
  const std::string written = test::readFile(path);
  theirs.Save();  // one's own writing is none of another one
  mine.Slides().Item(2).Delete();
  EXPECT_EQ(errorNumber([&] { mine.Save(); }), base::errors::unspecific);
  EXPECT_EQ(errorNumber([&] { mine.SaveAs(folder.path("./deck.pptx")); }), base::errors::unspecific);
  EXPECT_EQ(mine.Saved(), host::msoFalse);
  EXPECT_EQ(test::readFile(path), written);
  mine.SaveAs(folder.path("mine.pptx"));

  // Nor over what is open, under whatever name.
  host.open(other);
  std::filesystem::create_symlink(other, folder.path("link.pptx"));
  for (const std::string& target : {other, folder.path("link.pptx")}) {
    EXPECT_EQ(errorNumber([&] { mine.SaveAs(target); }), base::errors::unspecific) << target;
    EXPECT_EQ(errorNumber([&] { mine.SaveCopyAs(target); }), base::errors::unspecific) << target;
  }
  EXPECT_EQ(test::readFile(path), written);
  std::filesystem::remove(folder.path("mine.pptx"));
  mine.Save();
  EXPECT_TRUE(std::filesystem::exists(folder.path("mine.pptx"))) << "nothing is lost where nothing is there";
}

TEST_F(Presentations, WhatNoFileCanHoldIsNotWritten) {
  const std::string path = save(threeSlides());
  const host::Presentation presentation = host.open(path);
  presentation.Tags().Add("x",
                          "a\x01"
                          "b\xE9"
                          "c\xEF\xBF\xBE");
  EXPECT_EQ(presentation.Tags().Item("x"),
            "ab\xEF\xBF\xBD"
            "c");
  presentation.Save();
  for (const auto& [name, entry] : test::readZipFile(path)) {
    EXPECT_EQ(entry.bytes.find("&#1;"), std::string::npos) << name;
  }
}

TEST_F(Presentations, SavesUnderOtherNames) {
  const std::string path = save(threeSlides());
  const host::Presentation presentation = host.open(path, true);
  presentation.Slides().Item(2).Delete();
  EXPECT_EQ(errorNumber([&] { presentation.Save(); }), base::errors::unspecific);

  presentation.SaveCopyAs(folder.path("copy.pptx"));
  EXPECT_EQ(presentation.FullName(), path);
  EXPECT_EQ(presentation.Saved(), host::msoFalse);
  presentation.SaveAs(folder.path("new.pptx"));
  EXPECT_EQ(presentation.Name(), "new.pptx");
  EXPECT_EQ(presentation.ReadOnly(), host::msoFalse);
  presentation.Slides().Item(1).Name("renamed");
  presentation.Save();

  EXPECT_EQ(host.open(path).Slides().Count(), 3);
  const host::Presentation copy = host.open(folder.path("copy.pptx"));
  EXPECT_EQ(copy.Slides().Count(), 2);
  EXPECT_EQ(copy.Slides().Item(2).SlideID(), presentation.Slides().Item(2).SlideID());
  EXPECT_EQ(host.open(folder.path("new.pptx")).Slides().Item(1).Name(), "renamed");
  expectSound(folder.path("copy.pptx"));
  expectSound(folder.path("new.pptx"));
}

TEST_F(Presentations, SlideIdsStayAndAreNeverUsedTwice) {
  DeckBuilder deck = threeSlides();
  deck.firstSlideNumber(5);
  const host::Presentation presentation = host.open(save(deck));
  const host::Slides slides = presentation.Slides();
  const int last = slides.Item(3).SlideID();
  const host::Slide second = slides.Item(2);
  slides.Item(3).Delete();
  slides.Item(1).Delete();
  EXPECT_EQ(second.SlideIndex(), 1);
  EXPECT_EQ(second.SlideNumber(), 5);
  EXPECT_EQ(errorNumber([&] { slides.FindBySlideID(last); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { slides.Item(2); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { slides.Item(0); }), base::errors::invalidRequest);

  const host::Slide added = slides.Add(1, host::ppLayoutTitleOnly);
  EXPECT_GT(added.SlideID(), last);
  EXPECT_EQ(second.SlideIndex(), 2);
  EXPECT_EQ(slides.FindBySlideID(added.SlideID()).SlideIndex(), 1);
}

TEST_F(Presentations, AddsSlidesWithTheLayoutsPlaceholders) {
  const std::string path = save(threeSlides());
  const host::Presentation presentation = host.open(path);
  const struct {
    host::PpSlideLayout layout;
    std::vector<std::string> names;
  } cases[] = {{host::ppLayoutTitleOnly, {"Title Placeholder 1"}},
               {host::ppLayoutBlank, {}},
               {host::ppLayoutText, {"Title Placeholder 1", "Content Placeholder 2"}},
               {host::ppLayoutTitle, {"Title Placeholder 1", "Subtitle Placeholder 2"}}};
  for (const auto& [layout, names] : cases) {
    const host::Slide slide = presentation.Slides().Add(presentation.Slides().Count() + 1, layout);
    std::vector<std::string> found;
    for (int i = 1; i <= slide.Shapes().Count(); ++i) {
      found.push_back(slide.Shapes().Item(i).Name());
      EXPECT_EQ(slide.Shapes().Item(i).Type(), host::msoPlaceholder);
      EXPECT_GT(slide.Shapes().Item(i).Width(), 0) << "the frame is the layout's";
    }
    EXPECT_EQ(found, names) << layout;
  }
  presentation.Save();
  expectSound(path);
}

// The frames of the new layout's placeholders are the master's.
TEST_F(Presentations, AddsSimpleLayoutsThatTheMasterLacks) {
  DeckBuilder deck;
  deck.master().layouts({"title"});
  deck.slide("title");
  const std::string path = save(deck);
  const host::Presentation presentation = host.open(path);
  const auto add = [&](host::PpSlideLayout layout) {
    return presentation.Slides().Add(presentation.Slides().Count() + 1, layout);
  };
  EXPECT_EQ(add(host::ppLayoutTitleOnly).Layout(), host::ppLayoutTitleOnly);
  EXPECT_EQ(add(host::ppLayoutBlank).Shapes().Count(), 0);
  const host::Shapes shapes = add(host::ppLayoutTitleOnly).Shapes();
  ASSERT_EQ(shapes.Count(), 1);
  EXPECT_GT(shapes.Item(1).Width(), 0);
  EXPECT_EQ(errorNumber([&] { add(static_cast<host::PpSlideLayout>(29)); }), base::errors::invalidRequest);
  presentation.Save();
  expectSound(path);
  const auto zip = test::readZipFile(path);
  EXPECT_EQ(std::count_if(
                zip.begin(), zip.end(),
                [](const auto& entry) { return entry.first.starts_with("ppt/slideLayouts/slideLayout"); }),
            3)
      << "each is added once";
}

TEST_F(Presentations, DeletingASlideTakesItsPartsAlong) {
  DeckBuilder deck;
  deck.slide("blank").shape("rect", 0, 0, 10, 10);
  auto second = deck.slide("blank");
  second.notes("to be said");
  second.picture(0, 0, 50, 50);
  second.chart(0, 100, 200, 100, {{"a", 1}, {"b", 2}});
  second.tag("KEY", "value");
  const std::string path = save(deck);
  const host::Presentation presentation = host.open(path);
  presentation.Slides().Item(2).Delete();
  presentation.Save();
  expectSound(path);
  EXPECT_EQ(host.open(path).Slides().Count(), 1);
}

TEST_F(Presentations, NewPresentationsAreSound) {
  const host::Presentation presentation = host.application().Presentations().Add(true);
  EXPECT_EQ(presentation.Path(), "");
  EXPECT_EQ(presentation.Name(), "Presentation1");
  EXPECT_EQ(errorNumber([&] { presentation.Save(); }), base::errors::unspecific);
  for (const auto layout :
       {host::ppLayoutTitle, host::ppLayoutText, host::ppLayoutTitleOnly, host::ppLayoutBlank}) {
    presentation.Slides().Add(1, layout);
  }
  presentation.SaveAs(folder.path("new.pptx"));
  expectSound(folder.path("new.pptx"));
  EXPECT_EQ(host.open(folder.path("new.pptx")).Slides().Count(), 4);
}

TEST_F(Presentations, NamesInAllScripts) {
  const std::filesystem::path plain = save(threeSlides());
  const std::filesystem::path named =
      plain.parent_path() / platform::pathOf("Größe 日本 \xF0\x9F\x98\x80.pptx");
  std::filesystem::rename(plain, named);
  const std::string path = platform::textOf(named);
  const host::Presentation presentation = host.open(path);
  EXPECT_EQ(presentation.Name(), "Größe 日本 \xF0\x9F\x98\x80.pptx");
  EXPECT_EQ(presentation.FullName(), path);
  presentation.Slides().Item(1).Delete();
  presentation.Save();
  presentation.Close();
  EXPECT_EQ(host.open(path).Slides().Count(), 2);
}

TEST_F(Presentations, TagsOfAllHoldersSurviveTheFile) {
  const std::string path = save(threeSlides());
  {
    const host::Presentation presentation = host.open(path);
    const host::Slide slide = presentation.Slides().Item(2);
    for (const host::Tags& tags : {presentation.Tags(), slide.Tags(), slide.Shapes().Item("B").Tags()}) {
      tags.Add("zorp_test", "one");
      tags.Add("ZORP_Test", "two & <three>\r\n\"four\"");
      tags.Add("other", "x");
      EXPECT_EQ(tags.Count(), 2);
      tags.Delete("OTHER");
      tags.Delete("never there");
      EXPECT_EQ(tags.Item("absent"), "");
    }
    presentation.Save();
    presentation.Close();
  }
  expectSound(path);
  const host::Presentation presentation = host.open(path);
  const host::Slide slide = presentation.Slides().Item(2);
  for (const host::Tags& tags : {presentation.Tags(), slide.Tags(), slide.Shapes().Item("B").Tags()}) {
    EXPECT_EQ(tags.Item("zorp_TEST"), "two & <three>\r\n\"four\"");
    EXPECT_EQ(tags.Name(1), "ZORP_TEST");
    tags.Delete("zorp_test");
    EXPECT_EQ(tags.Count(), 0);
  }
  EXPECT_EQ(presentation.Slides().Item(1).Tags().Item("zorp_test"), "");
  presentation.Save();
  expectSound(path);
  Package& package = host.state()->documents.back()->package();
  for (const std::string& name : package.partNames())
    EXPECT_EQ(name.find("tags/"), std::string::npos) << name;
}

std::vector<int> extraColors(const host::Presentation& presentation) {
  std::vector<int> colors;
  for (int i = 1; i <= presentation.ExtraColors().Count(); ++i) {
    colors.push_back(presentation.ExtraColors().Item(i));
  }
  return colors;
}

TEST_F(Presentations, ExtraColorsAreEightAtMostAndTheOldestGoes) {
  const std::string path = save(threeSlides());
  const host::Presentation presentation = host.open(path);
  const host::ExtraColors colors = presentation.ExtraColors();
  for (int color : {0x0000FF, 0x00FF00, 0x0000FF}) colors.Add(color);
  EXPECT_EQ(extraColors(presentation), (std::vector{0x0000FF, 0x00FF00}));
  for (int i = 1; i <= 7; ++i) colors.Add(i);
  const std::vector<int> eight{0x00FF00, 1, 2, 3, 4, 5, 6, 7};
  EXPECT_EQ(extraColors(presentation), eight);
  EXPECT_EQ(errorNumber([&] { colors.Item(9); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { colors.Add(0x1000000); }), base::errors::outOfRange);
  presentation.Save();
  expectSound(path);
  EXPECT_EQ(extraColors(host.open(path)), eight);
  colors.Clear();
  EXPECT_EQ(colors.Count(), 0);
}

// Later hosts keep ten, and colours of the theme among them.
TEST_F(Presentations, ExtraColorsOfTheFileComeLastOneFirst) {
  auto deck = threeSlides();
  for (int i = 1; i <= 10; ++i) deck.extraColor("0000" + std::to_string(10 + i));
  const std::string path = save(deck);
  const host::Presentation presentation = host.open(path);
  const PartRef part = host.state()->documents.back()->package().part("ppt/presProps.xml");
  part->root().child("p:clrMru").first_child().set_name("a:schemeClr");
  part->root().child("p:clrMru").first_child().attribute("val").set_value("accent1");
  const int accent1 = presentation.Slides().Range(1).ColorScheme().Colors(host::PpColorSchemeIndex(5)).RGB();
  EXPECT_EQ(extraColors(presentation),
            (std::vector{0x180000, 0x170000, 0x160000, 0x150000, 0x140000, 0x130000, 0x120000, accent1}));
  presentation.ExtraColors().Add(1);
  EXPECT_EQ(extraColors(presentation).back(), 1);
  EXPECT_EQ(extraColors(presentation).size(), 8u);
  presentation.Save();
  expectSound(path);
}

TEST_F(Presentations, ColorSchemesAreTheEightColorsOfTheTheme) {
  const host::Presentation presentation = host.open(save(threeSlides()));
  const host::ColorScheme scheme = presentation.Slides().Range(2).ColorScheme();
  const auto color = [&](int place) { return scheme.Colors(host::PpColorSchemeIndex(place)).RGB(); };
  std::vector<int> colors;
  for (int place = 1; place <= 8; ++place) colors.push_back(color(place));
  EXPECT_EQ(colors,
            (std::vector{0xFFFFFF, 0x000000, 0xF5F1EE, 0x442A1F, 0x8C5D2F, 0x3D55C8, 0x8C5D2F, 0x7B5B6C}));
  EXPECT_EQ(errorNumber([&] { color(9); }), base::errors::outOfRange);
  presentation.Slides().Item(2).Delete();
  EXPECT_EQ(errorNumber([&] { color(1); }), base::errors::invalidRequest);
}

TEST_F(Presentations, OpeningParsesNoSlideThatNobodyAsksFor) {
  DeckBuilder deck;
  for (int i = 0; i < 40; ++i) deck.slide("blank").shape("rect", 0, 0, 10, 10);
  const host::Presentation presentation = host.open(save(deck));
  Package& package = host.state()->documents.front()->package();
  const auto parsedSlides = [&] {
    int parsed = 0;
    for (const std::string& name : package.partNames()) {
      if (name.starts_with("ppt/slides/slide") && package.part(name)->parsed()) ++parsed;
    }
    return parsed;
  };
  EXPECT_EQ(presentation.Slides().Count(), 40);
  EXPECT_EQ(parsedSlides(), 0);
  EXPECT_EQ(presentation.Slides().Item(17).Shapes().Count(), 1);
  EXPECT_EQ(parsedSlides(), 1);
}

}  // namespace
}  // namespace vellumark::deck
