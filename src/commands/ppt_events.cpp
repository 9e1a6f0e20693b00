#include "commands/ppt_events.h"

#include <initializer_list>
#include <string_view>
#include <utility>

#include "base/conversions.h"
#include "commands/tools_bar.h"
#include "core/failure.h"
#include "core/helpers.h"

namespace vellumark::commands {
namespace {

using core::isHostVersion;
using core::resumeNext;
using core::trap;
using host::Selection;
using host::Shape;
using host::ShapeRange;

/// The windows of the host are on their way to another state, and there is no selection to speak of.
bool isTransition(const base::Error& error) { return error.number() == base::errors::unspecific; }

/// A trap that takes such a state for an ordinary one.
template <typename Body>
void trapInTransition(std::string_view location, Body&& body) {
  trap(location, std::forward<Body>(body), isTransition);
}

/// Whether the rotation, rounded to a whole number with halves to even, is a multiple of 90.
bool isRightAngled(const Shape& shape) {
  return base::toInt32(static_cast<double>(shape.Rotation())) % 90 == 0;
}

bool isBlockArrow(int type) {
  return (type >= host::msoShapeRightArrow && type <= host::msoShapeUpDownArrow) ||
         type == host::msoShapeStripedRightArrow || type == host::msoShapeNotchedRightArrow;
}

bool isProcessShape(int type) { return type == host::msoShapePentagon || type == host::msoShapeChevron; }

bool takesText(int type) {
  return type == host::msoAutoShape || type == host::msoPlaceholder || type == host::msoTextBox;
}

}  // namespace

void pptEvents::PowerPointApp(const host::Application& application) {
  trap("pptEvents, PowerPointApp [Set]", [&] {
    subscription_.reset();
    if (!application) return;
    subscription_ = host::subscribe(
        application.object(),
        [this](host::Member event, std::span<host::Value> arguments) { raised(event, arguments); });
  });
}

/// All other events are ignored, and so is one that comes without what it is about.
void pptEvents::raised(host::Member event, std::span<host::Value> arguments) {
  namespace member = host::member;
  if (event == member::SlideShowBegin) return pptApp_SlideShowBegin();
  if (event == member::SlideShowEnd) return pptApp_SlideShowEnd();
  if (arguments.empty()) return;
  if (event == member::WindowSelectionChange) {
    return pptApp_WindowSelectionChange(Selection(arguments[0].toObject()));
  }
  const bool isPresentation = event == member::NewPresentation || event == member::PresentationOpen ||
                              event == member::PresentationClose || event == member::PresentationBeforeSave ||
                              event == member::PresentationPrint || event == member::WindowActivate;
  if (!isPresentation) return;
  const host::Presentation presentation(arguments[0].toObject());
  if (event == member::NewPresentation) pptApp_NewPresentation(presentation);
  if (event == member::PresentationOpen) pptApp_PresentationOpen(presentation);
  if (event == member::PresentationClose) pptApp_PresentationClose(presentation);
  if (event == member::PresentationPrint) pptApp_PresentationPrint(presentation);
  if (event == member::WindowActivate && arguments.size() > 1) {
    pptApp_WindowActivate(presentation, host::DocumentWindow(arguments[1].toObject()));
  }
  if (event == member::PresentationBeforeSave && arguments.size() > 1) {
    bool cancel = arguments[1].toBool();
    pptApp_PresentationBeforeSave(presentation, cancel);
    arguments[1] = cancel;
  }
}

void pptEvents::checkSelection() {
  trapInTransition("pptEvents, checkSelection", [&] {
    flags_ = {};
    const host::Application& application = core::globals().powerPointApp;
    if (application.Windows().Count() == 0) return;
    const Selection selection = application.ActiveWindow().Selection();
    // No slide and no shape are ordinary states.
    resumeNext(
        [&] { flags_.slideCount = base::toInt16(static_cast<double>(selection.SlideRange().Count())); });
    resumeNext(
        [&] { flags_.shapeCount = base::toInt16(static_cast<double>(selection.ShapeRange().Count())); });
    if (flags_.shapeCount <= 0) return;
    flags_.allRightAngled = flags_.allSameOrientation = flags_.allBlockArrows = true;
    flags_.allPentagons = flags_.allRoundedRectangles = flags_.allTextShapes = true;

    const ShapeRange range = selection.ShapeRange();
    double firstRotation = 0;
    bool firstHorizontal = false, firstVertical = false;
    const int count = range.Count();
    for (int i = 1; i <= count; ++i) {
      const Shape shape = range.Item(i);
      if (!isRightAngled(shape)) flags_.allRightAngled = false;
      const double rotation = core::normalizeRotation(shape);
      const bool horizontal = shape.HorizontalFlip() != 0;
      const bool vertical = shape.VerticalFlip() != 0;
      if (i == 1) {
        firstRotation = rotation;
        firstHorizontal = horizontal;
        firstVertical = vertical;
      } else if (rotation != firstRotation || horizontal != firstHorizontal || vertical != firstVertical) {
        flags_.allSameOrientation = false;
      }
      const int type = shape.Type();
      const int autoShape = type == host::msoAutoShape ? shape.AutoShapeType() : 0;
      if (!isBlockArrow(autoShape)) flags_.allBlockArrows = false;
      if (!isProcessShape(autoShape)) flags_.allPentagons = false;
      if (autoShape != host::msoShapeRoundedRectangle) flags_.allRoundedRectangles = false;
      if (!takesText(type) || shape.HasTable() != 0) flags_.allTextShapes = false;
    }
  });
}

AngleCheck pptEvents::check90degr(const ShapeRange& range) {
  return trap("pptEvents, check90degr", [&] {
    AngleCheck check{true, true, true, true};
    double firstRotation = 0;
    const int count = range.Count();
    for (int i = 1; i <= count; ++i) {
      const Shape shape = range.Item(i);
      const double rotation = core::normalizeRotation(shape);
      if (i == 1) {
        firstRotation = rotation;
      } else if (rotation != firstRotation) {
        check.sameRotation = false;
      }
      if (i < count) {
        if (!isRightAngled(shape)) check.allButLastRightAngled = false;
      } else {
        check.lastRightAngled = isRightAngled(shape);
      }
      if (shape.Type() != host::msoAutoShape || !isProcessShape(shape.AutoShapeType()))
        check.allProcessShapes = false;
    }
    return check;
  });
}

void pptEvents::pptApp_WindowSelectionChange(Selection selection) {
  trap(
      "pptEvents, pptApp_WindowSelectionChange",
      [&] {
        checkSelection();
        if (isHostVersion(host::ribbonHosts)) {
          if (core::globals().ribbonUI) core::globals().ribbonUI.Invalidate();
          return;
        }
        evaluateForToolbars(selection);
      },
      [&](const base::Error& error) {
        if (!isTransition(error)) return false;
        toggleOff();
        return true;
      });
}

void pptEvents::evaluateForToolbars(Selection& selection) {
  bool slides = false, editing = false, shape = false, text = false, exactlyTwo = false, header = false;
  bool two = false, two90 = false, angles = false, chain = false;
  // The active pane is asked for by name, as not every host's type information has it.
  const host::ObjectRef pane = host::getByName(selection.Parent(), "ActivePane").toObject();
  switch (host::getByName(pane, "ViewType").toInt()) {
    case host::ppViewThumbnails:
    case host::ppViewSlideSorter:
    case host::ppViewOutline:
      slides = selection.Type() == host::ppSelectionSlides;
      break;
    case host::ppViewSlide:
    case host::ppViewSlideMaster:
    case host::ppViewTitleMaster:
    case host::ppViewHandoutMaster:
    case host::ppViewNotesMaster:
      editing = true;
      if (selection.Type() == host::ppSelectionText) {
        shape = true;
        const ShapeRange range = selection.ShapeRange();
        text = range.Type() != host::msoGroup && range.HasTable() == 0;
      } else if (selection.Type() == host::ppSelectionShapes) {
        const ShapeRange range = selection.ShapeRange();
        const AngleCheck check = check90degr(range);
        const int count = range.Count();
        shape = count >= 1;
        exactlyTwo = header = count == 2;
        if (count >= 2) {
          two = true;
          two90 = check.allButLastRightAngled;
          angles = check.allProcessShapes;
          chain = check.allButLastRightAngled && check.lastRightAngled && check.sameRotation &&
                  check.allProcessShapes;
        }
        text = true;
        for (int i = 1; i <= count && text; ++i) text = takesText(range.Item(i).Type());
      }
      break;
    default:
      break;
  }
  toggleSlides(slides);
  toggleAlignAngles(angles);
  if (editing) toggleAutoShapeTextState(selection);
  toggleAutoShapeText(text);
  togglePentagonHeader(header);
  toggleProcessChain(chain);
  toggleSwitchObjects(exactlyTwo);
  toggleShape(shape);
  toggleTwoOrMoreShapes(two);
  toggleTwoOrMoreShapes90degr(two90);
}

void pptEvents::toggle() {
  trap("pptEvents, toggle", [&] {
    const host::Application& application = core::globals().powerPointApp;
    if (application.Windows().Count() >= 1) {
      resumeNext([&] { pptApp_WindowSelectionChange(application.ActiveWindow().Selection()); });
    } else {
      toggleOff();
    }
  });
}

void pptEvents::toggleOff() {
  trap("pptEvents, toggleOff", [&] {
    toggleAlignAngles(false);
    toggleAutoShapeText(false);
    togglePentagonHeader(false);
    toggleProcessChain(false);
    toggleSlides(false);
    toggleSwitchObjects(false);
    toggleShape(false);
    toggleTwoOrMoreShapes(false);
    toggleTwoOrMoreShapes90degr(false);
  });
}

void pptEvents::toggleButton(const std::string& barName, const std::string& controlName, bool enabled) {
  trap("pptEvents, toggleButton", [&] {
    if (!isHostVersion(host::toolbarHosts)) return;
    core::globals().powerPointApp.CommandBars().Item(barName).Controls().Item(controlName).Enabled(enabled);
  });
}

// The opening bracket belongs to the location.
void pptEvents::togglePopupEntry(const std::string& barName, const std::string& popupName,
                                 const std::string& entryName, bool enabled) {
  trap("pptEvents, togglePopupEntry (", [&] {
    if (!isHostVersion(host::toolbarHosts)) return;
    const host::CommandBar bar = core::globals().powerPointApp.CommandBars().Item(barName);
    const host::CommandBarControl entry = bar.Controls().Item(popupName).Controls().Item(entryName);
    host::putByName(entry.object(), "Enabled", enabled);
  });
}

namespace {

using Names = std::initializer_list<const char*>;

void toggleAll(pptEvents& events, bool enabled, Names onBar, Names inTools = {}) {
  for (const char* name : onBar) events.toggleButton(toolsBar::name, name, enabled);
  for (const char* name : inTools)
    events.togglePopupEntry(toolsBar::name, toolsBar::toolsPopup, name, enabled);
}

}  // namespace

void pptEvents::toggleAlignAngles(bool enabled) {
  trap("pptEvents, toggleAlignAngles", [&] { toggleAll(*this, enabled, {"Align angles"}); });
}

void pptEvents::toggleAutoShapeText(bool enabled) {
  trap("pptEvents, toggleAutoShapeText", [&] {
    toggleAll(*this, enabled, {"Fit AutoShape to text", "Wrap text in AutoShape"});
  });
}

void pptEvents::togglePentagonHeader(bool enabled) {
  trap("pptEvents, togglePentagonHeader", [&] { toggleAll(*this, enabled, {"Adjust pentagon header"}); });
}

void pptEvents::toggleProcessChain(bool enabled) {
  trap("pptEvents, toggleProcessChain", [&] { toggleAll(*this, enabled, {"Align process chain"}); });
}

void pptEvents::toggleSwitchObjects(bool enabled) {
  trap("pptEvents, toggleSwitchObjects", [&] { toggleAll(*this, enabled, {"Switch objects"}); });
}

void pptEvents::toggleSlides(bool enabled) {
  trap("pptEvents, toggleSlides", [&] {
    toggleAll(*this, enabled, {},
              {"Paste on selected slides", "Disconnect selected agenda slides from Agenda Wizard",
               "Save selected slides as new presentation", "E-mail selected slides"});
  });
}

void pptEvents::togglePresentation(bool enabled) {
  trap("pptEvents, togglePresentation", [&] {
    toggleAll(*this, enabled, {}, {"Remove all speech notes", "Open containing folder"});
  });
}

void pptEvents::toggleShape(bool enabled) {
  trap("pptEvents, toggleShape", [&] {
    toggleAll(
        *this, enabled,
        {"Set AutoShape margins", "Beautify indents", "Decrease indent level", "Increase indent level"},
        {"Beautify block arrows", "Tweak AutoShape adjustments", "Hide selected shapes", "Text statistics"});
  });
}

void pptEvents::toggleTwoOrMoreShapes(bool enabled) {
  trap("pptEvents, toggleTwoOrMoreShapes", [&] {
    toggleAll(*this, enabled,
              {"Align left to master left", "Align center to master center", "Align right to master right",
               "Align top to master top", "Align middle to master middle", "Align bottom to master bottom",
               "Move left to master right", "Move right to master left", "Move top to master bottom",
               "Move bottom to master top"},
              {"Rounded rectangles", "Create motion path", "Align vertically in golden section"});
  });
}

void pptEvents::toggleTwoOrMoreShapes90degr(bool enabled) {
  trap("pptEvents, toggleTwoOrMoreShapes90degr", [&] {
    toggleAll(*this, enabled,
              {"Stretch to master width", "Stretch to master height", "Stretch to master width and height",
               "Stretch to master left", "Stretch to master right", "Stretch to master top",
               "Stretch to master bottom", "Stretch left to master right", "Stretch right to master left",
               "Stretch top to master bottom", "Stretch bottom to master top"});
  });
}

namespace {

struct TextToggles {
  host::CommandBarButton fit, wrap;

