#include "tools/margin_input.h"

#include <array>
#include <cmath>

#include "base/conversions.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/message.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

constexpr double pointsPerCentimetre = 28.35;
constexpr double mostCentimetres = 1000;
constexpr int tenth = 10;  ///< of a centimetre, as the spinners count
/// Of a range whose shapes differ.
constexpr float mixedMargin = host::mixed;

/// What a validator does with a box: text that can be a margin goes to its spinner, which 16 bits hold.
void validate(const ui::TextBox& box, ui::ScrollBar& spinner, bool& cancel) {
  const auto refuse = [&](const char* text) {
    core::message(text, ui::Icon::critical);
    cancel = true;
  };
  if (box.text().empty()) return;
  if (!base::isTypedNumber(box.text())) return refuse("Please enter a numeric value.");
  const double centimetres = base::toDouble(box.text());
  if (centimetres < 0 || centimetres > mostCentimetres) return refuse("Please enter a value in cm.");
  spinner.value(base::toInt16(-centimetres * 100));
}

}  // namespace

MarginInput::MarginInput() : Form("MarginInput", "Set margins") {
  static constexpr std::array<const char*, 4> sides = {"&Left", "&Top", "&Right", "&Bottom"};
  lExplanation.wrapAt(48);
  Opt[0].caption("&All margins");
  Opt[1].caption("&Individual margins");
  Opt[0].value(true);
  tbMargin.size(8);
  udMargin.smallChange(tenth);
  const auto field = [](ui::TextBox& box, ui::ScrollBar& spinner) {
    return ui::row({ui::Box(box), ui::Box(spinner)}).gap(0);
  };
  std::vector<ui::Box> rows;
  for (std::size_t i = 0; i < tbM.size(); ++i) {
    lM[i].caption(sides[i]);
    tbM[i].size(8);
    udM[i].smallChange(tenth);
    rows.emplace_back(lM[i]);
    rows.push_back(field(tbM[i], udM[i]));
    tbM[i].onValidate = [this, i](bool& cancel) { tbM_Validate(i, cancel); };
    udM[i].onChange = [this, i] { udM_Change(i); };
  }
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(ui::column({ui::Box(lExplanation),
                     ui::row({ui::column({ui::Box(Opt[0]), field(tbMargin, udMargin), ui::space()}),
                              ui::column({ui::Box(Opt[1]), ui::grid(2, std::move(rows))}), ui::space()})
                         .gap(4),
                     ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
  enableFields();
  onActivate = [this] { Form_Activate(); };
  for (std::size_t i = 0; i < Opt.size(); ++i) Opt[i].onClick = [this] { Opt_Click(); };
  tbMargin.onValidate = [this](bool& cancel) { tbMargin_Validate(cancel); };
  udMargin.onChange = [this] { udMargin_Change(); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

std::string MarginInput::getMarginText(float points) {
  return base::formatFixed(points / pointsPerCentimetre, 2);
}

std::int32_t MarginInput::getMarginValue(float points) {
  constexpr double most = 100'000;
  const double value = points / pointsPerCentimetre * 100;
  return value < 0 || value > most ? 0 : base::toInt32(value);
}

void MarginInput::load() {
  const host::TextFrame frame = SelectedShapes().range().TextFrame();
  const std::array<float, 4> margins = {frame.MarginLeft(), frame.MarginTop(), frame.MarginRight(),
                                        frame.MarginBottom()};
  const bool same = margins[0] == margins[1] && margins[0] == margins[2] && margins[0] == margins[3];
  if (same && margins[0] != mixedMargin) {
    tbMargin.text(getMarginText(margins[0]));
    udMargin.value(-getMarginValue(margins[0]));
  }
  for (std::size_t i = 0; i < margins.size(); ++i) {
    const bool mixed = margins[i] <= mixedMargin;
    tbM[i].text(mixed ? std::string() : getMarginText(margins[i]));
    udM[i].value(mixed ? 0 : -getMarginValue(margins[i]));
  }
}

void MarginInput::enableFields() {
  tbMargin.enabled(Opt[0].value());
  udMargin.enabled(Opt[0].value());
  for (std::size_t i = 0; i < tbM.size(); ++i) {
    tbM[i].enabled(Opt[1].value());
    udM[i].enabled(Opt[1].value());
  }
}

void MarginInput::Form_Activate() {
  trap("MarginInput, Form_Activate", [&] {
    load();
    focus(tbMargin);
    tbMargin.select(0, static_cast<int>(base::length16(tbMargin.text())));
  });
}

/// What was typed is dropped.
void MarginInput::Opt_Click() {
  trap("MarginInput, Opt_Click", [&] {
    load();
    enableFields();
  });
}

void MarginInput::tbMargin_Validate(bool& cancel) {
  trap("MarginInput, tbMargin_Validate", [&] {
    if (Opt[0].value()) validate(tbMargin, udMargin, cancel);
  });
}

// Both validators report under one name.
void MarginInput::tbM_Validate(std::size_t index, bool& cancel) {
  trap("MarginInput, tbMargin_Validate", [&] {
    if (Opt[1].value()) validate(tbM[index], udM[index], cancel);
  });
}

void MarginInput::udMargin_Change() {
  trap("MarginInput, udMargin_Change", [&] {
    if (!Opt[0].value()) return;
    focus(Opt[0]);
    tbMargin.text(base::formatFixed(-udMargin.value() / 100.0, 2));
    for (std::size_t i = 0; i < tbM.size(); ++i) {
      tbM[i].text(tbMargin.text());
      udM[i].value(udMargin.value());
    }
  });
}

void MarginInput::udM_Change(std::size_t index) {
  trap("MarginInput, udM_Change", [&] {
    if (!Opt[1].value()) return;
    focus(Opt[1]);
    tbMargin.text("");
    udMargin.value(0);
    tbM[index].text(base::formatFixed(-udM[index].value() / 100.0, 2));
  });
}

void MarginInput::btnOK_Click() {
  trap("MarginInput, btnOK_Click", [&] {
    bool missing = Opt[0].value() && tbMargin.text().empty();
    for (std::size_t i = 0; i < tbM.size(); ++i) missing |= Opt[1].value() && tbM[i].text().empty();
    if (missing) {
      core::message("Please enter a value in cm.", ui::Icon::critical);
      return;
    }
    cancelled_ = false;
    hide();
  });
}

void MarginInput::btnCancel_Click() {
  trap("MarginInput, btnCancel_Click", [&] {
    cancelled_ = true;
    hide();
  });
}

void TrimlineTools::setMargins() {
  trap("TrimlineTools, setMargins", [&] {
    const auto walk = [&] {
      iterate(core::globals().powerPointApp.ActiveWindow().Selection(), "setMargins");
    };
    MarginInput input;
    input.showModal();
    if (!input.cancelled()) {
      marginInput_ = &input;
      walk();
      walk();  // the walk runs twice
      marginInput_ = nullptr;
    }
    input.unload();
  });
}

void TrimlineTools::margins(const host::TextFrame& frame) {
  trap("TrimlineTools, margins", [&] {
    const auto points = [](const ui::TextBox& box) {
      return base::toSingle(base::toDouble(box.text()) * pointsPerCentimetre);
    };
    if (!marginInput_) base::raise(base::errors::objectNotSet);
    const MarginInput& input = *marginInput_;
    if (input.Opt[0].value()) {
      const float all = points(input.tbMargin);
      frame.MarginTop(all);
      frame.MarginBottom(all);
      frame.MarginLeft(all);
      frame.MarginRight(all);
    } else {
      frame.MarginLeft(points(input.tbM[0]));
      frame.MarginTop(points(input.tbM[1]));
      frame.MarginRight(points(input.tbM[2]));
      frame.MarginBottom(points(input.tbM[3]));
    }
  });
}

}  // namespace vellumark::tools
