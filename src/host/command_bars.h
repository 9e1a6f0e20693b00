#pragma once
// Command bars: the menus and tool bars of hosts before the ribbon.

#include <string>

#include "host/constants.h"
#include "host/handle.h"

namespace vellumark::host {

class CommandBarControls;

/// A button, popup or combo box on a bar. Members of one kind raise 438 on the others.
class CommandBarControl : public Handle {
 public:
  using Handle::Handle;
  int Type() const { return get<int>(member::Type); }  ///< MsoControlType
  bool Enabled() const { return get<bool>(member::Enabled); }
  void Enabled(bool on) const { put(member::Enabled, on); }
  bool Visible() const { return get<bool>(member::Visible); }
  void Visible(bool on) const { put(member::Visible, on); }
  std::string Caption() const { return get<std::string>(member::Caption); }
  void Caption(const std::string& text) const { put(member::Caption, text); }
  std::string Tag() const { return get<std::string>(member::Tag); }
  void Tag(const std::string& text) const { put(member::Tag, text); }
  std::string Parameter() const { return get<std::string>(member::Parameter); }
  void Parameter(const std::string& text) const { put(member::Parameter, text); }
  std::string TooltipText() const { return get<std::string>(member::TooltipText); }
  void TooltipText(const std::string& text) const { put(member::TooltipText, text); }
  std::string DescriptionText() const { return get<std::string>(member::DescriptionText); }
  void DescriptionText(const std::string& text) const { put(member::DescriptionText, text); }
  bool BeginGroup() const { return get<bool>(member::BeginGroup); }
  void BeginGroup(bool on) const { put(member::BeginGroup, on); }
  int HelpContextId() const { return get<int>(member::HelpContextId); }
  void HelpContextId(int id) const { put(member::HelpContextId, id); }
  int Id() const { return get<int>(member::Id); }  ///< of a control of the host's own; 1 for others
  void Delete() const { call(member::Delete); }
  /// What a user's click does.
  void Execute() const { call(member::Execute); }

  // Buttons.
  int FaceId() const { return get<int>(member::FaceId); }
  void FaceId(int id) const { put(member::FaceId, id); }
  int State() const { return get<int>(member::State); }  ///< MsoButtonState
  void State(int state) const { put(member::State, state); }
  int Style() const { return get<int>(member::Style); }
  void Style(int style) const { put(member::Style, style); }
  Value Picture() const { return get<Value>(member::Picture); }
  void Picture(const Value& picture) const { put(member::Picture, picture); }
  Value Mask() const { return get<Value>(member::Mask); }
  void Mask(const Value& picture) const { put(member::Mask, picture); }

  // Popups.
  CommandBarControls Controls() const;

  // Combo boxes, counted from 1; ListIndex 0 is no choice.
  void AddItem(const std::string& text) const { call(member::AddItem, text); }
  std::string List(int index) const { return get<std::string>(member::List, index); }
  int ListCount() const { return get<int>(member::ListCount); }
  int ListIndex() const { return get<int>(member::ListIndex); }
  void ListIndex(int index) const { put(member::ListIndex, index); }
  std::string Text() const { return get<std::string>(member::Text); }
};
using CommandBarButton = CommandBarControl;
using CommandBarPopup = CommandBarControl;
using CommandBarComboBox = CommandBarControl;

class CommandBarControls : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  CommandBarControl Item(int index) const { return get<CommandBarControl>(member::Item, index); }
  CommandBarControl Item(const std::string& caption) const {
    return get<CommandBarControl>(member::Item, caption);
  }
  /// Adds a control of that kind at the end; `id` adds one of the host's own.
  CommandBarControl Add(MsoControlType type, int id = 1) const {
    return call<CommandBarControl>(member::Add, type, id);
  }
};

inline CommandBarControls CommandBarControl::Controls() const {
  return get<CommandBarControls>(member::Controls);
}

class CommandBar : public Handle {
 public:
  using Handle::Handle;
  CommandBarControls Controls() const { return get<CommandBarControls>(member::Controls); }
  std::string Name() const { return get<std::string>(member::Name); }
  int Left() const { return get<int>(member::Left); }  ///< screen pixels
  void Left(int pixels) const { put(member::Left, pixels); }
  int Top() const { return get<int>(member::Top); }
  void Top(int pixels) const { put(member::Top, pixels); }
  int Height() const { return get<int>(member::Height); }
  void Height(int pixels) const { put(member::Height, pixels); }
  int RowIndex() const { return get<int>(member::RowIndex); }
  void RowIndex(int row) const { put(member::RowIndex, row); }
  int Position() const { return get<int>(member::Position); }  ///< 1 top, 4 floating
  void Position(int position) const { put(member::Position, position); }
  bool Visible() const { return get<bool>(member::Visible); }
  void Visible(bool on) const { put(member::Visible, on); }
  void Delete() const { call(member::Delete); }
};

class CommandBars : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  CommandBar Item(int index) const { return get<CommandBar>(member::Item, index); }
  /// Raises where no bar has that name.
  CommandBar Item(const std::string& name) const { return get<CommandBar>(member::Item, name); }
  /// The first control with that id on any bar; nothing where there is none.
  CommandBarControl FindControl(int id) const {
    return call<CommandBarControl>(member::FindControl, missing, id);
  }
  CommandBar Add(const std::string& name, int position, bool temporary) const {
    return call<CommandBar>(member::Add, name, position, missing, temporary);
  }
};

}  // namespace vellumark::host
