// Open presentations: the collection and each of its members.

#include "base/text.h"
#include "deck/embedded_host.h"
#include "deck/model/extra_colors.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/sheets.h"
#include "deck/model/units.h"
#include "deck/model/windows.h"
#include "deck/model/xml_order.h"
#include "platform/file_state.h"
#include "platform/paths.h"

namespace vellumark::deck {
namespace {

class PageSetupObject : public ModelObject<PageSetupObject> {
 public:
  static constexpr const char* className = "PageSetup";
  static const MemberTable<PageSetupObject>& members() {
    static const MemberTable<PageSetupObject> table{
        property<&PageSetupObject::width, &PageSetupObject::setWidth>(member::SlideWidth),
        property<&PageSetupObject::height, &PageSetupObject::setHeight>(member::SlideHeight),
    };
    return table;
  }
  PageSetupObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}
  void requireAlive() const {
    if (document_->closed()) base::raise(base::errors::invalidRequest);
  }

  float width() { return toPoints(size().attribute("cx").as_llong(9144000)); }
  float height() { return toPoints(size().attribute("cy").as_llong(6858000)); }
  void setWidth(float points) { setSide("cx", points); }
  void setHeight(float points) { setSide("cy", points); }

 private:
  pugi::xml_node size() { return document_->presentation().child("p:sldSz"); }
  void setSide(const char* side, float points) {
    // The file allows 1 to 56 inches.
    if (!(points >= 72 && points <= 4032)) base::raise(base::errors::outOfRange);
    pugi::xml_node node = childInOrder(document_->presentation(), "p:sldSz", {"p:notesSz"});
    setAttribute(node, side, static_cast<long long>(toEmu(points)));
    document_->touch(*document_->presentationPart());
  }
  DocumentRef document_;
};

class PresentationObject : public ModelObject<PresentationObject> {
 public:
  static constexpr const char* className = "Presentation";
  static const MemberTable<PresentationObject>& members() {
    static const MemberTable<PresentationObject> table{
        property<&PresentationObject::slides>(member::Slides),
        property<&PresentationObject::pageSetup>(member::PageSetup),
        property<&PresentationObject::designs>(member::Designs),
        property<&PresentationObject::slideMaster>(member::SlideMaster),
        property<&PresentationObject::tags>(member::Tags),
        property<&PresentationObject::extraColors>(member::ExtraColors),
        property<&PresentationObject::name>(member::Name),
        property<&PresentationObject::fullName>(member::FullName),
        property<&PresentationObject::path>(member::Path),
        property<&PresentationObject::readOnly>(member::ReadOnly),
        property<&PresentationObject::saved, &PresentationObject::setSaved>(member::Saved),
        property<&PresentationObject::windows>(member::Windows),
        method<&PresentationObject::save>(member::Save),
        method<&PresentationObject::saveAs>(member::SaveAs, 1, 3),
        method<&PresentationObject::saveCopyAs>(member::SaveCopyAs, 1, 3),
        method<&PresentationObject::close>(member::Close),
    };
    return table;
  }

  PresentationObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}
  void requireAlive() const {
    if (document_->closed()) {
      base::raise(base::errors::invalidRequest,
                  "Presentation: Invalid request. The presentation was closed.");
    }
  }

  host::ObjectRef slides() { return makeSlides(host(), document_); }
  host::ObjectRef pageSetup() { return std::make_shared<PageSetupObject>(host(), document_); }
  host::ObjectRef designs() { return makeDesigns(host(), document_); }
  host::ObjectRef slideMaster() {
    const std::vector<Sheet> masters = document_->masters();
    if (masters.empty()) {
      base::raise(base::errors::invalidRequest,
                  "Presentation.SlideMaster: Invalid request. The presentation has no slide master.");
    }
    return makeMaster(host(), masters.front());
  }
  host::ObjectRef tags() {
    return makeTags(host(), document_, document_->presentationPart(), document_->presentation());
  }
  host::ObjectRef extraColors() { return makeExtraColors(host(), document_); }
  host::ObjectRef windows() { return makeWindowsOf(host(), document_); }
  std::string name() { return document_->name(); }
  std::string fullName() { return document_->path().empty() ? document_->name() : document_->path(); }
  std::string path() { return document_->folder(); }
  Value readOnly() { return host::triState(document_->readOnly()); }
  Value saved() { return host::triState(document_->saved()); }
  void setSaved(bool saved) { document_->saved(saved); }

