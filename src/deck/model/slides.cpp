// Slides: the collection, one slide, and a range of slides.

#include <algorithm>

#include "deck/model/color_scheme.h"
#include "deck/model/layout_creation.h"
#include "deck/model/member_table.h"
#include "deck/model/notes_pages.h"
#include "deck/model/objects.h"
#include "deck/model/sheets.h"
#include "deck/model/slide_copier.h"
#include "deck/model/slide_layouts.h"
#include "deck/model/time_line.h"
#include "deck/model/xml_order.h"
#include "platform/paths.h"

namespace vellumark::deck {
namespace {

/// Copies slides of a presentation behind the last one of them; the range of the copies.
host::ObjectRef duplicateSlides(const HostRef& host, const DocumentRef& document,
                                const std::vector<std::int32_t>& ids) {
  std::vector<Sheet> slides;
  for (const std::int32_t id : ids) slides.push_back(document->slide(id));
  PartCopier copier(document->package());
  const auto behind = static_cast<std::size_t>(document->slidePosition(ids.back()) + 1);
  return makeSlideRange(host, document, copySlides(slides, *document, behind, copier));
}

class SlideObject : public ModelObject<SlideObject> {
 public:
  static constexpr const char* className = "Slide";
  static const MemberTable<SlideObject>& members() {
    static const MemberTable<SlideObject> table{
        property<&SlideObject::shapes>(member::Shapes),
        property<&SlideObject::id>(member::SlideID),
        property<&SlideObject::index>(member::SlideIndex),
        property<&SlideObject::number>(member::SlideNumber),
        property<&SlideObject::name, &SlideObject::setName>(member::Name),
        property<&SlideObject::layout>(member::Layout),
        property<&SlideObject::tags>(member::Tags),
        property<&SlideObject::notesPage>(member::NotesPage),
        property<&SlideObject::hasNotesPage>(member::HasNotesPage).from(14),
        property<&SlideObject::background>(member::Background),
        property<&SlideObject::colorScheme>(member::ColorScheme),
        property<&SlideObject::timeLine>(member::TimeLine).from(10),
        property<&SlideObject::parent>(member::Parent),
        method<&SlideObject::copy>(member::Copy),
        method<&SlideObject::cut>(member::Cut),
        method<&SlideObject::duplicate>(member::Duplicate),
        method<&SlideObject::remove>(member::Delete),
        method<&SlideObject::select>(member::Select),
    };
    return table;
  }

  SlideObject(HostRef host, Sheet sheet) : ModelObject(std::move(host)), sheet_(std::move(sheet)) {}
  void requireAlive() const {
    if (sheet_.document->closed() || sheet_.part->removed()) {
      base::raise(base::errors::invalidRequest, "Slide: Invalid request. The slide was deleted.");
    }
  }

  host::ObjectRef shapes() { return makeShapes(host(), sheet_); }
  /// A layout or master is no member of the presentation's slides and has the id 0.
  std::int32_t id() { return sheet_.document->slideId(sheet_); }
  std::int32_t index() { return position() + 1; }
  std::int32_t number() { return position() + sheet_.document->firstSlideNumber(); }
  std::string name() {
    const std::string own = sheet_.part->root().child("p:cSld").attribute("name").value();
    return own.empty() ? "Slide" + std::to_string(id() - 255) : own;
  }
  void setName(const std::string& name) {
    setAttribute(sheet_.part->root().child("p:cSld"), "name", name.c_str());
    sheet_.touch();
  }
  std::int32_t layout() {
    const Sheet layout = sheet_.parent();
    return layoutNumber(layout ? layout.part->root().attribute("type").as_string("cust") : "cust");
  }
  host::ObjectRef tags() { return makeTags(host(), sheet_); }
  host::ObjectRef notesPage() {
    ownId();
    return makeNotesPage(host(), deck::notesPage(sheet_));
  }
  Value hasNotesPage() { return host::triState(deck::hasNotesPage(sheet_)); }
  host::ObjectRef background() { return makeBackground(host(), sheet_); }
  host::ObjectRef colorScheme() { return makeColorScheme(host(), sheet_); }
  host::ObjectRef timeLine() { return makeTimeLine(host(), sheet_); }
  host::ObjectRef parent() { return makePresentation(host(), sheet_.document); }
  void copy() { host()->clipboard.copySlides(sheet_.document, {ownId()}); }
  void cut() {
    copy();
    remove();
  }
  host::ObjectRef duplicate() { return duplicateSlides(host(), sheet_.document, {ownId()}); }
  void remove() {
    sheet_.document->deleteSlide(ownId());
    host()->forgetDeleted();
  }
  void select() {
    const WindowRef window = host()->windowOf(sheet_.document);
    if (!window)
      base::raise(base::errors::invalidRequest, "Slide.Select: Invalid request. There is no window.");
    window->sheet = sheet_;
    host()->select(window, {.type = 1, .slides = {id()}, .shapes = {}});
  }

