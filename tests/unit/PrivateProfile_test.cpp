#include "files/PrivateProfile.h"

#include <gtest/gtest.h>

#include <tuple>

#include "../support/MemoryFileStore.h"

namespace dialwright {

using namespace std::string_literals;

constexpr std::string_view path = R"(C:\a.cdh)";

struct PrivateProfileTest : testing::Test {
  MemoryFileStore store;
  PrivateProfile profile{store};

  std::string get(std::string_view key, std::size_t size = 127, std::string_view in = "MACROS") {
    return profile.GetPrivateProfileStringA(in, key, "(default)", size, path);
  }
  bool Set(std::string_view key, std::string_view value, std::string_view section = "MACROS") {
    return profile.WritePrivateProfileStringA(section, key, value, path);
  }
};

TEST_F(PrivateProfileTest, Reading) {
  const std::pair<std::string, std::string> cases[] = {
      {"[MACROS]\nK= \" 1 \" \t\n", " 1 "},
      {"[macros]\r \tk\t = \t'12'\t\rL=2", "12"},
      {"[MACROS]\r\nK=\"1'\r\n", "\"1'"},
      {"[MACROS]\r\nK=1=2;3\r\nk=2\r\n", "1=2;3"},
      {"[MACROS]\r\n;K=1\r\nK\r\nKK=2\r\nK =3\r\n", "3"},
      {"  [MACROS] ]K=9\r\nK=1", "1"},
      {"[OTHER]\r\nK=1\r\n[MACROS]\r\n [OTHER\r\nK=2\r\n", "2"},  // the last one does not end
      {"[MACROS]\nK=a\0b\x01\xE4\x80\n"s, "a\0b\x01\xC3\xA4\xE2\x82\xAC"s},
      {"\xFF\xFE[MACROS]\nK=1", "(default)"},
  };
  for (const auto& [text, value] : cases) {
    store.Put(path, text);
    EXPECT_EQ(get("K"), value) << text;
  }
  store.Put(path, "[MACROS]\nK=\"\xE4\xE4\xE4\"\n");
  EXPECT_EQ(get("K", 0), "");
  EXPECT_EQ(get("K", 3), "\xC3\xA4\xC3\xA4");
  EXPECT_EQ(get("L", 5), "(def");
}

TEST_F(PrivateProfileTest, Writing) {
  const std::tuple<std::string, std::string_view, std::string_view, std::string> cases[] = {
      {"[MACROS]\n \tK\t =\t1 \t\nK=2", "k", " \"9\"", "[MACROS]\n \tK\t = \"9\"\nK=2"},
      {"[MACROS]\nK=1\r\n\0#\xFF\r"s, "K", "22", "[MACROS]\nK=22\r\n\0#\xFF\r"s},
      {"[MACROS]\nL=1\n\n \t\n[X]\nK=1\n", "K", "9", "[MACROS]\nL=1\nK=9\n\n \t\n[X]\nK=1\n"},
      {"[MACROS]\n[MACROS]\nK=1", "K", "9", "[MACROS]\nK=9\n[MACROS]\nK=1"},
      {"x\ry", "K", "9", "x\ry\r[MACROS]\rK=9\r"},
      {"a\r\n[MACROS]\nL=1\n; end", "K", "9", "a\r\n[MACROS]\nL=1\n; end\r\nK=9\r\n"},
      {"[X]\nK=1\n\n", " \tKey \t", " v ", "[X]\nK=1\n\n[MACROS]\nKey= v \n"},
      {"", "K", "\xC3\xA4\xC5\x80", "[MACROS]\r\nK=\xE4?\r\n"},
  };
  for (const auto& [before, key, value, after] : cases) {
    store.Put(path, before);
    EXPECT_TRUE(Set(key, value)) << before;
    EXPECT_EQ(store.Bytes(path), after) << before;
    const int replaces = store.replaces;
    EXPECT_TRUE(Set(key, value));
    EXPECT_EQ(store.replaces, replaces) << "written again though it stands there";
  }
}

TEST_F(PrivateProfileTest, WhatCannotBeReadOrWritten) {
  EXPECT_FALSE(Set("K", "1"));
  EXPECT_EQ(store.KindOf(path), FileStore::Kind::none);
  for (const std::string text : {"[MACROS]\nK=1\n", "\xFF\xFE[MACROS]", "\xFE\xFF[MACROS]"}) {
    store.Put(path, text);
    for (const std::string_view key : {"", " \t", "a=b", "a\nb", "[a"})
      EXPECT_FALSE(Set(key, "x")) << key;
    for (const std::string_view section : {"a]b", "a\nb"}) EXPECT_FALSE(Set("K", "x", section));
    EXPECT_EQ(Set("K", "1"), text[0] == '[');
    EXPECT_EQ(store.Bytes(path), text);
  }
  store.Put(path, "[MACROS]\nK=1\n");
  store.failRead = Failure::deviceIOError;
  EXPECT_EQ(get("K"), "(default)");
  store.failRead.reset();
  store.failReplace = Failure::diskFull;
  EXPECT_FALSE(Set("K", "2"));
  EXPECT_EQ(get("K"), "1");
}

TEST_F(PrivateProfileTest, OneReadServesAllKeysUntilTheFileChanges) {
  for (const std::string text : {"[MACROS]\nK=1\nL=2\n", "[MACROS]\nK=3\nL=4\n"}) {
    store.Put(path, text);
    EXPECT_EQ(get("K") + get("L"), text[11] == '1' ? "12" : "34");
  }
  EXPECT_EQ(store.reads, 2);
}

TEST_F(PrivateProfileTest, BytesAreKnownOnlyAsTheyAreOnTheDisk) {
  const std::string before = "[MACROS]\nK=1\n";
  store.Put(path, before);
  EXPECT_FALSE(profile.BytesOnDisk(path)) << "not read yet";
  EXPECT_EQ(get("K"), "1");
  const int reads = store.reads;
  const ProfileBatch batch(profile, path);
  EXPECT_EQ(store.reads, reads + 1) << "a change within the clock's grain has the same stamp";
  EXPECT_EQ(profile.BytesOnDisk(path), before);
  EXPECT_TRUE(Set("K", "2"));
  EXPECT_FALSE(profile.BytesOnDisk(path)) << "a write waits";
  profile.FlushBatches();
  EXPECT_EQ(get("K"), "2");
  EXPECT_EQ(profile.BytesOnDisk(path), "[MACROS]\nK=2\n");
  store.Put(path, before);
  EXPECT_FALSE(profile.BytesOnDisk(path)) << "somebody else has written";
}

TEST_F(PrivateProfileTest, ABatchIsOneRewriteAndNestsByCount) {
  constexpr std::string_view other = R"(C:\b.cdh)";
  store.Put(path, "[MACROS]\nK=1\n");
  store.Put(other, "[MACROS]\nK=1\n");
  {
    const ProfileBatch outer(profile, path);
    EXPECT_TRUE(Set("K", "2"));
    {
      const ProfileBatch inner(profile, path);
      EXPECT_TRUE(Set("L", "3\n[X]"));  // then a line of its own, and a section
      EXPECT_TRUE(Set("M", "4", "x"));
    }
    EXPECT_TRUE(Set("l", "5"));
    EXPECT_EQ(get("K") + get("L") + get("M", 127, "X"), "254");
    EXPECT_EQ(store.Bytes(path), "[MACROS]\nK=1\n");
    EXPECT_TRUE(profile.WritePrivateProfileStringA("MACROS", "K", "6", other));
    EXPECT_EQ(store.Bytes(other), "[MACROS]\nK=6\n") << "a write of another file waits for nobody";
  }
  EXPECT_EQ(store.Bytes(path), "[MACROS]\nK=2\nL=5\n[X]\nM=4\n");
  EXPECT_EQ(store.replaces, 2);
}

TEST_F(PrivateProfileTest, AChangeByOthersDuringABatchIsKept) {
  store.Put(path, "[MACROS]\nK=1\n");
  {
    const ProfileBatch batch(profile, path);
    Set("K", "2");
    profile.FlushBatches();
    EXPECT_EQ(store.Bytes(path), "[MACROS]\nK=2\n");
    store.Put(path, "[MACROS]\nK=2\nL=theirs\n");  // while a message was shown
    EXPECT_EQ(get("L"), "theirs");
    Set("K", "3");
    store.Put(path, "; theirs\n[MACROS]\nK=1\n");
  }
  EXPECT_EQ(store.Bytes(path), "; theirs\n[MACROS]\nK=3\n");
  {
    const ProfileBatch batch(profile, path);
    Set("K", "9");
    store.Remove(path, true);
  }
  EXPECT_EQ(store.KindOf(path), FileStore::Kind::none) << "a file that is gone was made anew";
}

}  // namespace dialwright
