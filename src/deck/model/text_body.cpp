#include "deck/model/text_body.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/text.h"
#include "deck/model/auto_size.h"
#include "deck/model/text_box.h"
#include "deck/model/text_characters.h"
#include "deck/model/text_style.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }
bool isElement(xml_node node) { return node.type() == pugi::node_element; }

/// Whether a child of a paragraph stands between its properties and those of its end.
bool isInline(xml_node node) {
  return isElement(node) && !isNamed(node, "a:pPr") && !isNamed(node, "a:endParaRPr");
}

/// The characters of a:t. Line ends of the file itself are breaks to the host.
std::u16string runText(xml_node run) {
  std::string text;
  for (xml_node part : run.child("a:t").children()) {
    if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) text += part.value();
  }
  std::u16string units = base::toUtf16(text);
  std::ranges::replace_if(
      units, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; }, lineBreak);
  return units;
}

std::u16string pieceText(xml_node node) {
  if (isNamed(node, "a:br")) return std::u16string(1, lineBreak);
  return isNamed(node, "a:r") || isNamed(node, "a:fld") ? runText(node) : std::u16string();
}

void setRunText(xml_node run, std::u16string_view text) {
  xml_node node = childInOrder(run, "a:t", {});
  node.remove_children();
  node.append_child(pugi::node_pcdata).set_value(base::fromUtf16(text).c_str());
}

xml_node insertInline(xml_node paragraph, const char* name, xml_node before) {
  return before ? paragraph.insert_child_before(name, before) : paragraph.append_child(name);
}

/// Moves a run to the end of another paragraph.
void moveInline(xml_node paragraph, xml_node node) {
  if (const xml_node end = paragraph.child("a:endParaRPr")) {
    paragraph.insert_move_before(node, end);
  } else {
    paragraph.append_move(node);
  }
}

/// Inserts runs and breaks for one paragraph's text. `format` is an a:rPr or nothing.
void insertRuns(xml_node paragraph, std::u16string_view text, xml_node format, xml_node before) {
  const auto insert = [&](const char* name) {
    xml_node node = insertInline(paragraph, name, before);
    if (format) node.append_copy(format);
    return node;
  };
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(lineBreak), text.size());
    if (end > 0) setRunText(insert("a:r"), text.substr(0, end));
    if (end == text.size()) return;
    insert("a:br");
    text.remove_prefix(end + 1);
  }
}

std::string formatText(xml_node run) {
  std::ostringstream out;
  run.child("a:rPr").print(out, "", pugi::format_raw);
  return out.str();
}

/// Joins neighbouring runs of the same format, which splitting and inserting leave behind.
void joinRuns(xml_node paragraph) {
  xml_node run = paragraph.child("a:r");
  while (run) {
    const xml_node next = run.next_sibling();
    if (!isNamed(next, "a:r")) {
      run = run.next_sibling("a:r");
    } else if (formatText(run) == formatText(next)) {
      setRunText(run, runText(run) + runText(next));
      paragraph.remove_child(next);
    } else {
      run = next;
    }
  }
}

/// A new paragraph behind another one, with its properties.
xml_node continueParagraph(xml_node paragraph) {
  xml_node added = paragraph.parent().insert_child_after("a:p", paragraph);
  if (const xml_node properties = paragraph.child("a:pPr")) added.append_copy(properties);
  if (const xml_node end = paragraph.child("a:endParaRPr")) added.append_copy(end);
  return added;
}

/// A paragraph without text keeps a format for what will be typed into it.
void keepFormat(xml_node paragraph, xml_node format) {
  if (!format || paragraph.child("a:endParaRPr")) return;
  if (paragraph.find_child(isInline)) return;
  paragraph.append_copy(format).set_name("a:endParaRPr");
}

bool isSecondHalf(const std::u16string& text, std::size_t place) {
  return place > 0 && place < text.size() && text[place] >= 0xDC00 && text[place] <= 0xDFFF &&
         text[place - 1] >= 0xD800 && text[place - 1] <= 0xDBFF;
}

}  // namespace

TextBody::TextBody(const ShapeKey& shape) : shape_(shape) { read(); }

void TextBody::read() {
  text_.clear();
  paragraphs_.clear();
  units_.reset();
  for (xml_node node : textBodyOf(shape_.node).children("a:p")) {
    if (!paragraphs_.empty()) text_ += paragraphMark;
    TextParagraph paragraph{node, {text_.size(), 0}, {}};
    for (xml_node child : node.children()) {
      if (!isInline(child)) continue;
      const std::u16string characters = pieceText(child);
      paragraph.pieces.push_back({child, {text_.size(), characters.size()}});
      text_ += characters;
    }
    paragraph.span.length = text_.size() - paragraph.span.start;
    paragraphs_.push_back(std::move(paragraph));
  }
}

