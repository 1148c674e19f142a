#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/RegistryFile.h"
#include "text/Ansi.h"

namespace {

using namespace dialwright;

std::tuple<long, std::uint32_t, std::string> query(MemoryRegistry& registry, std::string_view path,
                                                   std::string_view name) {
  RegistryKey key = RegistryKey::none;
  const long opened = registry.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key);
  if (opened != registrySuccess) return {-opened, 0, ""};
  std::array<std::byte, 64> buffer{};
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  const long result = registry.RegQueryValueExA(key, name, type, buffer, size);
  if (registry.RegCloseKey(key) != registrySuccess) std::abort();
  if (result != registrySuccess) return {result, type, std::to_string(size)};
  return {result, type, std::string(reinterpret_cast<const char*>(buffer.data()), size)};
}

}  // namespace

// A file in ANSI and the same file in UTF-16 or UTF-8 say the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  MemoryRegistry plain;
  readRegistryFile(bytes, plain);
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xEF\xBB\xBF")) return 0;

  const std::string utf8 = AnsiToUtf8(bytes);
  MemoryRegistry wide;
  MemoryRegistry marked;
  readRegistryFile("\xFF\xFE" + Utf8ToUtf16(utf8), wide);
  readRegistryFile("\xEF\xBB\xBF" + utf8, marked);
  for (const std::string_view path : {"", "k", "k\\k", "K\\"}) {
    for (const std::string_view name : {"", "v", "w", "x\"y"}) {
      const auto expected = query(plain, path, name);
      if (query(wide, path, name) != expected || query(marked, path, name) != expected)
        std::abort();
    }
  }
  return 0;
}
