#include "tools/slide_extract.h"

#include <algorithm>
#include <cstdint>

#include "base/conversions.h"
#include "base/text.h"
#include "base/web_address.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/slide_extracts.h"
#include "platform/clock.h"
#include "platform/file_state.h"
#include "platform/paths.h"
#include "tools/host_age.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

/// "20260131093015".
std::string timeStamp() {
  const double now = platform::now();
  return base::replaceAll(base::isoDate(now), "-", "") + base::replaceAll(base::isoTime(now), ":", "");
}

/// Whether a path leads to a presentation that is open, under whatever name.
bool isOpen(const std::string& path) {
  const host::Presentations presentations = core::globals().powerPointApp.Presentations();
  const int count = presentations.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Presentation presentation = presentations.Item(i);
    if (!presentation.Path().empty() && platform::isSameFile(path, presentation.FullName())) return true;
  }
  return false;
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

// Where it fails the flag stays set, the result is empty, and what was opened is closed again.
std::string TrimlineTools::extractSelectedSlides() {
  host::Presentation extract;
  return trap(
      "TrimlineTools, emailSelectedSlides",
      [&] {
        const host::Application& application = core::globals().powerPointApp;
        bool& noWarning = core::globals().applicationEvents->noTempFolderWarning;
        noWarning = true;
        const host::DocumentWindow window = application.ActiveWindow();
        std::vector<int> ids;
        for (const host::Slide& slide : slidesOf(window.Selection().SlideRange())) {
          ids.push_back(slide.SlideID());
        }

        const std::string path = core::newSlideExtract("zorp" + timeStamp() + getExtension());
        window.Presentation().SaveCopyAs(path, host::ppSaveAsDefault, host::msoTriStateMixed);
        core::rememberSlideExtract(path);

        extract = application.Presentations().Open(path, false, false, false);
        const host::Slides slides = extract.Slides();
        for (int i = slides.Count(); i >= 1; --i) {
          const host::Slide slide = slides.Item(i);
          if (std::ranges::find(ids, slide.SlideID()) == ids.end()) slide.Delete();
        }
        extract.Save();
        extract.Close();
        noWarning = false;
        return path;
      },
      [&](const base::Error&) {
        if (!extract) return false;
        core::resumeNext([&] { extract.Saved(true); });
        core::resumeNext([&] { extract.Close(); });
        return false;
      });
}

void TrimlineTools::saveSelectedSlides() {
  trap("TrimlineTools, saveSelectedSlides", [&] {
    const host::Application& application = core::globals().powerPointApp;
    const std::string extract = extractSelectedSlides();
    if (extract.empty()) return;  // that was reported
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
    if (isOpen(chosen)) {
      core::message("The selected slides can't be saved as '" + chosen +
                        "', because that presentation is open.\r\nPlease choose another file.",
                    ui::Icon::critical);
      return;
    }
    platform::copyFile(extract, chosen);
    application.Presentations().Open(chosen, false, false, true);
  });
}

}  // namespace vellumark::tools
