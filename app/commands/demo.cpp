#include "commands/demo.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/text.h"
#include "boxes.h"
#include "console.h"
#include "core/helpers.h"
#include "files.h"
#include "installation.h"
#include "press.h"
#include "questions.h"
#include "session.h"

namespace vellumark::app {
namespace {

/// A shape that can take part, as it stands before the first command.
struct Candidate {
  host::Shape shape;
  int id;
  std::string name;
  int kind;  ///< MsoAutoShapeType of an auto shape, otherwise below 0
  VisualBox box;
};

/// Shapes that can be moved and stretched: visible, with a frame, upright or turned by a multiple of 90
/// degrees.
std::vector<Candidate> candidatesOn(const host::Slide& slide, bool autoShapesOnly) {
  std::vector<Candidate> candidates;
  const host::Shapes shapes = slide.Shapes();
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Shape shape = shapes.Item(i);
    const int type = shape.Type();
    if (autoShapesOnly && type != host::msoAutoShape) continue;
    const auto box = visualBox(shape);
    if (!box || shape.Visible() == host::msoFalse || std::fmod(shape.Rotation(), 90.0F) != 0) continue;
    const int kind = type == host::msoAutoShape ? shape.AutoShapeType() : -type;
    candidates.push_back({shape, shape.Id(), shape.Name(), kind, *box});
  }
  return candidates;
}

struct Scene {
  int slide = 0;
  std::vector<Candidate> candidates;
};

/// The first slide with three auto shapes on it, else the first with two shapes of any kind.
Scene chooseSlide(const host::Presentation& presentation, const std::string& deck) {
  const host::Slides slides = presentation.Slides();
  const int count = slides.Count();
  for (const bool autoShapesOnly : {true, false}) {
    for (int i = 1; i <= count; ++i) {
      Scene scene{i, candidatesOn(slides.Item(i), autoShapesOnly)};
      if (scene.candidates.size() >= (autoShapesOnly ? 3 : 2)) return scene;
    }
  }
  throw Failure(Exit::refused,
                deck + ": no slide has two shapes to bring in line; take a deck with shapes on a slide");
}

/// The longest row: shapes of one kind and height that stand beside each other more or less, from left to
/// right; the two leftmost shapes where there is no row.
std::vector<Candidate> findRow(const std::vector<Candidate>& candidates) {
  std::vector<Candidate> longest;
  for (const Candidate& first : candidates) {
    std::vector<Candidate> row;
    for (const Candidate& other : candidates) {
      if (other.kind == first.kind && std::abs(other.box.height - first.box.height) < 1 &&
          std::abs(other.box.top - first.box.top) < first.box.height / 2) {
        row.push_back(other);
      }
    }
    if (row.size() > longest.size()) longest = std::move(row);
  }
  const bool isRow = longest.size() >= 2;
  if (!isRow) longest = candidates;
  std::stable_sort(longest.begin(), longest.end(),
                   [](const Candidate& a, const Candidate& b) { return a.box.left < b.box.left; });
  if (!isRow) longest.resize(2);
  return longest;
}

bool contains(const VisualBox& outer, const VisualBox& inner) {
  return inner.left >= outer.left && inner.top >= outer.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height && inner.height < outer.height;
}

/// Presses buttons on a scene and keeps a record of them.
class Director {
 public:
  explicit Director(Session& session) : session_(session) {}

  /// Runs a command with the followers and, selected last, their master.
  void perform(const std::string& command, const std::vector<Candidate>& followers, const Candidate& master) {
    std::vector<host::Shape> selection;
    std::vector<std::string> names;
    takesPart(master);
    for (const Candidate& follower : followers) {
      selection.push_back(follower.shape);
      names.push_back(follower.name);
      takesPart(follower);
    }
    selection.push_back(master.shape);
    session_.select(selection);
    press(session_, findCommand(command));
    steps_.row({command, base::join(names, ", "), master.name});
  }

  const Table& steps() const { return steps_; }
  const std::vector<Snapshot>& before() const { return before_; }
  std::vector<Snapshot> after() const {
    std::vector<Snapshot> snapshots;
    for (const Candidate& one : cast_) snapshots.push_back({one.id, one.name, *visualBox(one.shape)});
    return snapshots;
  }

 private:
  void takesPart(const Candidate& candidate) {
    const bool known =
        std::any_of(cast_.begin(), cast_.end(), [&](const Candidate& c) { return c.id == candidate.id; });
    if (known) return;
    cast_.push_back(candidate);
    before_.push_back({candidate.id, candidate.name, candidate.box});
  }

  Session& session_;
  Table steps_{{{"command"}, {"shapes"}, {"master"}}};
  std::vector<Candidate> cast_;
  std::vector<Snapshot> before_;
};

/// Brings a row in line with its leftmost shape, and closes its gaps as far as the slide goes.
void straightenRow(Director& director, const std::vector<Candidate>& row, double slideWidth) {
  const Candidate& master = row.front();
  const std::vector<Candidate> followers(row.begin() + 1, row.end());
  director.perform("alignTops", followers, master);
  director.perform("alignWidths", followers, master);
  double right = master.box.left + master.box.width;
  for (std::size_t i = 1; i < row.size(); ++i) {
    right += master.box.width;
    if (right > slideWidth) break;
    director.perform("moveLeftToMasterRight", {row[i]}, row[i - 1]);
  }
}

/// Puts one shape that lies within another, outside the row, at the golden section of it.
void placeInGoldenSection(Director& director, const Scene& scene, const std::vector<Candidate>& row) {
  for (const Candidate& inner : scene.candidates) {
    const bool inRow =
        std::any_of(row.begin(), row.end(), [&](const Candidate& c) { return c.id == inner.id; });
    if (inRow) continue;
    for (const Candidate& outer : scene.candidates) {
      if (!contains(outer.box, inner.box)) continue;
      director.perform("alignVerticallyInGoldenSection", {inner}, outer);
      return;
    }
  }
}

}  // namespace

Exit demo(const DemoOptions& options, const Surroundings& surroundings) {
  requireDeck(options.deck);
  requireOther(options.out, options.deck);
  const auto questions = surroundings.questions({}, {});
  Session session("14.0", surroundings.addIn(installationRoot(options.root)));
  const host::Presentation presentation = session.open(options.deck);
  const Scene scene = readingDeck(options.deck, [&] { return chooseSlide(presentation, options.deck); });
  session.goToSlide(scene.slide);

  questions->begin();
  Director director(session);
  const std::vector<Candidate> row = findRow(scene.candidates);
  straightenRow(director, row, presentation.PageSetup().SlideWidth());
  placeInGoldenSection(director, scene, row);
  requireWhole(*questions, session, options.deck, "demo");
  questions->requireAccepted("demo", true);
  session.save(options.out);

  print("Slide " + std::to_string(scene.slide) + " of " + oneLine(options.deck) + "\n\n" +
        director.steps().text("  ") + "\nThe boxes that the eye sees, in points, before → after\n\n" +
        boxTable(director.before(), director.after(), Show::all).text("  ") + "\nwritten " +
        oneLine(options.out) + "\n");
  return questions->settle("demo");
}

}  // namespace vellumark::app
