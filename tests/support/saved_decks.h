#pragma once
// A look into saved decks.

#include <string>
#include <vector>

#include "decks/zip_entries.h"

namespace vellumark::test {

/// The entries of a file; std::runtime_error where it is no sound zip file.
decks::ZipEntries readZipFile(const std::string& path);

/// Names of the entries whose compressed bytes differ or that only one of the two has, sorted.
std::vector<std::string> changedEntries(const decks::ZipEntries& before, const decks::ZipEntries& after);

/// What is wrong with a presentation as a package, one line for each fault: parts that are no well-formed
/// XML, without a content type, or that nothing relates to, relationships that lead nowhere or are missing,
/// ids that stand twice.
std::vector<std::string> packageFaults(const decks::ZipEntries& entries);

}  // namespace vellumark::test
