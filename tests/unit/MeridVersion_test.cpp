#include "server/MeridVersion.h"

#include <gtest/gtest.h>

#include "platform/Failure.h"
#include "runner/World.h"
#include "server/RegistryAPI.h"

namespace dialwright {

namespace {

constexpr const char* meridKey = "Software\\Quillon";
constexpr const char* tesselKey = "SOFTWARE\\Varlo Systems\\Varlo Merid";

struct ServerTest : testing::Test {
  void merid(std::uint32_t version, std::uint32_t build) {
    world.registry.set(meridKey, "Version Number", RegistryValue::doubleWord(version));
    world.registry.set(meridKey, "Build Number", RegistryValue::doubleWord(build));
  }

  MeridVersion& server() { return world.program.server; }

  Printer printer;
  World world{printer};
};

TEST_F(ServerTest, ReadsHexadecimalDigitsAsDecimalOnes) {
  struct {
    std::uint32_t version, build;
    const char* text;
  } const cases[] = {
      {0x00040002, 0x00000014, "4.2(0.20)"},     {0x0004000A, 0x00000010, "4.0(0.16)"},
      {0x00040010, 0x00040065, "4.10(4.101)"},   {0x00040002, 0x0000FFFF, "4.2(0.-1)"},
      {0x001A0000, 0x00008000, "1.0(0.-32768)"}, {0xFFFF9999, 0x99990000, "0.9999(9999.0)"},
  };
  for (const auto& c : cases) {
    merid(c.version, c.build);
    EXPECT_EQ(server().getVersion().strVersion, c.text);
  }
  world.registry.removeKey(meridKey);
  EXPECT_EQ(server().getVersion().strVersion, "0.0(0.0)");
}

TEST_F(ServerTest, TesselIsToldByItsKeyAlone) {
  world.registry.makeKey(tesselKey);
  EXPECT_EQ(server().getVersion().bIsTessel, true16);
  for (const char* name : {"MajorVersion", "MinorVersion", "BuildVersion", "ReleaseVersion"})
    world.registry.set(tesselKey, name, RegistryValue::doubleWord(7));
  world.registry.set(tesselKey, "MinorVersion", RegistryValue::doubleWord(0x8000));
  EXPECT_EQ(server().getVersion().strVersion, "7.0(7.7)");
  EXPECT_EQ(printer.lines,
            std::vector<std::string>{"msgbox OK \"(error):6 (Overflow) in procedure getVersion of "
                                     "Module MeridVersion\""});
}

TEST_F(ServerTest, ComparesFromTheLeft) {
  struct {
    std::uint32_t version, build;
    std::int16_t gate[4];
    bool open;
  } const cases[] = {
      {0x00040002, 0x00000014, {4, 2, 0, 20}, true}, {0x00040002, 0x00000013, {4, 2, 0, 20}, false},
      {0x00050000, 0x00000001, {4, 3, 0, 15}, true}, {0x00040002, 0x00010000, {4, 2, 0, 99}, true},
      {0x00040001, 0x99990099, {4, 2, 0, 0}, false}, {0x00040002, 0x0000FFFF, {4, 2, 0, 0}, false},
  };
  for (const auto& c : cases) {
    merid(c.version, c.build);
    server().currentVersion = server().getVersion();
    EXPECT_EQ(
        server().bIsVersionGreaterThanOrEqualTo(c.gate[0], c.gate[1], c.gate[2], c.gate[3], 0),
        c.open)
        << server().currentVersion.strVersion;
  }
}

TEST_F(ServerTest, RegistryValuesOfOddSizes) {
  const auto read = [this](std::int16_t type) {
    return GetRegistryValue(world.registry, RegistryKey::localMachine, "SOFTWARE\\X", "v", type,
                            std::string("default"));
  };
  world.registry.set("SOFTWARE\\X", "v", {1, std::string(1024, 'a')});
  EXPECT_EQ(std::get<std::string>(read(registryString)), std::string(1023, 'a'));
  world.registry.set("SOFTWARE\\X", "v", {1, std::string(1025, 'a')});
  EXPECT_EQ(std::get<std::string>(read(registryString)), "default");
  world.registry.set("SOFTWARE\\X", "v", {1, std::string(1, '\0')});
  EXPECT_EQ(std::get<std::string>(read(registryString)), "");
  world.registry.set("SOFTWARE\\X", "v", {1, ""});
  EXPECT_THROW(read(registryString), RuntimeFailure);
  world.registry.set("SOFTWARE\\X", "v", {3, "abcde"});
  EXPECT_EQ(std::get<std::string>(read(registryDoubleWord)), "default");
  EXPECT_EQ(std::get<std::vector<std::byte>>(read(registryBinary)).size(), 5U);
  try {
    read(2);
    ADD_FAILURE() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number, 1001);
    EXPECT_EQ(failure.description, "Unsupported value type");
  }
}

}  // namespace

}  // namespace dialwright
