#include "base/error.h"
#include "deck/model/document.h"

namespace vellumark::deck {

pugi::xml_node Sheet::shapeTree() const {
  const pugi::xml_node tree = part->root().child("p:cSld").child("p:spTree");
  if (!tree) throw FormatError(part->name(), "has no shape tree (p:cSld/p:spTree)");
  return tree;
}

Sheet Sheet::parent() const {
  for (const char* type : {"slideLayout", "slideMaster", "notesMaster"}) {
    // A master relates to its layouts, which do not stand above it.
    if (part->contentType().find("slideMaster+xml") != std::string::npos) return {};
    if (const Relationship* relationship = part->firstRelationship(type)) {
      if (PartRef target = part->target(*relationship)) return {document, std::move(target)};
    }
  }
  return {};
}

bool ShapeKey::deleted() const {
  return !sheet.document || sheet.document->closed() || !sheet.part || sheet.part->isBuried(node);
}

void Sheet::touch(Change change) const { document->touch(*part, change); }

}  // namespace vellumark::deck
