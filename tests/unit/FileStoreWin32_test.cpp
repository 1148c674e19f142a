#include "platform/FileStoreWin32.h"

#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <aclapi.h>

#include <memory>

#include "../support/TempFolder.h"
#include "platform/Failure.h"
#include "platform/Win32Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

template <typename Action>
int FailureNumber(Action action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    return failure.number;
  }
  return 0;
}

class FileStoreWin32Test : public testing::Test {
 protected:
  TempFolder host;
  FileStoreWin32 store;

  std::string at(std::string_view name) const { return (host / name).make_preferred().string(); }
  std::wstring wideAt(std::string_view name) const { return WideText(at(name)); }
  std::size_t filesIn(std::string_view folder) const {
    const fs::directory_iterator entries(host / folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }
};

/// Another program's hold on a file.
class Holder {
 public:
  Holder(const std::wstring& path, DWORD access, DWORD sharing)
      : handle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(handle, INVALID_HANDLE_VALUE);
  }
  ~Holder() { CloseHandle(handle); }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

 private:
  HANDLE handle;
};

TEST_F(FileStoreWin32Test, KindsStampsAndNames) {
  host.write("f/b.txt", "12345");
  host.write("f/A.txt", "");
  host.write("f/c/d.txt", "");
  EXPECT_EQ(store.kind(at("F/B.TXT")), FileStore::Kind::file);
  EXPECT_EQ(store.kind(at("f") + "\\"), FileStore::Kind::folder);
  EXPECT_EQ(store.kind(at("f/b.txt/c")), FileStore::Kind::none);
  EXPECT_EQ(store.kind(""), FileStore::Kind::none);
  EXPECT_EQ(store.kind(at("f/b.txt") + std::string("\0x", 2)), FileStore::Kind::none);
  EXPECT_EQ(store.fileNames(at("f")), (std::vector<std::string>{"A.txt", "b.txt"}));
  EXPECT_EQ(store.fileNames(at("f") + "\\"), (std::vector<std::string>{"A.txt", "b.txt"}));

  const std::optional<FileStamp> before = store.stamp(at("f/b.txt"));
  ASSERT_TRUE(before);
  EXPECT_EQ(before->size, 5u);
  EXPECT_EQ(store.stamp(at("f/B.txt")), before);
  Sleep(20);
  host.write("f/b.txt", "54321");
  EXPECT_NE(store.stamp(at("f/b.txt")), before);
  EXPECT_EQ(store.stamp(at("f")), std::nullopt);
}

