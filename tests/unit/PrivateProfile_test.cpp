#include "platform/PrivateProfile.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "../support/MemoryFileStore.h"
#include "../support/ProfileModel.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

using namespace std::string_literals;

constexpr std::string_view path = R"(C:\a.cdh)";
constexpr std::string_view other = R"(C:\b.cdh)";

class PrivateProfileTest : public testing::Test {
 protected:
  MemoryFileStore store;
  PrivateProfile profile{store};

  std::string get(std::string_view key, std::string_view section = "MACROS",
                  std::string_view file = path) {
    return profile.GetPrivateProfileStringA(section, key, "(default)", 127, file);
  }
  bool set(std::string_view key, std::string_view value, std::string_view section = "MACROS",
           std::string_view file = path) {
    return profile.WritePrivateProfileStringA(section, key, value, file);
  }
};

TEST_F(PrivateProfileTest, Reading) {
  const std::string missing = "(default)";
  const std::pair<std::string, std::string> cases[] = {
      {"[MACROS]\r\nK=1\r\n", "1"},
      {"[MACROS]\r\nK= \"1\"\r\n", "1"},
      {"[MACROS]\nK= \" 1 \" \t\n", " 1 "},
      {"[MACROS]\rK='x'\rL=2", "x"},
      {"[macros]\r\n \tk\t = \t12\t", "12"},
      {"[MACROS]\r\nK=\r\n", ""},
      {"[MACROS]\r\nK= \"\"\r\n", ""},
      {"[MACROS]\r\nK=\"\r\n", "\""},
      {"[MACROS]\r\nK=\"1'\r\n", "\"1'"},
      {"[MACROS]\r\nK=\"\"1\"\"\r\n", "\"1\""},
      {"[MACROS]\r\nK=1=2;3\r\n", "1=2;3"},
      {"[MACROS]\r\nK=1\r\nk=2\r\n", "1"},
      {"[MACROS]\r\n;K=1\r\nK\r\nKK=2\r\nK =3\r\n", "3"},
      {"  [MACROS] ]K=9\r\nK=1", "1"},
      {"[OTHER]\r\nK=1\r\n[MACROS]\r\nK=2", "2"},
      {"[MACROS]\r\nL=1\r\n[MACROS]\r\nK=2\r\n", missing},
      {"[MACROS]\r\n [OTHER\r\nK=1\r\n", "1"},  // no heading: it does not end
      {"[MACROS\r\n]\r\nK=1", missing},
      {";[MACROS]\r\nK=1", missing},
      {"x[MACROS]\r\nK=1", missing},
      {"K=1\r\n", missing},
      {"", missing},
      {"[MACROS]", missing},
      {"[MACROS]\nK=a\0b\x01\xE4\x80\n"s, "a\0b\x01\xC3\xA4\xE2\x82\xAC"s},
      {"\xFF\xFE[MACROS]\nK=1", missing},
      {"[MACROS]\nK=" + std::string(130, '1'), std::string(126, '1')},
      {"[MACROS]\nK=" + std::string(130, '\xE4') + "\n",
       [] {
         std::string text;
         for (int i = 0; i < 126; ++i) text += "\xC3\xA4";
         return text;
       }()},
  };
  for (const auto& [text, value] : cases) {
    store.put(path, text);
    EXPECT_EQ(get("K"), value) << text;
  }
}

TEST_F(PrivateProfileTest, SizesAndDefaults) {
  store.put(path, "[MACROS]\nK=\"12345\"\n");
  const auto read = [&](std::string_view key, std::size_t size, std::string_view file) {
    return profile.GetPrivateProfileStringA("MACROS", key,
                                            "\xC3\xA4"
                                            "bcd",
                                            size, file);
  };
  EXPECT_EQ(read("K", 4, path), "123");
  EXPECT_EQ(read("K", 6, path), "12345");
  EXPECT_EQ(read("K", 1, path), "");
  EXPECT_EQ(read("K", 0, path), "");
  EXPECT_EQ(read("L", 3, path),
            "\xC3\xA4"
            "b");
  EXPECT_EQ(read("K", 99, other),
            "\xC3\xA4"
            "bcd");
  store.failRead = Failure::deviceIOError;
  store.put(path, "[MACROS]\nK=6\n");
  EXPECT_EQ(read("K", 99, path),
            "\xC3\xA4"
            "bcd");
  store.failRead.reset();
  EXPECT_EQ(read("K", 99, path), "6");
}

