// The bar of the Slide Wizard: styles, menus of elements, copyright notices and the user's own elements.

#include "base/conversions.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "commands/ppt_controls.h"
#include "core/failure.h"
#include "core/message.h"
#include "core/template_paths.h"
#include "core/xml.h"
#include "host/picture.h"
#include "library/configuration.h"
#include "library/insertion.h"
#include "library/my_elements.h"
#include "library/my_elements_index.h"
#include "platform/paths.h"

namespace vellumark::commands {
namespace {

using core::globals;
using core::resumeNext;
using core::trap;

constexpr const char* slideWizardTag = "zorp_SlideWizard";
constexpr const char* myElementsTag = "zorp_MyElements";
constexpr const char* add = "addMyElements";
constexpr const char* manage = "manageMyElements";

// Places in the style box, from 1.
constexpr int noStyle = 1, firstStyle = 2;

std::string textOf(const pugi::xml_node& node, const char* attribute) {
  return node.attribute(attribute).value();
}

bool beginsGroup(const pugi::xml_node& node) {
  const pugi::xml_attribute attribute = node.attribute("beginGroup");
  return attribute && base::toBool(attribute.value());
}

/// A picture that is named and can be read goes onto the button, and with it the mask.
void loadIcon(const host::CommandBarButton& button, const pugi::xml_node& item) {
  const auto load = [&](const char* attribute) {
    return host::loadPictureFromFile(platform::toSystem(globals().iconsFolder + textOf(item, attribute)));
  };
  if (!item.attribute("icon")) return;
  resumeNext([&] {
    if (const host::ObjectRef picture = load("icon")) button.Picture(picture);
  });
  if (!item.attribute("mask")) return;
  resumeNext([&] {
    if (const host::ObjectRef mask = load("mask")) button.Mask(mask);
  });
}

}  // namespace

void pptControls::createSlideWizardBar() {
  const host::CommandBar bar = createCmdBar(slideWizardBar);
  addLogoButton(bar);
  addStyleBox(bar);
  generateMenuFromXML();
  const host::CommandBarComboBox box = styleBox();
  for (const std::string& style : globals().styleNames) box.AddItem(style);
  addCopyrightMenu(bar);
  addPopup(bar, {myElementsPopup});
  generateMyElementsMenu();
  getCmdBarPosition(slideWizardBar);
}

void pptControls::addStyleBox(const host::CommandBar& bar) {
  const host::CommandBarComboBox box = bar.Controls().Add(host::msoControlDropdown);
  box.AddItem("[No style selected]");
  box.TooltipText("Specify style of elements to be inserted");
  box.ListIndex(noStyle);
  clicks_.push_back(
      host::subscribe(box.object(), [this](host::Member event, std::span<host::Value> arguments) {
        if (event != host::member::Change || arguments.empty()) return;
        styleDropdown_Change(host::CommandBarComboBox(arguments[0].toObject()));
      }));
}

void pptControls::addCopyrightMenu(const host::CommandBar& bar) {
  if (globals().copyrightNotices.empty()) return;
  const host::CommandBarPopup popup = addPopup(bar, {"Copyright"});
  int number = 0;
  for (const std::string& notice : globals().copyrightNotices) {
    addPopupEntry(popup, {.parameter = "insertCopyright " + std::to_string(++number), .caption = notice});
  }
}

void pptControls::generateMenuFromXML() {
  trap("pptControls, generateMenuFromXML", [&] {
    library::loadConfiguration(library::Surface::toolbars);
    const host::CommandBar bar = application_.CommandBars().Item(slideWizardBar);
    for (const pugi::xpath_node& menu : library::menus()) generateMenu(bar, menu.node());
  });
}

/// Elements stand in submenus or in the menu itself, in the order of the document.
void pptControls::generateMenu(const host::CommandBar& bar, const pugi::xml_node& menu) {
  trap("pptControls, generateMenu", [&] {
    const auto popupOf = [](const pugi::xml_node& node) {
      return Popup{core::attributeText(node, "name"), beginsGroup(node), textOf(node, "tooltip")};
    };
    const auto finish = [&](const host::CommandBarButton& button, const pugi::xml_node& item) {
      button.Tag(slideWizardTag);
      if (const std::string tooltip = textOf(item, "tooltip"); !tooltip.empty()) button.TooltipText(tooltip);
      loadIcon(button, item);
      connectClick(button, &pptControls::wizButton_Click, clicks_);
    };
    const auto buttonOf = [](const pugi::xml_node& item) {
      return Button{.parameter = textOf(item, "file") + "," + textOf(item, "slideNo"),
                    .caption = core::attributeText(item, "name"),
                    .beginGroup = beginsGroup(item),
                    .hasHandler = false};
    };
    const host::CommandBarPopup popup = addPopup(bar, popupOf(menu));
    for (const pugi::xml_node node : menu.children()) {
      const std::string_view kind = node.name();
      if (kind == "menuitem") finish(addPopupEntry(popup, buttonOf(node)), node);
      if (kind != "submenu") continue;
      const host::CommandBarPopup subPopup = addSubPopup(popup, popupOf(node));
      for (const pugi::xml_node item : node.children("menuitem")) {
        finish(addSubPopupEntry(subPopup, buttonOf(item)), item);
      }
    }
  });
}

void pptControls::addMyElement(const host::CommandBarButton& button) {
  button.Tag(myElementsTag);
  connectClick(button, &pptControls::meButton_Click, myElementsClicks_);
}

// The popup's failures are told as those of the menus.
void pptControls::generateMyElementsMenu() {
  trap("pptControls, generateMenuFromXML", [&] {
    const host::CommandBar bar = application_.CommandBars().Item(slideWizardBar);
    const host::CommandBarPopup popup = bar.Controls().Item(myElementsPopup);
    myElementsClicks_.clear();
    const host::CommandBarControls controls = popup.Controls();
    for (int i = controls.Count(); i >= 1; --i) controls.Item(i).Delete();
    for (const char* method : {add, manage}) {
      addMyElement(addPopupEntry(
          popup, {.parameter = method, .caption = findCommand(method)->label, .hasHandler = false}));
    }
    if (!globals().myElementsDoc) return;
    bool beginGroup = true;
    for (const pugi::xpath_node& group : library::groups()) {
      const host::CommandBarPopup subPopup =
          addSubPopup(popup, {core::attributeText(group.node(), "name"), beginGroup});
      beginGroup = false;
      for (const pugi::xml_node element : group.node().children("element")) {
        addMyElement(addSubPopupEntry(subPopup, {.parameter = core::attributeText(element, "slideID"),
                                                 .caption = core::attributeText(element, "name"),
                                                 .hasHandler = false}));
      }
    }
  });
}

host::CommandBarComboBox pptControls::styleBox() const {
  const host::CommandBar bar = findBar(slideWizardBar);
  if (!bar) return {};
  const host::CommandBarControls controls = bar.Controls();
  const int count = controls.Count();
  for (int i = 1; i <= count; ++i) {
    if (const auto control = controls.Item(i); control.Type() == host::msoControlDropdown) return control;
  }
  return {};
}

void pptControls::setStyle(const std::string& name) {
  trap("pptControls, setStyle", [&] {
    const host::CommandBarComboBox box = styleBox();
    if (!box) return;
    const int count = box.ListCount();
    int chosen = firstStyle;
    for (int i = firstStyle; i <= count && !name.empty(); ++i) {
      if (box.List(i) == name) chosen = i;
    }
    if (count == noStyle) {
      box.ListIndex(noStyle);
      return;
    }
    box.ListIndex(chosen);
    globals().currentStyle = box.Text();
  });
}

void pptControls::styleDropdown_Change(const host::CommandBarComboBox& box) {
  trap("pptControls, styleDropdown_Change", [&] {
    const int chosen = box.ListIndex();
    if (chosen < noStyle) return;
    const bool none = chosen == noStyle;
    globals().currentStyle = none ? std::string() : box.Text();
    const host::Tags tags = application_.ActivePresentation().Tags();
    none ? tags.Delete(core::styleTag) : tags.Add(core::styleTag, globals().currentStyle);
  });
}

void pptControls::meButton_Click(const host::CommandBarButton& button, bool& /*cancelDefault*/) {
  trap("pptControls, meButton_Click", [&] {
    count(counters::myElements);
    runUndoFix();
    const std::string parameter = button.Parameter();
    if (parameter == add) return library::addMyElements();
    if (parameter == manage) return library::manageMyElements();
    library::conjure(button, "", true);
  });
}

void pptControls::wizButton_Click(const host::CommandBarButton& button, bool& /*cancelDefault*/) {
  trap("pptControls, wizButton_Click", [&] {
    count(counters::slideWizard);
    runUndoFix();
    const host::CommandBarComboBox box = styleBox();
    if (box.ListCount() == firstStyle) box.ListIndex(firstStyle);
    const int chosen = box.ListIndex();
    if (chosen < firstStyle) {
      core::message("Please select a style first.", ui::Icon::information);
      return;
    }
    const auto place = static_cast<std::size_t>(chosen - firstStyle);
    if (place >= globals().styleFolders.size()) base::raise(base::errors::subscript);
    library::conjure(button, globals().styleFolders[place], false);
  });
}

}  // namespace vellumark::commands
