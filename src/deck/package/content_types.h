#pragma once
// [Content_Types].xml: the types of all parts, by extension and by name.

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vellumark::deck {

/// The part of that role, whose unknown content stays.
class ContentTypes {
 public:
  static constexpr const char* partName = "[Content_Types].xml";

  ContentTypes();
  /// FormatError where it is broken.
  explicit ContentTypes(std::string_view xml);

  /// The type of a part; empty where none is declared.
  std::string of(std::string_view part) const;
  /// Declares the type of a part. Where nothing is known of the name's extension, the type becomes that of
  /// the extension if it is no XML or the extension is "rels", as it is usual for pictures and relationships.
  void set(const std::string& part, const std::string& type);
  void remove(std::string_view part);
  bool changed() const { return changed_; }
  void unchanged() { changed_ = false; }
  std::string text() const;

 private:
  /// A new child of the root, named with the root's own prefix.
  pugi::xml_node append(const char* name);

  std::unique_ptr<pugi::xml_document> document_;
  std::unordered_map<std::string, std::string> defaults_;
  std::unordered_map<std::string, pugi::xml_node> overrides_;
  bool changed_ = false;
};

}  // namespace vellumark::deck
