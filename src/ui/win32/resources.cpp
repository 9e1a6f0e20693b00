#include "ui/win32/resources.h"

#include <algorithm>
#include <cmath>

#include "ui/control.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

HINSTANCE ownModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const wchar_t*>(&ownModule), &module);
  return module;
}

/// A library's manifest is its resource 2, a program's is 1.
HANDLE contextOf(HINSTANCE module) {
  for (const int place : {2, 1}) {
    if (!FindResourceW(module, MAKEINTRESOURCEW(place), MAKEINTRESOURCEW(24))) continue;
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    ACTCTXW context = {};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    context.lpSource = path;
    context.lpResourceName = MAKEINTRESOURCEW(place);
    context.hModule = module;
    return CreateActCtxW(&context);
  }
  return INVALID_HANDLE_VALUE;
}

LOGFONTW messageFont() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  return metrics.lfMessageFont;
}

}  // namespace

DrawingEngine::DrawingEngine() {
  const Gdiplus::GdiplusStartupInput version1;
  Gdiplus::GdiplusStartup(&token_, &version1, nullptr);
}

DrawingEngine::~DrawingEngine() {
  if (token_ != 0) Gdiplus::GdiplusShutdown(token_);
}

Resources::Resources() : instance_(ownModule()), visualStyles_(contextOf(instance_)) {}

Resources::~Resources() {
  for (const auto& [key, font] : fonts_) DeleteObject(font);
  for (const auto& [key, brush] : brushes_) DeleteObject(brush);
  if (visualStyles_ != INVALID_HANDLE_VALUE) ReleaseActCtx(visualStyles_);
}

HFONT Resources::font(double scale, bool bold, bool underlined) {
  HFONT& font = fonts_[{scale, bold, underlined}];
  if (!font) {
    LOGFONTW wanted = messageFont();
    wanted.lfHeight = static_cast<LONG>(std::lround(wanted.lfHeight * scale));
    wanted.lfWidth = 0;
    if (bold) wanted.lfWeight = FW_BOLD;
    wanted.lfUnderline = underlined;
    font = CreateFontIndirectW(&wanted);
  }
  return font;
}

HFONT Resources::fontOf(const Control& control, double zoom, bool underlined) {
  return font(control.fontScale() * zoom, control.bold(), underlined);
}

HBRUSH Resources::brush(Color color) {
  HBRUSH& brush = brushes_[color];
  if (!brush) brush = CreateSolidBrush(color);
  return brush;
}

void Resources::startDrawing() {
  if (!drawing_) drawing_.emplace();
}

double zoomOf(UINT dpi) {
  const HDC screen = GetDC(nullptr);
  const int own = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return own > 0 ? static_cast<double>(dpi) / own : 1;
}

/// Windows before 10 have one resolution for all screens.
double zoomOf(HWND window) {
  using GetDpiForWindow = UINT(WINAPI*)(HWND);
  static const auto ask = reinterpret_cast<GetDpiForWindow>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
  return ask != nullptr ? zoomOf(ask(window)) : 1;
}

VisualStyles::VisualStyles(const Resources& resources) {
  if (resources.visualStyles() == INVALID_HANDLE_VALUE) return;
  active_ = ActivateActCtx(resources.visualStyles(), &cookie_) != FALSE;
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace vellumark::ui::win32
