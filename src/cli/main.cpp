#include <exception>
#include <iostream>

#include "cli/CommandLine.h"
#include "cli/Host.h"

int main(int argc, char** argv) {
  using namespace dialwright;
  try {
    const bool colour = PrepareOutput();
    const ExitCode code = RunCommandLine(HostArguments(argc, argv), {std::cout, std::cerr, colour});
    // What a full disk or a closed pipe has swallowed was not printed.
    return static_cast<int>(std::cout.flush() ? code : ExitCode::unreadable);
  } catch (const std::exception& failure) {
    std::cerr << "dialwright-cli: " << failure.what() << '\n';
    return static_cast<int>(ExitCode::unreadable);
  }
}
