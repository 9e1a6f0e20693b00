#pragma once
// Running the built program, with a settings store of the test's own and without a display.

#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace vellumark::test {

struct Outcome {
  int status = -1;  ///< exit status; 128 and the signal's number where a signal ended the program
  std::string out, err;
};

/// Runs `vellumark` with these arguments and waits for its end.
Outcome runProgram(const std::vector<std::string>& arguments);
/// The same for any other program.
Outcome runProgram(const std::string& path, const std::vector<std::string>& arguments);

/// `run COMMAND DECK arguments...`, or another subcommand of that form, with the installation of the source
/// tree.
Outcome runCommand(const std::string& command, const std::string& deck, std::vector<std::string> arguments,
                   const std::string& subcommand = "run");

/// Makes an installation like that of the source tree, without what programs have left there.
void copyInstallation(const std::filesystem::path& root);

/// Sets a usage counter in the settings store of the programs that are run.
void setCounter(const std::string& name, const std::string& value);

/// Whether a text is exactly one line that begins with "vellumark: ".
bool isFailureLine(const std::string& text);
/// The lines of a text that begin with "vellumark: ".
std::vector<std::string> failureLines(const std::string& text);

}  // namespace vellumark::test
