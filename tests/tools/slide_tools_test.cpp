// Tools that make new presentations of slides, mail them, and work on masters and notes.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <thread>

#include "base/conversions.h"
#include "base/text.h"
#include "core/registry.h"
#include "platform/paths.h"
#include "support/overlay.h"
#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using decks::DeckBuilder;
using test::Texts;

const std::string product = "Vellumark for presentations ";

class NoEvents : public core::ApplicationEvents {
 public:
  const core::SelectionFlags& flags() const override { return flags_; }
  void checkSelection() override {}
  void toggle() override {}
  void toggleOff() override {}

 private:
  core::SelectionFlags flags_;
};

class SlideTools : public test::Stage {
 protected:
  SlideTools() {
    std::filesystem::create_directory(folder.path("tmp"));
    for (const char* name : {"A", "B", "C"}) {
      auto slide = deck.slide("titleOnly");
      slide.placeholder("title").text(name);
      slide.shape("rect", 100, 50, 100, 50).named("From");
      slide.shape("rect", 300, 150, 100, 50).named("To");
    }
  }
  void start(const std::string& version = "14.0") {
    open(version);
    core::globals().applicationEvents = &events_;
    host->state()->fileAnswerer = [this](const deck::FileQuestion& question) {
      asked_ = question;
      return chosen_;
    };
  }
  host::Application application() { return host->application(); }
  host::Slide slide(int index) { return presentation.Slides().Item(index); }
  static Texts titles(const host::Presentation& of) {
    Texts titles;
    for (int i = 1; i <= of.Slides().Count(); ++i) {
      titles.push_back(of.Slides().Item(i).Shapes().Item(1).TextFrame().TextRange().Text());
    }
    return titles;
  }
  /// What was told beside the dialogs themselves.
  Texts told() {
    Texts texts = messages.take();
    std::erase_if(texts, [](const std::string& text) { return text.find("[none]") != std::string::npos; });
    return texts;
  }
  std::string extracts() { return core::getRegistry("slideExtracts", "", ""); }

  NoEvents events_;
  deck::FileQuestion asked_;
  std::optional<std::string> chosen_;
  test::EnvironmentGuard temporary_{test::temporaryFolderVariable, folder.path("tmp")};
  test::EnvironmentGuard now_{"VELLUMARK_NOW", "2026-01-31 09:05:07"};
};

TEST_F(SlideTools, SelectedSlidesBecomeAPresentation) {
  start();
  host->selectSlides(std::vector<std::int32_t>{3, 1});
  tools.saveSelectedSlides();  // and thought better of it
  const std::string extract = platform::toSystem(base::split(extracts(), ';').at(0));
  EXPECT_TRUE(extract.starts_with(folder.path("tmp/vellumark-")) && std::filesystem::exists(extract))
      << extract;
  EXPECT_EQ(application().Presentations().Count(), 1);
  EXPECT_TRUE(extracts().ends_with("zorp20260131090507.pptx;")) << extracts();
  EXPECT_EQ(asked_.title, "Save selected slides as new presentation");
  EXPECT_EQ(asked_.initialFileName, presentation.Path() + "\\");
  EXPECT_FALSE(events_.noTempFolderWarning);

  presentation.SaveAs(folder.path("mine.pptx"));
  const std::string mine = test::readFile(folder.path("mine.pptx"));
  std::vector<const char*> names = {"mine.pptx"};
  std::error_code noLinks;
  std::filesystem::create_symlink(folder.path("mine.pptx"), folder.path("link.pptx"), noLinks);
  if (!noLinks) names.push_back("link.pptx");
  for (const char* own : names) {
    chosen_ = folder.path(own);
    tools.saveSelectedSlides();
    EXPECT_EQ(told(), Texts{product + "[critical] The selected slides can't be saved as '" + *chosen_ +
                            "', because that presentation is open.\r\nPlease choose another file."});
  }
  EXPECT_EQ(test::readFile(folder.path("mine.pptx")), mine);

  chosen_ = folder.write("chosen.pptx", "in the way");
  tools.saveSelectedSlides();
  ASSERT_EQ(application().Presentations().Count(), 2);
  const host::Presentation opened = application().ActivePresentation();
  EXPECT_EQ(opened.Name(), "chosen.pptx");
  EXPECT_EQ(titles(opened), (Texts{"A", "C"}));
  EXPECT_EQ(opened.Slides().Item(2).SlideID(), slide(3).SlideID());
  EXPECT_EQ(titles(presentation), (Texts{"A", "B", "C"}));
  EXPECT_EQ(failures.take(), Texts{});
}

