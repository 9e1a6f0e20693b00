#include "deck/drawing/text_drawing.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"
#include "deck/drawing/paints.h"
#include "deck/model/color.h"
#include "deck/model/shape_node.h"
#include "deck/model/text_layout.h"
#include "deck/model/text_style.h"
#include "deck/model/theme.h"
#include "platform/text_outline.h"

namespace vellumark::deck {
namespace {

using platform::Affine;
using platform::Argb;
using platform::Drawing;
using pugi::xml_node;

bool isBullet(xml_node node) {
  const std::string_view name = localName(node);
  return name == "buNone" || name == "buChar" || name == "buAutoNum" || name == "buBlip";
}
bool isBulletColor(xml_node node) { return localName(node) == "buClr" || localName(node) == "buClrTx"; }
bool isBulletFont(xml_node node) { return localName(node) == "buFont" || localName(node) == "buFontTx"; }
bool isBulletSize(xml_node node) { return localName(node).starts_with("buSz"); }

/// "a", "b", ... "z", "aa", ...
std::u16string letters(int number, char16_t first) {
  return std::u16string(static_cast<std::size_t>((number - 1) / 26 + 1),
                        static_cast<char16_t>(first + (number - 1) % 26));
}

std::u16string roman(int number, bool upper) {
  constexpr std::pair<int, std::u16string_view> digits[] = {
      {1000, u"m"}, {900, u"cm"}, {500, u"d"}, {400, u"cd"}, {100, u"c"}, {90, u"xc"}, {50, u"l"},
      {40, u"xl"},  {10, u"x"},   {9, u"ix"},  {5, u"v"},    {4, u"iv"},  {1, u"i"}};
  std::u16string text;
  for (const auto& [value, digit] : digits) {
    for (; number >= value; number -= value) text += digit;
  }
  if (upper) {
    for (char16_t& letter : text) letter = static_cast<char16_t>(letter - u'a' + u'A');
  }
  return text;
}

/// The number of a paragraph in a scheme ("arabicPeriod", "alphaLcParenBoth").
std::u16string numbered(std::string_view scheme, int number) {
  std::u16string text;
  if (scheme.starts_with("alphaLc") || scheme.starts_with("alphaUc")) {
    text = letters(number, scheme.starts_with("alphaLc") ? u'a' : u'A');
  } else if (scheme.starts_with("roman")) {
    text = roman(number, scheme.starts_with("romanUc"));
  } else {
    const std::string digits = std::to_string(number);
    text.assign(digits.begin(), digits.end());
  }
  if (scheme.ends_with("ParenBoth")) return u"(" + text + u")";
  if (scheme.ends_with("ParenR")) return text + u")";
  if (scheme.ends_with("Period")) return text + u".";
  return text;
}

/// The symbol fonts of old have their bullets at places of their own.
std::u16string symbol(std::u16string text, std::string_view font) {
  constexpr std::pair<char16_t, char16_t> wingdings[] = {{u'§', u'▪'}, {u'ü', u'✓'}, {u'Ø', u'➢'},
                                                         {u'l', u'●'}, {u'n', u'■'}, {u'q', u'❑'},
                                                         {u'à', u'→'}, {u'è', u'➔'}, {u'v', u'❖'}};
  const bool isSymbol = font.starts_with("Wingdings") || font == "Symbol";
  if (!isSymbol || text.size() != 1) return text;
  const auto character =
      static_cast<char16_t>(text[0] >= 0xF000 && text[0] <= 0xF0FF ? text[0] - 0xF000 : text[0]);
  if (font == "Symbol" && character == u'·') return u"•";
  for (const auto& [from, to] : wingdings) {
    if (from == character) return std::u16string(1, to);
  }
  return u"•";
}

class TextDrawer {
 public:
  TextDrawer(const ShapeKey& shape, const Affine& turn, Drawing& drawing)
      : shape_(shape), layout_(shape), map_(turn.after(layout_.toSlide())), drawing_(drawing) {}

  void draw() {
    const std::u16string& text = layout_.shown();
    for (const TextLayout::Stretch& stretch : layout_.stretches()) {
      drawStretch(stretch, std::u16string_view(text).substr(stretch.span.start, stretch.span.length));
    }
    std::array<int, 10> numbers{};
    for (const TextLayout::Start& start : layout_.starts()) drawBullet(start, numbers);
  }

 private:
  /// The properties of the run that a place of the text stands in, and the level of its paragraph.
  struct Format {
    xml_node run;
    int level = 1;
  };
  /// Places come in order.
  Format formatAt(std::size_t place) {
    const std::vector<TextParagraph>& paragraphs = layout_.body().paragraphs();
    for (; paragraph_ < paragraphs.size() && place > paragraphs[paragraph_].span.end(); ++paragraph_)
      piece_ = 0;
    if (paragraph_ == paragraphs.size()) return {};
    const TextParagraph& paragraph = paragraphs[paragraph_];
    while (piece_ < paragraph.pieces.size() && place >= paragraph.pieces[piece_].span.end()) ++piece_;
    const bool inPiece = piece_ < paragraph.pieces.size();
    return {inPiece ? paragraph.pieces[piece_].node.child("a:rPr") : xml_node(),
            paragraphLevel(paragraph.node)};
  }
  const LevelStyles& stylesOf(int level) {
    if (!styles_ || level != level_) {
      styles_.emplace(shape_, level);
      level_ = level;
    }
    return *styles_;
  }

