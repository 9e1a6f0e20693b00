#pragma once
// What all controls of a form share: a name, states, focus and the classic events.
//
// A control belongs to its form for life and knows no toolkit. A program sets values through the setters;
// what a user does comes in through the form (Form::focus, Form::click) and the controls' user functions.
// Both raise the same events, once, and only where a value really changed.

#include <functional>
#include <optional>
#include <string>

#include "ui/color.h"

namespace vellumark::ui {

class Form;

class Control {
 public:
  Control(Form& form, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Form& form() const { return form_; }

  bool enabled() const { return enabled_; }
  void enabled(bool on);
  bool visible() const { return visible_; }
  void visible(bool on);
  /// Whether the tab key stops here; only controls that take the focus at all.
  bool tabStop() const { return tabStop_; }
  void tabStop(bool on) { tabStop_ = on; }
  /// Whether moving the focus here validates the control that is left.
  bool causesValidation() const { return causesValidation_; }
  void causesValidation(bool on) { causesValidation_ = on; }
  const std::string& toolTip() const { return toolTip_; }
  void toolTip(const std::string& text);
  /// Text colour; nothing is the toolkit's own.
  std::optional<Color> foreColor() const { return foreColor_; }
  void foreColor(std::optional<Color> color);
  std::optional<Color> backColor() const { return backColor_; }
  void backColor(std::optional<Color> color);
  bool bold() const { return bold_; }
  void bold(bool on);
  /// Size of the text relative to the toolkit's own.
  double fontScale() const { return fontScale_; }
  void fontScale(double scale);
  /// Whether the mouse pointer over it is a hand.
  bool handCursor() const { return handCursor_; }
  void handCursor(bool on);
  /// A mark of the form's own, by which it finds controls that belong together.
  const std::string& tag() const { return tag_; }
  void tag(const std::string& text) { tag_ = text; }

  /// While off, changes of the control are not shown; switching it on shows what has become of it.
  void redraw(bool on);

  /// Whether this kind of control takes the focus.
  virtual bool focusable() const { return true; }
  /// Whether it can have the focus now.
  bool canFocus() const;
  /// The caption whose "&" marks the access key; empty for kinds without one.
  virtual const std::string& accessCaption() const;
  /// The access key in lower case; 0 for none.
  char accessKey() const;

  // Events.
  std::function<void()> onClick;
  std::function<void()> onChange;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;
  std::function<void(bool& cancel)> onValidate;
  std::function<void()> onMouseMove;

 protected:
  /// Tells whoever shows the form that this control looks different now.
  virtual void changed();
  void raiseChange() const {
    if (onChange) onChange();
  }

 private:
  Form& form_;
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  bool tabStop_ = true;
  bool causesValidation_ = true;
  bool redraw_ = true;
  std::string toolTip_;
  std::optional<Color> foreColor_, backColor_;
  bool bold_ = false;
  double fontScale_ = 1;
  bool handCursor_ = false;
  std::string tag_;
};

/// A caption without the marks of access keys: "&OK" is "OK", "&&" is "&".
std::string plainCaption(const std::string& caption);

}  // namespace vellumark::ui
