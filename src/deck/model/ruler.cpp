#include "deck/model/ruler.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "deck/model/auto_size.h"
#include "deck/model/member_table.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/text_box.h"
#include "deck/model/text_style.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int64_t longest = 51'206'400;  // EMU; what the file can hold
constexpr int oldLevels = 5;
constexpr int newLevels = 9;

std::int64_t emu(pugi::xml_attribute attribute) { return wholeNumber(attribute, -longest, longest); }

/// Base of the objects around a ruler.
template <typename T>
class RulerPart : public ModelObject<T> {
 public:
  RulerPart(HostRef host, ShapeKey shape) : ModelObject<T>(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

 protected:
  const ShapeKey& shape() const { return shape_; }

 private:
  ShapeKey shape_;
};

class RulerLevelObject : public RulerPart<RulerLevelObject> {
 public:
  static constexpr const char* className = "RulerLevel";
  static const MemberTable<RulerLevelObject>& members() {
    using L = RulerLevelObject;
    static const MemberTable<L> table{
        property<&L::firstMargin, &L::setFirstMargin>(member::FirstMargin),
        property<&L::leftMargin, &L::setLeftMargin>(member::LeftMargin),
    };
    return table;
  }
  RulerLevelObject(HostRef host, ShapeKey shape, int level)
      : RulerPart(std::move(host), std::move(shape)), level_(level) {}

  float firstMargin() { return toPoints(read().first); }
  float leftMargin() { return toPoints(read().left); }
  void setFirstMargin(float points) { write({.first = checked(points), .left = read().left}); }
  void setLeftMargin(float points) { write({.first = read().first, .left = checked(points)}); }

 private:
  /// Both from the left end of the box, in EMU.
  struct Margins {
    std::int64_t first;
    std::int64_t left;
    friend bool operator==(const Margins&, const Margins&) = default;
  };

  static std::int64_t checked(float points) {
    if (!(points >= 0 && static_cast<double>(points) * emuPerPoint <= static_cast<double>(longest))) {
      base::raise(base::errors::outOfRange);
    }
    return toEmu(points);
  }

  bool isOwn(xml_node paragraph) const { return paragraphLevel(paragraph) == level_; }

  /// Those of the first paragraph of the level; of the styles where there is none.
  Margins read() const {
    const LevelStyles styles(shape(), level_);
    const xml_node paragraph = textBodyOf(shape().node).find_child([&](xml_node node) {
      return std::string_view(node.name()) == "a:p" && isOwn(node);
    });
    const xml_node own = paragraph.child("a:pPr");
    const std::int64_t left = emu(styles.paragraph(own, "marL"));
    return {left + emu(styles.paragraph(own, "indent")), left};
  }

  void write(const Margins& margins) {
    if (margins == read()) return;
    xml_node body = requireTextBody(shape().node);
    const std::string name = "a:lvl" + std::to_string(level_) + "pPr";
    xml_node list = body.child("a:lstStyle");
    xml_node style = list.child(name.c_str());
    if (!style) {
      xml_node behind;
      for (int level = newLevels; level > level_; --level) {
        const std::string other = "a:lvl" + std::to_string(level) + "pPr";
        if (const xml_node found = list.child(other.c_str())) behind = found;
      }
      if (!behind) behind = list.child("a:extLst");
      style = behind ? list.insert_child_before(name.c_str(), behind) : list.append_child(name.c_str());
    }
    const auto set = [&](xml_node node) {
      setAttribute(node, "marL", static_cast<long long>(margins.left));
      setAttribute(node, "indent", static_cast<long long>(margins.first - margins.left));
    };
    set(style);
    bool used = false;
    for (xml_node paragraph : body.children("a:p")) {
      if (!isOwn(paragraph)) continue;
      used = true;
      const xml_node properties = paragraph.child("a:pPr");
      set(properties ? properties : paragraph.prepend_child("a:pPr"));
    }
    // A level that no paragraph has moves no text.
    used ? textChanged(shape()) : shape().sheet.touch(Change::contents);
  }

