// The private profile against the system's own calls of the same names.

#include <gtest/gtest.h>
#include <windows.h>

#include "MemoryFileStore.h"
#include "Rounds.h"
#include "TempFolder.h"
#include "files/PrivateProfile.h"
#include "platform/win32/Win32Text.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

using namespace std::string_literals;

/// Files that both look at: ours in memory, theirs on the disk.
class ProfileTest : public testing::Test {
 protected:
  TempFolder folder;
  MemoryFileStore store;
  PrivateProfile profile{store};
  int files = 0;

  // Never the same name twice: the system remembers files, and trusts their times.
  std::string make(std::string_view bytes) {
    const std::string name = "f" + std::to_string(++files) + ".cdh";
    folder.Write(name, bytes);
    const std::string path = (folder / name).make_preferred().string();
    store.Put(path, bytes);
    return path;
  }
  void Remove(const std::string& path) {
    store.Remove(path, true);
    DeleteFileW(WidePath(path).c_str());
  }

  std::string Ours(std::string_view section, std::string_view key, std::size_t size,
                   const std::string& path) {
    return Utf8ToAnsi(profile.GetPrivateProfileStringA(AnsiToUtf8(section), AnsiToUtf8(key),
                                                       "(default)", size, path));
  }
  static std::string Theirs(const std::string& section, const std::string& key, std::size_t size,
                            const std::string& path) {
    std::string buffer(size + 1, '\0');
    const DWORD count =
        GetPrivateProfileStringA(section.c_str(), key.c_str(), "(default)", buffer.data(),
                                 static_cast<DWORD>(size), path.c_str());
    return buffer.substr(0, count);
  }
  static void writeTheirs(const std::string& section, const std::string& key,
                          const std::string& value, const std::string& path) {
    WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), path.c_str());
    // Now the file is written and forgotten.
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
  }
};

const std::string sections[] = {"MACROS", "macros", "OTHER", "A B", "\xE4"};
const std::string keys[] = {"K", "k", "KK", "MENU_NEW", "A B", "\xE4", "\xC4", ";K", "#CRC"};
const std::size_t sizes[] = {127, 2, 3, 10};

// The system drops the closing mark of a quoted value only after it has cut the value, and so drops
// the last character of one that just fits.
std::string CutLikeTheirs(const std::string& ours, std::size_t size) {
  return ours.size() + 1 == size ? ours.substr(0, ours.size() - 1) : ours;
}

/// A file of the lines that such files have, and of all that can go wrong in them. What the two
/// are known to take differently does not occur; see KnownDifferences.
std::string GenerateFile(Dice& dice) {
  const std::string headings[] = {"[MACROS]", "[macros]",   "[OTHER]",  "[A B]",
                                  "[\xE4]",   " [MACROS] ", "\t[OTHER]"};
  const std::string oddLines[] = {
      "",        ";",       "; K=1", "#CRC 12", "  #crc  -5", "=",        "=1",   "BARE",
      "[MACROS", "MACROS]", "K=[X]", "//x",     "x[MACROS]",  "\xEF\xBB", "\xFF", "\x01\x02=\x03"};
  const std::string blanks[] = {"", "", "", " ", "\t", "  ", " \t "};
  const std::string lineEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\r\n", "\n\n"};
  constexpr std::string_view alphabet = "01239*#,ABC\"'= \t;[\\/%\x01\x7F\x80\x81\x9D\xA0\xE4\xFF";
  const std::string usualEnd = dice.OneOf(lineEnds);
  std::string file;
  const std::size_t lines = dice.Below(16);
  for (std::size_t i = 0; i < lines; ++i) {
    std::string line;
    if (dice.OneIn(5)) {
      line = dice.OneOf(headings);
    } else if (dice.OneIn(6)) {
      line = dice.OneOf(oddLines);
    } else {
      const std::string quotes[] = {"\"", "'", "", "", "\"\""};
      const std::string mark = dice.OneOf(quotes);
      const std::size_t longest = dice.OneIn(10) ? 300 : 8;
      line = dice.OneOf(blanks) + dice.OneOf(keys) + dice.OneOf(blanks) + "=" + dice.OneOf(blanks) +
             mark + dice.Text(alphabet, longest) + (dice.OneIn(5) ? dice.OneOf(quotes) : mark) +
             dice.OneOf(blanks);
    }
    file += line + (dice.OneIn(4) ? dice.OneOf(lineEnds) : usualEnd);
  }
  if (dice.OneIn(3) && !file.empty()) file.pop_back();
  return file;
}

