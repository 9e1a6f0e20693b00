#include "arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "base/text.h"
#include "failure.h"

namespace vellumark::app {
namespace {

[[noreturn]] void misused(const std::string& line) { throw Failure(Exit::usage, line); }

/// A whole number from 1 up, and nothing else.
std::optional<std::int32_t> parsePosition(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < 1) return std::nullopt;
  return number;
}

struct ViewName {
  std::string_view name;
  std::int32_t type;
};
constexpr std::array<ViewName, 10> views{{{"slide", host::ppViewSlide},
                                          {"slidemaster", host::ppViewSlideMaster},
                                          {"notes", host::ppViewNotesPage},
                                          {"handoutmaster", host::ppViewHandoutMaster},
                                          {"notesmaster", host::ppViewNotesMaster},
                                          {"outline", host::ppViewOutline},
                                          {"sorter", host::ppViewSlideSorter},
                                          {"titlemaster", host::ppViewTitleMaster},
                                          {"normal", host::ppViewNormal},
                                          {"thumbnails", host::ppViewThumbnails}}};

/// The name of the group that holds a shape of that name or #id, on whatever level; empty where none does.
std::string groupAround(const std::vector<host::Shape>& shapes, const std::string& reference) {
  for (const host::Shape& group : shapes) {
    if (group.Type() != host::msoGroup) continue;
    const host::GroupShapes members = group.GroupItems();
    const int memberCount = members.Count();
    for (int j = 1; j <= memberCount; ++j) {
      const host::Shape member = members.Item(j);
      if (member.Name() == reference || "#" + std::to_string(member.Id()) == reference) return group.Name();
    }
  }
  return {};
}

}  // namespace

void refuseName(const std::string& option, const std::string& kind, std::string_view name,
                const std::vector<std::string>& known) {
  misused(option + ": there is no " + kind + " \"" + std::string(name) + "\"; there are " +
          (known.empty() ? "none" : base::join(known, ", ")));
}

std::vector<std::string> splitList(std::string_view list) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] == '\\' && i + 1 < list.size() && (list[i + 1] == ',' || list[i + 1] == '\\')) {
      parts.back() += list[++i];
    } else if (list[i] == ',') {
      parts.emplace_back();
    } else {
      parts.back() += list[i];
    }
  }
  return parts;
}

std::vector<std::int32_t> parseSlides(std::string_view list, std::int32_t count) {
  std::vector<std::int32_t> slides;
  for (const std::string& part : base::split(list, ',')) {
    const std::string range = base::trim(part);
    const std::size_t dash = range.find('-');
    const auto first = parsePosition(range.substr(0, dash));
    const auto last = dash == std::string::npos ? first : parsePosition(range.substr(dash + 1));
    if (!first || !last || *last < *first) {
      misused("--slides: \"" + range + "\" is no slide and no range of slides; write for example 2,4-6");
    }
    if (*last > count) {
      misused("--slides: the deck has no slide " + std::to_string(*last) + ", only " + std::to_string(count));
    }
    for (std::int32_t slide = *first; slide <= *last; ++slide) {
      if (std::find(slides.begin(), slides.end(), slide) == slides.end()) slides.push_back(slide);
    }
  }
  if (slides.empty()) misused("--slides: no slide is named; write for example 2,4-6");
  return slides;
}

TextSpot parseTextSpot(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  const std::size_t comma = colon == std::string_view::npos ? colon : text.find(',', colon);
  if (comma != std::string_view::npos && colon > 0) {
    const auto start = parsePosition(text.substr(colon + 1, comma - colon - 1));
    const std::string_view length = text.substr(comma + 1);
    const auto count = length == "0" ? std::optional<std::int32_t>(0) : parsePosition(length);
    if (start && count) return {std::string(text.substr(0, colon)), *start, *count};
  }
  misused("--text: \"" + std::string(text) +
          "\" is no stretch of text; write SHAPE:START,LENGTH, for example @2:1,5");
}

CellSpots parseCellSpots(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  CellSpots spots;
  if (colon != std::string_view::npos) {
    spots.table = text.substr(0, colon);
    for (const std::string& spot : base::split(text.substr(colon + 1), ';')) {
      const std::size_t comma = spot.find(',');
      const auto row = parsePosition(base::trim(spot.substr(0, comma)));
      const auto column =
          comma == std::string::npos ? std::nullopt : parsePosition(base::trim(spot.substr(comma + 1)));
      if (!row || !column) {
        spots.cells.clear();
        break;
      }
      spots.cells.emplace_back(*row, *column);
    }
  }
  if (spots.table.empty() || spots.cells.empty()) {
    misused("--cells: \"" + std::string(text) +
            "\" names no cells; write TABLE:ROW,COLUMN;ROW,COLUMN, for example @2:1,1;1,2");
  }
  return spots;
}

std::int32_t parseView(std::string_view name) {
  std::vector<std::string> names;
  for (const ViewName& view : views) {
    if (base::equalsIgnoreCase(view.name, name)) return view.type;
    names.emplace_back(view.name);
  }
  refuseName("--view", "view", name, names);
}

ShapeReferences::ShapeReferences(const host::Shapes& shapes, std::string option)
    : option_(std::move(option)) {
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Shape& shape = shapes_.emplace_back(shapes.Item(i));
    names_[shape.Name()].push_back(shapes_.size() - 1);
    ids_.emplace(shape.Id(), shapes_.size() - 1);
  }
}

/// Names match exactly; only where none does, without the blanks around what the user wrote.
host::Shape ShapeReferences::find(const std::string& reference) const {
  const std::string text = base::trim(reference);
  auto named = names_.find(reference);
  if (named == names_.end()) named = names_.find(text);
  if (named != names_.end()) {
    if (named->second.size() == 1) return shapes_[named->second.front()];
    misused(option_ + ": " + std::to_string(named->second.size()) + " shapes are called \"" + text +
            "\"; take one by its #id or @index");
  }
  if (text.size() > 1 && (text[0] == '#' || text[0] == '@')) {
    const auto number = parsePosition(std::string_view(text).substr(1));
    if (number && text[0] == '#') {
      if (const auto place = ids_.find(*number); place != ids_.end()) return shapes_[place->second];
    } else if (number && static_cast<std::size_t>(*number) <= shapes_.size()) {
      return shapes_[static_cast<std::size_t>(*number) - 1];
    }
  }
  if (const std::string group = groupAround(shapes_, text); !group.empty()) {
    misused(option_ + ": \"" + text + "\" lies in the group \"" + group + "\"; take the group as a whole");
  }
  misused(option_ + ": no shape \"" + text + "\" on the slide in view; \"vellumark show DECK\" lists them");
}

}  // namespace vellumark::app