/// A deck in the cloud has an address for a path.
TEST_F(SlideTools, AFolderInTheCloudIsNoFolder) {
  start();
  host->selectSlides(std::vector<std::int32_t>{2});
  const std::string address = "https://example.com/sites/Sales/";
  const host::ObjectRef cloud = test::overlaid(presentation.object(), "Path", address);
  std::string savedAs;
  bool warns = true;
  const auto open = [&](std::span<const host::Value> arguments) {
    const host::ObjectRef opened = application()
                                       .Presentations()
                                       .object()
                                       ->invoke(host::member::Open, host::Invoke::call, arguments)
                                       .toObject();
    return host::Value(std::make_shared<test::Overlay>(
        opened,
        std::map<std::string, test::FakeObject::Function>{{"SaveAs", [&](std::span<const host::Value> more) {
                                                             savedAs = more[0].toString();
                                                             warns = !events_.noTempFolderWarning;
                                                             return host::Value();
                                                           }}}));
  };
  const auto presentations =
      std::make_shared<test::Overlay>(application().Presentations().object(),
                                      std::map<std::string, test::FakeObject::Function>{{"Open", open}});
  core::globals().powerPointApp = host::Application(test::overlaid(
      test::overlaid(application().object(), "Presentations", presentations), "ActivePresentation", cloud));

  chosen_ = address + "Extract.pptx";
  tools.saveSelectedSlides();
  EXPECT_EQ(asked_.initialFileName, "");
  EXPECT_EQ(savedAs, *chosen_) << "the host itself writes there";
  EXPECT_FALSE(warns);
  EXPECT_FALSE(events_.noTempFolderWarning);

  const test::EnvironmentGuard opener(
      "VELLUMARK_OPENER",
      folder.write("opener", "#!/bin/sh\nprintf '%s' \"$1\" > '" + folder.path("opened") + "'\n"));
  std::filesystem::permissions(folder.path("opener"), std::filesystem::perms::owner_all);
  tools.openContainingFolder();
  EXPECT_EQ(test::readFile(folder.path("opened")), address);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideTools, SelectedSlidesGoIntoAMail) {
  const std::string out = folder.path("mailed");
  const std::string mailer = folder.write(
      "mailer", "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + out + ".new'\nmv '" + out + ".new' '" + out + "'\n");
  std::filesystem::permissions(mailer, std::filesystem::perms::owner_all);
  const test::EnvironmentGuard program("VELLUMARK_MAILER", mailer);
  const test::EnvironmentGuard cache("XDG_CACHE_HOME", folder.path("cache"));
  struct Case {
    const char* version;
    const char* script;
    std::string name;
    std::string fullName = {};  // where it isn't the file's
  };
  const Case cases[] = {
      {"14.0", "btnOK", "Plan 2026.v2_extract_2026-01-31_09-05-07.pptx",
       "https://example.com/sites/Sales/Plan%202026.v2.pptx"},
      {"14.0", "btnOK", "deck_extract_2026-01-31_09-05-07.pptx"},
      {"11.0", "btnOK", "deck_extract_2026-01-31_09-05-07.ppt"},
      {"14.0", "tbFileName='for you'; btnOK", "for you.pptx"},
      {"14.0", "tbFileName=x.pptx; btnOK", "x.pptx"},
      {"14.0", "tbFileName='  '; btnOK; tbFileName='a:b'; btnOK; tbFileName=ab; btnOK", "ab.pptx"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    start(c.version);
    host->selectSlides(std::vector<std::int32_t>{2});
    if (!c.fullName.empty()) {
      core::globals().powerPointApp =
          host::Application(test::overlaid(application().object(), "ActivePresentation",
                                           test::overlaid(presentation.object(), "FullName", c.fullName)));
    }
    messages.toolkit().addDialog(std::string("emailSelectedSlidesInput: ") + c.script);
    tools.emailSelectedSlides();
    for (int i = 0; i < 500 && !std::filesystem::exists(out); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const Texts words = base::split(test::readFile(out), '\n');
    ASSERT_EQ(words.size(), 6U);  // one behind the last line's end
    EXPECT_EQ(Texts(words.begin(), words.begin() + 4), (Texts{"--utf8", "--subject", c.name, "--attach"}));
    const std::string& attachment = words[4];
    EXPECT_TRUE(attachment.starts_with(folder.path("cache") + "/vellumark/attachments/")) << attachment;
    EXPECT_TRUE(attachment.ends_with("/" + c.name)) << attachment;
    std::filesystem::remove(out);
    if (c.version[0] == '1') {
      const host::Presentation mailed = application().Presentations().Open(attachment, true, false, false);
      EXPECT_EQ(titles(mailed), Texts{"B"});
    }
  }
  EXPECT_EQ(told(), (Texts{product + "[information] Please enter a file name for the e-mail attachment.",
                           product + "[information] The following characters are not allowed: \\/:*?\"<>|"}));
  const std::string before = extracts();
  messages.toolkit().addDialog("emailSelectedSlidesInput: btnCancel");
  tools.emailSelectedSlides();
  EXPECT_EQ(extracts(), before);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideTools, TheClipboardIsPastedOnSelectedSlides) {
  start();
  shape("From").Copy();
  host->showView(host::ppViewSlideSorter);
  host->selectSlides(std::vector<std::int32_t>{2, 3});
  tools.pasteOnSelectedSlides();
  EXPECT_EQ(application().ActiveWindow().ViewType(), host::ppViewSlideSorter);
  EXPECT_EQ(slide(1).Shapes().Count(), 3);
  for (const int index : {2, 3}) {
    EXPECT_EQ(slide(index).Shapes().Count(), 4);
    EXPECT_EQ(slide(index).Shapes().Item(4).Left(), 100);
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideTools, SpeechNotesGoOnlyOnYes) {
  deck.slide().notes("Remember\nthis");
  start();
  const auto notes = [&] {
    const host::Shapes shapes = slide(4).NotesPage().Shapes();
    std::string text;
    for (int i = 1; i <= shapes.Count(); ++i) {
      if (shapes.Item(i).PlaceholderFormat().Type() == 2)
        text = shapes.Item(i).TextFrame().TextRange().Text();
    }
    return text;
  };
  tools.removeAllSpeechNotes();  // No is the default
  EXPECT_EQ(notes(), "Remember\rthis");
  messages.toolkit().addAnswer("Yes");
  tools.removeAllSpeechNotes();
  EXPECT_EQ(notes(), "");
  application().ActiveWindow().Selection().SlideRange().Select();
  tools.setLanguage(1031);
  EXPECT_EQ(host::getByName(slide(1).object(), "HasNotesPage").toInt(), host::msoFalse)
      << "neither makes the pages of slides that have none";
  const Texts questions = told();
  EXPECT_EQ(questions.size(), 2u);
  EXPECT_EQ(
      questions.back(),
      product +
          "[exclamation] This will permanently remove all speech notes from the presentation.\r\nPlease make "
          "sure you have a backup copy!\r\nAre you sure you want to proceed?");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideTools, AMotionPathLeadsFromCentreToCentre) {
  // The slide has 960 by 540 points: 200 / 960 and 100 / 540.
  const struct {
    std::string version;
    char separator;
    std::vector<std::string> shapes;
    std::string path;
  } cases[] = {
      {"14.0", '.', {"From", "To"}, "M 0 0 L 0.208333333333333 0.185185185185185"},
      {"14.0", ',', {"To", "From"}, "M 0 0 L -0.208333333333333 -0.185185185185185"},
      {"11.0", ',', {"From", "Same"}, "M 0 0 L 0 0"},
  };
  auto slide = deck.slide();
  slide.shape("rect", 100, 50, 100, 50).named("From");
  slide.shape("rect", 300, 150, 100, 50).named("To");
  slide.shape("ellipse", 125, 50, 50, 50).named("Same").rotate(45);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    start(c.version);
    application().ActiveWindow().View().GotoSlide(4);
    std::vector<host::Shape> chosen;
    for (const std::string& name : c.shapes)
      chosen.push_back(presentation.Slides().Item(4).Shapes().Item(name));
    host->selectShapes(chosen);
    base::setDecimalSeparator(c.separator);
    const host::CommandBar pane = application().CommandBars().Add("Custom Animation", 1, true);
    pane.Visible(false);
    tools.createMotionPath();
    EXPECT_EQ(pane.Visible(), c.version != std::string("11.0")) << "older hosts have a control for it";
    base::setDecimalSeparator(std::nullopt);
    const host::Sequence sequence = presentation.Slides().Item(4).TimeLine().MainSequence();
    ASSERT_EQ(sequence.Count(), 1);
    ASSERT_EQ(sequence.Item(1).Behaviors().Count(), 1);
    EXPECT_EQ(sequence.Item(1).Behaviors().Item(1).MotionEffect().Path(), c.path);
  }
  EXPECT_EQ(failures.take(), Texts{});
}

class Copyright : public SlideTools {
 protected:
  Copyright() {
    DeckBuilder notices;
    notices.slide().textBox(10, 500, 300, 20, "For us alone").named("Internal");
    auto second = notices.slide();
    second.textBox(10, 500, 300, 20, "Confidential").named("Secret");
    second.picture(320, 500, 20, 20).named("Logo");
    notices.slide();
    notices.save(folder.path("styles/House/copyright_slide.ppt"));
    deck.addMaster();
    deck.master().textBox(0, 0, 10, 10, " Old notice ").named("Text");
    deck.master().textBox(0, 0, 10, 10, "Stays").named("Name to go");
    deck.master().shape("rect", 0, 0, 10, 10).named("Stays too");
    folder.write("customization/copyright_remove.txt", "# Old notice\r\n\r\n  Old notice\r\nName to go\r\n");
  }
  void prepare(const std::string& version = "14.0") {
    start(version);
    core::globals().currentStyle = "House";
    core::globals().stylesFolder = folder.path("styles") + "\\";
    core::globals().configFolder = folder.path("customization") + "\\";
  }
  /// The shapes of a master that are no placeholders.
  Texts shapesOf(int master) {
    const host::Shapes shapes = presentation.Designs().Item(master).SlideMaster().Shapes();
    Texts names;
    for (int i = 1; i <= shapes.Count(); ++i) {
      if (shapes.Item(i).Type() != host::msoPlaceholder) names.push_back(shapes.Item(i).Name());
    }
    return names;
  }
};

TEST_F(Copyright, ANoticeTakesThePlaceOfTheLastOneOnAllMasters) {
  prepare();
  tools.callMethod("insertCopyright", "1");
  EXPECT_EQ(shapesOf(1), (Texts{"Stays too", "Internal"}));
  EXPECT_EQ(shapesOf(2), (Texts{"Internal"}));
  tools.insertCopyright(2);
  EXPECT_EQ(shapesOf(1), (Texts{"Stays too", "Secret", "Logo"}));
  EXPECT_EQ(shapesOf(2), (Texts{"Secret", "Logo"}));
  EXPECT_EQ(application().ActiveWindow().View().Zoom(), 100);
  EXPECT_EQ(application().Presentations().Count(), 1);
  tools.insertCopyright(3);  // an empty one
  EXPECT_EQ(shapesOf(1), Texts{"Stays too"});
  EXPECT_EQ(told(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Copyright, WhatMustBeThereFirst) {
  prepare("11.0");
  const std::string advice =
      "' could not be found.\r\nPlease check your installation and contact us at support@vellumark.example "
      "if the "
      "problem persists.";
  tools.insertCopyright(1);  // the second template of old hosts is missing
  EXPECT_EQ(shapesOf(2), Texts{"Internal"});
  EXPECT_EQ(told(), Texts{product + "[critical] The template file '" +
                          folder.path("styles/House/copyright_title.ppt") + advice});
  core::globals().currentStyle = "None";
  tools.insertCopyright(1);
  EXPECT_EQ(told(), Texts{product + "[critical] The template file '" +
                          folder.path("styles/None/copyright_slide.ppt") + advice});
  host->showView(host::ppViewSlideSorter);
  tools.insertCopyright(1);
  while (presentation.Slides().Count() > 0) slide(1).Delete();
  tools.insertCopyright(1);
  presentation.Saved(true);
  presentation.Close();
  tools.insertCopyright(1);
  core::globals().currentStyle.clear();
  tools.insertCopyright(1);
  EXPECT_EQ(
      told(),
      (Texts{product + "[information] Please go to normal view.",
             product + "[critical] The active presentation does not contain any slides.\r\nPlease add a "
                       "slide before inserting a copyright notice.",
             product + "[critical] There is no active presentation.\r\nPlease open a presentation or "
                       "create a new presentation before inserting a copyright notice.",
             product + "[information] Please select a style first."}));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideTools, BlackAndWhiteModesGoWhereTheSelectionIs) {
  start();
  const auto modes = [&](int index) {
    return std::vector<int>{slide(index).Background().BlackWhiteMode(),
                            slide(index).Shapes().Item("From").BlackWhiteMode(),
                            slide(index).Shapes().Item("To").BlackWhiteMode()};
  };
  const auto answer = [&](const char* script) {
    messages.toolkit().addDialog(std::string("BlackWhiteMode: ") + script);
  };
  select({"To"});
  answer("cbShapes=While; btnOK");
  tools.setBlackWhiteMode();
  EXPECT_EQ(modes(1), (std::vector{1, 1, 9}));

  host->selectSlides(std::vector<std::int32_t>{2});
  answer("cbBackground=Grayscale; cbShapes=\"Don't show\"; btnOK");
  tools.setBlackWhiteMode();
  EXPECT_EQ(modes(2), (std::vector{2, 10, 10}));
  EXPECT_EQ(modes(3), (std::vector{1, 1, 1}));

  host->selectShapes({});
  answer("cbBackground=Black; btnOK");
  tools.setBlackWhiteMode();
  EXPECT_EQ(modes(3), (std::vector{8, 1, 1}));
  EXPECT_EQ(modes(2), (std::vector{8, 1, 1}));
  messages.toolkit().addAnswer("Cancel");
  tools.setBlackWhiteMode();  // no dialog comes up, which would have no answer

  EXPECT_EQ(
      told(),
      (Texts{
          product + "[information] All selected shapes have been set to 'While' mode.",
          product +
              "[information] The background of all selected slides in your presentation has been set to "
              "'Grayscale' mode, all shapes on the selected slides have been set to 'Don't show' mode.",
          product +
              "[question] You have not selected any slides or shapes.\r\nWould you like to apply the black "
              "and white settings to the entire presentation instead?",
          product + "[information] The background of all slides in your presentation has been set to 'Black' "
                    "mode, all shapes have been set to 'Automatic' mode.",
          product +
              "[question] You have not selected any slides or shapes.\r\nWould you like to apply the black "
              "and white settings to the entire presentation instead?"}));
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::tools
