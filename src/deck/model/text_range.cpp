// A stretch of the text of a shape.

#include "deck/model/text_range.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "deck/model/auto_size.h"
#include "deck/model/font.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/paragraph_format.h"
#include "deck/model/shape_actions.h"
#include "deck/model/text_body.h"
#include "deck/model/text_characters.h"
#include "deck/model/text_frame.h"
#include "deck/model/text_layout.h"
#include "deck/model/text_style.h"
#include "deck/model/text_units.h"

namespace vellumark::deck {
namespace {

/// A range keeps its place by numbers: it follows its own changes, not those made through other ranges.
class TextRangeObject : public ModelObject<TextRangeObject> {
 public:
  static constexpr const char* className = "TextRange";
  static const MemberTable<TextRangeObject>& members() {
    using R = TextRangeObject;
    static const MemberTable<R> table{
        property<&R::text, &R::setText>(member::Text),
        property<&R::start>(member::Start),
        property<&R::length>(member::Length),
        property<&R::count>(member::Count),
        method<&R::units<TextUnit::paragraphs>>(member::Paragraphs, 0, 2),
        method<&R::units<TextUnit::words>>(member::Words, 0, 2),
        method<&R::units<TextUnit::characters>>(member::Characters, 0, 2),
        method<&R::units<TextUnit::runs>>(member::Runs, 0, 2),
        method<&R::insertAfter>(member::InsertAfter, 0, 1),
        method<&R::insertBefore>(member::InsertBefore, 0, 1),
        method<&R::remove>(member::Delete),
        method<&R::select>(member::Select),
        property<&R::parent>(member::Parent),
        property<&R::font>(member::Font),
        property<&R::paragraphFormat>(member::ParagraphFormat),
        property<&R::indentLevel, &R::putIndentLevel>(member::IndentLevel),
        property<&R::languageId, &R::setLanguageId>(member::LanguageID),
        property<&R::bound<&TextBounds::left>>(member::BoundLeft),
        property<&R::bound<&TextBounds::top>>(member::BoundTop),
        property<&R::bound<&TextBounds::width>>(member::BoundWidth),
        property<&R::bound<&TextBounds::height>>(member::BoundHeight),
    };
    return table;
  }

  TextRangeObject(HostRef host, ShapeKey shape, TextSpan span, TextUnit unit, bool later)
      : ModelObject(std::move(host)), shape_(std::move(shape)), span_(span), unit_(unit), later_(later) {}
  std::string typeName() const override { return later_ ? "TextRange2" : className; }
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::string text() {
    const auto body = currentText(shape_);
    const TextSpan span = body->clipped(span_);
    return base::fromUtf16(std::u16string_view(body->text()).substr(span.start, span.length));
  }
  void setText(const std::string& text) {
    TextBody body(shape_);
    // Nothing in the place of nothing is no change: a notes page that was only looked at doesn't come to be.
    if (text.empty() && body.text().empty() && textBodyOf(shape_.node)) return;
    span_ = body.replace(span_, storableText(base::toUtf16(text)));
    textChanged(shape_);
  }
  std::int32_t start() { return static_cast<std::int32_t>(currentText(shape_)->clipped(span_).start) + 1; }
  std::int32_t length() { return static_cast<std::int32_t>(currentText(shape_)->clipped(span_).length); }

  /// How many units of the kind that the range was asked for it holds; 1 for a range by itself.
  std::int32_t count() {
    const auto body = currentText(shape_);
    const TextSpan span = body->clipped(span_);
    if (unit_ == TextUnit::characters) return static_cast<std::int32_t>(span.length);
    return static_cast<std::int32_t>(textUnits(*body, unit_, span).size());
  }

  /// `length` units from `start`; all without arguments, one for a start alone, the first ones for a length
  /// alone. A start behind the last unit means the last one. Numbers below 1 stand for arguments left out.
  template <TextUnit unit>
  host::ObjectRef units(Arguments arguments) {
    const std::int32_t start = argumentOr<std::int32_t>(arguments, 0, -1);
    const std::int32_t length = argumentOr<std::int32_t>(arguments, 1, -1);
    const auto body = currentText(shape_);
    const TextSpan span = body->clipped(span_);
    if (start < 1 && length < 0) return part(span, unit);
    if constexpr (unit == TextUnit::characters) {
      const TextSpan found = stretch(start, length, span.length);
      return part({span.start + found.start, found.length}, unit);
    }
    const std::vector<TextSpan>& all = textUnits(*body, unit, span);
    if (all.empty()) return part(span, unit);
    const TextSpan found = stretch(start, length, all.size());
    const std::size_t begin = all[found.start].start;
    return part({begin, found.length == 0 ? 0 : all[found.end() - 1].end() - begin}, unit);
  }

