#include "deck/package/content_types.h"

#include "base/text.h"
#include "deck/package/part_name.h"
#include "deck/package/xml_text.h"

namespace vellumark::deck {
namespace {

constexpr std::string_view noTypes =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/></Types>)";
constexpr int depth = 8;

}  // namespace

ContentTypes::ContentTypes() : ContentTypes(noTypes) { changed_ = true; }

ContentTypes::ContentTypes(std::string_view xml) : document_(parseXml(partName, xml, depth)) {
  for (pugi::xml_node node : document_->document_element().children()) {
    const std::string_view name = node.name();
    if (name.ends_with("Default")) {
      defaults_.emplace(base::toLower(node.attribute("Extension").value()),
                        node.attribute("ContentType").value());
    } else if (name.ends_with("Override")) {
      std::string_view part = node.attribute("PartName").value();
      if (part.starts_with('/')) part.remove_prefix(1);
      overrides_.emplace(partKey(part), node);
    }
  }
}

std::string ContentTypes::of(std::string_view part) const {
  if (const auto found = overrides_.find(partKey(part)); found != overrides_.end()) {
    return found->second.attribute("ContentType").value();
  }
  const std::size_t dot = part.rfind('.');
  if (dot == std::string_view::npos) return {};
  const auto found = defaults_.find(base::toLower(part.substr(dot + 1)));
  return found == defaults_.end() ? std::string() : found->second;
}

void ContentTypes::set(const std::string& part, const std::string& type) {
  if (of(part) == type) return;
  const std::string extension = base::toLower(part.substr(part.rfind('.') + 1));
  const bool named = part.rfind('.') != std::string::npos && part.rfind('.') > part.rfind('/') + 1;
  const bool ofExtension = !type.ends_with("xml") || extension == "rels";
  if (named && ofExtension && !defaults_.contains(extension)) {
    pugi::xml_node node = append("Default");
    node.append_attribute("Extension").set_value(extension.c_str());
    node.append_attribute("ContentType").set_value(type.c_str());
    defaults_.emplace(extension, type);
    changed_ = true;
    return;
  }
  pugi::xml_node& node = overrides_[partKey(part)];
  if (!node) {
    node = append("Override");
    node.append_attribute("PartName").set_value(("/" + escapedName(part)).c_str());
    node.append_attribute("ContentType");
  }
  node.attribute("ContentType").set_value(type.c_str());
  changed_ = true;
}

pugi::xml_node ContentTypes::append(const char* name) {
  pugi::xml_node root = document_->document_element();
  const std::string rootName = root.name();
  return root.append_child((rootName.substr(0, rootName.rfind(':') + 1) + name).c_str());
}

void ContentTypes::remove(std::string_view part) {
  const auto found = overrides_.find(partKey(part));
  if (found == overrides_.end()) return;
  document_->document_element().remove_child(found->second);
  overrides_.erase(found);
  changed_ = true;
}

std::string ContentTypes::text() const { return xmlText(*document_); }

}  // namespace vellumark::deck