  int level_;
};

class RulerLevelsObject : public RulerPart<RulerLevelsObject> {
 public:
  static constexpr const char* className = "RulerLevels";
  static const MemberTable<RulerLevelsObject>& members() {
    static const MemberTable<RulerLevelsObject> table{
        property<&RulerLevelsObject::count>(member::Count),
        method<&RulerLevelsObject::item>(member::Item, 1),
    };
    return table;
  }
  using RulerPart::RulerPart;

  std::int32_t count() { return host()->beforeRibbon() ? oldLevels : newLevels; }
  host::ObjectRef item(Arguments arguments) {
    const std::size_t place = collectionIndex(arguments[0].toInt(), static_cast<std::size_t>(count()));
    return std::make_shared<RulerLevelObject>(host(), shape(), static_cast<int>(place) + 1);
  }
};

struct TabName {
  std::int32_t type;
  const char* name;
};
constexpr TabName tabNames[] = {
    {host::ppTabStopLeft, "l"}, {host::ppTabStopCenter, "ctr"}, {host::ppTabStopRight, "r"}, {4, "dec"}};

bool isTabList(xml_node node) { return std::string_view(node.name()) == "a:tabLst"; }

/// The tabs of a paragraph, its own or inherited ones.
std::vector<xml_node> tabsOf(const ShapeKey& shape, xml_node paragraph) {
  const LevelStyles styles(shape, paragraphLevel(paragraph));
  const auto tabs = styles.paragraphChild(paragraph.child("a:pPr"), isTabList).children("a:tab");
  return {tabs.begin(), tabs.end()};
}

xml_node firstParagraph(const ShapeKey& shape) { return textBodyOf(shape.node).child("a:p"); }

/// Makes a list of tabs that belongs to a paragraph itself, beginning with what it inherits.
xml_node requireTabs(const ShapeKey& shape, xml_node paragraph) {
  xml_node properties = paragraph.child("a:pPr");
  if (!properties) properties = paragraph.prepend_child("a:pPr");
  if (const xml_node own = properties.child("a:tabLst")) return own;
  const std::vector<xml_node> inherited = tabsOf(shape, paragraph);
  xml_node list = childInOrder(properties, "a:tabLst", {"a:defRPr", "a:extLst"});
  for (const xml_node tab : inherited) list.append_copy(tab);
  return list;
}

/// A tab stop, found again by its position.
class TabStopObject : public RulerPart<TabStopObject> {
 public:
  static constexpr const char* className = "TabStop";
  static const MemberTable<TabStopObject>& members() {
    static const MemberTable<TabStopObject> table{
        property<&TabStopObject::type>(member::Type),
        property<&TabStopObject::position>(member::Position),
        method<&TabStopObject::clear>(member::Clear),
    };
    return table;
  }
  TabStopObject(HostRef host, ShapeKey shape, std::int64_t position)
      : RulerPart(std::move(host), std::move(shape)), position_(position) {}

  std::int32_t type() {
    for (const xml_node tab : tabsOf(shape(), firstParagraph(shape()))) {
      if (emu(tab.attribute("pos")) != position_) continue;
      const std::string_view name = tab.attribute("algn").as_string("l");
      const auto* found = std::ranges::find(tabNames, name, &TabName::name);
      return found != std::end(tabNames) ? found->type : std::int32_t{host::ppTabStopLeft};
    }
    base::raise(base::errors::invalidRequest);
  }
  float position() { return toPoints(position_); }
  void clear() {
    for (xml_node paragraph : textBodyOf(shape().node).children("a:p")) {
      xml_node list = requireTabs(shape(), paragraph);
      while (const xml_node tab =
                 list.find_child([&](xml_node node) { return emu(node.attribute("pos")) == position_; })) {
        list.remove_child(tab);
      }
    }
    textChanged(shape());
  }

