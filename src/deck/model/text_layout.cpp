#include "deck/model/text_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "deck/model/shape_node.h"
#include "deck/model/text_area.h"
#include "deck/model/text_box.h"
#include "deck/model/text_characters.h"
#include "deck/model/text_style.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int64_t emuLimit = 51'206'400;
constexpr double usualTab = 72;

bool named(xml_node node, std::string_view name) { return name == node.name(); }
bool isBullet(xml_node node) {
  return named(node, "a:buNone") || named(node, "a:buChar") || named(node, "a:buAutoNum") ||
         named(node, "a:buBlip");
}
template <const char* name>
bool isNamed(xml_node node) {
  return named(node, name);
}
constexpr char lineSpacingName[] = "a:lnSpc";
constexpr char spaceBeforeName[] = "a:spcBef";
constexpr char spaceAfterName[] = "a:spcAft";
constexpr char tabListName[] = "a:tabLst";

double points(pugi::xml_attribute attribute, double usual = 0) {
  return attribute ? toPoints(wholeNumber(attribute, -emuLimit, emuLimit)) : usual;
}
double percent(pugi::xml_attribute attribute, double usual) {
  return attribute ? static_cast<double>(wholeNumber(attribute, 0, 10'000'000)) / 100'000 : usual;
}

/// A space (a:lnSpc, a:spcBef) of so many lines or points.
double spacing(xml_node element, double line, double usual) {
  if (const xml_node exact = element.child("a:spcPts")) {
    return static_cast<double>(wholeNumber(exact.attribute("val"), 0, 158'400)) / 100;
  }
  if (const xml_node share = element.child("a:spcPct")) return line * percent(share.attribute("val"), 1);
  return usual;
}

enum class TabKind { left, center, right };
struct Tab {
  double position;
  TabKind kind;
};

/// Scripts without blanks break between any two characters.
bool breaksAnywhere(char16_t character) {
  return (character >= 0x2E80 && character <= 0xD7FF) || (character >= 0xF900 && character <= 0xFAFF) ||
         (character >= 0xFF00 && character <= 0xFFEF);
}

}  // namespace

/// Breaks one paragraph into lines from a height on.
class TextLayout::ParagraphBuilder {
 public:
  ParagraphBuilder(TextLayout& layout, const ShapeKey& shape, const TextParagraph& paragraph,
                   const LevelStyles& styles, double scale, double reduction, double available)
      : layout_(layout),
        shape_(shape),
        paragraph_(paragraph),
        styles_(styles),
        scale_(scale),
        reduction_(reduction),
        available_(available),
        own_(paragraph.node.child("a:pPr")),
        left_(points(styles.paragraph(own_, "marL"))),
        first_(left_ + points(styles.paragraph(own_, "indent"))) {
    const xml_node tabs = styles.paragraphChild(own_, isNamed<tabListName>);
    for (const xml_node tab : tabs.children("a:tab")) {
      const std::string_view kind = tab.attribute("algn").value();
      tabs_.push_back({points(tab.attribute("pos")), kind == "r" || kind == "dec" ? TabKind::right
                                                     : kind == "ctr"              ? TabKind::center
                                                                                  : TabKind::left});
    }
    std::ranges::sort(tabs_, {}, &Tab::position);
    tabStep_ = std::max(1.0, points(styles.paragraph(own_, "defTabSz"), usualTab));
  }

  void build(bool isFirst) {
    const CharacterFormat end = characterFormat(
        shape_, styles_, paragraph_.pieces.empty() ? paragraph_.node.child("a:endParaRPr") : lastRun());
    endSize_ = end.size * scale_;
    if (!isFirst) {
      layout_.height_ +=
          spacing(styles_.paragraphChild(own_, isNamed<spaceBeforeName>), firstSize() * lineSpacing, 0) *
          reduction_;
    }
    layout_.openings_.push_back({layout_.lines_.size(), first_, firstSize()});
    startLine(paragraph_.span.start, true);
    for (const TextPiece& piece : paragraph_.pieces) {
      if (named(piece.node, "a:br")) {
        const CharacterFormat format = characterFormat(shape_, styles_, piece.node.child("a:rPr"));
        size_ = std::max(size_, line_.fragments.empty() ? format.size * scale_ : 0.0);
        finishLine();
        startLine(piece.span.end(), false);
      } else if (piece.span.length > 0) {
        add(piece);
      }
    }
    finishLine();
    layout_.height_ +=
        spacing(styles_.paragraphChild(own_, isNamed<spaceAfterName>), endSize_ * lineSpacing, 0) *
        reduction_;
  }

 private:
  xml_node lastRun() const { return paragraph_.pieces.back().node.child("a:rPr"); }
  double firstSize() const {
    return paragraph_.pieces.empty()
               ? endSize_
               : characterFormat(shape_, styles_, paragraph_.pieces.front().node.child("a:rPr")).size *
                     scale_;
  }
  std::u16string_view text(TextSpan span) const {
    return std::u16string_view(layout_.shown_).substr(span.start, span.length);
  }

  void startLine(std::size_t start, bool isFirst) {
    line_ = {start, 0, 0, {}};
    size_ = 0;
    x_ = isFirst ? first_ : left_;
    if (isFirst) {
      const xml_node bullet = styles_.paragraphChild(own_, isBullet);
      // The text behind a bullet stands at the left margin, or right behind a bullet that reaches over it.
      if (bullet && !named(bullet, "a:buNone")) x_ = std::max(left_, first_ + firstSize() * 0.6);
    }
    startX_ = x_;
  }

  /// Appends the words of a run, breaking lines between them.
  void add(const TextPiece& piece) {
    const CharacterFormat format = characterFormat(shape_, styles_, piece.node.child("a:rPr"));
    const double size = format.size * scale_;
    const std::u16string_view all = text(piece.span);
    for (std::size_t place = 0; place < all.size();) {
      std::size_t end = place + 1;
      if (all[place] == u'\t') {
        addTab(piece.span.start + place, format.face, size);
      } else {
        const bool blank = isBlank(all[place]);
        while (end < all.size() && all[end] != u'\t' && isBlank(all[end]) == blank &&
               !(breaksAnywhere(all[end]) || breaksAnywhere(all[end - 1])) &&
               !(all[end - 1] == u'-' && !blank)) {
          ++end;
        }
        const TextSpan span{piece.span.start + place, end - place};
        if (blank) {
          append(span, widthOf(span, format.face, size), format.face, size);
        } else {
          addWord(span, format.face, size);
        }
      }
      place = end;
    }
  }

  double widthOf(TextSpan span, const platform::FontFace& face, double size) const {
    return size * platform::textWidth(face, text(span));
  }

  /// How many characters of a word that is too wide fit on the line, at least one.
  std::size_t fitting(TextSpan word, const platform::FontFace& face, double size) const {
    const auto fits = [&](std::size_t count) {
      return count <= 1 || x_ + widthOf({word.start, count}, face, size) <= available_;
    };
    std::size_t most = 1;
    while (most < word.length && fits(most)) most *= 2;
    std::size_t least = std::max<std::size_t>(most / 2, 1);
    most = std::min(most, word.length);
    while (most - least > 1) {
      const std::size_t middle = least + (most - least) / 2;
      (fits(middle) ? least : most) = middle;
    }
    return least;
  }

  /// Whether a word goes beyond the line; of a very long one its beginning tells.
  bool goesBeyond(TextSpan word, const platform::FontFace& face, double size) const {
    constexpr std::size_t beginning = 2000;
    if (!std::isfinite(available_)) return false;
    if (word.length > beginning && goesBeyond({word.start, beginning}, face, size)) return true;
    return x_ + widthOf(word, face, size) > available_ + tolerance;
  }

  void addWord(TextSpan span, const platform::FontFace& face, double size) {
    if (goesBeyond(span, face, size) && x_ > startX_) wrap(span.start);
    while (span.length > 1 && goesBeyond(span, face, size)) {
      // A word that is wider than the line breaks where the line is full.
      const TextSpan part{span.start, fitting(span, face, size)};
      append(part, widthOf(part, face, size), face, size);
      span = {part.end(), span.length - part.length};
      finishLine();
      startLine(span.start, false);
    }
    append(span, widthOf(span, face, size), face, size);
  }

  /// Ends the line. A word in several formats goes to the next line as a whole, unless it fills this one.
  void wrap(std::size_t next) {
    std::vector<Fragment> carried;
    if (!line_.fragments.empty() && line_.fragments.back().span.end() == next) {
      while (!line_.fragments.empty() && !endsInBreak(line_.fragments.back().span)) {
        carried.insert(carried.begin(), line_.fragments.back());
        line_.fragments.pop_back();
      }
      if (line_.fragments.empty()) line_.fragments.swap(carried);
    }
    finishLine();
    startLine(carried.empty() ? next : carried.front().span.start, false);
    for (const Fragment& fragment : carried)
      append(fragment.span, fragment.width, fragment.face, fragment.size);
  }
  bool endsInBreak(TextSpan span) const {
    const char16_t last = text(span).back();
    return isBlank(last) || last == u'-' || breaksAnywhere(last);
  }

  void append(TextSpan span, double width, const platform::FontFace& face, double size) {
    line_.fragments.push_back({span, x_, width, size, face});
    x_ += width;
    size_ = std::max(size_, size);
  }

  /// Text behind a right or centred tab is moved when the next tab or the end of the line comes.
  void addTab(std::size_t place, const platform::FontFace& face, double size) {
    settleTab();
    const auto next =
        std::ranges::find_if(tabs_, [&](const Tab& tab) { return tab.position > x_ + tolerance; });
    Tab tab{0, TabKind::left};
    if (x_ < left_ - tolerance && (next == tabs_.end() || next->position > left_)) {
      tab.position = left_;  // the indent of the other lines is a tab to the first one
    } else if (next != tabs_.end()) {
      tab = *next;
    } else {
      tab.position = (std::floor((x_ + tolerance) / tabStep_) + 1) * tabStep_;
    }
    append({place, 1}, tab.kind == TabKind::left ? tab.position - x_ : 0, face, size);
    if (tab.kind != TabKind::left) {
      pending_ = tab;
      pendingFrom_ = line_.fragments.size();
    }
  }
  void settleTab() {
    if (pendingFrom_ == 0) return;
    const double start = line_.fragments[pendingFrom_ - 1].left;
    const double width = x_ - start;
    const double share = pending_.kind == TabKind::right ? 1 : 0.5;
    const double shift = std::max(0.0, pending_.position - width * share - start);
    line_.fragments[pendingFrom_ - 1].width += shift;
    for (std::size_t i = pendingFrom_; i < line_.fragments.size(); ++i) line_.fragments[i].left += shift;
    x_ += shift;
    pendingFrom_ = 0;
  }

  void finishLine() {
    settleTab();
    if (size_ == 0) size_ = endSize_;
    const double single = size_ * lineSpacing;
    line_.height =
        spacing(styles_.paragraphChild(own_, isNamed<lineSpacingName>), single, single) * reduction_;
    line_.top = layout_.height_;
    line_.size = size_;
    layout_.height_ += line_.height;
    align();
    layout_.lines_.push_back(std::move(line_));
    line_ = {};
  }
  void align() {
    double end = startX_;
    for (const Fragment& fragment : line_.fragments) {
      if (!isBlank(text(fragment.span).front())) end = fragment.left + fragment.width;
    }
    layout_.width_ = std::max(layout_.width_, end);
    const std::string_view alignment = styles_.paragraph(own_, "algn").value();
    const double share = alignment == "ctr" ? 0.5 : alignment == "r" ? 1 : 0;
    const double shift = ((std::isfinite(available_) ? available_ : 0) - end) * share;
    for (Fragment& fragment : line_.fragments) fragment.left += shift;
    line_.shift = shift;
  }

  static constexpr double tolerance = 0.01;

  TextLayout& layout_;
  const ShapeKey& shape_;
  const TextParagraph& paragraph_;
  const LevelStyles& styles_;
  double scale_;
  double reduction_;
  double available_;
  xml_node own_;
  double left_;
  double first_;
  std::vector<Tab> tabs_;
  double tabStep_ = usualTab;

  Line line_{};
  double x_ = 0;
  double startX_ = 0;
  double size_ = 0;  ///< the largest on the line
  double endSize_ = 0;
  Tab pending_{};
  std::size_t pendingFrom_ = 0;  ///< the fragment behind the tab that is not settled yet; 0 for none
};

TextLayout::TextLayout(const ShapeKey& shape) : body_(shape), shown_(body_.text()) {
  const TextArea area = textArea(shape);
  const auto margin = [&](BoxProperty side) { return toPoints(boxMargin(shape, side)); };
  box_ = {area.left + margin(BoxProperty::marginLeft),
          area.top + margin(BoxProperty::marginTop),
          area.width - margin(BoxProperty::marginLeft) - margin(BoxProperty::marginRight),
          area.height - margin(BoxProperty::marginTop) - margin(BoxProperty::marginBottom),
          isUpright(shape),
          std::string_view(boxProperty(shape, BoxProperty::direction).value()) == "vert270"};
  const bool wraps = wrapsText(shape);
  const double along = box_.upright ? box_.height : box_.width;
  const double available = wraps ? std::max(along, 1.0) : std::numeric_limits<double>::infinity();

  const xml_node shrink = shrinking(shape);
  const double scale = percent(shrink.attribute("fontScale"), 1);
  const double reduction = 1 - percent(shrink.attribute("lnSpcReduction"), 0);
  int level = 0;
  std::optional<LevelStyles> styles;
  for (const TextParagraph& paragraph : body_.paragraphs()) {
    if (const int own = paragraphLevel(paragraph.node); own != level) {
      level = own;
      styles.emplace(shape, level);
    }
    capitalize(paragraph, *styles);
    ParagraphBuilder(*this, shape, paragraph, *styles, scale, reduction, available).build(lines_.empty());
  }
  place(shape);
}

void TextLayout::capitalize(const TextParagraph& paragraph, const LevelStyles& styles) {
  for (const TextPiece& piece : paragraph.pieces) {
    if (std::string_view(styles.run(piece.node.child("a:rPr"), "cap").value()) != "all") continue;
    for (std::size_t i = piece.span.start; i < piece.span.end(); ++i) shown_[i] = capitalOf(shown_[i]);
  }
}

/// Brings the block of lines to its place in the box. Lines that aren't wrapped stand beside a point of the
/// box, its left end, middle or right end, as the first paragraph is aligned.
void TextLayout::place(const ShapeKey& shape) {
  const double along = box_.upright ? box_.height : box_.width;
  const double across = box_.upright ? box_.width : box_.height;
  if (!wrapsText(shape) && !body_.paragraphs().empty()) {
    const TextParagraph& first = body_.paragraphs().front();
    const std::string_view alignment =
        LevelStyles(shape, paragraphLevel(first.node)).paragraph(first.node.child("a:pPr"), "algn").value();
    shiftX_ = alignment == "ctr" ? along / 2 : alignment == "r" ? along : 0;
  }
  const std::string_view anchor = boxProperty(shape, BoxProperty::anchor).value();
  shiftY_ = anchor == "ctr" ? (across - height_) / 2 : anchor == "b" ? across - height_ : 0;
}

TextBounds TextLayout::bounds(TextSpan span) const {
  constexpr double far = std::numeric_limits<double>::infinity();
  double left = far, right = -far, top = far, bottom = -far;
  const std::u16string_view all = shown_;
  const auto include = [&](const Line& line, double from, double to) {
    left = std::min(left, from);
    right = std::max(right, to);
    top = std::min(top, line.top);
    bottom = std::max(bottom, line.top + line.height);
  };
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    const std::size_t end = i + 1 < lines_.size() ? lines_[i + 1].start : all.size() + 1;
    if (line.start > span.end() || (line.start == span.end() && span.length > 0) || end <= span.start)
      continue;
    std::size_t visible = line.fragments.size();
    while (visible > 0 && isBlank(all[line.fragments[visible - 1].span.start])) --visible;
    if (visible == 0) {
      const double x = line.fragments.empty() ? 0 : line.fragments.front().left;
      include(line, x, x);
      continue;
    }
    for (std::size_t f = 0; f < visible; ++f) {
      const Fragment& fragment = line.fragments[f];
      const std::size_t from = std::max(span.start, fragment.span.start);
      const std::size_t to = std::min(span.end(), fragment.span.end());
      if (from > to || (from == to && span.length > 0)) continue;
      const auto position = [&](std::size_t at) {
        if (at == fragment.span.start) return fragment.left;
        if (at == fragment.span.end()) return fragment.left + fragment.width;
        return fragment.left +
               fragment.size * platform::textWidth(fragment.face,
                                                   all.substr(fragment.span.start, at - fragment.span.start));
      };
      include(line, position(from), position(to));
    }
  }
  if (left > right) return {box_.left, box_.top, 0, 0};
  if (box_.upright) {
    return {box_.left + shiftY_ + top, box_.top + shiftX_ + left, bottom - top, right - left};
  }
  return {box_.left + shiftX_ + left, box_.top + shiftY_ + top, right - left, bottom - top};
}

/// What a line is higher or lower than a single one lies above its characters.
double TextLayout::baselineOf(const Line& line) const {
  return shiftY_ + line.top + line.height - line.size * lineDescent;
}

std::vector<TextLayout::Stretch> TextLayout::stretches() const {
  std::vector<Stretch> all;
  for (const Line& line : lines_) {
    for (const Fragment& fragment : line.fragments) {
      all.push_back({fragment.span, fragment.face, fragment.size, shiftX_ + fragment.left, baselineOf(line),
                     fragment.width});
    }
  }
  return all;
}

std::vector<TextLayout::Start> TextLayout::starts() const {
  std::vector<Start> all;
  for (std::size_t i = 0; i < openings_.size(); ++i) {
    const Opening& opening = openings_[i];
    const Line& line = lines_[opening.line];
    all.push_back({i, shiftX_ + opening.indent + line.shift, baselineOf(line), opening.size});
  }
  return all;
}

platform::Affine TextLayout::toSlide() const {
  if (!box_.upright) return platform::Affine::moved(box_.left, box_.top);
  if (box_.upward) return {0, 1, box_.left, -1, 0, box_.top + box_.height};
  return {0, -1, box_.left + box_.width, 1, 0, box_.top};
}

}  // namespace vellumark::deck
