#pragma once
// The simple controls: texts, buttons, values, pictures.

#include <array>
#include <cstdint>
#include <memory>
#include <utility>

#include "ui/canvas.h"
#include "ui/control.h"

namespace vellumark::ui {

/// A line or paragraph of text. A link shows a hand and is there to be clicked. With a colour behind it, it
/// fills its place.
class Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {})
      : Control(form, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  bool link() const { return link_; }
  void link(bool on);
  /// Where longer, the text wraps at this width, in average characters; 0 never wraps.
  int wrapAt() const { return wrapAt_; }
  void wrapAt(int characters);

  bool focusable() const override { return false; }
  const std::string& accessCaption() const override { return link_ ? Control::accessCaption() : caption_; }

 private:
  std::string caption_;
  bool link_ = false;
  int wrapAt_ = 0;
};

/// An editable text.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, std::string text = {})
      : Control(form, std::move(name)), text_(std::move(text)) {}
  const std::string& text() const { return text_; }
  /// Raises onChange where the text differs.
  void text(const std::string& text);
  bool multiLine() const { return multiLine_; }
  void multiLine(bool on) { multiLine_ = on; }
  bool locked() const { return locked_; }
  void locked(bool on);
  /// Preferred size, in average characters and lines.
  int columns() const { return columns_; }
  int lines() const { return lines_; }
  void size(int columns, int lines = 1) {
    columns_ = columns;
    lines_ = lines;
  }
  /// The selected stretch, in UTF-16 units from 0.
  int selStart() const { return selStart_; }
  int selLength() const { return selLength_; }
  void select(int start, int length);
  /// What the view tells of the user's selecting; shows nothing anew.
  void userSelected(int start, int length) {
    selStart_ = start;
    selLength_ = length;
  }
  std::function<void(char32_t& key)> onKeyPress;

 private:
  std::string text_;
  bool multiLine_ = false;
  bool locked_ = false;
  int columns_ = 20;
  int lines_ = 1;
  int selStart_ = 0;
  int selLength_ = 0;
};

class CommandButton : public Control {
 public:
  CommandButton(Form& form, std::string name, std::string caption = {})
      : Control(form, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  const std::string& accessCaption() const override { return caption_; }
  /// Pressed by Enter wherever the focus is.
  bool isDefault() const { return default_; }
  void isDefault(bool on) { default_ = on; }
  /// Pressed by Escape, and without validating what is left.
  bool isCancel() const { return cancel_; }
  void isCancel(bool on) {
    cancel_ = on;
    causesValidation(!on);
  }

 private:
  std::string caption_;
  bool default_ = false;
  bool cancel_ = false;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, std::string caption = {})
      : Control(form, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  const std::string& accessCaption() const override { return caption_; }
  bool value() const { return value_; }
  /// Raises onClick where the value differs, whoever changes it.
  void value(bool on);

 private:
  std::string caption_;
  bool value_ = false;
};

class Frame;

/// One of several choices that exclude each other: those of the same frame, or of the form.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, std::string caption = {}, const Frame* group = nullptr)
      : Control(form, std::move(name)), caption_(std::move(caption)), group_(group) {}
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  const std::string& accessCaption() const override { return caption_; }
  const Frame* group() const { return group_; }
  bool value() const { return value_; }
  /// Choosing one takes the choice from the others; raises onClick of the one that is chosen.
  void value(bool on);

 private:
  std::string caption_;
  const Frame* group_;
  bool value_ = false;
};

/// A value in a range, shown as a pair of arrows beside a text box. Its upper arrow decreases the value, so
/// that spinners hold the negated number.
class ScrollBar : public Control {
 public:
  ScrollBar(Form& form, std::string name, int min = 0, int max = 100, int value = 0)
      : Control(form, std::move(name)), min_(min), max_(max), value_(value) {}
  int min() const { return min_; }
  int max() const { return max_; }
  void range(int min, int max);
  int smallChange() const { return smallChange_; }
  void smallChange(int step) { smallChange_ = step; }
  int largeChange() const { return largeChange_; }
  void largeChange(int step) { largeChange_ = step; }
  int value() const { return value_; }
  /// Brings the value into the range; raises onChange where it differs.
  void value(int value);
  /// What the user's arrows do: one step up (-1) or down (1).
  void step(int direction) { value(value_ + direction * smallChange_); }
  /// What the keys for pages do.
  void page(int direction) { value(value_ + direction * largeChange_); }

