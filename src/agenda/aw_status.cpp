#include "agenda/aw_status.h"

namespace vellumark::agenda {

awStatus::awStatus() : Form("awStatus", "Status") {
  lWait.wrapAt(48);
  layout(ui::column({ui::Box(lWait), ui::Box(lStatus).atLeast(48, 1), ui::Box(progress)}).gap(3));
}

void awStatus::say(const std::string& text) {
  lStatus.caption(text);
  repaint();
}

void awStatus::advance() {
  progress.value(progress.value() + 1);
  repaint();
}

}  // namespace vellumark::agenda
