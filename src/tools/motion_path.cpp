#include <string>

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

/// A share of the slide's side as paths have it, whatever the decimal separator.
std::string share(double distance, float side) {
  return base::replaceAll(base::doubleText(base::divide(distance, static_cast<double>(side))), ",", ".");
}

/// Shows the host's pane for animations.
void showAnimationPane(const host::Application& application) {
  constexpr int customAnimation = 730;  // the host's own control for it
  if (core::isHostVersion(host::toolbarHosts)) {
    application.CommandBars().FindControl(customAnimation).Execute();
  } else {
    application.CommandBars().Item("Custom Animation").Visible(true);
  }
}

}  // namespace

void TrimlineTools::createMotionPath() {
  core::trap("TrimlineTools, createMotionPath", [&] {
    const host::Application& application = core::globals().powerPointApp;
    const host::DocumentWindow window = application.ActiveWindow();
    const SelectedShapes shapes;
    const host::Shape from = shapes.item(1), to = shapes.item(2);
    const auto centreX = [&](const host::Shape& s) { return getLeft(s) + 0.5 * getWidth(s); };
    const auto centreY = [&](const host::Shape& s) { return getTop(s) + 0.5 * getHeight(s); };
    const host::PageSetup page = window.Presentation().PageSetup();
    const std::string dx = share(centreX(to) - centreX(from), page.SlideWidth());
    const std::string dy = share(centreY(to) - centreY(from), page.SlideHeight());

    const host::Sequence sequence = window.Selection().SlideRange().Item(1).TimeLine().MainSequence();
    const host::AnimationBehaviors behaviors =
        sequence.AddEffect(from, host::msoAnimEffectPathLeft, 0, host::msoAnimTriggerOnPageClick).Behaviors();
    const host::AnimationBehavior path = behaviors.Add(host::msoAnimTypeMotion);
    path.MotionEffect().Path("M 0 0 L " + dx + " " + dy);
    path.Timing().SmoothStart(true);
    path.Timing().SmoothEnd(true);
    // The effect came with a path of its own.
    behaviors.Item(1).Delete();
    core::resumeNext([&] { showAnimationPane(application); });
  });
}

}  // namespace vellumark::tools
