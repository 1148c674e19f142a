#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "../support/FailureNumber.h"
#include "platform/standins/RegistryFile.h"
#include "server/MeridVersion.h"
#include "server/RegistryAPI.h"
#include "text/Ansi.h"
#include "transcript/World.h"

namespace dialwright {

using namespace std::string_literals;

using Value = std::pair<std::uint32_t, std::string>;  // type and bytes

static std::optional<Value> Query(MemoryRegistry& registry, std::string_view path,
                                  std::string_view name) {
  RegistryKey key = RegistryKey::none;
  registry.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 0, key);
  std::array<std::byte, 64> buffer{};
  Value value;
  std::uint32_t size = 0;
  if (registry.RegQueryValueExA(key, name, value.first, buffer, size) != registrySuccess) return {};
  value.second.assign(reinterpret_cast<const char*>(buffer.data()), size);
  return value;
}

TEST(RegistryFileTest, ValuesInEveryEncoding) {
  const std::tuple<std::string, std::string, Value> cases[] = {
      {R"("Version Number"=dword:00040002)", "version NUMBER", {4, "\x02\0\x04\0"s}},
      {R"("Root Path"="C:\\Telhost\\")", "Root Path", {1, "C:\\Telhost\\\0"s}},
      {R"(  "\"name\"" = "a \"b\" ; c"  )", "\"name\"", {1, "a \"b\" ; c\0"s}},
      {"\"lines\"=\"one\r\n@=-\\nthree\"", "lines", {1, "one\r\n@=-\nthree\0"s}},
      {"\"binary\"=hex:01,00,\\\r\n  FF", "binary", {3, "\x01\0\xFF"s}},
      {"\"umlaut\"=\"\xC3\xA4\xE2\x82\xAC\"", "umlaut", {1, "\xE4\x80\0"s}},
  };
  std::string values = "\r\n; a comment\r\n[HKEY_LOCAL_MACHINE\\Software\\Quillon]\r\n";
  for (const auto& [line, name, value] : cases) values += line + "\r\n";
  const std::string version5 = "Windows Registry Editor Version 5.00\r\n" + values;
  for (const std::string& file :
       {"\xFF\xFE" + Utf8ToUtf16(version5), "\xEF\xBB\xBF" + version5, version5,
        Utf8ToAnsi(version5), Utf8ToAnsi("REGEDIT4\r\n" + values)}) {
    MemoryRegistry registry;
    ReadRegistryFile(file, registry);
    for (const auto& [line, name, value] : cases)
      EXPECT_EQ(Query(registry, "SOFTWARE\\quillon\\", name), value) << name;
  }
}

TEST(RegistryFileTest, TextsInHexAreWideInVersion5Only) {
  const std::string key = "[HKEY_LOCAL_MACHINE\\k]\n\"e\"=hex(2):";
  MemoryRegistry registry;
  ReadRegistryFile("REGEDIT4\n" + key + "25,80,00\n", registry);
  EXPECT_EQ(Query(registry, "k", "e"), (Value{2, "%\x80\0"s}));
  ReadRegistryFile("Windows Registry Editor Version 5.00\n" + key + "26,00,ac,20,00,00", registry);
  EXPECT_EQ(Query(registry, "k", "e"), (Value{2, "&\x80\0"s}));
}

TEST(RegistryFileTest, RemovalsAndWhatCannotBeUnderstood) {
  MemoryRegistry registry;
  ReadRegistryFile(
      "\"before any key\"=\"x\"\n[HKEY_CURRENT_USER\\a\\b]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINE\\no end\n\"v\"=\"1\"\n[hkey_local_machine\\a\\b]\n\"w\"=dword:2\n"
      "\"r\"=dword:1\n\"R\"=-\n\"d\"=dword:xyz\n\"h\"=hex:1,zz\n\"q\"=\"not closed\n\"ok\"=1\n"
      "[HKEY_LOCAL_MACHINE\\x\\y]\n[HKEY_LOCAL_MACHINE\\xy]\n"
      "[-HKEY_LOCAL_MACHINE\\X]\n\"z\"=dword:1\n\"name\nrest",
      registry);
  for (const std::string_view name : {"r", "d", "h", "name", "v"})
    EXPECT_EQ(Query(registry, "a\\b", name), std::nullopt) << name;
  EXPECT_EQ(Query(registry, "a\\b", "w"), (Value{4, "\x02\0\0\0"s}));
  const auto exists = [&](std::string_view path) {
    return bRegistryKeyExists(registry, RegistryKey::localMachine, path);
  };
  EXPECT_TRUE(exists("A\\B\\") && exists("a") && exists("xy"));
  EXPECT_FALSE(exists("x") || exists("x\\y") || exists("no end"));
}

TEST(RegistryTest, VersionsReadHexadecimalDigitsAsDecimalOnes) {
  Printer printer;
  World world(printer);
  const std::tuple<std::uint32_t, std::uint32_t, const char*> cases[] = {
      {0x00040002, 0x00000014, "4.2(0.20)"},
      {0x00040010, 0x00040065, "4.10(4.101)"},
      {0x000400A1, 0x0000FFFF, "4.0(0.-1)"},
  };
  for (const auto& [version, build, text] : cases) {
    const std::string key = "Software\\Quillon";
    world.registry.Set(key, "Version Number", RegistryValue::DoubleWord(version));
    world.registry.Set(key, "Build Number", RegistryValue::DoubleWord(build));
    EXPECT_EQ(world.program.server.getVersion().strVersion, text);
  }
}

TEST(RegistryTest, ValuesOfOddSizes) {
  MemoryRegistry registry;
  const RegistryResult usual = std::string("default");
  const auto read = [&](std::int16_t type, RegistryValue value) {
    registry.Set("SOFTWARE\\X", "v", std::move(value));
    return GetRegistryValue(registry, RegistryKey::localMachine, "SOFTWARE\\X", "v", type, usual);
  };
  EXPECT_EQ(read(registryString, {1, std::string(1025, 'a')}), usual);
  EXPECT_EQ(FailureNumber([&] { read(registryString, {1, ""}); }), 5);
  EXPECT_EQ(read(registryDoubleWord, {3, "abcde"}), usual);
}

}  // namespace dialwright
