#pragma once

#include <string>

#include "ui/form.h"

namespace vellumark::library {

/// Asks for the group and the name of a new element. New groups go into the index at once.
class myElementsAdd : public ui::Form {
 public:
  myElementsAdd();

  bool result = false;  ///< whether to add the element
  /// The chosen group; 9 where there is none.
  std::string group() const;

  ui::Label lGroupList{*this, "lGroupList", "Add to group"};
  ui::ListBox groupList{*this, "groupList"};
  ui::CommandButton btnAddGroup{*this, "btnAddGroup", "New &group"};
  ui::Label lElemName{*this, "lElemName", "Element name"};
  ui::TextBox elemName{*this, "elemName", "New element"};
  ui::CommandButton btnAddElement{*this, "btnAddElement", "&Add element"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void Form_Load();
  void btnAddElement_Click();
  void btnAddGroup_Click();
  void btnCancel_Click();

  void close(bool add);
};

}  // namespace vellumark::library
