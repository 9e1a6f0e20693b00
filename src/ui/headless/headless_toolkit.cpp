#include "ui/headless/headless_toolkit.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"
#include "base/xml_storable.h"
#include "ui/keys.h"

namespace vellumark::ui {
namespace {

[[noreturn]] void fail(const std::string& text) { base::raise(base::errors::invalidCall, text); }

bool truth(const std::string& value, const std::string& where) {
  try {
    return base::toBool(value);
  } catch (const base::Error&) {
    fail(where + ": '" + value + "' is neither true nor false");
  }
}

int number(const std::string& value, const std::string& where) {
  try {
    return base::toInt32(value);
  } catch (const base::Error&) {
    fail(where + ": '" + value + "' is no whole number");
  }
}

/// The item that a value means: its text, or "#" and its place from 0.
int itemOf(const ItemControl& control, const std::string& value, const std::string& where) {
  if (value.starts_with('#')) {
    const int index = number(value.substr(1), where);
    if (index >= -1 && index < control.listCount()) return index;
  } else if (const int index = control.find(value); index >= 0) {
    return index;
  }
  std::vector<std::string> texts;
  for (const ListItem& item : control.items()) texts.push_back("'" + item.text + "'");
  fail(where + ": there is no item '" + value + "'; there are " +
       (texts.empty() ? "none" : base::join(texts, ", ")));
}

/// The node that a value means: its key, or its text.
std::string nodeOf(const TreeView& tree, const TreeView::Node& below, const std::string& value) {
  if (tree.find(value)) return value;
  for (const auto& child : below.children) {
    if (base::equalsIgnoreCase(child->text, value)) return child->key;
    if (const std::string key = nodeOf(tree, *child, value); !key.empty()) return key;
  }
  return {};
}

std::string namesOf(const Form& form) {
  std::vector<std::string> names;
  for (const Control* control : form.controls()) {
    const bool settable = control->focusable() || control->onClick;
    if (settable && !dynamic_cast<const Timer*>(control)) names.push_back(control->name());
  }
  return base::join(names, ", ");
}

/// A value as a user can type it into a field: no control characters, no ends of lines in a single one.
std::string typeable(const std::string& value, bool multiLine) {
  const std::string plain = base::xmlStorable(value);
  if (multiLine) return plain;
  const std::string lines = base::replaceAll(base::replaceAll(plain, "\r\n", "\n"), "\r", "\n");
  return base::replaceAll(lines, "\n", " ");
}

/// Performs what a value means to a control of its kind; false for kinds without a value.
bool setValue(Control& control, const std::string& value, const std::string& where) {
  if (auto* text = dynamic_cast<TextBox*>(&control)) {
    if (text->locked()) fail(where + ": the field is locked");
    text->text(typeable(value, text->multiLine()));
  } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    box->value(truth(value, where));
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->value(truth(value, where));
  } else if (auto* combo = dynamic_cast<ComboBox*>(&control);
             combo && combo->editable() && !value.starts_with('#')) {
    combo->text(value);
  } else if (auto* items = dynamic_cast<ItemControl*>(&control)) {
    items->listIndex(itemOf(*items, value, where));
  } else if (auto* spinner = dynamic_cast<ScrollBar*>(&control)) {
    spinner->value(number(value, where));
  } else if (auto* tree = dynamic_cast<TreeView*>(&control)) {
    const std::string key = nodeOf(*tree, tree->root(), value);
    if (key.empty()) fail(where + ": there is no node '" + value + "'");
    tree->userClick(key);
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::vector<std::string> HeadlessToolkit::unused() const {
  std::vector<std::string> left;
  for (const DialogScript& script : dialogs_) left.push_back(script.text);
  left.insert(left.end(), answers_.begin(), answers_.end());
  return left;
}

bool HeadlessToolkit::hasDialogFor(const std::string& name) const {
  return !dialogs_.empty() && base::equalsIgnoreCase(dialogs_.front().form, name);
}

bool HeadlessToolkit::sawForm(const std::string& name) const {
  return std::ranges::find(forms_, name) != forms_.end();
}

std::optional<std::string> HeadlessToolkit::nextAnswer() {
  if (answers_.empty()) return std::nullopt;
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void HeadlessToolkit::tell(const Shown& shown) {
  sawCritical_ = sawCritical_ || (shown.kind == Shown::Kind::messageBox && shown.icon == Icon::critical);
  if (shown.kind == Shown::Kind::form) forms_.push_back(shown.name);
  if (observer) observer(shown);
}

Answer HeadlessToolkit::messageBox(const std::string& text, Icon icon, Buttons buttons,
                                   const std::string& title, int defaultButton) {
  const std::vector<Answer> possible = answersOf(buttons);
  const auto place =
      static_cast<std::size_t>(std::clamp(defaultButton, 1, static_cast<int>(possible.size())));
  Answer answer = possible[place - 1];
  if (const auto given = nextAnswer()) {
    const std::optional<Answer> meant = answerOf(*given);
    if (!meant || std::ranges::find(possible, *meant) == possible.end()) {
      std::vector<std::string> captions;
      for (const Answer one : possible) captions.push_back(captionOf(one));
      fail("the message box '" + text + "' has no button '" + *given + "'; it has " +
           base::join(captions, ", "));
    }
    answer = *meant;
  } else if (unattended) {
    answer = unattended(text, possible).value_or(answer);
  }
  tell({Shown::Kind::messageBox, icon, title, {}, text, captionOf(answer)});
  return answer;
}

std::optional<std::string> HeadlessToolkit::inputBox(const std::string& prompt, const std::string& title,
                                                     const std::string& defaultText) {
  std::optional<std::string> answer = nextAnswer().value_or(defaultText);
  if (base::equalsIgnoreCase(*answer, "Cancel")) answer.reset();
  tell({Shown::Kind::inputBox, Icon::question, title, {}, prompt, answer.value_or("")});
  return answer;
}

std::optional<std::string> HeadlessToolkit::fileDialog(const FileDialog& dialog) {
  std::optional<std::string> answer = nextAnswer();
  if (answer && base::equalsIgnoreCase(*answer, "Cancel")) answer.reset();
  tell({Shown::Kind::fileDialog, Icon::none, dialog.title, {}, dialog.initialPath, answer.value_or("")});
  return answer;
}

namespace {

/// What a form says: its labels, those that name the next one (lWords, words) on a line with it.
std::string labelsOf(const Form& form) {
  std::string text;
  bool names = false;
  for (const Control* control : form.controls()) {
    const auto* label = dynamic_cast<const Label*>(control);
    if (!label || !label->visible() || label->caption().empty()) continue;
    if (!text.empty()) text += names ? ": " : "\n";
    text += plainCaption(label->caption());
    const std::string& name = label->name();
    names = !names && name.size() > 1 && name[0] == 'l' && name[1] >= 'A' && name[1] <= 'Z';
  }
  return text;
}

}  // namespace

void HeadlessToolkit::showModal(Form& form) {
  form.activated();
  // A dialog that closes itself as it comes up leaves nothing to answer.
  if (!form.visible()) return;
  const bool scripted =
      !dialogs_.empty() && (!form.unasked() || base::equalsIgnoreCase(dialogs_.front().form, form.name()));
  if (!scripted) {
    tell({Shown::Kind::form, Icon::none, form.caption(), form.name(), {}, {}});
    if (dialogs_.empty() && screen && screen(form)) return;
    if (form.unasked()) return form.close();
    fail("the dialog '" + form.name() + "' came up and no script answers it; give --dialog '" + form.name() +
         ": control=value; button' (its controls: " + namesOf(form) + ")");
  }
  const DialogScript script = std::move(dialogs_.front());
  dialogs_.pop_front();
  if (!base::equalsIgnoreCase(script.form, form.name())) {
    fail("the dialog '" + form.name() + "' came up, but the next script is for '" + script.form +
         "': put a script for '" + form.name() + "' before it");
  }
  tell({Shown::Kind::form, Icon::none, form.caption(), form.name(), {}, script.text});
  for (const DialogStep& step : script.steps) {
    if (!form.visible()) {
      fail("dialog '" + form.name() + "': it was closed before the step '" + step.text + "'");
    }
    perform(form, step);
  }
  if (form.visible()) {
    fail("dialog '" + form.name() +
         "': the script ends and the dialog is still open; end it with a button that closes it "
         "(its controls: " +
         namesOf(form) + ")");
  }
}

void HeadlessToolkit::showModeless(Form& form) {
  tell({Shown::Kind::form, Icon::none, form.caption(), form.name(), labelsOf(form), {}, true});
  form.activated();
}

void HeadlessToolkit::startTimer(Timer& timer) { timers_.push_back({&timer, now_ + timer.interval()}); }

void HeadlessToolkit::stopTimer(Timer& timer) {
  std::erase_if(timers_, [&](const RunningTimer& each) { return each.timer == &timer; });
}

/// A tick may start, stop and change timers.
void HeadlessToolkit::pass(int milliseconds) {
  const std::int64_t end = now_ + milliseconds;
  for (;;) {
    const auto next = std::ranges::min_element(timers_, {}, &RunningTimer::due);
    if (next == timers_.end() || next->due > end) break;
    now_ = next->due;
    next->due += next->timer->interval();
    next->timer->tick();
  }
  now_ = end;
}

namespace {

/// A character at the form: where the form doesn't keep it, a text field that has the focus gets it.
void type(Form& form, char16_t unit) {
  char32_t key = unit;
  if (const int code = keys::codeOf(key)) form.keyDown(code, 0);
  if (!form.visible() || !form.keyPress(key)) return;
  auto* box = dynamic_cast<TextBox*>(form.focused());
  if (!box || box->locked()) return;
  if (box->onKeyPress) box->onKeyPress(key);
  if (key == 0) return;
  std::u16string text = base::toUtf16(box->text());
  const auto start = std::min(static_cast<std::size_t>(std::max(0, box->selStart())), text.size());
  text.replace(start, static_cast<std::size_t>(std::max(0, box->selLength())), 1, static_cast<char16_t>(key));
  box->userSelected(static_cast<int>(start) + 1, 0);
  box->text(base::fromUtf16(text));
}

void press(Form& form, int key) {
  if (keys::codeOf(static_cast<char32_t>(key)) == key) return type(form, static_cast<char16_t>(key));
  form.keyDown(key, 0);
  if (!form.visible()) return;
  if (key == keys::escape) form.pressEscape();
  if (key == keys::enter) form.pressEnter();
  if (key == keys::tab) form.tab();
}

}  // namespace

void HeadlessToolkit::performOnForm(Form& form, const DialogStep& step, const std::string& where) {
  if (step.act == "click") return form.clickBackground();
  if (step.act == "close") return form.close();
  if (step.act == "wait") return pass(number(step.value, where));
  if (step.act == "type") {
    for (const char16_t unit : base::toUtf16(step.value)) type(form, unit);
    return;
  }
  if (step.act != "press") fail(where + ": a form knows no act '" + step.act + "'");
  const std::optional<int> key = keys::codeOf(step.value);
  if (!key) fail(where + ": there is no key '" + step.value + "'");
  press(form, *key);
}

Screen* HeadlessToolkit::wholeScreen() {
  Toolkit* shown = shownOn();
  return shown ? shown->wholeScreen() : &scripted_;
}

DesktopColor HeadlessToolkit::askDesktopColor(const std::function<bool()>& goesOn) {
  Toolkit* shown = shownOn();
  return shown ? shown->askDesktopColor(goesOn) : DesktopColor{};
}

/// The scripted screen shows one colour, or what the real one shows.
void HeadlessToolkit::showPixels(const ScreenClick& click, const std::string& where) {
  if (click.color) {
    scripted_.picture = [color = *click.color](const Point&) { return color; };
    return;
  }
  const std::shared_ptr<Screen> real = openScreen ? openScreen() : nullptr;
  if (!real) fail(where + ": there is no screen to see a pixel of; give its color: color=#1B6878");
  scripted_.resolution = real->size();
  if (const Size size = scripted_.resolution; !contains({0, 0, size.width, size.height}, click.place)) {
    fail(where + ": the screen has only " + std::to_string(size.width) + " x " + std::to_string(size.height) +
         " pixels");
  }
  scripted_.picture = [real](const Point& point) { return real->pixel(point); };
  scripted_.mouse = click.place;
}

void HeadlessToolkit::clickScreen(const ScreenClick& click, const std::string& where) {
  constexpr int moment = 50;  // until whoever looks at the mouse has looked
  showPixels(click, where);
  scripted_.tellHook(0, leftButtonDown);
  pass(moment);
}

void HeadlessToolkit::perform(Form& form, const DialogStep& step) {
  const std::string where = "dialog '" + form.name() + "', step '" + step.text + "'";
  if (base::equalsIgnoreCase(step.control, "form")) return performOnForm(form, step, where);
  if (const auto click = screenClickOf(step); click && scripted_.hooked()) return clickScreen(*click, where);
  Control* control = form.find(step.control);
  if (!control) {
    fail(where + ": there is no control '" + step.control + "'; there are " + namesOf(form));
  }
  if (!control->visible()) fail(where + ": the control is not visible");
  if (!control->enabled()) fail(where + ": the control is disabled");
  if (const auto click = pictureClickOf(step)) {
    const auto* picture = dynamic_cast<const PictureBox*>(control);
    if (!picture) fail(where + ": only pictures are clicked at a place");
    picture->mouseDown(click->button, 0, click->x, click->y);
    picture->mouseUp(click->button, 0, click->x, click->y);
    if (click->button == 1) form.click(*control);
    return;
  }
  if (step.kind == DialogStep::Kind::click || step.act == "click") {
    if (!form.click(*control))
      fail(where + ": the field '" + (form.focused() ? form.focused()->name() : "") +
           "' holds a value that it doesn't accept");
    return;
  }
  if (step.act == "mousemove") {
    if (control->onMouseMove) control->onMouseMove();
    return;
  }
  if (control->focusable() && !form.focus(*control)) {
    fail(where + ": the field '" + (form.focused() ? form.focused()->name() : "") +
         "' holds a value that it doesn't accept");
  }
  if (step.kind == DialogStep::Kind::set) {
    if (!setValue(*control, step.value, where)) fail(where + ": the control takes no value");
    return;
  }
  if (step.act == "focus") return;
  if (auto* spinner = dynamic_cast<ScrollBar*>(control); spinner && step.act == "step") {
    return spinner->step(number(step.value, where));
  }
  if (auto* list = dynamic_cast<ListBox*>(control); list && (step.act == "check" || step.act == "uncheck")) {
    return list->checked(itemOf(*list, step.value, where), step.act == "check");
  }
  if (auto* tree = dynamic_cast<TreeView*>(control); tree && step.act == "label") {
    return tree->userEditLabel(tree->selectedKey(), step.value);
  }
  fail(where + ": the control knows no act '" + step.act + "'");
}

}  // namespace vellumark::ui
