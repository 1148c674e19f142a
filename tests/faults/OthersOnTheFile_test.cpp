// Files that somebody else has changed, locked, linked or filled with something odd: what a save
// keeps of them, and what it does not touch.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "Desk.h"
#include "ScriptText.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;
using Path = const std::string&;

enum class Outcome {
  saved,      ///< the new keys are there, and every other line as it was
  untouched,  ///< not a byte has changed
  another,    ///< as the case itself tells
};

struct Case {
  std::string_view name;
  bool beforeStart;  ///< whether the load already finds it so
  Outcome outcome;
  void (*meddle)(Path path);
  bool (*holds)(Path path) = nullptr;  ///< afterwards, besides
  std::string_view said = "msgbox OK \"Custom conversation key mappings updated.\"";
};

std::string TextOf(Path path) { return fs::is_regular_file(path) ? BytesOf(path) : ""; }

void Put(Path path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }

void Change(Path path, std::string_view from, std::string_view to) {
  Put(path, ReplaceAll(TextOf(path), from, to));
}

mode_t ModeOf(Path path) {
  struct stat status {};
  lstat(path.c_str(), &status);
  return status.st_mode;
}

void SetMode(Path path, unsigned mode) { fs::permissions(path, fs::perms(mode)); }

const Case cases[] = {
    {"replacedBetweenLoadAndSave", false, Outcome::saved,
     [](Path path) {
       Put(path + ".new", ReplaceAll(TextOf(path), "FirstDigit=6000", "FirstDigit=1\r\nOTHER=1"));
       Change(path + ".new", "MENU_NEW=1", "MENU_NEW=888");
       fs::rename(path + ".new", path);
     }},
    {"aPipeInItsPlace", false, Outcome::another,
     [](Path path) {
       fs::remove(path);
       mkfifo(path.c_str(), 0666);
     },
     [](Path path) { return S_ISFIFO(ModeOf(path)); }},
    {"readOnly", false, Outcome::untouched, [](Path path) { SetMode(path, 0444); },
     [](Path path) { return (ModeOf(path) & 0777) == 0444; },
     "(error):70 (Permission denied) in procedure UpdateChecksumForFile"},
    {"inAReadOnlyFolder", false, Outcome::saved,
     [](Path path) { SetMode(fs::path(path).parent_path(), 0555); }},
    {"aSymbolicLink", false, Outcome::saved,
     [](Path path) {
       fs::rename(path, path + ".target");
       fs::create_symlink(path + ".target", path);
     },
     [](Path path) { return S_ISLNK(ModeOf(path)) && S_ISREG(ModeOf(path + ".target")); }},
    // The other name keeps the old bytes, whole: no crash can tear it.
    {"aHardLink", false, Outcome::saved,
     [](Path path) {
       fs::create_hard_link(path, path + ".twin");
       Put(path + ".copy", TextOf(path));
     },
     [](Path path) { return TextOf(path + ".twin") == TextOf(path + ".copy"); }},
    {"anotherMode", false, Outcome::saved, [](Path path) { SetMode(path, 02646); },
     [](Path path) { return (ModeOf(path) & 07777) == 02646; }},
    // Without its keys the menu comes up voiced and without keys, which no save writes.
    {"emptyAtTheStart", true, Outcome::untouched, [](Path path) { Put(path, ""); }, nullptr,
     "Invalid key assignement in the main menu."},
    {"empty", false, Outcome::saved, [](Path path) { Put(path, ""); }},
    {"withoutTheSection", false, Outcome::saved,
     [](Path path) { Change(path, "[MACROS]", "[MACRO]"); }},
    {"zeroBytesAndMixedLineEnds", true, Outcome::saved,
     [](Path path) {
       Change(path, "[TIMES]\r\n", "a\0b=\0\r\n\0\0\r\n[TIMES]\nlone=\rreturn\n\n"sv);
       Change(path, "MAIN_TIMEOUT=4000", "MAIN\0TIMEOUT=40\0"sv);
       Change(path, "\r\nMENU_SEND=", "\nMENU_SEND=");
     }},
    // No server reads such a file: nothing is written into it, and its backup is as it is.
    {"utf16", false, Outcome::untouched,
     [](Path path) { Put(path, "\xFF\xFE" + Utf8ToUtf16("[MACROS]\r\nA=1\r\n")); }},
    {"utf16BigEndian", true, Outcome::untouched,
     [](Path path) { Put(path, "\xFE\xFF\0[\0M\0]\0\n"sv); }, nullptr,
     "Invalid key assignement in the main menu."},
    {"carriageReturnsOnly", true, Outcome::saved,
     [](Path path) { Put(path, "#CRC 1\r" + ReplaceAll(TextOf(path), "\r\n", "\r")); }},
    {"twoCarriageReturnsAndALineFeed", true, Outcome::saved,
     [](Path path) { Change(path, "\r\n", "\r\r\n"); }},
    {"aChecksumThatACarriageReturnEnds", true, Outcome::saved,
     [](Path path) { Put(path, "#CRC 5\r[X]\n" + TextOf(path) + "#CRC 5\r"); }},
    {"keysMissingBeforeSuchAChecksum", false, Outcome::saved,
     [](Path path) {
       Change(path, "ORDINAL_MENU_HELP", "OTHER");
       Put(path, TextOf(path) + "#CRC 5\r");
     }},
    {"aLargeFile", true, Outcome::saved,
     [](Path path) {
       const std::string line = std::string(4 << 20, 'x') + "\r\n";
       std::string text;
       while (text.size() < 200u << 20) text += line;
       Put(path, text + TextOf(path));
     }},
};

