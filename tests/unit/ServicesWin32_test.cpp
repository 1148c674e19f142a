// The small services of Windows: what they add to the calls that they are named after.

#include <gtest/gtest.h>
#include <windows.h>

#include <tuple>

#include "../support/FailureNumber.h"
#include "../support/TempFolder.h"
#include "platform/HelpViewerWin32.h"
#include "platform/LanguagesWin32.h"
#include "platform/ProcessesWin32.h"
#include "platform/RegistryWin32.h"
#include "platform/Win32Text.h"
#include "text/CodePageWin32.h"

namespace dialwright {
namespace {

bool AppearsWithin(const std::filesystem::path& file, int milliseconds) {
  for (; milliseconds > 0 && !std::filesystem::exists(file); milliseconds -= 20) Sleep(20);
  return std::filesystem::exists(file);
}

TEST(ProcessesWin32Test, StartsInTheFolderAndWaitsForNothing) {
  ProcessesWin32 processes;
  const std::pair<WindowState, const char*> cases[] = {{WindowState::hidden, "0"},
                                                       {WindowState::minimizedFocus, "2"}};
  for (const auto& [state, told] : cases) {
    const TempFolder folder;
    folder.write("a b/here", "");
    processes.Shell("\"" DIALWRIGHT_STARTED_PROGRAM "\" 1 2", state,
                    (folder / "a b").make_preferred().string());
    ASSERT_TRUE(AppearsWithin(folder / "a b/state", 20'000));
    EXPECT_EQ(folder.read("a b/state"), told);
  }
  const ULONGLONG start = GetTickCount64();
  processes.Shell("cmd /c ping -n 3 127.0.0.1 >nul", WindowState::hidden, "");
  EXPECT_LT(GetTickCount64() - start, 1'500u);
}

TEST(ProcessesWin32Test, Failures) {
  const TempFolder folder;
  folder.write("text.exe", "no program");
  const std::string place = (folder / ".").make_preferred().string();
  const std::tuple<int, std::string, std::string> cases[] = {
      {53, "no-such-program -classpath \"x\"", place},
      {5, "\"" + place + "\\text.exe\"", place},
      {5, "", place},
      {5, " \t", place},
      {76, "cmd /c exit", place + "\\nowhere"},
  };
  ProcessesWin32 processes;
  for (const auto& row : cases) {
    const auto start = [&] {
      processes.Shell(std::get<1>(row), WindowState::hidden, std::get<2>(row));
    };
    EXPECT_EQ(FailureNumber(start), std::get<0>(row)) << std::get<1>(row);
  }
}

/// A key of the machine's own among those of 32-bit programs, gone with the test.
struct KeyOf32BitPrograms {
  static constexpr const char* path = "SOFTWARE\\Dialwright tests of 32 bits";
  KeyOf32BitPrograms() {
    HKEY key = nullptr;
    RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_VOLATILE,
                    KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key, nullptr);
    RegCloseKey(key);
  }
  ~KeyOf32BitPrograms() { RegDeleteKeyExA(HKEY_LOCAL_MACHINE, path, KEY_WOW64_32KEY, 0); }
};

TEST(RegistryWin32Test, KeysOf32BitProgramsAreFoundToo) {
  const KeyOf32BitPrograms made;
  HKEY own = nullptr;
  ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, made.path, 0, KEY_READ, &own), ERROR_FILE_NOT_FOUND);
  RegistryWin32 reader;
  RegistryKey key = RegistryKey::none;
  EXPECT_EQ(reader.RegOpenKeyExA(RegistryKey::localMachine, made.path, 0, 131097, key),
            registrySuccess);
  EXPECT_EQ(reader.RegCloseKey(key), registrySuccess);
  EXPECT_EQ(reader.RegOpenKeyExA(RegistryKey::localMachine, "SOFTWARE\\None", 0, 131097, key),
            registryNotFound);
}

TEST(CodePageWin32Test, OtherPagesThanTheUsualOne) {
  constexpr unsigned japanese = 932;
  const std::string keys = "\u30AD\u30FC a";
  const std::tuple<unsigned, std::string, std::string> cases[] = {
      {japanese, keys, "\x83\x4C\x81\x5B a"},
      {japanese, "", ""},
      {1250, "\u0105", "\xB9"},
      {CP_UTF8, keys, keys},
  };
  for (const auto& [page, utf8, bytes] : cases) {
    EXPECT_EQ(Utf8ToCodePage(page, utf8), bytes);
    EXPECT_EQ(CodePageToUtf8(page, bytes), utf8);
  }
  EXPECT_EQ(Utf8ToCodePage(japanese, "\u00E4"), "?");
}

TEST(LanguagesWin32Test, WhatIsNotThere) {
  LanguagesWin32 languages;
  EXPECT_EQ(languages.LoadLibraryExW("C:\\nowhere\\x_DEU.dll", 3), 0);
  EXPECT_EQ(languages.LoadLibraryExW("", 3), 0);
  EXPECT_EQ(languages.LoadStringW(0, 1, 100), "");
  EXPECT_EQ(languages.GetLocaleInfoA(33801, 3), std::nullopt);
  EXPECT_EQ(languages.VerLanguageNameA(33801), std::nullopt);
  EXPECT_FALSE(languages.VerLanguageNameA(1031).value_or("").empty());
  languages.FreeLibrary(0);
}

TEST(HelpViewerWin32Test, WindowsAreTold) {
  HelpViewerWin32 viewer;
  EXPECT_FALSE(viewer.IsWindow(0));
  EXPECT_FALSE(viewer.IsWindow(0x7FFFFFF0));
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  const auto handle = reinterpret_cast<WindowHandle>(window);
  EXPECT_TRUE(viewer.IsWindow(handle));
  viewer.SendMessageA(handle, WM_CLOSE, 0, 0);
  EXPECT_FALSE(viewer.IsWindow(handle));
}

}  // namespace
}  // namespace dialwright
