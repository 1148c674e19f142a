#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace dialwright {

/// How a command ends.
enum class ExitCode {
  done = 0,
  found = 1,       ///< there is a refusal, a save was not complete, or the two differ
  wrongUse = 2,    ///< the command line says nothing that can be done
  unreadable = 3,  ///< a server or a file cannot be read or written
};

/// Why a command ends early; an empty line has been said already.
struct CommandFailure {
  ExitCode code = ExitCode::unreadable;
  std::string line;
};

/// Where results and words go. Colour is for a person's terminal alone.
struct Terminal {
  std::ostream& results;
  std::ostream& words;
  bool colour = false;
};

/// A command line, understood. Paths are the host's own.
struct Command {
  std::string name;
  std::optional<std::string> server;
  std::optional<int> slot;
  bool json = false;
  bool dryRun = false;
  std::string first, second;  ///< the files or servers that it names
};

/// Runs a command line, without the program's own name in front.
ExitCode RunCommandLine(const std::vector<std::string>& arguments, const Terminal& terminal);

}  // namespace dialwright
