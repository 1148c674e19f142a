#include "validation/DerivedKeyLists.h"

#include <gtest/gtest.h>

#include <tuple>

#include "validation/KeyConflicts.h"

namespace dialwright {

TEST(DerivedKeyLists, FromAKeyList) {
  struct {
    const char *keys, *inactive, *doubles, *extended;
  } const cases[] = {
      {"1,,77,12,99,#,333,", "245680*", "7,9", "77,12,99"},
      {"**,#1,", "1234567890", "*", "**,#1"},
      {" 77 ,", "1234567890*#", "7", "77"},
      {"77,77,4,4,", "12356890*#", "7,7", "77,77"},
      {"aA,b,", "1234567890*#", "a", "aA"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(strGetDoubleKeys(c.keys), c.doubles) << c.keys;
    EXPECT_EQ(strGetExtendedDoubleKeys(c.keys), c.extended) << c.keys;
    EXPECT_EQ(strGetInactiveKeys(c.keys), c.inactive) << c.keys;
  }
}

TEST(KeyConflicts, FirstDigitOfATwoKeySequence) {
  const std::tuple<const char*, ConflictKeys, bool> cases[] = {
      {"1,12,", {"1"}, true},   {"2,12,", {"2"}, false}, {"9,99,", {"", "9"}, true},
      {"9,999,", {"9"}, false}, {" 9* ,", {"9"}, true},  {"12,", {""}, false},
      {"aB,", {"A"}, true},     {"", {"1"}, false},      {"12,34,", {"", "", "3"}, true},
  };
  for (const auto& [list, keys, conflict] : cases)
    EXPECT_EQ(bKeyConflicts(list, keys), conflict) << list;
}

}  // namespace dialwright
