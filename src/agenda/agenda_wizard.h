#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "agenda/agenda_document.h"
#include "agenda/agenda_metrics.h"
#include "agenda/aw_status.h"
#include "host/presentation.h"
#include "ui/form.h"

namespace vellumark::agenda {

/// What a row says, and where it stands among the visible ones, from 1.
struct AgendaRow {
  std::int16_t level, selected, isBreak, index;
  const std::string &number, &text, &responsible, &timeSlot, &pageNo;
};

/// Edits the agenda of the active presentation and makes its slides. Every change goes into the document at
/// once, and the tree of items is built anew from it; nothing reaches the presentation before OK. Spinners
/// hold negated minutes. The dialog lives for one use.
class AgendaWizard : public ui::Form, public AgendaMetrics {
 public:
  AgendaWizard();

  AgendaDocument agendaDoc;
  host::Presentation agendaPresentation;
  host::Slide returnSlide;       ///< that was in view, or nothing
  std::string agendaStyle;       ///< the style in use
  bool fillingControls = false;  ///< controls take values from the document; nothing is saved meanwhile
  bool abortDialog = false;      ///< loading failed: the dialog closes as soon as it comes up
  std::string deletedItemIDs;    ///< of the items deleted since the dialog was loaded, each followed by ";"

  /// What btnOK does.
  void OK() { btnOK_Click(); }
  /// Takes the document from its text, or from a file where one is named, and fills the dialog from it.
  /// False where it can't be read.
  bool loadAgendaDocument(const std::string& xmlText, const std::string& fileName);
  /// Builds the tree and the end time anew. The item `wantedID`, or else the one selected so far, is selected
  /// afterwards; with `selectAndFill` the item's controls show it.
  void xml2treeview(bool selectAndFill, const std::string& wantedID);
  /// Write the controls of the item, or those of the whole agenda, into the document.
  void saveCurrentItem();
  void saveAgendaOptions();
  void enableAgendaItemControls(bool enabled);
  /// Whether agenda slides were changed by hand: 0 no, 1 their texts, 2 places of items, 3 both.
  std::int16_t checkForManualChanges();
  /// Computes the measures of the rows.
  void calculateMetrics();
  /// Brings the presentation in line with the document. Needs the measures.
  void createAgendaSlides();
  /// Adds one row to a slide.
  void addAgendaItem(const host::Slide& slide, std::int16_t level, std::int16_t selected,
                     std::int16_t isBreak, std::int16_t index, const std::string& number,
                     const std::string& text, const std::string& responsible, const std::string& timeSlot,
                     const std::string& pageNo);

  ui::TreeView tvItems{*this, "tvItems"};
  ui::CommandButton btnAddItem{*this, "btnAddItem", "&Add item"};
  ui::CommandButton btnDeleteItem{*this, "btnDeleteItem", "&Delete item"};
  ui::Label lPosition{*this, "lPosition", "Position"};
  ui::CommandButton btnUp{*this, "btnUp", "▲"};
  ui::CommandButton btnDown{*this, "btnDown", "▼"};
  ui::CommandButton btnLeft{*this, "btnLeft", "◀"};
  ui::CommandButton btnRight{*this, "btnRight", "▶"};

  ui::Label lAgendaItem{*this, "lAgendaItem", "Agenda item"};
  ui::TextBox tbAgendaItem{*this, "tbAgendaItem"};
  ui::Label lResponsible{*this, "lResponsible", "Responsible"};
  ui::TextBox tbResponsible{*this, "tbResponsible"};
  ui::Label lDuration{*this, "lDuration", "Duration"};
  ui::TextBox tbDuration{*this, "tbDuration", "30"};
  ui::ScrollBar udDuration{*this, "udDuration", -1440, 0, -30};
  ui::Label lMinutes{*this, "lMinutes", "(in minutes)"};
  ui::CheckBox cbBreak{*this, "cbBreak", "Break"};
  ui::CheckBox cbGenerateAgendaSlide{*this, "cbGenerateAgendaSlide", "Generate agenda slide"};
  ui::CheckBox cbShowAgendaItem{*this, "cbShowAgendaItem", "Show agenda item"};

