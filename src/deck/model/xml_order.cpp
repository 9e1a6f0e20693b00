#include "deck/model/xml_order.h"

#include <cstring>

namespace vellumark::deck {

pugi::xml_node childInOrder(pugi::xml_node parent, const char* name,
                            std::initializer_list<const char*> followers) {
  if (pugi::xml_node existing = parent.child(name)) return existing;
  for (pugi::xml_node child : parent.children()) {
    for (const char* follower : followers) {
      if (std::strcmp(child.name(), follower) == 0) return parent.insert_child_before(name, child);
    }
  }
  return parent.append_child(name);
}

}  // namespace vellumark::deck
