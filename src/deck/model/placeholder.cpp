#include "deck/model/placeholder.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include "deck/model/member_table.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_index.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

using Family = PlaceholderFamily;

struct PlaceholderKind {
  std::string_view name;  ///< p:ph/@type
  std::int32_t type;      ///< PpPlaceholderType
  std::int32_t upright;   ///< the same where the text runs from top to bottom
  Family family;
};
constexpr PlaceholderKind kinds[] = {
    {"obj", 7, 17, Family::body},     {"title", 1, 5, Family::title},
    {"body", 2, 6, Family::body},     {"ctrTitle", 3, 5, Family::title},
    {"subTitle", 4, 6, Family::body}, {"chart", 8, 8, Family::body},
    {"clipArt", 9, 9, Family::body},  {"media", 10, 10, Family::body},
    {"dgm", 11, 11, Family::body},    {"tbl", 12, 12, Family::body},
    {"pic", 18, 18, Family::body},    {"sldNum", 13, 13, Family::slideNumber},
    {"hdr", 14, 14, Family::header},  {"ftr", 15, 15, Family::footer},
    {"dt", 16, 16, Family::date},     {"sldImg", 101, 101, Family::slideImage},
};

const PlaceholderKind& kindOf(xml_node element) {
  const std::string_view type = element.attribute("type").as_string("obj");
  const auto* kind = std::ranges::find(kinds, type, &PlaceholderKind::name);
  return kind != std::end(kinds) ? *kind : kinds[0];
}

/// 2 for masters, 1 for layouts, 0 for what stands on them.
int level(const Sheet& sheet) {
  const std::string& type = sheet.part->contentType();
  if (type.find("Master+xml") != std::string::npos) return 2;
  return type.find("slideLayout+xml") != std::string::npos ? 1 : 0;
}

std::int64_t indexOf(xml_node element) {
  return wholeNumber(element.attribute("idx"), 0, std::numeric_limits<std::uint32_t>::max());
}

class PlaceholderFormatObject : public ModelObject<PlaceholderFormatObject> {
 public:
  static constexpr const char* className = "PlaceholderFormat";
  static const MemberTable<PlaceholderFormatObject>& members() {
    static const MemberTable<PlaceholderFormatObject> table{
        property<&PlaceholderFormatObject::type>(member::Type),
    };
    return table;
  }

  PlaceholderFormatObject(HostRef host, ShapeKey shape)
      : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }
  std::int32_t type() { return placeholderType(placeholderElement(shape_.node)); }

 private:
  ShapeKey shape_;
};

}  // namespace

xml_node placeholderElement(xml_node shape) { return applicationProperties(shape).child("p:ph"); }

PlaceholderFamily placeholderFamily(xml_node element) { return kindOf(element).family; }

std::int32_t placeholderType(xml_node element) {
  const PlaceholderKind& kind = kindOf(element);
  return std::string_view(element.attribute("orient").value()) == "vert" ? kind.upright : kind.type;
}

ShapeKey inheritedPlaceholder(const ShapeKey& shape) {
  const xml_node element = placeholderElement(shape.node);
  if (!element) return {};
  const Sheet parent = shape.sheet.parent();
  // A broken file may lead from a sheet to itself or back down.
  if (!parent || level(parent) <= level(shape.sheet)) return {};
  const bool byIndex = level(parent) == 1;
  const Family family = kindOf(element).family;
  const std::int64_t index = indexOf(element);

  xml_node best;
  int bestRank = 0;
  for (const xml_node candidate : SheetIndex::of(parent)->shapes()) {
    const xml_node model = placeholderElement(candidate);
    if (!model) continue;
    const bool sameFamily = kindOf(model).family == family;
    const bool sameIndex = byIndex && indexOf(model) == index;
    // The index 0 is what placeholders without one have, titles before all: it tells nothing by itself.
    const int rank = sameFamily && sameIndex ? 3 : sameIndex && index != 0 ? 2 : sameFamily ? 1 : 0;
    if (rank > bestRank) {
      best = candidate;
      bestRank = rank;
    }
  }
  return best ? ShapeKey{parent, best} : ShapeKey{};
}

host::ObjectRef makePlaceholderFormat(const HostRef& host, const ShapeKey& shape) {
  if (!placeholderElement(shape.node)) base::raise(base::errors::outOfRange);
  return std::make_shared<PlaceholderFormatObject>(host, shape);
}

}  // namespace vellumark::deck
