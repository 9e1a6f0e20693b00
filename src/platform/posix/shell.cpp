#include "platform/shell.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/error.h"
#include "platform/environment.h"
#include "platform/paths.h"

namespace vellumark::platform {
namespace {

constexpr int patienceMilliseconds = 1000;

/// What became of the opener, sent through a pipe. Both fields are 0 where it ended well.
struct Outcome {
  int startError = 0;  ///< errno of a program that couldn't be started
  int exitStatus = 0;
};

void tell(int pipe, const Outcome& outcome) {
  while (write(pipe, &outcome, sizeof outcome) == -1 && errno == EINTR) continue;
}

/// The body of the program that becomes the opener: nothing of ours stays with it. Never returns.
[[noreturn]] void becomeOpener(char* const* arguments, int pipe) {
  const int nothing = open("/dev/null", O_RDWR);
  for (int standard = 0; nothing != -1 && standard <= 2; ++standard) dup2(nothing, standard);
  execvp(arguments[0], arguments);
  tell(pipe, {errno, 0});
  _exit(127);
}

/// The body of the process that waits for the opener in our place. Never returns.
[[noreturn]] void superviseOpener(char* const* arguments, int pipe) {
  setsid();
  const pid_t opener = fork();
  if (opener == 0) becomeOpener(arguments, pipe);
  int status = 0;
  if (opener == -1) {
    tell(pipe, {errno, 0});
  } else {
    while (waitpid(opener, &status, 0) == -1 && errno == EINTR) continue;
    // Where the start failed the opener has told so itself, and nobody reads this.
    tell(pipe, {0, WIFEXITED(status) ? WEXITSTATUS(status) : 1});
  }
  _exit(0);
}

int resultFor(const Outcome& outcome) {
  if (outcome.startError == EACCES || outcome.startError == EPERM) return shell::accessDenied;
  if (outcome.startError == ENOMEM || outcome.startError == EAGAIN) return shell::outOfMemory;
  if (outcome.startError != 0) return shell::fileNotFound;
  switch (outcome.exitStatus) {  // the meanings that xdg-open gives them
    case 0:
      return shell::opened;
    case 2:
      return shell::fileNotFound;
    case 3:
      return shell::noAssociation;
    default:
      return shell::accessDenied;
  }
}

/// Starts a program that hands something to the desktop. The waiting is left to a process of its own whose
/// parent ends at once, so that no zombie stays with us however long the started program runs.
int start(std::vector<std::string> words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  char* const* arguments = pointers.data();

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return shell::outOfMemory;
  const pid_t child = fork();
  if (child == 0) {
    const pid_t supervisor = fork();
    if (supervisor == 0) superviseOpener(arguments, ends[1]);
    if (supervisor == -1) tell(ends[1], {errno, 0});
    _exit(0);
  }
  close(ends[1]);
  if (child == -1) {
    close(ends[0]);
    return shell::outOfMemory;
  }
  while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) continue;

  Outcome outcome;
  pollfd ready{ends[0], POLLIN, 0};
  if (poll(&ready, 1, patienceMilliseconds) == 1) {
    if (read(ends[0], &outcome, sizeof outcome) != static_cast<ssize_t>(sizeof outcome)) outcome = {};
  }
  close(ends[0]);
  return resultFor(outcome);
}

/// Runs the opener on `target`.
int runOpener(const std::string& target) {
  return start({environmentVariable("VELLUMARK_OPENER").value_or("xdg-open"), target});
}

/// A new folder for one attachment. Those of earlier days go.
std::filesystem::path attachmentFolder() {
  namespace fs = std::filesystem;
  constexpr std::chrono::hours kept(24);
  const fs::path folder = pathOf(toSystem(internetCacheFolder())) / "vellumark" / "attachments";
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    base::raise(base::errors::fileAccess, base::standardDescription(base::errors::fileAccess) + ": " +
                                              textOf(folder) + " (" + error.message() + ")");
  }
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (fs::file_time_type::clock::now() - entry.last_write_time(error) > kept)
      fs::remove_all(entry.path(), error);
  }
  std::string own = textOf(folder / "XXXXXX");
  if (mkdtemp(own.data()) == nullptr) {
    base::raise(base::errors::fileAccess, base::standardDescription(base::errors::fileAccess) + ": " + own +
                                              " (" + std::generic_category().message(errno) + ")");
  }
  return pathOf(own);
}

}  // namespace

int openURL(const std::string& url) {
  // What begins with "-" would be an option of the opener, and no page or file that anybody means.
  if (url.empty() || url.front() == '-') return shell::fileNotFound;
  return runOpener(url);
}

void showInFolder(const std::string& file) {
  const std::string path = toSystem(file);
  const std::size_t end = path.rfind('/');
  const std::string folder = end == std::string::npos ? "." : path.substr(0, end + 1);
  if (runOpener(folder) != shell::opened) {
    base::raise(base::errors::fileNotFound, "No program opens the folder " + folder);
  }
}

void mailFile(const std::string& /*mailer*/, const std::string& name, const std::string& file) {
  const std::string copy = textOf(attachmentFolder() / pathOf(name));
  copyFile(file, copy);
  const std::string program = environmentVariable("VELLUMARK_MAILER").value_or("xdg-email");
  if (start({program, "--utf8", "--subject", name, "--attach", copy}) != shell::opened) {
    base::raise(base::errors::fileNotFound,
                "No mail program takes the attachment " + copy + ": " + program + " doesn't start one");
  }
}

bool openHelp(const std::string& file, int /*contextId*/) {
  return fileExists(file) && runOpener(toSystem(file)) == shell::opened;
}

}  // namespace vellumark::platform
