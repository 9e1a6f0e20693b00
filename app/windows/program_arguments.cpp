#include "windows/program_arguments.h"

#include <windows.h>
#include <shellapi.h>

#include "host/automation/com.h"

namespace vellumark::app {

std::vector<std::string> programArguments() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 0; i < count; ++i) texts.push_back(host::automation::fromWide(words[i]));
  LocalFree(words);
  return texts;
}

}  // namespace vellumark::app
