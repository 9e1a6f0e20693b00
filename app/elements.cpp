#include "elements.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "arguments.h"
#include "bars.h"
#include "base/error.h"
#include "commands/command_table.h"
#include "failure.h"

namespace vellumark::app {
namespace {

/// A gallery by the tag of its control; its callbacks begin with `kind`.
struct Gallery {
  std::string kind;
  std::string tag;
};

/// The part of a path behind the gallery that it begins with.
struct Found {
  Gallery gallery;
  std::string element;
};

host::Value control(const Gallery& gallery) {
  return host::Value(std::make_shared<RibbonControl>(gallery.kind + "_1", gallery.tag));
}

int countOf(AddIn& addIn, const Gallery& gallery) {
  try {
    return addIn.callBack(gallery.kind + "_getItemCount", {control(gallery)}).toInt();
  } catch (const base::Error&) {
    return 0;  // a name that the galleries can't be asked for, such as one with a quotation mark
  }
}

std::vector<std::size_t> slashes(const std::string& path) {
  std::vector<std::size_t> places;
  for (std::size_t at = path.find('/'); at != std::string::npos; at = path.find('/', at + 1)) {
    places.push_back(at);
  }
  return places;
}

/// Names may hold slashes themselves: the gallery is the first that there is.
std::optional<Found> findGallery(AddIn& addIn, const std::string& path) {
  const std::vector<std::size_t> places = slashes(path);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const std::string menu = path.substr(0, places[i]);
    for (std::size_t j = i + 1; j < places.size(); ++j) {
      const std::string submenu = path.substr(places[i] + 1, places[j] - places[i] - 1);
      const Gallery gallery = menu == myElementsMenu ? Gallery{"myElements", submenu}
                                                     : Gallery{"slideWizard", menu + "\\" + submenu};
      if (countOf(addIn, gallery) > 0) return Found{gallery, path.substr(places[j] + 1)};
    }
  }
  return std::nullopt;
}

/// The place (from 0) of the element that is called so, or has that number.
int placeAmong(const std::vector<std::string>& names, const std::string& element) {
  const auto found = std::find(names.begin(), names.end(), element);
  if (found != names.end()) return static_cast<int>(found - names.begin());
  int number = 0;
  const auto [end, error] = std::from_chars(element.data(), element.data() + element.size(), number);
  const int count = static_cast<int>(names.size());
  if (error == std::errc{} && end == element.data() + element.size() && number >= 1 && number <= count) {
    return number - 1;
  }
  refuseName("insert", "element", element, names);
}

/// The place of an element in its gallery, from 0.
int placeOf(AddIn& addIn, const Found& found) {
  const int count = countOf(addIn, found.gallery);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back(
        addIn.callBack(found.gallery.kind + "_getItemLabel", {control(found.gallery), host::Value(i)})
            .toString());
  }
  return placeAmong(names, found.element);
}

[[noreturn]] void refusePath(const std::string& path, const std::string& subcommand) {
  throw Failure(Exit::usage, "insert: there is no element \"" + path + "\"; \"vellumark " + subcommand +
                                 "\" lists them as menu, gallery and name, which \"/\" divides");
}

void insertFromRibbon(Session& session, const std::string& path) {
  AddIn& addIn = session.addIn();
  const std::optional<Found> found = findGallery(addIn, path);
  if (!found) refusePath(path, "ribbon");
  const int place = placeOf(addIn, *found);
  addIn.callBack(found->gallery.kind + "_onAction",
                 {control(found->gallery), host::Value(std::string()), host::Value(place)});
}

bool isElement(const host::CommandBarControl& control) {
  return control.Type() == host::msoControlButton && control.Id() == 1 &&
         !commands::findCommand(commands::ToolbarCall(control.Parameter()).method);
}

/// The button that a path leads to. A popup that has nothing for the rest of the path is not the one that was
/// meant, unless it is the only one with elements.
host::CommandBarControl findElement(const host::CommandBarControls& controls, const std::string& path) {
  std::vector<host::CommandBarControl> elements;
  std::vector<std::string> names;
  for (const host::CommandBarControl& control : controlsOf(controls)) {
    const std::string caption = control.Caption();
    if (control.Type() == host::msoControlPopup && path.starts_with(caption + "/")) {
      if (const auto found = findElement(control.Controls(), path.substr(caption.size() + 1))) return found;
    } else if (isElement(control)) {
      elements.push_back(control);
      names.push_back(caption);
    }
  }
  if (elements.empty()) return {};
  return elements[static_cast<std::size_t>(placeAmong(names, path))];
}

void insertFromToolbar(Session& session, const std::string& path) {
  for (const host::CommandBar& bar : barsOf(session.application().CommandBars())) {
    if (const host::CommandBarControl button = findElement(bar.Controls(), path)) return button.Execute();
  }
  refusePath(path, "toolbars");
}

}  // namespace

void insertElement(Session& session, const std::string& path) {
  session.hasRibbon() ? insertFromRibbon(session, path) : insertFromToolbar(session, path);
}

}  // namespace vellumark::app
