#include "agenda/agenda_colors.h"

#include "agenda/agenda_document.h"
#include "agenda/agenda_ties.h"
#include "base/conversions.h"
#include "core/xml.h"

namespace vellumark::agenda {

using core::attributeText;

void setColor(const host::ColorFormat& color, const std::string& value) {
  if (!value.starts_with('#')) return color.SchemeColor(base::toInt16(value));
  const auto part = [&](std::size_t position) {
    return base::toInt32("&H" + (position < value.size() ? value.substr(position, 2) : std::string()));
  };
  const std::int32_t red = part(1), green = part(3), blue = part(5);
  color.RGB(red | green << 8 | blue << 16);
}

void colorShape(const host::Shape& shape, const char* kind, const pugi::xml_node& look) {
  shape.Tags().Add(tags::kind, kind);
  setColor(shape.Fill().ForeColor(), attributeText(look, "fillColor"));
  shape.Fill().Visible(flag(look, "fillVisible"));
  setColor(shape.Line().ForeColor(), attributeText(look, "lineColor"));
  shape.Line().Weight(base::toSingle(number(look, "lineWeight")));
  shape.Line().Visible(flag(look, "lineVisible"));
}

}  // namespace vellumark::agenda