  void save() {
    raiseBeforeSave();
    document_->save();
  }
  void saveAs(Arguments arguments) {
    const std::string path = platform::toSystem(arguments[0].toString());
    requireNotOpen(path, document_);
    raiseBeforeSave();
    document_->saveAs(path);
  }
  void saveCopyAs(Arguments arguments) {
    const std::string path = platform::toSystem(arguments[0].toString());
    requireNotOpen(path, nullptr);
    document_->saveCopyAs(path);
  }

  void close() {
    Value arguments[] = {Value(shared_from_this())};
    host()->raiseEvent(member::PresentationClose, arguments);
    HostState& state = *host();
    const bool wasActive = !state.windows.empty() && state.windows.front()->document == document_;
    std::erase_if(state.windows, [&](const WindowRef& window) {
      if (window->document != document_) return false;
      window->open = false;
      return true;
    });
    std::erase(state.documents, document_);
    document_->close();
    if (wasActive && !state.windows.empty()) activateWindow(host(), state.windows.front());
  }

 private:
  /// A save that an event handler cancels is one that failed.
  void raiseBeforeSave() {
    Value arguments[] = {Value(shared_from_this()), Value(false)};
    host()->raiseEvent(member::PresentationBeforeSave, arguments);
    if (arguments[1].toBool()) base::raise(base::errors::unspecific, saveCancelled);
  }
  /// Nothing is written over the file of a presentation that is open, but for `own`.
  void requireNotOpen(const std::string& path, const DocumentRef& own) {
    for (const DocumentRef& open : host()->documents) {
      if (open != own && !open->path().empty() && platform::isSameFile(open->path(), path)) {
        throw FormatError(path, "is open, so that nothing else can be written there: take another path");
      }
    }
  }
  DocumentRef document_;
};

class PresentationsObject : public ModelObject<PresentationsObject> {
 public:
  static constexpr const char* className = "Presentations";
  static const MemberTable<PresentationsObject>& members() {
    static const MemberTable<PresentationsObject> table{
        property<&PresentationsObject::count>(member::Count),
        method<&PresentationsObject::item>(member::Item, 1),
        method<&PresentationsObject::open>(member::Open, 1, 4),
        method<&PresentationsObject::add>(member::Add, 0, 1),
    };
    return table;
  }
  using ModelObject::ModelObject;

  std::int32_t count() { return static_cast<std::int32_t>(host()->documents.size()); }

  host::ObjectRef item(Arguments arguments) {
    const auto& documents = host()->documents;
    if (arguments[0].isString()) {
      const std::string name = arguments[0].toString();
      for (const DocumentRef& document : documents) {
        if (base::equalsIgnoreCase(document->name(), name) || document->path() == name) {
          return makePresentation(host(), document);
        }
      }
      base::raise(base::errors::outOfRange, "Presentations.Item: '" + name + "' not found.");
    }
    return makePresentation(host(), documents[collectionIndex(arguments[0].toInt(), documents.size())]);
  }

  host::ObjectRef open(Arguments arguments) {
    const std::string path = platform::toSystem(arguments[0].toString());
    return show(Document::open(path, argumentOr(arguments, 1, false), argumentOr(arguments, 2, false)),
                argumentOr(arguments, 3, true), member::PresentationOpen);
  }

  host::ObjectRef add(Arguments arguments) {
    return show(Document::create(++host()->presentationsCreated), argumentOr(arguments, 0, true),
                member::NewPresentation);
  }

 private:
  host::ObjectRef show(const DocumentRef& document, bool withWindow, Member event) {
    host()->documents.push_back(document);
    const host::ObjectRef presentation = makePresentation(host(), document);
    const WindowRef window = withWindow ? openWindow(host(), document) : nullptr;
    Value arguments[] = {Value(presentation)};
    host()->raiseEvent(event, arguments);
    if (window) activateWindow(host(), window);
    return presentation;
  }
};

}  // namespace

host::ObjectRef makePresentation(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<PresentationObject>(host, document);
}

host::ObjectRef makePresentations(const HostRef& host) { return std::make_shared<PresentationsObject>(host); }

}  // namespace vellumark::deck
