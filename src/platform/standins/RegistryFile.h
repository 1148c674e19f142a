#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace dialwright {

/// One value of a key: its type (1 string, 2 expandable string, 3 binary, 4 double word, 7 multiple
/// strings) and its bytes as the A calls give them.
struct RegistryValue {
  std::uint32_t type = 0;
  std::string bytes;

  static RegistryValue Text(std::string_view utf8);
  static RegistryValue DoubleWord(std::uint32_t number);
};

/// A registry in memory. Keys and names are found without case; a key path may end in a backslash.
class MemoryRegistry : public Registry {
 public:
  /// Sets a value below HKEY_LOCAL_MACHINE and makes its key. The empty name is the default value.
  void Set(std::string_view key, std::string_view name, RegistryValue value);
  /// Makes a key without values.
  void MakeKey(std::string_view key);
  void RemoveValue(std::string_view key, std::string_view name);
  /// Removes a key and all below it.
  void RemoveKey(std::string_view key);

  long RegOpenKeyExA(RegistryKey root, std::string_view path, unsigned options, unsigned access,
                     RegistryKey& opened) override;
  long RegQueryValueExA(RegistryKey key, std::string_view name, std::uint32_t& type,
                        std::span<std::byte> buffer, std::uint32_t& size) override;
  long RegCloseKey(RegistryKey key) override;

 private:
  using Values = std::map<std::string, RegistryValue>;  // by folded name
  std::map<std::string, Values> keys;                   // by folded path
  std::map<std::uintptr_t, std::string> open;
  std::uintptr_t nextHandle = 1;
};

/// Reads what a registry editor exports (versions 4 and 5; UTF-16 by its mark, UTF-8 with or
/// without one, else ANSI) into a registry. Lines that cannot be understood are passed over. Keys
/// outside HKEY_LOCAL_MACHINE are not kept.
void ReadRegistryFile(std::string_view bytes, MemoryRegistry& registry);

}  // namespace dialwright
