#include "agenda/agenda_wizard.h"

#include "agenda/agenda_ties.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"

namespace vellumark::agenda {

using core::trap;

AgendaWizard::AgendaWizard() : Form("AgendaWizard", "Agenda Wizard") {
  for (ui::ScrollBar* spinner : {&udDuration, &udStart}) {
    spinner->smallChange(15);
    spinner->largeChange(60);
  }
  cbBreak.toolTip("Format this agenda item as break and skip item number");
  cbGenerateAgendaSlide.toolTip("Generate an agenda slide for this agenda item");
  cbShowAgendaItem.toolTip(
      "Show this agenda item in the agenda. This option may be useful if you don't want to show a coffee "
      "break as an agenda item but still consider it in the automatic calculation of the time slots.");
  cbShowPageNumbers.toolTip("Shows the page numbers for each agenda item");
  btnAddItem.toolTip("Add new item to Agenda");
  btnDeleteItem.toolTip("Delete agenda item");
  btnUp.toolTip("Move item up");
  btnDown.toolTip("Move item down");
  btnLeft.toolTip("One level up");
  btnRight.toolTip("One level down");
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  arrange();
  bind();
}

void AgendaWizard::arrange() {
  using ui::Box;
  using ui::column;
  using ui::grid;
  using ui::row;
  using ui::space;

  tbAgendaItem.size(36);
  tbResponsible.size(36);
  tbDuration.size(6);
  tbTitle.size(36);
  tbSubtitle.size(36);
  tbStart.size(6);
  lEnd.bold(true);
  const auto spinner = [](ui::TextBox& text, ui::ScrollBar& arrows) {
    return row({Box(text), Box(arrows)}).gap(0);
  };
  Box items =
      column({Box(tvItems).stretch(), row({Box(btnAddItem), Box(btnDeleteItem), space(), Box(lPosition),
                                           Box(btnUp), Box(btnDown), Box(btnLeft), Box(btnRight)})});
  constexpr int labelWidth = 12;  // both lists of fields begin at the same place
  Box item = column({grid(2, {Box(lAgendaItem).atLeast(labelWidth), Box(tbAgendaItem).stretch(),
                              Box(lResponsible), Box(tbResponsible).stretch(), Box(lDuration),
                              row({spinner(tbDuration, udDuration), Box(lMinutes), space()})}),
                     Box(cbBreak), Box(cbGenerateAgendaSlide), Box(cbShowAgendaItem)})
                 .gap(1);
  Box options = column({grid(2, {Box(lTitle).atLeast(labelWidth), Box(tbTitle).stretch(), Box(lSubtitle),
                                 Box(tbSubtitle).stretch(), Box(lStart),
                                 row({spinner(tbStart, udStart), Box(lEndTime), Box(lEnd), space()}),
                                 Box(lStyle), Box(cbStyle).stretch()}),
                        grid(2, {Box(cbShowItemNumbers), Box(cbShowResponsible), Box(cbShowTimeSlots),
                                 Box(cbShowPageNumbers)})});
  layout(column({row({std::move(items).stretch(),
                      column({std::move(item), Box(rule), std::move(options), space()}).gap(3)})
                     .gap(4)
                     .stretch(),
                 row({Box(btnImport), Box(btnDeleteAgenda), space(), Box(btnOK), Box(btnCancel)})})
             .gap(4));
}

void AgendaWizard::bind() {
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  onUnload = [this] { Form_Unload(); };
  tvItems.onNodeClick = [this](const std::string&) {
    if (!building_) tvItems_NodeClick();
  };
  tvItems.onCollapse = [this](const std::string& key) { tvItems_Collapse(key); };
  btnAddItem.onClick = [this] { btnAddItem_Click(); };
  btnDeleteItem.onClick = [this] { btnDeleteItem_Click(); };
  btnUp.onClick = [this] { btnUp_Click(); };
  btnDown.onClick = [this] { btnDown_Click(); };
  btnLeft.onClick = [this] { btnLeft_Click(); };
  btnRight.onClick = [this] { btnRight_Click(); };
  tbAgendaItem.onChange = [this] { tbAgendaItem_Change(); };
  tbResponsible.onChange = [this] { tbResponsible_Change(); };
  cbBreak.onClick = [this] { cbBreak_Click(); };
  cbGenerateAgendaSlide.onClick = [this] { cbGenerateAgendaSlide_Click(); };
  cbShowAgendaItem.onClick = [this] { cbShowAgendaItem_Click(); };
  tbDuration.onValidate = [this](bool& cancel) { tbDuration_Validate(cancel); };
  udDuration.onChange = [this] { udDuration_Change(); };
  tbTitle.onChange = [this] { tbTitle_Change(); };
  tbSubtitle.onChange = [this] { tbSubtitle_Change(); };
  cbShowItemNumbers.onClick = [this] { cbShowItemNumbers_Click(); };
  cbShowResponsible.onClick = [this] { cbShowResponsible_Click(); };
  cbShowTimeSlots.onClick = [this] { cbShowTimeSlots_Click(); };
  cbShowPageNumbers.onClick = [this] { cbShowPageNumbers_Click(); };
  tbStart.onValidate = [this](bool& cancel) { tbStart_Validate(cancel); };
  udStart.onChange = [this] { udStart_Change(); };
  cbStyle.onValidate = [this](bool& cancel) { cbStyle_Validate(cancel); };
  btnImport.onClick = [this] { btnImport_Click(); };
  btnDeleteAgenda.onClick = [this] { btnDeleteAgenda_Click(); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void AgendaWizard::Form_Load() {
  trap(
      "AgendaWizard, Form_Load",
      [&] {
        abortDialog = false;
        const host::Application& application = core::globals().powerPointApp;
        if (application.Presentations().Count() == 0) {
          core::message("Please open a presentation first.", ui::Icon::information);
          abortDialog = true;
          return;
        }
        agendaPresentation = application.ActivePresentation();
        returnSlide = {};
        if (application.Windows().Count() > 0) {
          const host::Selection selection = application.ActiveWindow().Selection();
          if (selection.Type() != host::ppSelectionNone) returnSlide = selection.SlideRange().Item(1);
        }
        chooseStyle();
        loadStoredOrTemplate();
        if (!abortDialog) warnOfManualChanges();
      },
      [&](const base::Error&) {
        abortDialog = true;
        return false;
      });
}

void AgendaWizard::Form_Activate() {
  trap("AgendaWizard, Form_Activate", [&] {
    if (abortDialog) unload();
  });
}

void AgendaWizard::Form_Unload() {
  trap("AgendaWizard, Form_Unload", [&] { agendaDoc.clear(); });
}

void AgendaWizard::btnCancel_Click() {
  trap("AgendaWizard, btnCancel_Click", [&] { unload(); });
}

// Where making the slides breaks off, the slides made so far stay and the presentation's tags are as before.
void AgendaWizard::btnOK_Click() {
  trap(
      "AgendaWizard, btnOK_Click",
      [&] {
        agendaDoc.agenda();  // a document that couldn't be read fails here, before anything is touched
        hide();
        status_ = std::make_unique<awStatus>();
        status_->showModeless();
        status_->say("Calculating metrics...");
        calculateMetrics();
        status_->progress.range(1, visibleItemCount + 3);
        status_->repaint();
        createAgendaSlides();
        status_->progress.value(status_->progress.max());
        status_->say("Saving agenda...");
        agendaPresentation.Tags().Add(tags::document, agendaDoc.text());
        agendaPresentation.Tags().Add(tags::style, agendaStyle);
        status_->unload();
        unload();
        core::resumeNext([&] { returnSlide.Select(); });
      },
      [&](const base::Error&) {
        if (status_) status_->unload();
        unload();
        return false;
      });
}

}  // namespace vellumark::agenda
