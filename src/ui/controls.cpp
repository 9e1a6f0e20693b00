#include "ui/controls.h"

#include <algorithm>

#include "ui/form.h"
#include "ui/toolkit.h"

namespace vellumark::ui {

void Label::caption(const std::string& text) {
  if (caption_ == text) return;
  caption_ = text;
  changed();
}

void Label::link(bool on) {
  link_ = on;
  handCursor(on);
  changed();
}

void Label::wrapAt(int characters) {
  wrapAt_ = characters;
  changed();
}

void TextBox::text(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  changed();
  raiseChange();
}

void TextBox::locked(bool on) {
  locked_ = on;
  changed();
}

void TextBox::select(int start, int length) {
  selStart_ = start;
  selLength_ = length;
  changed();
}

void CommandButton::caption(const std::string& text) {
  if (caption_ == text) return;
  caption_ = text;
  changed();
}

void CheckBox::caption(const std::string& text) {
  if (caption_ == text) return;
  caption_ = text;
  changed();
}

void CheckBox::value(bool on) {
  if (value_ == on) return;
  value_ = on;
  changed();
  if (onClick) onClick();
}

void OptionButton::caption(const std::string& text) {
  if (caption_ == text) return;
  caption_ = text;
  changed();
}

void OptionButton::value(bool on) {
  if (value_ == on) return;
  value_ = on;
  changed();
  if (!on) return;
  for (Control* other : form().controls()) {
    auto* option = dynamic_cast<OptionButton*>(other);
    if (option && option != this && option->group() == group_) option->value(false);
  }
  if (onClick) onClick();
}

void ScrollBar::range(int min, int max) {
  min_ = min;
  max_ = max;
  changed();
  value(value_);
}

void ScrollBar::value(int value) {
  value = std::clamp(value, std::min(min_, max_), std::max(min_, max_));
  if (value_ == value) return;
  value_ = value;
  changed();
  raiseChange();
}

void ProgressBar::range(int min, int max) {
  min_ = min;
  max_ = max;
  value(value_);
  changed();
}

void ProgressBar::value(int value) {
  value_ = std::clamp(value, min_, std::max(min_, max_));
  changed();
}

void ColorBox::color(Color color) {
  if (color_ == color) return;
  color_ = color;
  changed();
}

void Frame::caption(const std::string& text) {
  if (caption_ == text) return;
  caption_ = text;
  changed();
}

void Frame::toFront() {
  static unsigned last = 0;
  order_ = ++last;
  changed();
}

void Timer::interval(int milliseconds) {
  interval_ = std::max(0, milliseconds);
  changed();
}

Timer::~Timer() {
  if (beat_ > 0) stopTimer(*this);
}

void Timer::follow() {
  const int wanted = enabled() && form().loaded() ? interval_ : 0;
  if (wanted == beat_) return;
  if (beat_ > 0) stopTimer(*this);
  beat_ = wanted;
  if (beat_ > 0) startTimer(*this);
}

/// The handler may replace itself or take its form down.
void Timer::tick() const {
  const auto handler = onTimer;
  if (handler) handler();
}

}  // namespace vellumark::ui
