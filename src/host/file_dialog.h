#pragma once
// The host's own dialogs for opening and saving files.

#include <string>

#include "host/constants.h"
#include "host/handle.h"

namespace vellumark::host {

class FileDialogFilters : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  /// All of them, or the one at an index from 1.
  void Delete(int index) const { call(member::Delete, index); }
  /// `extensions` as in "*.ppt; *.pptx"; `position` from 1.
  void Add(const std::string& description, const std::string& extensions, int position) const {
    call(member::Add, description, extensions, position);
  }
};

class FileDialogSelectedItems : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  std::string Item(int index) const { return get<std::string>(member::Item, index); }
};

class FileDialog : public Handle {
 public:
  using Handle::Handle;
  void AllowMultiSelect(bool on) const { put(member::AllowMultiSelect, on); }
  FileDialogFilters Filters() const { return get<FileDialogFilters>(member::Filters); }
  void FilterIndex(int index) const { put(member::FilterIndex, index); }
  void InitialFileName(const std::string& name) const { put(member::InitialFileName, name); }
  void InitialView(int view) const { put(member::InitialView, view); }
  void Title(const std::string& title) const { put(member::Title, title); }
  /// -1 where the user accepted, 0 where he cancelled.
  int Show() const { return call<int>(member::Show); }
  FileDialogSelectedItems SelectedItems() const {
    return get<FileDialogSelectedItems>(member::SelectedItems);
  }
};

}  // namespace vellumark::host
