#include "tools/block_arrows.h"

#include <cmath>

#include "base/conversions.h"
#include "core/failure.h"
#include "core/message.h"
#include "tools/host_age.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using base::toSingle;
using core::trap;
using host::Shape;

constexpr double pi = 3.14159265358979;

bool isBlockArrowType(int type) {
  switch (type) {
    case host::msoShapeRightArrow:
    case host::msoShapeLeftArrow:
    case host::msoShapeUpArrow:
    case host::msoShapeDownArrow:
    case host::msoShapeLeftRightArrow:
    case host::msoShapeUpDownArrow:
    case host::msoShapeStripedRightArrow:
    case host::msoShapeNotchedRightArrow:
      return true;
    default:
      return false;
  }
}

/// Writes the handles of hosts up to 11.0: the head as share of the side along the arrow, from the one end or
/// the other, the shaft as what it leaves on either edge. The up-and-down arrow has its two items the other
/// way round.
void shapeOldArrow(const Shape& arrow, double head, double ratio) {
  const double height = arrow.Height(), width = arrow.Width();
  const auto level = [&] { return base::divide(height * head, width); };
  const auto upright = [&] { return base::divide(width * head, height); };
  const int type = arrow.AutoShapeType();
  const bool swapped = type == host::msoShapeUpDownArrow;
  double first = 0;
  switch (type) {
    case host::msoShapeRightArrow:
    case host::msoShapeStripedRightArrow:
    case host::msoShapeNotchedRightArrow:
      first = 1 - level();
      break;
    case host::msoShapeLeftArrow:
    case host::msoShapeLeftRightArrow:
      first = level();
      break;
    case host::msoShapeDownArrow:
      first = 1 - upright();
      break;
    default:
      first = upright();
  }
  const host::Adjustments adjustments = arrow.Adjustments();
  adjustments.Item(swapped ? 1 : 2, toSingle((100 - ratio) / 100 / 2));
  adjustments.Item(swapped ? 2 : 1, toSingle(first));
}

void shapeArrow(const Shape& arrow, double head, double ratio) {
  if (!isBlockArrowType(arrow.AutoShapeType())) return;
  switch (hostAge()) {
    case HostAge::new_:
      arrow.Adjustments().Item(1, toSingle(ratio / 100));
      arrow.Adjustments().Item(2, toSingle(head));
      break;
    case HostAge::old:
      shapeOldArrow(arrow, head, ratio);
      break;
    default:
      break;
  }
}

bool blockArrowIsSelected() {
  const host::Application& application = core::globals().powerPointApp;
  if (application.Windows().Count() == 0) return false;
  if (application.ActiveWindow().Selection().Type() != host::ppSelectionShapes) return false;
  bool found = false;
  SelectedShapes().each([&](const Shape& s) {
    found = found || (s.Type() == host::msoAutoShape && isBlockArrowType(s.AutoShapeType()));
  });
  return found;
}

}  // namespace

BlockArrows::BlockArrows() : Form("BlockArrows", "Beautify block arrows") {
  const char* const captions[] = {"&120 degrees", "&90 degrees", "&60 degrees", "&Other:"};
  for (std::size_t i = 0; i < obAngle.size(); ++i) {
    obAngle[i].caption(captions[i]);
    obAngle[i].onClick = [this, i] { obAngle_Click(i); };
  }
  tbAngle.size(6);
  tbRatio.size(6);
  obAngle[1].value(true);
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(
      ui::column({ui::column({ui::Box(obAngle[0]), ui::Box(obAngle[1]), ui::Box(obAngle[2]),
                              ui::row({ui::Box(obAngle[3]), ui::Box(tbAngle), ui::Box(lAngle), ui::space()})})
                      .in(frAngle),
                  ui::row({ui::Box(lRatio), ui::Box(tbRatio), ui::Box(lPercent), ui::space()}),
                  ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
          .gap(3));
  tbAngle.onValidate = [this](bool& cancel) { tbAngle_Validate(cancel); };
  tbRatio.onValidate = [this](bool& cancel) { tbRatio_Validate(cancel); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void BlockArrows::obAngle_Click(std::size_t index) {
  trap("BlockArrows, obAngle_Click", [&] {
    const char* const angles[] = {"120", "90", "60"};
    const bool own = index >= std::size(angles);
    if (!own) {
      tbAngle.text(angles[index]);
      tbRatio.text("50");
    }
    tbAngle.enabled(own);
  });
}

void BlockArrows::tbAngle_Validate(bool& cancel) {
  trap("BlockArrows, tbAngle_Validate", [&] {
    const bool valid = base::isTypedNumber(tbAngle.text()) && base::toDouble(tbAngle.text()) > 0 &&
                       base::toDouble(tbAngle.text()) < 180;
    if (valid) return;
    core::message("Please enter an angle in the range of 0 to 180 degrees.", ui::Icon::critical);
    cancel = true;
  });
}

// The two texts differ in their closing quotation mark.
void BlockArrows::tbRatio_Validate(bool& cancel) {
  trap("BlockArrows, tbRatio_Validate", [&] {
    const auto refuse = [&](const char* text) {
      core::message(text, ui::Icon::critical);
      cancel = true;
    };
    if (!base::isTypedNumber(tbRatio.text())) {
      return refuse(
          "Please enter a value in the range of 0 to 100 in the field 'Shaft width / arrowhead width.'");
    }
    const double ratio = base::toDouble(tbRatio.text());
    if (ratio < 0 || ratio > 100) {
      return refuse(
          "Please enter a value in the range of 0 to 100 in the field 'Shaft width / arrowhead width.");
    }
  });
}

/// The head is `head` times as long as the arrow is wide across.
void BlockArrows::btnOK_Click() {
  trap("BlockArrows, btnOK_Click", [&] {
    const double half = base::toDouble(tbAngle.text()) / 2 / 180 * pi;
    const double head = base::divide(0.5, std::tan(half));
    const double ratio = base::toDouble(tbRatio.text());
    SelectedShapes().each([&](const Shape& s) { shapeArrow(s, head, ratio); });
    unload();
  });
}

void BlockArrows::btnCancel_Click() {
  trap("BlockArrows, btnCancel_Click", [&] { unload(); });
}

void TrimlineTools::beautifyBlockArrow() {
  trap("TrimlineTools, beautifyBlockArrow", [&] {
    if (!blockArrowIsSelected()) {
      core::message("Please select at least one block arrow before invoking this function.",
                    ui::Icon::information);
      return;
    }
    BlockArrows().showModal();
  });
}

}  // namespace vellumark::tools
