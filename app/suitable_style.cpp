#include "suitable_style.h"

#include "core/globals.h"
#include "core/template_paths.h"

namespace vellumark::app {

bool staysOnSlides(const agenda::AgendaDocument& document, double width, double height) {
  const pugi::xml_node frame = document.format();
  const auto lies = [&](const char* start, const char* length, double limit) {
    const double first = agenda::number(frame, start);
    return first >= 0 && first + agenda::number(frame, length) <= limit;
  };
  return lies("left", "width", width) && lies("top", "height", height);
}

std::string styleForSlides(double width, double height) {
  std::string best;
  double bestWidth = 0;
  const auto& names = core::globals().styleNames;
  for (std::size_t i = 0; i < names.size(); ++i) {
    agenda::AgendaDocument look;
    try {
      if (!look.load(core::agendaTemplatePath(static_cast<std::int32_t>(i) + 1)) ||
          !staysOnSlides(look, width, height)) {
        continue;
      }
      const double rows = agenda::number(look.format(), "width");
      if (rows <= bestWidth) continue;
      bestWidth = rows;
      best = names[i];
    } catch (const base::Error&) {
      // A template that lacks its frame is none to choose; the dialog tells when it is asked for.
    }
  }
  return best;
}

}  // namespace vellumark::app
