#include <algorithm>

#include "ui/form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

/// What all kinds of buttons share. They never mark themselves: the form decides what a click does.
class ButtonPeer : public Peer {
 public:
  void commanded(int notification) override {
    // An option tells of a click when it gets the focus, too.
    if (notification == BN_CLICKED && !focusArrives()) act([this] { control().form().click(control()); });
  }

 protected:
  using Peer::Peer;

  void showCaption(const std::string& caption) {
    const bool lines = caption.find('\n') != std::string::npos;
    changeStyle(BS_MULTILINE, lines ? BS_MULTILINE : 0);
    showText(handle(), toWideLines(caption));
    // A visual style has its own mind about colours.
    if (control().foreColor() && !plain_) {
      plain_ = true;
      SetWindowTheme(handle(), L"", L"");
    }
  }

  void showMark(bool on) {
    const WPARAM wanted = on ? BST_CHECKED : BST_UNCHECKED;
    if (static_cast<WPARAM>(send(BM_GETCHECK)) != wanted) send(BM_SETCHECK, wanted);
  }

 private:
  bool plain_ = false;
};

class CommandPeer : public ButtonPeer {
 public:
  CommandPeer(CommandButton& button, PeerWindow& window) : ButtonPeer(button, window), button_(button) {
    create(L"BUTTON", BS_PUSHBUTTON);
  }
  void focusMoved() override { showDefault(); }

 private:
  void show() override {
    showCaption(button_.caption());
    showDefault();
  }

  /// The button that Enter presses now has the thick border.
  void showDefault() {
    const Control* focused = button_.form().focused();
    const bool pressedByEnter =
        dynamic_cast<const CommandButton*>(focused) ? focused == &button_ : button_.isDefault();
    const DWORD wanted = pressedByEnter ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    if ((static_cast<DWORD>(GetWindowLongW(handle(), GWL_STYLE)) & BS_TYPEMASK) != wanted) {
      send(BM_SETSTYLE, wanted, TRUE);
    }
  }

  CommandButton& button_;
};

class CheckPeer : public ButtonPeer {
 public:
  CheckPeer(CheckBox& box, PeerWindow& window) : ButtonPeer(box, window), box_(box) {
    create(L"BUTTON", BS_CHECKBOX);
  }

 private:
  void show() override {
    showCaption(box_.caption());
    showMark(box_.value());
  }

  CheckBox& box_;
};

class OptionPeer : public ButtonPeer {
 public:
  OptionPeer(OptionButton& option, PeerWindow& window) : ButtonPeer(option, window), option_(option) {
    create(L"BUTTON", BS_RADIOBUTTON);
  }

 private:
  void show() override {
    showCaption(option_.caption());
    showMark(option_.value());
  }

  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_KEYDOWN) {
      const bool back = message.wParam == VK_UP || message.wParam == VK_LEFT;
      if (back || message.wParam == VK_DOWN || message.wParam == VK_RIGHT) {
        act([&] { chooseNeighbour(back ? -1 : 1); });
        return 0;
      }
    }
    return Peer::received(message);
  }

  /// The arrow keys go round the options of the group.
  void chooseNeighbour(int step) {
    std::vector<OptionButton*> group;
    for (Control* control : option_.form().controls()) {
      auto* option = dynamic_cast<OptionButton*>(control);
      if (option && option->group() == option_.group() && option->canFocus()) group.push_back(option);
    }
    const auto found = std::find(group.begin(), group.end(), &option_);
    if (found == group.end()) return;
    const auto count = static_cast<int>(group.size());
    const int next = (static_cast<int>(found - group.begin()) + step + count) % count;
    option_.form().click(*group[static_cast<std::size_t>(next)]);
  }

  OptionButton& option_;
};

}  // namespace

std::unique_ptr<Peer> makeButtonPeer(CommandButton& button, PeerWindow& window) {
  return std::make_unique<CommandPeer>(button, window);
}

std::unique_ptr<Peer> makeCheckPeer(CheckBox& box, PeerWindow& window) {
  return std::make_unique<CheckPeer>(box, window);
}

std::unique_ptr<Peer> makeOptionPeer(OptionButton& option, PeerWindow& window) {
  return std::make_unique<OptionPeer>(option, window);
}

}  // namespace vellumark::ui::win32
