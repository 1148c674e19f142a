#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dialwright {

/// The changes from one file to another as a unified diff with three lines of context, byte by
/// byte; empty if nothing differs. Nothing in place of the bytes is a file that is not there, and
/// files that hold zeros are only said to differ.
std::string UnifiedDiff(std::string_view name, std::optional<std::string_view> before,
                        std::optional<std::string_view> after);

}  // namespace dialwright
