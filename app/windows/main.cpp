// A host for the Windows add-in without PowerPoint: loads the registered add-in as PowerPoint does, connects
// it to the embedded host served over COM, and otherwise takes what the command line program takes.

#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "command_line.h"
#include "console.h"
#include "host/automation/com.h"
#include "windows/com_add_in.h"
#include "windows/program_arguments.h"
#include "windows/window_questions.h"

int main() {
  using namespace vellumark;
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  OleInitialize(nullptr);
  const std::vector<std::string> words = app::programArguments();
  std::vector<const char*> pointers;
  for (const std::string& word : words) pointers.push_back(word.c_str());
  int status = app::runProgram(static_cast<int>(pointers.size()), pointers.data(),
                               {app::comAddIn, app::windowQuestions});
  if (!app::addInIsUnloaded()) {
    app::tellFailure("the add-in was disconnected and released, but its DLL can't be unloaded");
    if (status == 0) status = static_cast<int>(app::Exit::refused);
  }
  OleUninitialize();
  return status;
}
