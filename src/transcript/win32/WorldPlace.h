#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/standins/RegistryFile.h"
#include "platform/win32/LanguagesWin32.h"
#include "platform/win32/PlacedFiles.h"
#include "platform/win32/RegistryWin32.h"

namespace dialwright {

/// What a transcript's world has from the operating system: on each, the same names.

/// A new folder for the files of one transcript, gone with it.
struct WorldFolder {
  WorldFolder();
  ~WorldFolder();
  WorldFolder(const WorldFolder&) = delete;
  WorldFolder& operator=(const WorldFolder&) = delete;

  /// Where a path of the system really lies.
  std::filesystem::path HostPath(std::string_view path) const;

  std::filesystem::path path;
};

/// The real files of Windows, with the drives of the transcript laid into its folder: nothing on
/// the machine's own drives is touched.
class WorldDisk : public PlacedFiles {
 public:
  explicit WorldDisk(const WorldFolder& worldFolder) : folder(worldFolder) {}

  /// Where a path of the system really lies.
  std::string HostPath(std::string_view path) const;

 private:
  std::string Placed(std::string_view path) const override { return HostPath(path); }

  const WorldFolder& folder;
};

/// The real registry of Windows. While it lives, this process finds an empty key of the user's in
/// place of the machine's own: nothing of the machine is read or changed, and nothing is left.
class WorldRegistry : public RegistryWin32 {
 public:
  WorldRegistry();
  ~WorldRegistry() override;
  WorldRegistry(const WorldRegistry&) = delete;
  WorldRegistry& operator=(const WorldRegistry&) = delete;

  void Set(std::string_view key, std::string_view name, const RegistryValue& value);
  void MakeKey(std::string_view key);
  void RemoveValue(std::string_view key, std::string_view name);
  void RemoveKey(std::string_view key);

 private:
  std::wstring place;
};

/// The real resource loader, with a user's language that can be chosen. A library that the
/// transcript has locked cannot be loaded.
class WorldLanguages : public LanguagesWin32 {
 public:
  WorldLanguages(const WorldFolder& worldFolder, FileStore& worldFiles, std::int32_t userLanguage)
      : defaultLanguage(userLanguage), folder(worldFolder), files(worldFiles) {}
  ~WorldLanguages() override;
  WorldLanguages(const WorldLanguages&) = delete;
  WorldLanguages& operator=(const WorldLanguages&) = delete;

  LibraryHandle LoadLibraryExW(std::string_view path, unsigned flags) override;
  void FreeLibrary(LibraryHandle library) override;
  std::int32_t GetUserDefaultLangID() override { return defaultLanguage; }
  std::optional<std::string> GetLocaleInfoA(std::int32_t language, int information) override;
  std::optional<std::string> VerLanguageNameA(std::int32_t language) override;

  std::int32_t defaultLanguage;

 private:
  const WorldFolder& folder;
  FileStore& files;
  std::set<LibraryHandle> loaded;
};

}  // namespace dialwright
