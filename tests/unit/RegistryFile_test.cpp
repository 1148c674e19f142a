#include "platform/RegistryFile.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "server/RegistryAPI.h"
#include "text/Ansi.h"

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

TEST(RegistryFileTest, WhatCannotBeUnderstoodIsPassedOver) {
  MemoryRegistry registry;
  readRegistryFile(
      "\"before any key\"=\"x\"\n[hkey_local_machine\\a]\n"
      "[HKEY_CURRENT_USER\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINEX\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINE\\no end\n\"v\"=\"1\"\n"
      "[hkey_local_machine\\a]\n"
      "\"d\"=dword:xyz\n\"d2\"=dword:\n\"d3\"=dword:123456789\n\"h\"=hex:1,zz\n\"h2\"=hex(:00\n"
      "\"h3\"=hex:100\n\"h4\"=hexx:00\n\"q\"=\"not closed\n\"ok\"=dword:1\n\"n\" \"v\"\n"
      "\"name\nrest",
      registry);
  for (const std::string_view name : {"d", "d2", "d3", "h", "h2", "h3", "h4", "n", "name", "v"})
    EXPECT_EQ(Query(registry, "a", name), std::nullopt) << name;
  EXPECT_FALSE(KeyExists(registry, "no end"));
  EXPECT_FALSE(KeyExists(registry, "\\a"));
}

TEST(RegistryFileTest, RemovalsAndKeysWithoutValues) {
  MemoryRegistry registry;
  readRegistryFile(
      "[HKEY_LOCAL_MACHINE\\a\\b]\n\"v\"=dword:1\n\"w\"=dword:2\n\"V\"=-\n"
      "[HKEY_LOCAL_MACHINE\\x\\y]\n[HKEY_LOCAL_MACHINE\\xy]\n"
      "[-HKEY_LOCAL_MACHINE\\X]\n\"z\"=dword:1\n",
      registry);
  EXPECT_EQ(Query(registry, "a\\b", "v"), std::nullopt);
  EXPECT_EQ(Query(registry, "a\\b", "w"), (Value{4, "\x02\0\0\0"s}));
  for (const std::string path : {"A\\B\\", "a", "xy", "x", "x\\y"})
    EXPECT_EQ(KeyExists(registry, path), path != "x" && path != "x\\y") << path;
}

}  // namespace dialwright
