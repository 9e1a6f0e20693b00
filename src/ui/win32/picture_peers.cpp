#include <algorithm>

#include "ui/form.h"
#include "ui/win32/canvas_painter.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

/// What is there to be looked at and clicked.
class PassivePeer : public Peer {
 protected:
  using Peer::Peer;

 private:
  bool clicksByItself() const override { return true; }
};

/// What the peer paints itself, in memory first so that nothing flickers.
class PaintedPeer : public PassivePeer {
 protected:
  using PassivePeer::PassivePeer;
  virtual void paint(HDC target, const RECT& area) = 0;
  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_ERASEBKGND) return 1;
    if (message.code == WM_PRINTCLIENT) {
      paintBuffered(reinterpret_cast<HDC>(message.wParam));
      return 0;
    }
    if (message.code == WM_PAINT) {
      PAINTSTRUCT painting = {};
      paintBuffered(BeginPaint(handle(), &painting));
      EndPaint(handle(), &painting);
      return 0;
    }
    return Peer::received(message);
  }

 private:
  void show() override { InvalidateRect(handle(), nullptr, FALSE); }

  void paintBuffered(HDC target) {
    RECT area = {};
    GetClientRect(handle(), &area);
    HDC memory = CreateCompatibleDC(target);
    HBITMAP bitmap = CreateCompatibleBitmap(target, std::max(1L, area.right), std::max(1L, area.bottom));
    const HGDIOBJ before = SelectObject(memory, bitmap);
    FillRect(memory, &area, colors(memory, false));
    paint(memory, area);
    BitBlt(target, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
  }
};

class PicturePeer : public PaintedPeer {
 public:
  PicturePeer(PictureBox& picture, PeerWindow& window) : PaintedPeer(picture, window), picture_(picture) {
    create(L"STATIC", SS_NOTIFY);
  }
  bool changesSize() const override { return false; }

 private:
  using UserAct = void (PictureBox::*)(int, int, double, double) const;

  void paint(HDC target, const RECT&) override {
    paintCanvas(picture_.canvas(), target, window().resources());
  }

  std::optional<LRESULT> received(const Message& message) override {
    switch (message.code) {
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        mouse(&PictureBox::mouseDown, 1, message);
        break;
      case WM_RBUTTONDOWN:
      case WM_RBUTTONDBLCLK:
        mouse(&PictureBox::mouseDown, 2, message);
        break;
      case WM_MBUTTONDOWN:
      case WM_MBUTTONDBLCLK:
        mouse(&PictureBox::mouseDown, 4, message);
        break;
      case WM_MOUSEMOVE:
        mouse(&PictureBox::mouseMove, heldButtons(message.wParam), message);
        break;
      case WM_LBUTTONUP:
        mouse(&PictureBox::mouseUp, 1, message);
        break;
      case WM_RBUTTONUP:
        mouse(&PictureBox::mouseUp, 2, message);
        break;
      case WM_MBUTTONUP:
        mouse(&PictureBox::mouseUp, 4, message);
        break;
      default:
        break;
    }
    return PaintedPeer::received(message);
  }

  static int heldButtons(WPARAM state) {
    return ((state & MK_LBUTTON) != 0 ? 1 : 0) + ((state & MK_RBUTTON) != 0 ? 2 : 0) +
           ((state & MK_MBUTTON) != 0 ? 4 : 0);
  }

  void mouse(UserAct userAct, int button, const Message& message) {
    const double scale = window().resources().canvasScale();
    const double x = GET_X_LPARAM(message.lParam) / scale;
    const double y = GET_Y_LPARAM(message.lParam) / scale;
    act([&] { (picture_.*userAct)(button, heldKeys(), x, y); });
  }

  PictureBox& picture_;
};

class ColorPeer : public PaintedPeer {
 public:
  ColorPeer(ColorBox& box, PeerWindow& window) : PaintedPeer(box, window), box_(box) {
    create(L"STATIC", SS_NOTIFY, WS_EX_CLIENTEDGE);
  }

 private:
  void paint(HDC target, const RECT& area) override {
    HBRUSH brush = CreateSolidBrush(box_.color());
    FillRect(target, &area, brush);
    DeleteObject(brush);
  }

  ColorBox& box_;
};

class LinePeer : public PassivePeer {
 public:
  LinePeer(Line& line, PeerWindow& window) : PassivePeer(line, window) {
    create(L"STATIC", SS_ETCHEDHORZ | SS_NOTIFY);
  }
};

/// A group box. It lies below what it frames, and paints its own ground.
class FramePeer : public PassivePeer {
 public:
  FramePeer(Frame& frame, PeerWindow& window) : PassivePeer(frame, window), frame_(frame) {
    create(L"BUTTON", BS_GROUPBOX | BS_NOTIFY);
  }

 private:
  void show() override {
    const std::wstring caption = toWide(plainCaption(frame_.caption()));
    std::wstring escaped;
    for (const wchar_t unit : caption) escaped += unit == L'&' ? std::wstring(L"&&") : std::wstring(1, unit);
    showText(handle(), escaped);
  }

  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_ERASEBKGND) {
      const auto target = reinterpret_cast<HDC>(message.wParam);
      RECT area = {};
      GetClientRect(handle(), &area);
      FillRect(target, &area, colors(target, false));
      return 1;
    }
    return Peer::received(message);
  }

  Frame& frame_;
};

class ProgressPeer : public PassivePeer {
 public:
  ProgressPeer(ProgressBar& bar, PeerWindow& window) : PassivePeer(bar, window), bar_(bar) {
    create(PROGRESS_CLASSW, 0);
  }

 private:
  void show() override {
    send(PBM_SETRANGE32, static_cast<WPARAM>(bar_.min()), std::max(bar_.max(), bar_.min() + 1));
    send(PBM_SETPOS, static_cast<WPARAM>(bar_.value()));
  }

  ProgressBar& bar_;
};

}  // namespace

std::unique_ptr<Peer> makeProgressPeer(ProgressBar& bar, PeerWindow& window) {
  return std::make_unique<ProgressPeer>(bar, window);
}

std::unique_ptr<Peer> makePicturePeer(PictureBox& picture, PeerWindow& window) {
  return std::make_unique<PicturePeer>(picture, window);
}

std::unique_ptr<Peer> makeColorPeer(ColorBox& box, PeerWindow& window) {
  return std::make_unique<ColorPeer>(box, window);
}

std::unique_ptr<Peer> makeLinePeer(Line& line, PeerWindow& window) {
  return std::make_unique<LinePeer>(line, window);
}

std::unique_ptr<Peer> makeFramePeer(Frame& frame, PeerWindow& window) {
  return std::make_unique<FramePeer>(frame, window);
}

}  // namespace vellumark::ui::win32
