#include "core/failure.h"

#include <memory>

#include "core/err_form.h"

namespace vellumark::core {
namespace {

/// The dialog that is open, if any: it lives from the first failure until it is unloaded.
std::unique_ptr<ErrForm>& openForm() {
  static std::unique_ptr<ErrForm> form;
  return form;
}

}  // namespace

void handleError(std::string_view message, const base::Error* error) {
  std::unique_ptr<ErrForm>& form = openForm();
  if (!form || !form->loaded()) form = std::make_unique<ErrForm>();
  const std::string text(message);
  if (error) {
    form->show(text + " - " + error->description() + "(" + std::to_string(error->number()) + ")",
               error->number());
  } else {
    form->show(text, 0);
  }
  // The text before the first comma and the text behind the first blank; a text without a comma fails here.
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) base::raise(base::errors::invalidCall);
  const std::size_t blank = text.find(' ');
  form->origin(text.substr(0, comma), blank == std::string::npos ? text : text.substr(blank + 1));
  if (form->visible()) return;
  form->showModal();
  form.reset();
}

void installFailureRoute() {
  base::setFailureHandler(
      [](std::string_view location, const base::Error& error) { handleError(location, &error); });
}

}  // namespace vellumark::core
