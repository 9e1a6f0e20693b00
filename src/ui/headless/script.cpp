#include "ui/headless/script.h"

#include <utility>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"

namespace vellumark::ui {
namespace {

[[noreturn]] void malformed(const std::string& script, const std::string& fault) {
  base::raise(base::errors::invalidCall,
              "dialog script '" + script + "': " + fault + "; write it as 'FORM: control=value; button'");
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool quoted(const std::string& text) {
  return text.size() >= 2 && (text.front() == '\'' || text.front() == '"') && text.back() == text.front();
}

/// The parts between semicolons that stand in no quotes.
std::vector<std::string> splitSteps(const std::string& script, const std::string& text) {
  std::vector<std::string> parts(1);
  char quote = 0;
  for (const char c : text) {
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if ((c == '\'' || c == '"') &&
               (parts.back().empty() || parts.back().back() == '=' || parts.back().back() == ' ')) {
      quote = c;
    } else if (c == ';') {
      parts.emplace_back();
      continue;
    }
    parts.back() += c;
  }
  if (quote != 0) malformed(script, "a quotation mark is not closed");
  return parts;
}

DialogStep parseStep(const std::string& script, const std::string& part) {
  DialogStep step;
  step.text = part;
  const std::size_t equals = part.find('=');
  std::string target = trimmed(part.substr(0, equals));
  if (equals != std::string::npos) {
    step.kind = DialogStep::Kind::set;
    step.value = trimmed(part.substr(equals + 1));
    if (quoted(step.value)) step.value = step.value.substr(1, step.value.size() - 2);
  }
  if (const std::size_t mark = target.find('!'); mark != std::string::npos) {
    step.kind = DialogStep::Kind::act;
    step.act = trimmed(target.substr(mark + 1));
    target = trimmed(target.substr(0, mark));
    if (step.act.empty()) malformed(script, "'" + part + "' names no act behind the '!'");
  }
  if (target.empty()) malformed(script, "'" + part + "' names no control");
  step.control = target;
  return step;
}

}  // namespace

std::optional<PictureClick> pictureClickOf(const DialogStep& step) {
  constexpr std::pair<const char*, int> acts[] = {{"click", 1}, {"rightclick", 2}, {"middleclick", 4}};
  for (const auto& [act, button] : acts) {
    if (step.act != act || step.value.empty()) continue;
    const std::vector<std::string> place = base::split(step.value, ',');
    try {
      if (place.size() == 2) return PictureClick{button, base::toDouble(place[0]), base::toDouble(place[1])};
    } catch (const base::Error&) {
    }
    base::raise(base::errors::invalidCall,
                "step '" + step.text + "': '" + step.value + "' is no place; write it as 120,40");
  }
  return std::nullopt;
}

std::optional<ScreenClick> screenClickOf(const DialogStep& step) {
  const bool pixel = base::equalsIgnoreCase(step.control, "pixel"),
             color = base::equalsIgnoreCase(step.control, "color");
  if (step.kind != DialogStep::Kind::set || (!pixel && !color)) return std::nullopt;
  const std::string& value = step.value;
  try {
    const std::vector<std::string> place = base::split(value, ',');
    if (pixel && place.size() == 2)
      return ScreenClick{{base::toInt32(place[0]), base::toInt32(place[1])}, {}};
    const std::optional<Color> shown =
        value.starts_with('#') ? colorFromDigits(value.substr(1)) : std::nullopt;
    if (color && shown) return ScreenClick{{}, shown};
  } catch (const base::Error&) {
  }
  base::raise(base::errors::invalidCall,
              "step '" + step.text + "': '" + value + "' is no " +
                  (pixel ? "place; write it as 120,40" : "color; write it as #1B6878"));
}

DialogScript parseDialogScript(const std::string& text) {
  DialogScript script;
  script.text = text;
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) malformed(text, "it names no form");
  script.form = trimmed(text.substr(0, colon));
  if (script.form.empty() || script.form.find_first_of("=;") != std::string::npos)
    malformed(text, "it names no form");
  for (const std::string& part : splitSteps(text, text.substr(colon + 1))) {
    const std::string step = trimmed(part);
    if (!step.empty()) script.steps.push_back(parseStep(text, step));
  }
  return script;
}

}  // namespace vellumark::ui
