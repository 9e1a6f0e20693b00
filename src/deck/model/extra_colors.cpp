#include "deck/model/extra_colors.h"

#include "deck/model/color.h"
#include "deck/model/member_table.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

constexpr const char* propertiesContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.presProps+xml";
constexpr std::size_t mostColors = 10;  // the file format keeps no more

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
    const auto all = colors();
    const pugi::xml_node color = all[collectionIndex(arguments[0].toInt(), all.size())];
    return colorFromHex(color.attribute("val").value());
  }
  void add(Arguments arguments) {
    const std::int32_t color = arguments[0].toInt();
    if (color < 0 || color > 0xFFFFFF) base::raise(base::errors::outOfRange);
    const PartRef part = properties(true);
    pugi::xml_node list = childInOrder(part->root(), "p:clrMru", {"p:extLst"});
    const std::string hex = colorHex(color);
    for (pugi::xml_node known : colors()) {
      if (hex == known.attribute("val").value()) part->bury(known);
    }
    list.prepend_child("a:srgbClr").append_attribute("val").set_value(hex.c_str());
    const auto all = colors();
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
  PartRef properties(bool make) {
    Part& presentation = *document_->presentationPart();
    if (const Relationship* relationship = presentation.firstRelationship("presProps")) {
      return presentation.target(*relationship);
    }
    if (!make) return nullptr;
    const PartRef part = document_->package().addXml(
        "ppt/presProps.xml", propertiesContentType,
        R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
        R"(<p:presentationPr xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
        R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
        R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"/>)");
    presentation.relate(*part, "presProps");
    return part;
  }
  std::vector<pugi::xml_node> colors() {
    std::vector<pugi::xml_node> found;
    if (const PartRef part = properties(false)) {
      for (pugi::xml_node color : part->root().child("p:clrMru").children("a:srgbClr"))
        found.push_back(color);
    }
    return found;
  }
  DocumentRef document_;
};

}  // namespace

host::ObjectRef makeExtraColors(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<ExtraColorsObject>(host, document);
}

}  // namespace vellumark::deck
