#include "deck/package/relationships.h"

#include <algorithm>

#include "deck/package/format_error.h"
#include "deck/package/part_name.h"
#include "deck/package/xml_text.h"

namespace vellumark::deck {
namespace {

constexpr std::string_view noRelationships =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"/>)";
constexpr int depth = 8;

bool isRelationship(pugi::xml_node node) {
  const std::string_view name = node.name();
  return name == "Relationship" || name.ends_with(":Relationship");
}

/// What relationships of one type to one target have in common.
std::string targetKey(const std::string& type, const std::string& target, bool external) {
  return type + (external ? "\nexternal\n" + target : "\n" + partKey(target));
}

}  // namespace

bool Relationship::is(std::string_view name) const {
  return type.size() > name.size() && type.ends_with(name) && type[type.size() - name.size() - 1] == '/';
}

Relationships::Relationships(std::string source) : source_(std::move(source)) {}

Relationships::Relationships(std::string source, std::string_view xml, std::size_t most)
    : source_(std::move(source)), document_(parseXml(partName(source_), xml, depth)) {
  for (pugi::xml_node node : document_->document_element().children()) {
    if (!isRelationship(node)) continue;
    if (all_.size() == most) {
      throw FormatError(partName(source_), "has more than " + std::to_string(most) + " relationships");
    }
    Relationship relationship{node.attribute("Id").value(), node.attribute("Type").value(), {}, false};
    const std::string_view target = node.attribute("Target").value();
    relationship.external = std::string_view(node.attribute("TargetMode").value()) == "External";
    relationship.target = relationship.external ? std::string(target) : resolveReference(source_, target);
    all_.push_back(std::move(relationship));
  }
}

std::string Relationships::text() const { return xmlText(*document_); }

const Relationship* Relationships::look(Places& places, const std::string& key, const auto& keyOf) const {
  for (; places.count < all_.size(); ++places.count) {
    places.first.emplace(keyOf(all_[places.count]), places.count);
  }
  const auto found = places.first.find(key);
  return found == places.first.end() ? nullptr : &all_[found->second];
}

const Relationship* Relationships::find(std::string_view id) const {
  return look(ids_, std::string(id), [](const Relationship& one) { return one.id; });
}

const Relationship* Relationships::first(std::string_view name) const {
  return look(names_, std::string(name), [](const Relationship& one) {
    const std::size_t slash = one.type.rfind('/');
    return slash == std::string::npos ? std::string() : one.type.substr(slash + 1);
  });
}

std::string Relationships::add(const std::string& type, const std::string& target, bool external) {
  const Relationship* same = look(targets_, targetKey(type, target, external), [](const Relationship& one) {
    return targetKey(one.type, one.target, one.external);
  });
  if (same) return same->id;

  std::string id;
  for (std::size_t number = all_.size() + 1;; ++number) {
    id = "rId" + std::to_string(number);
    if (!find(id)) break;
  }
  addAs(id, type, target, external);
  return id;
}

void Relationships::addAs(const std::string& id, const std::string& type, const std::string& target,
                          bool external) {
  if (!document_) document_ = parseXml(partName(source_), noRelationships, depth);
  pugi::xml_node root = document_->document_element();
  const std::string name = root.name();
  pugi::xml_node node = root.append_child((name.substr(0, name.rfind(':') + 1) + "Relationship").c_str());
  node.append_attribute("Id").set_value(id.c_str());
  node.append_attribute("Type").set_value(type.c_str());
  node.append_attribute("Target").set_value((external ? target : referenceTo(source_, target)).c_str());
  if (external) node.append_attribute("TargetMode").set_value("External");
  all_.push_back({id, type, target, external});
  changed_ = true;
}

void Relationships::remove(std::string_view id) {
  const auto found = std::ranges::find(all_, id, &Relationship::id);
  if (found == all_.end()) return;
  for (pugi::xml_node node : document_->document_element().children()) {
    if (isRelationship(node) && id == node.attribute("Id").value()) {
      document_->document_element().remove_child(node);
      break;
    }
  }
  all_.erase(found);
  ids_ = names_ = targets_ = {};
  changed_ = true;
}

std::string Relationships::partName(std::string_view source) {
  const std::size_t slash = source.rfind('/');
  const std::string folder(slash == std::string_view::npos ? std::string_view{}
                                                           : source.substr(0, slash + 1));
  return folder + "_rels/" + std::string(source.substr(folder.size())) + ".rels";
}

std::optional<std::string> Relationships::sourceOf(std::string_view partName) {
  constexpr std::string_view folder = "_rels/";
  constexpr std::string_view extension = ".rels";
  const std::string key = partKey(partName);
  const std::size_t slash = key.rfind('/');
  const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
  if (!key.ends_with(extension) || !std::string_view(key).substr(0, start).ends_with(folder)) return {};
  const std::size_t above = start - folder.size();
  if (above > 0 && key[above - 1] != '/') return {};
  return key.substr(0, above) + key.substr(start, key.size() - start - extension.size());
}

}  // namespace vellumark::deck
