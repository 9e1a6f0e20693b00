#include "library/my_elements_index.h"

#include "base/error.h"
#include "core/config.h"
#include "core/globals.h"
#include "core/xml.h"
#include "platform/file_state.h"

namespace vellumark::library {
namespace {

using core::globals;

const pugi::xml_document& document() {
  if (!globals().myElementsDoc) base::raise(base::errors::objectNotSet);
  return *globals().myElementsDoc;
}

/// Of the index file when it was read or written last.
std::optional<platform::FileState>& knownState() {
  static std::optional<platform::FileState> state;
  return state;
}

std::string named(const std::string& query, const std::string& name) {
  return query + "[@name='" + name + "']";
}

std::string galleryQuery(const std::string& group) {
  return "/Vellumark/group[@name=\"" + group + "\"]/element";
}

pugi::xml_node appended(pugi::xml_node parent, const char* kind, const std::string& name) {
  if (!parent) base::raise(base::errors::objectNotSet);
  pugi::xml_node node = parent.append_child(kind);
  node.append_attribute("name").set_value(name.c_str());
  return node;
}

}  // namespace

std::string indexFile() { return globals().myElementsFolder + "myelements.xml"; }

void newIndex() {
  globals().myElementsDoc = std::make_unique<pugi::xml_document>();
  pugi::xml_node root = globals().myElementsDoc->append_child("Vellumark");
  const std::string site(core::webBaseUrl);
  const std::pair<const char*, std::string> attributes[] = {
      {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"},
      {"xsi:schemaLocation", site + "zorpme/myelements.xsd"},
      {"xmlns", site + "zorpme"},
      {"addinVersion", "1.0"},  // of the format
  };
  for (const auto& [name, value] : attributes) root.append_attribute(name).set_value(value.c_str());
  addGroup("Miscellaneous");
}

bool loadIndex() {
  knownState() = platform::fileState(indexFile());
  globals().myElementsDoc = std::make_unique<pugi::xml_document>();
  return core::loadXml(*globals().myElementsDoc, indexFile());
}

void takeOverIndex() {
  const auto state = platform::fileState(indexFile());
  if (state && state != knownState()) loadIndex();
}

void saveIndex() {
  core::saveXml(document(), indexFile());
  knownState() = platform::fileState(indexFile());
}

pugi::xpath_node_set groups() { return core::selectNodes(document(), "/Vellumark/group"); }

pugi::xpath_node_set elementsOf(const std::string& group) {
  return core::selectNodes(document(), named("/Vellumark/group", group) + "/element");
}

pugi::xml_node findGroup(const std::string& name) {
  return core::selectSingleNode(document(), named("/Vellumark/group", name)).node();
}

pugi::xml_node findElement(const std::string& name) {
  return core::selectSingleNode(document(), named("/Vellumark/group/element", name)).node();
}

pugi::xpath_node_set galleryElements(const std::string& group) {
  return core::selectNodes(document(), galleryQuery(group));
}

pugi::xml_node galleryElement(const std::string& group, std::int32_t index) {
  return core::selectSingleNode(document(), galleryQuery(group) + core::position(index)).node();
}

std::string galleryElementText(const std::string& group, std::int32_t index, const char* attribute) {
  return core::selectText(document(), galleryQuery(group) + core::position(index) + "/@" + attribute);
}

pugi::xpath_node_set allElements() { return core::selectNodes(document(), "/Vellumark/group/element"); }

void addGroup(const std::string& name) {
  appended(core::selectSingleNode(document(), "/Vellumark").node(), "group", name);
}

void addElement(const std::string& group, const std::string& name, std::int32_t slideID) {
  appended(findGroup(group), "element", name).append_attribute("slideID").set_value(slideID);
}

}  // namespace vellumark::library
