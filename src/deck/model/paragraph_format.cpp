#include "deck/model/paragraph_format.h"

#include <algorithm>
#include <string_view>

#include "deck/model/text_target.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int32_t mostLevels = 9;

struct AlignmentName {
  std::int32_t value;
  std::string_view name;
};
constexpr AlignmentName alignments[] = {{host::ppAlignLeft, "l"},
                                        {host::ppAlignCenter, "ctr"},
                                        {host::ppAlignRight, "r"},
                                        {host::ppAlignJustify, "just"},
                                        {5, "dist"},
                                        {6, "thaiDist"},
                                        {7, "justLow"}};

bool isBullet(xml_node node) {
  const std::string_view name = node.name();
  return name == "a:buNone" || name == "a:buAutoNum" || name == "a:buChar" || name == "a:buBlip";
}

bool hasBullet(const LevelStyles& styles, xml_node paragraph) {
  const xml_node bullet = styles.paragraphChild(paragraph.child("a:pPr"), isBullet);
  return bullet && std::string_view(bullet.name()) != "a:buNone";
}

xml_node addBullet(xml_node properties, const char* name) {
  return childInOrder(properties, name, {"a:tabLst", "a:defRPr", "a:extLst"});
}

class BulletFormatObject : public TextTarget<BulletFormatObject> {
 public:
  static constexpr const char* className = "BulletFormat";
  static const MemberTable<BulletFormatObject>& members() {
    static const MemberTable<BulletFormatObject> table{
        property<&BulletFormatObject::visible, &BulletFormatObject::setVisible>(member::Visible),
    };
    return table;
  }
  using TextTarget::TextTarget;

  std::int32_t visible() {
    const auto shown = commonParagraph(hasBullet);
    return shown ? (*shown ? host::msoTrue : host::msoFalse) : host::mixed;
  }
  /// A bullet that is switched on is the inherited one, or a round one where none is inherited.
  void setVisible(std::int32_t on) {
    changeParagraphs(shape(), span(), [&](xml_node properties) {
      const xml_node paragraph = properties.parent();
      const LevelStyles styles(shape(), paragraphLevel(paragraph));
      if ((on != 0) == hasBullet(styles, paragraph)) return;
      while (const xml_node own = properties.find_child(isBullet)) properties.remove_child(own);
      if ((on != 0) == hasBullet(styles, paragraph)) return;
      if (on == 0) {
        addBullet(properties, "a:buNone");
        return;
      }
      xml_node font = childInOrder(
          properties, "a:buFont",
          {"a:buNone", "a:buAutoNum", "a:buChar", "a:buBlip", "a:tabLst", "a:defRPr", "a:extLst"});
      setAttribute(font, "typeface", "Arial");
      setAttribute(addBullet(properties, "a:buChar"), "char", "\xE2\x80\xA2");
    });
  }
};

class ParagraphFormatObject : public TextTarget<ParagraphFormatObject> {
 public:
  static constexpr const char* className = "ParagraphFormat";
  static const MemberTable<ParagraphFormatObject>& members() {
    using P = ParagraphFormatObject;
    static const MemberTable<P> table{
        property<&P::alignment, &P::setAlignment>(member::Alignment),
        property<&P::bullet>(member::Bullet),
        property<&P::indentLevel, &P::putIndentLevel>(member::IndentLevel),
    };
    return table;
  }

  ParagraphFormatObject(HostRef host, ShapeKey shape, TextSpan span, bool later)
      : TextTarget(std::move(host), std::move(shape), span), later_(later) {}
  std::string typeName() const override { return later_ ? "ParagraphFormat2" : className; }

  std::int32_t alignment() {
    return commonParagraph([](const LevelStyles& styles, xml_node paragraph) {
             const std::string_view name = styles.paragraph(paragraph.child("a:pPr"), "algn").as_string("l");
             const auto* found = std::ranges::find(alignments, name, &AlignmentName::name);
             return found != std::end(alignments) ? found->value : std::int32_t{host::ppAlignLeft};
           })
        .value_or(host::mixed);
  }
  void setAlignment(std::int32_t alignment) {
    const auto* found = std::ranges::find(alignments, alignment, &AlignmentName::value);
    if (found == std::end(alignments)) base::raise(base::errors::outOfRange);
    changeParagraphs(shape(), span(),
                     [&](xml_node properties) { setAttribute(properties, "algn", found->name.data()); });
  }

  host::ObjectRef bullet() { return std::make_shared<BulletFormatObject>(host(), shape(), span()); }

  std::int32_t indentLevel() {
    requireLater();
    return indentLevelOf(shape(), span());
  }
  void putIndentLevel(std::int32_t level) {
    requireLater();
    setIndentLevel(shape(), span(), level, mostLevels);
  }

 private:
  /// The earlier model has the level in the range itself.
  void requireLater() const {
    if (!later_) base::raise(base::errors::noSuchMember);
  }
  bool later_;
};

}  // namespace

host::ObjectRef makeParagraphFormat(const HostRef& host, const ShapeKey& shape, TextSpan span) {
  return std::make_shared<ParagraphFormatObject>(host, shape, span, false);
}
host::ObjectRef makeParagraphFormat2(const HostRef& host, const ShapeKey& shape, TextSpan span) {
  return std::make_shared<ParagraphFormatObject>(host, shape, span, true);
}

std::int32_t indentLevelOf(const ShapeKey& shape, TextSpan span) {
  const auto body = currentText(shape);
  if (body->paragraphs().empty()) return 1;
  const auto [first, last] = body->paragraphsIn(body->clipped(span));
  const int level = paragraphLevel(body->paragraphs()[first].node);
  for (std::size_t i = first; i <= last; ++i) {
    if (paragraphLevel(body->paragraphs()[i].node) != level) return host::mixed;
  }
  return level;
}

void setIndentLevel(const ShapeKey& shape, TextSpan span, std::int32_t level, std::int32_t most) {
  if (level < 1 || level > most) base::raise(base::errors::outOfRange);
  changeParagraphs(shape, span, [&](xml_node properties) {
    if (paragraphLevel(properties.parent()) == level) return;
    properties.remove_attribute("marL");
    properties.remove_attribute("indent");
    setAttribute(properties, "lvl", level - 1);
  });
}

}  // namespace vellumark::deck
