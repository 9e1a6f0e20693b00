#include "addin/connect.h"

#include <utility>

#include "addin/known_host.h"
#include "agenda/agenda_commands.h"
#include "base/conversions.h"
#include "base/text.h"
#include "commands/ppt_controls.h"
#include "commands/ppt_events.h"
#include "commands/ribbon_callbacks.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/registry.h"
#include "core/slide_extracts.h"
#include "host/running_call.h"
#include "library/configuration.h"
#include "platform/ansi.h"
#include "platform/instance_mutex.h"
#include "platform/paths.h"
#include "platform/random.h"
#include "services/icons.h"
#include "services/languages.h"
#include "services/splash.h"
#include "services/survey.h"
#include "tools/mouse_hook.h"
#include "tools/trimline_tools.h"

namespace vellumark::addin {

using core::globals;
using core::trap;

Connect::Connect(std::string addInFolder) : addInFolder_(std::move(addInFolder)) {
  core::installFailureRoute();
}

Connect::~Connect() {
  if (filled_) base::resumeNext([&] { disconnect(); });
}

void Connect::IDTExtensibility2_OnConnection(const host::Application& application, std::int32_t,
                                             const host::COMAddIn& addInInst, std::span<const host::Value>) {
  const host::RunningCall call;
  filled_ = true;
  if (std::exchange(leaving_, false)) return;  // all is still there
  trap("Connect, IDTExtensibility2_OnConnection", [&] {
    globals().hostMutex = std::make_unique<platform::InstanceMutex>(core::productTitle);
    if (application.isApplication()) start(application, addInInst);
  });
}

void Connect::start(const host::Application& application, const host::COMAddIn& addInInst) {
  core::Globals& g = globals();
  platform::randomize();
  g.addInInstance = addInInst;
  g.styleNames.clear();
  g.styleFolders.clear();
  g.copyrightNotices.clear();
  setFolders();
  g.powerPointApp = application;
  g.powerPointApp = knownHost(application);
  g.hostVersion = g.powerPointApp.Version();

  applicationEvents_ = std::make_unique<commands::pptEvents>();
  g.applicationEvents = applicationEvents_.get();
  applicationEvents_->PowerPointApp(g.powerPointApp);
  if (core::isHostVersion(host::toolbarHosts)) {
    toolbarControls_ = std::make_unique<commands::pptControls>();
    g.toolbarControls = toolbarControls_.get();
    toolbarControls_->PowerPointApp(g.powerPointApp);
  }
  tools_ = std::make_unique<tools::TrimlineTools>();
  g.tools = tools_.get();
  agenda_ = std::make_unique<agenda::AgendaCommands>();
  g.agenda = agenda_.get();

  g.screenSaverOff = base::toBool(core::getRegistry("screenSaverOff", "", "0"));
  services::showSplash();
  services::initializeLanguages();
  if (core::isHostVersion(host::toolbarHosts)) {
    toolbarControls_->CreateControls();
    applicationEvents_->toggleOff();
  }
  services::checkForSurvey();
}

/// The add-in's own folder lies directly below the root of the installation. The user's own configuration, if
/// there is one, replaces the delivered one as a whole.
void Connect::setFolders() {
  core::Globals& g = globals();
  g.rootFolder = addInFolder_.substr(0, addInFolder_.rfind('\\') + 1);
  g.userFolder = g.rootFolder + "user\\";
  g.myElementsFolder = g.userFolder + "myelements\\";
  g.configFolder =
      platform::fileExists(g.userFolder + "menu.xml") ? g.userFolder : g.rootFolder + "customization\\";
  g.iconsFolder = g.configFolder + "icons\\";
  g.stylesFolder = g.configFolder + "styles\\";
  g.thumbsFolder = g.stylesFolder + "thumbs\\";
  g.programFolder = g.rootFolder + "program\\";
  g.uiFolder = g.programFolder + "ui\\";
}

/// A dialog lets the host disconnect under a command that runs: it keeps what it stands on until it has
/// returned.
void Connect::IDTExtensibility2_OnDisconnection(std::int32_t, std::span<const host::Value>) {
  leaving_ = true;
  host::whenNoCallRuns([self = std::weak_ptr(self_)] {
    const auto connect = self.lock();
    if (connect && connect->leaving_) connect->disconnect();
  });
}

void Connect::disconnect() {
  filled_ = leaving_ = false;
  trap("Connect, IDTExtensibility2_OnDisconnection", [&] {
    if (globals().powerPointApp) release();
    // What else the connection filled goes with it; the mark for other programs goes last.
    const auto mutex = std::move(globals().hostMutex);
    globals() = core::Globals{};
  });
}

/// Each step tests what it clears: the connection may have ended half-way.
void Connect::release() {
  core::Globals& g = globals();
  killSlideExtracts();
  g.powerPointApp = {};
  if (applicationEvents_) applicationEvents_->PowerPointApp({});
  g.applicationEvents = nullptr;
  applicationEvents_.reset();
  if (toolbarControls_) {
    toolbarControls_->DeleteControls();
    toolbarControls_->PowerPointApp({});
    g.toolbarControls = nullptr;
    toolbarControls_.reset();
  }
  g.agenda = nullptr;
  agenda_.reset();
  g.tools = nullptr;
  tools_.reset();
  tools::mouseHook::remove();  // where the dialog that set it is still open
  services::unloadSplash();
  services::unloadIcons();
}

void Connect::killSlideExtracts() {
  trap("Connect, killSlideExtracts", [] { core::deleteSlideExtracts(); });
}

void Connect::IDTExtensibility2_OnAddInsUpdate(std::span<const host::Value>) {
  trap("Connect, IDTExtensibility2_OnAddInsUpdate", [] {});
}

void Connect::IDTExtensibility2_OnStartupComplete(std::span<const host::Value>) {
  trap("Connect, IDTExtensibility2_OnStartupComplete", [] {});
}

void Connect::IDTExtensibility2_OnBeginShutdown(std::span<const host::Value>) {
  trap("Connect, IDTExtensibility2_OnBeginShutdown", [] {});
}

/// Some hosts ask for the ribbon before they connect.
std::string Connect::IRibbonExtensibility_GetCustomUI(const std::string&) {
  if (globals().uiFolder.empty()) setFolders();
  return platform::fromAnsi(platform::readFile(globals().uiFolder + "zorpUI.xml"));
}

void Connect::onLoad(const host::IRibbonUI& ribbon) {
  thumbnails_ = library::readThumbnails();
  globals().ribbonUI = ribbon;
  library::loadConfiguration(library::Surface::ribbon);
}

void Connect::onAction(const host::IRibbonControl& control) { commands::onAction(control); }

void Connect::onActionTB(const host::IRibbonControl& control, bool pressed) {
  commands::onActionTB(control, pressed);
}

void Connect::copyright_onAction(const host::IRibbonControl& control) {
  commands::copyright_onAction(control);
}

bool Connect::getEnabled(const host::IRibbonControl& control) { return commands::getEnabled(control); }

bool Connect::getVisible(const host::IRibbonControl& control) { return commands::getVisible(control); }

std::string Connect::getLabel(const host::IRibbonControl& control) { return commands::getLabel(control); }

bool Connect::getPressed(const host::IRibbonControl& control) { return commands::getPressed(control); }

host::ObjectRef Connect::getImage(const host::IRibbonControl& control) { return commands::getImage(control); }

std::string Connect::copyright_getContent(const host::IRibbonControl& control) {
  return commands::copyright_getContent(control);
}

std::int16_t Connect::style_getItemCount(const host::IRibbonControl& control) {
  return commands::style_getItemCount(control);
}

std::string Connect::style_getItemLabel(const host::IRibbonControl& control, std::int32_t index) {
  return commands::style_getItemLabel(control, index);
}

std::int16_t Connect::style_getSelectedItemIndex(const host::IRibbonControl& control) {
  return commands::style_getSelectedItemIndex(control);
}

void Connect::style_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                             std::int32_t selectedIndex) {
  commands::style_onAction(control, selectedId, selectedIndex);
}