 private:
  /// The id; "Invalid request." for what is no slide.
  std::int32_t ownId() {
    const std::int32_t own = id();
    if (own == 0) base::raise(base::errors::invalidRequest);
    return own;
  }
  std::int32_t position() { return sheet_.document->slidePosition(id()); }
  Sheet sheet_;
};

class SlideRangeObject : public ModelObject<SlideRangeObject> {
 public:
  static constexpr const char* className = "SlideRange";
  static const MemberTable<SlideRangeObject>& members() {
    static const MemberTable<SlideRangeObject> table{
        property<&SlideRangeObject::count>(member::Count),
        method<&SlideRangeObject::item>(member::Item, 1),
        method<&SlideRangeObject::copy>(member::Copy),
        method<&SlideRangeObject::cut>(member::Cut),
        method<&SlideRangeObject::duplicate>(member::Duplicate),
        method<&SlideRangeObject::remove>(member::Delete),
        method<&SlideRangeObject::select>(member::Select),
    };
    return table;
  }

  SlideRangeObject(HostRef host, DocumentRef document, std::vector<std::int32_t> ids)
      : ModelObject(std::move(host)), document_(std::move(document)), ids_(std::move(ids)) {}
  void requireAlive() const {
    if (document_->closed()) base::raise(base::errors::invalidRequest);
  }

  /// Members of a single slide answer for all slides of the range.
  Value invoke(Member name, Invoke kind, Arguments arguments) override {
    if (members().find(name)) return ModelObject::invoke(name, kind, arguments);
    requireAlive();
    try {
      std::vector<host::ObjectRef> slides;
      for (const std::int32_t id : ids_) slides.push_back(slide(id));
      if (slides.size() == 1) return slides.front()->invoke(name, kind, arguments);
      return makeGroup(className, std::move(slides))->invoke(name, kind, arguments);
    } catch (const FormatError& error) {
      raiseFormatError(error);
    }
  }

  std::int32_t count() { return static_cast<std::int32_t>(ids_.size()); }
  host::ObjectRef item(Arguments arguments) {
    return slide(ids_[collectionIndex(arguments[0].toInt(), ids_.size())]);
  }
  void copy() { host()->clipboard.copySlides(document_, inOrder()); }
  void cut() {
    copy();
    remove();
  }
  host::ObjectRef duplicate() { return duplicateSlides(host(), document_, inOrder()); }
  void remove() {
    for (const std::int32_t id : ids_) document_->deleteSlide(id);
    host()->forgetDeleted();
  }
  void select() {
    const WindowRef window = host()->windowOf(document_);
    if (!window || ids_.empty()) base::raise(base::errors::invalidRequest);
    window->sheet = document_->slide(ids_.front());
    host()->select(window, {.type = 1, .slides = ids_, .shapes = {}});
  }

 private:
  /// The ids in the order of the presentation.
  std::vector<std::int32_t> inOrder() const {
    std::vector<std::int32_t> ordered = ids_;
    if (ordered.empty()) base::raise(base::errors::invalidRequest);
    std::ranges::sort(ordered, {}, [&](std::int32_t id) { return document_->slidePosition(id); });
    return ordered;
  }
  host::ObjectRef slide(std::int32_t id) { return makeSlide(host(), document_->slide(id)); }
  DocumentRef document_;
  std::vector<std::int32_t> ids_;
};

class SlidesObject : public ModelObject<SlidesObject> {
 public:
  static constexpr const char* className = "Slides";
  static const MemberTable<SlidesObject>& members() {
    static const MemberTable<SlidesObject> table{
        property<&SlidesObject::count>(member::Count),
        method<&SlidesObject::item>(member::Item, 1),
        method<&SlidesObject::add>(member::Add, 2),
        method<&SlidesObject::insertFromFile>(member::InsertFromFile, 2, 4),
        method<&SlidesObject::paste>(member::Paste, 0, 1),
        method<&SlidesObject::findBySlideId>(member::FindBySlideID, 1),
        method<&SlidesObject::range>(member::Range, 0, 1),
        property<&SlidesObject::parent>(member::Parent),
    };
    return table;
  }

