#include "library/my_elements.h"

#include "base/error.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "library/hidden_presentation.h"
#include "library/my_elements_add.h"
#include "library/my_elements_index.h"
#include "library/my_elements_lock.h"
#include "library/my_elements_manager.h"
#include "platform/paths.h"

namespace vellumark::library {
namespace {

using core::globals;
using core::trap;

constexpr const char* elementsMenu = "zp_1027";

std::string storePath(const char* ending) { return globals().myElementsFolder + "myelements" + ending; }

/// Opens the store without a window, or makes it. A host with a ribbon moves a store of the older format to
/// its own once; the old file stays on the disk. `store` is set as soon as there is something to close.
void openStore(host::Presentation& store) {
  const std::string file = getMyElementsFile();
  const std::string own = storePath(core::isHostVersion(host::toolbarHosts) ? ".ppt" : ".pptx");
  const bool exists = platform::fileExists(file);
  if (exists) {
    store = openHidden(file);
  } else {
    store = globals().powerPointApp.Presentations().Add(false);
    core::createFolder(globals().myElementsFolder);
  }
  if (!exists || file != own) store.SaveAs(own, host::ppSaveAsDefault, host::msoFalse);
}

/// Puts what is on the clipboard on a new slide of the store; the slide's id.
std::int32_t pasteIntoStore(const host::Presentation& store) {
  const host::Slides slides = store.Slides();
  const host::Slide slide = slides.Add(slides.Count() + 1, host::ppLayoutBlank);
  const std::int32_t id = slide.SlideID();
  slide.Shapes().Paste();
  return id;
}

void enterIntoIndex(const myElementsAdd& dialog, std::int32_t slideID) {
  if (!globals().myElementsDoc) {
    core::message(
        "An unexpected error occurred adding to the 'My Elements' collection.\r\nPlease contact us at " +
            std::string(core::supportEmail),
        ui::Icon::critical);
    return;
  }
  addElement(dialog.group(), dialog.elemName.text(), slideID);
  saveIndex();
}

/// The store is saved first, the index second. `store` is nothing where none is open.
void addSelection(host::Presentation& store) {
  const host::Application& application = globals().powerPointApp;
  if (application.Windows().Count() == 0) return;
  const host::Selection selection = application.ActiveWindow().Selection();
  if (selection.Type() != host::ppSelectionShapes) {
    core::message(
        "If you would like to add an element to 'My Elements', please select one or more shapes first.",
        ui::Icon::information);
    return;
  }
  const MyElementsLock lock;
  if (!lock.held()) return;
  if (!platform::fileExists(indexFile())) createXML();
  selection.Copy();
  openStore(store);
  myElementsAdd dialog;
  dialog.showModal();
  if (!dialog.result) {
    dialog.unload();
    closeUnsaved(store);
    return;
  }
  const std::int32_t slideID = pasteIntoStore(store);
  store.Save();
  store.Close();
  store = {};
  enterIntoIndex(dialog, slideID);
  dialog.unload();
  refreshMyElementsMenu();
}

}  // namespace

void createXML() {
  trap("SlideWizard, createXML", [] {
    newIndex();
    core::createFolder(globals().myElementsFolder);
    saveIndex();
  });
}

void addMyElements() {
  host::Presentation store;
  trap(
      "SlideWizard, addMyElements", [&] { addSelection(store); },
      [&](const base::Error& error) {
        // What a host raises that doesn't paste placeholders on a blank slide.
        if (error.number() != base::errors::invalidRequest) return false;
        if (store) closeUnsaved(store);
        core::message("Placeholders can not be added to 'My Elements'.", ui::Icon::information);
        return true;
      });
}

void manageMyElements() {
  trap("SlideWizard, manageMyElements", [] {
    const MyElementsLock lock;
    if (!lock.held()) return;
    if (!platform::fileExists(indexFile())) createXML();
    myElementsManager().showModal();
  });
}

std::string getMyElementsFile() {
  const std::string file = storePath(".pptx");
  return !core::isHostVersion(host::toolbarHosts) && platform::fileExists(file) ? file : storePath(".ppt");
}

void refreshMyElementsMenu() {
  if (!core::isHostVersion(host::toolbarHosts)) return globals().ribbonUI.InvalidateControl(elementsMenu);
  if (globals().toolbarControls) globals().toolbarControls->generateMyElementsMenu();
}

}  // namespace vellumark::library
