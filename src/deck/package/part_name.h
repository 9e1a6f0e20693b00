#pragma once
// Names of parts: which are safe, and what a relative reference means.

#include <string>
#include <string_view>

namespace vellumark::deck {

/// Whether a zip entry's name can be a part's: relative, with slashes, no "..", no empty or dotted-out
/// segment, no backslash, control character or escaped slash.
bool isPartName(std::string_view name);

/// The name that `reference` means in a relationship of `source` ("" is the package): "../theme/theme1.xml"
/// of "ppt/slideMasters/slideMaster1.xml" is "ppt/theme/theme1.xml". Empty where it leads nowhere or out of
/// the package.
std::string resolveReference(std::string_view source, std::string_view reference);

/// The shortest reference from `source` to `target`, the way back of resolveReference().
std::string referenceTo(std::string_view source, std::string_view target);

/// What stands for a name in look-ups: names match in any case, and escaped or not ("%20" is a blank).
std::string partKey(std::string_view name);

/// A name as it may stand in a reference: blanks and other characters that no URI may have are escaped.
std::string escapedName(std::string_view name);

}  // namespace vellumark::deck