  SlidesObject(HostRef host, DocumentRef document)
      : ModelObject(std::move(host)), document_(std::move(document)) {}
  void requireAlive() const {
    if (document_->closed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(document_->slideCount()); }

  host::ObjectRef item(Arguments arguments) {
    return makeSlide(host(), document_->slide(idOf(arguments[0])));
  }

  host::ObjectRef add(Arguments arguments) {
    const std::int32_t index = arguments[0].toInt();
    const std::size_t position = collectionIndex(index, document_->slideCount() + 1);
    const std::int32_t id = document_->insertSlide(position, layoutFor(arguments[1].toInt()));
    return makeSlide(host(), document_->slide(id));
  }

  /// InsertFromFile(FileName, Index, SlideStart, SlideEnd): behind slide `Index`, in front of all for 0.
  std::int32_t insertFromFile(Arguments arguments) {
    const std::size_t position = collectionIndex(arguments[1].toInt() + 1, document_->slideCount() + 1);
    const DocumentRef source = Document::open(platform::toSystem(arguments[0].toString()), true, false);
    const std::vector<SlideEntry>& entries = source->slides();
    const auto last = argumentOr<std::int32_t>(arguments, 3, -1);
    const std::size_t end = last == -1 ? entries.size() : collectionIndex(last, entries.size()) + 1;
    const std::size_t first =
        entries.empty() ? 0 : collectionIndex(argumentOr<std::int32_t>(arguments, 2, 1), end);
    std::vector<Sheet> slides;
    for (std::size_t i = first; i < end; ++i) slides.push_back(source->slide(entries[i].id));
    PartCopier copier(document_->package());
    return static_cast<std::int32_t>(copySlides(slides, *document_, position, copier).size());
  }

  /// Before slide `Index`; at the end without one.
  host::ObjectRef paste(Arguments arguments) {
    const std::size_t count = document_->slideCount();
    const auto index = argumentOr<std::int32_t>(arguments, 0, -1);
    const std::size_t position = index == -1 ? count : collectionIndex(index, count + 1);
    return makeSlideRange(host(), document_, host()->clipboard.pasteSlides(*document_, position));
  }

  host::ObjectRef findBySlideId(Arguments arguments) {
    return makeSlide(host(), document_->slide(arguments[0].toInt()));
  }

  host::ObjectRef range(Arguments arguments) {
    std::vector<std::int32_t> ids;
    if (const Value* one = argument(arguments, 0)) {
      ids.push_back(idOf(*one));
    } else {
      for (const SlideEntry& entry : document_->slides()) ids.push_back(entry.id);
    }
    return makeSlideRange(host(), document_, std::move(ids));
  }

  host::ObjectRef parent() { return makePresentation(host(), document_); }

 private:
  /// The id of the slide that an index or a name means.
  std::int32_t idOf(const Value& which) {
    const std::vector<SlideEntry>& entries = document_->slides();
    if (!which.isString()) return entries[collectionIndex(which.toInt(), entries.size())].id;
    const std::string name = which.toString();
    for (const SlideEntry& entry : entries) {
      const host::ObjectRef slide = makeSlide(host(), document_->slide(entry.id));
      if (slide->invoke(member::Name, Invoke::get, {}).toString() == name) return entry.id;
    }
    base::raise(base::errors::outOfRange, "Item " + name + " not found in the Slides collection.");
  }

  /// The first master's layout of that type. "Title and Text" and "Title and Content" stand in for each
  /// other, as a master has one of the two. A master that lacks a simple one gets it.
  Sheet layoutFor(std::int32_t number) {
    const std::string_view wanted = layoutType(number);
    if (wanted.empty()) base::raise(base::errors::outOfRange);
    const std::vector<Sheet> layouts = document_->layouts();
    const auto ofType = [&](std::string_view type) {
      return std::ranges::find_if(layouts, [&](const Sheet& layout) {
        return layout.part->root().attribute("type").as_string("cust") == type;
      });
    };
    auto found = ofType(wanted);
    if (found == layouts.end() && wanted == "tx") found = ofType("obj");
    if (found == layouts.end() && wanted == "obj") found = ofType("tx");
    if (found == layouts.end()) {
      const std::vector<Sheet> masters = document_->masters();
      if (const Sheet added = masters.empty() ? Sheet() : addLayout(*document_, masters.front(), wanted)) {
        return added;
      }
      base::raise(base::errors::invalidRequest,
                  "Slides.Add: Invalid request. The first slide master has no layout of type '" +
                      std::string(wanted) + "' (" + std::to_string(number) + ").");
    }
    return *found;
  }

  DocumentRef document_;
};

}  // namespace

host::ObjectRef makeSlide(const HostRef& host, const Sheet& sheet) {
  return std::make_shared<SlideObject>(host, sheet);
}

host::ObjectRef makeSlides(const HostRef& host, const DocumentRef& document) {
  return std::make_shared<SlidesObject>(host, document);
}

host::ObjectRef makeSlideRange(const HostRef& host, const DocumentRef& document,
                               std::vector<std::int32_t> ids) {
  return std::make_shared<SlideRangeObject>(host, document, std::move(ids));
}

}  // namespace vellumark::deck