TEST_F(PrivateProfileTest, Writing) {
  const struct {
    std::string before;
    std::string_view key;
    std::string_view value;
    std::string after;
  } cases[] = {
      {"[MACROS]\r\nK=1\r\nL=2\r\n", "k", " \"9\"", "[MACROS]\r\nK= \"9\"\r\nL=2\r\n"},
      {"[MACROS]\n \tK\t =\t1 \t\nL=2", "K", "9", "[MACROS]\n \tK\t =9\nL=2"},
      {"[MACROS]\nK=1\nK=2\n", "K", "9", "[MACROS]\nK=9\nK=2\n"},
      {"[MACROS]\nK=", "K", "9", "[MACROS]\nK=9"},
      {"[MACROS]\rK=1\rL=2", "L", "", "[MACROS]\rK=1\rL="},
      {"[MACROS]\nK=1\r\n\0#\xFF\r"s, "K", "22", "[MACROS]\nK=22\r\n\0#\xFF\r"s},
      {"[MACROS]\nL=1\n\n \t\n[X]\nK=1\n", "K", "9", "[MACROS]\nL=1\nK=9\n\n \t\n[X]\nK=1\n"},
      {"a\r\n[MACROS]\nL=1\n; end\n", "K", "9", "a\r\n[MACROS]\nL=1\n; end\nK=9\r\n"},
      {"[MACROS]\r\nL=1", "K", "9", "[MACROS]\r\nL=1\r\nK=9\r\n"},
      {"[MACROS]", "K", "9", "[MACROS]\r\nK=9\r\n"},
      {"[MACROS]\n\n\n", "K", "9", "[MACROS]\nK=9\n\n\n"},
      {"[MACROS]\n\n[X]", "K", "9", "[MACROS]\nK=9\n\n[X]"},
      {"[MACROS]\n[MACROS]\nK=1", "K", "9", "[MACROS]\nK=9\n[MACROS]\nK=1"},
      {"", "K", "9", "[MACROS]\r\nK=9\r\n"},
      {"x", "K", "9", "x\r\n[MACROS]\r\nK=9\r\n"},
      {"x\ry", "K", "9", "x\ry\r[MACROS]\rK=9\r"},
      {"[X]\nK=1\n\n", "K", "9", "[X]\nK=1\n\n[MACROS]\nK=9\n"},
      {"[MACROS]\n", " \tKey \t", " v ", "[MACROS]\nKey= v \n"},
      {"[MACROS]\n", "K", "\xC3\xA4\xC5\x80", "[MACROS]\nK=\xE4?\n"},
  };
  for (const auto& row : cases) {
    store.put(path, row.before);
    EXPECT_TRUE(set(row.key, row.value)) << row.before;
    EXPECT_EQ(store.bytes(path), row.after) << row.before;
    const int replaces = store.replaces;
    EXPECT_TRUE(set(row.key, row.value));
    EXPECT_EQ(store.replaces, replaces) << "written again though it stands there";
  }
}

TEST_F(PrivateProfileTest, WhatCannotBeWritten) {
  EXPECT_FALSE(set("K", "1"));
  EXPECT_EQ(store.kind(path), FileStore::Kind::none);
  for (const std::string& text : {"[MACROS]\nK=1\n"s, "\xFF\xFE[\0M\0]\0"s, "\xFE\xFF[MACROS]"s}) {
    store.put(path, text);
    const bool wide = text[0] != '[';
    for (const std::string_view key : {"", " \t", "a=b", "a\nb", "a\rb", "[a"}) {
      EXPECT_FALSE(set(key, "x")) << key;
    }
    EXPECT_FALSE(set("K", "x", "a]b"));
    EXPECT_FALSE(set("K", "x", "a\nb"));
    EXPECT_EQ(set("K", "1"), !wide);
    EXPECT_EQ(store.bytes(path), text);
  }
  store.failReplace = Failure::diskFull;
  store.put(path, "[MACROS]\nK=1\n");
  EXPECT_FALSE(set("K", "2"));
  EXPECT_EQ(get("K"), "1");
  {
    const ProfileBatch batch(profile, path);
    EXPECT_TRUE(set("K", "3"));
    EXPECT_EQ(get("K"), "3");
  }
  EXPECT_EQ(get("K"), "1");
  store.failReplace.reset();
  EXPECT_TRUE(set("K", "4"));
  EXPECT_EQ(store.bytes(path), "[MACROS]\nK=4\n");
}

