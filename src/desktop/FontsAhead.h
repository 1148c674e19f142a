#pragma once

#include <thread>

namespace dialwright {

/// Reads what the machine has for fonts while the toolkit starts, which needs it for the first
/// text. Ends with what is returned.
std::jthread ReadFontsAhead();

}  // namespace dialwright
