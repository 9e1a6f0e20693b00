#include "elements.h"

#include <charconv>
#include <optional>
#include <vector>

#include "arguments.h"
#include "base/error.h"
#include "base/text.h"
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

/// The place of an element in its gallery, from 0.
int placeOf(AddIn& addIn, const Found& found) {
  const int count = countOf(addIn, found.gallery);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back(
        addIn.callBack(found.gallery.kind + "_getItemLabel", {control(found.gallery), host::Value(i)})
            .toString());
    if (names.back() == found.element) return i;
  }
  int number = 0;
  const std::string& text = found.element;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc{} && end == text.data() + text.size() && number >= 1 && number <= count)
    return number - 1;
  refuseName("insert", "element", found.element, names);
}

}  // namespace

void insertElement(Session& session, const std::string& path) {
  if (!session.hasRibbon()) {
    throw Failure(Exit::usage, "insert: only hosts with a ribbon have galleries: --host 14.0");
  }
  AddIn& addIn = session.addIn();
  const std::optional<Found> found = findGallery(addIn, path);
  if (!found) {
    throw Failure(Exit::usage,
                  "insert: there is no element \"" + path +
                      "\"; \"vellumark ribbon\" lists them as menu, gallery and name, which \"/\" divides");
  }
  const int place = placeOf(addIn, *found);
  addIn.callBack(found->gallery.kind + "_onAction",
                 {control(found->gallery), host::Value(std::string()), host::Value(place)});
}

}  // namespace vellumark::app
