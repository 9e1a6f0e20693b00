#include "tools/slide_extract.h"

#include <algorithm>
#include <cstdint>

#include "base/conversions.h"
#include "base/text.h"
#include "base/web_address.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/registry.h"
#include "platform/clock.h"
#include "platform/paths.h"
#include "tools/host_age.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

constexpr const char* extractsSetting = "slideExtracts";

/// "20260131093015".
std::string timeStamp() {
  const double now = platform::now();
  return base::replaceAll(base::isoDate(now), "-", "") + base::replaceAll(base::isoTime(now), ":", "");
}

/// Only the host itself writes into the cloud.
void uploadExtract(const host::Application& application, const std::string& extract,
                   const std::string& address) {
  bool& noWarning = core::globals().applicationEvents->noTempFolderWarning;
  noWarning = true;
  application.Presentations().Open(extract, false, false, true).SaveAs(address);
  noWarning = false;
}

}  // namespace

std::string getExtension() { return hostAge() == HostAge::old ? ".ppt" : ".pptx"; }

std::vector<host::Slide> slidesOf(const host::SlideRange& range) {
  std::vector<host::Slide> slides;
  const int count = range.Count();
  for (int i = 1; i <= count; ++i) slides.push_back(range.Item(i));
  return slides;
}

// Where it fails the flag stays set.
std::string TrimlineTools::extractSelectedSlides() {
  return trap("TrimlineTools, emailSelectedSlides", [&] {
    const host::Application& application = core::globals().powerPointApp;
    bool& noWarning = core::globals().applicationEvents->noTempFolderWarning;
    noWarning = true;
    const host::DocumentWindow window = application.ActiveWindow();
    std::vector<int> ids;
    for (const host::Slide& slide : slidesOf(window.Selection().SlideRange())) ids.push_back(slide.SlideID());

    const std::string path = core::getTmpPath() + "zorp" + timeStamp() + getExtension();
    window.Presentation().SaveCopyAs(path, host::ppSaveAsDefault, host::msoTriStateMixed);
    core::setRegistry(extractsSetting, core::getRegistry(extractsSetting, "", "") + path + ";", "");

    const host::Presentation extract = application.Presentations().Open(path, false, false, false);
    const host::Slides slides = extract.Slides();
    for (int i = slides.Count(); i >= 1; --i) {
      const host::Slide slide = slides.Item(i);
      if (std::ranges::find(ids, slide.SlideID()) == ids.end()) slide.Delete();
    }
    extract.Save();
    extract.Close();
    noWarning = false;
    return path;
  });
}

void TrimlineTools::saveSelectedSlides() {
  trap("TrimlineTools, saveSelectedSlides", [&] {
    const host::Application& application = core::globals().powerPointApp;
    const std::string extract = extractSelectedSlides();
    const host::FileDialog dialog = application.FileDialog(host::msoFileDialogSaveAs);
    std::string folder = application.ActivePresentation().Path();
    // The host's own choice is better than an address that no file dialog can begin at.
    if (base::isWebAddress(folder)) folder.clear();
    if (!folder.empty()) folder += "\\";
    dialog.InitialFileName(folder);
    dialog.FilterIndex(2);
    dialog.InitialView(1);
    dialog.Title("Save selected slides as new presentation");
    if (dialog.Show() == host::msoFalse) return;
    const std::string chosen = dialog.SelectedItems().Item(1);
    if (base::isWebAddress(chosen)) return uploadExtract(application, extract, chosen);
    platform::copyFile(extract, chosen);
    application.Presentations().Open(chosen, false, false, true);
  });
}

}  // namespace vellumark::tools
