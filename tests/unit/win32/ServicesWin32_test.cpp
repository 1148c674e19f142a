// The small services of Windows: what they add to the calls that they are named after.

#include <gtest/gtest.h>
#include <windows.h>

#include <tuple>

#include "../../support/FailureNumber.h"
#include "../../support/TempFolder.h"
#include "platform/win32/ProcessesWin32.h"
#include "platform/win32/RegistryWin32.h"
#include "text/win32/CodePage.h"

namespace dialwright {
namespace {

TEST(ProcessesWin32Test, StartsInTheFolderAndWaitsForNothing) {
  const TempFolder folder;
  folder.Write("a b/here", "");
  ProcessesWin32().Shell("cmd /c \"ping -n 3 127.0.0.1 >nul & echo. >out & ren out done\"",
                         WindowState::hidden, (folder / "a b").make_preferred().string());
  EXPECT_FALSE(std::filesystem::exists(folder / "a b/done"));
  for (int i = 0; i < 1000 && !std::filesystem::exists(folder / "a b/done"); ++i) Sleep(20);
  EXPECT_TRUE(std::filesystem::exists(folder / "a b/done"));
}

TEST(ProcessesWin32Test, Failures) {
  const TempFolder folder;
  const std::string place = (folder / ".").make_preferred().string();
  const std::tuple<int, std::string, std::string> cases[] = {
      {53, "no-such-program -classpath \"x\"", place},
      {5, " \t", place},
      {76, "cmd /c exit", place + "\\nowhere"},
  };
  for (const auto& [number, line, at] : cases) {
    const auto start = [&line = line, &at = at] {
      ProcessesWin32().Shell(line, WindowState::hidden, at);
    };
    EXPECT_EQ(FailureNumber(start), number) << line;
  }
}

TEST(RegistryWin32Test, KeysOf32BitProgramsAreFoundToo) {
  constexpr const char* path = "SOFTWARE\\Dialwright tests of 32 bits";
  HKEY made = nullptr;
  ASSERT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &made, nullptr),
            ERROR_SUCCESS);
  HKEY own = nullptr;
  EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &own), ERROR_FILE_NOT_FOUND);
  RegistryWin32 reader;
  RegistryKey key = RegistryKey::none;
  EXPECT_EQ(reader.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key), registrySuccess);
  EXPECT_EQ(reader.RegCloseKey(key), registrySuccess);
  RegCloseKey(made);
  RegDeleteKeyExA(HKEY_LOCAL_MACHINE, path, KEY_WOW64_32KEY, 0);
  EXPECT_EQ(reader.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key),
            registryNotFound);
}

TEST(CodePageWin32Test, OtherPagesThanTheUsualOne) {
  constexpr unsigned japanese = 932;
  const std::string keys = "\u30AD\u30FC a";
  const std::tuple<unsigned, std::string, std::string> cases[] = {
      {japanese, keys, "\x83\x4C\x81\x5B a"},
      {1250, "\u0105", "\xB9"},
      {CP_UTF8, keys, keys},
  };
  for (const auto& [page, utf8, bytes] : cases) {
    EXPECT_EQ(Utf8ToCodePage(page, utf8), bytes);
    EXPECT_EQ(CodePageToUtf8(page, bytes), utf8);
  }
  EXPECT_EQ(Utf8ToCodePage(japanese, "\u00E4"), "?");
}

}  // namespace
}  // namespace dialwright
