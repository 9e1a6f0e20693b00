#pragma once
// A deck with shapes to add, and a library of the user's own elements beside it.

#include "core/xml.h"
#include "library/configuration.h"
#include "library/my_elements.h"
#include "platform/paths.h"
#include "support/fake_host.h"
#include "tools/stage.h"

namespace vellumark::test {

class ElementsStage : public Stage {
 protected:
  /// Opens a deck with the shapes "A" and "B", which are selected, and loads the library.
  void open(const std::string& version = "14.0") {
    deck = {};
    auto slide = deck.slide("titleOnly");
    slide.shape("rect", 10, 20, 100, 50).named("A");
    slide.shape("ellipse", 200, 100, 120, 200).named("B");
    Stage::open(version);
    select({"A", "B"});
    core::Globals& g = core::globals();
    g.myElementsFolder = platform::fromSystem(folder.root().string() + "/user/myelements/");
    g.myElementsDoc.reset();
    const FakeObject::Function note = [this](std::span<const host::Value> arguments) {
      invalidated += arguments[0].toString() + " ";
      return host::Value();
    };
    g.ribbonUI = host::IRibbonUI(
        std::make_shared<FakeObject>("IRibbonUI", std::map<std::string, host::Value>{},
                                     std::map{std::pair{std::string("InvalidateControl"), note}}));
    invalidated.clear();
    library::loadMyElements();
    messages.take();
  }
  /// Saves a store whose slides hold one shape each, of that name.
  void writeStore(const std::vector<std::string>& shapes, const std::string& ending = ".pptx") {
    decks::DeckBuilder store;
    for (const std::string& name : shapes) store.slide("blank").shape("rect", 0, 0, 50, 50).named(name);
    store.save(folder.path("user/myelements/myelements" + ending));
  }
  void writeIndex(const std::string& groups) {
    folder.write("user/myelements/myelements.xml", "<Vellumark xmlns='urn:x'>" + groups + "</Vellumark>");
  }

  /// The slides of a store as "256: A, B; ", "none" where there is no file.
  std::string stored(const std::string& ending = ".pptx") {
    const std::string path = folder.path("user/myelements/myelements" + ending);
    if (!platform::fileExists(path)) return "none";
    deck::EmbeddedHost other("14.0");
    const host::Slides slides = other.open(path).Slides();
    std::string text;
    for (int i = 1; i <= slides.Count(); ++i) {
      const host::Shapes shapes = slides.Item(i).Shapes();
      text += std::to_string(slides.Item(i).SlideID()) + ":";
      for (int j = 1; j <= shapes.Count(); ++j) text += (j > 1 ? ", " : " ") + shapes.Item(j).Name();
      text += "; ";
    }
    return text;
  }
  /// Groups and elements of a document as "Group: Name=256 Other=257; ".
  static std::string outline(const pugi::xml_document& document) {
    std::string text;
    for (const pugi::xml_node& group : document.document_element().children()) {
      text += std::string(group.attribute("name").value()) + ":";
      for (const pugi::xml_node& element : group.children()) {
        text +=
            std::string(" ") + element.attribute("name").value() + "=" + element.attribute("slideID").value();
      }
      text += "; ";
    }
    return text;
  }
  static std::string index() { return outline(*core::globals().myElementsDoc); }
  std::string savedIndex() {
    pugi::xml_document document;
    return core::loadXml(document, folder.path("user/myelements/myelements.xml")) ? outline(document)
                                                                                  : "none";
  }

  int openPresentations() { return host->application().Presentations().Count(); }

  static std::string box(const char* icon, const std::string& text) {
    return "Vellumark for presentations [" + std::string(icon) + "] " + text;
  }
  static std::string critical(const std::string& text) { return box("critical", text); }
  static std::string information(const std::string& text) { return box("information", text); }

  std::string invalidated;  ///< what the ribbon was asked to make anew
};

}  // namespace vellumark::test