  /// The text that was inserted; this range then holds it too.
  host::ObjectRef insertAfter(Arguments arguments) {
    TextBody body(shape_);
    span_ = body.clipped(span_);
    return inserted(body.replace({span_.end(), 0}, newText(arguments)));
  }
  host::ObjectRef insertBefore(Arguments arguments) {
    TextBody body(shape_);
    span_ = body.clipped(span_);
    return inserted(body.replace({span_.start, 0}, newText(arguments), TextBody::Neighbour::behind));
  }
  void remove() {
    span_ = TextBody(shape_).replace(span_, {});
    textChanged(shape_);
  }
  void select() { selectText(host(), shape_, start(), length()); }
  host::ObjectRef parent() { return later_ ? makeTextFrame2(host(), shape_) : makeTextFrame(host(), shape_); }

  host::ObjectRef font() { return makeFont(host(), shape_, span_); }
  host::ObjectRef paragraphFormat() {
    return later_ ? makeParagraphFormat2(host(), shape_, span_) : makeParagraphFormat(host(), shape_, span_);
  }
  /// The later model has the level in the paragraph's format.
  std::int32_t indentLevel() {
    requireEarlier();
    return std::min(indentLevelOf(shape_, span_), mostLevels());
  }
  void putIndentLevel(std::int32_t level) {
    requireEarlier();
    setIndentLevel(shape_, span_, level, mostLevels());
  }
  std::int32_t languageId() { return languageOf(shape_, span_); }
  void setLanguageId(std::int32_t id) { setLanguage(shape_, span_, id); }

  template <double TextBounds::*part>
  float bound() {
    return static_cast<float>(TextLayout(shape_).bounds(currentText(shape_)->clipped(span_)).*part);
  }

 private:
  /// Which of `count` units are meant, counted from 0.
  static TextSpan stretch(std::int32_t start, std::int32_t length, std::size_t count) {
    if (count == 0) return {};
    const std::size_t first = std::min<std::size_t>(start < 1 ? 0 : start - 1, count - 1);
    return {first, std::min<std::size_t>(length < 0 ? 1 : length, count - first)};
  }
  host::ObjectRef part(TextSpan span, TextUnit unit) const {
    return std::make_shared<TextRangeObject>(host(), shape_, span, unit, later_);
  }
  host::ObjectRef inserted(TextSpan span) {
    span_.length += span.length;
    textChanged(shape_);
    return part(span, TextUnit::whole);
  }
  static std::u16string newText(Arguments arguments) {
    return storableText(base::toUtf16(argumentOr<std::string>(arguments, 0, {})));
  }

  ShapeKey shape_;
  void requireEarlier() const {
    if (later_) base::raise(base::errors::noSuchMember);
  }

  /// Hosts before the ribbon know five levels, and show deeper ones of a file as the deepest of them.
  std::int32_t mostLevels() const {
    constexpr std::int32_t oldLevels = 5, newLevels = 9;
    return host()->beforeRibbon() ? oldLevels : newLevels;
  }

  TextSpan span_;
  TextUnit unit_;
  bool later_;
};

}  // namespace

host::ObjectRef makeTextRange(const HostRef& host, const ShapeKey& shape, std::int32_t start,
                              std::int32_t length) {
  const TextSpan span{static_cast<std::size_t>(std::max(start, 1)) - 1,
                      static_cast<std::size_t>(std::max(length, 0))};
  return std::make_shared<TextRangeObject>(host, shape, span, TextUnit::whole, false);
}

host::ObjectRef makeTextRange2(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<TextRangeObject>(host, shape, TextSpan{0, currentText(shape)->text().size()},
                                           TextUnit::whole, true);
}

}  // namespace vellumark::deck
