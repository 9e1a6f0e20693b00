#pragma once
// A deck in an embedded host with the Agenda Wizard at work on it, and templates of two styles.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "agenda/agenda_commands.h"
#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "platform/paths.h"
#include "tools/stage.h"

namespace vellumark::test {

/// An agenda's document, as a template or as a tag has it.
struct AgendaXml {
  struct Item {
    int level = 1;
    std::string text;
    std::string responsible = {};
    int duration = 30;
    bool isBreak = false;
    bool shown = true;
    bool ownSlide = true;
    std::string slideID = {};  ///< empty takes "id" and the place from 1
  };

  std::map<std::string, std::string> agenda = {
      {"title", "Agenda"},      {"subtitle", "Of the day"}, {"startTime", "540"},
      {"showItemNumbers", "1"}, {"showResponsible", "0"},   {"showTimeSlots", "0"},
      {"showPageNumbers", "0"},
  };
  std::map<std::string, std::string> format = {
      {"left", "40"},          {"top", "120"},
      {"width", "640"},        {"height", "360"},
      {"baseFontSize", "20"},  {"boxFontRatio", "1.4"},
      {"boxBarSpacing", "6"},  {"fontName", "Arial"},
      {"slideLayout", "11"},   {"enumerate2ndLevel", "dot"},
      {"enumerateBreak", "0"},
  };
  bool hasSubtitle = true;
  std::vector<Item> items;

  std::string text() const {
    std::string xml = "<Vellumark><agenda" + attributes(agenda) + "><format" + attributes(format) + "/>";
    if (hasSubtitle) {
      xml +=
          "<subtitle left='40' top='80' width='640' height='20' fillColor='1' lineColor='2' "
          "fontColor='#112233' fillVisible='0' lineVisible='0' lineWeight='1' align='1' fontSize='14' "
          "fontBold='0' fontItalic='1'/>";
    }
    return xml + "<styles>" + styles() + "</styles><items>" + itemElements() +
           "</items></agenda></Vellumark>";
  }

 private:
  static std::string attributes(const std::map<std::string, std::string>& values) {
    std::string text;
    for (const auto& [name, value] : values) text += " " + name + "='" + value + "'";
    return text;
  }
  /// The eight looks, told apart by their colours: level, selected, break in one digit each.
  static std::string styles() {
    std::string xml;
    for (int i = 0; i < 8; ++i) {
      const std::string level = i & 4 ? "2" : "1", selected = i & 2 ? "1" : "0", isBreak = i & 1 ? "1" : "0";
      const std::string look = "fillColor='#0" + level + "0" + selected + "0" + isBreak +
                               "' fillVisible='1' lineColor='2' lineWeight='2' lineVisible='0' fontColor='1'";
      const std::string plain = " fontBold='0' fontItalic='0'";
      xml += "<style level='" + level + "' selected='" + selected + "' break='" + isBreak + "'><box " + look +
             " fontBold='1' fontItalic='0'/><bar " + look + "><text" + plain + "/><responsible" + plain +
             "/><timeSlot" + plain + "/><pageNo" + plain + "/></bar></style>";
    }
    return xml;
  }
  std::string itemElements() const {
    std::string xml;
    for (std::size_t i = 0; i < items.size(); ++i) {
      const Item& item = items[i];
      const auto truth = [](bool on) { return on ? "1" : "0"; };
      xml += "<item" +
             attributes({{"level", std::to_string(item.level)},
                         {"text", item.text},
                         {"responsible", item.responsible},
                         {"duration", std::to_string(item.duration)},
                         {"break", truth(item.isBreak)},
                         {"slideID", item.slideID.empty() ? "id" + std::to_string(i + 1) : item.slideID},
                         {"showAgendaItem", truth(item.shown)},
                         {"generateAgendaSlide", truth(item.ownSlide)}}) +
             "/>";
    }
    return xml;
  }
};

class AgendaStage : public Stage {
 protected:
  /// Opens a deck of so many slides.
  void open(int slides = 1) {
    for (int i = 0; i < slides; ++i) deck.slide("titleOnly").placeholder("title").text("Slide");
    Stage::open();
    core::Globals& g = core::globals();
    g.stylesFolder = platform::fromSystem(folder.root().string() + "/styles/");
    g.styleNames = {"Blue", "Grey"};
    g.styleFolders = {"Blue", "grey folder"};
    g.currentStyle = "Blue";
    g.agenda = &commands;
    writeTemplates();
  }
  /// The style "Blue" is `blue`; "Grey" is the same without boxes, in the folder that the list has for it.
  void writeTemplates() {
    folder.write("styles/Blue/agendawizard.xml", blue.text());
    AgendaXml grey = blue;
    grey.format["barOnly"] = "1";
    grey.format["baseFontSize"] = "18";
    grey.items = {{.text = "of the template"}};
    folder.write("styles/grey folder/agendawizard.xml", grey.text());
  }

  /// The dialog on the agenda as it is stored, or on a new one.
  agenda::AgendaWizard& wizard() {
    if (!wizard_) {
      wizard_ = std::make_unique<agenda::AgendaWizard>();
      wizard_->load();
    }
    return *wizard_;
  }
  void closeWizard() { wizard_.reset(); }
  /// Opens the dialog anew.
  agenda::AgendaWizard& reload() {
    closeWizard();
    return wizard();
  }
  /// A dialog on an agenda with these items.
  agenda::AgendaWizard& edit(std::vector<AgendaXml::Item> items) {
    blue.items = std::move(items);
    writeTemplates();
    return reload();
  }

  /// The nodes of the tree, one a line, those of the second level indented, the selected one marked.
  std::string tree() {
    std::string text;
    for (const auto& node : wizard().tvItems.root().children) {
      text += line(*node, "");
      for (const auto& child : node->children) text += line(*child, "  ");
    }
    return text;
  }
  /// The items of the document: level, text and, where they differ from the usual, the rest.
  std::string items() {
    std::string text;
    for (const pugi::xml_node& item : wizard().agendaDoc.items()) {
      const auto value = [&](const char* name) { return std::string(item.attribute(name).value()); };
      text += value("level") + " " + value("text");
      if (!value("responsible").empty()) text += ", " + value("responsible");
      if (value("duration") != "30") text += ", " + value("duration");
      if (value("break") != "0") text += ", break";
      if (value("showAgendaItem") != "1") text += ", hidden";
      if (value("generateAgendaSlide") != "1") text += ", no slide";
      text += "; ";
    }
    return text;
  }

  AgendaXml blue;
  agenda::AgendaCommands commands;

 private:
  std::string line(const ui::TreeView::Node& node, const std::string& indent) {
    return indent + node.text + (node.key == wizard().tvItems.selectedKey() ? " <\n" : "\n");
  }

  std::unique_ptr<agenda::AgendaWizard> wizard_;
};

}  // namespace vellumark::test
