#include "ui/control.h"

#include <cctype>

#include "base/error.h"
#include "ui/form.h"

namespace vellumark::ui {

Control::Control(Container& parent, std::string name, Kind kind)
    : form_(parent.form()), parent_(parent.asControl()), name_(std::move(name)), kind_(kind), tabStop_(focusable()) {
  form_.add(*this);
}

Control::~Control() { form_.remove(*this); }

void Control::enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  changed(Aspect::enabled);
  form_.giveUpLostFocus();
}

void Control::visible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  changed(Aspect::visible);
  form_.giveUpLostFocus();
}

bool Control::shown() const { return visible_ && (!parent_ || parent_->shown()); }

bool Control::available() const { return visible_ && enabled_ && (!parent_ || parent_->available()); }

void Control::toolTip(std::string text) {
  toolTip_ = std::move(text);
  changed(Aspect::look);
}

bool Control::focusable() const {
  switch (kind_) {
    case Kind::textBox:
    case Kind::checkBox:
    case Kind::optionButton:
    case Kind::commandButton:
    case Kind::comboBox:
    case Kind::listBox:
    case Kind::treeView:
    case Kind::scrollBar:
      return true;
    default:
      return false;
  }
}

bool Control::canTakeFocus() const { return focusable() && available(); }

void Control::setFocus() {
  if (!form_.visible() || !canTakeFocus()) base::raise(base::errors::invalidCall);
  form_.moveFocus(*this);
}

bool Control::hasFocus() const { return form_.activeControl() == this; }

void Control::changed(Aspect aspect) { form_.controlChanged(*this, aspect); }

bool Control::raisesEvents() const { return form_.loaded(); }

char accelerator(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i + 1])));
    ++i;
  }
  return 0;
}

std::string plainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

}  // namespace vellumark::ui
