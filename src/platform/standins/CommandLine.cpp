#include "platform/standins/CommandLine.h"

#include <algorithm>
#include <cstddef>

namespace dialwright {
namespace {

bool IsSeparator(char c) { return c == ' ' || c == '\t'; }

void SkipSeparators(std::string_view& rest) {
  while (!rest.empty() && IsSeparator(rest.front())) rest.remove_prefix(1);
}

std::string TakeProgram(std::string_view& rest) {
  std::string program;
  bool quoted = false;
  while (!rest.empty() && (quoted || !IsSeparator(rest.front()))) {
    if (rest.front() == '"') {
      quoted = !quoted;
    } else {
      program.push_back(rest.front());
    }
    rest.remove_prefix(1);
  }
  return program;
}

std::string TakeArgument(std::string_view& rest) {
  std::string argument;
  bool quoted = false;
  while (!rest.empty() && (quoted || !IsSeparator(rest.front()))) {
    const std::size_t backslashes = std::min(rest.find_first_not_of('\\'), rest.size());
    rest.remove_prefix(backslashes);
    if (!rest.starts_with('"')) {
      argument.append(backslashes, '\\');
      if (backslashes > 0) continue;
      argument.push_back(rest.front());
    } else {
      argument.append(backslashes / 2, '\\');
      if (backslashes % 2 == 1) {
        argument.push_back('"');
      } else if (quoted && rest.starts_with("\"\"")) {
        argument.push_back('"');
        rest.remove_prefix(1);
      } else {
        quoted = !quoted;
      }
    }
    rest.remove_prefix(1);
  }
  return argument;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view commandLine) {
  std::vector<std::string> words;
  SkipSeparators(commandLine);
  if (commandLine.empty()) return words;
  words.push_back(TakeProgram(commandLine));
  for (SkipSeparators(commandLine); !commandLine.empty(); SkipSeparators(commandLine)) {
    words.push_back(TakeArgument(commandLine));
  }
  return words;
}

}  // namespace dialwright
