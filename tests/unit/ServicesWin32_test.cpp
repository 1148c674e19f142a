// The small services of Windows: what they add to the calls that they are named after.

#include <gtest/gtest.h>
#include <windows.h>

#include "../support/TempFolder.h"
#include "platform/ClockWin32.h"
#include "platform/Failure.h"
#include "platform/HelpViewerWin32.h"
#include "platform/LanguagesWin32.h"
#include "platform/ProcessesWin32.h"
#include "platform/RegistryWin32.h"
#include "platform/Win32Text.h"
#include "transcript/World.h"
#include "text/CodePageWin32.h"

namespace dialwright {
namespace {

int FailureOf(std::string_view line, std::string_view folder) {
  ProcessesWin32 processes;
  try {
    processes.Shell(line, WindowState::hidden, folder);
  } catch (const RuntimeFailure& failure) {
    return failure.number;
  }
  return 0;
}

bool AppearsWithin(const std::filesystem::path& file, int milliseconds) {
  for (; milliseconds > 0 && !std::filesystem::exists(file); milliseconds -= 20) Sleep(20);
  return std::filesystem::exists(file);
}

TEST(ProcessesWin32Test, StartsInTheFolderAndWaitsForNothing) {
  const TempFolder folder;
  std::filesystem::create_directories(folder / "a b");
  const std::string place = (folder / "a b").make_preferred().string();
  EXPECT_EQ(FailureOf("cmd /c echo started>mark.txt", place), 0);
  EXPECT_TRUE(AppearsWithin(folder / "a b/mark.txt", 20'000));

  const ULONGLONG start = GetTickCount64();
  EXPECT_EQ(FailureOf("cmd /c ping -n 3 127.0.0.1 >nul & echo late>late.txt", place), 0);
  EXPECT_LT(GetTickCount64() - start, 1'500u);
}

TEST(ProcessesWin32Test, TellsTheWindowState) {
  const std::string line = "\"" DIALWRIGHT_STARTED_PROGRAM "\" 1 2";
  const std::pair<WindowState, const char*> cases[] = {{WindowState::hidden, "0"},
                                                       {WindowState::minimizedFocus, "2"}};
  for (const auto& [state, told] : cases) {
    const TempFolder folder;
    ProcessesWin32 processes;
    processes.Shell(line, state, folder.path.string());
    ASSERT_TRUE(AppearsWithin(folder / "state", 20'000));
    EXPECT_EQ(folder.read("state"), told);
  }
}

TEST(ProcessesWin32Test, Failures) {
  const TempFolder folder;
  folder.write("text.exe", "no program");
  const std::string place = folder.path.string();
  EXPECT_EQ(FailureOf("no-such-program -classpath \"x\"", place), 53);
  EXPECT_EQ(FailureOf("\"" + (folder / "text.exe").make_preferred().string() + "\"", place), 5);
  EXPECT_EQ(FailureOf("", place), 5);
  EXPECT_EQ(FailureOf(" \t", place), 5);
  EXPECT_EQ(FailureOf("cmd /c exit", (folder / "nowhere").make_preferred().string()), 76);
}

TEST(ClockWin32Test, NowAndTheZone) {
  ClockWin32 clock;
  const auto now = clock.SystemTimeToFileTime(clock.Now());
  ASSERT_TRUE(now);
  FILETIME utc{};
  GetSystemTimeAsFileTime(&utc);
  const FileTime expected = FileTime{utc.dwHighDateTime} << 32 | utc.dwLowDateTime;
  const auto converted = clock.LocalFileTimeToFileTime(*now);
  ASSERT_TRUE(converted);
  constexpr FileTime second = 10'000'000;
  EXPECT_LT(expected > *converted ? expected - *converted : *converted - expected, 5 * second);
  EXPECT_EQ(clock.SystemTimeToFileTime({-1, 1, 1, 0, 0, 0, 0}), std::nullopt);
  EXPECT_EQ(clock.SystemTimeToFileTime({70'000, 1, 1, 0, 0, 0, 0}), std::nullopt);
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

TEST(RegistryWin32Test, BuffersThatAreTooSmall) {
  WorldRegistry registry;
  registry.set("SOFTWARE\\X", "v", {1, std::string("abc\0", 4)});
  RegistryKey key = RegistryKey::none;
  ASSERT_EQ(registry.RegOpenKeyExA(RegistryKey::localMachine, "SOFTWARE\\X\\", 0, 131097, key),
            registrySuccess);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  std::byte buffer[4] = {};
  EXPECT_EQ(registry.RegQueryValueExA(key, "V", type, buffer, size), registrySuccess);
  EXPECT_EQ(size, 4u);
  EXPECT_EQ(registry.RegQueryValueExA(key, "v", type, std::span(buffer).first(3), size),
            registryMoreData);
  EXPECT_EQ(registry.RegQueryValueExA(key, "v", type, {}, size), registryMoreData);
  EXPECT_EQ(registry.RegQueryValueExA(key, "w", type, buffer, size), registryNotFound);
  registry.RegCloseKey(key);
}

TEST(CodePageWin32Test, OtherPagesThanTheUsualOne) {
  constexpr unsigned japanese = 932;
  constexpr unsigned central = 1250;
  const std::string keys = "\u30AD\u30FC a";
  EXPECT_EQ(Utf8ToCodePage(japanese, keys), "\x83\x4C\x81\x5B a");
  EXPECT_EQ(CodePageToUtf8(japanese, "\x83\x4C\x81\x5B a"), keys);
  EXPECT_EQ(Utf8ToCodePage(japanese, "\u00E4"), "?");
  EXPECT_EQ(CodePageToUtf8(central, "\xB9"), "\u0105");
  EXPECT_EQ(Utf8ToCodePage(CP_UTF8, keys), keys);
  EXPECT_EQ(CodePageToUtf8(CP_UTF8, keys), keys);
  EXPECT_EQ(CodePageToUtf8(japanese, ""), "");
  EXPECT_EQ(Utf8ToCodePage(japanese, ""), "");
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
