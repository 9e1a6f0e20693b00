#include "library/insertion.h"

#include <vector>

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/slide_in_view.h"
#include "core/template_paths.h"
#include "library/hidden_presentation.h"

namespace vellumark::library {
namespace {

using core::globals;

void carry(const host::Slide& slide) {
  slide.Shapes().Range().Copy();
  globals().powerPointApp.ActiveWindow().View().Paste();
}

const std::string& field(const std::vector<std::string>& fields, std::size_t place) {
  if (place >= fields.size()) base::raise(base::errors::subscript);
  return fields[place];
}

}  // namespace

void insertSlide(const std::string& path, const std::function<host::Slide(const host::Slides&)>& find) {
  const host::Presentation source = openHidden(path);
  carry(find(source.Slides()));
  closeUnsaved(source);
}

void conjure(const host::CommandBarButton& button, const std::string& styleFolder, bool isMyElements) {
  std::string path;
  core::trap(
      "SlideWizard, conjure",
      [&] {
        if (!core::requireSlideInView("adding elements")) return;
        host::Presentation source;
        if (isMyElements) {
          path = globals().myElementsFolder + "myelements.ppt";
          source = openHidden(path);
          carry(source.Slides().FindBySlideID(base::toInt32(button.Parameter())));
        } else {
          const std::vector<std::string> fields = base::split(button.Parameter(), ',');
          path = core::toolbarTemplatePath(styleFolder, field(fields, 0));
          source = openHidden(path);
          carry(source.Slides().Item(base::toInt32(field(fields, 1))));
        }
        source.Close();
      },
      [&](const base::Error& error) {
        if (error.number() != base::errors::unspecific) return false;
        core::message("Template '" + path + "' could not be opened.", ui::Icon::critical);
        return true;
      });
}

}  // namespace vellumark::library
