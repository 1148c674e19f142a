#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace dialwright {

/// Results of the registry calls; the platform has more, and any other than `success` is a failure.
inline constexpr long registrySuccess = 0;
inline constexpr long registryNotFound = 2;
inline constexpr long registryMoreData = 234;

/// A root or an open key.
enum class RegistryKey : std::uintptr_t { none = 0, localMachine = 0x80000002 };

/// The machine's registry, reads only, with the platform's own names, results and byte forms:
/// strings are ANSI with their terminating zero.
class Registry {
 public:
  virtual ~Registry() = default;
  virtual long RegOpenKeyExA(RegistryKey root, std::string_view path, unsigned options,
                             unsigned access, RegistryKey& opened) = 0;
  /// Copies a value's bytes; `size` is set to their number. A buffer that is too small gives
  /// `registryMoreData`.
  virtual long RegQueryValueExA(RegistryKey key, std::string_view name, std::uint32_t& type,
                                std::span<std::byte> buffer, std::uint32_t& size) = 0;
  virtual long RegCloseKey(RegistryKey key) = 0;
};

}  // namespace dialwright
