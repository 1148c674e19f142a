#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace dialwright {

/// Plays random steps of a user at a whole program, chosen by the bytes, and looks after each at
/// what always holds: a row has one token, once; voiced orders are 10, 20, 30, ...; a refused
/// section's keys are untouched; nothing of a file changes but the keys of section MACROS and the
/// checksum line; the derived lists are what their plain definition gives.
///
/// Returns what did not hold, with the steps as a transcript that shows it; empty if all did.
std::string WalkAtRandom(std::span<const std::uint8_t> bytes);

}  // namespace dialwright
