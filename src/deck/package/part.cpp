#include "deck/package/part.h"

#include <algorithm>
#include <utility>

#include "deck/package/package.h"
#include "deck/package/xml_text.h"

namespace vellumark::deck {

Part::Part(Package& package, std::string name, std::string contentType)
    : package_(package), name_(std::move(name)), contentType_(std::move(contentType)) {}

pugi::xml_node Part::root() {
  if (!document_) document_ = package_.parse(*this);
  return document_->document_element();
}

std::string Part::bytes() {
  if (document_ && (changed_ || !entry_)) return xmlText(*document_);
  return package_.readBytes(*this);
}

void Part::bury(pugi::xml_node node) {
  root();
  // Behind the root, so that only a path from the document itself ("//p:sp") could find what lies there.
  if (!graveyard_) graveyard_ = document_->append_child(graveyardName);
  graveyard_.append_move(node);
  touch();
}

bool Part::isBuried(pugi::xml_node node) const {
  if (removed_ || !node) return true;
  if (!graveyard_) return false;
  for (; node; node = node.parent()) {
    if (node == graveyard_) return true;
  }
  return false;
}

Relationships& Part::ownRelationships() {
  if (!relationships_) relationships_ = package_.readRelationships(name_);
  return *relationships_;
}

const std::vector<Relationship>& Part::relationships() { return ownRelationships().all(); }

const Relationship* Part::relationship(std::string_view id) { return ownRelationships().find(id); }

const Relationship* Part::firstRelationship(std::string_view name) { return ownRelationships().first(name); }

PartRef Part::target(const Relationship& relationship) {
  return relationship.external ? nullptr : package_.part(relationship.target);
}

std::string Part::relate(const Part& target, std::string_view type) {
  return ownRelationships().add(package_.wholeType(type), target.name(), false);
}

std::string Part::relateExternal(std::string_view uri, std::string_view type) {
  return ownRelationships().add(package_.wholeType(type), std::string(uri), true);
}

void Part::relateAs(const std::string& id, const Part& target, const std::string& type) {
  ownRelationships().addAs(id, type, target.name(), false);
}

void Part::relateExternalAs(const std::string& id, const std::string& uri, const std::string& type) {
  ownRelationships().addAs(id, type, uri, true);
}

void Part::unrelate(std::string_view id) { ownRelationships().remove(id); }

}  // namespace vellumark::deck
