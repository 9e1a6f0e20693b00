#include "library/my_elements_manager.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/xml.h"
#include "library/hidden_presentation.h"
#include "library/my_elements.h"
#include "library/my_elements_index.h"

namespace vellumark::library {
namespace {

using core::attributeText;
using core::globals;
using core::trap;

constexpr std::int16_t selectNothing = 0, selectGroup = 1, selectElement = 2;
/// Places in the tree's list of images.
constexpr int groupImage = 1, elementImage = 2;
constexpr const char* newGroup = "<New group>";

/// The node that is selected when this one goes: that behind it, else the one before, else its group.
std::string neighbourOf(const ui::TreeView::Node& node) {
  const auto& siblings = node.parent->children;
  const auto place = std::ranges::find_if(siblings, [&](const auto& one) { return one.get() == &node; });
  if (place + 1 != siblings.end()) return (*(place + 1))->key;
  return place == siblings.begin() ? node.parent->key : (*(place - 1))->key;
}

}  // namespace

myElementsManager::myElementsManager() : Form("myElementsManager", "Manage My Elements") {
  btnRename.toolTip("Rename group or element");
  btnAddGroup.toolTip("Add group");
  btnDelete.toolTip("Delete group or element");
  btnUp.toolTip("Move group or element up");
  btnDown.toolTip("Move group or element down");
  elementsTree.labelEdit(true);
  elementsTree.images = {globals().uiFolder + "me_group_16.png", globals().uiFolder + "me_element_16.png"};
  arrange();
  onLoad = [this] { Form_Load(); };
  elementsTree.onGotFocus = [this] { elementsTree_GotFocus(); };
  elementsTree.onAfterLabelEdit = [this](const std::string&, const std::string& text, bool& cancel) {
    elementsTree_AfterLabelEdit(cancel, text);
  };
  btnRename.onClick = [this] { btnRename_Click(); };
  btnAddGroup.onClick = [this] { btnAddGroup_Click(); };
  btnDelete.onClick = [this] { btnDelete_Click(); };
  btnUp.onClick = [this] { btnUp_Click(); };
  btnDown.onClick = [this] { btnDown_Click(); };
  btnOK.onClick = [this] { btnOK_Click(); };
  btnCancel.onClick = [this] { btnCancel_Click(); };
}

void myElementsManager::arrange() {
  info.wrapAt(76);
  layout(ui::column({ui::Box(info),
                     ui::row({ui::Box(elementsTree).atLeast(44, 16).stretch(),
                              ui::column({ui::Box(btnRename), ui::Box(btnAddGroup), ui::Box(btnDelete),
                                          ui::row({ui::Box(btnUp).stretch(), ui::Box(btnDown).stretch()}),
                                          ui::space()})})
                         .stretch(),
                     ui::row({ui::space(), ui::Box(btnOK), ui::Box(btnCancel)})})
             .gap(3));
}

void myElementsManager::Form_Load() {
  trap("myElementsManager, Form_Load", [&] {
    if (globals().myElementsDoc) {
      xml2treeview(selectNothing, "");
      return;
    }
    core::message("The 'My Elements' database seems to be corrupted. Please contact us at " +
                      std::string(core::supportEmail) + ".",
                  ui::Icon::critical);
    unload();
  });
}

void myElementsManager::LockControl(ui::Control& control, bool lock) { control.redraw(!lock); }

void myElementsManager::xml2treeview(std::int16_t selectType, const std::string& selectName) {
  trap(
      "myElementsManager, xml2treeview",
      [&] {
        LockControl(elementsTree, true);
        elementsTree.clear();
        addNodes(selectType, selectName);
        LockControl(elementsTree, false);
      },
      [&](const base::Error&) {
        LockControl(elementsTree, false);
        return false;
      });
}

/// Nodes are expanded from the start.
void myElementsManager::addNodes(std::int16_t selectType, const std::string& selectName) {
  int number = 0;
  const auto add = [&](const std::string& parent, const std::string& name, int image, std::int16_t type) {
    const std::string key = "ID" + std::to_string(++number);
    elementsTree.add(parent, key, name, image);
    if (selectType == type && name == selectName) elementsTree.select(key);
    return key;
  };
  for (const pugi::xpath_node& group : groups()) {
    const std::string name = attributeText(group.node(), "name");
    const std::string key = add("", name, groupImage, selectGroup);
    for (const pugi::xpath_node& element : elementsOf(name)) {
      add(key, attributeText(element.node(), "name"), elementImage, selectElement);
    }
  }
}

const ui::TreeView::Node& myElementsManager::selectedNode() const {
  const ui::TreeView::Node* node = elementsTree.find(elementsTree.selectedKey());
  if (elementsTree.selectedKey().empty() || !node) base::raise(base::errors::objectNotSet);
  return *node;
}

pugi::xml_node myElementsManager::indexed(const ui::TreeView::Node& node) const {
  const pugi::xml_node found = isGroup(node) ? findGroup(node.text) : findElement(node.text);
  if (!found) base::raise(base::errors::objectNotSet);
  return found;
}

/// Where nothing is selected yet, the first group is as soon as the user comes to the tree.
void myElementsManager::elementsTree_GotFocus() {
  trap("myElementsManager, elementsTree_GotFocus", [&] {
    const auto& top = elementsTree.root().children;
    if (elementsTree.selectedKey().empty() && !top.empty()) elementsTree.select(top.front()->key);
  });
}

void myElementsManager::btnAddGroup_Click() {
  trap("myElementsManager, btnAddGroup_Click", [&] {
    if (findGroup(newGroup)) {
      core::message("Before creating a new group you need to rename the group '<New group>'.",
                    ui::Icon::information);
      return;
    }
    addGroup(newGroup);
    xml2treeview(selectNothing, "");
    elementsTree.select(elementsTree.root().children.back()->key);
    elementsTree.startLabelEdit();
  });
}

void myElementsManager::btnRename_Click() {
  trap("myElementsManager, btnRename_Click", [&] { elementsTree.startLabelEdit(); });
}

/// A name that stays as it is finds itself.
void myElementsManager::elementsTree_AfterLabelEdit(bool& cancel, const std::string& newText) {
  trap("myElementsManager, elementsTree_AfterLabelEdit", [&] {
    const auto refuse = [&](const char* why) {
      core::message(why, ui::Icon::critical);
      cancel = true;
    };
    if (newText.empty()) return refuse("The name can't be empty. Please specify a name.");
    const ui::TreeView::Node& selected = selectedNode();
    if (isGroup(selected) ? findGroup(newText) : findElement(newText)) {
      return refuse("The specified name already exists. Please specify a new name.");
    }
    indexed(selected).attribute("name").set_value(newText.c_str());
  });
}

void myElementsManager::btnUp_Click() {
  trap("myElementsManager, btnUp_Click", [&] {
    const ui::TreeView::Node& selected = selectedNode();
    const bool group = isGroup(selected);
    const std::string name = selected.text;
    const pugi::xml_node node = indexed(selected);
    pugi::xml_node parent = node.parent();
    if (const pugi::xml_node before = node.previous_sibling()) {
      parent.insert_move_before(node, before);
    } else if (pugi::xml_node groupBefore = parent.previous_sibling(); !group && groupBefore) {
      groupBefore.append_move(node);
    }
    xml2treeview(group ? selectGroup : selectElement, name);
  });
}

void myElementsManager::btnDown_Click() {
  trap("myElementsManager, btnDown_Click", [&] {
    const ui::TreeView::Node& selected = selectedNode();
    const bool group = isGroup(selected);
    const std::string name = selected.text;
    const pugi::xml_node node = indexed(selected);
    pugi::xml_node parent = node.parent();
    if (const pugi::xml_node behind = node.next_sibling()) {
      parent.insert_move_before(behind, node);
    } else if (pugi::xml_node groupBehind = parent.next_sibling(); !group && groupBehind) {
      groupBehind.prepend_move(node);
    }
    xml2treeview(group ? selectGroup : selectElement, name);
  });
}

void myElementsManager::btnDelete_Click() {
  trap("myElementsManager, btnDelete_Click", [&] {
    if (elementsTree.root().children.empty()) return;
    const ui::TreeView::Node& selected = selectedNode();
    const std::string question =
        isGroup(selected) ? "Are you sure you want to delete the selected group '" + selected.text +
                                "' including all elements?"
                          : "Are you sure you want to delete the selected element '" + selected.text + "'?";
    constexpr int noButton = 2;
    if (core::message(question, ui::Icon::question, ui::Buttons::yesNo, noButton) == ui::Answer::yes) {
      deleteNode(selected);
    }
  });
}

void myElementsManager::deleteNode(const ui::TreeView::Node& node) {
  const pugi::xml_node going = indexed(node);
  const auto noteSlide = [&](const pugi::xml_node& element) {
    deletedSlideIDs += attributeText(element, "slideID") + ";";
  };
  if (isGroup(node)) {
    for (const pugi::xpath_node& element : elementsOf(node.text)) noteSlide(element.node());
  } else {
    noteSlide(going);
  }
  going.parent().remove_child(going);
  const std::string key = node.key;
  elementsTree.select(neighbourOf(node));
  elementsTree.remove(key);
}

void myElementsManager::btnOK_Click() {
  trap("myElementsManager, btnOK_Click", [&] {
    const std::string storeFile = getMyElementsFile();
    saveIndex();
    if (!deletedSlideIDs.empty()) deleteSlides(storeFile);
    refreshMyElementsMenu();
    unload();
  });
}

/// A slide that the store lacks ends this with the store still open.
void myElementsManager::deleteSlides(const std::string& storeFile) const {
  const host::Presentation store = openHidden(storeFile);
  const std::string ids = deletedSlideIDs.substr(0, deletedSlideIDs.size() - 1);
  for (const std::string& id : base::split(ids, ';')) {
    store.Slides().FindBySlideID(base::toInt32(id)).Delete();
  }
  store.Save();
  store.Close();
}

void myElementsManager::btnCancel_Click() {
  trap("myElementsManager, btnCancel_Click", [&] { unload(); });
}

}  // namespace vellumark::library
