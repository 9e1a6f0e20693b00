#include "deck/model/color_scheme.h"

#include "deck/model/color.h"
#include "deck/model/member_table.h"
#include "deck/model/theme.h"

namespace vellumark::deck {
namespace {

void requireSheet(const Sheet& sheet) {
  if (sheet.document->closed() || sheet.part->removed()) base::raise(base::errors::invalidRequest);
}

class RgbColorObject : public ModelObject<RgbColorObject> {
 public:
  static constexpr const char* className = "RGBColor";
  static const MemberTable<RgbColorObject>& members() {
    static const MemberTable<RgbColorObject> table{property<&RgbColorObject::rgb>(member::RGB)};
    return table;
  }
  RgbColorObject(HostRef host, Sheet sheet, std::string_view place)
      : ModelObject(std::move(host)), sheet_(std::move(sheet)), place_(place) {}
  void requireAlive() const { requireSheet(sheet_); }

  std::int32_t rgb() { return colorNumber(sheet_, schemeColorElement(sheet_, place_)); }

 private:
  Sheet sheet_;
  std::string_view place_;  ///< as sheets name it: "tx1"
};

class ColorSchemeObject : public ModelObject<ColorSchemeObject> {
 public:
  static constexpr const char* className = "ColorScheme";
  static const MemberTable<ColorSchemeObject>& members() {
    static const MemberTable<ColorSchemeObject> table{
        property<&ColorSchemeObject::count>(member::Count),
        method<&ColorSchemeObject::colors>(member::Colors, 1),
    };
    return table;
  }
  ColorSchemeObject(HostRef host, Sheet sheet) : ModelObject(std::move(host)), sheet_(std::move(sheet)) {}
  void requireAlive() const { requireSheet(sheet_); }

  std::int32_t count() { return 8; }
  host::ObjectRef colors(Arguments arguments) {
    const std::string_view place = schemeName(arguments[0].toInt());
    if (place.empty()) base::raise(base::errors::outOfRange);
    return std::make_shared<RgbColorObject>(host(), sheet_, place);
  }

 private:
  Sheet sheet_;
};

}  // namespace

host::ObjectRef makeColorScheme(const HostRef& host, const Sheet& sheet) {
  return std::make_shared<ColorSchemeObject>(host, sheet);
}

}  // namespace vellumark::deck
