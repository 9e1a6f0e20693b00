#include "ui/control.h"

#include <cctype>

#include "ui/form.h"

namespace vellumark::ui {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) { form_.adopt(*this); }

Control::~Control() { form_.forget(*this); }

void Control::enabled(bool on) {
  if (enabled_ == on) return;
  enabled_ = on;
  changed();
}

void Control::visible(bool on) {
  if (visible_ == on) return;
  visible_ = on;
  changed();
}

void Control::toolTip(const std::string& text) {
  toolTip_ = text;
  changed();
}

void Control::foreColor(std::optional<Color> color) {
  foreColor_ = color;
  changed();
}

void Control::backColor(std::optional<Color> color) {
  backColor_ = color;
  changed();
}

void Control::bold(bool on) {
  bold_ = on;
  changed();
}

void Control::fontScale(double scale) {
  fontScale_ = scale;
  changed();
}

void Control::handCursor(bool on) {
  if (handCursor_ == on) return;
  handCursor_ = on;
  changed();
}

bool Control::canFocus() const { return focusable() && enabled_ && visible_; }

const std::string& Control::accessCaption() const {
  static const std::string none;
  return none;
}

char Control::accessKey() const {
  const std::string& caption = accessCaption();
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') {
      return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i + 1])));
    }
    ++i;
  }
  return 0;
}

void Control::redraw(bool on) {
  if (redraw_ == on) return;
  redraw_ = on;
  changed();
}

void Control::changed() {
  if (!redraw_) return;
  if (FormView* view = form_.view()) view->controlChanged(*this);
}

std::string plainCaption(const std::string& caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

}  // namespace vellumark::ui
