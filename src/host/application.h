#pragma once
// The host itself.

#include <string>
#include <string_view>

#include "host/command_bars.h"
#include "host/file_dialog.h"
#include "host/handle.h"
#include "host/presentation.h"
#include "host/window.h"

namespace vellumark::host {

/// An add-in as the host knows it.
class COMAddIn : public Handle {
 public:
  using Handle::Handle;
  std::string ProgId() const { return get<std::string>(member::ProgId); }
  bool Connect() const { return get<bool>(member::Connect); }
  void Connect(bool on) const { put(member::Connect, on); }
  /// What the add-in exposes to others, untyped; raises 91 where it exposes nothing.
  ObjectRef Object() const { return get<Value>(member::Object).toObject(); }
};

class COMAddIns : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  COMAddIn Item(int index) const { return get<COMAddIn>(member::Item, index); }
};

class Application : public Handle {
 public:
  using Handle::Handle;
  host::Presentations Presentations() const { return get<host::Presentations>(member::Presentations); }
  DocumentWindows Windows() const { return get<DocumentWindows>(member::Windows); }
  /// Raises where no window is open: test Windows().Count() first.
  DocumentWindow ActiveWindow() const { return get<DocumentWindow>(member::ActiveWindow); }
  /// Raises where no presentation has a window.
  Presentation ActivePresentation() const { return get<Presentation>(member::ActivePresentation); }
  /// On hosts with a ribbon the bars of add-ins land on a tab of theirs.
  host::CommandBars CommandBars() const { return get<host::CommandBars>(member::CommandBars); }
  /// The host's own dialog for opening or saving a file; not shown yet.
  host::FileDialog FileDialog(MsoFileDialogType type) const {
    return get<host::FileDialog>(member::FileDialog, type);
  }
  host::COMAddIns COMAddIns() const { return get<host::COMAddIns>(member::COMAddIns); }
  std::string Version() const { return get<std::string>(member::Version); }  ///< "14.0"
  /// Runs the macro "file!module.procedure" without arguments.
  void Run(const std::string& macro) const { call(member::Run, macro); }
  /// Whether this is PowerPoint's application object, and not that of another program.
  bool isApplication() const {
    return object() && object()->typeName() == "Application" &&
           get<std::string>(member::Name) == "Microsoft PowerPoint";
  }
};

/// Hosts before the ribbon.
inline constexpr std::string_view toolbarHosts = "9.0;10.0;11.0";
/// Hosts with a ribbon.
inline constexpr std::string_view ribbonHosts = "12.0;14.0";

}  // namespace vellumark::host
