#include "deck/model/slide_layouts.h"

#include <utility>

namespace vellumark::deck {
namespace {

constexpr std::int32_t custom = 32;

constexpr std::pair<std::int32_t, std::string_view> layouts[] = {
    {1, "title"},
    {2, "tx"},
    {3, "twoColTx"},
    {4, "tbl"},
    {5, "txAndChart"},
    {6, "chartAndTx"},
    {7, "dgm"},
    {8, "chart"},
    {9, "txAndClipArt"},
    {10, "clipArtAndTx"},
    {11, "titleOnly"},
    {12, "blank"},
    {13, "txAndObj"},
    {14, "objAndTx"},
    {15, "objOnly"},
    {16, "obj"},
    {17, "txAndMedia"},
    {18, "mediaAndTx"},
    {19, "objOverTx"},
    {20, "txOverObj"},
    {21, "txAndTwoObj"},
    {22, "twoObjAndTx"},
    {23, "twoObjOverTx"},
    {24, "fourObj"},
    {25, "vertTx"},
    {26, "clipArtAndVertTx"},
    {27, "vertTitleAndTx"},
    {28, "vertTitleAndTxOverChart"},
    {29, "twoObj"},
    {30, "objAndTwoObj"},
    {31, "twoObjAndObj"},
    {32, "cust"},
    {33, "secHead"},
    {34, "twoTxTwoObj"},
    {35, "objTx"},
    {36, "picTx"},
};

}  // namespace

std::int32_t layoutNumber(std::string_view type) {
  for (const auto& [number, name] : layouts) {
    if (name == type) return number;
  }
  return custom;
}

std::string_view layoutType(std::int32_t number) {
  for (const auto& [known, name] : layouts) {
    if (known == number) return name;
  }
  return {};
}

}  // namespace vellumark::deck
