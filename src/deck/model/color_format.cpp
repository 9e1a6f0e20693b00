#include "deck/model/color_format.h"

#include <utility>

#include "deck/model/color.h"
#include "deck/model/member_table.h"

namespace vellumark::deck {
namespace {

class ColorFormatObject : public ModelObject<ColorFormatObject> {
 public:
  static constexpr const char* className = "ColorFormat";
  static const MemberTable<ColorFormatObject>& members() {
    using C = ColorFormatObject;
    static const MemberTable<C> table{
        property<&C::rgb, &C::setRgb>(member::RGB),
        property<&C::schemeColor, &C::setSchemeColor>(member::SchemeColor),
    };
    return table;
  }

  ColorFormatObject(HostRef host, ColorPlace place)
      : ModelObject(std::move(host)), place_(std::move(place)) {}
  void requireAlive() const {
    if (place_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t rgb() {
    const ColorPlace::Found found = place_.find();
    return colorNumber(place_.sheet, found.element, found.placeholder);
  }
  void setRgb(std::int32_t rgb) {
    if (rgb < 0 || rgb > 0xFFFFFF) base::raise(base::errors::outOfRange);
    place_.change([&](pugi::xml_node holder) { setColor(holder, rgb); });
    place_.sheet.touch(Change::contents);
  }

  /// 0 where the colour is not one of the scheme.
  std::int32_t schemeColor() { return schemeIndex(place_.find().element.attribute("val").value()); }
  void setSchemeColor(std::int32_t index) {
    const std::string_view name = schemeName(index);
    if (name.empty()) base::raise(base::errors::outOfRange);
    place_.change([&](pugi::xml_node holder) { setThemeColor(holder, name); });
    place_.sheet.touch(Change::contents);
  }

 private:
  ColorPlace place_;
};

}  // namespace

host::ObjectRef makeColorFormat(const HostRef& host, ColorPlace place) {
  return std::make_shared<ColorFormatObject>(host, std::move(place));
}

}  // namespace vellumark::deck
