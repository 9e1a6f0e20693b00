#include "commands/ribbon.h"

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

/// A control of the definition as the host shows it. The callbacks that it names are asked.
class Control {
 public:
  Control(Session& session, pugi::xml_node node) : session_(session), node_(node) {
    label_ = node.attribute("getLabel") ? ask("getLabel").toString() : node.attribute("label").value();
    visible_ = !node.attribute("getVisible") || ask("getVisible").toBool();
    enabled_ = !node.attribute("getEnabled") || ask("getEnabled").toBool();
    if (node.attribute("getPressed")) pressed_ = ask("getPressed").toBool();
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

/// The children of a control in the definition; those of a dynamic menu come from the add-in.
std::vector<pugi::xml_node> children(Session& session, pugi::xml_node node, pugi::xml_document& content) {
  pugi::xml_node holder = node;
  if (const pugi::xml_attribute callback = node.attribute("getContent")) {
    const auto control = std::make_shared<RibbonControl>(node.attribute("id").value());
    // The menu of a callback that fails is empty, as the host shows it.
    base::resumeNext(
        [&] { content.load_string(session.shown(callback.value(), control).toString().c_str()); });
    holder = content.document_element();
  }
  const auto nodes = holder.children();
  return {nodes.begin(), nodes.end()};
}

std::string tree(Session& session, pugi::xml_node node, int depth) {
  const Control control(session, node);
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
  for (const pugi::xml_node child : children(session, node, content)) {
    text += tree(session, child, inner);
    if (split) inner = depth + 1;
  }
  return text;
}

Json treeJson(Session& session, pugi::xml_node node) {
  Json json = Control(session, node).json();
  pugi::xml_document content;
  for (const pugi::xml_node child : children(session, node, content)) {
    json["children"].push_back(treeJson(session, child));
  }
  return json;
}

/// The host asks for all that is in view once the tab is. Menus wait until somebody opens them.
void comeIntoView(Session& session, pugi::xml_node node) {
  const Control asked(session, node);
  const std::string_view kind = node.name();
  if (kind == "menu" || kind == "gallery" || kind == "dynamicMenu") return;
  for (const pugi::xml_node child : node.children()) comeIntoView(session, child);
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
  comeIntoView(session, tab);
  if (!options.deck.empty()) arrange(session, options);
  if (options.json) {
    print(jsonText(treeJson(session, tab)));
  } else {
    std::string lines =
        std::string(tab.attribute("label").value()) + " (" + tab.attribute("keytip").value() + ")\n";
    print(lines + tree(session, tab, 1));
  }
  return Exit::done;
}

}  // namespace vellumark::app
