#pragma once

#include <string>

namespace dialwright {

/// Where earlier versions of scripts are kept: in the user's own data folder, as the operating
/// system has it. Empty where the user has none.
std::string EarlierFolder();

}  // namespace dialwright
