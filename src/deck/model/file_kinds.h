#pragma once
// The kinds of presentation files: each has an extension and a content type of its main part.

#include <string>
#include <string_view>

namespace vellumark::deck {

/// Whether a main part of that type is a presentation's.
bool isPresentationType(std::string_view contentType);
/// The type that a file of that name has to have; the one that it had where the extension says nothing.
std::string typeForFile(const std::string& path, const std::string& contentType);
/// Whether files of that type may hold macros.
bool mayHoldMacros(std::string_view contentType);

}  // namespace vellumark::deck
