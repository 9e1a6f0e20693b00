#pragma once
// The guides of a geometry: named values, each worked out by a formula from those before it.

#include <string>
#include <string_view>
#include <unordered_map>

namespace vellumark::deck {

/// The guides of one shape. Lengths are in EMU, angles in 60000ths of a degree. Whatever can't be worked out
/// counts as 0, and no value is ever infinite or no number.
class GuideFormulas {
 public:
  /// Knows the built-in names of a shape of that size: w, hc, ssd8, 3cd4 and so on.
  GuideFormulas(double width, double height);

  /// Adds a guide, or gives it a new value. The formula is an operator with up to three operands, each a
  /// number or a name known by now: "*/ w adj 100000".
  void define(std::string_view name, std::string_view formula);

  /// What a number or a name stands for.
  double value(std::string_view operand) const;

 private:
  std::unordered_map<std::string, double> values_;
};

}  // namespace vellumark::deck
