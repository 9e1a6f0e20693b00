#include "commands/ribbon.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <pugixml.hpp>

#include "base/error.h"
#include "base/trap.h"
#include "console.h"
#include "deck_report.h"
#include "failure.h"
#include "files.h"
#include "installation.h"
#include "questions.h"
#include "ribbon.h"
#include "session.h"

namespace vellumark::app {
namespace {

using Json = nlohmann::ordered_json;

/// Where a ribbon comes from, and what is wrong with it.
struct Source {
  Session& session;
  std::vector<std::string> faults = {};
  std::string notes = {};
};

/// A control of the definition as the host shows it. The callbacks that it names are asked.
class Control {
 public:
  Control(Source& source, pugi::xml_node node) : session_(source.session), node_(node) {
    label_ = node.attribute("label").value();
    answer(source, "getLabel", [&](const host::Value& value) { label_ = value.toString(); });
    answer(source, "getVisible", [&](const host::Value& value) { visible_ = value.toBool(); });
    answer(source, "getEnabled", [&](const host::Value& value) { enabled_ = value.toBool(); });
    answer(source, "getPressed", [&](const host::Value& value) { pressed_ = value.toBool(); });
    // A failure leaves a control without its image, as the host does.
    if (node.attribute("getImage")) {
      image_ = false;
      base::resumeNext([&] { image_ = ask("getImage") != host::Value(host::ObjectRef()); });
    }
    if (node.attribute("getItemCount")) readItems();
  }

  /// Groups and rows only hold other controls.
  bool isControl() const {
    const std::string_view kind = node_.name();
    return kind != "box" && kind != "tab";
  }
  std::string line() const {
    std::string text = label_.empty() ? node_.name() : label_;
    if (const std::string id = node_.attribute("id").value();
        node_.attribute("onAction") && id.starts_with("zp_")) {
      text += " [" + id.substr(3) + "]";
    }
    const bool main = std::string_view(node_.parent().name()) == "splitButton" && !node_.previous_sibling();
    const std::string tip = (main ? node_.parent() : node_).attribute("keytip").value();
    if (!tip.empty()) text += " (" + tip + ")";
    if (!visible_) text += ", hidden";
    if (!enabled_) text += ", disabled";
    if (pressed_) text += *pressed_ ? ", pressed" : ", not pressed";
    if (image_ == false) text += ", without image";
    for (std::size_t i = 0; i < items_.size(); ++i) {
      text += (i == 0 ? ": " : " | ") + (static_cast<int>(i) == selected_ ? "*" + items_[i] : items_[i]);
    }
    return text;
  }
  Json json() const {
    Json json = {{"kind", node_.name()}, {"id", node_.attribute("id").value()}, {"label", label_}};
    for (const char* name : {"keytip", "screentip", "supertip"}) {
      if (node_.attribute(name)) json[name] = node_.attribute(name).value();
    }
    json["visible"] = visible_;
    json["enabled"] = enabled_;
    if (pressed_) json["pressed"] = *pressed_;
    if (image_) json["image"] = *image_;
    if (!items_.empty()) {
      json["items"] = items_;
      if (selected_ >= 0) json["selected"] = selected_;
    }
    return json;
  }

 private:
  /// Takes the answer of a callback, if the definition names one. A failure is told, and leaves what it is
  /// about as it is without.
  template <typename Take>
  void answer(Source& source, const char* callback, const Take& take) const {
    if (!node_.attribute(callback)) return;
    try {
      take(ask(callback));
    } catch (const base::Error& error) {
      source.notes += std::string(node_.attribute("id").value()) + ": its " + callback +
                      " fails: " + oneLine(error.description()) + "\n";
    }
  }

  host::Value ask(const char* callback, std::optional<int> index = {}) const {
    const auto control =
        std::make_shared<RibbonControl>(node_.attribute("id").value(), node_.attribute("tag").value());
    return session_.shown(node_.attribute(callback).value(), control, index);
  }
  void readItems() {
    const int count = ask("getItemCount").toInt();
    for (int i = 0; i < count; ++i) {
      items_.push_back(ask("getItemLabel", i).toString());
    }
    if (node_.attribute("getSelectedItemIndex")) selected_ = ask("getSelectedItemIndex").toInt();
  }

