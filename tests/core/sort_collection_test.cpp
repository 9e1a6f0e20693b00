#include "core/sort_collection.h"

#include <gtest/gtest.h>

namespace vellumark::core {
namespace {

struct Item {
  host::Value value;
  std::string name;
};

host::Value property(const Item& item, const std::string& name) {
  if (name == "Value") return item.value;
  if (name == "Name") return item.name;
  base::raise(base::errors::noSuchMember);
}

KeyedList<Item> listOf(const std::vector<host::Value>& values) {
  KeyedList<Item> list;
  for (const host::Value& value : values) {
    const std::string name(1, static_cast<char>('a' + list.Count()));
    list.Add({value, name}, "key " + name);
  }
  return list;
}

std::string namesOf(const KeyedList<Item>& list) {
  std::string names;
  for (int i = 1; i <= list.Count(); ++i) names += list.Item(i).name;
  return names;
}

TEST(SortCollection, SelectsTheFirstOfEqualsForEachPosition) {
  struct Case {
    std::vector<host::Value> values;
    const char* ascending;
    const char* descending;
  };
  const Case cases[] = {
      {{}, "", ""},
      {{7}, "a", "a"},
      {{3, 1, 3, 1}, "bdac", "acbd"},
      {{2, 2, 1}, "cab", "abc"},
      {{2.5, 10, -1, 2.5F}, "cadb", "badc"},
      {{"b", "B", "ab", "", "\xF0\x9F\x98\x80", "\xEF\xBF\xBD"}, "dbcaef", "feacbd"},
      {{"1", 20, host::Value(), true}, "dcba", "abcd"},
  };
  for (const Case& c : cases) {
    KeyedList<Item> list = listOf(c.values);
    SortCollection(list, "Value", false, "Name", property);
    EXPECT_EQ(namesOf(list), c.ascending);
    list = listOf(c.values);
    SortCollection(list, "Value", true, "Name", property);
    EXPECT_EQ(namesOf(list), c.descending);
  }
}

TEST(SortCollection, WhatMovesGetsTheKeyOfItsPropertyOrNone) {
  KeyedList<Item> list = listOf({2, 1});
  SortCollection(list, "Value", false, "Name", property);
  EXPECT_EQ(list.Item("b").name, "b");
  EXPECT_EQ(list.Item("key a").name, "a");
  EXPECT_FALSE(list.contains("key b"));

  list = listOf({2, 1});
  SortCollection(list, "Value", false, "", property);
  EXPECT_EQ(namesOf(list), "ba");
  EXPECT_FALSE(list.contains("b") || list.contains("key b"));
}

}  // namespace
}  // namespace vellumark::core
