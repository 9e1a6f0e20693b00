// The walk that takes a selection down to every text frame in it.

#include <algorithm>
#include <iterator>

#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "host/window.h"
#include "tools/notes_page.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

host::Selection selection() { return core::globals().powerPointApp.ActiveWindow().Selection(); }

}  // namespace

void TrimlineTools::iterate(const host::Handle& what, const std::string& action,
                            std::optional<std::int32_t> value) {
  trap("TrimlineTools, iterate", [&] {
    if (!what) base::raise(base::errors::objectNotSet);
    const std::string type = what.object()->typeName();
    const auto walk = [&](const host::Handle& inner) { iterate(inner, action, value); };
    if (type == "Selection") {
      iterateSelection(host::Selection(what.object()), action, value);
    } else if (type == "Shapes") {
      const host::Shapes shapes(what.object());
      const int count = shapes.Count();
      for (int i = 1; i <= count; ++i) walk(shapes.Item(i));
    } else if (type == "Shape") {
      const host::Shape shape(what.object());
      switch (shape.Type()) {
        case host::msoGroup: {
          const host::GroupShapes members = shape.GroupItems();
          const int count = members.Count();
          for (int i = 1; i <= count; ++i) walk(members.Item(i));
          break;
        }
        case host::msoTable:
          iterateTable(shape.Table(), action, value);
          break;
        default:
          if (shape.HasTextFrame() != host::msoFalse) walk(shape.TextFrame());
      }
    } else if (type == "TextFrame") {
      const host::TextFrame frame(what.object());
      if (action == "beautifyIndents") {
        beautify(frame);
      } else if (action == "addIndent") {
        indentLevel(frame, 1);
      } else if (action == "removeIndent") {
        indentLevel(frame, -1);
      } else if (action == "setMargins") {
        margins(frame);
      } else if (action == "setLanguage") {
        setLang(frame, value.value_or(0));
      }
    }
  });
}

/// The speech notes of selected slides have a language, but none of the other formats.
void TrimlineTools::iterateSelection(const host::Selection& selection, const std::string& action,
                                     std::optional<std::int32_t> value) {
  const bool language = action == "setLanguage";
  const auto walk = [&](const host::Handle& inner) { iterate(inner, action, value); };
  const auto walkAll = [&](const host::Shapes& shapes) {
    const int count = shapes.Count();
    for (int i = 1; i <= count; ++i) walk(shapes.Item(i));
  };
  switch (selection.Type()) {
    case host::ppSelectionSlides: {
      const host::SlideRange slides = selection.SlideRange();
      const int count = slides.Count();
      for (int i = 1; i <= count; ++i) {
        const host::Slide slide = slides.Item(i);
        walkAll(slide.Shapes());
        if (language && hasNotesPage(slide)) walkAll(slide.NotesPage().Shapes());
      }
      break;
    }
    case host::ppSelectionShapes: {
      const host::ShapeRange shapes = selection.ShapeRange();
      const int count = shapes.Count();
      for (int i = 1; i <= count; ++i) walk(shapes.Item(i));
      break;
    }
    case host::ppSelectionText:
      walk(host::TextFrame(selection.TextRange().Parent()));
      break;
    default: {
      host::Slide slide;
      base::resumeNext([&] { slide = selection.SlideRange().Item(1); });
      if (slide && language) {
        walkAll(slide.Shapes());
      } else {
        core::message("Please select one or more slides or shapes first.", ui::Icon::information);
      }
    }
  }
}

/// Selected cells limit the action; a table without any is treated whole.
void TrimlineTools::iterateTable(const host::Table& table, const std::string& action,
                                 std::optional<std::int32_t> value) {
  const int rows = table.Rows().Count();
  const int columns = table.Columns().Count();
  const auto pass = [&](bool all) {
    int walked = 0;
    for (int row = 1; row <= rows; ++row) {
      for (int column = 1; column <= columns; ++column) {
        const host::Cell cell = table.Cell(row, column);
        if (!all && !cell.Selected()) continue;
        iterate(cell.Shape(), action, value);
        ++walked;
      }
    }
    return walked;
  };
  if (pass(false) == 0) pass(true);
}

void TrimlineTools::setLanguage(std::int32_t id) {
  trap("TrimlineTools, setLanguage", [&] {
    const host::DocumentWindow window = core::globals().powerPointApp.ActiveWindow();
    const host::Selection selected = window.Selection();
    if (window.ActivePane().ViewType() != host::ppViewNotesPage) {
      iterate(selected, "setLanguage", id);
      return;
    }
    switch (selected.Type()) {
      case host::ppSelectionText:
        selected.TextRange().LanguageID(id);
        break;
      case host::ppSelectionNone:
        iterate(selected.SlideRange().Item(1).NotesPage().Shapes(), "setLanguage", id);
        break;
      default:
        break;
    }
  });
}

void TrimlineTools::setLang(const host::TextFrame& frame, std::int32_t id) {
  trap("TrimlineTools, setLang", [&] {
    if (frame.HasText() == host::msoFalse) return;
    const host::Selection selected = selection();
    const bool text = selected.Type() == host::ppSelectionText;
    (text ? selected.TextRange() : frame.TextRange()).LanguageID(id);
  });
}

}  // namespace vellumark::tools
