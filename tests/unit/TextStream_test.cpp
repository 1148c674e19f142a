#include <gtest/gtest.h>

#include <tuple>

#include "../support/FailureNumber.h"
#include "../support/MemoryFileStore.h"
#include "files/FileSystemObject.h"

namespace dialwright {

using namespace std::string_view_literals;
using Lines = std::vector<std::string>;

constexpr std::string_view path = R"(C:\t.txt)";

struct TextStreamTest : testing::Test {
  MemoryFileStore store;
  FileSystemObject files{store};
};

TEST_F(TextStreamTest, Lines) {
  constexpr auto byMark = TextFormat::systemDefault;
  const std::tuple<TextFormat, std::string_view, Lines> cases[] = {
      {byMark, "", {}},
      {byMark, "a\r\nb\n\nc\rd\r\r\ne\r", {"a", "b", "", "c\rd\r", "e\r"}},
      {byMark, "\xE4\x80\0z\n"sv, {std::string("\xC3\xA4\xE2\x82\xAC\0z", 7)}},
      {byMark, "\xFF\xFE\xE4\0\r\0\n\0\x0A\x01"sv, {"\xC3\xA4", "\xC4\x8A"}},
      {TextFormat::ansi, "\xFF\xFEz", {"\xC3\xBF\xC3\xBEz"}},
      {TextFormat::unicode, "a\0\n\0b\0"sv, {"a", "b"}},
  };
  for (const auto& [format, bytes, expected] : cases) {
    store.Put(path, bytes);
    const auto stream = files.OpenTextFile(path, IOMode::reading, false, format);
    Lines lines;
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    EXPECT_EQ(lines, expected) << bytes;
  }
}

TEST_F(TextStreamTest, ReadingOnAndFailures) {
  store.Put(path, "one\r\ntwo\r\nthree\n");
  const auto stream = files.OpenTextFile(path, IOMode::reading, false, TextFormat::systemDefault);
  EXPECT_EQ(stream->ReadLine(), "one");
  EXPECT_EQ(stream->ReadAll(), "two\r\nthree\n");
  EXPECT_EQ(FailureNumber([&] { stream->ReadLine(); }), 62);
  stream->Close();
  EXPECT_EQ(FailureNumber([&] { stream->ReadLine(); }), 52);
  EXPECT_EQ(FailureNumber([&] { files.CreateTextFile(path, false, false); }), 58);
}

TEST_F(TextStreamTest, WritingInEveryFormat) {
  constexpr std::string_view ansi = "\xE4?\x80\r\nz";
  constexpr std::string_view wide = "\xFF\xFE\xE4\0\x40\x01\xAC\x20\r\0\n\0z\0"sv;
  const std::tuple<IOMode, TextFormat, std::string_view, std::string_view> cases[] = {
      {IOMode::writing, TextFormat::systemDefault, "\xFF\xFE", ansi},
      {IOMode::writing, TextFormat::unicode, "old", wide},
      {IOMode::appending, TextFormat::ansi, "old", "old\xE4?\x80\r\nz"},
      {IOMode::appending, TextFormat::unicode, "", wide},
  };
  for (const auto& [mode, format, before, after] : cases) {
    store.Put(path, before);
    const auto stream = files.OpenTextFile(path, mode, false, format);
    stream->WriteLine("\xC3\xA4\xC5\x80\xE2\x82\xAC");
    stream->Write("z");
    stream->Close();
    EXPECT_EQ(store.Bytes(path), after);
    EXPECT_EQ(FailureNumber([&] { stream->Write("x"); }), 52);
  }
}

}  // namespace dialwright
