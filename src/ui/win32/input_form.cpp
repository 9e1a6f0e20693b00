#include "ui/win32/input_form.h"

#include "base/text.h"

namespace vellumark::ui::win32 {

InputForm::InputForm(const std::string& prompt, const std::string& title, const std::string& defaultText)
    : Form("InputBox", title) {
  constexpr int width = 50;
  lPrompt.caption(base::replaceAll(prompt, "&", "&&"));
  lPrompt.wrapAt(width);
  tbText.text(defaultText);
  tbText.size(width);
  tbText.select(0, static_cast<int>(base::toUtf16(defaultText).size()));
  btnOK.isDefault(true);
  btnCancel.isCancel(true);
  layout(column({Box(lPrompt), Box(tbText), row({space(), Box(btnOK), Box(btnCancel)})}));
  btnOK.onClick = [this] {
    answer_ = tbText.text();
    unload();
  };
  btnCancel.onClick = [this] { unload(); };
}

}  // namespace vellumark::ui::win32
