// BoxBench.exe [FILE]: the bench beside a panel; FILE is where its log is saved without asking.
#include "boxbench/win32/bench_window.h"

namespace {

// The first argument without its quotation marks.
std::string FirstArgument(const char* commandLine) {
  std::string argument = panelora::boxbench::Tidied(commandLine);
  if (argument.size() >= 2 && argument.front() == '"' && argument.back() == '"') {
    argument = argument.substr(1, argument.size() - 2);
  }
  return argument;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int show) {
  panelora::boxbench::BenchWindow bench(instance, FirstArgument(commandLine));
  return bench.Make(show) ? bench.Run() : 1;
}
