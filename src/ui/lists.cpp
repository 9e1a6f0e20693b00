#include "ui/lists.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "ui/form.h"

namespace vellumark::ui {

void ItemControl::addItem(const std::string& text, int data) {
  items_.push_back({text, data});
  changed();
}

ListItem& ItemControl::at(int index) {
  if (index < 0 || index >= listCount()) base::raise(base::errors::subscript);
  return items_[static_cast<std::size_t>(index)];
}

void ItemControl::setItem(int index, const std::string& text) {
  at(index).text = text;
  changed();
}

void ItemControl::removeItem(int index) {
  at(index);
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  changed();
}

void ItemControl::clear() {
  items_.clear();
  listIndex_ = -1;
  changed();
}

void ItemControl::listIndex(int index) {
  if (index != -1) at(index);
  if (listIndex_ == index) return;
  listIndex_ = index;
  chosen();
  changed();
  if (onClick) onClick();
}

int ItemControl::find(const std::string& text) const {
  const auto found = std::ranges::find_if(
      items_, [&](const ListItem& item) { return base::equalsIgnoreCase(item.text, text); });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ComboBox::chosen() {
  text_ = listIndex() < 0 ? std::string() : items()[static_cast<std::size_t>(listIndex())].text;
}

void ComboBox::text(const std::string& text) {
  const int index = find(text);
  if (index >= 0) return listIndex(index);
  if (!editable_) base::raise(base::errors::invalidCall);
  if (text_ == text) return;
  listIndex(-1);
  text_ = text;
  changed();
  raiseChange();
}

void ComboBox::droppedWidth(int width) {
  droppedWidth_ = width;
  changed();
}

void ListBox::image(int index, const std::string& file) {
  at(index).image = file;
  changed();
}

bool ListBox::checked(int index) const {
  if (index < 0 || index >= listCount()) base::raise(base::errors::subscript);
  return items()[static_cast<std::size_t>(index)].checked;
}

void ListBox::checked(int index, bool on) {
  if (at(index).checked == on) return;
  at(index).checked = on;
  changed();
  if (onItemCheck) onItemCheck(index);
}

namespace {

template <typename Node>
Node* findBelow(Node& parent, const std::string& key) {
  for (const auto& child : parent.children) {
    if (child->key == key) return child.get();
    if (Node* found = findBelow<Node>(*child, key)) return found;
  }
  return nullptr;
}

bool isBelow(const TreeView::Node& ancestor, const TreeView::Node* node) {
  for (; node; node = node->parent) {
    if (node == &ancestor) return true;
  }
  return false;
}

}  // namespace

TreeView::Node* TreeView::find(const std::string& key) { return findBelow(root_, key); }
const TreeView::Node* TreeView::find(const std::string& key) const {
  return findBelow<const Node>(root_, key);
}

TreeView::Node& TreeView::required(const std::string& key) {
  Node* found = find(key);
  if (!found) base::raise(base::errors::invalidCall);
  return *found;
}

TreeView::Node& TreeView::add(const std::string& parentKey, const std::string& key, const std::string& text,
                              int image, const std::string& beforeKey) {
  if (find(key)) base::raise(base::errors::duplicateKey);
  Node& parent = parentKey.empty() ? root_ : required(parentKey);
  auto place = parent.children.end();
  if (!beforeKey.empty()) {
    place = std::ranges::find_if(parent.children, [&](const auto& child) { return child->key == beforeKey; });
    if (place == parent.children.end()) base::raise(base::errors::invalidCall);
  }
  auto node = std::make_unique<Node>();
  node->key = key;
  node->text = text;
  node->image = image;
  node->parent = &parent;
  Node& added = **parent.children.insert(place, std::move(node));
  changed();
  return added;
}

void TreeView::remove(const std::string& key) {
  Node& node = required(key);
  Node& parent = *node.parent;
  const Node* selected = selectedKey_.empty() ? nullptr : find(selectedKey_);
  const bool losesSelection = selected && isBelow(node, selected);
  std::erase_if(parent.children, [&](const auto& child) { return child.get() == &node; });
  changed();
  if (losesSelection) select(parent.key);
}

void TreeView::clear() {
  root_.children.clear();
  selectedKey_.clear();
  changed();
}

void TreeView::setText(const std::string& key, const std::string& text) {
  required(key).text = text;
  changed();
}

void TreeView::setImage(const std::string& key, int image) {
  required(key).image = image;
  changed();
}

void TreeView::setExpanded(const std::string& key, bool on) {
  Node& node = required(key);
  const bool collapses = node.expanded && !on;
  node.expanded = on;
  changed();
  if (collapses && onCollapse) onCollapse(key);
}

void TreeView::select(const std::string& key) {
  if (!key.empty()) required(key);
  if (selectedKey_ == key) return;
  selectedKey_ = key;
  changed();
  if (!key.empty() && onNodeClick) onNodeClick(key);
}

void TreeView::userClick(const std::string& key) {
  if (selectedKey_ != key) return select(key);
  if (onNodeClick) onNodeClick(key);
}

void TreeView::startLabelEdit() {
  if (!labelEdit_ || selectedKey_.empty() || !form().focus(*this)) return;
  labelEditAsked_ = true;
  changed();
}

void TreeView::userEditLabel(const std::string& key, const std::string& text) {
  if (!labelEdit_) return;
  required(key);
  bool cancel = false;
  if (onBeforeLabelEdit) onBeforeLabelEdit(key, cancel);
  if (cancel) return;
  std::string edited = text;
  if (onAfterLabelEdit) onAfterLabelEdit(key, edited, cancel);
  if (!cancel) setText(key, edited);
}

}  // namespace vellumark::ui