// Values of generated files; into one of eight files both write first. The system writes the whole
// file anew in a form of its own, so the bytes cannot be the same. What both read in both is.
TEST_F(ProfileTest, ReadingAndWriting) {
  Dice dice(1);
  int reads = 0;
  int writes = 0;
  const int rounds = Rounds(3000);
  const std::string values[] = {"1", " \"1\"", "\"\"", " 12", "99999", " \"*#,1\"", "a=b;c", ""};
  for (int round = 0; round < rounds; ++round) {
    const std::string bytes = GenerateFile(dice);
    const std::string our = make(bytes);
    const std::string their = make(bytes);
    std::string story = testing::PrintToString(bytes);
    std::string section = dice.OneOf(sections);
    std::string key = dice.OneOf(keys);
    for (std::size_t left = dice.OneIn(8) ? 1 + dice.Below(4) : 0; left > 0; --left, ++writes) {
      section = dice.OneOf(sections);
      key = dice.OneOf(keys);
      const std::string value = dice.OneOf(values);
      EXPECT_TRUE(profile.WritePrivateProfileStringA(AnsiToUtf8(section), AnsiToUtf8(key),
                                                     AnsiToUtf8(value), our));
      writeTheirs(section, key, value, their);
      story += " [" + section + "] " + key + " := " + value;
    }
    std::vector<std::string> paths{their};
    if (store.Bytes(our) != bytes) paths.push_back(make(store.Bytes(our)));
    // The key that was written last, and some that may have been moved.
    for (int i = 0; i < 6; ++i) {
      const std::size_t size = dice.OneOf(sizes);
      const std::string expected = Ours(section, key, size, our);
      for (const std::string& path : paths) {
        ++reads;
        const std::string read = Theirs(section, key, size, path);
        if (read != CutLikeTheirs(expected, size)) {
          ASSERT_EQ(expected, read)
              << "[" << section << "] " << key << ", size " << size << ", in " << story;
        }
      }
      section = dice.OneOf(sections);
      key = dice.OneOf(keys);
    }
    Remove(our);
    for (const std::string& path : paths) Remove(path);
  }
  std::printf("%d values of %d files, %d written before\n", reads, rounds, writes);
}

struct KnownDifference {
  const char* why;
  std::string file;
  std::string ours;
  std::string theirs;
};

const std::string longText(126, 'x');

const KnownDifference knownDifferences[] = {
    {"a value may be as long as the buffer holds, with its marks or without",
     "[MACROS]\r\nK=\"" + longText + "\"\r\n", longText, longText.substr(1)},
    {"a line without an equals sign is no key", "[MACROS]\r\nK\r\nK=1\r\n", "1", "(default)"},
    {"a heading ends at its first bracket", "[MACROS] [X]\r\nK=1\r\n", "1", "(default)"},
    {"only blanks and tabs are white: vertical tab", "[MACROS]\r\nK=\v1\r\n", "\v1", "1"},
    {"form feed", "[MACROS]\r\nK=1\f\r\n", "1\f", "1"},
    {"the old mark of a file's end", "[MACROS]\r\nK=1\x1A\r\n", "1\x1A", "1"},
    {"a zero is a character like any other", "[MACROS]\r\nK=1\0002\r\n"s, "1\0002"s, "1"},
    {"a file is ANSI whatever mark it begins with", "\xEF\xBB\xBF[MACROS]\r\nK=\xC3\xA4\r\n",
     "(default)", "\xE4"},
    {"a file in UTF-16 has no keys", "\xFF\xFE" + Utf8ToUtf16("[MACROS]\r\nK=1"), "(default)", "1"},
};

TEST_F(ProfileTest, KnownDifferences) {
  for (const KnownDifference& known : knownDifferences) {
    const std::string path = make(known.file);
    EXPECT_EQ(Ours("MACROS", "K", 127, path), known.ours) << known.why;
    EXPECT_EQ(Theirs("MACROS", "K", 127, path), known.theirs) << known.why;
  }
}

}  // namespace
}  // namespace dialwright
