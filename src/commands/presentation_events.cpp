// What follows from the life of presentations and slide shows.

#include "agenda/agenda_commands.h"
#include "agenda/agenda_ties.h"
#include "commands/ppt_events.h"
#include "commands/save_questions.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/template_paths.h"
#include "platform/paths.h"
#include "services/icons.h"
#include "tools/trimline_tools.h"

namespace vellumark::commands {
namespace {

using core::globals;
using core::styleTag;
using core::trap;

constexpr const char* hiddenShapesTag = "zorp_hiddenShapes";

int openPresentations() { return globals().powerPointApp.Presentations().Count(); }

/// What a walk over the slides finds.
struct SlideSurvey {
  int agendaSlides = 0;
  std::string withHiddenShapes;  ///< positions, each followed by ", "
  std::string order;
};

SlideSurvey survey(const host::Presentation& presentation) {
  SlideSurvey found;
  const host::Slides slides = presentation.Slides();
  const int count = slides.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Slide slide = slides.Item(i);
    if (agenda::isAgendaSlide(slide)) ++found.agendaSlides;
    if (slide.Tags().Item(hiddenShapesTag) == "1") {
      found.withHiddenShapes += std::to_string(slide.SlideIndex()) + ", ";
    }
    found.order += agenda::orderEntry(slide);
  }
  return found;
}

ui::Answer askYesNo(const std::string& question) {
  return core::message(question, ui::Icon::question, ui::Buttons::yesNo);
}

/// Whether the page numbers on agenda slides are stale. Presentations whose agenda shows none have no such
/// tag.
bool numbersAreStale(const host::Presentation& presentation, const std::string& order) {
  const std::string known = presentation.Tags().Item(agenda::tags::slideOrder);
  return !known.empty() && known != order;
}

ui::Answer askForPageNumbers() {
  return askYesNo(
      "The page numbers on your agenda slides need to be updated."
      "Would you like to update the page numbers now?");
}

/// The agenda goes with its last slide.
void dropLostAgenda(const host::Presentation& presentation, int agendaSlides) {
  const host::Tags tags = presentation.Tags();
  if (agendaSlides == 0 && !tags.Item(agenda::tags::document).empty()) tags.Delete(agenda::tags::document);
}

ui::Answer askForHiddenShapes(std::string slides) {
  slides.resize(slides.size() - 2);
  return askYesNo("There are hidden shapes on slides " + slides +
                  ".\r\nPlease ensure the hidden shapes do not contain any confidential information before "
                  "sharing the presentation.\r\n" +
                  hiddenShapesQuestion);
}

void rememberStyle(const host::Presentation& presentation) {
  const std::string& style = globals().currentStyle;
  const host::Tags tags = presentation.Tags();
  if (!style.empty() && tags.Item(styleTag) != style) tags.Add(styleTag, style);
}

}  // namespace

void pptEvents::pptApp_NewPresentation(const host::Presentation&) {
  trap("pptEvents, pptApp_NewPresentation", [&] {
    if (openPresentations() == 1) togglePresentation(true);
  });
}

void pptEvents::pptApp_PresentationOpen(const host::Presentation&) {
  trap("pptEvents, pptApp_PresentationOpen", [&] {
    if (openPresentations() == 1) togglePresentation(true);
  });
}

void pptEvents::pptApp_PresentationClose(const host::Presentation& presentation) {
  trap("pptEvents, pptApp_PresentationClose", [&] {
    if (openPresentations() == 1) {
      toggleOff();
      togglePresentation(false);
    }
    if (asked_.empty()) return;
    std::erase_if(asked_,
                  [name = presentation.FullName()](const auto& asked) { return asked.first.first == name; });
  });
}

ui::Answer pptEvents::askAtSave(const host::Presentation& presentation, Question question,
                                const std::string& subject, const std::function<ui::Answer()>& ask) {
  bool savesByItself = false;
  // Only hosts that can do it have the member.
  core::resumeNext([&] { savesByItself = host::getByName(presentation.object(), "AutoSaveOn").toBool(); });
  if (!savesByItself) return ask();
  const std::pair key(presentation.FullName(), question);
  if (const auto known = asked_.find(key); known != asked_.end() && known->second.subject == subject) {
    return known->second.answer;
  }
  const ui::Answer answer = ask();
  asked_[key] = {subject, answer};
  return answer;
}

void pptEvents::warnOfTemporaryFolder(const host::Presentation& presentation) {
  const std::string cachePath = core::getInternetCachePath(), tmpPath = core::getTmpPath();
  const std::string name = presentation.FullName();
  const std::string path = platform::fromSystem(name);
  const bool temporary = path.starts_with(cachePath) || path.starts_with(tmpPath);
  if (!temporary || presentation.ReadOnly() != host::msoFalse || noTempFolderWarning ||
      name == lastSavedName_) {
    return;
  }
  askAtSave(presentation, Question::temporaryFolder, name,
            [] { return core::message(temporaryFolderWarning, ui::Icon::exclamation); });
}

void pptEvents::pptApp_PresentationBeforeSave(const host::Presentation& presentation, bool& cancel) {
  trap("pptEvents, pptApp_PresentationBeforeSave", [&] {
    warnOfTemporaryFolder(presentation);
    const SlideSurvey found = survey(presentation);
    dropLostAgenda(presentation, found.agendaSlides);
    if (numbersAreStale(presentation, found.order) &&
        askAtSave(presentation, Question::pageNumbers, found.order, askForPageNumbers) == ui::Answer::yes) {
      globals().tools->agendaUpdatePagenumbers();
    }
    const auto askForHidden = [&] { return askForHiddenShapes(found.withHiddenShapes); };
    if (!found.withHiddenShapes.empty() &&
        askAtSave(presentation, Question::hiddenShapes, found.withHiddenShapes, askForHidden) !=
            ui::Answer::yes) {
      cancel = true;
    }
    if (cancel) return;
    rememberStyle(presentation);
    lastSavedName_ = presentation.FullName();
  });
}

void pptEvents::pptApp_PresentationPrint(const host::Presentation& presentation) {
  trap("pptEvents, pptApp_PresentationPrint", [&] {
    if (numbersAreStale(presentation, survey(presentation).order) && askForPageNumbers() == ui::Answer::yes) {
      agenda::updateAgendaSlides();
    }
  });
}

// On hosts with a ribbon the style chooser asks for itself.
void pptEvents::pptApp_WindowActivate(const host::Presentation& presentation, const host::DocumentWindow&) {
  trap("pptEvents, pptApp_WindowActivate", [&] {
    globals().currentStyle = presentation.Tags().Item(styleTag);
    if (core::isHostVersion(host::toolbarHosts) && globals().toolbarControls) {
      globals().toolbarControls->setStyle(globals().currentStyle);
    }
  });
}

// A change of the setting during a show doesn't touch a timer that runs.
void pptEvents::pptApp_SlideShowBegin() {
  trap("pptEvents, pptApp_SlideShowBegin", [&] {
    if (globals().screenSaverOff) services::icons().keepScreenSaverAway(true);
  });
}

void pptEvents::pptApp_SlideShowEnd() {
  trap("pptEvents, pptApp_SlideShowEnd", [&] {
    if (globals().screenSaverOff) services::icons().keepScreenSaverAway(false);
  });
}

}  // namespace vellumark::commands
