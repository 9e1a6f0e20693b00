#include "deck/model/document_properties.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/text_body.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// A slide as it is now.
struct Told {
  std::int32_t id;
  PartRef part;  ///< none where the presentation names none
};

std::vector<Told> slidesOf(Document& document) {
  const PartRef& presentation = document.presentationPart();
  std::vector<Told> slides;
  for (const SlideEntry& entry : document.slides()) {
    const Relationship* relationship = presentation->relationship(entry.relationshipId);
    slides.push_back({entry.id, relationship ? presentation->target(*relationship) : nullptr});
  }
  return slides;
}

xml_node childOf(xml_node parent, std::string_view name) {
  return parent.find_child([&](xml_node child) { return localName(child) == name; });
}

std::string untitled(std::size_t position) { return "Slide " + std::to_string(position + 1); }

/// Whether programs write such a text for a slide without a title, in whatever language: the name of its
/// kind, or its number.
bool standsForNone(const std::string& text, std::size_t position) {
  return text.starts_with("PowerPoint") || text.ends_with(' ' + std::to_string(position + 1));
}

/// The text of the title on one line; empty where the slide has none.
std::string titleOf(Document& document, const PartRef& slide) {
  std::string title;
  if (slide) {
    const Sheet sheet = document.sheet(slide);
    for (const xml_node shape : shapeNodes(sheet.shapeTree())) {
      const xml_node placeholder = placeholderElement(shape);
      if (!placeholder || placeholderFamily(placeholder) != PlaceholderFamily::title) continue;
      std::u16string text = TextBody({sheet, shape}).text();
      std::ranges::replace_if(
          text, [](char16_t c) { return c < u' '; }, u' ');
      title = base::fromUtf16(text);
      break;
    }
  }
  return title;
}

/// The headings of app.xml and the titles below each of them.
class Headings {
 public:
  explicit Headings(xml_node properties)
      : properties_(properties),
        pairs_(childOf(childOf(properties, "HeadingPairs"), "vector")),
        titles_(childOf(childOf(properties, "TitlesOfParts"), "vector")) {}

  explicit operator bool() const { return pairs_ && titles_; }

  /// Finds the heading of the slides, `count` of them: by its name or, in another language than English, as
  /// the last one with so many titles. Whether there is one.
  bool findSlides(std::size_t count) {
    std::size_t first = 0;
    bool named = false;
    for (xml_node name = pairs_.first_child(); name; name = name.next_sibling().next_sibling()) {
      const xml_node number = name.next_sibling().first_child();
      const auto titles = static_cast<std::size_t>(number.text().as_uint());
      const bool english = std::string_view(name.first_child().text().get()) == "Slide Titles";
      if (english || (!named && titles == count)) {
        number_ = number;
        first_ = first;
        count_ = titles;
      }
      named = named || english;
      first += titles;
    }
    const auto all = titles_.children();
    return number_ && first == static_cast<std::size_t>(std::distance(all.begin(), all.end()));
  }
  std::vector<std::string> titles() const {
    std::vector<std::string> found;
    xml_node node = first();
    for (std::size_t i = 0; i < count_; ++i, node = node.next_sibling())
      found.emplace_back(node.text().get());
    return found;
  }
  void setTitles(const std::vector<std::string>& titles) {
    xml_node next = first();
    for (std::size_t i = 0; i < count_; ++i) {
      const xml_node gone = next;
      next = next.next_sibling();
      titles_.remove_child(gone);
    }
    // The prefix of the vectors serves for what stands in them too.
    const std::string vector = titles_.name();
    const std::string name = vector.substr(0, vector.find(':') + 1) + "lpstr";
    for (const std::string& title : titles) {
      xml_node node =
          next ? titles_.insert_child_before(name.c_str(), next) : titles_.append_child(name.c_str());
      node.text().set(title.c_str());
    }
    const auto all = titles_.children();
    setAttribute(titles_, "size", static_cast<unsigned>(std::distance(all.begin(), all.end())));
    number_.text().set(static_cast<unsigned>(titles.size()));
  }
  void remove() {
    for (const char* name : {"HeadingPairs", "TitlesOfParts"})
      properties_.remove_child(childOf(properties_, name));
  }

 private:
  xml_node first() const {
    xml_node node = titles_.first_child();
    for (std::size_t i = 0; i < first_; ++i) node = node.next_sibling();
    return node;
  }

