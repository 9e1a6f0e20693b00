#include "decks/xml_add.h"

#include <sstream>
#include <stdexcept>

namespace vellumark::decks {

void addParsed(pugi::xml_node parent, const std::string& xml) {
  const auto result =
      parent.append_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata);
  if (!result) throw std::invalid_argument(std::string(result.description()) + ": " + xml);
}

std::string xmlText(const pugi::xml_document& document) {
  std::ostringstream text;
  text << R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
       << "\n";
  document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
  return text.str();
}

}  // namespace vellumark::decks
