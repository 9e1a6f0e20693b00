#pragma once
// The relationships of one part, or of the package itself.

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vellumark::deck {

/// One relationship. The target is a part's name, or a URI where `external`; empty where it would leave the
/// package.
struct Relationship {
  std::string id;
  std::string type;  ///< the whole type URI as the file has it
  std::string target;
  bool external = false;

  /// Whether the type ends in `name` ("slide", "tags", "notesSlide"): transitional and strict types alike.
  bool is(std::string_view name) const;
};

/// A .rels part, whose unknown content stays.
class Relationships {
 public:
  /// None, for a source that has no .rels part yet.
  explicit Relationships(std::string source);
  /// Read from XML; FormatError naming the .rels part where it is broken or has more than `most`
  /// relationships.
  Relationships(std::string source, std::string_view xml, std::size_t most);

  const std::vector<Relationship>& all() const { return all_; }
  /// The relationship with that id, or nothing.
  const Relationship* find(std::string_view id) const;
  /// The first relationship whose type ends in `name`, or nothing.
  const Relationship* first(std::string_view name) const;
  bool changed() const { return changed_; }
  void unchanged() { changed_ = false; }
  /// Of those that stand in a file, or were added.
  std::string text() const;

  /// Adds a relationship, or finds the one to that target of that type, a whole URI; its id.
  std::string add(const std::string& type, const std::string& target, bool external);
  /// Adds a relationship under an id of the caller's that no other has.
  void addAs(const std::string& id, const std::string& type, const std::string& target, bool external);
  void remove(std::string_view id);

  static constexpr const char* contentType = "application/vnd.openxmlformats-package.relationships+xml";
  /// "ppt/_rels/presentation.xml.rels" of "ppt/presentation.xml", "_rels/.rels" of the package ("").
  static std::string partName(std::string_view source);
  /// The way back, in the form of partKey(): the source whose relationships a part of that name holds;
  /// nothing where it is no .rels part.
  static std::optional<std::string> sourceOf(std::string_view partName);

 private:
  /// Places in all() by something that relationships have, of several with the same the first; of those that
  /// were looked at.
  struct Places {
    std::unordered_map<std::string, std::size_t> first;
    std::size_t count = 0;
  };
  const Relationship* look(Places& places, const std::string& key, const auto& keyOf) const;

  std::string source_;
  std::unique_ptr<pugi::xml_document> document_;  ///< none as long as there are no relationships
  std::vector<Relationship> all_;
  mutable Places ids_, names_, targets_;  ///< by id, by the end of the type, by type and target
  bool changed_ = false;
};

}  // namespace vellumark::deck
