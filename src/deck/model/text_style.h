#pragma once
// What the text of a shape looks like where it doesn't say so itself: the styles that it inherits, level by
// level.

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "deck/model/document.h"
#include "platform/text_width.h"

namespace vellumark::deck {

/// p:txBody of a shape, a:txBody of a table's cell; nothing where there is none.
pugi::xml_node textBodyOf(pugi::xml_node shape);

/// The level of a paragraph (a:p), from 1.
int paragraphLevel(pugi::xml_node paragraph);

/// The styles that hold for one level of a shape's text, the nearest first: a:lvl1pPr and the like of the
/// shape, of the placeholders that it inherits from, of the master and of the presentation. In cells, the
/// style of the table stands before them.
class LevelStyles {
 public:
  LevelStyles(const ShapeKey& shape, int level);

  const std::vector<pugi::xml_node>& all() const { return styles_; }

  /// The first attribute of that name: of `own` (an a:pPr or nothing), else of a style.
  pugi::xml_attribute paragraph(pugi::xml_node own, const char* attribute) const;
  /// The first child for which `isWanted` holds, in the same order.
  template <typename Wanted>
  pugi::xml_node paragraphChild(pugi::xml_node own, Wanted isWanted) const {
    if (const pugi::xml_node found = own.find_child(isWanted)) return found;
    for (const pugi::xml_node style : styles_) {
      if (const pugi::xml_node found = style.find_child(isWanted)) return found;
    }
    return {};
  }
  /// The same for the format of characters: `own` is an a:rPr, a:endParaRPr or nothing.
  pugi::xml_attribute run(pugi::xml_node own, const char* attribute) const;
  pugi::xml_node runChild(pugi::xml_node own, const char* name) const;
  /// Whether characters are bold ("b") or italic ("i").
  bool runFlag(pugi::xml_node own, const char* attribute) const;
  /// The typeface of Latin characters, which may be a place in the theme ("+mn-lt").
  std::string typeface(pugi::xml_node own) const;
  /// The colour element of characters that have none of their own.
  pugi::xml_node color() const;

 private:
  std::vector<pugi::xml_node> styles_;
  std::vector<pugi::xml_node> tableStyles_;  ///< a:tcTxStyle, the nearest first
};

/// How characters are drawn, all inherited formats counted.
struct CharacterFormat {
  platform::FontFace face;
  double size = 18;  ///< points
};
CharacterFormat characterFormat(const ShapeKey& shape, const LevelStyles& styles, pugi::xml_node run);

/// The colour element of characters and what "phClr" in it stands for.
pugi::xml_node characterColor(const ShapeKey& shape, const LevelStyles& styles, pugi::xml_node run);

}  // namespace vellumark::deck
