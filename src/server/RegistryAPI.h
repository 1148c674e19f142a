#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Registry.h"

namespace dialwright {

/// A registry value of varying type; the first is "nothing".
using RegistryResult =
    std::variant<std::monostate, std::string, std::vector<std::byte>, std::int32_t>;

inline constexpr std::int16_t registryString = 1;
inline constexpr std::int16_t registryBinary = 3;
inline constexpr std::int16_t registryDoubleWord = 4;

/// Whether the key can be opened for reading.
bool bRegistryKeyExists(Registry& registry, RegistryKey root, std::string_view path);

/// One value of a key, or the default when the key or the value cannot be read; nothing tells the
/// two apart. Throws RuntimeFailure 1001 for a type other than the three above, and 5 for a string
/// that is reported with no bytes at all.
RegistryResult GetRegistryValue(Registry& registry, RegistryKey root, std::string_view path,
                                std::string_view name, std::int16_t type,
                                RegistryResult defaultValue = {});

}  // namespace dialwright
