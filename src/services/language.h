#pragma once
// One language that texts can be checked in.

#include <cstdint>
#include <string>
#include <utility>

namespace vellumark::services {

class Language {
 public:
  Language(std::string name, std::int32_t languageId, std::string iso639)
      : name_(std::move(name)), languageId_(languageId), iso639_(std::move(iso639)) {}

  std::int32_t LanguageID() const { return languageId_; }  ///< locale id, as the host's LanguageID has it
  void LanguageID(std::int32_t id) { languageId_ = id; }
  const std::string& Name() const { return name_; }  ///< as dropdowns and buttons show it
  void Name(const std::string& name) { name_ = name; }
  const std::string& ISO639() const { return iso639_; }  ///< two capitals
  void ISO639(const std::string& code) { iso639_ = code; }

 private:
  std::string name_;
  std::int32_t languageId_;
  std::string iso639_;
};

}  // namespace vellumark::services
