#pragma once
// What the objects of text formats stand on: part of the text of a shape.

#include <optional>
#include <vector>

#include "deck/model/member_table.h"
#include "deck/model/text_body.h"
#include "deck/model/text_style.h"

namespace vellumark::deck {

/// Base of the objects that stand for the format of a stretch of text.
template <typename T>
class TextTarget : public ModelObject<T> {
 public:
  TextTarget(HostRef host, ShapeKey shape, TextSpan span)
      : ModelObject<T>(std::move(host)), shape_(std::move(shape)), span_(span) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

 protected:
  const ShapeKey& shape() const { return shape_; }
  TextSpan span() const { return span_; }

  /// What `read(styles, paragraph, properties)` gives for all stretches, nothing where they differ. The
  /// properties are an a:rPr or nothing.
  template <typename Read>
  auto common(Read read) const {
    using Result = decltype(read(std::declval<const LevelStyles&>(), pugi::xml_node(), pugi::xml_node()));
    const auto body = currentText(shape_);
    std::vector<TextBody::Format> formats = body->formats(body->clipped(span_));
    if (formats.empty()) formats.emplace_back();
    std::optional<LevelStyles> styles;
    int level = 0;
    std::optional<Result> value;
    for (const TextBody::Format& format : formats) {
      if (const int own = paragraphLevel(format.paragraph); own != level) {
        level = own;
        styles.emplace(shape_, level);
      }
      Result next = read(*styles, format.paragraph, format.properties);
      if (value && *value != next) return std::optional<Result>();
      value = std::move(next);
    }
    return value;
  }
  /// The same for the paragraphs that the stretch touches: `read(styles, paragraph)`.
  template <typename Read>
  auto commonParagraph(Read read) const {
    using Result = decltype(read(std::declval<const LevelStyles&>(), pugi::xml_node()));
    const auto body = currentText(shape_);
    std::optional<Result> value;
    if (body->paragraphs().empty()) {
      value = read(LevelStyles(shape_, 1), pugi::xml_node());
      return value;
    }
    const auto [first, last] = body->paragraphsIn(body->clipped(span_));
    for (std::size_t i = first; i <= last; ++i) {
      const pugi::xml_node paragraph = body->paragraphs()[i].node;
      Result next = read(LevelStyles(shape_, paragraphLevel(paragraph)), paragraph);
      if (value && *value != next) return std::optional<Result>();
      value = std::move(next);
    }
    return value;
  }

 private:
  ShapeKey shape_;
  TextSpan span_;
};

}  // namespace vellumark::deck
