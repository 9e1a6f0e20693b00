#pragma once
// Controls that hold many items: combo box, list box, tree.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/control.h"

namespace vellumark::ui {

struct ListItem {
  std::string text;
  int data = 0;  ///< a number of the program's own
  bool checked = false;
  std::string image = {};  ///< picture file in front of it, shown beside check boxes; empty for none
};

/// What combo boxes and list boxes share: items counted from 0, and the chosen one, -1 for none.
class ItemControl : public Control {
 public:
  using Control::Control;
  const std::vector<ListItem>& items() const { return items_; }
  int listCount() const { return static_cast<int>(items_.size()); }
  void addItem(const std::string& text, int data = 0);
  void setItem(int index, const std::string& text);
  void removeItem(int index);
  void clear();
  int listIndex() const { return listIndex_; }
  /// Chooses an item; 9 outside the list. Raises onClick where the choice differs.
  void listIndex(int index);
  /// The item of that text, in any case; -1 where there is none.
  int find(const std::string& text) const;

 protected:
  ListItem& at(int index);
  virtual void chosen() {}

 private:
  std::vector<ListItem> items_;
  int listIndex_ = -1;
};

/// A drop-down list, or one into which a text can be typed.
class ComboBox : public ItemControl {
 public:
  ComboBox(Form& form, std::string name, bool editable = false)
      : ItemControl(form, std::move(name)), editable_(editable) {}
  bool editable() const { return editable_; }
  /// The chosen item's text, or what was typed.
  const std::string& text() const { return text_; }
  /// The width of the open list in the toolkit's pixels; it is never narrower than the box.
  int droppedWidth() const { return droppedWidth_; }
  void droppedWidth(int width);
  /// An editable box takes any text, a list only one of its own; raises onChange where it differs.
  void text(const std::string& text);

 protected:
  void chosen() override;

 private:
  bool editable_;
  int droppedWidth_ = 0;
  std::string text_;
};

/// A list, with a check box at each item if wanted.
class ListBox : public ItemControl {
 public:
  ListBox(Form& form, std::string name, bool checkBoxes = false)
      : ItemControl(form, std::move(name)), checkBoxes_(checkBoxes) {}
  bool checkBoxes() const { return checkBoxes_; }
  bool checked(int index) const;
  /// Raises onItemCheck where the mark differs.
  void checked(int index, bool on);
  int lines() const { return lines_; }
  void lines(int count) { lines_ = count; }
  void image(int index, const std::string& file);
  std::function<void(int index)> onItemCheck;

 private:
  bool checkBoxes_;
  int lines_ = 8;
};

/// A tree of nodes with keys. The keys are the program's, unique in the tree.
class TreeView : public Control {
 public:
  struct Node {
    std::string key;
    std::string text;
    int image = 0;  ///< place in the image list, 0 for none
    bool expanded = true;
    Node* parent = nullptr;
    std::vector<std::unique_ptr<Node>> children;
  };

  using Control::Control;

  const Node& root() const { return root_; }  ///< the parent of the top-level nodes, itself never shown
  Node* find(const std::string& key);
  const Node* find(const std::string& key) const;
  /// Adds a node as the last child of `parentKey` (empty for the top level), or before `beforeKey`.
  /// 35602-like failure 457 for a key that is taken, 5 for one that is not there.
  Node& add(const std::string& parentKey, const std::string& key, const std::string& text, int image = 0,
            const std::string& beforeKey = {});
  /// Removes a node with all below it; the selection goes to its parent.
  void remove(const std::string& key);
  void clear();
  void setText(const std::string& key, const std::string& text);
  void setImage(const std::string& key, int image);
  void setExpanded(const std::string& key, bool on);

  const std::string& selectedKey() const { return selectedKey_; }
  /// Selects a node (empty for none); raises onNodeClick where the selection differs.
  void select(const std::string& key);

  /// What a click of the user on a node does: selects it and raises onNodeClick, also where it is selected
  /// already.
  void userClick(const std::string& key);

  bool labelEdit() const { return labelEdit_; }
  void labelEdit(bool on) { labelEdit_ = on; }
  /// Gives the tree the focus and lets the user edit the selected node's label; nothing without one.
  void startLabelEdit();
  /// For toolkits: whether that was asked for since the last time.
  bool takeLabelEdit() { return std::exchange(labelEditAsked_, false); }
  /// What the user's editing of a label does, also one that leaves the text as it is: asks onBeforeLabelEdit,
  /// then onAfterLabelEdit with the new text, either of which can refuse.
  void userEditLabel(const std::string& key, const std::string& text);

  std::function<void(const std::string& key)> onNodeClick;
  std::function<void(const std::string& key)> onCollapse;
  std::function<void(const std::string& key, bool& cancel)> onBeforeLabelEdit;
  std::function<void(const std::string& key, std::string& text, bool& cancel)> onAfterLabelEdit;
  /// Image files by place from 1.
  std::vector<std::string> images;

 private:
  Node& required(const std::string& key);

  Node root_;
  std::string selectedKey_;
  bool labelEdit_ = false;
  bool labelEditAsked_ = false;
};

}  // namespace vellumark::ui
