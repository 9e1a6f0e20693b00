#include "library/thumbnails.h"

#include <optional>

#include "base/conversions.h"
#include "base/error.h"
#include "core/config.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/registry.h"
#include "core/template_paths.h"
#include "core/xml.h"
#include "host/picture_gdi.h"
#include "library/configuration.h"
#include "library/hidden_presentation.h"
#include "library/my_elements.h"
#include "library/my_elements_index.h"
#include "platform/atomic_file.h"
#include "platform/file_date.h"
#include "platform/paths.h"

namespace vellumark::library {
namespace {

using core::globals;

constexpr std::uint32_t ground = 0x00FFFFFF;  ///< ARGB

/// Makes pictures one after the other and remembers whether one failed.
class Run {
 public:
  explicit Run(const Thumbnails& thumbnails) : thumbnails_(thumbnails) {}

  void make(const host::Slide& slide, const std::string& path) {
    slide.Shapes().Range().Copy();
    folder_ = path.substr(0, path.rfind('\\'));
    core::createFolder(folder_);
    if (host::renderClipboardToPng(thumbnails_.thumbsWidth, thumbnails_.thumbsHeight, ground, path) > 0) {
      failed_ = true;
    }
  }
  bool failed() const { return failed_; }
  /// Brings the pictures that were made to the disk, all at once.
  void flush() const {
    if (!folder_.empty()) platform::flushFolder(platform::toSystem(folder_));
  }
  void tell(const std::string& what) const {
    core::message("An error occurred creating the " + what + " thumbnail images.\r\nPlease contact us at " +
                      std::string(core::supportEmail) + " if the problem persists.",
                  ui::Icon::critical);
  }

 private:
  const Thumbnails& thumbnails_;
  std::string folder_;
  bool failed_ = false;
};

void storeDate(const char* setting, double date) { core::setRegistry(setting, base::plainText(date), ""); }

}  // namespace

Thumbnails readThumbnails() {
  Thumbnails thumbnails;
  thumbnails.thumbsWidth = base::toInt16(core::getRegistry("thumbsWidth", "", "160"));
  thumbnails.thumbsHeight = base::toInt16(core::getRegistry("thumbsHeight", "", "120"));
  thumbnails.thumbsDate_slideWizard = base::val(core::getRegistry("thumbsDate_slideWizard", "", "0"));
  thumbnails.thumbsDate_myElements = base::val(core::getRegistry("thumbsDate_myElements", "", "0"));
  return thumbnails;
}

std::string slideWizardThumb(const std::string& file, const std::string& slideNo) {
  return globals().thumbsFolder + file + "_" + slideNo + ".png";
}

std::string myElementsThumb(const std::string& slideId) {
  return globals().myElementsFolder + "thumbs\\" + slideId + ".png";
}

/// Neighbouring elements of one template share one opening. The template that is open at the end stays so.
void createSlideWizardThumbs(Thumbnails& thumbnails) {
  double newest = 0;
  Run run(thumbnails);
  if (!globals().styleNames.empty()) {
    const std::string& style = globals().styleNames.front();
    host::Presentation open;
    for (const pugi::xpath_node& item : allMenuItems()) {
      const std::string file = core::attributeText(item.node(), "file");
      const std::string source = core::ribbonTemplatePath(style, file);
      if (!platform::fileExists(source)) continue;
      const double date = platform::lastModified(source);
      if (date <= thumbnails.thumbsDate_slideWizard) continue;
      if (date > newest) newest = date;
      if (!open) {
        open = openHidden(source);
      } else if (platform::fromSystem(open.FullName()) != platform::fromSystem(platform::toSystem(source))) {
        closeUnsaved(open);
        open = openHidden(source);
      }
      const std::string slideNo = core::attributeText(item.node(), "slideNo");
      run.make(open.Slides().Item(base::toInt16(slideNo)), slideWizardThumb(file, slideNo));
    }
  }
  if (run.failed()) return run.tell("Slide Wizard");
  run.flush();
  if (newest > thumbnails.thumbsDate_slideWizard) storeDate("thumbsDate_slideWizard", newest);
  thumbnails.thumbsChecked = true;
}

/// Only the setting takes on the new date, so that every opening of the menu in this connection makes the
/// pictures again once the store was changed.
void createMyElementsThumbs(const Thumbnails& thumbnails) {
  const std::string path = getMyElementsFile();
  Run run(thumbnails);
  std::optional<double> date;
  if (platform::fileExists(path)) {
    date = platform::lastModified(path);
    if (*date > thumbnails.thumbsDate_myElements) {
      const host::Presentation store = openHidden(path);
      for (const pugi::xpath_node& element : allElements()) {
        const std::string id = core::attributeText(element.node(), "slideID");
        run.make(store.Slides().FindBySlideID(base::toInt16(id)), myElementsThumb(id));
      }
      closeUnsaved(store);
    }
  }
  if (run.failed()) return run.tell("My Elements");
  if (!date) base::raise(base::errors::objectNotSet);
  run.flush();
  storeDate("thumbsDate_myElements", *date);
}

}  // namespace vellumark::library
