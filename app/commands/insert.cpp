#include "commands/insert.h"

#include "base/error.h"
#include "commands/ribbon_callbacks.h"
#include "core/template_paths.h"
#include "elements.h"
#include "suitable_style.h"

namespace vellumark::app {
namespace {

/// The chooser of styles is in view before a ribbon's gallery opens; it takes the first style where there is
/// no other.
void settleStyle(Session& session, const Situation& situation) {
  const host::Presentation presentation = session.presentation();
  if (situation.style.empty() && presentation.Tags().Item(core::styleTag).empty()) {
    const host::PageSetup page = presentation.PageSetup();
    const std::string suitable = styleForSlides(page.SlideWidth(), page.SlideHeight());
    if (!suitable.empty()) return session.chooseStyle(suitable);
  }
  if (!session.hasRibbon()) return;  // a toolbar's box shows the first one by itself
  session.addIn().callBack("style_getSelectedItemIndex", ribbonControl(commands::styleChooser));
}

}  // namespace

Exit insert(const InsertOptions& options, const Surroundings& surroundings) {
  return runOnDeck(options, "insert", surroundings, [&](Session& session) {
    try {
      settleStyle(session, options);
      session.watchChanges();
      insertElement(session, options.element);
    } catch (const base::Error& error) {
      throw Failure(Exit::refused, "insert: " + error.description());
    }
  });
}

}  // namespace vellumark::app
