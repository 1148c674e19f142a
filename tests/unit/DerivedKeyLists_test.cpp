#include "validation/DerivedKeyLists.h"

#include <gtest/gtest.h>

#include "validation/KeyConflicts.h"

namespace dialwright {

namespace {

struct ListCase {
  const char* keys;
  const char* inactive;
  const char* doubles;
  const char* extended;
};

TEST(DerivedKeyLists, FromAKeyList) {
  const ListCase cases[] = {
      {"1,,77,12,99,#,", "2345680*", "7,9", "77,12,99"},
      {"", "1234567890*#", "", ""},
      {",", "1234567890*#", "", ""},
      {"1,2,3,4,5,6,7,8,9,0,*,#,", "", "", ""},
      {"1,23,", "34567890*#", "", "23"},
      {"**,#1,", "1234567890", "*", "**,#1"},
      {"777,1234,", "23456890*#", "", ""},
      {" 77 ,", "1234567890*#", "7", "77"},
      {"77,77,", "123456890*#", "7,7", "77,77"},
      {"A,b,", "1234567890*#", "", ""},
      {"aA,", "1234567890*#", "a", "aA"},
      {"4,4,", "123567890*#", "", ""},
  };
  for (const ListCase& c : cases) {
    EXPECT_EQ(strGetDoubleKeys(c.keys), c.doubles) << c.keys;
    EXPECT_EQ(strGetExtendedDoubleKeys(c.keys), c.extended) << c.keys;
    EXPECT_EQ(strGetInactiveKeys(c.keys), c.inactive) << c.keys;
  }
}

struct RowCase {
  const char* token;
  const char* key;
  const char* listAfter;
};

TEST(DerivedKeyLists, TerminateListGrowsAtItsFront) {
  const RowCase rows[] = {
      {"HEADER_ONEKEY_VOLUME", " \"4\"", "ABCD"}, {"HEADER_REWIND", " \"7\"", "7ABCD"},
      {"HEADER_FORWARD", " \"9\"", "97ABCD"},     {"HEADER_FF_TO_END", " \"99\"", "97ABCD"},
      {"HEADER_SLOWDOWN", " \"\"", "97ABCD"},     {"HEADER_EXIT", " \"#\"", "#97ABCD"},
      {"HEADER_REPLY", " \"123\"", "#97ABCD"},    {"HEADER_SPEED_NORMAL", "5", "5#97ABCD"},
      {"header_pause", "6", "5#97ABCD"},          {"HEADER_DELETE", "a", "5#97ABCD"},
      {"HEADER_GOTO_ENABLE", "12", "15#97ABCD"},  {"HEADER_SPEEDUP", "2", "15#97ABCD"},
  };
  std::string list(extendedKeys);
  for (const RowCase& row : rows) {
    list = strAddToTerminatePlaybackKeys(list, row.key, row.token);
    EXPECT_EQ(list, row.listAfter) << row.token;
  }
}

struct ConflictCase {
  const char* list;
  ConflictKeys keys;
  bool conflict;
};

TEST(KeyConflicts, FirstDigitOfATwoKeySequence) {
  const ConflictCase cases[] = {
      {"1,12,", {"1"}, true},   {"2,12,", {"2"}, false},
      {"12,1,", {"12"}, false}, {"9,99,", {"", "9"}, true},
      {"9,999,", {"9"}, false}, {" 9* ,", {"9"}, true},
      {"12,", {""}, false},     {"aB,", {"", "", "A"}, true},
      {"", {"1"}, false},       {"12,34,", {"", "", "", "", "", "", "3"}, true},
  };
  for (const ConflictCase& c : cases)
    EXPECT_EQ(bKeyConflicts(c.list, c.keys), c.conflict) << c.list;
}

}  // namespace

}  // namespace dialwright
