#include "windows/host_program.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <string>
#include <vector>

#include "command_line.h"
#include "console.h"
#include "host/automation/com.h"
#include "windows/com_add_in.h"
#include "windows/program_arguments.h"
#include "windows/window_questions.h"

namespace vellumark::app {

int runHostProgram(const AddInMaker& make) {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  OleInitialize(nullptr);
  const std::vector<std::string> words = programArguments();
  std::vector<const char*> pointers;
  for (const std::string& word : words) pointers.push_back(word.c_str());
  int status = runProgram(static_cast<int>(pointers.size()), pointers.data(), {make, windowQuestions});
  if (!addInIsUnloaded()) {
    tellFailure("the add-in was disconnected and released, but its DLL can't be unloaded");
    if (status == 0) status = static_cast<int>(Exit::refused);
  }
  OleUninitialize();
  return status;
}

}  // namespace vellumark::app
