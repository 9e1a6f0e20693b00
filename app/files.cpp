#include "files.h"

#include <filesystem>

#include "base/text.h"
#include "platform/paths.h"

namespace vellumark::app {

namespace fs = std::filesystem;

void requireDeck(const std::string& deck) {
  std::error_code fault;
  const fs::file_status status = fs::status(platform::pathOf(deck), fault);
  const auto refuse = [&](const std::string& why) {
    throw Failure(Exit::deck, deck + ": " + why + "; give the path of a .pptx file");
  };
  if (status.type() == fs::file_type::not_found) refuse("there is no such file");
  if (!fs::status_known(status)) refuse("can't be reached: " + fault.message());
  if (fs::is_directory(status)) refuse("is a folder");
  if (!fs::is_regular_file(status)) refuse("is no file that can be read at will");
}

void requireOther(const std::string& out, const std::string& deck) {
  const std::string target = platform::toSystem(out);
  const fs::path targetPath = platform::pathOf(target);
  std::error_code missing;
  if (fs::equivalent(targetPath, platform::pathOf(deck), missing)) {
    throw Failure(Exit::usage, "-o " + out + ": is the deck itself; give --in-place to change it");
  }
  if (target != out && !fs::exists(platform::pathOf(out), missing) && fs::exists(targetPath, missing)) {
    throw Failure(Exit::usage,
                  "-o " + out + ": would replace " + target + "; give a name that differs in more than case");
  }
  const auto extension = [](const std::string& path) {
    return base::toLower(platform::textOf(platform::pathOf(path).extension()));
  };
  const std::string from = extension(deck), to = extension(target);
  const bool macros = from == ".pptm" || from == ".ppsm" || from == ".potm";
  if (macros && (to == ".pptx" || to == ".ppsx" || to == ".potx")) {
    throw Failure(Exit::usage, "-o " + out +
                                   ": would leave the deck's macros behind; give a name that ends in " +
                                   to.substr(0, to.size() - 1) + "m");
  }
}

Failure deckFailure(const std::string& path, const base::Error& error) {
  const std::string& told = error.description();
  const bool named = told.find(path) != std::string::npos;
  return Failure(Exit::deck, named ? told : path + ": " + told);
}

}  // namespace vellumark::app
