#include "deck/model/sheets.h"

#include <utility>

#include "deck/model/black_white_mode.h"
#include "deck/model/color_scheme.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

class BackgroundObject : public ModelObject<BackgroundObject> {
 public:
  static constexpr const char* className = "ShapeRange";
  static const MemberTable<BackgroundObject>& members() {
    static const MemberTable<BackgroundObject> table{
        property<&BackgroundObject::mode, &BackgroundObject::setMode>(member::BlackWhiteMode),
    };
    return table;
  }
  BackgroundObject(HostRef host, Sheet sheet) : ModelObject(std::move(host)), sheet_(std::move(sheet)) {}
  void requireAlive() const {
    if (sheet_.document->closed() || sheet_.part->removed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t mode() { return backgroundMode(sheet_); }
  void setMode(std::int32_t mode) { setBackgroundMode(sheet_, mode); }

 private:
  Sheet sheet_;
};

/// A master or a notes page.
class SheetObject : public ModelObject<SheetObject> {
 public:
  static constexpr const char* className = "Master";
  static const MemberTable<SheetObject>& members() {
    static const MemberTable<SheetObject> table{
        property<&SheetObject::shapes>(member::Shapes),
        property<&SheetObject::background>(member::Background),
        property<&SheetObject::colorScheme>(member::ColorScheme),
        property<&SheetObject::name>(member::Name),
        property<&SheetObject::parent>(member::Parent),
    };
    return table;
  }
  SheetObject(HostRef host, Sheet sheet, const char* typeName)
      : ModelObject(std::move(host)), sheet_(std::move(sheet)), typeName_(typeName) {}
  std::string typeName() const override { return typeName_; }
  void requireAlive() const {
    if (sheet_.document->closed() || sheet_.part->removed()) base::raise(base::errors::invalidRequest);
  }

  host::ObjectRef shapes() { return makeShapes(host(), sheet_); }
  host::ObjectRef background() { return makeBackground(host(), sheet_); }
  host::ObjectRef colorScheme() { return makeColorScheme(host(), sheet_); }
  std::string name() { return sheet_.part->root().child("p:cSld").attribute("name").value(); }
  host::ObjectRef parent() { return makePresentation(host(), sheet_.document); }

 private:
  Sheet sheet_;
  const char* typeName_;
};

/// The file knows no title masters: the layout of that type stands in their place.
class DesignObject : public ModelObject<DesignObject> {
 public:
  static constexpr const char* className = "Design";
  static const MemberTable<DesignObject>& members() {
    static const MemberTable<DesignObject> table{
        property<&DesignObject::slideMaster>(member::SlideMaster),
        property<&DesignObject::hasTitleMaster>(member::HasTitleMaster),
        property<&DesignObject::titleMaster>(member::TitleMaster),
        property<&DesignObject::name>(member::Name),
    };
    return table;
  }
  DesignObject(HostRef host, Sheet master) : ModelObject(std::move(host)), master_(std::move(master)) {}
  void requireAlive() const {
    if (master_.document->closed() || master_.part->removed()) base::raise(base::errors::invalidRequest);
  }

  host::ObjectRef slideMaster() { return makeMaster(host(), master_); }
  std::int32_t hasTitleMaster() { return host::msoFalse; }
  host::ObjectRef titleMaster() {
    base::raise(base::errors::invalidRequest,
                "Design.TitleMaster: Invalid request. This design has no title master.");
  }
  /// The theme's name.
  std::string name() {
    const Relationship* relationship = master_.part->firstRelationship("theme");
    const PartRef theme = relationship ? master_.part->target(*relationship) : nullptr;
    return theme ? theme->root().attribute("name").value() : "";
  }

 private:
  Sheet master_;
};

class DesignsObject : public ModelObject<DesignsObject> {
 public:
  static constexpr const char* className = "Designs";
  static const MemberTable<DesignsObject>& members() {
    static const MemberTable<DesignsObject> table{
        property<&DesignsObject::count>(member::Count),
        method<&DesignsObject::item>(member::Item, 1),
    };
    return table;
  }
  DesignsObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}
  void requireAlive() const {
    if (document_->closed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(document_->masters().size()); }
  host::ObjectRef item(Arguments arguments) {
    const std::vector<Sheet> masters = document_->masters();
    return std::make_shared<DesignObject>(host(),
                                          masters[collectionIndex(arguments[0].toInt(), masters.size())]);
  }

 private:
  DocumentRef document_;
};

}  // namespace

host::ObjectRef makeMaster(const HostRef& host, const Sheet& master) {
  return std::make_shared<SheetObject>(host, master, "Master");
}
host::ObjectRef makeNotesPage(const HostRef& host, const Sheet& page) {
  return std::make_shared<SheetObject>(host, page, "SlideRange");
}
host::ObjectRef makeBackground(const HostRef& host, const Sheet& sheet) {
  return std::make_shared<BackgroundObject>(host, sheet);
}
host::ObjectRef makeDesigns(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<DesignsObject>(host, document);
}

}  // namespace vellumark::deck
