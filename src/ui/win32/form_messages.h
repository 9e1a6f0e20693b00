#pragma once

#include <windows.h>

namespace vellumark::ui::win32 {

// What a form's window tells itself for later.
constexpr UINT arrangeMessage = WM_APP;
constexpr UINT restoreFocusMessage = WM_APP + 1;
constexpr UINT refreshMessage = WM_APP + 2;  ///< lParam is the address of the peer, which may have gone
constexpr UINT deleteMessage = WM_APP + 3;

/// Windows tells of another resolution in this way from 8.1 on.
constexpr UINT dpiChangedMessage = 0x02E0;

}  // namespace vellumark::ui::win32
