#include "deck/drawing/guide_formulas.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace vellumark::deck {
namespace {

/// Guides beyond so many are left out.
constexpr std::size_t mostGuides = 10'000;
/// Values lie below this, so that no product of two of them overflows.
constexpr double largest = 1e100;
constexpr double unitsOfHalfTurn = 180.0 * 60'000;

double bounded(double value) { return std::isfinite(value) ? std::clamp(value, -largest, largest) : 0; }

double radians(double units) { return units / unitsOfHalfTurn * std::numbers::pi; }
double units(double radians) { return radians / std::numbers::pi * unitsOfHalfTurn; }

struct Operator {
  std::string_view sign;
  double (*work)(double x, double y, double z);
};

/// A division by nothing is not finite, and so becomes 0.
constexpr Operator operators[] = {
    {"*/", [](double x, double y, double z) { return x * y / z; }},
    {"+-", [](double x, double y, double z) { return x + y - z; }},
    {"+/", [](double x, double y, double z) { return (x + y) / z; }},
    {"?:", [](double x, double y, double z) { return x > 0 ? y : z; }},
    {"abs", [](double x, double, double) { return std::abs(x); }},
    {"at2", [](double x, double y, double) { return units(std::atan2(y, x)); }},
    {"cat2", [](double x, double y, double z) { return x * std::cos(std::atan2(z, y)); }},
    {"cos", [](double x, double y, double) { return x * std::cos(radians(y)); }},
    {"max", [](double x, double y, double) { return std::max(x, y); }},
    {"min", [](double x, double y, double) { return std::min(x, y); }},
    {"mod", [](double x, double y, double z) { return std::hypot(x, y, z); }},
    {"pin", [](double x, double y, double z) { return y < x ? x : std::min(y, z); }},
    {"sat2", [](double x, double y, double z) { return x * std::sin(std::atan2(z, y)); }},
    {"sin", [](double x, double y, double) { return x * std::sin(radians(y)); }},
    {"sqrt", [](double x, double, double) { return std::sqrt(x); }},
    {"tan", [](double x, double y, double) { return x * std::tan(radians(y)); }},
    {"val", [](double x, double, double) { return x; }},
};
static_assert(std::ranges::is_sorted(operators, {}, &Operator::sign));

/// The next word of a text, which loses it; empty at the end.
std::string_view nextWord(std::string_view& text) {
  constexpr std::string_view blanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(blanks));
  text.remove_prefix(word.size());
  return word;
}

double number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? bounded(value) : 0;
}

}  // namespace

GuideFormulas::GuideFormulas(double width, double height) {
  const double w = bounded(width), h = bounded(height), shorter = std::min(w, h), longer = std::max(w, h),
               circle = 2 * unitsOfHalfTurn;
  values_ = {{"l", 0},
             {"t", 0},
             {"r", w},
             {"b", h},
             {"w", w},
             {"h", h},
             {"hc", w / 2},
             {"vc", h / 2},
             {"ss", shorter},
             {"ls", longer},
             {"cd2", circle / 2},
             {"cd4", circle / 4},
             {"cd8", circle / 8},
             {"3cd4", circle * 3 / 4},
             {"3cd8", circle * 3 / 8},
             {"5cd8", circle * 5 / 8},
             {"7cd8", circle * 7 / 8}};
  for (const int part : {2, 3, 4, 5, 6, 8, 10, 12, 16, 32}) {
    const std::string suffix = 'd' + std::to_string(part);
    values_["w" + suffix] = w / part;
    values_["h" + suffix] = h / part;
    values_["ss" + suffix] = shorter / part;
    values_["ls" + suffix] = longer / part;
  }
}

void GuideFormulas::define(std::string_view name, std::string_view formula) {
  if (values_.size() >= mostGuides) return;
  const std::string_view sign = nextWord(formula);
  std::array<double, 3> operands{};
  for (double& operand : operands) operand = value(nextWord(formula));
  const auto* found = std::ranges::lower_bound(operators, sign, {}, &Operator::sign);
  const bool known = found != std::end(operators) && found->sign == sign;
  values_.insert_or_assign(std::string(name),
                           known ? bounded(found->work(operands[0], operands[1], operands[2])) : 0);
}

/// Names come first: some begin with a digit.
double GuideFormulas::value(std::string_view operand) const {
  const auto found = values_.find(std::string(operand));
  return found != values_.end() ? found->second : number(operand);
}

}  // namespace vellumark::deck
