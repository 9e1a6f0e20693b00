// Adding, deleting and moving items. The list is flat: an item moves by one place and leaves those of the
// second level behind it where they are.

#include "agenda/agenda_wizard.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::trap;

void setNewItem(const pugi::xml_node& item, bool secondLevel, const std::string& id) {
  set(item, "level", secondLevel ? 2 : 1);
  set(item, "text", std::string("<new item>"));
  set(item, "responsible", std::string());
  set(item, "duration", 30);
  set(item, "break", false);
  set(item, "slideID", id);
  set(item, "showAgendaItem", true);
  set(item, "generateAgendaSlide", true);
}

}  // namespace

/// The new item lies directly below the selected one, at its level.
void AgendaWizard::btnAddItem_Click() {
  trap("AgendaWizard, btnAddItem_Click", [&] {
    const std::string id = core::getGUID();
    const ui::TreeView::Node* node = tvItems.find(tvItems.selectedKey());
    pugi::xml_node list = agendaDoc.itemList();
    const pugi::xml_node next = node ? selectedItem().next_sibling() : pugi::xml_node();
    const pugi::xml_node item = next ? list.insert_child_before("item", next) : list.append_child("item");
    setNewItem(item, node && node->parent != &tvItems.root(), id);
    xml2treeview(true, id);
  });
}

void AgendaWizard::btnDeleteItem_Click() {
  trap("AgendaWizard, btnDeleteItem_Click", [&] {
    if (!tvItems.selectedKey().empty()) {
      const pugi::xml_node item = selectedItem();
      deletedItemIDs += core::attributeText(item, "slideID") + ";";
      const pugi::xml_node next = item.next_sibling();
      const pugi::xml_node neighbour = next ? next : item.previous_sibling();
      agendaDoc.itemList().remove_child(item);
      if (neighbour) selectNode(neighbour);
    }
    xml2treeview(true, "");
  });
}

void AgendaWizard::btnUp_Click() {
  trap("AgendaWizard, btnUp_Click", [&] {
    const pugi::xml_node item = selectedItem();
    if (const pugi::xml_node before = item.previous_sibling()) {
      // The second level can't come first.
      if (integer(item, "level") == 2 && !before.previous_sibling()) set(item, "level", 1);
      agendaDoc.itemList().insert_move_before(item, before);
    }
    xml2treeview(false, "");
  });
}

void AgendaWizard::btnDown_Click() {
  trap("AgendaWizard, btnDown_Click", [&] {
    const pugi::xml_node item = selectedItem();
    if (const pugi::xml_node behind = item.next_sibling()) {
      if (!item.previous_sibling() && integer(behind, "level") == 2) set(behind, "level", 1);
      agendaDoc.itemList().insert_move_before(behind, item);
    }
    xml2treeview(false, "");
  });
}

void AgendaWizard::btnLeft_Click() {
  trap("AgendaWizard, btnLeft_Click", [&] {
    const ui::TreeView::Node* node = tvItems.find(tvItems.selectedKey());
    if (node && node->parent != &tvItems.root()) set(selectedItem(), "level", 1);
    xml2treeview(false, "");
  });
}

/// The first item can't go down a level.
void AgendaWizard::btnRight_Click() {
  trap("AgendaWizard, btnRight_Click", [&] {
    const ui::TreeView::Node* node = tvItems.find(tvItems.selectedKey());
    const auto& top = tvItems.root().children;
    if (node && node->parent == &tvItems.root() && top.front().get() != node) set(selectedItem(), "level", 2);
    xml2treeview(false, "");
  });
}

}  // namespace vellumark::agenda
