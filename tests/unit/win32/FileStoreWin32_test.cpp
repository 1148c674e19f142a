#include "platform/win32/FileStoreWin32.h"

#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <sddl.h>

#include <tuple>

#include "../../support/FailureNumber.h"
#include "../../support/TempFolder.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

struct FileStoreWin32Test : testing::Test {
  TempFolder host;
  FileStoreWin32 store;

  std::string At(std::string_view name) const { return (host / name).make_preferred().string(); }
  std::wstring WideAt(std::string_view name) const { return WideText(At(name)); }
};

TEST_F(FileStoreWin32Test, PathsLongerThanTheOldLimit) {
  std::string path = host.path.make_preferred().string();
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    path += "\\" + std::string(100, letter);
    store.CreateFolder(path);
  }
  const std::string file = path + "/.\\x\\..\\a.txt", copy = path + "\\b.txt";
  store.Open(path + "\\a.txt", FileStore::Opening::truncate, true)->Write("old");
  store.Replace(file, "new");
  store.Copy(file, copy, false);
  EXPECT_EQ(store.Read(copy), "new");
  for (const std::string& made : {file, copy}) store.Remove(made, false);
  EXPECT_TRUE(store.FileNames(path).empty());
}

/// The access list of a file, as text.
std::string accessOf(const std::wstring& path) {
  BYTE descriptor[4096];
  DWORD size = 0;
  LPSTR text = nullptr;
  EXPECT_TRUE(GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor,
                               sizeof descriptor, &size));
  EXPECT_TRUE(ConvertSecurityDescriptorToStringSecurityDescriptorA(
      descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr));
  const std::string access = text;
  LocalFree(text);
  return access;
}

TEST_F(FileStoreWin32Test, ReplacingKeepsAttributesAndAccess) {
  // The folder hands on to new files what the script itself does not allow.
  for (const auto& [name, access] : {std::pair("f", "D:P(A;OICI;FA;;;WD)"),
                                     std::pair("f/a.txt", "D:(A;;FA;;;OW)(A;;FA;;;BA)")}) {
    host.Write("f/a.txt", "old");
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(access, SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    ASSERT_TRUE(SetFileSecurityW(WideAt(name).c_str(), DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
  }
  const std::wstring path = WideAt("f/a.txt");
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const std::string access = accessOf(path);
  ASSERT_EQ(access.find("WD)"), std::string::npos) << access;
  store.Replace(At("f/A.txt"), "new text");
  EXPECT_EQ(host.Read("f/a.txt"), "new text");
  EXPECT_EQ(GetFileAttributesW(path.c_str()), attributes);
  EXPECT_EQ(accessOf(path), access);
}

TEST_F(FileStoreWin32Test, ReplacingWhatAnotherProgramHoldsOpen) {
  constexpr DWORD readAndWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;
  const std::tuple<const char*, DWORD, int> cases[] = {
      {"lets it be renamed", readAndWrite | FILE_SHARE_DELETE, 0},
      {"lets it be written only", readAndWrite, 0},
      {"lets nobody write", FILE_SHARE_READ, 70},
      {"keeps it to itself", 0, 70},
  };
  for (const auto& [what, sharing, number] : cases) {
    SCOPED_TRACE(what);
    host.Write("f/a.txt", "old");
    const HANDLE holder = CreateFileW(WideAt("f/a.txt").c_str(), GENERIC_READ, sharing, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    EXPECT_EQ(FailureNumber([&] { store.Replace(At("f/a.txt"), "new text"); }), number);
    EXPECT_EQ(FailureNumber([&] { store.Read(At("f/a.txt")); }), sharing == 0 ? 70 : 0);
    CloseHandle(holder);
    EXPECT_EQ(host.Read("f/a.txt"), number == 0 ? "new text" : "old");
    const fs::directory_iterator entries(host / "f");
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
  }
}

}  // namespace
}  // namespace dialwright