  Argb colorOf(const LevelStyles& styles, xml_node run) const {
    if (run.child("a:hlinkClick") && !colorElement(run.child("a:solidFill"))) {
      return drawnColor(shape_.sheet, schemeColorElement(shape_.sheet, "hlink"));
    }
    if (const xml_node stop = run.child("a:gradFill").child("a:gsLst").child("a:gs")) {
      return drawnColor(shape_.sheet, colorElement(stop));
    }
    if (run.child("a:noFill")) return 0;
    const xml_node element = characterColor(shape_, styles, run);
    return drawnColor(shape_.sheet, element ? element : schemeColorElement(shape_.sheet, "tx1"));
  }

  void fill(const platform::Path& path, const Affine& map, Argb color) {
    if (path.empty() || color >> 24 == 0) return;
    Drawing::Fill letters{.path = {}, .brush = {.color = color}, .evenOdd = false};
    letters.path.append(path, map);
    drawing_.commands.emplace_back(std::move(letters));
  }
  void letters(std::u16string_view text, const platform::FontFace& face, double size, double x,
               double baseline, Argb color) {
    const Affine place = map_.after(Affine::moved(x, baseline).after(Affine::scaled(size, size)));
    fill(platform::textOutline(face, text), place, color);
  }
  /// A rule under or through characters, `above` ems over their base line.
  void rule(const TextLayout::Stretch& stretch, double above, Argb color) {
    platform::Path path;
    path.rectangle(stretch.x, stretch.baseline - above * stretch.size, stretch.width, stretch.size * 0.06);
    fill(path, map_, color);
  }

  void drawStretch(const TextLayout::Stretch& stretch, std::u16string_view text) {
    if (text.find_first_not_of(u" \t\u00A0\v") == std::u16string_view::npos) return;
    const Format format = formatAt(stretch.span.start);
    const LevelStyles& styles = stylesOf(format.level);
    const Argb color = colorOf(styles, format.run);
    const std::int64_t raised = wholeNumber(styles.run(format.run, "baseline"), -100'000, 100'000);
    const double raise = static_cast<double>(raised) / 100'000;
    const double size = raised == 0 ? stretch.size : stretch.size * 2 / 3;
    letters(text, stretch.face, size, stretch.x, stretch.baseline - raise * stretch.size, color);
    const std::string_view underline = styles.run(format.run, "u").as_string("none");
    if (underline != "none" || format.run.child("a:hlinkClick")) rule(stretch, -0.1, color);
    const std::string_view strike = styles.run(format.run, "strike").as_string("noStrike");
    if (strike != "noStrike") rule(stretch, 0.28, color);
  }

  void drawBullet(const TextLayout::Start& start, std::array<int, 10>& numbers) {
    const TextParagraph& paragraph = layout_.body().paragraphs()[start.paragraph];
    const int level = paragraphLevel(paragraph.node);
    const LevelStyles& styles = stylesOf(level);
    const xml_node own = paragraph.node.child("a:pPr");
    const xml_node bullet = styles.paragraphChild(own, isBullet);
    const bool isNumber = localName(bullet) == "buAutoNum";
    const auto place = static_cast<std::size_t>(level);
    for (std::size_t deeper = place + (isNumber ? 1 : 0); deeper < numbers.size(); ++deeper)
      numbers[deeper] = 0;
    if (!bullet || localName(bullet) == "buNone" || paragraph.span.length == 0) return;

    const xml_node font = styles.paragraphChild(own, isBulletFont);
    std::string family = localName(font) == "buFont" ? font.attribute("typeface").value() : "";
    std::u16string text;
    if (isNumber) {
      const auto first = static_cast<int>(wholeNumber(bullet.attribute("startAt"), 1, 32'767, 1));
      text = numbered(bullet.attribute("type").value(), first + numbers[place]++);
    } else {
      text = symbol(base::toUtf16(bullet.attribute("char").as_string("•")), family);
      if (family.starts_with("Wingdings") || family == "Symbol") family.clear();
    }
    const xml_node run = paragraph.pieces.empty() ? xml_node() : paragraph.pieces.front().node.child("a:rPr");
    platform::FontFace face = characterFormat(shape_, styles, run).face;
    if (!family.empty()) face.family = fontFamily(shape_.sheet, family);
    double size = start.size;
    const xml_node sized = styles.paragraphChild(own, isBulletSize);
    const auto value = static_cast<double>(wholeNumber(sized.attribute("val"), 0, 400'000));
    if (localName(sized) == "buSzPct") size *= value / 100'000;
    if (localName(sized) == "buSzPts") size = value / 100;
    const xml_node colored = styles.paragraphChild(own, isBulletColor);
    const Argb color = localName(colored) == "buClr" ? drawnColor(shape_.sheet, colorElement(colored))
                                                     : colorOf(styles, run);
    letters(text, face, size, start.x, start.baseline, color);
  }

  const ShapeKey& shape_;
  TextLayout layout_;
  Affine map_;
  Drawing& drawing_;
  std::optional<LevelStyles> styles_;
  int level_ = 0;
  std::size_t paragraph_ = 0, piece_ = 0;  ///< where formatAt() found the last place
};

}  // namespace

void drawText(const ShapeKey& shape, const Affine& turn, Drawing& drawing) {
  if (!textBodyOf(shape.node)) return;
  TextDrawer(shape, turn, drawing).draw();
}

}  // namespace vellumark::deck
