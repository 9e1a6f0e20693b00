#include "tools/rounded_rectangles.h"

#include <algorithm>

#include "base/conversions.h"
#include "core/failure.h"
#include "core/message.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;
using host::Shape;

constexpr double pointsPerTenth = 0.2835;  ///< of a millimetre
constexpr double mostMillimetres = 100;

double radiusOf(const Shape& shape) {
  return static_cast<double>(shape.Adjustments().Item(1)) * std::min(shape.Width(), shape.Height());
}

/// Whether only rounded rectangles are selected; otherwise the user is told what to select.
bool onlyRoundedRectangles(const char* whatToSelect) {
  const host::Application& application = core::globals().powerPointApp;
  const auto refuse = [](const char* text) {
    core::message(text, ui::Icon::information);
    return false;
  };
  if (application.Windows().Count() == 0) return refuse("Please open a presentation first.");
  const host::Selection selection = application.ActiveWindow().Selection();
  if (selection.Type() != host::ppSelectionShapes || selection.ShapeRange().Type() != host::msoAutoShape) {
    return refuse(whatToSelect);
  }
  if (selection.ShapeRange().AutoShapeType() != host::msoShapeRoundedRectangle) {
    return refuse("Please select only rounded rectangles.");
  }
  return true;
}

}  // namespace

roundedRectanglesInput::roundedRectanglesInput() : Form("roundedRectanglesInput", "Rounded rectangles") {
  tbRadius.size(8);
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(ui::column({ui::row({ui::Box(lRadius), ui::row({ui::Box(tbRadius), ui::Box(udRadius)}).gap(0),
                              ui::space()}),
                     ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
  onActivate = [this] { Form_Activate(); };
  udRadius.onChange = [this] { udRadius_Change(); };
  tbRadius.onValidate = [this](bool& cancel) { tbRadius_Validate(cancel); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void roundedRectanglesInput::Form_Activate() {
  trap("roundedRectanglesInput, Form_Activate",
       [&] { udRadius.value(base::toInt32(-radiusOf(SelectedShapes().item(1)) / pointsPerTenth)); });
}

void roundedRectanglesInput::udRadius_Change() {
  trap("roundedRectanglesInput, udRadius_Change",
       [&] { tbRadius.text(base::formatFixed(-udRadius.value() / 10.0, 1)); });
}

void roundedRectanglesInput::tbRadius_Validate(bool& cancel) {
  trap("roundedRectanglesInput, tbRadius_Validate", [&] {
    const auto refuse = [&](const char* text) {
      core::message(text, ui::Icon::critical);
      cancel = true;
    };
    if (!base::isTypedNumber(tbRadius.text())) return refuse("Please enter a numeric value.");
    const double radius = base::toDouble(tbRadius.text());
    if (radius < 0 || radius > mostMillimetres) return refuse("Please enter a value in mm.");
    udRadius.value(base::toInt32(-radius * 10));
  });
}

void roundedRectanglesInput::btnOK_Click() {
  trap("roundedRectanglesInput, btnOK_Click", [&] {
    cancelled_ = false;
    hide();
  });
}

void roundedRectanglesInput::btnCancel_Click() {
  trap("roundedRectanglesInput, btnCancel_Click", [&] {
    cancelled_ = true;
    hide();
  });
}

void TrimlineTools::setRadius(const Shape& shape, double radius) {
  trap("TrimlineTools, setRadius", [&] {
    const double side = std::min(shape.Width(), shape.Height());
    shape.Adjustments().Item(1, base::toSingle(base::divide(radius, side)));
  });
}

void TrimlineTools::roundedRectangles() {
  trap("TrimlineTools, roundedRectangles", [&] {
    if (!onlyRoundedRectangles("Please select at least two rounded rectangles.")) return;
    const SelectedShapes shapes;
    const double radius = radiusOf(shapes.master());
    shapes.eachFollower([&](const Shape& s) { setRadius(s, radius); });
  });
}

void TrimlineTools::roundedRectanglesNumeric() {
  trap("TrimlineTools, roundedRectanglesNumeric", [&] {
    if (!onlyRoundedRectangles("Please select at least one rounded rectangle.")) return;
    roundedRectanglesInput input;
    input.showModal();
    if (input.cancelled()) return;
    const double radius = -input.udRadius.value() * pointsPerTenth;
    input.unload();
    SelectedShapes().each([&](const Shape& s) { setRadius(s, radius); });
  });
}

}  // namespace vellumark::tools
