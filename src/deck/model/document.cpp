#include "deck/model/document.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string_view>
#include <unordered_map>

#include "base/error.h"
#include "deck/model/document_properties.h"
#include "deck/model/file_kinds.h"
#include "deck/model/new_presentation.h"
#include "deck/model/references.h"
#include "deck/model/slide_ids.h"
#include "deck/model/xml_order.h"
#include "deck/package/namespaces.h"
#include "platform/path_lock.h"
#include "platform/paths.h"

namespace vellumark::deck {
namespace {

std::string absolutePath(const std::string& path) {
  return platform::textOf(std::filesystem::absolute(platform::pathOf(path)).lexically_normal());
}

constexpr std::int32_t slideIdLimit = 2147483647;

std::string_view value(pugi::xml_node node, const char* attribute) {
  return node.attribute(attribute).value();
}

/// Takes every hyperlink and entry of a list with that relationship id out of a subtree.
void dropLinks(Part& part, pugi::xml_node node, std::string_view relationshipId) {
  for (const char* name : {"a:hlinkClick", "a:hlinkHover", "a:hlinkMouseOver", "p:sld"}) {
    const std::string query = "descendant::" + std::string(name);
    for (const auto& found : node.select_nodes(query.c_str())) {
      if (value(found.node(), "r:id") == relationshipId) part.bury(found.node());
    }
  }
}

/// Takes a slide out of the sections and of whatever else lists slides by id in the extension list.
void dropFromExtensions(Part& part, pugi::xml_node presentation, std::int32_t id) {
  const pugi::xpath_node_set entries =
      presentation.child("p:extLst").select_nodes(".//*[local-name()='sldId']");
  for (const auto& entry : entries) {
    if (entry.node().attribute("id").as_int() == id) part.bury(entry.node());
  }
}

}  // namespace

DocumentRef Document::open(const std::string& path, bool readOnly, bool untitled) {
  const DocumentRef document(new Document);
  document->written_ = platform::fileState(path);
  document->package_ = Package::open(path);
  document->presentation_ = document->package_->requiredRoot("officeDocument");
  const PartRef& main = document->presentation_;
  if (!isPresentationType(main->contentType())) {
    throw FormatError(path,
                      "is an Office file but no presentation (its main part is " + main->contentType() + ")");
  }
  if (std::string_view(main->root().name()) != "p:presentation") {
    throw FormatError(main->name(),
                      "is no presentation: its root element is " + std::string(main->root().name()));
  }
  // A file that is sound again is what the next save writes.
  if (separateSlideIds(main->root())) main->touch();
  for (const SlideEntry& entry : document->slides()) document->told_.push_back(entry.id);
  document->path_ = absolutePath(path);
  document->readOnly_ = readOnly;
  if (untitled) {
    document->newName_ = platform::textOf(platform::pathOf(path).stem());
    document->path_.clear();
  }
  return document;
}

DocumentRef Document::scratch(bool strict) {
  const DocumentRef document(new Document);
  document->package_ = Package::create();
  Package& package = *document->package_;
  document->presentation_ =
      package.addXml("ppt/presentation.xml", typeForFile(".pptx", {}),
                     R"(<p:presentation xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
                     R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
                     R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"/>)");
  package.relate(*document->presentation_, relationshipType("officeDocument", strict));
  if (strict) makeFamily(document->presentation_->root(), strict);
  return document;
}

DocumentRef Document::create(int number) {
  const DocumentRef document(new Document);
  document->package_ = newPresentation();
  document->presentation_ = document->package_->requiredRoot("officeDocument");
  document->newName_ = "Presentation" + std::to_string(number);
  return document;
}

std::string Document::name() const {
  return path_.empty() ? newName_ : platform::textOf(platform::pathOf(path_).filename());
}

std::string Document::folder() const {
  return path_.empty() ? std::string() : platform::textOf(platform::pathOf(path_).parent_path());
}

void Document::close() { closed_ = true; }

void Document::touch(Part& part, Change change) {
  const auto draft = std::ranges::find(drafts_, &part, [](const Draft& one) { return one.part.get(); });
  if (draft != drafts_.end()) {
    const std::function<void()> adopt = std::move(draft->adopt);
    drafts_.erase(draft);
    adopt();
  }
  part.touch(change);
  saved_ = false;
}

void Document::save() {
  if (path_.empty()) {
    throw FormatError(name(), "was never saved and has no file yet: save it under a path first");
  }
  if (readOnly_) throw FormatError(path_, "was opened read-only: save it under another path");
  write(path_, presentation_->contentType(), true);
}

void Document::saveAs(const std::string& path) {
  write(path, typeForFile(path, presentation_->contentType()), true);
  path_ = absolutePath(path);
  readOnly_ = false;
}

void Document::saveCopyAs(const std::string& path) {
  write(path, typeForFile(path, presentation_->contentType()), false);
}

void Document::settle() {
  dropLoose();
  tellOfSlides(*this, told_);
  told_.clear();
  for (const SlideEntry& entry : slides()) told_.push_back(entry.id);
}

/// Other programs that save there wait meanwhile. What one of them wrote into the presentation's own file is
/// never lost.
void Document::write(const std::string& path, const std::string& type, bool adopt) {
  constexpr std::chrono::seconds patience(30);
  const platform::PathLock lock(path, patience);
  if (!lock.held()) throw FormatError(path, "is being written by another program: try again");
  const auto now = platform::fileState(path);
  if (written_ && now && !path_.empty() && platform::isSameFile(path, path_) && *now != *written_) {
    throw FormatError(path,
                      "was changed by another program after it was opened, and stays as it is now: open it "
                      "again, or save under another path");
  }
  settle();
  const std::string before = presentation_->contentType();
  const bool otherKind = type != before;
  if (otherKind) package_->retype(presentation_, type);
  try {
    package_->save(path, adopt);
  } catch (...) {
    if (otherKind) package_->retype(presentation_, before);
    throw;
  }
  if (otherKind && !adopt) package_->retype(presentation_, before);
  if (otherKind && !mayHoldMacros(type) && presentation_->firstRelationship("vbaProject")) {
    const DocumentRef written = adopt ? shared_from_this() : open(path, false, false);
    written->dropMacros();
    written->package_->save(path);
  }
  if (!adopt) return;
  written_ = platform::fileState(path);
  saved_ = true;
}

void Document::dropMacros() {
  while (const Relationship* macros = presentation_->firstRelationship("vbaProject")) {
    const PartRef part = presentation_->target(*macros);
    presentation_->unrelate(std::string(macros->id));
    if (part) package_->remove(part);
  }
}

void Document::loosen(const PartRef& part, const std::vector<std::string>& relationships) {
  if (!relationships.empty()) loose_[part].insert(relationships.begin(), relationships.end());
}

void Document::dropLoose() {
  std::vector<PartRef> targets;
  for (auto& [part, ids] : loose_) {
    if (part->removed()) continue;
    for (const Reference& reference : referencesIn(part->root())) {
      ids.erase(reference.attribute.value());
      ids.erase(diagramDrawing(*part, reference));
    }
    for (const std::string& id : ids) {
      const Relationship* relationship = part->relationship(id);
      if (!relationship) continue;
      if (PartRef target = part->target(*relationship)) targets.push_back(std::move(target));
      part->unrelate(id);
    }
  }
  loose_.clear();
  package_->removeUnreachable(targets);
}

/// The slides as presentation.xml lists them, found by what they are known by; of several the first.
struct Document::SlideList {
  std::vector<SlideEntry> entries;
  std::unordered_map<std::int32_t, std::size_t> positions;  ///< by id
  std::unordered_map<const Part*, std::int32_t> ids;        ///< filled when first asked for
};

Document::SlideList& Document::slideList() const {
  return *presentation_->kept<SlideList>([&] {
    auto list = std::make_shared<SlideList>();
    for (pugi::xml_node node : presentation().child("p:sldIdLst").children("p:sldId")) {
      const std::int32_t id = node.attribute("id").as_int();
      list->positions.emplace(id, list->entries.size());
      list->entries.push_back({id, node.attribute("r:id").value(), node});
    }
    return list;
  });
}

const std::vector<SlideEntry>& Document::slides() const { return slideList().entries; }

std::size_t Document::slideCount() const { return slides().size(); }

Sheet Document::slide(std::int32_t id) {
  const int position = slidePosition(id);
  if (position < 0) {
    base::raise(base::errors::invalidRequest,
                "Slides.FindBySlideID: Invalid request. No slide has the id " + std::to_string(id) + ".");
  }
  const SlideEntry& entry = slides()[static_cast<std::size_t>(position)];
  const Relationship* relationship = presentation_->relationship(entry.relationshipId);
  PartRef part = relationship ? presentation_->target(*relationship) : nullptr;
  if (!part) {
    throw FormatError(presentation_->name(), "the slide with id " + std::to_string(id) +
                                                 " names relationship '" + entry.relationshipId +
                                                 "', which leads to no part");
  }
  return sheet(std::move(part));
}

std::int32_t Document::slideId(const Sheet& sheet) {
  if (!sheet || sheet.part->removed()) return 0;
  SlideList& list = slideList();
  if (list.ids.empty()) {
    for (const SlideEntry& entry : list.entries) {
      const Relationship* relationship = presentation_->relationship(entry.relationshipId);
      const PartRef part = relationship ? presentation_->target(*relationship) : nullptr;
      if (part) list.ids.emplace(part.get(), entry.id);
    }
  }
  const auto found = list.ids.find(sheet.part.get());
  return found == list.ids.end() ? 0 : found->second;
}

int Document::slidePosition(std::int32_t id) const {
  const auto& positions = slideList().positions;
  const auto found = positions.find(id);
  return found == positions.end() ? -1 : static_cast<int>(found->second);
}

void Document::deleteSlide(std::int32_t id) {
  const Sheet gone = slide(id);
  nextSlideId();  // so that the id counts as used even if it was the highest
  const SlideEntry entry = slides()[static_cast<std::size_t>(slidePosition(id))];
  for (const auto& listed : presentation().select_nodes("p:custShowLst/p:custShow/p:sldLst/p:sld")) {
    if (value(listed.node(), "r:id") == entry.relationshipId) presentation_->bury(listed.node());
  }
  presentation_->bury(entry.node);
  presentation_->unrelate(entry.relationshipId);
  dropFromExtensions(*presentation_, presentation(), id);
  // What leads to this slide from elsewhere loses its target, so it goes too: hyperlinks of other slides, of
  // masters and layouts, and the place in the outline.
  const auto forget = [&](const Sheet& other) {
    std::vector<std::string> links;
    for (const Relationship& relationship : other.part->relationships()) {
      if (relationship.is("slide") && other.part->target(relationship) == gone.part)
        links.push_back(relationship.id);
    }
    for (const std::string& link : links) {
      dropLinks(*other.part, other.part->root(), link);
      other.part->unrelate(link);
      other.touch();
    }
  };
  const std::vector<SlideEntry> others = slides();
  for (const SlideEntry& entry : others) forget(slide(entry.id));
  for (const Sheet& master : masters()) {
    forget(master);
    for (const Sheet& layout : layoutsOf(master)) forget(layout);
  }
  if (const Sheet view = related("viewProps")) forget(view);
  package_->remove(gone.part);
  touch(*presentation_);
}

std::int32_t Document::nextSlideId() {
  if (highestSlideId_ == 0) {
    highestSlideId_ = lowestSlideId - 1;
    for (const SlideEntry& entry : slides()) highestSlideId_ = std::max(highestSlideId_, entry.id);
  }
  if (highestSlideId_ < slideIdLimit) return highestSlideId_ + 1;
  // The highest number is taken: the lowest free one serves.
  for (std::int32_t id = lowestSlideId;; ++id) {
    if (slidePosition(id) < 0) return id;
  }
}

std::int32_t Document::insertSlide(std::size_t position, const Sheet& layout) {
  const PartRef part = package_->addXml(package_->freeName("ppt/slides/slide%d.xml"), slideContentType,
                                        newSlideXml(layout.part->root()));
  part->relate(*layout.part, "slideLayout");
  return listSlide(position, part);
}

std::int32_t Document::listSlide(std::size_t position, const PartRef& part) {
  const std::int32_t id = nextSlideId();
  const std::string relationshipId = presentation_->relate(*part, "slide");

  pugi::xml_node list = childInOrder(
      presentation(), "p:sldIdLst",
      {"p:sldSz", "p:notesSz", "p:smartTags", "p:embeddedFontLst", "p:custShowLst", "p:photoAlbum",
       "p:custDataLst", "p:kinsoku", "p:defaultTextStyle", "p:modifyVerifier", "p:extLst"});
  const std::vector<SlideEntry>& entries = slides();
  pugi::xml_node node = position < entries.size()
                            ? list.insert_child_before("p:sldId", entries[position].node)
                            : list.append_child("p:sldId");
  node.append_attribute("id").set_value(id);
  node.append_attribute("r:id").set_value(relationshipId.c_str());
  addToSection(id, position < entries.size() ? entries[position].id : 0);
  highestSlideId_ = std::max(highestSlideId_, id);
  touch(*presentation_);
  return id;
}

void Document::addToSection(std::int32_t id, std::int32_t before) {
  const pugi::xpath_node_set lists =
      presentation()
          .child("p:extLst")
          .select_nodes(".//*[local-name()='section']/*[local-name()='sldIdLst']");
  if (lists.empty()) return;
  pugi::xml_node target = lists[lists.size() - 1].node();
  pugi::xml_node follower;
  for (const auto& list : lists) {
    for (pugi::xml_node entry : list.node().children()) {
      if (before != 0 && entry.attribute("id").as_int() == before) {
        target = list.node();
        follower = entry;
      }
    }
  }
  // The section list's own prefix ("p14" as a rule) serves for the entry too.
  const std::string listName = target.name();
  const std::string name = listName.substr(0, listName.find(':') + 1) + "sldId";
  pugi::xml_node entry =
      follower ? target.insert_child_before(name.c_str(), follower) : target.append_child(name.c_str());
  entry.append_attribute("id").set_value(id);
}

std::vector<Sheet> Document::masters() {
  std::vector<Sheet> found;
  for (pugi::xml_node node : presentation().child("p:sldMasterIdLst").children("p:sldMasterId")) {
    const Relationship* relationship = presentation_->relationship(value(node, "r:id"));
    if (PartRef part = relationship ? presentation_->target(*relationship) : nullptr) {
      found.push_back(sheet(std::move(part)));
    }
  }
  return found;
}

std::vector<Sheet> Document::layouts() {
  const std::vector<Sheet> all = masters();
  return all.empty() ? std::vector<Sheet>() : layoutsOf(all.front());
}

std::vector<Sheet> Document::layoutsOf(const Sheet& master) {
  std::vector<Sheet> found;
  Part& part = *master.part;
  for (pugi::xml_node node : part.root().child("p:sldLayoutIdLst").children("p:sldLayoutId")) {
    const Relationship* relationship = part.relationship(value(node, "r:id"));
    if (PartRef layout = relationship ? part.target(*relationship) : nullptr) {
      found.push_back(sheet(std::move(layout)));
    }
  }
  return found;
}

Sheet Document::related(std::string_view type) {
  const Relationship* relationship = presentation_->firstRelationship(type);
  PartRef target = relationship ? presentation_->target(*relationship) : nullptr;
  return target ? sheet(std::move(target)) : Sheet{};
}

void Document::keepDraft(const std::string& purpose, const PartRef& draft, std::function<void()> adopt) {
  drafts_.push_back({purpose, draft, std::move(adopt)});
}

PartRef Document::draft(const std::string& purpose) const {
  const auto found = std::ranges::find(drafts_, purpose, &Draft::purpose);
  return found == drafts_.end() ? nullptr : found->part;
}

int Document::firstSlideNumber() const { return presentation().attribute("firstSlideNum").as_int(1); }

}  // namespace vellumark::deck
