#include "deck/model/extra_colors.h"

#include <algorithm>
#include <vector>

#include "deck/model/color.h"
#include "deck/model/member_table.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

constexpr const char* propertiesContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.presProps+xml";
constexpr std::size_t mostColors = 8;

class ExtraColorsObject : public ModelObject<ExtraColorsObject> {
 public:
  static constexpr const char* className = "ExtraColors";
  static const MemberTable<ExtraColorsObject>& members() {
    static const MemberTable<ExtraColorsObject> table{
        property<&ExtraColorsObject::count>(member::Count),
        method<&ExtraColorsObject::item>(member::Item, 1),
        method<&ExtraColorsObject::add>(member::Add, 1),
        method<&ExtraColorsObject::clear>(member::Clear),
    };
    return table;
  }
  ExtraColorsObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}
  void requireAlive() const {
    if (document_->closed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(colors().size()); }
  std::int32_t item(Arguments arguments) {
    const std::vector<std::int32_t> all = colors();
    return all[collectionIndex(arguments[0].toInt(), all.size())];
  }
  void add(Arguments arguments) {
    const std::int32_t color = arguments[0].toInt();
    if (color < 0 || color > 0xFFFFFF) base::raise(base::errors::outOfRange);
    const std::vector<std::int32_t> known = colors();
    if (std::ranges::find(known, color) != known.end()) return;
    const PartRef part = properties(true);
    pugi::xml_node list = childInOrder(part->root(), "p:clrMru", {"p:extLst"});
    list.prepend_child("a:srgbClr").append_attribute("val").set_value(colorHex(color).c_str());
    const std::vector<pugi::xml_node> all = elements();
    for (std::size_t i = mostColors; i < all.size(); ++i) part->bury(all[i]);
    document_->touch(*part);
  }
  void clear() {
    const PartRef part = properties(false);
    const pugi::xml_node list = part ? part->root().child("p:clrMru") : pugi::xml_node{};
    if (!list) return;
    part->bury(list);
    document_->touch(*part);
  }

 private:
  /// The part that holds them; nothing where there is none and none is to be made.
  PartRef properties(bool make) {
    Part& presentation = *document_->presentationPart();
    const Relationship* relationship = presentation.firstRelationship("presProps");
    const PartRef known = relationship ? presentation.target(*relationship) : nullptr;
    if (known || !make) return known;
    // A relationship that leads nowhere gets its part.
    const PartRef part = document_->package().addXml(
        relationship && !relationship->external ? relationship->target : "ppt/presProps.xml",
        propertiesContentType,
        R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
        R"(<p:presentationPr xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
        R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
        R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"/>)");
    presentation.relate(*part, "presProps");
    return part;
  }
  /// As the file has them: the last one first, and of later hosts up to ten.
  std::vector<pugi::xml_node> elements() {
    std::vector<pugi::xml_node> found;
    if (const PartRef part = properties(false)) {
      for (const pugi::xml_node color : part->root().child("p:clrMru").children()) {
        if (color.type() == pugi::node_element) found.push_back(color);
      }
    }
    return found;
  }
  std::vector<std::int32_t> colors() {
    std::vector<pugi::xml_node> found = elements();
    found.resize(std::min(found.size(), mostColors));
    const std::vector<Sheet> masters = document_->masters();
    const Sheet master = masters.empty() ? Sheet() : masters.front();
    std::vector<std::int32_t> numbers;
    for (const pugi::xml_node color : found) numbers.push_back(colorNumber(master, color));
    std::ranges::reverse(numbers);
    return numbers;
  }
  DocumentRef document_;
};

}  // namespace

host::ObjectRef makeExtraColors(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<ExtraColorsObject>(host, document);
}

}  // namespace vellumark::deck
