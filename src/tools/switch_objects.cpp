#include "tools/switch_objects.h"

#include <cstdlib>

#include "core/failure.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;
using host::Shape;

constexpr int centre = 4;

/// Where a box of that size begins so that its anchor lies on that of another, along one axis. `part` is 0
/// for the near edge, 1 for the middle, 2 for the far edge.
double anchored(int part, double start, double size, double ownSize) {
  switch (part) {
    case 0:
      return start;
    case 1:
      return size * 0.5 + start - ownSize * 0.5;
    default:
      return size + start - ownSize;
  }
}

void repeat(const Shape& shape, host::MsoZOrderCmd command, int times) {
  for (int i = 0; i < times; ++i) shape.ZOrder(command);
}

/// The shape above passes the other on its way down; the other then takes its place.
void switchZOrder(const Shape& first, const Shape& second) {
  const int distance = first.ZOrderPosition() - second.ZOrderPosition();
  const bool above = distance >= 0;
  repeat(first, above ? host::msoSendBackward : host::msoBringForward, std::abs(distance));
  repeat(second, above ? host::msoBringForward : host::msoSendBackward, std::abs(distance) - 1);
}

}  // namespace

SwitchObjectsInput::SwitchObjectsInput() : Form("SwitchObjectsInput", "Switch objects") {
  const char* const names[] = {"Left top", "Top",         "Right top", "Left",        "Center",
                               "Right",    "Left bottom", "Bottom",    "Right bottom"};
  std::vector<ui::Box> anchors;
  for (std::size_t i = 0; i < 9; ++i) {
    obAnchor[i].caption(names[i]);
    anchors.emplace_back(obAnchor[i]);
  }
  obAnchor[centre].value(true);
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(ui::column({ui::Box(lAnchor), ui::grid(3, std::move(anchors)), ui::Box(cbZOrder),
                     ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

int SwitchObjectsInput::anchor() const {
  for (int i = 0; i < 9; ++i) {
    if (obAnchor[static_cast<std::size_t>(i)].value()) return i;
  }
  return centre;
}

void SwitchObjectsInput::btnOK_Click() {
  trap("SwitchObjects, btnOK_Click", [&] {
    cancelled_ = false;
    hide();
  });
}

void SwitchObjectsInput::btnCancel_Click() {
  trap("SwitchObjects, btnCancel_Click", [&] {
    cancelled_ = true;
    hide();
  });
}

void TrimlineTools::SwitchObjects() {
  trap("TrimlineTools, switchObjects", [&] {
    SwitchObjectsInput input;
    input.showModal();
    if (input.cancelled()) return;
    const int column = input.anchor() % 3, row = input.anchor() / 3;
    const bool zOrder = input.zOrder();
    input.unload();

    const SelectedShapes shapes;
    const Shape first = shapes.item(1), second = shapes.item(2);
    const RotatedMetrics r1 = getRotatedMetrics(first), r2 = getRotatedMetrics(second);
    setLeft(second, anchored(column, r1.Left, r1.Width, r2.Width));
    setTop(second, anchored(row, r1.Top, r1.Height, r2.Height));
    setLeft(first, anchored(column, r2.Left, r2.Width, r1.Width));
    setTop(first, anchored(row, r2.Top, r2.Height, r1.Height));
    if (zOrder) switchZOrder(first, second);
  });
}

}  // namespace vellumark::tools
