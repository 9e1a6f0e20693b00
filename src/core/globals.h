#pragma once
// The one set of global state of the add-in, filled during connection and alive until disconnection, and the
// narrow interfaces through which lower folders ask something of higher ones.

#include <array>
#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "host/application.h"
#include "host/ribbon.h"
#include "platform/instance_mutex.h"

namespace vellumark::tools {
class TrimlineTools;
}

namespace vellumark::core {

/// What the selection watch found last. The counts and flags are 16-bit in the system.
struct SelectionFlags {
  std::int16_t shapeCount = 0;
  std::int16_t slideCount = 0;
  bool allRightAngled = false;
  bool allSameOrientation = false;
  bool allBlockArrows = false;
  bool allPentagons = false;
  bool allRoundedRectangles = false;
  bool allTextShapes = false;
};

/// The event sink as others see it.
class ApplicationEvents {
 public:
  virtual ~ApplicationEvents() = default;
  virtual const SelectionFlags& flags() const = 0;
  /// Recomputes the flags from the selection.
  virtual void checkSelection() = 0;
  /// Brings the toolbars in line with the selection as it is now.
  virtual void toggle() = 0;
  /// Switches all selection-dependent entries off.
  virtual void toggleOff() = 0;

  /// While set, saving into a temporary folder brings no warning.
  bool noTempFolderWarning = false;
};

/// The toolbar builder of hosts before the ribbon as others see it.
class ToolbarControls {
 public:
  virtual ~ToolbarControls() = default;
  virtual void CreateControls() = 0;
  virtual void DeleteControls() = 0;
  /// Shows a style in the style box; an unknown or empty name shows the first one.
  virtual void setStyle(const std::string& name) = 0;
  /// Makes the popup of the user's own elements anew.
  virtual void generateMyElementsMenu() = 0;
  /// Enables every tool entry, whatever is selected.
  virtual void enableControls() = 0;
};

/// The Agenda Wizard as the commands reach it.
class AgendaCommands {
 public:
  virtual ~AgendaCommands() = default;
  virtual void showAgendaWizard() = 0;
  virtual void agendaUpdatePagenumbers() = 0;
  virtual void disconnectAgendaSlides() = 0;
};

struct Globals {
  // Folders, each ending in a backslash.
  std::string rootFolder;
  std::string userFolder;
  std::string myElementsFolder;
  std::string configFolder;
  std::string iconsFolder;
  std::string stylesFolder;
  std::string thumbsFolder;
  std::string programFolder;
  std::string uiFolder;

  host::COMAddIn addInInstance;
  host::Application powerPointApp;  ///< set exactly while the add-in is connected
  ApplicationEvents* applicationEvents = nullptr;
  ToolbarControls* toolbarControls = nullptr;  ///< only on hosts before the ribbon
  tools::TrimlineTools* tools = nullptr;
  AgendaCommands* agenda = nullptr;
  std::unique_ptr<platform::InstanceMutex> hostMutex;  ///< marks to other programs that the add-in is loaded
  std::string hostVersion;
  bool helpMode = false;
  bool screenSaverOff = false;

  std::string currentStyle;
  std::vector<std::string> styleNames;
  std::vector<std::string> styleFolders;
  std::vector<std::string> copyrightNotices;
  std::unique_ptr<pugi::xml_document> menuDoc;        ///< none until its load was attempted
  std::unique_ptr<pugi::xml_document> myElementsDoc;  ///< none where the file is missing
  host::IRibbonUI ribbonUI;

  std::array<std::int32_t, 3> languageShortcuts{};  ///< language ids, 0 for an unused button
};

/// The global state of the connected add-in.
Globals& globals();

/// Whether the host's version, read at this moment, occurs in `list`: a plain substring search.
bool isHostVersion(std::string_view list);

}  // namespace vellumark::core