 private:
  std::int64_t position_;
};

/// A stop at the very end of the line, brought into the line for programs that count in hundredths of a
/// millimetre and round the frame and each margin alone: a rounding behind the end, its text would go to the
/// next line. Other stops stay where they are.
std::int64_t withinLine(const ShapeKey& shape, std::int64_t position) {
  constexpr double hundredth = 360;  // EMU
  const auto rounded = [](double length) { return std::llround(length / hundredth); };
  const double width = slideFramePart(shape, FramePart::width);
  const auto left = static_cast<double>(boxMargin(shape, BoxProperty::marginLeft)),
             right = static_cast<double>(boxMargin(shape, BoxProperty::marginRight));
  if (std::abs(static_cast<double>(position) - (width - left - right)) > 1) return position;
  const long long end = rounded(width) - rounded(left) - rounded(right);
  return std::min<std::int64_t>(position, std::llround((static_cast<double>(end) + 0.5) * hundredth) - 1);
}

/// The stops of the first paragraph, in order; changes go to all paragraphs.
class TabStopsObject : public RulerPart<TabStopsObject> {
 public:
  static constexpr const char* className = "TabStops";
  static const MemberTable<TabStopsObject>& members() {
    static const MemberTable<TabStopsObject> table{
        property<&TabStopsObject::count>(member::Count),
        method<&TabStopsObject::item>(member::Item, 1),
        method<&TabStopsObject::add>(member::Add, 2, 2),
    };
    return table;
  }
  using RulerPart::RulerPart;

  std::int32_t count() { return static_cast<std::int32_t>(positions().size()); }
  host::ObjectRef item(Arguments arguments) {
    const std::vector<std::int64_t> all = positions();
    return stop(all[collectionIndex(arguments[0].toInt(), all.size())]);
  }
  host::ObjectRef add(Arguments arguments) {
    const auto* kind = std::ranges::find(tabNames, arguments[0].toInt(), &TabName::type);
    const double points = arguments[1].toDouble();
    if (kind == std::end(tabNames) || !(std::abs(points) * emuPerPoint <= static_cast<double>(longest))) {
      base::raise(base::errors::outOfRange);
    }
    const std::int64_t position = withinLine(shape(), toEmu(points));
    for (xml_node paragraph : requireTextBody(shape().node).children("a:p")) {
      xml_node list = requireTabs(shape(), paragraph);
      const xml_node next =
          list.find_child([&](xml_node node) { return emu(node.attribute("pos")) >= position; });
      xml_node tab = next;
      if (!next || emu(next.attribute("pos")) != position) {
        tab = next ? list.insert_child_before("a:tab", next) : list.append_child("a:tab");
        setAttribute(tab, "pos", static_cast<long long>(position));
      }
      setAttribute(tab, "algn", kind->name);
    }
    textChanged(shape());
    return stop(position);
  }

 private:
  std::vector<std::int64_t> positions() const {
    std::vector<std::int64_t> found;
    for (const xml_node tab : tabsOf(shape(), firstParagraph(shape()))) {
      found.push_back(emu(tab.attribute("pos")));
    }
    std::ranges::sort(found);
    return found;
  }
  host::ObjectRef stop(std::int64_t position) {
    return std::make_shared<TabStopObject>(host(), shape(), position);
  }
};

class RulerObject : public RulerPart<RulerObject> {
 public:
  static constexpr const char* className = "Ruler";
  static const MemberTable<RulerObject>& members() {
    static const MemberTable<RulerObject> table{
        property<&RulerObject::levels>(member::Levels),
        property<&RulerObject::tabStops>(member::TabStops),
    };
    return table;
  }
  using RulerPart::RulerPart;

  host::ObjectRef levels() { return std::make_shared<RulerLevelsObject>(host(), shape()); }
  host::ObjectRef tabStops() { return std::make_shared<TabStopsObject>(host(), shape()); }
};

}  // namespace

host::ObjectRef makeRuler(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<RulerObject>(host, shape);
}

}  // namespace vellumark::deck
