#include "WorldPlace.h"

#include <windows.h>

#include <random>
#include <system_error>

#include "platform/win32/Win32Text.h"

namespace dialwright {

namespace {

std::string freshName() {
  static std::random_device random;
  return "dialwright-" + std::to_string(random());
}

void check(LSTATUS status, const char* step) {
  if (status != ERROR_SUCCESS)
    throw std::system_error(static_cast<int>(status), std::system_category(), step);
}

}  // namespace

WorldFolder::WorldFolder() {
  do {
    path = std::filesystem::temp_directory_path() / freshName();
  } while (!std::filesystem::create_directory(path));
}

std::string WorldDisk::placed(std::string_view path) const {
  return folder.hostPath(path).make_preferred().string();
}

WorldRegistry::WorldRegistry() : place(WideText("Software\\" + freshName())) {
  HKEY key = nullptr;
  check(RegCreateKeyExW(HKEY_CURRENT_USER, place.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr),
        "no registry for a transcript");
  const LSTATUS laid = RegOverridePredefKey(HKEY_LOCAL_MACHINE, key);
  ::RegCloseKey(key);
  check(laid, "no registry of its own for a transcript");
}

WorldRegistry::~WorldRegistry() {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegDeleteTreeW(HKEY_CURRENT_USER, place.c_str());
}

void WorldRegistry::set(std::string_view key, std::string_view name, const RegistryValue& value) {
  makeKey(key);
  // The call adds a zero to a text without one if a zero happens to stand behind it.
  const std::string bytes = value.bytes + '.';
  check(RegSetKeyValueA(HKEY_LOCAL_MACHINE, std::string(key).c_str(), std::string(name).c_str(),
                        value.type, bytes.data(), static_cast<DWORD>(value.bytes.size())),
        "RegSetKeyValueA");
}

void WorldRegistry::makeKey(std::string_view key) {
  HKEY made = nullptr;
  check(RegCreateKeyExW(HKEY_LOCAL_MACHINE, WideText(key).c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_SET_VALUE, nullptr, &made, nullptr),
        "RegCreateKeyExW");
  ::RegCloseKey(made);
}

void WorldRegistry::removeValue(std::string_view key, std::string_view name) {
  RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, WideText(key).c_str(), WideText(name).c_str());
}

void WorldRegistry::removeKey(std::string_view key) {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, WideText(key).c_str());
}

// A library in use could not be removed with the transcript's folder.
WorldLanguages::~WorldLanguages() {
  for (const LibraryHandle library : loaded) LanguagesWin32::FreeLibrary(library);
}

LibraryHandle WorldLanguages::LoadLibraryExW(std::string_view path, unsigned flags) {
  if (!files.stamp(path)) return 0;
  const LibraryHandle library =
      LanguagesWin32::LoadLibraryExW(folder.hostPath(path).make_preferred().string(), flags);
  if (library != 0) loaded.insert(library);
  return library;
}

void WorldLanguages::FreeLibrary(LibraryHandle library) {
  loaded.erase(library);
  LanguagesWin32::FreeLibrary(library);
}

std::optional<std::string> WorldLanguages::GetLocaleInfoA(std::int32_t language, int information) {
  return LanguagesWin32::GetLocaleInfoA(language == 0 ? defaultLanguage : language, information);
}

// Where Windows names a language together with its country, Wine leaves the country out; the same
// name is to be had from the locale.
std::optional<std::string> WorldLanguages::VerLanguageNameA(std::int32_t language) {
  return LanguagesWin32::GetLocaleInfoA(language, LOCALE_SLANGUAGE);
}

}  // namespace dialwright
