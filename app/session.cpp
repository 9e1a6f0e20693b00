#include "session.h"

#include <unordered_set>

#include "arguments.h"
#include "bars.h"
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

std::vector<std::string> Session::styles() const {
  std::vector<std::string> names;
  if (ribbon_) {
    const host::Value chooser(ribbonControl(commands::styleChooser).object());
    const int count = addIn_->callBack("style_getItemCount", {chooser}).toInt();
    for (int i = 1; i < count; ++i) {  // item 0 stands for no style
      names.push_back(addIn_->callBack("style_getItemLabel", {chooser, i}).toString());
    }
  } else if (const host::CommandBarControl box = findStyleBox(application().CommandBars())) {
    const int count = box.ListCount();
    for (int i = 2; i <= count; ++i) names.push_back(box.List(i));  // the first stands for no style
  }
  return names;
}

void Session::chooseStyle(const std::string& name) {
  const std::vector<std::string> names = styles();
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& style) {
    return base::equalsIgnoreCase(style, name);
  });
  if (found == names.end()) refuseName("--style", "style", name, names);
  const int place = static_cast<int>(found - names.begin()) + 1;
  if (ribbon_) {
    const host::Value chooser(ribbonControl(commands::styleChooser).object());
    addIn_->callBack("style_onAction", {chooser, std::string(), place});
  } else {
    const host::CommandBarControl box = findStyleBox(application().CommandBars());
    box.ListIndex(place + 1);
    box.Execute();
  }
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
  const ShapeReferences known(shapes, option);
  std::vector<host::Shape> found;
  std::unordered_set<int> ids;
  for (const std::string& reference : splitList(references)) {
    found.push_back(known.find(reference));
    if (!ids.insert(found.back().Id()).second) {
      throw Failure(Exit::usage,
                    option + ": \"" + reference + "\" is selected already; name each shape once");
    }
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
  const host::Shape shape = ShapeReferences(shapes, "--text").find(text.shape);
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
  const host::Shape shape = ShapeReferences(shapes, "--cells").find(cells.table);
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

void Session::watchChanges() {
  differed_ = differs();
  presentation().Saved(true);
}

bool Session::changed() const { return presentation().Saved() == host::msoFalse; }

std::vector<std::string> Session::damages() const {
  std::vector<std::string> faults;
  const auto read = [&](auto&& sheets) {
    try {
      for (const deck::Sheet& sheet : sheets()) sheet.shapeTree();
    } catch (const deck::FormatError& fault) {
      faults.emplace_back(fault.what());
    }
  };
  const std::string path = presentation().FullName();
  for (const deck::DocumentRef& document : host_.state()->documents) {
    if (document->path() != path) continue;
    for (const deck::SlideEntry& slide : document->slides()) {
      read([&] { return std::vector{document->slide(slide.id)}; });
    }
    for (const deck::Sheet& layout : document->layouts()) read([&] { return std::vector{layout}; });
    read([&] { return document->masters(); });
  }
  return faults;
}

void Session::save(const std::string& out) {
  const host::Presentation saved = presentation();
  const std::string path = out.empty() ? saved.FullName() : out;
  try {
    out.empty() ? saved.Save() : saved.SaveAs(out);
  } catch (const base::Error& error) {
    if (error.description() != deck::saveCancelled) throw deckFailure(path, error);
    throw Failure(Exit::refused,
                  path + ": not written, because the add-in cancelled the save; see its message");
  }
}

void requireWhole(const Questions& questions, const Session& session, const std::string& deck,
                  const std::string& name) {
  if (!questions.errorReport().empty()) {
    for (const std::string& fault : session.damages()) {
      if (questions.errorReport().find(fault) == std::string::npos) continue;
      throw Failure(Exit::deck, deck + ": " + fault + "; nothing is written");
    }
  }
  questions.requireWhole(name);
}

}  // namespace vellumark::app
