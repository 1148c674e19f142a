// Which Java makes the card.

#include "beside/Card.h"

#include <gtest/gtest.h>

#include <tuple>

#include "transcript/World.h"

namespace dialwright {

TEST(Card, WhatJavaSaysOfItself) {
  Printer printer;
  World world(printer);
  constexpr const char* kOlder =
      "takes Java 11 or newer, and the Java on this machine's search path is ";
  const std::tuple<std::optional<std::string_view>, const char*, const char*> cases[] = {
      {"openjdk version \"17.0.15\" 2025-04-15\nOpenJDK Runtime Environment\n", "17.0.15", nullptr},
      {"openjdk version \"11\" 2018-09-25\r\n", "11", nullptr},
      {"Picked up JAVA_TOOL_OPTIONS: -Xint\njava version \"25-ea\"\n", "25-ea", nullptr},
      {"java version \"10.0.2\" 2018-07-17\n", "10.0.2", kOlder},
      {"java version \"1.8.0_402\"\n", "1.8.0_402", kOlder},
      {"A program of another kind\n", "", nullptr},
      {"", "", nullptr},
      {std::nullopt, "", "there is no Java on this machine's search path"},
  };
  for (const auto& [printed, version, complaint] : cases) {
    EXPECT_EQ(JavaVersion(printed.value_or("")), version);
    const std::string said = CardJavaComplaint(*world.program.main, printed);
    if (complaint == nullptr)
      EXPECT_EQ(said, "");
    else
      EXPECT_NE(said.find(std::string(complaint) + version), said.npos) << said;
  }
}

}  // namespace dialwright
