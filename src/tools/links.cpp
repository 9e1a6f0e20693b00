// Commands that only open something.

#include <string>

#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

constexpr int referenceTopic = 1000;

std::string page(const char* path) { return std::string(core::webBaseUrl) + path; }

}  // namespace

void TrimlineTools::tutorialVideos() {
  trap("TrimlineTools, tutorialVideos", [] { core::openURL(page("en/tutorials/")); });
}

void TrimlineTools::gettingStarted() {
  trap("TrimlineTools, gettingStarted", [] { core::openURL(page("en/gettingstarted/")); });
}

void TrimlineTools::FAQ() {
  trap("TrimlineTools, FAQ", [] { core::openURL(page("en/faq/")); });
}

void TrimlineTools::homepage() {
  trap("TrimlineTools, homepage", [] { core::openURL(page("")); });
}

void TrimlineTools::recommend() {
  trap("TrimlineTools, recommend", [] { core::openURL(page("zorp_recommend.pdf")); });
}

void TrimlineTools::feedback() {
  trap("TrimlineTools, feedback", [] {
    core::openURL("mailto:" + std::string(core::feedbackEmail) +
                  "?subject=Feedback on Vellumark for presentations");
  });
}

void TrimlineTools::reference() {
  trap("TrimlineTools, reference", [] { core::showHelpContextID(referenceTopic); });
}

// Updating is the work of a second add-in, which is connected where it isn't and asked to look.
void TrimlineTools::startUpdate() {
  trap("TrimlineTools, startUpdate", [] {
    const host::COMAddIns addIns = core::globals().powerPointApp.COMAddIns();
    for (int i = 1; i <= addIns.Count(); ++i) {
      const host::COMAddIn addIn = addIns.Item(i);
      if (addIn.ProgId() != core::updaterProgId) continue;
      if (!addIn.Connect()) addIn.Connect(true);
      host::callByName(addIn.Object(), "check");
      return;
    }
    core::message(
        "The Add-In for automatic updates has not been installed correctly. "
        "Please check your installation and contact us at " +
            std::string(core::supportEmail) + " if the problem persists.",
        ui::Icon::critical);
  });
}

}  // namespace vellumark::tools
