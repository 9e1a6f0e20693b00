// How the entries of the toolbars come onto their bars.

#include <algorithm>

#include "commands/ppt_controls.h"
#include "core/config.h"
#include "core/failure.h"
#include "host/picture.h"
#include "services/icons.h"
#include "services/languages.h"

namespace vellumark::commands {
namespace {

using core::resumeNext;
using core::trap;

/// Hosts of the oldest version take no pictures.
void setPicture(const host::CommandBarButton& button, const host::MaskedPicture& picture) {
  if (picture.picture) resumeNext([&] { button.Picture(picture.picture); });
  if (picture.mask) resumeNext([&] { button.Mask(picture.mask); });
}

host::CommandBarPopup newPopup(const host::CommandBarControls& controls, const std::string& caption,
                               bool beginGroup, const std::string& tooltip) {
  const host::CommandBarPopup popup = controls.Add(host::msoControlPopup);
  popup.Caption(caption);
  popup.TooltipText(tooltip.empty() ? caption : tooltip);
  popup.BeginGroup(beginGroup);
  return popup;
}

}  // namespace

pptControls::Button pptControls::Button::of(const toolsBar::Entry& entry) {
  return {entry.parameter,  entry.caption(), entry.icon, entry.icon > 0 && !entry.hostFace,
          entry.beginGroup, entry.helpId};
}

/// A host may tell a click to the handlers of all buttons that have the same tag.
void pptControls::connectClick(const host::CommandBarButton& button, ClickHandler handler, Clicks& clicks) {
  const auto clicked = [this, button, handler](host::Member event, std::span<host::Value> arguments) {
    if (event != host::member::Click || arguments.size() < 2) return;
    const host::CommandBarButton target(arguments[0].toObject());
    if (target.Parameter() != button.Parameter() || target.Caption() != button.Caption()) return;
    bool cancelDefault = arguments[1].toBool();
    (this->*handler)(target, cancelDefault);
    arguments[1] = cancelDefault;
  };
  clicks.push_back(host::subscribe(button.object(), clicked));
}

host::CommandBarButton pptControls::addButton(const host::CommandBarControls& controls, const Button& entry) {
  return trap("pptControls, addButton", [&] {
    const host::CommandBarButton button = controls.Add(host::msoControlButton);
    if (entry.customIcon) {
      setPicture(button, services::icons().toolbarPicture(entry.icon));
      resumeNext([&] { button.Style(0); });
      resumeNext([&] { button.DescriptionText(std::to_string(entry.icon)); });
    } else {
      button.FaceId(entry.icon);
    }
    button.Tag(toolsBar::tag);
    button.Caption(entry.caption);
    button.TooltipText(entry.caption);
    button.BeginGroup(entry.beginGroup);
    button.Parameter(entry.parameter);
    if (entry.helpId > 0) button.HelpContextId(entry.helpId);
    if (entry.hasHandler) {
      connectClick(button, &pptControls::tlnButton_Click, clicks_);
      if (!shownHelpIds_.empty()) {
        button.Visible(std::ranges::find(shownHelpIds_, std::to_string(entry.helpId)) != shownHelpIds_.end());
      }
    }
    return button;
  });
}

host::CommandBarButton pptControls::addEntry(const host::CommandBar& bar, const Button& entry) {
  return trap("pptControls, addEntry", [&] { return addButton(bar.Controls(), entry); });
}

host::CommandBarButton pptControls::addPopupEntry(const host::CommandBarPopup& popup, const Button& entry) {
  return trap("pptControls, addPopupEntry", [&] { return addButton(popup.Controls(), entry); });
}

host::CommandBarButton pptControls::addSubPopupEntry(const host::CommandBarPopup& subPopup,
                                                     const Button& entry) {
  return trap("pptControls, addSubPopupEntry", [&] { return addButton(subPopup.Controls(), entry); });
}

host::CommandBarPopup pptControls::addPopup(const host::CommandBar& bar, const Popup& popup) {
  return trap("pptControls, addPopup",
              [&] { return newPopup(bar.Controls(), popup.caption, popup.beginGroup, popup.tooltip); });
}

host::CommandBarPopup pptControls::addSubPopup(const host::CommandBarPopup& popup, const Popup& subPopup) {
  return trap("pptControls, addSubPopup", [&] {
    return newPopup(popup.Controls(), subPopup.caption, subPopup.beginGroup, subPopup.tooltip);
  });
}

void pptControls::AddStandardItemToToolbar(const host::CommandBar& bar, int id, bool beginGroup) {
  trap("pptControls, AddStandardItemToToolbar",
       [&] { bar.Controls().Add(host::msoControlButton, id).BeginGroup(beginGroup); });
}

void pptControls::addLogoButton(const host::CommandBar& bar) {
  Button logo = Button::of(toolsBar::logo);
  logo.caption = core::productTitle;
  addEntry(bar, logo);
}

void pptControls::addLanguageButtons() {
  trap("pptControls, addLanguageButtons", [&] {
    const host::CommandBar bar = application_.CommandBars().Item(toolsBar::name);
    const auto& shortcuts = core::globals().languageShortcuts;
    bool beginGroup = true;
    for (std::size_t i = 0; i < shortcuts.size(); ++i) {
      if (shortcuts[i] <= 0) continue;
      const std::string id = std::to_string(shortcuts[i]);
      const std::string& name = services::languageList().Item("ID" + id).Name();
      const host::CommandBarButton button =
          addEntry(bar, {.parameter = "setLanguage " + id,
                         .caption = name + " spell checking for selected slides or shapes",
                         .beginGroup = beginGroup});
      const host::ObjectRef picture = host::pictureOf(services::icons().languagePictures[i].canvas());
      if (button) setPicture(button, {picture, nullptr});
      beginGroup = false;
    }
  });
}

}  // namespace vellumark::commands
