// A file in ANSI and the same file in UTF-16 or UTF-8 say the same.

#include <tuple>

#include "Fuzz.h"
#include "platform/standins/RegistryFile.h"

namespace {

auto query(MemoryRegistry& registry, std::string_view path, std::string_view name) {
  RegistryKey key = RegistryKey::none;
  std::array<std::byte, 64> buffer{};
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  long result = registry.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key);
  if (result == registrySuccess) {
    result = registry.RegQueryValueExA(key, name, type, buffer, size);
    need(registry.RegCloseKey(key) == registrySuccess);
  }
  return std::tuple(result, type, size, buffer);
}

}  // namespace

void Check(const std::string& bytes) {
  MemoryRegistry plain, wide, marked;
  ReadRegistryFile(bytes, plain);
  if (bytes.starts_with(utf16Mark) || bytes.starts_with("\xEF\xBB\xBF")) return;
  const std::string utf8 = IsUtf8(bytes) ? bytes : AnsiToUtf8(bytes);
  ReadRegistryFile(std::string(utf16Mark) + Utf8ToUtf16(utf8), wide);
  ReadRegistryFile("\xEF\xBB\xBF" + utf8, marked);
  for (const std::string_view path : {"", "k", "k\\k", "K\\"})
    for (const std::string_view name : {"", "v", "w", "x\"y"}) {
      const auto expected = query(plain, path, name);
      need(query(wide, path, name) == expected && query(marked, path, name) == expected);
    }
}
