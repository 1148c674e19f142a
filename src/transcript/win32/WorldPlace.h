#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/standins/RegistryFile.h"
#include "platform/win32/FileStoreWin32.h"
#include "platform/win32/LanguagesWin32.h"
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
class WorldDisk : public FileStore {
 public:
  explicit WorldDisk(const WorldFolder& worldFolder) : folder(worldFolder) {}

  Kind KindOf(std::string_view path) override { return files.KindOf(HostPath(path)); }
  std::optional<FileStamp> Stamp(std::string_view path) override {
    return files.Stamp(HostPath(path));
  }
  std::vector<std::string> FileNames(std::string_view path) override {
    return files.FileNames(HostPath(path));
  }
  std::string Read(std::string_view path) override { return files.Read(HostPath(path)); }
  std::unique_ptr<OutputFile> Open(std::string_view path, Opening opening, bool create) override {
    return files.Open(HostPath(path), opening, create);
  }
  void Replace(std::string_view path, std::string_view bytes) override {
    files.Replace(HostPath(path), bytes);
  }
  void Copy(std::string_view from, std::string_view to, bool overwrite) override {
    files.Copy(HostPath(from), HostPath(to), overwrite);
  }
  void Remove(std::string_view path, bool force) override { files.Remove(HostPath(path), force); }
  void CreateFolder(std::string_view path) override { files.CreateFolder(HostPath(path)); }
  std::string RealPath(std::string_view path) override { return HostPath(path); }
  bool IsWritable(std::string_view path) override { return files.IsWritable(HostPath(path)); }
  std::unique_ptr<FolderLock> Lock(std::string_view path,
                                   std::chrono::milliseconds patience) override {
    return files.Lock(HostPath(path), patience);
  }
  void RemoveLeftovers(std::string_view path) override { files.RemoveLeftovers(HostPath(path)); }

  /// Where a path of the system really lies.
  std::string HostPath(std::string_view path) const;

 private:
  const WorldFolder& folder;
  FileStoreWin32 files;
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
