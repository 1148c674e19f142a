#include "server/RegistryAPI.h"

#include <array>
#include <bit>
#include <span>
#include <utility>

#include "platform/Failure.h"
#include "text/Ansi.h"

namespace dialwright {

namespace {

constexpr unsigned noOptions = 0;
constexpr unsigned readAccess = 131097;

constexpr std::size_t stringBuffer = 1024;
constexpr std::size_t binaryBuffer = 4096;

RegistryResult StringResult(std::span<const std::byte> bytes) {
  // The last byte is the terminating zero; a value without any asks for a negative length.
  if (bytes.empty()) throw RuntimeFailure(Failure::invalidProcedureCall);
  return AnsiToUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size() - 1});
}

RegistryResult BinaryResult(std::span<const std::byte> bytes) {
  return std::vector<std::byte>(bytes.begin(), bytes.end());
}

RegistryResult DoubleWordResult(std::span<const std::byte> bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i > 0; --i)
    value = value << 8 | std::to_integer<std::uint32_t>(bytes[i - 1]);
  return std::bit_cast<std::int32_t>(value);
}

struct ValueKind {
  std::int16_t type;
  std::size_t bufferSize;
  std::byte fill;
  RegistryResult (*result)(std::span<const std::byte>);
};

constexpr std::array kinds{
    ValueKind{registryString, stringBuffer, std::byte{' '}, StringResult},
    ValueKind{registryBinary, binaryBuffer, std::byte{0}, BinaryResult},
    ValueKind{registryDoubleWord, 4, std::byte{0}, DoubleWordResult},
};

}  // namespace

bool bRegistryKeyExists(Registry& registry, RegistryKey root, std::string_view path) {
  RegistryKey key = RegistryKey::none;
  if (registry.RegOpenKeyExA(root, path, noOptions, readAccess, key) != registrySuccess)
    return false;
  registry.RegCloseKey(key);
  return true;
}

RegistryResult GetRegistryValue(Registry& registry, RegistryKey root, std::string_view path,
                                std::string_view name, std::int16_t type,
                                RegistryResult defaultValue) {
  RegistryKey key = RegistryKey::none;
  if (registry.RegOpenKeyExA(root, path, noOptions, readAccess, key) != registrySuccess)
    return defaultValue;
  for (const ValueKind& kind : kinds) {
    if (kind.type != type) continue;
    std::vector<std::byte> buffer(kind.bufferSize, kind.fill);
    std::uint32_t valueType = 0;
    auto size = static_cast<std::uint32_t>(buffer.size());
    RegistryResult result = std::move(defaultValue);
    if (registry.RegQueryValueExA(key, name, valueType, buffer, size) == registrySuccess)
      result = kind.result(std::span(buffer).first(size));
    registry.RegCloseKey(key);
    return result;
  }
  throw RuntimeFailure(1001, "Unsupported value type");
}

}  // namespace dialwright
