#pragma once
// The sink of the host's events: keeps the enabled state of every command in step with the selection, and
// watches over presentations and slide shows.

#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>

#include "core/globals.h"
#include "ui/message_box.h"

namespace vellumark::commands {

/// What the older hosts' rules ask of a range of shapes, beside its length.
struct AngleCheck {
  bool allButLastRightAngled = false;
  bool lastRightAngled = false;
  bool sameRotation = false;
  bool allProcessShapes = false;
};

class pptEvents : public core::ApplicationEvents {
 public:
  /// Connects to the events of an application; an empty handle stops them.
  void PowerPointApp(const host::Application& application);

  const core::SelectionFlags& flags() const override { return flags_; }
  void checkSelection() override;
  void toggle() override;
  void toggleOff() override;

  /// Sets the enabled state of an entry of a bar, or of a popup on it. Only hosts before the ribbon have
  /// them.
  void toggleButton(const std::string& barName, const std::string& controlName, bool enabled);
  void togglePopupEntry(const std::string& barName, const std::string& popupName,
                        const std::string& entryName, bool enabled);
  void toggleAlignAngles(bool enabled);
  void toggleAutoShapeText(bool enabled);
  void togglePentagonHeader(bool enabled);
  void toggleProcessChain(bool enabled);
  void toggleSwitchObjects(bool enabled);
  void toggleSlides(bool enabled);
  void togglePresentation(bool enabled);
  void toggleShape(bool enabled);
  void toggleTwoOrMoreShapes(bool enabled);
  void toggleTwoOrMoreShapes90degr(bool enabled);
  /// Mirrors the state of the two text toggles. `selection` becomes that of the active window.
  void toggleAutoShapeTextState(host::Selection& selection);
  AngleCheck check90degr(const host::ShapeRange& range);

  // The host's events.
  void pptApp_WindowSelectionChange(host::Selection selection);
  void pptApp_NewPresentation(const host::Presentation& presentation);
  void pptApp_PresentationOpen(const host::Presentation& presentation);
  /// Comes before the presentation is gone.
  void pptApp_PresentationClose(const host::Presentation& presentation);
  /// Warns, keeps the agenda up to date and remembers the style; `cancel` stops the save.
  void pptApp_PresentationBeforeSave(const host::Presentation& presentation, bool& cancel);
  void pptApp_PresentationPrint(const host::Presentation& presentation);
  void pptApp_WindowActivate(const host::Presentation& presentation, const host::DocumentWindow& window);
  void pptApp_SlideShowBegin();
  void pptApp_SlideShowEnd();

 private:
  void raised(host::Member event, std::span<host::Value> arguments);
  void evaluateForToolbars(host::Selection& selection);
  /// What a save may ask.
  enum class Question { temporaryFolder, pageNumbers, hiddenShapes };
  /// Asks. Where the host saves by itself, again and again, the answer stands for its later saves until
  /// `subject`, which the question is about, is another.
  ui::Answer askAtSave(const host::Presentation& presentation, Question question, const std::string& subject,
                       const std::function<ui::Answer()>& ask);
  void warnOfTemporaryFolder(const host::Presentation& presentation);

  core::SelectionFlags flags_;
  struct Asked {
    std::string subject;
    ui::Answer answer;
  };
  std::map<std::pair<std::string, Question>, Asked> asked_;  ///< by FullName, of presentations that are open
  std::string lastSavedName_;  ///< so that the warning about temporary folders comes once for each name
  host::Subscription subscription_;
};

}  // namespace vellumark::commands
