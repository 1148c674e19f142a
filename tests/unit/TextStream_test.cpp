#include <gtest/gtest.h>

#include "../support/MemoryFileStore.h"
#include "platform/Failure.h"
#include "platform/FileSystemObject.h"

namespace dialwright {
namespace {

using namespace std::string_view_literals;
using Lines = std::vector<std::string>;

template <typename Action>
int FailureNumber(Action action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    return failure.number;
  }
  return 0;
}

class TextStreamTest : public testing::Test {
 protected:
  MemoryFileStore store;
  FileSystemObject files{store};

  Lines readLines(std::string_view bytes, TextFormat format) {
    store.put(R"(C:\t.txt)", bytes);
    const auto stream = files.OpenTextFile(R"(C:\t.txt)", IOMode::reading, false, format);
    Lines lines;
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    return lines;
  }
};

TEST_F(TextStreamTest, Lines) {
  const std::pair<std::string_view, Lines> cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"a\r\nb\n\nc", {"a", "b", "", "c"}},
      {"a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
      {"\xE4\x80\0z\n"sv, {std::string("\xC3\xA4\xE2\x82\xAC\0z", 7)}},
      {"\xEF\xBB\xBFx", {"\xC3\xAF\xC2\xBB\xC2\xBFx"}},
      {"\xFF\xFE\xE4\0\r\0\n\0\x0A\x01"sv, {"\xC3\xA4", "\xC4\x8A"}},
  };
  for (const auto& [bytes, lines] : cases) {
    EXPECT_EQ(readLines(bytes, TextFormat::systemDefault), lines) << bytes;
  }
  EXPECT_EQ(readLines("\xFF\xFE"
                      "a\0"sv,
                      TextFormat::ansi),
            Lines{std::string("\xC3\xBF\xC3\xBE"
                              "a\0",
                              6)});
  EXPECT_EQ(readLines("a\0\n\0b\0"sv, TextFormat::unicode), (Lines{"a", "b"}));
}

TEST_F(TextStreamTest, ReadingOnFromWhereItStands) {
  store.put(R"(C:\t.txt)", "one\r\ntwo\r\nthree\n");
  const auto stream =
      files.OpenTextFile(R"(C:\t.txt)", IOMode::reading, false, TextFormat::systemDefault);
  EXPECT_EQ(stream->ReadLine(), "one");
  EXPECT_EQ(stream->ReadAll(), "two\r\nthree\n");
  EXPECT_TRUE(stream->AtEndOfStream());
  EXPECT_EQ(FailureNumber([&] { stream->ReadLine(); }), 62);
  EXPECT_EQ(FailureNumber([&] { stream->ReadAll(); }), 62);
  EXPECT_EQ(FailureNumber([&] { stream->Write("x"); }), 54);
  stream->Close();
  EXPECT_EQ(FailureNumber([&] { stream->ReadLine(); }), 52);
}

TEST_F(TextStreamTest, WritingInEveryFormat) {
  const struct {
    IOMode mode;
    TextFormat format;
    std::string_view before;
    std::string_view after;
  } cases[] = {
      {IOMode::writing, TextFormat::ansi, "old", "\xE4?\x80\r\nz"},
      {IOMode::writing, TextFormat::systemDefault, "\xFF\xFE"sv, "\xE4?\x80\r\nz"},
      {IOMode::writing, TextFormat::unicode, "old", "\xFF\xFE\xE4\0\x40\x01\xAC\x20\r\0\n\0z\0"sv},
      {IOMode::appending, TextFormat::systemDefault, "old", "old\xE4?\x80\r\nz"},
      {IOMode::appending, TextFormat::unicode, "", "\xFF\xFE\xE4\0\x40\x01\xAC\x20\r\0\n\0z\0"sv},
      {IOMode::appending, TextFormat::unicode, "\xFF\xFE"sv,
       "\xFF\xFE\xE4\0\x40\x01\xAC\x20\r\0\n\0z\0"sv},
  };
  for (const auto& row : cases) {
    store.put(R"(C:\t.txt)", row.before);
    const auto stream = files.OpenTextFile(R"(C:\t.txt)", row.mode, false, row.format);
    stream->WriteLine("\xC3\xA4\xC5\x80\xE2\x82\xAC");
    stream->Write("z");
    stream->Close();
    EXPECT_EQ(store.bytes(R"(C:\t.txt)"), row.after);
    EXPECT_EQ(FailureNumber([&] { stream->Write("x"); }), 52);
  }
}

TEST_F(TextStreamTest, MakingFiles) {
  const auto open = [&](std::string_view path, IOMode mode, bool create) {
    return FailureNumber([&] { files.OpenTextFile(path, mode, create, TextFormat::ansi); });
  };
  EXPECT_EQ(open(R"(C:\t.txt)", IOMode::reading, false), 53);
  EXPECT_EQ(open(R"(C:\t.txt)", IOMode::appending, false), 53);
  EXPECT_FALSE(files.FileExists(R"(C:\t.txt)"));
  EXPECT_EQ(open(R"(C:\t.txt)", IOMode::reading, true), 0);
  EXPECT_TRUE(files.FileExists(R"(C:\t.txt)"));
  EXPECT_FALSE(files.FolderExists(R"(C:\t.txt)"));

  EXPECT_EQ(FailureNumber([&] { files.CreateTextFile(R"(C:\t.txt)", false, false); }), 58);
  files.CreateTextFile(R"(C:\t.txt)", true, true)->Close();
  EXPECT_EQ(store.bytes(R"(C:\t.txt)"), "\xFF\xFE");
  const auto stream = files.CreateTextFile(R"(C:\new.txt)", false, false);
  EXPECT_EQ(FailureNumber([&] { stream->ReadLine(); }), 54);
  stream->Close();
}

}  // namespace
}  // namespace dialwright
