#pragma once
// A form of two pages for the tests of layouts and toolkits.

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/lists.h"

namespace vellumark::ui {

/// The first page has a text and an answer of a long list, the second a list with a picture. A label on a
/// ground of its own brings the second page to the front.
class PagesForm : public Form {
 public:
  PagesForm() : Form("PagesForm", "Pages") {
    second.backColor(rgb(224, 224, 224));
    second.handCursor(true);
    second.onClick = [this] { page[1].toFront(); };
    answer.addItem("Yes");
    answer.droppedWidth(333);
    marks.addItem("Pictured");
    marks.addItem("Plain");
    page[0].toFront();
    layout(row(
        {Box(second),
         stack({column({Box(text), Box(answer)}).in(page[0]), column({Box(marks)}).in(page[1])}).stretch()}));
  }
  Label second{*this, "second", "Second"};
  ControlArray<Frame, 2> page{*this, "page"};
  TextBox text{*this, "text"};
  ComboBox answer{*this, "answer"};
  ListBox marks{*this, "marks", true};
};

}  // namespace vellumark::ui
