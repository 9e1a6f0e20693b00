#include "tools/email_slides.h"

#include "base/conversions.h"
#include "base/text.h"
#include "base/web_address.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "platform/clock.h"
#include "platform/paths.h"
#include "platform/shell.h"
#include "tools/slide_extract.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

/// The name of a presentation's file without folder and extension.
std::string baseName(const host::Presentation& presentation) {
  const std::string full = presentation.FullName();
  const bool web = base::isWebAddress(full);
  const std::string name = web ? base::percentDecoded(full) : platform::fromSystem(full);
  const std::size_t begin = name.rfind(web ? '/' : '\\') + 1;  // npos + 1 is 0
  const std::size_t dot = name.rfind('.');
  return name.substr(begin, dot == std::string::npos || dot < begin ? dot : dot - begin);
}

/// "2026-01-31_09-30-15".
std::string timeStamp() {
  const double now = platform::now();
  return base::isoDate(now) + "_" + base::replaceAll(base::isoTime(now), ":", "-");
}

}  // namespace

emailSelectedSlidesInput::emailSelectedSlidesInput()
    : Form("emailSelectedSlidesInput", "E-mail selected slides") {
  tbFileName.size(48);
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(ui::column({ui::Box(lFileName), ui::Box(tbFileName),
                     ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void emailSelectedSlidesInput::btnOK_Click() {
  trap("emailSelectedSlidesInput, btnOK_Click", [&] {
    if (base::trim(tbFileName.text()).empty()) {
      core::message("Please enter a file name for the e-mail attachment.", ui::Icon::information);
      return;
    }
    std::string name = tbFileName.text();
    if (!core::isValidFileName(name)) {
      core::message("The following characters are not allowed: \\/:*?\"<>|", ui::Icon::information);
      return;
    }
    if (!tbFileName.text().ends_with(extension)) tbFileName.text(tbFileName.text() + extension);
    hide();
  });
}

void emailSelectedSlidesInput::btnCancel_Click() {
  trap("emailSelectedSlidesInput, btnCancel_Click", [&] {
    cancelled_ = true;
    hide();
  });
}

void TrimlineTools::emailSelectedSlides() {
  trap("TrimlineTools, emailSelectedSlides", [&] {
    const std::string base = baseName(core::globals().powerPointApp.ActivePresentation());
    emailSelectedSlidesInput input;
    input.tbFileName.text(base + "_extract_" + timeStamp() + getExtension());
    input.extension = getExtension();
    input.showModal();
    if (input.cancelled()) return;
    const std::string name = input.tbFileName.text();
    input.unload();
    const std::string extract = extractSelectedSlides();
    if (extract.empty()) return;  // that was reported
    platform::mailFile(core::globals().programFolder + "zorpm.exe", name, extract);
  });
}

}  // namespace vellumark::tools