std::string Connect::slideWizard_getContent(const host::IRibbonControl& control) {
  return commands::slideWizard_getContent(control, thumbnails_);
}

std::int16_t Connect::slideWizard_getItemCount(const host::IRibbonControl& control) {
  return commands::slideWizard_getItemCount(control);
}

std::string Connect::slideWizard_getItemLabel(const host::IRibbonControl& control, std::int32_t index) {
  return commands::slideWizard_getItemLabel(control, index);
}

host::ObjectRef Connect::slideWizard_getItemImage(const host::IRibbonControl& control, std::int32_t index) {
  return commands::slideWizard_getItemImage(control, index);
}

void Connect::slideWizard_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                                   std::int32_t selectedIndex) {
  commands::slideWizard_onAction(control, selectedId, selectedIndex);
}

std::string Connect::myElements_getContent(const host::IRibbonControl& control) {
  return commands::myElements_getContent(control, thumbnails_);
}

std::int16_t Connect::myElements_getItemCount(const host::IRibbonControl& control) {
  return commands::myElements_getItemCount(control);
}

std::string Connect::myElements_getItemLabel(const host::IRibbonControl& control, std::int32_t index) {
  return commands::myElements_getItemLabel(control, index);
}

host::ObjectRef Connect::myElements_getItemImage(const host::IRibbonControl& control, std::int32_t index) {
  return commands::myElements_getItemImage(control, index);
}

void Connect::myElements_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                                  std::int32_t selectedIndex) {
  commands::myElements_onAction(control, selectedId, selectedIndex);
}

}  // namespace vellumark::addin