class OthersOnTheFile : public testing::TestWithParam<Case> {
 protected:
  void ExpectSaved(const std::string& before, const std::string& found) {
    MemoryFileStore undisturbed(ServerFiles());
    Desk another(undisturbed);
    another.Start();
    another.Edit();
    another.Save();
    const ScriptText now(found);
    ScriptText wanted(before);
    wanted.keys = ScriptText(undisturbed.Bytes(slotScripts[0])).keys;
    if (std::ranges::find(wanted.others, "[MACROS]") == wanted.others.end())
      wanted.others.emplace_back("[MACROS]");
    EXPECT_TRUE(now.others == wanted.others) << "lines that are not ours have changed";
    EXPECT_EQ(now.keys, wanted.keys);
    EXPECT_TRUE(ChecksumFits(found));
    EXPECT_EQ(std::ranges::count(ReplaceAll(found, "\r\n", ""), '\n'), 0) << "other line ends";
    EXPECT_TRUE(server.disk.Read(R"(C:\Dialwright\Backup\Macros_MenuAlternate_Custom.cdh)") ==
                found);
  }

  const OrdinaryUser user;
  Server server;
  Desk desk{server.disk};
};

TEST_P(OthersOnTheFile, IsKept) {
  const Case& c = GetParam();
  const std::string path = server.disk.HostPath(slotScripts[0]);
  if (c.beforeStart) c.meddle(path);
  desk.Start();
  desk.Edit();
  if (!c.beforeStart) c.meddle(path);
  const std::string before = TextOf(path);
  desk.printer.lines.clear();
  desk.Save();
  const std::string found = TextOf(path);
  SetMode(fs::path(path).parent_path(), 0755);
  EXPECT_TRUE(c.holds == nullptr || c.holds(path));
  EXPECT_TRUE(std::ranges::any_of(desk.printer.lines, [&](const std::string& line) {
    return line.find(c.said) != std::string::npos;
  })) << testing::PrintToString(desk.printer.lines);
  if (c.outcome == Outcome::saved) ExpectSaved(before, found);
  EXPECT_TRUE(found == before || c.outcome != Outcome::untouched);
}

INSTANTIATE_TEST_SUITE_P(Cases, OthersOnTheFile, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace dialwright
