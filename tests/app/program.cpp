#include "app/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "core/registry.h"

namespace vellumark::test {
namespace {

const TempFolder& workFolder() {
  static const TempFolder folder;
  return folder;
}
std::string settingsFile() { return workFolder().path("settings.db"); }

/// The environment of the programs that are run: that of the test without displays, and with settings of its
/// own.
std::vector<std::string> environment(const std::string& settings) {
  std::vector<std::string> variables{"VELLUMARK_SETTINGS=" + settings, "QT_QPA_PLATFORM=offscreen"};
  for (char** variable = environ; *variable; ++variable) {
    const std::string text = *variable;
    const std::string name = text.substr(0, text.find('='));
    if (name != "DISPLAY" && name != "WAYLAND_DISPLAY" && name != "VELLUMARK_SETTINGS" &&
        name != "QT_QPA_PLATFORM" && name != "VELLUMARK_SHOW") {
      variables.push_back(text);
    }
  }
  return variables;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

}  // namespace

Outcome runProgram(const std::string& path, const std::vector<std::string>& arguments) {
  const TempFolder& folder = workFolder();
  const std::string out = folder.path("out"), err = folder.path("err");
  std::vector<std::string> words{path};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = environment(settingsFile());

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  pid_t child = 0;
  const int failed = posix_spawnp(&child, path.c_str(), &actions, nullptr, pointers(words).data(),
                                  pointers(variables).data());
  posix_spawn_file_actions_destroy(&actions);
  if (failed) throw std::runtime_error("can't run " + path);
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), readFile(out), readFile(err)};
}

Outcome runProgram(const std::vector<std::string>& arguments) { return runProgram(TEST_PROGRAM, arguments); }

Outcome runCommand(const std::string& command, const std::string& deck, std::vector<std::string> arguments,
                   const std::string& subcommand) {
  arguments.insert(arguments.begin(), {subcommand, command, deck, "--root", TEST_SOURCE_DIR "/product"});
  return runProgram(arguments);
}

void copyInstallation(const std::filesystem::path& root) {
  namespace fs = std::filesystem;
  const fs::path source = TEST_SOURCE_DIR "/product";
  fs::create_directories(root);
  for (fs::recursive_directory_iterator each(source), end; each != end; ++each) {
    const fs::path name = fs::relative(each->path(), source);
    if (name == "user" || name == "customization/styles/thumbs") {
      each.disable_recursion_pending();
    } else if (each->is_directory()) {
      fs::create_directories(root / name);
    } else {
      fs::copy_file(each->path(), root / name);
    }
  }
}

void setCounter(const std::string& name, const std::string& value) {
  setenv("VELLUMARK_SETTINGS", settingsFile().c_str(), 1);
  core::setRegistry(name, value, "");
}

std::vector<std::string> failureLines(const std::string& text) {
  std::vector<std::string> found;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("vellumark: ")) found.push_back(line);
  }
  return found;
}

bool isFailureLine(const std::string& text) {
  return text.starts_with("vellumark: ") && text.find('\n') == text.size() - 1;
}

}  // namespace vellumark::test
