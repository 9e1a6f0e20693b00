#pragma once
// The shapes of a sheet, found at once whatever their number.

#include <cstdint>
#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Where everything stands on a sheet. An index holds until more than contents of the sheet is
/// changed; what nobody asks for isn't worked out.
class SheetIndex {
 public:
  /// The index of a sheet as it is now. FormatError where the sheet has no shape tree.
  static std::shared_ptr<SheetIndex> of(const Sheet& sheet);
  explicit SheetIndex(pugi::xml_node tree);

  /// The shapes right on the sheet, the one at the back first.
  const std::vector<pugi::xml_node>& shapes() const { return shapes_; }
  /// All shapes of a group but the groups among them, in order.
  const std::vector<pugi::xml_node>& leaves(pugi::xml_node group);
  /// The first shape right on the sheet with a name, as it is written or else in any case; nothing where
  /// there is none.
  pugi::xml_node named(const std::string& name);
  /// The first shape with an id, those in groups among them; nothing for 0 and where there is none.
  pugi::xml_node withId(std::int32_t id);
  /// Connectors with an end glued to the shape of that id, by their places among all connectors of the sheet.
  const std::map<std::size_t, pugi::xml_node>& gluedTo(std::int32_t id);
  bool hasGlue();

 private:
  void walk();
  void visit(pugi::xml_node parent);

  pugi::xml_node tree_;
  std::vector<pugi::xml_node> shapes_;
  std::unordered_map<std::size_t, std::vector<pugi::xml_node>> leaves_;  ///< by the group's hash
  std::unordered_map<std::string, pugi::xml_node> names_, namesInAnyCase_;
  bool walked_ = false;
  std::size_t connectors_ = 0;
  std::unordered_map<std::int32_t, pugi::xml_node> ids_;
  std::unordered_map<std::int32_t, std::map<std::size_t, pugi::xml_node>> glue_;
};

/// The id of the shape that an end of a connector ("a:stCxn", "a:endCxn") is glued to; 0 where it is free.
std::int32_t gluedId(pugi::xml_node connector, const char* end);
inline constexpr const char* connectorEnds[] = {"a:stCxn", "a:endCxn"};

}  // namespace vellumark::deck
