#include "ui/form.h"

#include <algorithm>
#include <cctype>

#include "base/text.h"
#include "ui/toolkit.h"

namespace vellumark::ui {

Form::Form(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() { setVisible(false); }

void Form::caption(const std::string& text) {
  caption_ = text;
  if (view_) view_->captionChanged();
}

void Form::forget(Control& control) {
  std::erase(controls_, &control);
  if (focused_ == &control) focused_ = nullptr;
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  followTimers();
  if (onLoad) onLoad();
}

void Form::followTimers() const {
  for (Control* control : controls_) {
    if (auto* timer = dynamic_cast<Timer*>(control)) timer->follow();
  }
}

void Form::showModal() {
  load();
  if (visible_ || !loaded_) return;
  setVisible(true);
  focusFirst();
  try {
    toolkit().showModal(*this);
  } catch (...) {
    setVisible(false);
    throw;
  }
  setVisible(false);
}

void Form::showModeless() {
  load();
  if (visible_ || !loaded_) return;
  setVisible(true);
  focusFirst();
  toolkit().showModeless(*this);
}

void Form::hide() { setVisible(false); }

void Form::unload() {
  if (!loaded_ || unloading_) return;
  unloading_ = true;
  bool cancel = false;
  if (onQueryUnload) onQueryUnload(cancel);
  if (!cancel) {
    if (onUnload) onUnload();
    setVisible(false);
    focused_ = nullptr;
    loaded_ = false;
    followTimers();
  }
  unloading_ = false;
}

void Form::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  if (view_) view_->visibilityChanged(visible);
}

void Form::focusFirst() {
  if (focused_ && reachable(*focused_)) return;
  for (Control* control : controls_) {
    if (reachable(*control) && control->tabStop()) {
      focus(*control);
      return;
    }
  }
}

bool Form::validateFocused(const Control& next) {
  if (!focused_ || focused_ == &next || !next.causesValidation() || !focused_->onValidate || validating_)
    return true;
  validating_ = true;
  bool cancel = false;
  focused_->onValidate(cancel);
  validating_ = false;
  return !cancel;
}

bool Form::focus(Control& control) {
  if (!control.canFocus()) return false;
  if (focused_ == &control) return true;
  if (!validateFocused(control)) {
    if (view_) view_->focusChanged(focused_);
    return false;
  }
  // The validation may have closed the form or disabled the control.
  if (!loaded_ || !control.canFocus()) return false;
  Control* left = focused_;
  focused_ = &control;
  if (left && left->onLostFocus) left->onLostFocus();
  if (view_) view_->focusChanged(focused_);
  if (focused_ == &control && control.onGotFocus) control.onGotFocus();
  return focused_ == &control;
}

bool Form::click(Control& control) {
  if (!control.enabled() || !control.visible()) return false;
  if (control.focusable() && !focus(control)) return false;
  if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    box->value(!box->value());
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->value(true);
  } else if (control.onClick && !dynamic_cast<ItemControl*>(&control)) {
    control.onClick();
  }
  return true;
}

void Form::keyDown(int keyCode, int shift) const {
  if (onKeyDown) onKeyDown(keyCode, shift);
}

bool Form::keyPress(char32_t key) const {
  constexpr char32_t firstPrinted = U' ';
  constexpr char32_t deleteCharacter = 0x7F;
  if (!onKeyPress || key < firstPrinted || key == deleteCharacter) return true;
  onKeyPress(key);
  return key != 0;
}

void Form::clickBackground() {
  if (onClick) onClick();
}

bool Form::tab(bool forward) {
  if (controls_.empty()) return false;
  const auto count = static_cast<int>(controls_.size());
  const auto found = std::ranges::find(controls_, focused_);
  int place = found == controls_.end() ? (forward ? -1 : count) : static_cast<int>(found - controls_.begin());
  for (int i = 0; i < count; ++i) {
    place = (place + (forward ? 1 : count - 1) + count) % count;
    Control& control = *controls_[static_cast<std::size_t>(place)];
    if (reachable(control) && control.tabStop()) return focus(control);
  }
  return false;
}

bool Form::pressAccessKey(char key) {
  const char wanted = static_cast<char>(std::tolower(static_cast<unsigned char>(key)));
  for (auto control = controls_.begin(); control != controls_.end(); ++control) {
    if (!(*control)->visible() || !(*control)->enabled() || (*control)->accessKey() != wanted) continue;
    if (isCovered(layout_, **control)) continue;
    if (dynamic_cast<Label*>(*control) == nullptr) return click(**control);
    const auto next =
        std::find_if(control + 1, controls_.end(), [](const Control* other) { return other->canFocus(); });
    return next != controls_.end() && focus(**next);
  }
  return false;
}

bool Form::pressEnter() {
  if (auto* button = dynamic_cast<CommandButton*>(focused_)) return click(*button);
  for (Control* control : controls_) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button && button->isDefault()) return click(*button);
  }
  return false;
}

bool Form::pressEscape() {
  for (Control* control : controls_) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button && button->isCancel()) return click(*button);
  }
  return false;
}

void Form::close() {
  if (!pressEscape()) unload();
}

bool Form::reachable(const Control& control) const {
  return control.canFocus() && !isCovered(layout_, control);
}

Control* Form::find(const std::string& name) const {
  const auto found = std::ranges::find_if(
      controls_, [&](const Control* control) { return base::equalsIgnoreCase(control->name(), name); });
  return found == controls_.end() ? nullptr : *found;
}

}  // namespace vellumark::ui
