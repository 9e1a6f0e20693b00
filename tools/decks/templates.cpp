#include "decks/templates.h"

#include "decks/template_canvas.h"

namespace vellumark::samples {

std::vector<Template> templates() {
  struct File {
    const char* name;
    const char* title;
    const std::vector<Element>& elements;
  };
  const std::vector<File> files{{"text", "Text boxes", textElements},
                                {"tables", "Tables", tableElements},
                                {"processes", "Processes", processElements},
                                {"structures", "Structures", structureElements}};
  std::vector<Template> made;
  for (const Look* look : {&blueLook, &greyLook}) {
    for (const Page& page : {Page{720, 540}, Page{960, 540}}) {
      const std::string style = look->name + (page.wide() ? " Wide" : "");
      for (const File& file : files) {
        decks::DeckBuilder deck;
        deck.size(page.width, page.height).title(std::string(file.title) + ", " + style);
        deck.master().theme(look->theme).layouts({"blank"});
        for (const Element element : file.elements) element({deck.slide("blank"), *look, page});
        made.push_back({style + "/" + file.name + ".pptx", deck.bytes()});
      }
    }
  }
  return made;
}

}  // namespace vellumark::samples
