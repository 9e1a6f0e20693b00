#include "services/languages.h"

#include <algorithm>
#include <vector>

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/registry.h"
#include "services/language_rows.h"

namespace vellumark::services {
namespace {

using core::trap;

constexpr const char* freshChoice = "1033;1031";

std::string keyOf(std::int32_t languageId) { return "ID" + std::to_string(languageId); }

}  // namespace

core::KeyedList<Language>& languageList() {
  static core::KeyedList<Language> list;
  return list;
}

void initializeLanguages() {
  trap("Languages, initializeLanguages", [] {
    languageList().clear();
    for (const LanguageRow& row : languageRows) addLanguageToCollection(row.name, row.languageId, row.iso639);

    const std::vector<std::string> chosen = base::split(core::getRegistry("languages", "", freshChoice), ';');
    auto& shortcuts = core::globals().languageShortcuts;
    for (std::size_t i = 0; i < std::min(chosen.size(), shortcuts.size()); ++i) {
      shortcuts[i] = base::toInt32(chosen[i]);
      const Language& language = languageList().Item(keyOf(shortcuts[i]));
      createLanguageIcon(icons().languagePictures, i, language.ISO639());
    }
  });
}

void addLanguageToCollection(const std::string& name, std::int32_t languageId, const std::string& iso639) {
  trap("Languages, addLanguageToCollection",
       [&] { languageList().Add(Language(name, languageId, iso639), keyOf(languageId)); });
}

void createLanguageIcon(Icons::LanguagePictures& pictures, std::size_t index, const std::string& text) {
  trap("Languages, createLanguageIcon", [&] {
    constexpr ui::Color background = ui::rgb(10, 36, 106);
    constexpr double fontSize = 6.5;
    ui::PictureBox& picture = pictures[index];
    ui::Canvas& canvas = picture.canvas();
    canvas.clear();
    canvas.rectangle(-1, -1, 19, 19, background);  // beyond the edges, so that the whole picture is filled
    canvas.text(1, 2, text, fontSize, picture.foreColor().value_or(0));
    picture.refresh();
  });
}

}  // namespace vellumark::services
