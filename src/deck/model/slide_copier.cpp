#include "deck/model/slide_copier.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/error.h"
#include "deck/model/layout_creation.h"
#include "deck/model/notes_pages.h"
#include "deck/model/references.h"
#include "deck/model/table_styles.h"
#include "deck/package/namespaces.h"

namespace vellumark::deck {
namespace {

std::string_view layoutName(const Sheet& layout) {
  return layout.part->root().child("p:cSld").attribute("name").value();
}

std::string_view layoutType(const Sheet& layout) {
  return layout.part->root().attribute("type").as_string("cust");
}

struct Copy {
  Sheet source;
  Sheet layout;
  PartRef part;
};

/// Relates the copy of a slide to its layout and to whatever else the slide relates to, its notes left out.
void relateCopy(const Copy& copy, PartCopier& copier) {
  Part& source = *copy.source.part;
  std::vector<std::string> gone;
  for (const Relationship& relationship : source.relationships()) {
    if (copy.part->relationship(relationship.id) || relationship.is("notesSlide")) continue;
    if (relationship.is("slideLayout")) {
      if (copy.part->firstRelationship("slideLayout")) continue;
      copy.part->relateAs(relationship.id, *copy.layout.part,
                          inFamily(relationship.type, copier.to().isStrict()));
    } else if (copier.relate(source, relationship, *copy.part, relationship.id).empty()) {
      gone.push_back(relationship.id);
    }
  }
  if (!copy.part->firstRelationship("slideLayout")) copy.part->relate(*copy.layout.part, "slideLayout");
  for (const std::string& id : gone) dropReferences(copy.part->root(), id);
}

}  // namespace

Sheet layoutIn(Document& target, const Sheet& slide, PartCopier& copier) {
  const Sheet own = slide.parent();
  if (slide.document.get() == &target && own) return own;
  std::vector<Sheet> layouts;
  for (const Sheet& master : target.masters()) {
    for (Sheet& layout : target.layoutsOf(master)) layouts.push_back(std::move(layout));
  }
  if (layouts.empty()) {
    base::raise(
        base::errors::invalidRequest,
        "Slides.Paste: Invalid request. " + target.name() +
            " has no slide layout that the slide could follow; add a slide master with a layout to it.");
  }
  if (!own) return layouts.front();
  const std::string_view name = layoutName(own), type = layoutType(own);
  auto found = std::ranges::find_if(
      layouts, [&](const Sheet& one) { return !name.empty() && layoutName(one) == name; });
  if (found == layouts.end()) {
    found = std::ranges::find_if(layouts,
                                 [&](const Sheet& one) { return type != "cust" && layoutType(one) == type; });
  }
  return found == layouts.end() ? copyLayout(own, target, target.masters().front(), copier) : *found;
}

std::vector<std::int32_t> copySlides(const std::vector<Sheet>& slides, Document& target, std::size_t position,
                                     PartCopier& copier) {
  return copySlides(slides, target, position, copier,
                    [&](const Sheet& slide) { return layoutIn(target, slide, copier); });
}

std::vector<std::int32_t> copySlides(const std::vector<Sheet>& slides, Document& target, std::size_t position,
                                     PartCopier& copier,
                                     const std::function<Sheet(const Sheet& slide)>& layoutOf) {
  std::vector<Copy> copies;
  for (const Sheet& slide : slides) copies.push_back({slide, layoutOf(slide), {}});
  try {
    // All parts come first, so that links among the slides lead to the copies.
    for (Copy& copy : copies) {
      copy.part = copier.copyAlone(copy.source.part);
      copier.standIn(copy.source.part, copy.part);
    }
    for (const Copy& copy : copies) relateCopy(copy, copier);
  } catch (const FormatError&) {
    // A part that can't be read: no slide comes.
    for (const Copy& copy : copies) {
      if (copy.part) target.package().remove(copy.part);
    }
    throw;
  }
  std::vector<std::int32_t> ids;
  for (const Copy& copy : copies) {
    bringTableStyles(copy.part->root(), *copy.source.document, target);
    ids.push_back(target.listSlide(position++, copy.part));
    copyNotesPage(copy.source, target.sheet(copy.part), copier);
  }
  return ids;
}

}  // namespace vellumark::deck
