#include "core/err_form.h"

#include "base/trap.h"
#include "core/config.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/http.h"
#include "core/message.h"

namespace vellumark::core {
namespace {

constexpr ui::Color grey = ui::rgb(128, 128, 128);
constexpr ui::Color black = ui::rgb(0, 0, 0);

/// The dialog's own failures can't be shown in the dialog, so that they come in a message box.
template <typename Body>
void guarded(const char* location, Body&& body) {
  try {
    body();
  } catch (...) {
    const base::Error error = base::detail::currentError();
    message(location + error.description() + " (" + std::to_string(error.number()) + ")", ui::Icon::critical);
  }
}

/// The location of all procedures that have none of their own.
constexpr const char* commonLocation = "ErrForm, btnCancel_Click, ";

/// A white exclamation mark on a red disc.
void drawSign(ui::Canvas& canvas) {
  canvas.ellipse(0, 0, 32, 32, ui::rgb(192, 57, 43));
  canvas.rectangle(14, 7, 4, 12, ui::rgb(255, 255, 255));
  canvas.rectangle(14, 22, 4, 4, ui::rgb(255, 255, 255));
}

}  // namespace

ErrForm::ErrForm() : Form("ErrForm", std::string(productTitle)) {
  heading.bold(true);
  heading.fontScale(1.2);
  drawSign(Picture1.canvas());
  errDescription.wrapAt(64);
  errReport.multiLine(true);
  errReport.size(64, 6);
  errReport.foreColor(grey);
  contactHeading.wrapAt(64);
  tbName.size(40);
  tbContact.size(40);
  lPrivacyInfo.link(true);
  btnCancel.isCancel(true);

  layout(ui::column(
             {ui::row({ui::Box(Picture1), ui::column({ui::Box(heading), ui::Box(Label2)}).stretch().gap(1)})
                  .gap(3),
              ui::Box(errDescription), ui::Box(errReport).stretch(), ui::Box(contactHeading),
              ui::grid(2, {ui::Box(nameLabel), ui::Box(tbName).stretch(), ui::Box(contactLabel),
                           ui::Box(tbContact).stretch()}),
              ui::row({ui::Box(lPrivacyInfo), ui::space(), ui::Box(btnSendReport), ui::Box(btnCancel)})})
             .gap(3));

  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  onClick = [this] { Form_Click(); };
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&errDescription, &Label2, &Picture1, &tbContact}) {
    control->onClick = [this] { Form_Click(); };
  }
  errReport.onClick = [this] { errReport_Click(); };
  lPrivacyInfo.onClick = [this] { lPrivacyInfo_Click(); };
  lPrivacyInfo.onMouseMove = [this] { lPrivacyInfo_MouseMove(); };
  btnSendReport.onClick = [this] { btnSendReport_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void ErrForm::show(const std::string& description, std::int32_t number) {
  load();
  errDescription.caption(description);
  number_ = number;
}

void ErrForm::origin(const std::string& moduleName, const std::string& procedure) {
  class_ = moduleName;
  function_ = procedure;
}

void ErrForm::Form_Load() {
  guarded(commonLocation, [&] {
    reportPlaceholder_ = errReport.text();
    placeholderShown_ = true;
  });
}

void ErrForm::Form_Activate() {
  guarded("ErrForm, Form_Activate, ", [&] { topWindow(*this, true); });
}

void ErrForm::errReport_Click() {
  guarded(commonLocation, [&] {
    if (!placeholderShown_) return;
    reportPlaceholder_ = errReport.text();
    placeholderShown_ = false;
    errReport.text("");
    errReport.foreColor(black);
  });
}

/// Whoever clicks elsewhere with nothing typed sees the prompt again.
void ErrForm::Form_Click() {
  guarded(commonLocation, [&] {
    if (!errReport.text().empty()) return;
    placeholderShown_ = true;
    errReport.text(reportPlaceholder_);
    errReport.foreColor(grey);
  });
}

void ErrForm::lPrivacyInfo_Click() {
  guarded("ErrForm, lPrivacyInfo_Click, ", [&] { openURL(std::string(webBaseUrl) + "zorp_privacy.pdf"); });
}

/// The pointer over a link is a hand.
void ErrForm::lPrivacyInfo_MouseMove() {
  guarded("ErrForm, lPrivacyInfo_MouseMove, ", [&] {
    if (!lPrivacyInfo.link()) lPrivacyInfo.link(true);
  });
}

void ErrForm::btnCancel_Click() {
  guarded(commonLocation, [&] { unload(); });
}

void ErrForm::btnSendReport_Click() {
  guarded(commonLocation, [&] {
    const std::string report = errReport.text() == reportPlaceholder_ ? std::string() : errReport.text();
    const std::string body =
        "description=" + URLEncode(errDescription.caption()) + "&class=" + URLEncode(class_) +
        "&function=" + URLEncode(function_) + "&number=" + URLEncode(std::to_string(number_)) +
        "&report=" + URLEncode(report) + "&name=" + URLEncode(tbName.text()) +
        "&contact=" + URLEncode(tbContact.text()) + "&PPT=" + URLEncode(globals().powerPointApp.Version()) +
        "&version=" + URLEncode(std::string(addInVersion));
    // The whole answer is the status: a single zero is success, anything else an error to be shown as it
    // stands.
    const std::string answer =
        ByteArrayToString(HttpPost(std::string(webBaseUrl) + "errorreport.php", body, 0, 80, "", ""));
    if (answer.empty()) {
      message("Your error report could not be transmitted.\r\nPlease check your internet connection.",
              ui::Icon::critical);
    } else if (answer == "0") {
      message("Thank you for your error report.\r\nWe are working on resolving the issue.",
              ui::Icon::information);
    } else {
      message("Apologies, our server is currently unable to process your error report (" + answer +
                  ").\r\nPlease send us an e-mail with your error report: " + std::string(supportEmail),
              ui::Icon::critical);
    }
    unload();
  });
}

}  // namespace vellumark::core
