#include "platform/RegistryFile.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "text/Ansi.h"

namespace dialwright {
namespace {

using namespace std::string_literals;

struct Value {
  std::uint32_t type = 0;
  std::string bytes;
  friend bool operator==(const Value&, const Value&) = default;
};

void PrintTo(const Value& value, std::ostream* out) {
  *out << value.type << ':' << testing::PrintToString(value.bytes);
}

std::optional<Value> Query(MemoryRegistry& registry, std::string_view path, std::string_view name) {
  RegistryKey key = RegistryKey::none;
  if (registry.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key) != registrySuccess) {
    return std::nullopt;
  }
  std::array<std::byte, 4096> buffer{};
  std::uint32_t size = 0;
  Value value;
  const long result = registry.RegQueryValueExA(key, name, value.type, buffer, size);
  EXPECT_EQ(registry.RegCloseKey(key), registrySuccess);
  if (result != registrySuccess) return std::nullopt;
  value.bytes.assign(reinterpret_cast<const char*>(buffer.data()), size);
  return value;
}

bool KeyExists(MemoryRegistry& registry, std::string_view path) {
  RegistryKey key = RegistryKey::none;
  return registry.RegOpenKeyExA(RegistryKey::localMachine, path, 0, 131097, key) == registrySuccess;
}

constexpr std::string_view values =
    "\r\n; a comment\r\n[HKEY_LOCAL_MACHINE\\Software\\Quillon]\r\n"
    "\"Version Number\"=dword:00040002\r\n"
    "\"Root Path\"=\"C:\\\\Telhost\\\\\"\r\n"
    "  \"quoted \\\"name\\\"\" = \"a \\\"b\\\" ; c\"  \r\n"
    "@=\"the default\"\r\n"
    "\"lines\"=\"one\r\ntwo\\nthree\"\r\n"
    "\"binary\"=hex:01,0a,\\\r\n  FF\r\n"
    "\"none\"=hex:\r\n"
    "\"empty\"=\"\"\r\n"
    "\"umlaut\"=\"\xC3\xA4\xE2\x82\xAC\"\r\n"
    "\"quad\"=hex(b):01,00,00,00,00,00,00,00\r\n"
    "\"doubled\"=hex(4):02,00,00,00\r\n";

void ExpectValues(MemoryRegistry& registry) {
  const std::pair<std::string_view, Value> cases[] = {
      {"version NUMBER", {4, "\x02\0\x04\0"s}},
      {"Root Path", {1, "C:\\Telhost\\\0"s}},
      {"quoted \"name\"", {1, "a \"b\" ; c\0"s}},
      {"", {1, "the default\0"s}},
      {"lines", {1, "one\r\ntwo\nthree\0"s}},
      {"binary", {3, "\x01\x0A\xFF"}},
      {"none", {3, ""}},
      {"empty", {1, "\0"s}},
      {"umlaut", {1, "\xE4\x80\0"s}},
      {"quad", {11, "\x01\0\0\0\0\0\0\0"s}},
      {"doubled", {4, "\x02\0\0\0"s}},
  };
  for (const auto& [name, value] : cases) {
    EXPECT_EQ(Query(registry, "SOFTWARE\\quillon\\", name), value) << name;
  }
}

TEST(RegistryFileTest, ValuesInEveryEncoding) {
  const std::string version5 = "Windows Registry Editor Version 5.00\r\n" + std::string(values);
  const std::string files[] = {
      "\xFF\xFE" + Utf8ToUtf16(version5),
      "\xEF\xBB\xBF" + version5,
      Utf8ToAnsi(version5),
      Utf8ToAnsi("REGEDIT4\r\n" + std::string(values)),
  };
  for (const std::string& file : files) {
    MemoryRegistry registry;
    readRegistryFile(file, registry);
    ExpectValues(registry);
  }
}

TEST(RegistryFileTest, TextsInHexAreWideInVersion5Only) {
  constexpr std::string_view key = "[HKEY_LOCAL_MACHINE\\k]\n";
  MemoryRegistry five;
  readRegistryFile(
      "Windows Registry Editor Version 5.00\n" + std::string(key) +
          "\"e\"=hex(2):25,00,ac,20,00,00\n\"m\"=hex(7):61,00,00,00,62,00,00,00,00,00\n"
          "\"s\"=hex(1):61,00,00,00\n\"b\"=hex(3):61,00",
      five);
  EXPECT_EQ(Query(five, "k", "e"), (Value{2, "%\x80\0"s}));
  EXPECT_EQ(Query(five, "k", "m"), (Value{7, "a\0b\0\0"s}));
  EXPECT_EQ(Query(five, "k", "s"), (Value{1, "a\0"s}));
  EXPECT_EQ(Query(five, "k", "b"), (Value{3, "a\0"s}));
  MemoryRegistry four;
  readRegistryFile("REGEDIT4\n" + std::string(key) + "\"e\"=hex(2):25,80,00\n", four);
  EXPECT_EQ(Query(four, "k", "e"), (Value{2, "%\x80\0"s}));
}

TEST(RegistryFileTest, WhatCannotBeUnderstoodIsPassedOver) {
  MemoryRegistry registry;
  readRegistryFile(
      "\"before any key\"=\"x\"\n"
      "[HKEY_CURRENT_USER\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINEX\\a]\n\"v\"=\"1\"\n"
      "[HKEY_LOCAL_MACHINE\\no end\n\"v\"=\"1\"\n"
      "[hkey_local_machine\\a]\n"
      "\"d\"=dword:xyz\n\"d2\"=dword:\n\"d3\"=dword:123456789\n\"h\"=hex:1,zz\n\"h2\"=hex(:00\n"
      "\"h3\"=hex:100\n\"h4\"=hexx:00\n\"q\"=\"not closed\n\"ok\"=dword:1\n\"n\" "
      "\"v\"\n\"name\nrest",
      registry);
  for (const std::string_view name : {"d", "d2", "d3", "h", "h2", "h3", "h4", "n", "name", "v"}) {
    EXPECT_EQ(Query(registry, "a", name), std::nullopt) << name;
  }
  EXPECT_FALSE(KeyExists(registry, "no end"));
  EXPECT_FALSE(KeyExists(registry, "X\\a"));
}

TEST(RegistryFileTest, RemovalsAndKeysWithoutValues) {
  MemoryRegistry registry;
  readRegistryFile(
      "[HKEY_LOCAL_MACHINE\\a\\b\\c]\n\"v\"=dword:1\n\"w\"=dword:2\n\"V\"=-\n"
      "[HKEY_LOCAL_MACHINE\\ab]\n[HKEY_LOCAL_MACHINE\\x\\y]\n[HKEY_LOCAL_MACHINE\\xy]\n[-HKEY_"
      "LOCAL_MACHINE\\X]\n\"z\"=dword:"
      "1\n",
      registry);
  EXPECT_EQ(Query(registry, "a\\b\\c", "v"), std::nullopt);
  EXPECT_EQ(Query(registry, "a\\b\\c", "w"), (Value{4, "\x02\0\0\0"s}));
  EXPECT_TRUE(KeyExists(registry, "A\\B\\"));
  EXPECT_TRUE(KeyExists(registry, "ab"));
  EXPECT_TRUE(KeyExists(registry, "xy"));
  EXPECT_FALSE(KeyExists(registry, "x"));
  EXPECT_FALSE(KeyExists(registry, "x\\y"));
}

TEST(MemoryRegistryTest, HandlesAndBuffers) {
  MemoryRegistry registry;
  registry.set("a\\b", "v", RegistryValue::text("text"));
  RegistryKey a = RegistryKey::none;
  RegistryKey b = RegistryKey::none;
  ASSERT_EQ(registry.RegOpenKeyExA(RegistryKey::localMachine, "A", 0, 131097, a), 0);
  ASSERT_EQ(registry.RegOpenKeyExA(a, "b\\", 0, 131097, b), 0);
  EXPECT_EQ(registry.RegOpenKeyExA(a, "none", 0, 131097, b), registryNotFound);
  std::array<std::byte, 5> buffer{};
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(registry.RegQueryValueExA(b, "V", type, std::span(buffer).first(4), size),
            registryMoreData);
  EXPECT_EQ(size, 5u);
  EXPECT_EQ(registry.RegQueryValueExA(b, "V", type, buffer, size), registrySuccess);
  EXPECT_EQ(registry.RegQueryValueExA(a, "V", type, buffer, size), registryNotFound);
  EXPECT_EQ(registry.RegCloseKey(b), registrySuccess);
  EXPECT_NE(registry.RegCloseKey(b), registrySuccess);
  EXPECT_NE(registry.RegQueryValueExA(b, "V", type, buffer, size), registrySuccess);
}

}  // namespace
}  // namespace dialwright
