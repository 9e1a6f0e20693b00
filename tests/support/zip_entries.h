#pragma once
// A zip file as a map of its entries, for a look into saved decks and for making broken ones.

#include <map>
#include <string>
#include <vector>

namespace vellumark::test {

struct ZipEntry {
  std::string bytes;       ///< inflated
  std::string compressed;  ///< as they stand in the file
};
using ZipEntries = std::map<std::string, ZipEntry>;

/// std::runtime_error where the bytes are no sound zip file (checksums are looked at).
ZipEntries readZip(const std::string& bytes);
ZipEntries readZipFile(const std::string& path);

/// A zip file of these entries; only their inflated bytes count. [Content_Types].xml comes first, dates are
/// fixed.
std::string writeZip(const ZipEntries& entries);

/// Names of the entries whose compressed bytes differ or that only one of the two has, sorted.
std::vector<std::string> changedEntries(const ZipEntries& before, const ZipEntries& after);

/// What is wrong with a presentation as a package, one line for each fault: parts that are no well-formed
/// XML, without a content type, or that nothing relates to, relationships that lead nowhere or are missing,
/// ids that stand twice.
std::vector<std::string> packageFaults(const ZipEntries& entries);

}  // namespace vellumark::test