TEST_F(PrivateProfileTest, AValueOfSeveralLinesIsWhatItsLinesSay) {
  for (const bool batched : {false, true}) {
    store.put(path, "[MACROS]\nK=1\nL=2\n");
    const std::optional<ProfileBatch> batch =
        batched ? std::optional<ProfileBatch>(std::in_place, profile, path) : std::nullopt;
    EXPECT_TRUE(set("K", "a\nM=b\n[X]\n"));
    EXPECT_EQ(get("K"), "a");
    EXPECT_EQ(get("M"), "b");
    EXPECT_EQ(get("L"), "(default)");
    EXPECT_EQ(get("L", "X"), "2");
    EXPECT_TRUE(set("M", "c"));
    profile.FlushBatches();
    EXPECT_EQ(store.bytes(path), "[MACROS]\nK=a\nM=c\n[X]\n\nL=2\n");
  }
}

TEST_F(PrivateProfileTest, OneReadServesAllKeysUntilTheFileChanges) {
  store.put(path, "[MACROS]\nK=1\nL=2\n");
  for (int i = 0; i < 10; ++i) EXPECT_EQ(get("K") + get("L") + get("M"), "12(default)");
  EXPECT_EQ(store.reads, 1);
  store.put(path, "[MACROS]\nK=3\nL=4\n");
  EXPECT_EQ(get("K") + get("L"), "34");
  EXPECT_EQ(store.reads, 2);
  store.remove(path, true);
  EXPECT_EQ(get("K"), "(default)");
  EXPECT_FALSE(set("K", "1"));
}

TEST_F(PrivateProfileTest, ABatchIsOneRewriteAndNestsByCount) {
  store.put(path, "[MACROS]\nK=1\n");
  store.put(other, "[MACROS]\nK=1\n");
  {
    const ProfileBatch outer(profile, path);
    EXPECT_TRUE(set("K", "2"));
    {
      const ProfileBatch inner(profile, path);
      EXPECT_TRUE(set("L", "3"));
      EXPECT_TRUE(set("M", "4", "NEW"));
    }
    EXPECT_TRUE(set("l", "5"));
    EXPECT_EQ(get("K") + get("L") + get("M", "new"), "254");
    EXPECT_EQ(store.bytes(path), "[MACROS]\nK=1\n");
    EXPECT_TRUE(set("K", "6", "MACROS", other));
    EXPECT_EQ(store.bytes(other), "[MACROS]\nK=6\n") << "a write of another file waits for nobody";
  }
  EXPECT_EQ(store.bytes(path), "[MACROS]\nK=2\nL=5\n[NEW]\nM=4\n");
  EXPECT_EQ(store.replaces, 2);
  { const ProfileBatch idle(profile, path); }
  EXPECT_EQ(store.replaces, 2);
}

TEST_F(PrivateProfileTest, AFlushShowsTheWritesAndTheBatchGoesOn) {
  store.put(path, "[MACROS]\nK=1\n");
  {
    const ProfileBatch batch(profile, path);
    set("K", "2");
    profile.FlushBatches();
    EXPECT_EQ(store.bytes(path), "[MACROS]\nK=2\n");
    store.put(path, "[MACROS]\nK=2\nL=theirs\n");  // while a message was shown
    EXPECT_EQ(get("L"), "theirs");
    set("K", "3");
    EXPECT_EQ(store.bytes(path), "[MACROS]\nK=2\nL=theirs\n");
  }
  EXPECT_EQ(store.bytes(path), "[MACROS]\nK=3\nL=theirs\n");
}

TEST_F(PrivateProfileTest, AChangeByOthersDuringABatchIsKept) {
  store.put(path, "[MACROS]\nK=1\nL=1\n");
  {
    const ProfileBatch batch(profile, path);
    set("K", "2");
    store.put(path, "; theirs\n[MACROS]\nL=7\nK=1\n");
    set("M", "3");
  }
  EXPECT_EQ(store.bytes(path), "; theirs\n[MACROS]\nL=7\nK=2\nM=3\n");
  {
    const ProfileBatch batch(profile, path);
    set("K", "9");
    store.remove(path, true);
  }
  EXPECT_EQ(store.kind(path), FileStore::Kind::none) << "a file that is gone was made anew";
}

