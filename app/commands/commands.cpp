#include "commands/commands.h"

#include <nlohmann/json.hpp>

#include "commands/command_table.h"
#include "console.h"
#include "deck_report.h"

namespace vellumark::app {
namespace {

using commands::Command;

/// The rule in words. Both numbers of a split button mostly have the same.
std::string enabledWhen(const Command& command) {
  const std::string rule = command.rule.text();
  const std::string second = command.secondRule.text();
  if (command.secondId == 0 || second == rule) return rule;
  return std::to_string(command.id) + ": " + rule + "; " + std::to_string(command.secondId) + ": " + second;
}

std::string numbers(const Command& command) {
  if (command.id == 0) return "";
  return std::to_string(command.id) + (command.secondId == 0 ? "" : ", " + std::to_string(command.secondId));
}

std::string listText() {
  Table table({{"number"}, {"name"}, {"label"}, {"enabled when"}});
  for (const Command& command : commands::commandTable()) {
    table.row({numbers(command), command.method, command.label, enabledWhen(command)});
  }
  return table.text();
}

std::string listJson() {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const Command& command : commands::commandTable()) {
    nlohmann::ordered_json numbers = nlohmann::ordered_json::array();
    for (const int number : {command.id, command.secondId}) {
      if (number != 0) numbers.push_back(number);
    }
    list.push_back({{"numbers", std::move(numbers)},
                    {"name", command.method},
                    {"label", command.label},
                    {"enabledWhen", enabledWhen(command)},
                    {"counter", command.counter ? nlohmann::ordered_json(command.counter) : nullptr},
                    {"toggle", command.toggle}});
  }
  return jsonText(list);
}

}  // namespace

Exit listCommands(bool json) {
  print(json ? listJson() : listText());
  return Exit::done;
}

}  // namespace vellumark::app
