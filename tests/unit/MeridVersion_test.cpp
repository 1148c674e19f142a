#include "server/MeridVersion.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "../support/FailureNumber.h"
#include "transcript/World.h"
#include "server/RegistryAPI.h"

namespace dialwright {

struct ServerTest : testing::Test {
  Printer printer;
  World world{printer};
};

TEST_F(ServerTest, ReadsHexadecimalDigitsAsDecimalOnes) {
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

TEST_F(ServerTest, RegistryValuesOfOddSizes) {
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
}

}  // namespace dialwright
