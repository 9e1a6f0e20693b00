#pragma once
// The system's headers, in the order in which they need each other.

// clang-format off
#include <windows.h>
#include <windowsx.h>
#include <commctrl.h>
#include <commdlg.h>
#include <objidl.h>
#include <shlobj.h>
#include <uxtheme.h>
#include <gdiplus.h>
// clang-format on
