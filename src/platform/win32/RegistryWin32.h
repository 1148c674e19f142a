#pragma once

#include "platform/Registry.h"

namespace dialwright {

/// The registry of Windows. A key that is not there for programs of this word size is looked for
/// among those of 32-bit programs, where an older server keeps its own on a 64-bit machine.
class RegistryWin32 : public Registry {
 public:
  long RegOpenKeyExA(RegistryKey root, std::string_view path, unsigned options, unsigned access,
                     RegistryKey& opened) override;
  long RegQueryValueExA(RegistryKey key, std::string_view name, std::uint32_t& type,
                        std::span<std::byte> buffer, std::uint32_t& size) override;
  long RegCloseKey(RegistryKey key) override;
};

}  // namespace dialwright
