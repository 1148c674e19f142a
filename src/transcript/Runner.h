#pragma once

#include <string>
#include <vector>

#include "Player.h"

namespace dialwright {

/// Runs the transcript runner with the arguments behind the program's name:
///
///     [--update] [FILE.transcript ...]   each file in a fresh world; without a file, all there are
///     -                                  steps from standard input, one at a time
///
/// Returns the exit status.
int RunTranscripts(const std::vector<std::string>& arguments, const MakeUser& makeUser);

}  // namespace dialwright
