#include "tools/autoshape_adjustments.h"

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/message.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;
using host::Shape;

std::string withPoint(const std::string& number) { return base::replaceAll(number, ",", "."); }

}  // namespace

AutoShapeAdjustments::AutoShapeAdjustments() : Form("AutoShapeAdjustments", "Tweak AutoShape adjustments") {
  std::vector<ui::Box> rows;
  for (std::size_t i = 0; i < tbAdj.size(); ++i) {
    lAdj[i].caption("Adjustment &" + std::to_string(i + 1) + ":");
    tbAdj[i].size(16);
    rows.emplace_back(lAdj[i]);
    rows.push_back(ui::Box(tbAdj[i]).stretch());
  }
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(
      ui::column({ui::grid(2, std::move(rows)), ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
          .gap(3));
  onActivate = [this] { Form_Activate(); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

// A box shows the value of the last shape. A handle that one of the shapes lacks has no box.
void AutoShapeAdjustments::Form_Activate() {
  trap("AutoShapeAdjustments, Form_Activate", [&] {
    const SelectedShapes shapes;
    for (std::size_t i = 0; i < tbAdj.size(); ++i) {
      const int item = static_cast<int>(i) + 1;
      const bool exists = base::resumeNext([&] {
        shapes.each([&](const Shape& s) {
          tbAdj[i].text(base::trim(withPoint(base::singleText(s.Adjustments().Item(item)))));
        });
      });
      tbAdj[i].visible(exists);
      lAdj[i].visible(exists);
    }
    if (tbAdj[0].visible()) return;
    lAdj[0].caption("At least one shape in your selection does not support adjustments.");
    lAdj[0].bold(true);
    lAdj[0].visible(true);
    btnOK.enabled(false);
  });
}

void AutoShapeAdjustments::btnOK_Click() {
  trap("AutoShapeAdjustments, btnOK_Click", [&] {
    for (std::size_t i = 0; i < tbAdj.size(); ++i) {
      if (!tbAdj[i].visible() || base::isNumeric(tbAdj[i].text())) continue;
      core::message("Please enter a numeric value for adjustment " + std::to_string(i + 1) + ".",
                    ui::Icon::critical);
      return;
    }
    SelectedShapes().each([&](const Shape& s) {
      for (std::size_t i = 0; i < tbAdj.size(); ++i) {
        if (!tbAdj[i].visible()) continue;
        const double value = base::val(withPoint(tbAdj[i].text()));
        s.Adjustments().Item(static_cast<int>(i) + 1, base::toSingle(value));
      }
    });
    unload();
  });
}

void AutoShapeAdjustments::btnCancel_Click() {
  trap("AutoShapeAdjustments, btnCancel_Click", [&] { unload(); });
}

void TrimlineTools::tweakAutoShapeAdjustments() {
  trap("TrimlineTools, tweakAutoShapeAdjustments", [&] { AutoShapeAdjustments().showModal(); });
}

}  // namespace vellumark::tools
