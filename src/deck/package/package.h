#pragma once
// An Open Packaging package: the zip's directory, content types and parts, opened lazily and saved
// atomically.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "deck/package/format_error.h"
#include "deck/package/part.h"

namespace vellumark::deck {

/// What reading from a package may at most cost; what is only copied from file to file may be as large as it
/// is. A file beyond a limit is refused with a FormatError that names it, where it is read.
struct Limits {
  std::size_t parts = 65'536;
  std::uint64_t partBytes = 512ull << 20;  ///< one part that is read, inflated
  std::uint64_t xmlBytes = 128ull << 20;   ///< one XML part, inflated
  std::uint64_t inflationRatio = 1'100;    ///< inflated to deflated, above 1 MiB; a blank bitmap has 1,030
  int xmlDepth = 256;                      ///< nesting of elements
  std::size_t relationships = 65'536;      ///< of one part
  // All XML of the file that is parsed while it is open, inflated, and its elements, attributes and texts. A
  // small file has less to ask for than a large one: each byte of a file allows for some more, up to the
  // most.
  struct InAll {
    std::uint64_t base, perByte, most;
  };
  InAll allXmlBytes = {128ull << 20, 100, 1ull << 30};  ///< a byte of a usual file brings up to 7
  InAll allXmlItems = {4'000'000, 4, 32'000'000};       ///< and up to 0.5
};

class Package {
 public:
  /// Opens a file for reading. Only the directory, the content types and the package's relationships are
  /// read.
  static std::unique_ptr<Package> open(const std::string& path, const Limits& limits = {});
  /// An empty package without parts.
  static std::unique_ptr<Package> create();
  ~Package();

  /// The part of that name (without a leading slash, any case as OPC has it), or nothing.
  PartRef part(std::string_view name);
  /// The part that the package's relationship of that type leads to ("thumbnail"), or nothing.
  PartRef root(std::string_view type);
  /// Takes that part and the relationship out, where they are there.
  void removeRoot(std::string_view type);
  /// The same as root(); FormatError where it is missing.
  PartRef requiredRoot(std::string_view type);
  std::vector<std::string> partNames() const;

  /// Adds an XML part from its text, or a part of bytes. The content type goes into [Content_Types].xml as an
  /// override unless the extension says it already. FormatError where that name is taken.
  PartRef addXml(const std::string& name, const std::string& contentType, std::string_view xml);
  PartRef addBytes(const std::string& name, const std::string& contentType, std::string bytes);
  /// An XML part that counts as none of the package until it is adopted: it isn't listed nor saved, but has
  /// its name, and relationships lead to it.
  PartRef draftXml(const std::string& name, const std::string& contentType, std::string_view xml);
  void adopt(const PartRef& draft);
  /// Gives a part another content type.
  void retype(const PartRef& part, const std::string& contentType);
  /// A name that is free: pattern "ppt/slides/slide%d.xml" gives "ppt/slides/slide7.xml".
  std::string freeName(const std::string& pattern) const;
  /// Takes a part with its relationships out of the package. Parts that only it related to, directly or not,
  /// go as well. Relationships that other parts have to it are theirs to take away.
  void remove(const PartRef& part);
  /// Takes those of the parts out that nothing else relates to any more, and what only they related to.
  void removeUnreachable(const std::vector<PartRef>& parts);

  /// Whether anything differs from the file that was opened or last saved.
  bool changed() const;
  /// Writes the package beside `path`, syncs and renames: at any moment `path` is the whole old or the whole
  /// new file. Unchanged parts are copied as their compressed bytes. FormatError with the path where it can't
  /// be written; the target and the package are then as before. With `adopt` the written file becomes the one
  /// behind this package and nothing counts as changed any more (Save, SaveAs); without it the package stays
  /// as it was (SaveCopyAs).
  void save(const std::string& path, bool adopt = true);

  /// Whether the file is of the strict family, by its main relationships.
  bool isStrict() const;

  // Relationships of the package itself.
  const std::vector<Relationship>& relationships();
  /// Relates the package itself to a part; the relationship's id.
  std::string relate(const Part& target, std::string_view type);

 private:
  friend class Part;
  Package();
  std::unique_ptr<Relationships> readRelationships(const std::string& source) const;
  std::unique_ptr<pugi::xml_document> parse(const Part& part) const;
  std::string readBytes(const Part& part) const;
  /// A part's place in the file; nothing for one that was added. FormatError where the part was removed.
  static std::optional<std::size_t> entryOf(const Part& part);
  /// A relationship's whole type: what is no URI is an Office type of the package's own family.
  std::string wholeType(std::string_view type) const;
  PartRef add(const std::string& name, const std::string& contentType);
  PartRef draft(const std::string& name, const std::string& contentType);
  std::unique_ptr<pugi::xml_document> parseNew(const std::string& name, std::string_view xml) const;

  /// Keeps those of a set of parts that neither the package nor a part outside the set leads to, ways that
  /// lead over `without` left out.
  void keepUnreachable(std::unordered_set<Part*>& parts, Part* without = nullptr);
  void erase(const std::unordered_set<Part*>& parts);

  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vellumark::deck