TEST_F(FileStoreWin32Test, ReadingAndWriting) {
  fs::create_directories(host / "f");
  const std::string bytes = std::string("a\0\r\n\xFF", 5) + std::string(100'000, 'x');
  const auto write = [&](FileStore::Opening opening, std::string_view text) {
    const auto file = store.open(at("F/new.bin"), opening, true);
    file->write(text);
    file->close();
  };
  write(FileStore::Opening::truncate, "old text");
  write(FileStore::Opening::truncate, bytes);
  EXPECT_EQ(store.read(at("f/NEW.BIN")), bytes);
  write(FileStore::Opening::append, "more");
  EXPECT_EQ(host.read("f/new.bin"), bytes + "more");
}

TEST_F(FileStoreWin32Test, FailuresAreTheClassicOnes) {
  host.write("f/a.txt", "a");
  host.write("f/locked.txt", "l");
  host.write("f/held.txt", "h");
  SetFileAttributesW(wideAt("f/locked.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  const Holder holder(wideAt("f/held.txt"), GENERIC_READ, 0);
  const std::string longName = at("f") + "\\" + std::string(300, 'n');
  const auto open = [&](std::string_view path, bool create) {
    store.open(path, FileStore::Opening::truncate, create);
  };
  EXPECT_EQ(FailureNumber([&] { store.read(at("f/b.txt")); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.read(at("g/b.txt")); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.read(at("f")); }), 75);
  EXPECT_EQ(FailureNumber([&] { store.read(at("f/held.txt")); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.read(""); }), 52);
  EXPECT_EQ(FailureNumber([&] { store.read(at("f/a.txt") + std::string(1, '\0')); }), 52);
  EXPECT_EQ(FailureNumber([&] { store.read(at("f") + "\\a?.txt"); }), 52);
  EXPECT_NE(FailureNumber([&] { store.read(longName); }), 0);
  EXPECT_EQ(FailureNumber([&] { open(at("f/b.txt"), false); }), 53);
  EXPECT_EQ(FailureNumber([&] { open(at("g/b.txt"), true); }), 76);
  EXPECT_EQ(FailureNumber([&] { open(at("f"), true); }), 75);
  EXPECT_EQ(FailureNumber([&] { open(at("f/locked.txt"), true); }), 70);
  EXPECT_EQ(FailureNumber([&] { open(at("f/held.txt"), true); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.replace(at("f/locked.txt"), "x"); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.replace(at("f/held.txt"), "x"); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.replace(at("f/b.txt"), "x"); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.replace(at("f"), "x"); }), 75);
  EXPECT_EQ(FailureNumber([&] { store.copy(at("f/a.txt"), at("f/locked.txt"), true); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.copy(at("f/a.txt"), at("f/A.TXT"), false); }), 58);
  EXPECT_EQ(FailureNumber([&] { store.copy(at("f/b.txt"), at("f/c.txt"), true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.copy(at("f/a.txt"), at("g/c.txt"), true); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.remove(at("f/b.txt"), true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.remove(at("f"), true); }), 53);
  EXPECT_EQ(FailureNumber([&] { store.remove(at("f/locked.txt"), false); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.remove(at("f/held.txt"), true); }), 70);
  EXPECT_EQ(FailureNumber([&] { store.createFolder(at("F")); }), 58);
  EXPECT_EQ(FailureNumber([&] { store.createFolder(at("g/h")); }), 76);
  EXPECT_EQ(FailureNumber([&] { store.fileNames(at("g")); }), 76);
  EXPECT_EQ(store.stamp(at("f/held.txt")), std::nullopt);
  EXPECT_EQ(host.read("f/locked.txt"), "l");
  EXPECT_EQ(filesIn("f"), 3u) << "a failure left something behind";

  store.remove(at("f/LOCKED.txt"), true);
  store.createFolder(at("F/g"));
  EXPECT_FALSE(fs::exists(host / "f/locked.txt"));
  EXPECT_TRUE(fs::is_directory(host / "f/g"));
}

TEST_F(FileStoreWin32Test, PathsLongerThanTheOldLimit) {
  std::string path = host.path.make_preferred().string();
  for (int i = 0; i < 4; ++i) {
    path += "\\" + std::string(100, static_cast<char>('a' + i));
    store.createFolder(path);
  }
  const std::string file = path + "/.\\x\\..\\a.txt";
  store.open(path + "\\a.txt", FileStore::Opening::truncate, true)->write("old");
  store.replace(file, "new");
  store.copy(file, path + "\\b.txt", false);
  EXPECT_EQ(store.read(path + "\\b.txt"), "new");
  EXPECT_EQ(store.fileNames(path), (std::vector<std::string>{"a.txt", "b.txt"}));
  store.remove(path + "\\b.txt", false);
  EXPECT_EQ(store.kind(path + "\\b.txt"), FileStore::Kind::none);
  store.remove(file, false);
}

/// The rights of everybody in a file's access list, 0 where it has none for them.
struct EverybodysRights {
  explicit EverybodysRights(const std::wstring& path) : name(path) {
    DWORD size = sizeof everybody;
    CreateWellKnownSid(WinWorldSid, nullptr, everybody, &size);
  }

  void grant(DWORD rights) {
    EXPLICIT_ACCESSW access{};
    access.grfAccessPermissions = rights;
    access.grfAccessMode = SET_ACCESS;
    access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    access.Trustee.ptstrName = reinterpret_cast<LPWSTR>(everybody);
    PACL list = nullptr;
    ASSERT_EQ(SetEntriesInAclW(1, &access, nullptr, &list), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                    DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                    nullptr, nullptr, list, nullptr),
              DWORD{ERROR_SUCCESS});
    LocalFree(list);
  }

  DWORD granted() {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                          &list, nullptr, &descriptor);
    DWORD rights = 0;
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
      void* entry = nullptr;
      GetAce(list, i, &entry);
      auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
      if (allowed->Header.AceType == ACCESS_ALLOWED_ACE_TYPE &&
          EqualSid(&allowed->SidStart, everybody))
        rights |= allowed->Mask;
    }
    LocalFree(descriptor);
    return rights;
  }

  std::wstring name;
  BYTE everybody[SECURITY_MAX_SID_SIZE] = {};
};

TEST_F(FileStoreWin32Test, ReplacingKeepsAttributesAndAccess) {
  host.write("f/a.txt", "old");
  const std::wstring path = wideAt("f/a.txt");
  EverybodysRights rights(path);
  rights.grant(GENERIC_ALL);
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const DWORD granted = rights.granted();
  ASSERT_NE(granted, 0u);

  store.replace(at("f/A.txt"), "new text");

  EXPECT_EQ(host.read("f/a.txt"), "new text");
  EXPECT_EQ(GetFileAttributesW(path.c_str()), attributes);
  EXPECT_EQ(rights.granted(), granted);
  EXPECT_EQ(filesIn("f"), 1u);
}

TEST_F(FileStoreWin32Test, ReplacingWhatAnotherProgramHoldsOpen) {
  constexpr DWORD readAndWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;
  struct {
    const char* what;
    DWORD access;
    DWORD sharing;
    int failure;
  } const cases[] = {
      {"lets it be renamed", GENERIC_READ, readAndWrite | FILE_SHARE_DELETE, 0},
      {"lets it be written only", GENERIC_READ, readAndWrite, 0},
      {"writes itself", GENERIC_READ | GENERIC_WRITE, readAndWrite, 0},
      {"lets nobody write", GENERIC_READ, FILE_SHARE_READ, 70},
      {"keeps it to itself", GENERIC_READ, 0, 70},
  };
  for (const auto& c : cases) {
    host.write("f/a.txt", "old");
    {
      const Holder holder(wideAt("f/a.txt"), c.access, c.sharing);
      EXPECT_EQ(FailureNumber([&] { store.replace(at("f/a.txt"), "new text"); }), c.failure)
          << c.what;
    }
    EXPECT_EQ(host.read("f/a.txt"), c.failure == 0 ? "new text" : "old") << c.what;
    EXPECT_EQ(filesIn("f"), 1u) << c.what;
  }
}

}  // namespace
}  // namespace dialwright
