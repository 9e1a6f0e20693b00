#pragma once
// A zip file as a map of its entries.

#include <map>
#include <string>

namespace vellumark::decks {

struct ZipEntry {
  std::string bytes;       ///< inflated
  std::string compressed;  ///< as they stand in the file
};
using ZipEntries = std::map<std::string, ZipEntry>;

/// std::runtime_error where the bytes are no sound zip file (checksums are looked at).
ZipEntries readZip(const std::string& bytes);

/// A zip file of these entries; only their inflated bytes count. [Content_Types].xml comes first, dates are
/// fixed.
std::string writeZip(const ZipEntries& entries);

}  // namespace vellumark::decks
