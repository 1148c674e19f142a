#pragma once

#include "cli/CommandLine.h"

namespace dialwright {

/// The commands of the terminal. They throw CommandFailure.
ExitCode Check(const Command& command, const Terminal& terminal);
ExitCode Show(const Command& command, const Terminal& terminal);
ExitCode Export(const Command& command, const Terminal& terminal);
ExitCode Apply(const Command& command, const Terminal& terminal);
ExitCode Diff(const Command& command, const Terminal& terminal);

}  // namespace dialwright
