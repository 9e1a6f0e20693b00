#pragma once
// What all controls of a form have in common.

#include <functional>
#include <string>
#include <string_view>

#include "ui/geometry.h"

namespace vellumark::ui {

class Control;
class Form;

enum class Kind {
  label,
  textBox,
  checkBox,
  optionButton,
  commandButton,
  comboBox,
  listBox,
  treeView,
  scrollBar,
  progressBar,
  pictureBox,
  line,
  colorBox,
  frame,
  timer,
};

/// What of a control a view has to bring up to date.
enum class Aspect {
  text,     ///< caption or text
  value,    ///< value, selection, checked items
  items,    ///< the items of a list or the nodes of a tree
  enabled,
  visible,
  look,     ///< colours, font, drawing, range
};

enum class MouseButton { left = 1, right = 2, middle = 4 };

/// Codes of the keys that handlers of KeyDown look at.
namespace key {
inline constexpr int enter = 13;
inline constexpr int escape = 27;
}  // namespace key

/// What holds controls: a form, or a frame on it.
class Container {
 public:
  virtual Form& form() = 0;
  /// This container as control; nothing where it is the form itself.
  virtual Control* asControl() = 0;

 protected:
  ~Container() = default;
};

/// One control. It is a member of its form, so that it lives as long as the form, whether that is loaded or not.
///
/// Handlers are bound by the form's constructor. They are raised only while the form is loaded, by a change of the
/// program in the same way as by the user, once, and only where something changed. The order of declaration is the
/// tab order.
class Control {
 public:
  Control(Container& parent, std::string name, Kind kind);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Kind kind() const { return kind_; }
  Form& form() const { return form_; }
  /// The frame that this control stands in; nothing where it stands on the form.
  Control* parent() const { return parent_; }

  bool enabled() const { return enabled_; }
  void enabled(bool enabled);
  bool visible() const { return visible_; }
  void visible(bool visible);
  /// Whether the control and all frames around it are visible and, for `available`, enabled too.
  bool shown() const;
  bool available() const;

  bool tabStop() const { return tabStop_; }
  void tabStop(bool stop) { tabStop_ = stop; }
  /// Whether taking the focus runs Validate of the field that is left.
  bool causesValidation() const { return causesValidation_; }
  void causesValidation(bool causes) { causesValidation_ = causes; }
  const std::string& tag() const { return tag_; }
  void tag(std::string tag) { tag_ = std::move(tag); }
  const std::string& toolTip() const { return toolTip_; }
  void toolTip(std::string text);

  /// Whether a control of this kind can have the focus at all.
  bool focusable() const;
  /// Whether it can take it now.
  bool canTakeFocus() const;
  /// Takes the focus; 5 where it can't, or where the form isn't visible.
  void setFocus();
  bool hasFocus() const;

  /// The text by which a user knows the control: its caption, with "&" before the accelerator.
  virtual std::string caption() const { return {}; }

  std::function<void()> onClick;
  std::function<void()> onDblClick;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;
  /// Before the focus goes to a control that causes validation. Setting `cancel` keeps it here.
  std::function<void(bool& cancel)> onValidate;
  std::function<void(int keyCode)> onKeyDown;
  /// A typed character. Setting `cancel` keeps it from the control.
  std::function<void(char32_t character, bool& cancel)> onKeyPress;
  /// Positions are pixels from the control's upper left corner.
  std::function<void(Point position)> onMouseMove;
  std::function<void(MouseButton button, Point position)> onMouseDown;

  /// Calls a handler, if there is one and the form is loaded.
  template <typename... Parameters, typename... Arguments>
  void raise(const std::function<void(Parameters...)>& handler, Arguments&&... arguments) {
    if (!handler || !raisesEvents()) return;
    const auto held = handler;  // the handler may bind another one
    held(std::forward<Arguments>(arguments)...);
  }

 protected:
  /// Tells the view, if there is one.
  void changed(Aspect aspect);
  bool raisesEvents() const;

 private:
  Form& form_;
  Control* parent_;
  std::string name_;
  Kind kind_;
  bool enabled_ = true;
  bool visible_ = true;
  bool tabStop_;
  bool causesValidation_ = true;
  std::string tag_;
  std::string toolTip_;
};

/// The character behind the "&" of a caption in lower case; 0 where there is none. "&&" is an ampersand.
char accelerator(std::string_view caption);
/// A caption as it is read: "&" left out, "&&" one ampersand.
std::string plainCaption(std::string_view caption);

}  // namespace vellumark::ui
