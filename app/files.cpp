#include "files.h"

#include <filesystem>

#include "platform/paths.h"

namespace vellumark::app {

namespace fs = std::filesystem;

void requireDeck(const std::string& deck) {
  std::error_code missing;
  const fs::file_status status = fs::status(deck, missing);
  if (!fs::exists(status)) {
    throw Failure(Exit::deck, deck + ": there is no such file; give the path of a .pptx file");
  }
  if (fs::is_directory(status))
    throw Failure(Exit::deck, deck + ": is a folder; give the path of a .pptx file");
}

void requireOther(const std::string& out, const std::string& deck) {
  const std::string target = platform::toSystem(out);
  std::error_code missing;
  if (fs::equivalent(target, deck, missing)) {
    throw Failure(Exit::usage, "-o " + out + ": is the deck itself; give --in-place to change it");
  }
  if (target != out && !fs::exists(out, missing) && fs::exists(target, missing)) {
    throw Failure(Exit::usage,
                  "-o " + out + ": would replace " + target + "; give a name that differs in more than case");
  }
}

Failure deckFailure(const std::string& path, const base::Error& error) {
  const std::string& told = error.description();
  const bool named = told.find(path) != std::string::npos;
  return Failure(Exit::deck, named ? told : path + ": " + told);
}

}  // namespace vellumark::app
