#pragma once
// The add-in while it is connected: one for the process, however many objects the host connects.

#include <memory>

#include "addin/connect.h"
#include "ui/win32/win32_toolkit.h"

namespace vellumark::addin::win32 {

/// The add-in's state is one set for the process, so a second connection shares the first one's add-in; the
/// last to disconnect brings it down.
class RunningAddIn {
 public:
  /// The one that runs, or a new one.
  static std::shared_ptr<RunningAddIn> get();

  RunningAddIn();
  ~RunningAddIn();
  RunningAddIn(const RunningAddIn&) = delete;
  RunningAddIn& operator=(const RunningAddIn&) = delete;

  /// Connects on the first call; later ones join.
  void start(const host::Application& application, std::int32_t connectMode, const host::COMAddIn& addInInst,
             std::span<const host::Value> custom);
  void stop(std::int32_t removeMode, std::span<const host::Value> custom);
  Connect& connect() { return connect_; }

 private:
  ui::win32::DrawingEngine drawing_;  ///< starts once, not with each picture of the ribbon
  ui::win32::Win32Toolkit toolkit_;
  ui::Toolkit* toolkitBefore_;
  Connect connect_;
  int connections_ = 0;
};

}  // namespace vellumark::addin::win32
