#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "../support/FailureNumber.h"
#include "platform/RegistryFile.h"
#include "server/MeridVersion.h"
#include "server/RegistryAPI.h"
#include "text/Ansi.h"
#include "transcript/World.h"

namespace dialwright {

using namespace std::string_literals;

using Value = std::pair<std::uint32_t, std::string>;  // type and bytes

static bool KeyExists(MemoryRegistry& registry, std::string_view path) {
  return bRegistryKeyExists(registry, RegistryKey::localMachine, path);
}

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
      {R"(@="the default")", "", {1, "the default\0"s}},
      {"\"lines\"=\"one\r\n@=-\\nthree\"", "lines", {1, "one\r\n@=-\nthree\0"s}},
      {"\"binary\"=hex:01,0a,\\\r\n  FF", "binary", {3, "\x01\x0A\xFF"}},
      {R"("none"=hex:)", "none", {3, ""}},
      {"\"umlaut\"=\"\xC3\xA4\xE2\x82\xAC\"", "umlaut", {1, "\xE4\x80\0"s}},
      {R"("type"=hex(b):01,00)", "type", {11, "\x01\0"s}},
  };
  std::string values = "\r\n; a comment\r\n[HKEY_LOCAL_MACHINE\\Software\\Quillon]\r\n";
  for (const auto& [line, name, value] : cases) values += line + "\r\n";
  const std::string version5 = "Windows Registry Editor Version 5.00\r\n" + values;
  for (const std::string& file : {"\xFF\xFE" + Utf8ToUtf16(version5), "\xEF\xBB\xBF" + version5,
                                  Utf8ToAnsi(version5), Utf8ToAnsi("REGEDIT4\r\n" + values)}) {
    MemoryRegistry registry;
    readRegistryFile(file, registry);
    for (const auto& [line, name, value] : cases)
      EXPECT_EQ(Query(registry, "SOFTWARE\\quillon\\", name), value) << name;
  }
}

TEST(RegistryFileTest, TextsInHexAreWideInVersion5Only) {
  MemoryRegistry registry;
  readRegistryFile(
      "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\\five]\n"
      "\"e\"=hex(2):25,00,ac,20,00,00\n\"m\"=hex(7):61,00,00,00,62,00,00,00,00,00\n"
      "\"b\"=hex(3):61,00",
      registry);
  readRegistryFile("REGEDIT4\n[HKEY_LOCAL_MACHINE\\four]\n\"e\"=hex(2):25,80,00\n", registry);
  EXPECT_EQ(Query(registry, "five", "e"), (Value{2, "%\x80\0"s}));
  EXPECT_EQ(Query(registry, "five", "m"), (Value{7, "a\0b\0\0"s}));
  EXPECT_EQ(Query(registry, "five", "b"), (Value{3, "a\0"s}));
  EXPECT_EQ(Query(registry, "four", "e"), (Value{2, "%\x80\0"s}));
}

TEST(RegistryFileTest, RemovalsAndWhatCannotBeUnderstood) {
  MemoryRegistry registry;
  readRegistryFile(
      "\"before any key\"=\"x\"\n[hkey_local_machine\\a]\n"
      "[HKEY_CURRENT_USER\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINEX\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINE\\no end\n\"v\"=\"1\"\n"
      "[hkey_local_machine\\a\\b]\n\"w\"=dword:2\n\"r\"=dword:1\n\"R\"=-\n"
      "\"d\"=dword:xyz\n\"d2\"=dword:\n\"d3\"=dword:123456789\n\"h\"=hex:1,zz\n\"h2\"=hex(:00\n"
      "\"h3\"=hex:100\n\"h4\"=hexx:00\n\"q\"=\"not closed\n\"ok\"=dword:1\n\"n\" \"v\"\n"
      "[HKEY_LOCAL_MACHINE\\x\\y]\n[HKEY_LOCAL_MACHINE\\xy]\n"
      "[-HKEY_LOCAL_MACHINE\\X]\n\"z\"=dword:1\n\"name\nrest",
      registry);
  for (const std::string_view name : {"r", "d", "d2", "d3", "h", "h2", "h3", "h4", "n", "name"})
    EXPECT_EQ(Query(registry, "a\\b", name), std::nullopt) << name;
  EXPECT_EQ(Query(registry, "a", "v"), std::nullopt);
  EXPECT_EQ(Query(registry, "a\\b", "w"), (Value{4, "\x02\0\0\0"s}));
  for (const std::string path : {"A\\B\\", "a", "xy"}) EXPECT_TRUE(KeyExists(registry, path));
  for (const std::string path : {"x", "x\\y", "no end", "\\a"})
    EXPECT_FALSE(KeyExists(registry, path));
}

struct RegistryTest : testing::Test {
  Printer printer;
  World world{printer};
};

TEST_F(RegistryTest, ReadsHexadecimalDigitsAsDecimalOnes) {
  const std::tuple<std::uint32_t, std::uint32_t, const char*> cases[] = {
      {0x00040002, 0x00000014, "4.2(0.20)"},     {0x000400A1, 0x00000010, "4.0(0.16)"},
      {0x00040010, 0x00040065, "4.10(4.101)"},   {0x00040002, 0x0000FFFF, "4.2(0.-1)"},
      {0x001A0000, 0x00008000, "1.0(0.-32768)"}, {0xFFFF9999, 0x99990000, "0.9999(9999.0)"},
  };
  for (const auto& [version, build, text] : cases) {
    const std::string key = "Software\\Quillon";
    world.registry.set(key, "Version Number", RegistryValue::doubleWord(version));
    world.registry.set(key, "Build Number", RegistryValue::doubleWord(build));
    EXPECT_EQ(world.program.server.getVersion().strVersion, text);
  }
}

TEST_F(RegistryTest, RegistryValuesOfOddSizes) {
  const auto read = [this](std::int16_t type, RegistryValue value) {
    world.registry.set("SOFTWARE\\X", "v", std::move(value));
    return GetRegistryValue(world.registry, RegistryKey::localMachine, "SOFTWARE\\X", "v", type,
                            std::string("default"));
  };
  const std::string longest(1023, 'a');
  const auto text = [](const RegistryResult& result) { return std::get<std::string>(result); };
  EXPECT_EQ(text(read(registryString, {1, longest + 'a'})), longest);
  EXPECT_EQ(text(read(registryString, {1, longest + "aa"})), "default");
  EXPECT_EQ(text(read(registryString, {1, "a"})), "");
  EXPECT_EQ(FailureNumber([&] { read(registryString, {1, ""}); }), 5);
  EXPECT_EQ(text(read(registryDoubleWord, {3, "abcde"})), "default");
  EXPECT_EQ(std::get<std::vector<std::byte>>(read(registryBinary, {3, "abcde"})).size(), 5U);
  EXPECT_EQ(FailureNumber([&] { read(2, {3, "abcde"}); }), 1001);

  RegistryKey key = RegistryKey::none;
  world.registry.RegOpenKeyExA(RegistryKey::localMachine, "SOFTWARE\\X\\", 0, 131097, key);
  std::uint32_t type = 0, size = 0;
  EXPECT_EQ(world.registry.RegQueryValueExA(key, "V", type, {}, size), registryMoreData);
  world.registry.RegCloseKey(key);
}

}  // namespace dialwright