// Random files of pieces that mean something to the rules, and random writes to them.
class RandomProfile {
 public:
  explicit RandomProfile(unsigned seed) : random(seed) {}

  std::size_t number(std::size_t below) { return random() % below; }
  std::string pick(const std::vector<std::string>& from) { return from[number(from.size())]; }

  std::string text() {
    static const std::vector<std::string> pieces = {"[MACROS]",
                                                    "[macros] x",
                                                    "[OTHER]",
                                                    "  [Third",
                                                    "[",
                                                    "]",
                                                    "=",
                                                    "A",
                                                    "b",
                                                    "key",
                                                    "KEY ",
                                                    " ",
                                                    "\t",
                                                    "\"",
                                                    "'",
                                                    ";",
                                                    "1",
                                                    "\xE4",
                                                    "\0"s,
                                                    "\x1A",
                                                    "\n",
                                                    "\n",
                                                    "\r\n",
                                                    "\r\n",
                                                    "\r",
                                                    "A=1\n",
                                                    "key= \"2\"\r\n",
                                                    "B =3\r",
                                                    "#CRC  12\r\n",
                                                    "\n\n",
                                                    "[MACROS]\r\n"};
    std::string all;
    for (std::size_t i = number(40); i > 0; --i) all += pick(pieces);
    return all;
  }
  std::string section() { return pick({"MACROS", "macros", "OTHER", "NEW", "", "Third"}); }
  std::string key() { return pick({"A", "a ", "b", "key", "\tKey", "C", "d", ";", "\"", "\xE4"}); }
  std::string value() {
    return pick({"", "1", " \"12\"", "\"\"", "=", "[x]", " ", "'a'", "\xE4\0z"s, "99999"});
  }

 private:
  std::mt19937 random;
};

std::string AsModelReads(const std::optional<std::string>& value) {
  if (!value) return "(default)";
  std::string_view text = ProfileModel::trim(*value);
  if (text.size() > 1 && (text[0] == '"' || text[0] == '\'') && text.back() == text[0]) {
    text = text.substr(1, text.size() - 2);
  }
  return AnsiToUtf8(text.substr(0, 126));
}

TEST_F(PrivateProfileTest, RandomWritesDoWhatTheModelDoes) {
  int changed = 0;
  int added = 0;
  for (unsigned seed = 0; seed < 20'000; ++seed) {
    RandomProfile random(seed);
    const std::string before = random.text();
    ProfileModel model(before);
    store.put(path, before);
    std::optional<ProfileBatch> batch;
    if (seed % 2 == 0) batch.emplace(profile, path);
    for (std::size_t i = 1 + random.number(8); i > 0; --i) {
      const std::string section = random.section();
      const std::string key = random.key();
      const std::string value = random.value();
      const bool there = model.value(section, key).has_value();
      ASSERT_EQ(get(AnsiToUtf8(key), section), AsModelReads(model.value(section, key)));
      ASSERT_EQ(set(AnsiToUtf8(key), AnsiToUtf8(value), section), model.set(section, key, value));
      ASSERT_EQ(get(AnsiToUtf8(key), section), AsModelReads(value));
      ++(there ? changed : added);
    }
    batch.reset();
    ASSERT_EQ(store.bytes(path), model.text()) << "seed " << seed << " of " << before;
  }
  EXPECT_GT(changed, 5'000);
  EXPECT_GT(added, 5'000);
}

TEST_F(PrivateProfileTest, ManyKeysAreAllFound) {
  std::string text = "[X]\nkey5=no\n[MACROS]\n";
  for (int i = 0; i < 20'000; ++i)
    text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
  store.put(path, text);
  for (int i = 0; i < 20'000; ++i) ASSERT_EQ(get("KEY" + std::to_string(i)), std::to_string(i));
  EXPECT_EQ(get("key20000"), "(default)");
  EXPECT_EQ(store.reads, 1);
}

}  // namespace
}  // namespace dialwright
