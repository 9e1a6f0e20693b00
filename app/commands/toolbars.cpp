#include "commands/toolbars.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "bars.h"
#include "base/trap.h"
#include "console.h"
#include "deck_report.h"
#include "failure.h"
#include "files.h"
#include "installation.h"
#include "questions.h"
#include "session.h"

namespace vellumark::app {
namespace {

using Json = nlohmann::ordered_json;

constexpr int floating = 4;

/// A control as the host shows it.
class Entry {
 public:
  explicit Entry(const host::CommandBarControl& control)
      : type_(control.Type()),
        hostId_(control.Id() == 1 ? 0 : control.Id()),
        caption_(control.Caption()),
        tooltip_(control.TooltipText()),
        parameter_(control.Parameter()),
        enabled_(control.Enabled()),
        visible_(control.Visible()),
        beginGroup_(control.BeginGroup()),
        helpId_(control.HelpContextId()) {
    if (type_ == host::msoControlButton) readButton(control);
    if (type_ == host::msoControlDropdown) readBox(control);
    if (type_ == host::msoControlPopup) {
      for (const auto& child : controlsOf(control.Controls())) children_.emplace_back(child);
    }
  }

  std::string tree(int depth) const {
    std::string text = std::string(static_cast<std::size_t>(depth) * 2, ' ') + oneLine(line()) + "\n";
    for (const Entry& child : children_) text += child.tree(depth + 1);
    return text;
  }

  Json json() const {
    const char* kind = type_ == host::msoControlPopup      ? "popup"
                       : type_ == host::msoControlDropdown ? "box"
                                                           : "button";
    Json json = {{"kind", kind}};
    if (hostId_ != 0) json["hostControl"] = hostId_;
    json["caption"] = caption_;
    json["tooltip"] = tooltip_;
    if (!parameter_.empty()) json["parameter"] = parameter_;
    json["visible"] = visible_;
    json["enabled"] = enabled_;
    json["beginGroup"] = beginGroup_;
    if (state_) json["state"] = *state_;
    if (helpId_ != 0) json["helpId"] = helpId_;
    if (!icon_.empty()) json["icon"] = std::stoi(icon_);
    if (face_ > 0) json["face"] = face_;
    if (type_ == host::msoControlButton && hostId_ == 0) {
      json["picture"] = picture_;
      json["mask"] = mask_;
    }
    if (!items_.empty()) {
      json["items"] = items_;
      json["chosen"] = chosen_;
    }
    for (const Entry& child : children_) json["controls"].push_back(child.json());
    return json;
  }

 private:
  std::string line() const {
    std::string text = hostId_ != 0 ? "(host control " + std::to_string(hostId_) + ")" : caption_;
    if (type_ == host::msoControlDropdown) text += "(box)";
    if (!parameter_.empty()) text += " [" + parameter_ + "]";
    if (beginGroup_) text += ", new group";
    if (!visible_) text += ", hidden";
    if (!enabled_) text += ", disabled";
    if (state_ == host::msoButtonDown) text += ", pressed";
    if (state_ == host::msoButtonMixed) text += ", mixed";
    if (helpId_ != 0) text += ", help " + std::to_string(helpId_);
    if (!icon_.empty()) {
      text += ", icon " + icon_ + (picture_ ? "" : " (without picture)");
    } else if (picture_) {
      text += ", picture";
    }
    if (face_ > 0) text += ", face " + std::to_string(face_);
    for (std::size_t i = 0; i < items_.size(); ++i) {
      text += (i == 0 ? ": " : " | ") + (static_cast<int>(i) + 1 == chosen_ ? "*" + items_[i] : items_[i]);
    }
    return text;
  }
  void readButton(const host::CommandBarControl& control) {
    state_ = control.State();
    face_ = control.FaceId();
    icon_ = control.DescriptionText();
    // The oldest hosts' buttons have no pictures.
    const auto holds = [](const host::Value& value) {
      return value.isObject() && value != host::Value(host::ObjectRef());
    };
    base::resumeNext([&] { picture_ = holds(control.Picture()); });
    base::resumeNext([&] { mask_ = holds(control.Mask()); });
  }
  void readBox(const host::CommandBarControl& control) {
    const int count = control.ListCount();
    for (int i = 1; i <= count; ++i) items_.push_back(control.List(i));
    chosen_ = control.ListIndex();
  }

  int type_, hostId_;
  std::string caption_, tooltip_, parameter_;
  bool enabled_, visible_, beginGroup_;
  int helpId_;
  std::optional<int> state_;
  int face_ = 0;
  std::string icon_;  ///< index of the picture in the add-in's list
  bool picture_ = false, mask_ = false;
  std::vector<std::string> items_;
  int chosen_ = 0;  ///< place among the items, from 1
  std::vector<Entry> children_;
};

std::string barText(const host::CommandBar& bar) {
  std::string text = bar.Name() + " (";
  text += bar.Position() == floating
              ? "floating at " + std::to_string(bar.Left()) + ", " + std::to_string(bar.Top())
              : "docked in row " + std::to_string(bar.RowIndex());
  text += bar.Visible() ? ")\n" : ", hidden)\n";
  for (const auto& control : controlsOf(bar.Controls())) text += Entry(control).tree(1);
  return text;
}

Json barJson(const host::CommandBar& bar) {
  Json json = {{"name", bar.Name()},      {"position", bar.Position()}, {"row", bar.RowIndex()},
               {"left", bar.Left()},      {"top", bar.Top()},           {"height", bar.Height()},
               {"visible", bar.Visible()}};
  for (const auto& control : controlsOf(bar.Controls())) json["controls"].push_back(Entry(control).json());
  return json;
}

}  // namespace

Exit toolbars(const ToolbarsOptions& options, const Surroundings& surroundings) {
  const auto root = installationRoot(options.root);
  if (!options.deck.empty()) requireDeck(options.deck);
  if (!deck::EmbeddedHost(options.host).state()->beforeRibbon()) {
    throw Failure(Exit::usage,
                  "--host " + options.host + ": such a host has a ribbon and no toolbars; take 9.0 to 11.0");
  }
  const auto questions = surroundings.questions({}, {});
  Session session(options.host, surroundings.addIn(root));
  if (!options.deck.empty()) arrange(session, options);
  Json json = Json::array();
  std::string text;
  for (const host::CommandBar& bar : barsOf(session.application().CommandBars())) {
    options.json ? json.push_back(barJson(bar)) : void(text += barText(bar));
  }
  print(options.json ? jsonText(json) : text);
  return Exit::done;
}

}  // namespace vellumark::app
