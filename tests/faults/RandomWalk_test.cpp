#include "RandomWalk.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace dialwright {
namespace {

// The numbers of this generator are the same everywhere, so a walk that fails once fails again.
TEST(RandomWalk, WhatAlwaysHolds) {
  for (unsigned seed = 0; seed < 80; ++seed) {
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bytes(300);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    ASSERT_EQ(WalkAtRandom(bytes), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace dialwright