  Session& session_;
  pugi::xml_node node_;
  std::string label_;
  bool visible_ = true;
  bool enabled_ = true;
  std::optional<bool> pressed_, image_;
  std::vector<std::string> items_;
  int selected_ = -1;
};

/// Fills in a dynamic menu. It stays empty where its callback fails or gives no menu, as the host shows it.
void loadMenu(Source& source, pugi::xml_node node, pugi::xml_document& content) {
  const std::string id = node.attribute("id").value();
  const auto control = std::make_shared<RibbonControl>(id);
  try {
    const std::string text = source.session.shown(node.attribute("getContent").value(), control).toString();
    if (text.empty()) return;
    const pugi::xml_parse_result result = content.load_string(text.c_str());
    if (result) return;
    content.reset();
    const auto begin = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset - 20, 0));
    source.faults.push_back(id + ": its menu is not well-formed XML (" + result.description() + " near \"" +
                            excerpt(text.substr(std::min(begin, text.size())), 40) +
                            "\"), so that none of it can be shown; names with &, < or \" break it");
  } catch (const base::Error& error) {
    source.notes +=
        id + ": its menu is empty, because it can't be made: " + oneLine(error.description()) + "\n";
  }
}

/// The children of a control in the definition; those of a dynamic menu come from the add-in.
std::vector<pugi::xml_node> children(Source& source, pugi::xml_node node, pugi::xml_document& content) {
  pugi::xml_node holder = node;
  if (node.attribute("getContent")) {
    loadMenu(source, node, content);
    holder = content.document_element();
  }
  const auto nodes = holder.children();
  return {nodes.begin(), nodes.end()};
}

std::string tree(Source& source, pugi::xml_node node, int depth) {
  const Control control(source, node);
  std::string text;
  // Of a split button only the main part has a line; the rest of the menu stands under it.
  const bool split = std::string_view(node.name()) == "splitButton";
  const bool inSplit = std::string_view(node.parent().name()) == "splitButton";
  if (control.isControl() && !split && !(inSplit && std::string_view(node.name()) == "menu")) {
    text = std::string(static_cast<std::size_t>(depth) * 2, ' ') + control.line() + "\n";
    ++depth;
  }
  pugi::xml_document content;
  int inner = depth;
  for (const pugi::xml_node child : children(source, node, content)) {
    text += tree(source, child, inner);
    if (split) inner = depth + 1;
  }
  return text;
}

Json treeJson(Source& source, pugi::xml_node node) {
  Json json = Control(source, node).json();
  pugi::xml_document content;
  for (const pugi::xml_node child : children(source, node, content)) {
    json["children"].push_back(treeJson(source, child));
  }
  return json;
}

/// The host asks for all that is in view once the tab is. Menus wait until somebody opens them.
void comeIntoView(Source& source, pugi::xml_node node) {
  const Control asked(source, node);
  const std::string_view kind = node.name();
  if (kind == "menu" || kind == "gallery" || kind == "dynamicMenu") return;
  for (const pugi::xml_node child : node.children()) comeIntoView(source, child);
}

}  // namespace

Exit ribbon(const RibbonOptions& options, const Surroundings& surroundings) {
  const auto root = installationRoot(options.root);
  if (!options.deck.empty()) requireDeck(options.deck);
  const auto questions = surroundings.questions({}, {});
  Session session(options.host, surroundings.addIn(root));
  if (!session.hasRibbon()) {
    throw Failure(Exit::usage,
                  "--host " + options.host + ": such a host has toolbars and no ribbon; take 12.0 or later");
  }
  pugi::xml_document definition;
  const std::string text = session.addIn().customUi();
  if (!definition.load_string(text.c_str())) {
    throw Failure(Exit::refused,
                  "the definition of the ribbon (program/ui/zorpUI.xml) is not XML; install it anew");
  }
  const pugi::xml_node tab = definition.select_node("//tab").node();
  Source unheard{session};
  comeIntoView(unheard, tab);
  if (!options.deck.empty()) arrange(session, options);
  Source source{session};
  if (options.json) {
    print(jsonText(treeJson(source, tab)));
  } else {
    std::string lines =
        std::string(tab.attribute("label").value()) + " (" + tab.attribute("keytip").value() + ")\n";
    print(lines + tree(source, tab, 1));
  }
  tell(source.notes);
  for (const std::string& fault : source.faults) tellFailure(fault);
  return source.faults.empty() ? Exit::done : Exit::refused;
}

}  // namespace vellumark::app
