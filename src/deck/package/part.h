#pragma once
// One part of a package: XML parsed on first use, or bytes; its relationships; the graveyard of deleted
// nodes.

#include <any>
#include <cstdint>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "deck/package/relationships.h"

namespace vellumark::deck {

class Package;
class Part;
using PartRef = std::shared_ptr<Part>;

/// What a change of a part's XML was about: anything, or contents only (frames, texts, formats, tags), so
/// that the same shapes or slides stand in the same order under the same names and ids, glued as before.
enum class Change { anything, contents };

class Part {
 public:
  /// Name without a leading slash: "ppt/slides/slide1.xml".
  const std::string& name() const { return name_; }
  const std::string& contentType() const { return contentType_; }
  Package& package() const { return package_; }

  /// The root element. Parses the part on first use and brings the prefixes of the known namespaces to the
  /// usual ones (p, a, r, mc), so that "p:sld" is "p:sld" whatever the file called it. FormatError where it
  /// is broken.
  pugi::xml_node root();
  /// The bytes of a part that is not parsed (a picture), or the serialised XML.
  std::string bytes();

  /// Says that the XML was changed; only touched parts are written anew. What was kept goes, unless only
  /// contents were changed.
  void touch(Change change = Change::anything) {
    changed_ = true;
    ++revision_;
    if (change == Change::anything) kept_.reset();
  }
  /// What `make` worked out from the XML, kept until more than contents changes.
  template <typename T>
  std::shared_ptr<T> kept(const auto& make) {
    if (const auto* known = std::any_cast<std::shared_ptr<T>>(&kept_)) return *known;
    const std::shared_ptr<T> made = make();
    kept_ = made;
    return made;
  }
  /// How often the XML was changed; what was read at the same revision is still true.
  std::uint64_t revision() const { return revision_; }
  bool changed() const { return changed_; }
  bool parsed() const { return document_ != nullptr; }
  /// Whether the part was taken out of its package; its nodes then count as deleted.
  bool removed() const { return removed_; }

  /// Takes a node out of the tree under root() without freeing it: objects that still hold it find it buried.
  /// Touches the part. Search from root(), not with paths from the document ("//p:sp"), which would find it.
  void bury(pugi::xml_node node);
  /// Whether a node lies in the graveyard, or the part was removed.
  bool isBuried(pugi::xml_node node) const;

  const std::vector<Relationship>& relationships();
  /// The relationship with that id, or nothing.
  const Relationship* relationship(std::string_view id);
  /// The first relationship whose type ends in `name`, or nothing.
  const Relationship* firstRelationship(std::string_view name);
  /// The part that a relationship leads to; nothing where it is external or leads nowhere.
  PartRef target(const Relationship& relationship);
  /// Relates to a part (reusing a relationship of that type that is there already) and returns the
  /// relationship's id. `type` is the last component of a type of the officeDocument relationships, or a
  /// whole URI.
  std::string relate(const Part& target, std::string_view type);
  std::string relateExternal(std::string_view uri, std::string_view type);
  /// The same with an id of the caller's, which no relationship of the part has, and a whole URI as type.
  void relateAs(const std::string& id, const Part& target, const std::string& type);
  void relateExternalAs(const std::string& id, const std::string& uri, const std::string& type);
  /// Takes a relationship away; the target stays.
  void unrelate(std::string_view id);

 private:
  friend class Package;
  Part(Package& package, std::string name, std::string contentType);
  Relationships& ownRelationships();

  Package& package_;
  std::string name_;
  std::string contentType_;
  std::optional<std::size_t> entry_;  ///< place in the archive; none for a part that was added
  std::string added_;                 ///< bytes of an added part that is not XML
  std::unique_ptr<pugi::xml_document> document_;
  pugi::xml_node graveyard_;
  std::unique_ptr<Relationships> relationships_;  ///< read on first use
  bool changed_ = false;
  std::uint64_t revision_ = 0;
  std::any kept_;
  bool removed_ = false;
};

}  // namespace vellumark::deck
