#include "commands/agenda.h"

#include <fstream>

#include "agenda/agenda_commands.h"
#include "agenda/agenda_ties.h"
#include "console.h"
#include "core/globals.h"
#include "core/template_paths.h"
#include "deck/embedded_host.h"
#include "files.h"
#include "installation.h"
#include "platform/atomic_file.h"
#include "platform/paths.h"
#include "session.h"
#include "suitable_style.h"

namespace vellumark::app {
namespace {

namespace tags = vellumark::agenda::tags;
using vellumark::agenda::AgendaDocument;

/// A Failure where the deck holds no agenda, or one that can't be read.
AgendaDocument storedAgenda(const host::Presentation& presentation, const std::string& deck) {
  const std::string text = presentation.Tags().Item(tags::document);
  if (text.empty()) {
    throw Failure(Exit::refused, deck + ": holds no agenda; make one with \"vellumark agenda\" and --items");
  }
  AgendaDocument document;
  if (!document.parse(text)) throw Failure(Exit::refused, deck + ": its agenda is damaged and can't be read");
  return document;
}

void writeFile(const std::string& path, const std::string& text) {
  try {
    platform::AtomicFile file(path);
    std::ofstream stream(platform::pathOf(file.temporaryPath()), std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) base::raise(base::errors::fileAccess);
    file.commit();
  } catch (const base::Error& error) {
    throw Failure(Exit::usage, "-o " + path + ": can't be written: " + error.description());
  }
}

Exit exportItems(const AgendaCommandOptions& options) {
  const deck::EmbeddedHost host;
  const std::string csv = readingDeck(options.deck, [&] {
    return toCsv(itemsOf(storedAgenda(
        host.application().Presentations().Open(options.deck, true, false, false), options.deck)));
  });
  if (options.out.empty()) {
    print(csv);
  } else {
    requireOther(options.out, options.deck);
    writeFile(options.out, csv);
    print("written " + oneLine(options.out) + "\n");
  }
  return Exit::done;
}

/// For slides that have no agenda yet, and nobody's choice of a style, the style that suits their size.
AgendaOptions withStyle(AgendaOptions options, const host::Presentation& presentation) {
  const host::Tags known = presentation.Tags();
  if (options.style || !known.Item(tags::document).empty() || !known.Item(core::styleTag).empty()) {
    return options;
  }
  const host::PageSetup page = presentation.PageSetup();
  const std::string suitable = styleForSlides(page.SlideWidth(), page.SlideHeight());
  if (!suitable.empty()) options.style = suitable;
  return options;
}

void tellWhatLeavesTheSlides(const host::Presentation& presentation, const std::string& deck) {
  const host::PageSetup page = presentation.PageSetup();
  const double width = page.SlideWidth(), height = page.SlideHeight();
  if (staysOnSlides(storedAgenda(presentation, deck), width, height)) return;
  tell("the agenda's rows don't stay on slides of " + pointsText(width) + " by " + pointsText(height) +
       " points; take another --style, or one of your own with a smaller frame in its agendawizard.xml\n");
}

/// The items as they are now, and which slide each of them has.
std::string report(const host::Presentation& presentation, const std::string& deck) {
  const AgendaDocument document = storedAgenda(presentation, deck);
  Table table({{"slide", Table::Align::right}, {"min", Table::Align::right}, {"item"}, {"responsible"}});
  const std::vector<AgendaItem> items = itemsOf(document);
  const std::vector<pugi::xml_node> nodes = document.items();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const AgendaItem& item = items[i];
    const host::Slide slide =
        item.ownSlide ? vellumark::agenda::findSlide(presentation, nodes[i].attribute("slideID").value())
                      : host::Slide();
    const std::string notes =
        std::string(item.isBreak ? " (break)" : "") + (item.shown ? "" : " (not shown)");
    table.row({slide ? std::to_string(slide.SlideIndex()) : "-", std::to_string(item.minutes),
               (item.level == 2 ? "  " : "") + item.text + notes, item.responsible});
  }
  return table.text("  ");
}

}  // namespace

Exit agenda(const AgendaCommandOptions& options, const Surroundings& surroundings) {
  requireDeck(options.deck);
  if (options.exportItems) return exportItems(options);
  if (options.out.empty() && !options.inPlace) {
    throw Failure(Exit::usage, "agenda: nothing would be written; give -o OUT or --in-place");
  }
  const std::vector<AgendaItem> items =
      options.items.empty() ? std::vector<AgendaItem>() : readAgendaItems(options.items);
  const auto root = installationRoot(options.root);
  if (!options.out.empty()) requireOther(options.out, options.deck);

  const auto questions = surroundings.questions(options.dialogs, options.answers);
  Session session("14.0", surroundings.addIn(root));
  const host::Presentation presentation = session.open(options.deck);
  if (!core::globals().powerPointApp) {
    throw Failure(
        Exit::refused,
        "agenda: works where the add-in is part of the program; here take \"run showAgendaWizard\"");
  }
  if (items.empty()) storedAgenda(presentation, options.deck);
  const bool wasStored = !presentation.Tags().Item(tags::document).empty();

  std::string became;
  questions->begin();
  try {
    const AgendaOptions chosen = withStyle(options.agenda, presentation);
    AgendaEditor editor(chosen.style.value_or(""));
    editor.setOptions(chosen);
    if (!items.empty()) became = editor.setItems(items);
    editor.finish();
    // Numbers of slides that came later than a row are known only now.
    if (!presentation.Tags().Item(tags::slideOrder).empty()) vellumark::agenda::updateAgendaSlides();
  } catch (const Failure&) {
    requireWhole(*questions, session, options.deck, "agenda");
    throw;
  }
  requireWhole(*questions, session, options.deck, "agenda");
  questions->requireAccepted("agenda", true);
  session.save(options.out);
  if (wasStored) tell(became);
  tellWhatLeavesTheSlides(presentation, options.deck);
  print(report(presentation, options.deck) + "\nwritten " +
        oneLine(options.inPlace ? options.deck : options.out) + "\n");
  return questions->settle("agenda");
}

}  // namespace vellumark::app
