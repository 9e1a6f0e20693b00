#include "ui/win32/resources.h"

#include <algorithm>
#include <cmath>

#include "ui/control.h"
#include "ui/win32/conversions.h"
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

double scaleOfScreen() {
  HDC screen = GetDC(nullptr);
  const double scale = GetDeviceCaps(screen, LOGPIXELSX) / 96.0;
  ReleaseDC(nullptr, screen);
  return scale;
}

}  // namespace

DrawingEngine::DrawingEngine() {
  const Gdiplus::GdiplusStartupInput version1;
  Gdiplus::GdiplusStartup(&token_, &version1, nullptr);
}

DrawingEngine::~DrawingEngine() {
  if (token_ != 0) Gdiplus::GdiplusShutdown(token_);
}

Resources::Resources()
    : instance_(ownModule()), visualStyles_(contextOf(instance_)), canvasScale_(scaleOfScreen()) {}

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

Gdiplus::Bitmap* Resources::picture(const std::string& path) {
  constexpr std::size_t most = 64;
  const std::wstring file = toWide(path);
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data)) return nullptr;
  const FILETIME& changed = data.ftLastWriteTime;
  const std::wstring key =
      file + L'|' + std::to_wstring(changed.dwHighDateTime) + L'|' + std::to_wstring(changed.dwLowDateTime);
  if (const auto known = pictures_.find(key); known != pictures_.end()) return known->second.get();
  startDrawing();
  Gdiplus::Image read(file.c_str());
  std::unique_ptr<Gdiplus::Bitmap> picture;
  if (read.GetLastStatus() == Gdiplus::Ok) {
    const auto width = static_cast<INT>(read.GetWidth());
    const auto height = static_cast<INT>(read.GetHeight());
    picture = std::make_unique<Gdiplus::Bitmap>(width, height, PixelFormat32bppARGB);
    Gdiplus::Graphics(picture.get()).DrawImage(&read, 0, 0, width, height);
  }
  if (pictures_.size() >= most) pictures_.clear();
  return pictures_.emplace(key, std::move(picture)).first->second.get();
}

VisualStyles::VisualStyles(const Resources& resources) {
  if (resources.visualStyles() == INVALID_HANDLE_VALUE) return;
  active_ = ActivateActCtx(resources.visualStyles(), &cookie_) != FALSE;
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace vellumark::ui::win32
