#include <cstring>
#include <utility>

#include "platform/standins/RegistryFile.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {
namespace {

constexpr long registryInvalidHandle = 6;

std::string FoldedKey(std::string_view path) {
  while (path.ends_with('\\')) path.remove_suffix(1);
  return LowerCase(path);
}

}  // namespace

RegistryValue RegistryValue::Text(std::string_view utf8) {
  std::string bytes = Utf8ToAnsi(utf8);
  bytes.push_back('\0');
  return {1, std::move(bytes)};
}

RegistryValue RegistryValue::DoubleWord(std::uint32_t number) {
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<char>((number >> shift) & 0xFF));
  }
  return {4, std::move(bytes)};
}

void MemoryRegistry::Set(std::string_view key, std::string_view name, RegistryValue value) {
  MakeKey(key);
  keys[FoldedKey(key)][LowerCase(name)] = std::move(value);
}

void MemoryRegistry::MakeKey(std::string_view key) {
  const std::string folded = FoldedKey(key);
  for (std::size_t end = folded.find('\\'); end != std::string::npos;
       end = folded.find('\\', end + 1)) {
    keys.try_emplace(folded.substr(0, end));
  }
  keys.try_emplace(folded);
}

void MemoryRegistry::RemoveValue(std::string_view key, std::string_view name) {
  const auto found = keys.find(FoldedKey(key));
  if (found != keys.end()) found->second.erase(LowerCase(name));
}

void MemoryRegistry::RemoveKey(std::string_view key) {
  const std::string folded = FoldedKey(key);
  std::erase_if(keys, [&](const auto& entry) {
    return entry.first == folded || entry.first.starts_with(folded + "\\");
  });
}

long MemoryRegistry::RegOpenKeyExA(RegistryKey root, std::string_view path, unsigned, unsigned,
                                   RegistryKey& opened) {
  std::string folded = FoldedKey(path);
  if (root != RegistryKey::localMachine) {
    const auto base = open.find(static_cast<std::uintptr_t>(root));
    if (base == open.end()) return registryInvalidHandle;
    folded = folded.empty() ? base->second : base->second + "\\" + folded;
  }
  if (!folded.empty() && !keys.contains(folded)) return registryNotFound;
  opened = static_cast<RegistryKey>(nextHandle);
  open.emplace(nextHandle++, std::move(folded));
  return registrySuccess;
}

long MemoryRegistry::RegQueryValueExA(RegistryKey key, std::string_view name, std::uint32_t& type,
                                      std::span<std::byte> buffer, std::uint32_t& size) {
  std::string path;
  if (key != RegistryKey::localMachine) {
    const auto handle = open.find(static_cast<std::uintptr_t>(key));
    if (handle == open.end()) return registryInvalidHandle;
    path = handle->second;
  }
  const auto values = keys.find(path);
  if (values == keys.end()) return registryNotFound;
  const auto found = values->second.find(LowerCase(name));
  if (found == values->second.end()) return registryNotFound;

  const RegistryValue& value = found->second;
  type = value.type;
  size = static_cast<std::uint32_t>(value.bytes.size());
  if (buffer.size() < value.bytes.size()) return registryMoreData;
  if (!value.bytes.empty()) std::memcpy(buffer.data(), value.bytes.data(), value.bytes.size());
  return registrySuccess;
}

long MemoryRegistry::RegCloseKey(RegistryKey key) {
  if (key == RegistryKey::localMachine) return registrySuccess;
  return open.erase(static_cast<std::uintptr_t>(key)) > 0 ? registrySuccess : registryInvalidHandle;
}

}  // namespace dialwright
