#include "support/saved_decks.h"

#include <algorithm>
#include <pugixml.hpp>
#include <set>

#include "support/temp_folder.h"

namespace vellumark::test {
namespace {

/// Local name of an element, whatever its prefix.
std::string localName(const pugi::xml_node& node) {
  const std::string name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

std::string folderOf(const std::string& part) {
  const auto slash = part.rfind('/');
  return slash == std::string::npos ? "" : part.substr(0, slash + 1);
}

std::string relationshipsOf(const std::string& part) {
  return folderOf(part) + "_rels/" + part.substr(folderOf(part).size()) + ".rels";
}

std::string resolved(const std::string& part, std::string target) {
  if (target.starts_with('/')) return target.substr(1);
  std::string folder = folderOf(part);
  while (target.starts_with("../")) {
    target.erase(0, 3);
    folder = folderOf(folder.substr(0, folder.empty() ? 0 : folder.size() - 1));
  }
  return folder + target;
}

class Inspection {
 public:
  explicit Inspection(const decks::ZipEntries& entries) : entries_(entries) {
    for (const auto& [name, entry] : entries) {
      if (!name.ends_with(".xml") && !name.ends_with(".rels")) continue;
      if (!documents_[name].load_buffer(entry.bytes.data(), entry.bytes.size()))
        fault(name, "is not well-formed");
    }
  }

  std::vector<std::string> run() {
    checkContentTypes();
    follow("");
    for (const auto& [name, entry] : entries_) {
      if (!name.ends_with(".rels") && name != "[Content_Types].xml" && !reached_.contains(name)) {
        fault(name, "nothing relates to it");
      }
    }
    for (const auto& [name, document] : documents_) checkIds(name, document);
    return std::move(faults_);
  }

 private:
  void fault(const std::string& part, const std::string& what) { faults_.push_back(part + ": " + what); }

  void checkContentTypes() {
    std::set<std::string> extensions, overrides;
    for (const auto& node : documents_["[Content_Types].xml"].first_child()) {
      if (localName(node) == "Default") extensions.insert(node.attribute("Extension").value());
      if (localName(node) != "Override") continue;
      const std::string part = std::string(node.attribute("PartName").value()).substr(1);
      if (!overrides.insert(part).second) fault(part, "has two content types");
      if (!entries_.contains(part)) fault(part, "has a content type but is not there");
    }
    for (const auto& [name, entry] : entries_) {
      if (name == "[Content_Types].xml" || overrides.contains(name)) continue;
      if (!extensions.contains(name.substr(name.rfind('.') + 1))) fault(name, "has no content type");
    }
  }

  void follow(const std::string& part) {
    std::set<std::string> ids;
    const auto relationships = documents_.find(part.empty() ? "_rels/.rels" : relationshipsOf(part));
    if (relationships != documents_.end()) {
      for (const auto& node : relationships->second.first_child()) {
        if (!ids.insert(node.attribute("Id").value()).second) fault(part, "a relationship id stands twice");
        if (std::string_view(node.attribute("TargetMode").value()) == "External") continue;
        const std::string target = resolved(part, node.attribute("Target").value());
        if (!entries_.contains(target)) {
          fault(part, "relates to " + target + ", which is not there");
        } else if (reached_.insert(target).second) {
          follow(target);
        }
      }
    }
    if (documents_.contains(part)) checkReferences(part, documents_[part], ids);
  }

  void checkReferences(const std::string& part, const pugi::xml_node& node,
                       const std::set<std::string>& ids) {
    for (const auto& attribute : node.attributes()) {
      const std::string value = attribute.value();
      const bool reference = std::string_view(attribute.name()).find(':') != std::string_view::npos;
      if (reference && value.starts_with("rId") && !ids.contains(value))
        fault(part, "lacks relationship " + value);
    }
    for (const auto& child : node.children()) checkReferences(part, child, ids);
  }

  void checkIds(const std::string& part, const pugi::xml_node& root) {
    std::set<std::string> seen;
    const auto walk = [&](const auto& self, const pugi::xml_node& node) -> void {
      const std::string name = localName(node);
      if (name == "Choice") return;  // the fallback speaks for both
      if (name == "cNvPr" || name == "sldId") {
        const std::string id = name + " id " + node.attribute("id").value();
        if (!seen.insert(id).second) fault(part, id + " stands twice");
      }
      for (const auto& child : node.children()) self(self, child);
    };
    walk(walk, root);
  }

  const decks::ZipEntries& entries_;
  std::map<std::string, pugi::xml_document> documents_;
  std::set<std::string> reached_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> packageFaults(const decks::ZipEntries& entries) { return Inspection(entries).run(); }

std::vector<std::string> changedEntries(const decks::ZipEntries& before, const decks::ZipEntries& after) {
  std::vector<std::string> changed;
  for (const auto& [name, entry] : before) {
    const auto other = after.find(name);
    if (other == after.end() || other->second.compressed != entry.compressed) changed.push_back(name);
  }
  for (const auto& [name, entry] : after) {
    if (!before.contains(name)) changed.push_back(name);
  }
  std::sort(changed.begin(), changed.end());
  return changed;
}

decks::ZipEntries readZipFile(const std::string& path) { return decks::readZip(readFile(path)); }

}  // namespace vellumark::test
