#pragma once
// A dialog: an object with controls, events and handlers. Toolkits show it; scripts can work it just as well.

#include <functional>
#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/controls.h"
#include "ui/layout.h"
#include "ui/lists.h"

namespace vellumark::ui {

/// Whoever shows a form at the moment.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void controlChanged(Control& control) = 0;
  virtual void captionChanged() = 0;
  /// The form's focus moved there (nullptr for nowhere).
  virtual void focusChanged(Control* control) = 0;
  /// The form is to be shown or no longer shown.
  virtual void visibilityChanged(bool visible) = 0;
  /// Shows at once what has changed, without anything else happening meanwhile.
  virtual void repaint() = 0;
  /// Does what the form does by itself, as in a tick; its failure goes to whoever waits for the form.
  virtual void perform(const std::function<void()>& act) = 0;
  /// Where the form lies on the whole screen with its border, in the screen's pixels.
  virtual Rect frame() const = 0;
};

class Form {
 public:
  Form(std::string name, std::string caption);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  bool topMost() const { return topMost_; }
  /// Keeps the form above all other windows.
  void topMost(bool on) { topMost_ = on; }
  bool bare() const { return bare_; }
  /// Shows the form without a caption and a frame of its own; only while it isn't shown.
  void bare(bool on) { bare_ = on; }
  /// Whether it comes up unasked, so that where a script works the forms, none for it closes it.
  bool unasked() const { return unasked_; }
  void unasked(bool on) { unasked_ = on; }

  // Life. A form is loaded on first use, shown and hidden any number of times, and unloaded at the end.
  void load();
  bool loaded() const { return loaded_; }
  /// Shows the form and waits until it is hidden or unloaded.
  void showModal();
  /// Shows the form and goes on.
  void showModeless();
  bool visible() const { return visible_; }
  /// Shows at once what has changed: for a form that tells of work that goes on.
  void repaint() {
    if (view_) view_->repaint();
  }
  void hide();
  /// Asks onQueryUnload and closes the form, unless that cancels. Closing twice does nothing.
  void unload();

  std::function<void()> onLoad;
  std::function<void()> onActivate;
  std::function<void(bool& cancel)> onQueryUnload;
  std::function<void()> onUnload;
  /// A click beside all controls.
  std::function<void()> onClick;
  /// A key goes down, before the control that has the focus sees it: its code and the keys held down
  /// (keys.h).
  std::function<void(int keyCode, int shift)> onKeyDown;
  /// A character is typed, likewise. A handler that sets it to 0 keeps it from the control.
  std::function<void(char32_t& key)> onKeyPress;

  // What a user does. Each of these keeps the rules of focus and validation.
  void keyDown(int keyCode, int shift) const;
  /// Whether the control that has the focus is to see the character. Those that print nothing it always sees.
  bool keyPress(char32_t key) const;
  /// Moves the focus. Leaving a control asks its onValidate first, if the new one causes validation; a
  /// control that refuses keeps the focus, and the answer is false. So it is for a control that can't have
  /// the focus now.
  bool focus(Control& control);
  Control* focused() const { return focused_; }
  /// Clicks a control: focus first where it takes any, then what a click does to its kind.
  bool click(Control& control);
  /// Clicks beside all controls.
  void clickBackground();
  /// To the next or previous control that the tab key stops at.
  bool tab(bool forward = true);
  /// The control that an access key means: a label's key means the control behind it. True where there is
  /// one.
  bool pressAccessKey(char key);
  /// Enter: the focused button, else the default button.
  bool pressEnter();
  /// Escape: the cancel button.
  bool pressEscape();
  /// What the window's own close button does: the cancel button where there is one, else unload().
  void close();

  /// In the order of declaration, which is the tab order.
  const std::vector<Control*>& controls() const { return controls_; }
  /// Whether a user can bring the focus to a control now: it can have it, and no other page covers it.
  bool reachable(const Control& control) const;
  /// The control of that name in any case ("tbM(2)" within an array); nothing where there is none.
  Control* find(const std::string& name) const;

  /// How the controls lie.
  void layout(Box box) { layout_ = std::move(box); }
  const Box& layout() const { return layout_; }

  /// Where it lies on the whole screen with its border, in the screen's pixels; empty where nobody sees it.
  Rect frame() const { return view_ ? view_->frame() : Rect{}; }

  FormView* view() const { return view_; }
  /// For toolkits: who shows the form from now on.
  void view(FormView* view) { view_ = view; }
  /// For toolkits: the form came to the front.
  void activated() {
    if (onActivate) onActivate();
  }

 private:
  friend class Control;
  void adopt(Control& control) { controls_.push_back(&control); }
  void forget(Control& control);
  void setVisible(bool visible);
  void followTimers() const;
  void focusFirst();
  bool validateFocused(const Control& next);

  std::string name_;
  std::string caption_;
  bool topMost_ = false;
  bool bare_ = false;
  bool unasked_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool unloading_ = false;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
  bool validating_ = false;
  Box layout_;
  FormView* view_ = nullptr;
};

}  // namespace vellumark::ui
