#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>

#include "ui/form.h"

namespace vellumark::library {

/// Reorganizes the user's own elements. Every change goes into the index at once, and the tree is built anew
/// from it; OK writes the index and removes the slides of deleted elements from the store. Cancel writes
/// nothing, but the index in memory keeps the changes.
class myElementsManager : public ui::Form {
 public:
  myElementsManager();

  std::string deletedSlideIDs;  ///< of the elements deleted since the dialog was loaded, each followed by ";"

  /// Builds the tree and selects a node by its name afterwards.
  void xml2treeview(std::int16_t selectType, const std::string& selectName);
  static void LockControl(ui::Control& control, bool lock);

  ui::Label info{
      *this, "info",
      "My Elements are organized in groups. You can add, rename, reorder or delete groups. Elements "
      "can be renamed, reordered or deleted."};
  ui::TreeView elementsTree{*this, "elementsTree"};
  ui::CommandButton btnRename{*this, "btnRename", "&Rename"};
  ui::CommandButton btnAddGroup{*this, "btnAddGroup", "&Add group"};
  ui::CommandButton btnDelete{*this, "btnDelete", "&Delete "};
  ui::CommandButton btnUp{*this, "btnUp", "▲"};
  ui::CommandButton btnDown{*this, "btnDown", "▼"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void Form_Load();
  void elementsTree_GotFocus();
  void elementsTree_AfterLabelEdit(bool& cancel, const std::string& newText);
  void btnAddGroup_Click();
  void btnRename_Click();
  void btnDelete_Click();
  void btnUp_Click();
  void btnDown_Click();
  void btnOK_Click();
  void btnCancel_Click();

  void arrange();
  void addNodes(std::int16_t selectType, const std::string& selectName);
  /// The selected node; 91 where none is.
  const ui::TreeView::Node& selectedNode() const;
  bool isGroup(const ui::TreeView::Node& node) const { return node.parent == &elementsTree.root(); }
  /// What a node stands for in the index; 91 where that has gone.
  pugi::xml_node indexed(const ui::TreeView::Node& node) const;
  void deleteNode(const ui::TreeView::Node& node);
  void deleteSlides(const std::string& storeFile) const;
};

}  // namespace vellumark::library
