#pragma once
// The languages that the add-in knows, and the user's choice of up to three for a button each.

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/keyed_list.h"
#include "services/icons.h"
#include "services/language.h"

namespace vellumark::services {

/// All languages in the order of the dropdowns, with the keys "ID" + locale id. Empty before
/// initializeLanguages().
core::KeyedList<Language>& languageList();

/// Fills the list, reads the chosen languages from the settings into languageShortcuts and draws their
/// pictures. It ends at the first chosen id that is no number or no language of the list.
void initializeLanguages();

/// Appends a language to the list; one with the same id must not be there.
void addLanguageToCollection(const std::string& name, std::int32_t languageId, const std::string& iso639);

/// Draws a two-letter text on one of the pictures, in the picture's fore colour.
void createLanguageIcon(Icons::LanguagePictures& pictures, std::size_t index, const std::string& text);

}  // namespace vellumark::services
