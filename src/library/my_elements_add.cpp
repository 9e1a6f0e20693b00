#include "library/my_elements_add.h"

#include "base/error.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/xml.h"
#include "library/my_elements_index.h"

namespace vellumark::library {
namespace {

using core::trap;

void tellCritical(const std::string& text) { core::message(text, ui::Icon::critical); }

void tellCorrupted() {
  tellCritical("The 'My Elements' database seems to be corrupted.\r\nPlease contact us at " +
               std::string(core::supportEmail) + ".");
}

bool hasIndex() { return core::globals().myElementsDoc != nullptr; }

}  // namespace

myElementsAdd::myElementsAdd() : Form("myElementsAdd", "Add to My Elements") {
  groupList.toolTip("Select destination group");
  elemName.toolTip("Please specify the name for the element to be added");
  btnAddElement.toolTip("Add element to selected group");
  btnAddGroup.toolTip("Add new group");
  btnAddElement.isDefault(true);
  btnCancel.isCancel(true);
  elemName.size(40);
  layout(ui::column(
             {ui::column({ui::Box(lGroupList),
                          ui::row({ui::Box(groupList).stretch(),
                                   ui::column({ui::Box(btnAddGroup), ui::space()}).align(ui::Align::fill)})
                              .stretch()})
                  .gap(1)
                  .stretch(),
              ui::column({ui::Box(lElemName), ui::Box(elemName)}).gap(1),
              ui::row({ui::space(), ui::Box(btnAddElement), ui::Box(btnCancel)})})
             .gap(3));
  onLoad = [this] { Form_Load(); };
  btnAddElement.onClick = [this] { btnAddElement_Click(); };
  btnAddGroup.onClick = [this] { btnAddGroup_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

std::string myElementsAdd::group() const {
  const int index = groupList.listIndex();
  if (index < 0) base::raise(base::errors::subscript);
  return groupList.items()[static_cast<std::size_t>(index)].text;
}

void myElementsAdd::close(bool add) {
  result = add;
  hide();
}

void myElementsAdd::Form_Load() {
  trap("myElementsAdd, Form_Load", [&] {
    if (!hasIndex()) {
      tellCritical(
          "An unexpected error occurred adding to the 'My Elements' collection.\r\nPlease contact us at " +
          std::string(core::supportEmail) + " if the problem persists.");
      return;
    }
    for (const pugi::xpath_node& group : groups()) {
      groupList.addItem(core::attributeText(group.node(), "name"));
    }
    if (groupList.listCount() > 0) groupList.listIndex(0);
    focus(elemName);
    elemName.select(0, static_cast<int>(base::length16(elemName.text())));
  });
}

void myElementsAdd::btnAddElement_Click() {
  trap("myElementsAdd, btnAddElement_Click", [&] {
    if (elemName.text().empty()) {
      tellCritical("The 'Element name' can't be empty. Please specify a name for the element to be added.");
    } else if (groupList.listIndex() < 0) {
      tellCritical("Before adding the element, please create a new group.");
    } else if (!hasIndex()) {
      tellCorrupted();
      close(false);
    } else if (findElement(elemName.text())) {
      tellCritical("The specified element name already exists. Please specify a new name.");
    } else {
      close(true);
    }
  });
}

void myElementsAdd::btnAddGroup_Click() {
  trap("myElementsAdd, btnAddGroup_Click", [&] {
    const auto name = ui::inputBox("Please enter a name for the group you would like to add.",
                                   std::string(core::productTitle), "<New group>");
    if (!name) return;
    if (!hasIndex()) {
      tellCorrupted();
    } else if (name->empty()) {
      tellCritical("The group name cannot be empty.");
    } else if (findGroup(*name)) {
      tellCritical("The group name '" + *name + "' already exists. Please specify a new group name.");
    } else {
      addGroup(*name);
      saveIndex();
      groupList.addItem(*name);
      groupList.listIndex(groupList.listCount() - 1);
    }
  });
}

void myElementsAdd::btnCancel_Click() {
  trap("myElementsAdd, btnCancel_Click", [&] { close(false); });
}

}  // namespace vellumark::library
