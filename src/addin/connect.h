#pragma once
// The one entry object of the add-in.

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "host/application.h"
#include "host/ribbon.h"
#include "library/thumbnails.h"

namespace vellumark::agenda {
class AgendaCommands;
}
namespace vellumark::commands {
class pptControls;
class pptEvents;
}  // namespace vellumark::commands
namespace vellumark::tools {
class TrimlineTools;
}

namespace vellumark::addin {

/// Builds everything up when the host connects the add-in and releases it in reverse when the host lets go,
/// and passes the ribbon's callbacks on. The host calls the members under these names. Only the connection
/// events have error traps: a failure in what the ribbon calls goes to the host.
class Connect {
 public:
  /// `addInFolder` is the folder of the add-in's own file, in the logic's form ("C:\Vellumark\addin").
  explicit Connect(std::string addInFolder);
  /// Disconnects, if the host didn't. None of its calls may still run.
  ~Connect();
  Connect(const Connect&) = delete;
  Connect& operator=(const Connect&) = delete;

  // The host's add-in interface. Connect mode, remove mode and custom arguments are not looked at.

  /// Starts the add-in; an application other than PowerPoint is left alone.
  void IDTExtensibility2_OnConnection(const host::Application& application, std::int32_t connectMode,
                                      const host::COMAddIn& addInInst, std::span<const host::Value> custom);
  /// Releases everything, when the calls of the host that run have returned.
  void IDTExtensibility2_OnDisconnection(std::int32_t removeMode, std::span<const host::Value> custom);
  void IDTExtensibility2_OnAddInsUpdate(std::span<const host::Value> custom);
  void IDTExtensibility2_OnStartupComplete(std::span<const host::Value> custom);
  void IDTExtensibility2_OnBeginShutdown(std::span<const host::Value> custom);

  /// The definition of the ribbon: one for every kind of host window. 53 or 76 where its file is missing.
  std::string IRibbonExtensibility_GetCustomUI(const std::string& ribbonId);

  // Callbacks that the definition names.

  /// The ribbon was loaded: finishes the start with the Slide Wizard configuration and My Elements.
  void onLoad(const host::IRibbonUI& ribbon);
  void onAction(const host::IRibbonControl& control);
  void onActionTB(const host::IRibbonControl& control, bool pressed);
  void copyright_onAction(const host::IRibbonControl& control);
  bool getEnabled(const host::IRibbonControl& control);
  bool getVisible(const host::IRibbonControl& control);
  std::string getLabel(const host::IRibbonControl& control);
  bool getPressed(const host::IRibbonControl& control);
  host::ObjectRef getImage(const host::IRibbonControl& control);
  std::string copyright_getContent(const host::IRibbonControl& control);
  std::int16_t style_getItemCount(const host::IRibbonControl& control);
  std::string style_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
  std::int16_t style_getSelectedItemIndex(const host::IRibbonControl& control);
  void style_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                      std::int32_t selectedIndex);
  std::string slideWizard_getContent(const host::IRibbonControl& control);
  std::int16_t slideWizard_getItemCount(const host::IRibbonControl& control);
  std::string slideWizard_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
  host::ObjectRef slideWizard_getItemImage(const host::IRibbonControl& control, std::int32_t index);
  void slideWizard_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                            std::int32_t selectedIndex);
  std::string myElements_getContent(const host::IRibbonControl& control);
  std::int16_t myElements_getItemCount(const host::IRibbonControl& control);
  std::string myElements_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
  host::ObjectRef myElements_getItemImage(const host::IRibbonControl& control, std::int32_t index);
  void myElements_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                           std::int32_t selectedIndex);

  const library::Thumbnails& thumbnails() const { return thumbnails_; }

 private:
  void setFolders();
  void start(const host::Application& application, const host::COMAddIn& addInInst);
  void disconnect();
  void release();
  void killSlideExtracts();

  std::string addInFolder_;
  bool filled_ = false;   ///< from the connection on, until everything is released
  bool leaving_ = false;  ///< the host has disconnected while one of its calls runs
  std::shared_ptr<Connect> self_{this, [](Connect*) {}};  ///< tells what waits whether this one still lives
  std::unique_ptr<commands::pptEvents> applicationEvents_;
  std::unique_ptr<commands::pptControls> toolbarControls_;  ///< only on hosts before the ribbon
  std::unique_ptr<tools::TrimlineTools> tools_;
  std::unique_ptr<agenda::AgendaCommands> agenda_;
  library::Thumbnails thumbnails_;
};

}  // namespace vellumark::addin
