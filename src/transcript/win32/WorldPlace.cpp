#include "WorldPlace.h"

#include <windows.h>

#include <random>
#include <system_error>

#include "platform/win32/Win32Text.h"
#include "text/Text.h"

namespace dialwright {

namespace {

std::string FreshName() {
  static std::random_device random;
  return "dialwright-" + std::to_string(random());
}

void Check(LSTATUS status, const char* step) {
  if (status != ERROR_SUCCESS)
    throw std::system_error(static_cast<int>(status), std::system_category(), step);
}

}  // namespace

WorldFolder::WorldFolder() {
  do {
    path = std::filesystem::temp_directory_path() / FreshName();
  } while (!std::filesystem::create_directory(path));
}

std::filesystem::path WorldFolder::HostPath(std::string_view systemPath) const {
  const std::string slashed = ReplaceAll(systemPath, "\\", "/");
  const bool hasDrive = slashed.size() > 1 && slashed[1] == ':';
  const std::string drive = "drive_" + LowerCase(hasDrive ? slashed.substr(0, 1) : "c");
  std::string rest = hasDrive ? slashed.substr(2) : slashed;
  rest.erase(0, rest.find_first_not_of('/'));
  return path / drive / rest;
}

std::string WorldDisk::HostPath(std::string_view path) const {
  return folder.HostPath(path).make_preferred().string();
}

WorldRegistry::WorldRegistry() : place(WideText("Software\\" + FreshName())) {
  HKEY key = nullptr;
  Check(RegCreateKeyExW(HKEY_CURRENT_USER, place.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr),
        "no registry for a transcript");
  const LSTATUS laid = RegOverridePredefKey(HKEY_LOCAL_MACHINE, key);
  ::RegCloseKey(key);
  Check(laid, "no registry of its own for a transcript");
}

WorldRegistry::~WorldRegistry() {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegDeleteTreeW(HKEY_CURRENT_USER, place.c_str());
}

void WorldRegistry::Set(std::string_view key, std::string_view name, const RegistryValue& value) {
  MakeKey(key);
  // The call adds a zero to a text without one if a zero happens to stand behind it.
  const std::string bytes = value.bytes + '.';
  Check(RegSetKeyValueA(HKEY_LOCAL_MACHINE, std::string(key).c_str(), std::string(name).c_str(),
                        value.type, bytes.data(), static_cast<DWORD>(value.bytes.size())),
        "RegSetKeyValueA");
}

void WorldRegistry::MakeKey(std::string_view key) {
  HKEY made = nullptr;
  Check(RegCreateKeyExW(HKEY_LOCAL_MACHINE, WideText(key).c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_SET_VALUE, nullptr, &made, nullptr),
        "RegCreateKeyExW");
  ::RegCloseKey(made);
}

void WorldRegistry::RemoveValue(std::string_view key, std::string_view name) {
  RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, WideText(key).c_str(), WideText(name).c_str());
}

void WorldRegistry::RemoveKey(std::string_view key) {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, WideText(key).c_str());
}

// A library in use could not be removed with the transcript's folder.
WorldLanguages::~WorldLanguages() {
  for (const LibraryHandle library : loaded) LanguagesWin32::FreeLibrary(library);
}

LibraryHandle WorldLanguages::LoadLibraryExW(std::string_view path, unsigned flags) {
  if (!files.Stamp(path)) return 0;
  const LibraryHandle library =
      LanguagesWin32::LoadLibraryExW(folder.HostPath(path).make_preferred().string(), flags);
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
