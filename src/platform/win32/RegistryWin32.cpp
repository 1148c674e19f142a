#include "platform/win32/RegistryWin32.h"

#include <windows.h>

#include <string>

#include "text/Ansi.h"

namespace dialwright {
namespace {

// The root's number is that of the system in 32 bits; its handle has the sign in front.
HKEY KeyHandle(RegistryKey key) {
  return key == RegistryKey::localMachine ? HKEY_LOCAL_MACHINE : reinterpret_cast<HKEY>(key);
}

}  // namespace

long RegistryWin32::RegOpenKeyExA(RegistryKey root, std::string_view path, unsigned options,
                                  unsigned access, RegistryKey& opened) {
  const std::string name = Utf8ToAnsi(path);
  HKEY key = nullptr;
  long result = ::RegOpenKeyExA(KeyHandle(root), name.c_str(), options, access, &key);
  if (result == registryNotFound) {
    result =
        ::RegOpenKeyExA(KeyHandle(root), name.c_str(), options, access | KEY_WOW64_32KEY, &key);
  }
  if (result == registrySuccess) opened = static_cast<RegistryKey>(std::uintptr_t(key));
  return result;
}

long RegistryWin32::RegQueryValueExA(RegistryKey key, std::string_view name, std::uint32_t& type,
                                     std::span<std::byte> buffer, std::uint32_t& size) {
  // Without a buffer the call would only tell the size, and call that a success.
  std::byte none{};
  BYTE* const bytes = reinterpret_cast<BYTE*>(buffer.empty() ? &none : buffer.data());
  DWORD valueType = 0;
  auto count = static_cast<DWORD>(buffer.size());
  const long result = ::RegQueryValueExA(KeyHandle(key), Utf8ToAnsi(name).c_str(), nullptr,
                                         &valueType, bytes, &count);
  if (result == registrySuccess || result == registryMoreData) {
    type = valueType;
    size = count;
  }
  return result;
}

long RegistryWin32::RegCloseKey(RegistryKey key) { return ::RegCloseKey(KeyHandle(key)); }

}  // namespace dialwright
