#include "deck/model/font.h"

#include <cmath>
#include <string>
#include <utility>

#include "base/xml_storable.h"
#include "deck/model/auto_size.h"
#include "deck/model/color.h"
#include "deck/model/color_format.h"
#include "deck/model/locales.h"
#include "deck/model/shape_node.h"
#include "deck/model/text_target.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int32_t noProofing = 1024;

class FontObject : public TextTarget<FontObject> {
 public:
  static constexpr const char* className = "Font";
  static const MemberTable<FontObject>& members() {
    using F = FontObject;
    static const MemberTable<F> table{
        property<&F::name, &F::setName>(member::Name),
        property<&F::size, &F::setSize>(member::Size),
        property<&F::flag<boldName>, &F::setFlag<boldName>>(member::Bold),
        property<&F::flag<italicName>, &F::setFlag<italicName>>(member::Italic),
        property<&F::underline, &F::setUnderline>(member::Underline),
        property<&F::color>(member::Color),
    };
    return table;
  }
  using TextTarget::TextTarget;

  std::string name() {
    return common([&](const LevelStyles& styles, xml_node, xml_node run) {
             return characterFormat(shape(), styles, run).face.family;
           })
        .value_or(std::string());
  }
  void setName(const std::string& name) {
    const std::string family = base::xmlStorable(name);
    if (family.empty()) base::raise(base::errors::outOfRange);
    change([&](xml_node properties) {
      setAttribute(
          childInOrder(properties, "a:latin",
                       {"a:ea", "a:cs", "a:sym", "a:hlinkClick", "a:hlinkMouseOver", "a:rtl", "a:extLst"}),
          "typeface", family.c_str());
    });
  }

  float size() {
    return common([&](const LevelStyles& styles, xml_node, xml_node run) {
             return static_cast<float>(characterFormat(shape(), styles, run).size);
           })
        .value_or(static_cast<float>(host::mixed));
  }
  void setSize(float points) {
    constexpr float least = 1, most = 4000;
    if (!(points >= least && points <= most)) base::raise(base::errors::outOfRange);
    const auto hundredths = static_cast<int>(std::lround(points * 100));
    change([&](xml_node properties) { setAttribute(properties, "sz", hundredths); });
  }

  template <const char* attribute>
  std::int32_t flag() {
    const auto value = common(
        [&](const LevelStyles& styles, xml_node, xml_node run) { return styles.runFlag(run, attribute); });
    return value ? (*value ? host::msoTrue : host::msoFalse) : host::mixed;
  }
  template <const char* attribute>
  void setFlag(std::int32_t on) {
    change([&](xml_node properties) { setAttribute(properties, attribute, on != 0 ? "1" : "0"); });
  }

  std::int32_t underline() {
    const auto value = common([&](const LevelStyles& styles, xml_node, xml_node run) {
      return std::string_view(styles.run(run, "u").as_string("none")) != "none";
    });
    return value ? (*value ? host::msoTrue : host::msoFalse) : host::mixed;
  }
  void setUnderline(std::int32_t on) {
    change([&](xml_node properties) { setAttribute(properties, "u", on != 0 ? "sng" : "none"); });
  }

  host::ObjectRef color() {
    ColorPlace place;
    place.sheet = shape().sheet;
    place.deleted = [shape = shape()] { return shape.deleted(); };
    // The colour of the first character stands for all.
    place.find = [shape = shape(), span = span()]() -> ColorPlace::Found {
      const auto body = currentText(shape);
      const std::vector<TextBody::Format> formats = body->formats(body->clipped(span));
      const TextBody::Format first = formats.empty() ? TextBody::Format() : formats.front();
      return {characterColor(shape, LevelStyles(shape, paragraphLevel(first.paragraph)), first.properties),
              {}};
    };
    place.change = [shape = shape(), span = span()](const std::function<void(xml_node)>& write) {
      TextBody(shape).changeFormats(span, [&](xml_node properties) {
        for (const char* other : {"a:noFill", "a:gradFill", "a:blipFill", "a:pattFill", "a:grpFill"}) {
          properties.remove_child(other);
        }
        write(childInOrder(
            properties, "a:solidFill",
            {"a:effectLst", "a:effectDag", "a:highlight", "a:uLnTx", "a:uLn", "a:uFillTx", "a:uFill",
             "a:latin", "a:ea", "a:cs", "a:sym", "a:hlinkClick", "a:hlinkMouseOver", "a:rtl", "a:extLst"}));
      });
    };
    return makeColorFormat(host(), std::move(place));
  }

 private:
  static constexpr char boldName[] = "b";
  static constexpr char italicName[] = "i";

  void change(const std::function<void(xml_node)>& write) {
    TextBody(shape()).changeFormats(span(), write);
    textChanged(shape());
  }
};

}  // namespace

host::ObjectRef makeFont(const HostRef& host, const ShapeKey& shape, TextSpan span) {
  return std::make_shared<FontObject>(host, shape, span);
}

std::int32_t languageOf(const ShapeKey& shape, TextSpan span) {
  const auto body = currentText(shape);
  std::optional<std::int32_t> language;
  for (const TextBody::Format& format : body->formats(body->clipped(span))) {
    const LevelStyles styles(shape, paragraphLevel(format.paragraph));
    const std::int32_t id = styles.run(format.properties, "noProof").as_bool()
                                ? noProofing
                                : localeId(styles.run(format.properties, "lang").value());
    if (language && *language != id) return host::mixed;
    language = id;
  }
  return language.value_or(0);
}

void setLanguage(const ShapeKey& shape, TextSpan span, std::int32_t id) {
  const std::string tag(localeTag(id));
  if (tag.empty() && id != noProofing) base::raise(base::errors::outOfRange);
  TextBody(shape).changeFormats(span, [&](xml_node properties) {
    if (id == noProofing) {
      setAttribute(properties, "noProof", "1");
    } else {
      properties.remove_attribute("noProof");
      setAttribute(properties, "lang", tag.c_str());
    }
  });
  shape.sheet.touch(Change::contents);
}

}  // namespace vellumark::deck