TextSpan TextBody::clipped(TextSpan span) const {
  std::size_t start = std::min(span.start, text_.size());
  std::size_t end = start + std::min(span.length, text_.size() - start);
  if (isSecondHalf(text_, start)) --start;
  if (isSecondHalf(text_, end)) ++end;
  return {start, end - start};
}

/// Every place from 0 to the length of the text belongs to one paragraph.
std::size_t TextBody::paragraphAt(std::size_t place) const {
  const auto behind = std::ranges::upper_bound(
      paragraphs_, place, {}, [](const TextParagraph& paragraph) { return paragraph.span.start; });
  return static_cast<std::size_t>(behind - paragraphs_.begin()) - 1;
}

xml_node TextBody::formatAt(TextSpan span, Neighbour neighbour) const {
  const std::size_t first = paragraphAt(span.start);
  for (std::size_t i = first; i < paragraphs_.size() && paragraphs_[i].span.start < span.end(); ++i) {
    for (const TextPiece& piece : paragraphs_[i].pieces) {
      if (piece.span.length > 0 && piece.span.start < span.end() && piece.span.end() > span.start) {
        return piece.node.child("a:rPr");
      }
    }
  }
  // Nothing is replaced: the neighbours are asked, last of all a run without text.
  xml_node before, behind, empty;
  for (const TextPiece& piece : paragraphs_[first].pieces) {
    const TextSpan& place = piece.span;
    if (place.length == 0 && isNamed(piece.node, "a:r")) empty = piece.node;
    if (place.start < span.start && span.start <= place.end()) before = piece.node;
    if (place.start <= span.start && span.start < place.end()) behind = piece.node;
  }
  if (neighbour == Neighbour::behind) std::swap(before, behind);
  for (const xml_node piece : {before, behind, empty}) {
    if (piece) return piece.child("a:rPr");
  }
  return paragraphs_[first].node.child("a:endParaRPr");
}

void TextBody::splitAt(std::size_t paragraph, std::size_t place) {
  std::vector<TextPiece>& pieces = paragraphs_[paragraph].pieces;
  for (auto piece = pieces.begin(); piece != pieces.end(); ++piece) {
    const TextSpan span = piece->span;
    if (place <= span.start || place >= span.end()) continue;
    xml_node first = piece->node;
    const std::u16string characters = runText(first);
    if (isNamed(first, "a:fld")) {
      // Half a field is plain text.
      first.set_name("a:r");
      first.remove_attributes();
      first.remove_child("a:pPr");
    }
    xml_node second = first.parent().insert_copy_after(first, first);
    setRunText(first, characters.substr(0, place - span.start));
    setRunText(second, characters.substr(place - span.start));
    piece->span.length = place - span.start;
    pieces.insert(piece + 1, {second, {place, span.end() - place}});
    return;
  }
}

std::vector<xml_node> TextBody::cut(TextSpan span) {
  const std::size_t first = paragraphAt(span.start);
  const std::size_t last = paragraphAt(span.end());
  splitAt(first, span.start);
  splitAt(last, span.end());
  std::vector<xml_node> rest;
  for (std::size_t i = first; i <= last; ++i) {
    for (const TextPiece& piece : paragraphs_[i].pieces) {
      const TextSpan& place = piece.span;
      // Where nothing is cut, a piece without characters stays in front of the place.
      const bool stays = place.length == 0 && rest.empty() && place.start == span.start;
      if (i == last && place.start >= span.end() && (!stays || span.length > 0)) {
        rest.push_back(piece.node);
      } else if (place.start >= span.start && !stays) {
        paragraphs_[i].node.remove_child(piece.node);
      }
    }
  }
  return rest;
}

TextSpan TextBody::replace(TextSpan wanted, std::u16string_view text, Neighbour neighbour) {
  xml_node body = requireTextBody(shape_.node);
  if (paragraphs_.empty()) read();
  const TextSpan span = clipped(wanted);
  const std::size_t first = paragraphAt(span.start);
  const std::size_t last = paragraphAt(span.end());

  pugi::xml_document holder;  // the format outlives the run that it is taken from
  xml_node format;
  if (const xml_node model = formatAt(span, neighbour)) {
    format = holder.append_copy(model);
    format.set_name("a:rPr");
    format.remove_attribute("err");
  }
  const std::vector<xml_node> rest = cut(span);

  std::vector<std::u16string_view> lines;
  for (std::u16string_view left = text;;) {
    const std::size_t end = left.find(paragraphMark);
    lines.push_back(left.substr(0, end));
    if (end == std::u16string_view::npos) break;
    left.remove_prefix(end + 1);
  }
  std::vector<xml_node> targets;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    targets.push_back(first + i <= last ? paragraphs_[first + i].node : continueParagraph(targets.back()));
  }
  if (targets.back() != paragraphs_[last].node) {
    for (const xml_node node : rest) moveInline(targets.back(), node);
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool beforeRest = i + 1 == lines.size() && !rest.empty();
    insertRuns(targets[i], lines[i], format, beforeRest ? rest.front() : targets[i].child("a:endParaRPr"));
    keepFormat(targets[i], format);
    joinRuns(targets[i]);
  }
  for (std::size_t i = first + lines.size(); i <= last; ++i) body.remove_child(paragraphs_[i].node);

  read();
  shape_.sheet.touch(Change::contents);
  return {span.start, text.size()};
}

