// Tags of presentations, slides and shapes: each holder has a part of its own, named by p:custDataLst/p:tags.

#include <string_view>

#include "base/text.h"
#include "base/xml_storable.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

constexpr const char* tagsContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.tags+xml";
constexpr std::string_view emptyTagList =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<p:tagLst xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
    R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"/>)";

class TagsObject : public ModelObject<TagsObject> {
 public:
  static constexpr const char* className = "Tags";
  static const MemberTable<TagsObject>& members() {
    static const MemberTable<TagsObject> table{
        property<&TagsObject::count>(member::Count), method<&TagsObject::item>(member::Item, 1),
        method<&TagsObject::name>(member::Name, 1),  method<&TagsObject::value>(member::Value, 1),
        method<&TagsObject::add>(member::Add, 2),    method<&TagsObject::remove>(member::Delete, 1),
    };
    return table;
  }

  TagsObject(HostRef host, DocumentRef document, PartRef part, pugi::xml_node owner)
      : ModelObject(std::move(host)), document_(std::move(document)), part_(std::move(part)), owner_(owner) {}

  void requireAlive() const {
    const bool gone = owner_ ? part_->isBuried(owner_) : part_->removed();
    if (document_->closed() || gone) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() {
    const PartRef list = tagPart();
    std::int32_t count = 0;
    if (list) {
      for ([[maybe_unused]] pugi::xml_node tag : list->root().children("p:tag")) ++count;
    }
    return count;
  }
  std::string item(Arguments arguments) { return find(arguments[0].toString()).attribute("val").value(); }
  std::string name(Arguments arguments) { return at(arguments[0].toInt()).attribute("name").value(); }
  std::string value(Arguments arguments) { return at(arguments[0].toInt()).attribute("val").value(); }

  void add(Arguments arguments) {
    const std::string name = base::toUpper(base::xmlStorable(arguments[0].toString()));
    const std::string text = base::xmlStorable(arguments[1].toString());
    if (name.empty()) base::raise(base::errors::outOfRange);
    PartRef list = tagPart();
    if (!list) list = makeTagPart();
    pugi::xml_node tag = find(name);
    if (!tag) {
      tag = list->root().append_child("p:tag");
      tag.append_attribute("name").set_value(name.c_str());
    }
    setAttribute(tag, "val", text.c_str());
    document_->touch(*list, Change::contents);
  }

  void remove(Arguments arguments) {
    const pugi::xml_node tag = find(arguments[0].toString());
    if (!tag) return;
    const PartRef list = tagPart();
    list->bury(tag);
    document_->touch(*list, Change::contents);
    if (!list->root().child("p:tag")) dropTagPart(list);
  }

 private:
  pugi::xml_node owner() {
    if (!owner_) owner_ = part_->root().child("p:cSld");
    return owner_;
  }

  /// A part without any such relationship has no tags, and needs not be parsed to say so.
  PartRef tagPart() {
    if (!part_->firstRelationship("tags")) return nullptr;
    const pugi::xml_node reference = owner().child("p:custDataLst").child("p:tags");
    const Relationship* relationship =
        reference ? part_->relationship(reference.attribute("r:id").value()) : nullptr;
    return relationship ? part_->target(*relationship) : nullptr;
  }

  pugi::xml_node find(const std::string& name) {
    if (const PartRef list = tagPart()) {
      for (pugi::xml_node tag : list->root().children("p:tag")) {
        if (base::equalsIgnoreCase(tag.attribute("name").value(), name)) return tag;
      }
    }
    return {};
  }

  pugi::xml_node at(std::int32_t index) {
    std::vector<pugi::xml_node> tags;
    if (const PartRef list = tagPart()) {
      for (pugi::xml_node tag : list->root().children("p:tag")) tags.push_back(tag);
    }
    return tags[collectionIndex(index, tags.size())];
  }

  PartRef makeTagPart() {
    Package& package = document_->package();
    const PartRef list =
        package.addXml(package.freeName("ppt/tags/tag%d.xml"), tagsContentType, emptyTagList);
    // The one list serves p:presentation, p:cSld and p:nvPr: what follows p:custDataLst in each of them.
    pugi::xml_node data =
        childInOrder(owner(), "p:custDataLst",
                     {"p:kinsoku", "p:defaultTextStyle", "p:modifyVerifier", "p:controls", "p:extLst"});
    pugi::xml_node reference = data.child("p:tags");
    if (!reference) reference = data.append_child("p:tags");
    setAttribute(reference, "r:id", part_->relate(*list, "tags").c_str());
    document_->touch(*part_, Change::contents);
    return list;
  }

  void dropTagPart(const PartRef& list) {
    pugi::xml_node data = owner().child("p:custDataLst");
    pugi::xml_node reference = data.child("p:tags");
    part_->unrelate(reference.attribute("r:id").value());
    part_->bury(reference);
    if (!data.first_child()) part_->bury(data);
    document_->package().remove(list);
    document_->touch(*part_, Change::contents);
  }

  DocumentRef document_;
  PartRef part_;
  pugi::xml_node owner_;  ///< nothing for the p:cSld of a sheet until it is asked for
};

}  // namespace

host::ObjectRef makeTags(const HostRef& host, const DocumentRef& document, const PartRef& part,
                         pugi::xml_node owner) {
  return std::make_shared<TagsObject>(host, document, part, owner);
}

host::ObjectRef makeTags(const HostRef& host, const Sheet& sheet) {
  return std::make_shared<TagsObject>(host, sheet.document, sheet.part, pugi::xml_node());
}

}  // namespace vellumark::deck
