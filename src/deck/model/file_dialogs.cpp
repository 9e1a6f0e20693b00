#include "deck/model/file_dialogs.h"

#include "deck/model/member_table.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

constexpr std::int32_t folderPicker = 4;

/// The first extension that a filter names, with its dot; empty for "*.*".
std::string extensionOf(const std::string& patterns) {
  const std::size_t dot = patterns.find('.');
  if (dot == std::string::npos) return {};
  const std::string extension = patterns.substr(dot, patterns.find_first_of("; ", dot) - dot);
  return extension.find('*') == std::string::npos ? extension : std::string();
}

class FiltersObject : public ModelObject<FiltersObject> {
 public:
  static constexpr const char* className = "FileDialogFilters";
  static const MemberTable<FiltersObject>& members() {
    static const MemberTable<FiltersObject> table{
        property<&FiltersObject::count>(member::Count),
        method<&FiltersObject::add>(member::Add, 2, 3),
        method<&FiltersObject::remove>(member::Delete, 0, 1),
        method<&FiltersObject::clear>(member::Clear),
    };
    return table;
  }
  FiltersObject(HostRef host, std::shared_ptr<FileQuestion> question)
      : ModelObject(std::move(host)), question_(std::move(question)) {}

  std::int32_t count() { return static_cast<std::int32_t>(all().size()); }
  void add(Arguments arguments) {
    const auto place =
        argument(arguments, 2) ? collectionIndex(arguments[2].toInt(), all().size() + 1) : all().size();
    all().insert(all().begin() + static_cast<std::ptrdiff_t>(place),
                 {arguments[0].toString(), arguments[1].toString()});
  }
  void remove(Arguments arguments) {
    if (!argument(arguments, 0)) return clear();
    const std::size_t place = collectionIndex(arguments[0].toInt(), all().size());
    all().erase(all().begin() + static_cast<std::ptrdiff_t>(place));
  }
  void clear() { all().clear(); }

 private:
  std::vector<std::pair<std::string, std::string>>& all() { return question_->filters; }
  std::shared_ptr<FileQuestion> question_;
};

class SelectedItemsObject : public ModelObject<SelectedItemsObject> {
 public:
  static constexpr const char* className = "FileDialogSelectedItems";
  static const MemberTable<SelectedItemsObject>& members() {
    static const MemberTable<SelectedItemsObject> table{
        property<&SelectedItemsObject::count>(member::Count),
        method<&SelectedItemsObject::item>(member::Item, 1),
    };
    return table;
  }
  SelectedItemsObject(HostRef host, std::vector<std::string> items)
      : ModelObject(std::move(host)), items_(std::move(items)) {}

  std::int32_t count() { return static_cast<std::int32_t>(items_.size()); }
  std::string item(Arguments arguments) {
    return items_[collectionIndex(arguments[0].toInt(), items_.size())];
  }

 private:
  std::vector<std::string> items_;
};

/// A dialog begins with the filters of presentations. A name without an extension gets that of the chosen
/// filter where a file is to be saved.
class FileDialogObject : public ModelObject<FileDialogObject> {
 public:
  static constexpr const char* className = "FileDialog";
  static const MemberTable<FileDialogObject>& members();

  FileDialogObject(HostRef host, std::int32_t type)
      : ModelObject(std::move(host)), question_(std::make_shared<FileQuestion>()) {
    question_->type = type;
    const bool saves = type == host::msoFileDialogSaveAs;
    question_->title = saves ? "Save As" : type == host::msoFileDialogOpen ? "Open" : "Browse";
    if (type != folderPicker) {
      question_->filters = {{"PowerPoint Presentation", "*.pptx"}, {"All Files", "*.*"}};
    }
  }

  std::int32_t type() { return question_->type; }
  host::ObjectRef filters() { return std::make_shared<FiltersObject>(host(), question_); }
  std::int32_t filterIndex() { return filterIndex_; }
  void setFilterIndex(std::int32_t index) { filterIndex_ = index; }
  std::string initialFileName() { return question_->initialFileName; }
  void setInitialFileName(const std::string& name) { question_->initialFileName = name; }
  std::int32_t initialView() { return initialView_; }
  void setInitialView(std::int32_t view) { initialView_ = view; }
  std::string title() { return question_->title; }
  void setTitle(const std::string& title) { question_->title = title; }
  Value allowMultiSelect() { return host::triState(multiple_); }
  void setAllowMultiSelect(bool on) { multiple_ = on; }

  std::int32_t show() {
    chosen_.clear();
    if (!host()->fileAnswerer) return host::msoFalse;
    std::optional<std::string> path = host()->fileAnswerer(*question_);
    if (!path) return host::msoFalse;
    if (question_->type == host::msoFileDialogSaveAs) *path += missingExtension(*path);
    chosen_.push_back(std::move(*path));
    return host::msoTrue;
  }
  host::ObjectRef selectedItems() { return std::make_shared<SelectedItemsObject>(host(), chosen_); }

 private:
  std::string missingExtension(const std::string& path) const {
    const std::size_t name = path.find_last_of("/\\") + 1;  // npos + 1 is 0
    if (path.find('.', name) != std::string::npos) return {};
    const auto& filters = question_->filters;
    const auto chosen = static_cast<std::size_t>(filterIndex_) - 1;
    const std::string extension =
        chosen < filters.size() ? extensionOf(filters[chosen].second) : std::string();
    return extension.empty() ? ".pptx" : extension;
  }

  std::shared_ptr<FileQuestion> question_;
  std::int32_t filterIndex_ = 1;
  std::int32_t initialView_ = 1;
  bool multiple_ = false;
  std::vector<std::string> chosen_;
};

const MemberTable<FileDialogObject>& FileDialogObject::members() {
  using D = FileDialogObject;
  static const MemberTable<D> table{
      property<&D::type>(member::Type),
      property<&D::filters>(member::Filters),
      property<&D::filterIndex, &D::setFilterIndex>(member::FilterIndex),
      property<&D::initialFileName, &D::setInitialFileName>(member::InitialFileName),
      property<&D::initialView, &D::setInitialView>(member::InitialView),
      property<&D::title, &D::setTitle>(member::Title),
      property<&D::allowMultiSelect, &D::setAllowMultiSelect>(member::AllowMultiSelect),
      method<&D::show>(member::Show),
      property<&D::selectedItems>(member::SelectedItems),
  };
  return table;
}

}  // namespace

host::ObjectRef makeFileDialog(const HostRef& host, std::int32_t type) {
  if (type < host::msoFileDialogOpen || type > folderPicker) base::raise(base::errors::outOfRange);
  return std::make_shared<FileDialogObject>(host, type);
}

}  // namespace vellumark::deck
