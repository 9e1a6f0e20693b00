#include "agenda/aw_status.h"

#include "ui/toolkit.h"

namespace vellumark::agenda {

awStatus::awStatus() : Form("awStatus", "Status") {
  lWait.wrapAt(48);
  layout(ui::column({ui::Box(lWait), ui::Box(lStatus).atLeast(48, 1), ui::Box(progress)}).gap(3));
}

void awStatus::say(const std::string& text) {
  lStatus.caption(text);
  refresh();
}

void awStatus::advance() {
  progress.value(progress.value() + 1);
  refresh();
}

void awStatus::refresh() { ui::toolkit().processEvents(); }

}  // namespace vellumark::agenda
