#include "tools/black_white_mode.h"

#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "tools/selected_shapes.h"
#include "tools/slide_extract.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

/// In the order of the host's modes, which count from 1.
constexpr const char* modes[] = {"Automatic",
                                 "Grayscale",
                                 "Light Grayscale",
                                 "Inverse Grayscale",
                                 "Gray with White Fill",
                                 "Black with Grayscale Fill",
                                 "Black with White Fill",
                                 "Black",
                                 "While",
                                 "Don't show"};

void setModes(const host::Slide& slide, int background, int shapeMode) {
  slide.Background().BlackWhiteMode(background);
  const host::Shapes shapes = slide.Shapes();
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) shapes.Item(i).BlackWhiteMode(shapeMode);
}

}  // namespace

BlackWhiteMode::BlackWhiteMode() : Form("BlackWhiteMode", "Set black and white mode") {
  for (ui::ComboBox* list : {&cbBackground, &cbShapes}) {
    for (const char* mode : modes) list->addItem(mode);
    list->listIndex(0);
  }
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(ui::column(
             {ui::grid(2, {ui::Box(lBackground), ui::Box(cbBackground), ui::Box(lShapes), ui::Box(cbShapes)}),
              ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

/// Sets the modes by what is selected; the report.
std::string BlackWhiteMode::apply() const {
  const host::DocumentWindow window = core::globals().powerPointApp.ActiveWindow();
  const int background = cbBackground.listIndex() + 1, shapes = cbShapes.listIndex() + 1;
  const std::string backgroundMode = cbBackground.text(), shapesMode = cbShapes.text();
  switch (window.Selection().Type()) {
    case host::ppSelectionSlides:
      for (const host::Slide& slide : slidesOf(window.Selection().SlideRange())) {
        setModes(slide, background, shapes);
      }
      return "The background of all selected slides in your presentation has been set to '" + backgroundMode +
             "' mode, all shapes on the selected slides have been set to '" + shapesMode + "' mode.";
    case host::ppSelectionShapes:
      SelectedShapes().range().BlackWhiteMode(shapes);
      return "All selected shapes have been set to '" + shapesMode + "' mode.";
    default:
      for (const host::Slide& slide : slidesOf(window.Presentation().Slides().Range())) {
        setModes(slide, background, shapes);
      }
      return "The background of all slides in your presentation has been set to '" + backgroundMode +
             "' mode, all shapes have been set to '" + shapesMode + "' mode.";
  }
}

void BlackWhiteMode::btnOK_Click() {
  trap("BlackWhiteMode, btnOK_Click", [&] {
    core::message(apply(), ui::Icon::information);
    hide();
  });
}

void BlackWhiteMode::btnCancel_Click() {
  trap("BlackWhiteMode, btnCancel_Click", [&] { hide(); });
}

void TrimlineTools::setBlackWhiteMode() {
  trap("TrimlineTools, setBlackWhiteMode", [&] {
    const host::Application& application = core::globals().powerPointApp;
    if (application.Windows().Count() == 0) {
      core::message("Please open a presentation first.", ui::Icon::information);
      return;
    }
    const int type = application.ActiveWindow().Selection().Type();
    if (type == host::ppSelectionText || type == host::ppSelectionNone) {
      const ui::Answer answer = core::message(
          "You have not selected any slides or shapes.\r\nWould you like to apply the black and white "
          "settings to the entire presentation instead?",
          ui::Icon::question, ui::Buttons::okCancel);
      if (answer == ui::Answer::cancel) return;
    }
    BlackWhiteMode().showModal();
  });
}

}  // namespace vellumark::tools
