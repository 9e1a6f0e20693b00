// The ribbon's galleries of elements: those of the Slide Wizard, in menus, and the user's own.

#include "base/conversions.h"
#include "commands/command_table.h"
#include "commands/dispatch.h"
#include "commands/ribbon_callbacks.h"
#include "core/config.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/slide_in_view.h"
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

/// The gallery that a control of the Slide Wizard stands for: its tag names menu and submenu.
struct Gallery {
  std::string menu, submenu;
};

Gallery galleryOf(const host::IRibbonControl& control) {
  const std::string tag = control.Tag();
  const std::size_t cut = tag.find('\\');
  if (cut == std::string::npos) base::raise(base::errors::invalidCall);
  return {tag.substr(0, cut), tag.substr(cut + 1)};
}

/// The callbacks of a gallery all begin with `kind`. Nothing is escaped.
std::string galleryXml(const std::string& kind, const std::string& number, const std::string& label,
                       const std::string& tag, const library::Thumbnails& thumbnails) {
  return "<gallery id=\"" + kind + "_" + number + "\" label=\"" + label + "\" tag=\"" + tag +
         "\" onAction=\"" + kind + "_onAction\" getItemCount=\"" + kind + "_getItemCount\" getItemLabel=\"" +
         kind + "_getItemLabel\" getItemImage=\"" + kind + "_getItemImage\" columns=\"2\" itemWidth=\"" +
         std::to_string(thumbnails.thumbsWidth) + "\" itemHeight=\"" +
         std::to_string(thumbnails.thumbsHeight) + "\"/>";
}

std::string menuStart() { return "<menu xmlns=\"" + std::string(core::customUiNamespace) + "\" >"; }

std::int16_t countOf(const pugi::xpath_node_set& nodes) {
  return base::toInt16(static_cast<double>(nodes.size()));
}

void tellUnexpected(const std::string& what) {
  core::message(
      what + "\r\nPlease contact us at " + std::string(core::supportEmail) + " if the problem persists.",
      ui::Icon::critical);
}

}  // namespace

std::string slideWizard_getContent(const host::IRibbonControl&, library::Thumbnails& thumbnails) {
  if (!thumbnails.thumbsChecked) library::createSlideWizardThumbs(thumbnails);
  std::string content = menuStart();
  if (globals().menuDoc) {
    int menuNumber = 0, galleryNumber = 0;  // the latter runs on through all menus
    for (const pugi::xpath_node& menu : library::menus()) {
      const std::string name = core::attributeText(menu.node(), "name");
      const std::string number = std::to_string(++menuNumber);
      content += "<menu id=\"slideWizard_" + number + "\" label=\"" + name + "\" >";
      for (const pugi::xpath_node& submenu : library::submenus(name)) {
        const std::string label = core::attributeText(submenu.node(), "name");
        content += galleryXml("slideWizard", number + "_" + std::to_string(++galleryNumber), label,
                              name + "\\" + label, thumbnails);
      }
      content += "</menu>";
    }
  }
  return content + "</menu>";
}

std::int16_t slideWizard_getItemCount(const host::IRibbonControl& control) {
  const Gallery gallery = galleryOf(control);
  return globals().menuDoc ? countOf(library::menuItems(gallery.menu, gallery.submenu)) : 0;
}

std::string slideWizard_getItemLabel(const host::IRibbonControl& control, std::int32_t index) {
  if (!globals().menuDoc) return {};
  const Gallery gallery = galleryOf(control);
  return library::menuItemLabel(gallery.menu, gallery.submenu, index);
}

host::ObjectRef slideWizard_getItemImage(const host::IRibbonControl& control, std::int32_t index) {
  if (!globals().menuDoc) return nullptr;
  const Gallery gallery = galleryOf(control);
  const pugi::xml_node item = library::menuItem(gallery.menu, gallery.submenu, index);
  return host::loadPictureFromFile(platform::toSystem(
      library::slideWizardThumb(core::attributeText(item, "file"), core::attributeText(item, "slideNo"))));
}

void slideWizard_onAction(const host::IRibbonControl& control, const std::string&, std::int32_t index) {
  if (!core::requireSlideInView("adding elements")) return;
  if (globals().currentStyle.empty()) {
    core::message("Please select a style first.", ui::Icon::information);
    return;
  }
  const Gallery gallery = galleryOf(control);
  if (!globals().menuDoc) {
    return tellUnexpected("An unexpected error occrred inserting elements from the 'Slide Wizard'.");
  }
  const pugi::xml_node item = library::menuItem(gallery.menu, gallery.submenu, index);
  count(counters::slideWizard);
  runUndoFix();
  const std::string path =
      core::ribbonTemplatePath(globals().currentStyle, core::attributeText(item, "file"));
  if (!platform::fileExists(path)) {
    core::message("The template file '" + platform::toSystem(path) +
                      "' could not be found.\r\nPlease check your installation and contact us at " +
                      std::string(core::supportEmail) + " if the problem persists.",
                  ui::Icon::critical);
    return;
  }
  library::insertSlide(path, [&](const host::Slides& slides) {
    return slides.Item(base::toInt16(core::attributeText(item, "slideNo")));
  });
}

/// Groups without elements have no gallery. Nothing at all comes where there is no document.
std::string myElements_getContent(const host::IRibbonControl&, const library::Thumbnails& thumbnails) {
  library::createMyElementsThumbs(thumbnails);
  if (!globals().myElementsDoc) return {};
  std::string content = menuStart();
  int number = 0;
  for (const pugi::xpath_node& group : library::groups()) {
    if (!group.node().first_child()) continue;
    const std::string name = core::attributeText(group.node(), "name");
    content += galleryXml("myElements", std::to_string(++number), name, name, thumbnails);
  }
  return content + "</menu>";
}

std::int16_t myElements_getItemCount(const host::IRibbonControl& control) {
  return globals().myElementsDoc ? countOf(library::galleryElements(control.Tag())) : 0;
}

std::string myElements_getItemLabel(const host::IRibbonControl& control, std::int32_t index) {
  if (!globals().myElementsDoc) return {};
  return library::galleryElementText(control.Tag(), index, "name");
}

host::ObjectRef myElements_getItemImage(const host::IRibbonControl& control, std::int32_t index) {
  if (!globals().myElementsDoc) return nullptr;
  const std::int32_t id = base::toInt32(library::galleryElementText(control.Tag(), index, "slideID"));
  return host::loadPictureFromFile(platform::toSystem(library::myElementsThumb(std::to_string(id))));
}

void myElements_onAction(const host::IRibbonControl& control, const std::string&, std::int32_t index) {
  if (!core::requireSlideInView("inserting elements")) return;
  if (!globals().myElementsDoc) {
    return tellUnexpected("An unexpected error occurred inserting your elements.");
  }
  const pugi::xml_node element = library::galleryElement(control.Tag(), index);
  count(counters::myElements);
  runUndoFix();
  library::insertSlide(library::getMyElementsFile(), [&](const host::Slides& slides) {
    return slides.FindBySlideID(base::toInt16(core::attributeText(element, "slideID")));
  });
}

}  // namespace vellumark::commands