  ui::Line rule{*this, "rule"};
  ui::Label lTitle{*this, "lTitle", "Title"};
  ui::TextBox tbTitle{*this, "tbTitle", "Agenda"};
  ui::Label lSubtitle{*this, "lSubtitle", "Subtitle"};
  ui::TextBox tbSubtitle{*this, "tbSubtitle"};
  ui::Label lStart{*this, "lStart", "Start time"};
  ui::TextBox tbStart{*this, "tbStart", "09:00"};
  ui::ScrollBar udStart{*this, "udStart", -1439, 0, -540};
  ui::Label lEndTime{*this, "lEndTime", "End time"};
  ui::Label lEnd{*this, "lEnd", "09:00"};
  ui::CheckBox cbShowItemNumbers{*this, "cbShowItemNumbers", "Show item numbers"};
  ui::CheckBox cbShowResponsible{*this, "cbShowResponsible", "Show responsible"};
  ui::CheckBox cbShowTimeSlots{*this, "cbShowTimeSlots", "Show time slots"};
  ui::CheckBox cbShowPageNumbers{*this, "cbShowPageNumbers", "Show page numbers"};
  ui::Label lStyle{*this, "lStyle", "Style"};
  ui::ComboBox cbStyle{*this, "cbStyle"};

  ui::CommandButton btnImport{*this, "btnImport", "&Import agenda from another presentation"};
  ui::CommandButton btnDeleteAgenda{*this, "btnDeleteAgenda", "Delete agenda"};
  ui::CommandButton btnOK{*this, "btnOK", "OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void arrange();
  void bind();

  // The dialog.
  void Form_Load();
  void Form_Activate();
  void Form_Unload();
  void btnOK_Click();
  void btnCancel_Click();
  void chooseStyle();
  void loadStoredOrTemplate();
  void warnOfManualChanges();
  void fillOptions();
  void fillItem();
  void cbStyle_Validate(bool& cancel);

  // The items.
  void tvItems_NodeClick();
  void tvItems_Collapse(const std::string& key);
  void btnAddItem_Click();
  void btnDeleteItem_Click();
  void btnUp_Click();
  void btnDown_Click();
  void btnLeft_Click();
  void btnRight_Click();
  /// The item of the selected node, or nothing.
  pugi::xml_node selectedItem() const;
  /// Selects an item's node, if it has one, without filling the controls.
  void selectNode(const pugi::xml_node& item);
  std::string addNodes(const std::string& wantedKey);
  static void LockControl(ui::Control& control, bool lock);

  // The controls of an item and of the agenda.
  void tbAgendaItem_Change() { itemChanged(); }
  void tbResponsible_Change() { itemChanged(); }
  void cbBreak_Click() { itemChanged(); }
  void tbTitle_Change() { optionChanged(); }
  void tbSubtitle_Change() { optionChanged(); }
  void cbShowItemNumbers_Click() { optionChanged(); }
  void cbShowResponsible_Click() { optionChanged(); }
  void cbGenerateAgendaSlide_Click();
  void cbShowAgendaItem_Click();
  void cbShowPageNumbers_Click();
  void cbShowTimeSlots_Click();
  void tbDuration_Validate(bool& cancel);
  void tbStart_Validate(bool& cancel);
  void takeFocus(ui::TextBox& field);
  void udDuration_Change();
  void udStart_Change();
  /// Save the item or the options, unless the program fills the controls.
  void itemChanged();
  void optionChanged();

  // Other presentations, and the end of an agenda.
  void btnImport_Click();
  void btnDeleteAgenda_Click();

  // Making slides.
  host::Slide slideFor(const pugi::xml_node& item, std::int16_t& newSlideCount);
  void setTitle(const host::Slide& slide) const;
  void addSubtitle(const host::Slide& slide) const;
  void addRows(const host::Slide& slide, AgendaNumbers& numbers, std::int16_t currentVisibleIndex);
  std::string numberOf(AgendaNumbers& numbers, const pugi::xml_node& item) const;
  void deleteObsoleteSlides();
  void addRowWithBox(const host::Slide& slide, const AgendaRow& row);
  void fillBox(const host::Shape& box, const std::string& number, const pugi::xml_node& look) const;
  void addBarRow(const host::Slide& slide, const AgendaRow& row);
  void writeBar(const host::TextRange& text, const AgendaRow& row, const pugi::xml_node& style) const;

  // Measuring.
  void readFormat();
  void readNumberRules();
  Widths measureColumns();
  host::Shape measuringBox(const std::string& text);
  double getWidth(const std::string& text);
  double getMaxWidth(const std::string& xpath);

  host::Slide measureSlide_;
  std::unique_ptr<awStatus> status_;  ///< while slides are made
  bool building_ = false;             ///< the tree is being built; its selection is the program's
};

}  // namespace vellumark::agenda