  TextToggles() {
    const host::CommandBars bars = core::globals().powerPointApp.CommandBars();
    const host::CommandBarControls controls = bars.Item(toolsBar::name).Controls();
    fit = controls.Item("Fit AutoShape to text");
    wrap = controls.Item("Wrap text in AutoShape");
  }
  void release() const {
    fit.State(host::msoButtonUp);
    wrap.State(host::msoButtonUp);
  }
};

/// Shows what a property of the selected text frames is: on, off or, where they differ, neither.
void showState(const host::CommandBarButton& button, int value, int on) {
  if (value == host::mixed) button.State(host::msoButtonMixed);
  if (value == 0) button.State(host::msoButtonUp);
  if (value == on) button.State(host::msoButtonDown);
}

}  // namespace

// Hosts without toolbars have no such buttons.
void pptEvents::toggleAutoShapeTextState(Selection& selection) {
  trap(
      "pptEvents, toggleAutoShapeTextState",
      [&] {
        if (!isHostVersion(host::toolbarHosts)) return;
        const host::DocumentWindow window = core::globals().powerPointApp.ActiveWindow();
        selection = window.Selection();
        const TextToggles toggles;
        const int view = window.ActivePane().ViewType();
        if (view != host::ppViewSlide && view != host::ppViewSlideMaster && view != host::ppViewTitleMaster) {
          return toggles.release();
        }
        const int type = selection.Type();
        const bool shapes = type == host::ppSelectionShapes || type == host::ppSelectionText;
        // A range of which only some shapes take text has no common frame to ask.
        if (!shapes || selection.ShapeRange().HasTextFrame() != host::msoTrue) return toggles.release();
        const host::TextFrame frame = selection.ShapeRange().TextFrame();
        showState(toggles.fit, frame.AutoSize(), host::ppAutoSizeShapeToFitText);
        showState(toggles.wrap, frame.WordWrap(), host::msoTrue);
      },
      [&](const base::Error& error) {
        if (!isTransition(error)) return false;
        resumeNext([] { TextToggles().release(); });
        return true;
      });
}

}  // namespace vellumark::commands
