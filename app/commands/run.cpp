#include "commands/run.h"

#include <nlohmann/json.hpp>

#include "boxes.h"
#include "console.h"
#include "deck_report.h"
#include "file_questions.h"
#include "files.h"
#include "installation.h"
#include "press.h"
#include "questions.h"
#include "session.h"

namespace vellumark::app {
namespace {

std::string written(const RunOptions& options, const Session& session) {
  if (options.out.empty() && !options.inPlace) {
    return session.differs() ? "nothing written: give -o OUT or --in-place\n" : "the deck is as it was\n";
  }
  return "written " + oneLine(options.inPlace ? options.deck : options.out) + "\n";
}

/// What moved, for people.
std::string changesText(const std::vector<Snapshot>& before, const std::vector<Snapshot>& after) {
  const Table table = boxTable(before, after, Show::changed);
  if (table.empty()) return "";
  return "The boxes that the eye sees, in points, before → after\n\n" + table.text("  ") + "\n";
}

}  // namespace

Exit run(const RunOptions& options, const Surroundings& surroundings) {
  const CommandCall call = findCommand(options.command);
  return runOnDeck(options, call.command->method, surroundings,
                   [&](Session& session) { press(session, call); });
}

Exit runOnDeck(const RunOptions& options, const std::string& name, const Surroundings& surroundings,
               const std::function<void(Session& session)>& act) {
  const auto root = installationRoot(options.root);
  requireDeck(options.deck);
  if (!options.out.empty()) requireOther(options.out, options.deck);

  const auto questions = surroundings.questions(options.dialogs, options.answers);
  Session session(options.host, surroundings.addIn(root));
  session.answerFiles(
      [&](const deck::FileQuestion& question) { return questions->file(fileDialogFor(question)); });
  arrange(session, options);

  const int slide = session.slideInView();
  const std::vector<Snapshot> before =
      readingDeck(options.deck, [&] { return takeSnapshots(session.shapesInView()); });
  session.watchChanges();
  questions->begin();
  try {
    act(session);
  } catch (const Failure&) {
    requireWhole(*questions, session, options.deck, name);
    throw;
  }
  requireWhole(*questions, session, options.deck, name);
  questions->requireAccepted(name, session.changed());

  if (!options.out.empty() || options.inPlace) session.save(options.out);
  const host::Shapes shapes = session.shapesInView();
  if (options.json) {
    print(jsonText(toJson(shapes ? reportShapes(shapes) : std::vector<ShapeReport>())));
    tell(written(options, session));
  } else {
    const bool sameSlide = session.slideInView() == slide;
    print((sameSlide ? changesText(before, takeSnapshots(shapes)) : "") + written(options, session));
  }
  return questions->settle(name);
}

}  // namespace vellumark::app
