#include "session.h"

#include <algorithm>

#include "arguments.h"
#include "base/text.h"
#include "base/trap.h"
#include "commands/ribbon_callbacks.h"
#include "failure.h"
#include "files.h"

namespace vellumark::app {

Session::Session(const std::string& hostVersion, std::unique_ptr<AddIn> addIn)
    : host_(hostVersion), addIn_(std::move(addIn)) {
  addIn_->connect(application());
  if (!host_.state()->beforeRibbon()) {
    ribbon_ = std::make_shared<Ribbon>();
    addIn_->callBack("onLoad", {host::Value(ribbon_)});
  }
}

Session::~Session() {
  base::resumeNext([&] {
    const host::Presentations presentations = application().Presentations();
    while (presentations.Count() > 0) {
      const host::Presentation presentation = presentations.Item(1);
      presentation.Saved(true);
      presentation.Close();
    }
  });
  base::resumeNext([&] { addIn_->disconnect(); });
}

host::Presentation Session::open(const std::string& path) {
  requireDeck(path);
  return readingDeck(path, [&] {
    const host::Presentation presentation = host_.open(path);
    window_ = application().ActiveWindow();
    return presentation;
  });
}

void Session::chooseStyle(const std::string& name) {
  if (!ribbon_) throw Failure(Exit::usage, "--style: only a host with a ribbon has the chooser: --host 14.0");
  const host::Value chooser(ribbonControl(commands::styleChooser).object());
  const int count = addIn_->callBack("style_getItemCount", {chooser}).toInt();
  std::vector<std::string> names;
  for (int i = 1; i < count; ++i) {  // item 0 stands for no style
    names.push_back(addIn_->callBack("style_getItemLabel", {chooser, i}).toString());
    if (!base::equalsIgnoreCase(names.back(), name)) continue;
    addIn_->callBack("style_onAction", {chooser, std::string(), i});
    return;
  }
  refuseName("--style", "style", name, names);
}

void Session::goToSlide(std::int32_t slide) {
  const int count = presentation().Slides().Count();
  if (slide == 1 && count == 0) return;  // an empty deck shows nothing, which is no mistake of the user's
  if (slide < 1 || slide > count) {
    throw Failure(Exit::usage, "--slide " + std::to_string(slide) + ": the deck has " +
                                   std::to_string(count) + (count == 1 ? " slide" : " slides"));
  }
  window_.View().GotoSlide(slide);
}

void Session::showView(std::int32_t type) { host_.showView(type); }

int Session::slideInView() const {
  int id = 0;
  base::resumeNext([&] { id = window_.View().Slide().SlideID(); });
  return id;
}

host::Shapes Session::shapesInView() const {
  host::Shapes shapes;
  base::resumeNext([&] { shapes = window_.View().Slide().Shapes(); });
  return shapes;
}

std::vector<host::Shape> Session::findShapes(const std::string& references, const std::string& option) const {
  const host::Shapes shapes = shapesInView();
  if (!shapes) {
    throw Failure(Exit::usage,
                  option + ": no slide is in view; choose one with --slide, in a view that shows it");
  }
  std::vector<host::Shape> found;
  std::vector<int> ids;
  for (const std::string& reference : splitList(references)) {
    const host::Shape shape = findShape(shapes, reference, option);
    const int id = shape.Id();
    if (std::find(ids.begin(), ids.end(), id) != ids.end()) {
      throw Failure(Exit::usage,
                    option + ": \"" + reference + "\" is selected already; name each shape once");
    }
    ids.push_back(id);
    found.push_back(shape);
  }
  return found;
}

void Session::selectShapes(const std::string& references) {
  host_.selectShapes(findShapes(references, "--select"));
}

void Session::copyShapes(const std::string& references) {
  host_.selectShapes(findShapes(references, "--copy"));
  window_.Selection().Copy();
  window_.Selection().Unselect();
}

void Session::selectSlides(const std::string& list) {
  host_.selectSlides(parseSlides(list, presentation().Slides().Count()));
}

void Session::selectText(const std::string& spot) {
  const TextSpot text = parseTextSpot(spot);
  const host::Shapes shapes = shapesInView();
  if (!shapes)
    throw Failure(Exit::usage,
                  "--text: no slide is in view; choose one with --slide, in a view that shows it");
  const host::Shape shape = findShape(shapes, text.shape, "--text");
  if (shape.HasTextFrame() == host::msoFalse) {
    throw Failure(Exit::usage, "--text: \"" + text.shape + "\" holds no text; take a shape that does");
  }
  shape.TextFrame().TextRange().Characters(text.start, text.length).Select();
}

void Session::selectCells(const std::string& spots) {
  const CellSpots cells = parseCellSpots(spots);
  const host::Shapes shapes = shapesInView();
  if (!shapes)
    throw Failure(Exit::usage,
                  "--cells: no slide is in view; choose one with --slide, in a view that shows it");
  const host::Shape shape = findShape(shapes, cells.table, "--cells");
  if (shape.HasTable() == host::msoFalse) {
    throw Failure(Exit::usage, "--cells: \"" + cells.table + "\" is no table; take a shape that is one");
  }
  const host::Table table = shape.Table();
  std::vector<host::Cell> chosen;
  for (const auto& [row, column] : cells.cells) {
    if (row > table.Rows().Count() || column > table.Columns().Count()) {
      throw Failure(Exit::usage, "--cells: the table has no cell " + std::to_string(row) + "," +
                                     std::to_string(column) + "; it has " +
                                     std::to_string(table.Rows().Count()) + " rows and " +
                                     std::to_string(table.Columns().Count()) + " columns");
    }
    chosen.push_back(table.Cell(row, column));
  }
  host_.selectCells(chosen);
}

void Session::save(const std::string& out) {
  const host::Presentation saved = presentation();
  const std::string path = out.empty() ? saved.FullName() : out;
  try {
    out.empty() ? saved.Save() : saved.SaveAs(out);
  } catch (const base::Error& error) {
    throw deckFailure(path, error);
  }
  if (saved.Saved() == host::msoFalse) {
    throw Failure(Exit::refused,
                  path + ": not written, because the add-in cancelled the save; see its message");
  }
}

}  // namespace vellumark::app