  xml_node properties_, pairs_, titles_;
  xml_node number_;  ///< of the slides' titles
  std::size_t first_ = 0, count_ = 0;
};

template <typename Counts>
void setCount(xml_node properties, const char* name, const std::vector<Told>& slides, Counts counts) {
  if (xml_node node = childOf(properties, name)) {
    node.text().set(static_cast<unsigned>(std::ranges::count_if(slides, counts)));
  }
}

bool relates(const Told& slide, std::string_view type) {
  return slide.part && slide.part->firstRelationship(type);
}

/// The titles of the slides now; those that were told before and didn't change are taken from there.
std::vector<std::string> titlesNow(Document& document, const std::vector<Told>& slides,
                                   const std::vector<std::int32_t>& told,
                                   const std::vector<std::string>& before) {
  std::vector<std::string> titles;
  for (std::size_t i = 0; i < slides.size(); ++i) {
    const auto old = static_cast<std::size_t>(std::ranges::find(told, slides[i].id) - told.begin());
    const bool known = before.size() == told.size() && old < told.size() &&
                       !(slides[i].part && slides[i].part->changed()) && before[old] != untitled(old);
    if (known) {
      titles.push_back(before[old]);
      continue;
    }
    std::string title = titleOf(document, slides[i].part);
    const bool named =
        before.size() == told.size() && i < told.size() && old == i && standsForNone(before[i], i);
    if (title.empty()) title = named ? before[i] : untitled(i);
    titles.push_back(std::move(title));
  }
  return titles;
}

void tell(Document& document, Part& part, const std::vector<Told>& slides,
          const std::vector<std::int32_t>& told) {
  xml_node properties = part.root();
  const bool sameSlides = std::ranges::equal(slides, told, {}, &Told::id);
  Headings headings(properties);
  const bool found = headings && headings.findSlides(told.size());
  const std::vector<std::string> before = found ? headings.titles() : std::vector<std::string>();
  // Where the titles weren't true, they stay as they came unless slides came or went.
  if (sameSlides && before.size() != told.size()) return;
  const std::vector<std::string> now = found ? titlesNow(document, slides, told, before) : before;
  if (sameSlides && now == before) return;

  if (found) {
    headings.setTitles(now);
  } else {
    headings.remove();
  }
  setCount(properties, "Slides", slides, [](const Told&) { return true; });
  setCount(properties, "Notes", slides, [](const Told& slide) { return relates(slide, "notesSlide"); });
  setCount(properties, "MMClips", slides,
           [](const Told& slide) { return relates(slide, "video") || relates(slide, "audio"); });
  const bool noneHidden = childOf(properties, "HiddenSlides").text().as_int() == 0;
  setCount(properties, "HiddenSlides", slides, [&](const Told& slide) {
    const bool known = noneHidden && std::ranges::find(told, slide.id) != told.end();
    return slide.part && !known && !slide.part->root().attribute("show").as_bool(true);
  });
  for (const char* name : {"Words", "Paragraphs"}) properties.remove_child(childOf(properties, name));
  part.touch();
}

}  // namespace

void tellOfNotesPage(Document& document) {
  const PartRef properties = document.package().root("extended-properties");
  if (!properties) return;
  try {
    if (xml_node notes = childOf(properties->root(), "Notes")) {
      notes.text().set(notes.text().as_uint() + 1);
      properties->touch();
    }
  } catch (const FormatError&) {
    // What can't be read can't be brought up to date.
  }
}

void tellOfSlides(Document& document, const std::vector<std::int32_t>& told) {
  const std::vector<Told> slides = slidesOf(document);
  const bool sameSlides = std::ranges::equal(slides, told, {}, &Told::id);
  const bool changed =
      std::ranges::any_of(slides, [](const Told& slide) { return slide.part && slide.part->changed(); });
  if (sameSlides && !changed) return;
  Package& package = document.package();
  const bool sameFirst = !slides.empty() && !told.empty() && slides.front().id == told.front();
  if (!sameFirst) package.removeRoot("thumbnail");
  const PartRef properties = package.root("extended-properties");
  if (!properties) return;
  try {
    tell(document, *properties, slides, told);
  } catch (const FormatError&) {
    // What can't be read can't be brought up to date.
    if (!sameSlides) package.removeRoot("extended-properties");
  }
}

}  // namespace vellumark::deck
