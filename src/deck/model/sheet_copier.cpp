#include "deck/model/sheet_copier.h"

#include <string>

#include "deck/model/references.h"

namespace vellumark::deck {

const char* parentRelationship(const Sheet& parent) {
  const std::string& type = parent.part->contentType();
  if (type.ends_with(".slideLayout+xml")) return "slideLayout";
  return type.ends_with(".notesMaster+xml") ? "notesMaster" : "slideMaster";
}

PartRef copyUnder(const Sheet& sheet, const Sheet& parent, PartCopier& copier) {
  if (const Sheet own = sheet.parent()) copier.standIn(own.part, parent.part);
  const PartRef copy = copier.copyAnew(sheet.part);
  for (const std::string& id : copier.leftOut(copy)) dropReferences(copy->root(), id);
  const char* relationship = parentRelationship(parent);
  if (!copy->firstRelationship(relationship)) copy->relate(*parent.part, relationship);
  return copy;
}

}  // namespace vellumark::deck
