#include "platform/FileStoreWin32.h"

#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <sddl.h>

#include <functional>

#include "../support/FailureNumber.h"
#include "../support/TempFolder.h"
#include "platform/Win32Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

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

TEST_F(FileStoreWin32Test, HeldFilesAndOddPaths) {
  host.write("f/a.txt", "a");
  host.write("f/held.txt", "h");
  const Holder holder(wideAt("f/held.txt"), GENERIC_READ, 0);
  const std::string held = at("f/held.txt"), zero = at("f/a.txt") + std::string("\0x", 2);
  const std::pair<int, std::function<void()>> cases[] = {
      {70, [&] { store.read(held); }},
      {70, [&] { store.open(held, FileStore::Opening::truncate, true); }},
      {70, [&] { store.remove(held, true); }},
      {52, [&] { store.read(""); }},
      {52, [&] { store.read(zero); }},
      {52, [&] { store.read(at("f") + "\\a?.txt"); }},
  };
  for (const auto& row : cases)
    EXPECT_EQ(FailureNumber(row.second), row.first) << "in row " << &row - cases;
  EXPECT_NE(FailureNumber([&] { store.read(at("f") + "\\" + std::string(300, 'n')); }), 0);
  EXPECT_EQ(store.stamp(held), std::nullopt);
  for (const std::string& path : {std::string(), zero})
    EXPECT_EQ(store.kind(path), FileStore::Kind::none);
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
  host.write("f/a.txt", "old");
  const std::wstring path = wideAt("f/a.txt");
  const std::string usual = accessOf(path);
  PSECURITY_DESCRIPTOR everybody = nullptr;
  ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
      "D:P(A;;FA;;;WD)", SDDL_REVISION_1, &everybody, nullptr));
  ASSERT_TRUE(SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, everybody));
  LocalFree(everybody);
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const std::string access = accessOf(path);
  ASSERT_NE(access, usual);

  store.replace(at("f/A.txt"), "new text");

  EXPECT_EQ(host.read("f/a.txt"), "new text");
  EXPECT_EQ(GetFileAttributesW(path.c_str()), attributes);
  EXPECT_EQ(accessOf(path), access);
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