std::pair<std::size_t, std::size_t> TextBody::paragraphsIn(TextSpan span) const {
  return {paragraphAt(span.start), paragraphAt(span.length > 0 ? span.end() - 1 : span.start)};
}

std::vector<TextBody::Format> TextBody::formats(TextSpan span) const {
  std::vector<Format> found;
  if (paragraphs_.empty()) return found;
  const auto [first, last] = paragraphsIn(span);
  for (std::size_t i = first; i <= last; ++i) {
    for (const TextPiece& piece : paragraphs_[i].pieces) {
      if (piece.span.length > 0 && piece.span.start < span.end() && piece.span.end() > span.start) {
        found.push_back({paragraphs_[i].node, piece.node.child("a:rPr")});
      }
    }
  }
  if (found.empty()) found.push_back({paragraphs_[first].node, formatAt(span, Neighbour::before)});
  return found;
}

void TextBody::changeFormats(TextSpan wanted, const std::function<void(xml_node)>& change) {
  requireTextBody(shape_.node);
  if (paragraphs_.empty()) read();
  const TextSpan span = clipped(wanted);
  const auto [first, last] = paragraphsIn(span);
  splitAt(first, span.start);
  splitAt(last, span.end());
  for (std::size_t i = first; i <= last; ++i) {
    const TextParagraph& paragraph = paragraphs_[i];
    for (const TextPiece& piece : paragraph.pieces) {
      if (piece.span.length == 0 || piece.span.start < span.start || piece.span.end() > span.end()) continue;
      xml_node node = piece.node;
      xml_node properties = node.child("a:rPr");
      change(properties ? properties : node.prepend_child("a:rPr"));
    }
    if (span.start > paragraph.span.start || span.end() < paragraph.span.end()) continue;
    xml_node node = paragraph.node;
    if (const xml_node end = node.child("a:endParaRPr")) {
      change(end);
    } else if (paragraph.span.length == 0) {
      change(node.append_child("a:endParaRPr"));
    }
  }
  for (std::size_t i = first; i <= last; ++i) joinRuns(paragraphs_[i].node);
  read();
}

void TextBody::changeParagraphs(TextSpan wanted, const std::function<void(xml_node)>& change) {
  requireTextBody(shape_.node);
  if (paragraphs_.empty()) read();
  const auto [first, last] = paragraphsIn(clipped(wanted));
  for (std::size_t i = first; i <= last; ++i) {
    xml_node node = paragraphs_[i].node;
    xml_node properties = node.child("a:pPr");
    change(properties ? properties : node.prepend_child("a:pPr"));
  }
}

const std::vector<TextSpan>& TextBody::units(TextUnit unit, TextSpan within,
                                             const std::function<std::vector<TextSpan>()>& divide) const {
  if (!units_ || units_->unit != unit || units_->within != within) units_ = {unit, within, divide()};
  return units_->found;
}

namespace {

/// The text read last. Programs ask for one character or word after the other, so it is likely the one asked
/// for next.
struct LastText {
  std::weak_ptr<Part> part;
  xml_node node;
  std::uint64_t revision = 0;
  std::shared_ptr<TextBody> body;
};

LastText lastText;

}  // namespace

std::shared_ptr<const TextBody> currentText(const ShapeKey& shape) {
  const PartRef& part = shape.sheet.part;
  const bool current = lastText.body && lastText.node == shape.node &&
                       lastText.revision == part->revision() && lastText.part.lock() == part;
  if (!current) lastText = {part, shape.node, part->revision(), std::make_shared<TextBody>(shape)};
  return lastText.body;
}

void changeParagraphs(const ShapeKey& shape, TextSpan span, const std::function<void(xml_node)>& change) {
  currentText(shape);
  const std::shared_ptr<TextBody> body = lastText.body;
  body->changeParagraphs(span, change);
  textChanged(shape);
  // Neither paragraphs nor characters have come or gone.
  lastText = {shape.sheet.part, shape.node, shape.sheet.part->revision(), body};
}

}  // namespace vellumark::deck
