#pragma once

#include <string>

#include "host/handle.h"

namespace vellumark::host {

/// Name and value pairs that a presentation, a slide or a shape carries. Names match in any case.
class Tags : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  /// The value of a tag; empty where there is no such tag.
  std::string Item(const std::string& name) const { return get<std::string>(member::Item, name); }
  /// Sets a tag, over an earlier value.
  void Add(const std::string& name, const std::string& value) const { call(member::Add, name, value); }
  void Delete(const std::string& name) const { call(member::Delete, name); }
  /// Name and value of the tag at a position from 1.
  std::string Name(int index) const { return get<std::string>(member::Name, index); }
  std::string Value(int index) const { return get<std::string>(member::Value, index); }
};

}  // namespace vellumark::host