 private:
  int min_, max_, value_;
  int smallChange_ = 1;
  int largeChange_ = 1;
};

class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string name, int min = 0, int max = 100)
      : Control(form, std::move(name)), min_(min), max_(max), value_(min) {}
  int min() const { return min_; }
  int max() const { return max_; }
  void range(int min, int max);
  int value() const { return value_; }
  void value(int value);
  bool focusable() const override { return false; }

 private:
  int min_, max_, value_;
};

/// A picture that the program draws. The mouse events tell the button (1 left, 2 right, 4 middle; 0 for
/// none), the keys held down (keys.h) and the place in pixels of the canvas, however large the screen shows
/// them.
class PictureBox : public Control {
 public:
  PictureBox(Form& form, std::string name, int width, int height)
      : Control(form, std::move(name)), canvas_(width, height) {}
  /// What is drawn; call refresh() after drawing.
  Canvas& canvas() { return canvas_; }
  const Canvas& canvas() const { return canvas_; }
  void refresh() { changed(); }
  bool focusable() const override { return false; }

  using MouseEvent = std::function<void(int button, int shift, double x, double y)>;
  MouseEvent onMouseDown, onMouseMove, onMouseUp;

  // What a user does with the mouse; nothing happens where the picture is hidden or disabled.
  void mouseDown(int button, int shift, double x, double y) const { raise(onMouseDown, button, shift, x, y); }
  void mouseMove(int button, int shift, double x, double y) const { raise(onMouseMove, button, shift, x, y); }
  void mouseUp(int button, int shift, double x, double y) const { raise(onMouseUp, button, shift, x, y); }

 private:
  void raise(const MouseEvent& event, int button, int shift, double x, double y) const {
    if (event && enabled() && visible()) event(button, shift, x, y);
  }

  Canvas canvas_;
};

/// A field of one colour.
class ColorBox : public Control {
 public:
  ColorBox(Form& form, std::string name, Color color = 0) : Control(form, std::move(name)), color_(color) {}
  Color color() const { return color_; }
  void color(Color color);
  bool focusable() const override { return false; }

 private:
  Color color_;
};

/// A horizontal rule.
class Line : public Control {
 public:
  using Control::Control;
  bool focusable() const override { return false; }
};

/// A titled border around what its layout holds.
class Frame : public Control {
 public:
  Frame(Form& form, std::string name, std::string caption = {})
      : Control(form, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void caption(const std::string& text);
  /// Of frames in one place, the one that was brought to the front last is seen.
  void toFront();
  unsigned order() const { return order_; }
  bool focusable() const override { return false; }

 private:
  std::string caption_;
  unsigned order_ = 0;
};

/// Calls onTimer again and again while it is enabled, its form is loaded, shown or not, and the toolkit's
/// loop runs. A tick may unload the form.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name, int interval = 0)
      : Control(form, std::move(name)), interval_(interval) {
    enabled(false);
  }
  ~Timer() override;
  int interval() const { return interval_; }  ///< milliseconds; 0 never ticks
  /// An interval that is set anew starts anew; the same one leaves the beat alone.
  void interval(int milliseconds);
  bool focusable() const override { return false; }
  std::function<void()> onTimer;

  /// For the form: it was loaded or unloaded.
  void follow();
  /// For toolkits: the interval has passed.
  void tick() const;

 private:
  void changed() override { follow(); }

  int interval_;
  int beat_ = 0;  ///< the interval in which it ticks now; 0 while it doesn't
};

/// Controls of one kind and name, by index: "tbM(0)", "tbM(1)", ...
template <typename T, std::size_t N>
class ControlArray {
 public:
  template <typename... Arguments>
  ControlArray(Form& form, const std::string& name, const Arguments&... arguments) {
    for (std::size_t i = 0; i < N; ++i) {
      items_[i] = std::make_unique<T>(form, name + "(" + std::to_string(i) + ")", arguments...);
    }
  }
  T& operator[](std::size_t index) { return *items_.at(index); }
  const T& operator[](std::size_t index) const { return *items_.at(index); }
  static constexpr std::size_t size() { return N; }

 private:
  std::array<std::unique_ptr<T>, N> items_;
};

}  // namespace vellumark::ui
