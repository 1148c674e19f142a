// Files that somebody else has changed, locked, linked or filled with something odd: what a save
// keeps of them, and what it does not touch.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>

#include "Desk.h"
#include "ScriptText.h"
#include "Server.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using namespace std::string_view_literals;

/// What a save of the main menu and the globals writes, by section.
std::map<std::string, std::string> wantedKeys(const frmMain& form, int index) {
  std::map<std::string, std::string> keys;
  const KeyGrid& grid = At(form.gridKeyMap, index);
  for (int row = 1; row < grid.Rows(); ++row) {
    const std::string token = grid.Text(row, Column::ActionToken);
    keys[token] = " \"" + grid.Text(row, Column::KeyAssignment) + "\"";
    if (index == 0) keys["ORDINAL_" + token] = " " + grid.Text(row, Column::Order);
  }
  if (index == 0)
    for (const char* name : {"INACTIVE_KEYS", "SHORTCUT_IGNORE_KEYS", "EXTENDED_DOUBLE_TT_KEYS"})
      keys[std::string("MENU_") + name] = " \"\"";
  return keys;
}

enum class Outcome {
  saved,      ///< the new keys are there, and every other line as it was
  another,    ///< as the case itself tells
  untouched,  ///< not a byte has changed
  missing,    ///< there is still no such file
};

struct Case {
  std::string_view name;
  bool beforeStart;  ///< whether the load already finds it so
  Outcome outcome;
  void (*meddle)(const std::string& path);
  /// What else has to hold afterwards.
  bool (*holds)(const std::string& path, const Lines& said) = nullptr;
};

std::string bytesOf(const std::string& path) {
  if (!fs::is_regular_file(path)) return {};
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void put(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<long>(bytes.size()));
}

void change(const std::string& path, std::string_view from, std::string_view to) {
  put(path, ReplaceAll(bytesOf(path), from, to));
}

bool saidSo(const Lines& said, std::string_view part) {
  return std::ranges::any_of(
      said, [part](const std::string& line) { return line.find(part) != std::string::npos; });
}

struct stat statusOf(const std::string& path) {
  struct stat status {};
  lstat(path.c_str(), &status);
  return status;
}

template <unsigned mode>
Case permissions(std::string_view name) {
  return {name, false, Outcome::saved, [](const std::string& path) { ::chmod(path.c_str(), mode); },
          [](const std::string& path, const Lines&) {
            return (statusOf(path).st_mode & 07777) == mode;
          }};
}

constexpr std::string_view updated = "Custom conversation key mappings updated.";
constexpr std::size_t large = 200u << 20;

const Case cases[] = {
    {"changedBetweenLoadAndSave", false, Outcome::saved,
     [](const std::string& path) {
       change(path, "MAIN_TIMEOUT=4000", "MAIN_TIMEOUT=9\r\nOTHER=1");
       change(path, "MENU_NEW=1", "MENU_NEW=888");
     }},
    {"replacedBetweenLoadAndSave", false, Outcome::saved,
     [](const std::string& path) {
       put(path + ".new", ReplaceAll(bytesOf(path), "FirstDigit=6000", "FirstDigit=1"));
       fs::rename(path + ".new", path);
     }},
    {"goneBetweenLoadAndSave", false, Outcome::missing,
     [](const std::string& path) { fs::remove(path); },
     [](const std::string&, const Lines& said) {
       return saidSo(said, "Error 53 (File not found) in procedure BackupScriptFiles") &&
              saidSo(said, updated);
     }},
    {"aPipeInItsPlace", false, Outcome::missing,
     [](const std::string& path) {
       fs::remove(path);
       mkfifo(path.c_str(), 0666);
     }},
    {"readOnly", false, Outcome::untouched,
     [](const std::string& path) { ::chmod(path.c_str(), 0444); },
     [](const std::string& path, const Lines& said) {
       return saidSo(said, "(error):70 (Permission denied) in procedure UpdateChecksumForFile") &&
              saidSo(said, updated) && (statusOf(path).st_mode & 0777) == 0444;
     }},
    {"inAReadOnlyFolder", false, Outcome::saved,
     [](const std::string& path) { ::chmod(fs::path(path).parent_path().c_str(), 0555); },
     [](const std::string& path, const Lines&) {
       return ::chmod(fs::path(path).parent_path().c_str(), 0755) == 0;
     }},
    {"aSymbolicLink", false, Outcome::saved,
     [](const std::string& path) {
       fs::rename(path, path + ".target");
       fs::create_symlink(path + ".target", path);
     },
     [](const std::string& path, const Lines&) {
       return S_ISLNK(statusOf(path).st_mode) && S_ISREG(statusOf(path + ".target").st_mode);
     }},
    // The other name keeps the old bytes, whole: no crash can tear it.
    {"aHardLink", false, Outcome::saved,
     [](const std::string& path) {
       fs::create_hard_link(path, path + ".twin");
       put(path + ".copy", bytesOf(path));
     },
     [](const std::string& path, const Lines&) {
       return bytesOf(path + ".twin") == bytesOf(path + ".copy");
     }},
    permissions<0640>("mode640"),
    permissions<0606>("mode606"),
    permissions<02664>("modeSetGroup"),
    // Without its keys the menu comes up voiced and without keys, which no save writes.
    {"emptyAtTheStart", true, Outcome::untouched, [](const std::string& path) { put(path, ""); },
     [](const std::string&, const Lines& said) {
       return saidSo(said, "Invalid key assignement in the main menu.");
     }},
    {"empty", false, Outcome::saved, [](const std::string& path) { put(path, ""); }},
    {"withoutTheSection", false, Outcome::saved,
     [](const std::string& path) { change(path, "[MACROS]", "[MACRO]"); }},
    {"withoutALastLineEnd", false, Outcome::saved,
     [](const std::string& path) { put(path, "[OTHER]\r\nx=1\r\n[macros]\r\nMENU_NEW = 7"); }},
    {"zeroBytes", true, Outcome::saved,
     [](const std::string& path) {
       change(path, "[TIMES]", "a\0b=\0\r\n\0\0\r\n[TIMES]"sv);
       change(path, "MAIN_TIMEOUT=4000", "MAIN\0TIMEOUT=40\0"sv);
     }},
    {"mixedLineEnds", true, Outcome::saved,
     [](const std::string& path) {
       change(path, "[TIMES]\r\n", "[TIMES]\nlone=\rreturn\n\n");
       change(path, "MENU_SEND", "X=1\nMENU_SEND");
     }},
    // It has no keys as far as anybody can tell; the checksum's rewrite makes it ANSI.
    {"utf16", false, Outcome::another,
     [](const std::string& path) { put(path, "\xFF\xFE" + Utf8ToUtf16("[MACROS]\r\nA=1\r\n")); },
     [](const std::string& path, const Lines&) { return bytesOf(path) == "[MACROS]\r\nA=1\r\n"; }},
    {"largeAsADisk", true, Outcome::saved,
     [](const std::string& path) {
       std::string text = "[CONVERSATION]\r\n" + std::string(4 << 20, 'x') + "\r\n";
       while (text.size() < large)
         text += text.substr(0, std::min(text.size(), large - text.size()));
       text = ReplaceAll(text, "[CONVERSATION]", "NOTHING");
       put(path, text + "\r\n" + bytesOf(path));
     }},
};

class OthersOnTheFile : public testing::TestWithParam<Case> {
 protected:
  /// Who owns the machine may write everywhere, and would see none of this.
  void becomeOrdinary() {
    server.giveToOrdinaryUser();
    if (owner && (setegid(ordinaryUser) != 0 || seteuid(ordinaryUser) != 0)) FAIL();
  }
  void TearDown() override {
    if (owner && (seteuid(0) != 0 || setegid(0) != 0)) FAIL();
  }

  void expectSaved(const std::string& before, const std::string& found) {
    const ScriptText old(before);
    const ScriptText now(found);
    Lines others = old.others;
    if (std::ranges::none_of(others, [](const std::string& line) {
          return StartsWithIgnoringCase(line, "[MACROS]");
        }))
      others.emplace_back("[MACROS]");
    EXPECT_TRUE(now.others == others) << "lines that are not ours have changed";
    EXPECT_EQ(now.keys[0], wantedKeys(desk.form(), 0));
    EXPECT_EQ(now.keys[5], wantedKeys(desk.form(), 5));
    EXPECT_TRUE(ChecksumFits(found));
    const auto feeds = static_cast<std::size_t>(std::ranges::count(found, '\n'));
    EXPECT_EQ(found.size() - ReplaceAll(found, "\r\n", "\n").size(), feeds) << "other line ends";
    EXPECT_TRUE(server.disk.read(Server::backup(slotScripts[0])) == found);
  }

  const bool owner = geteuid() == 0;
  Server server;
  Desk desk{server.disk};
};

TEST_P(OthersOnTheFile, IsKept) {
  const Case& c = GetParam();
  const std::string path = server.disk.HostPath(Server::script(slotScripts[0]));
  becomeOrdinary();
  if (c.beforeStart) c.meddle(path);
  desk.start();
  desk.edit();
  if (!c.beforeStart) c.meddle(path);
  const std::string before = bytesOf(path);
  desk.printer.lines.clear();
  desk.save();
  const std::string found = bytesOf(path);
  EXPECT_TRUE(c.holds == nullptr || c.holds(path, desk.printer.lines))
      << testing::PrintToString(desk.printer.lines);
  EXPECT_EQ(fs::is_regular_file(path), c.outcome != Outcome::missing);
  EXPECT_TRUE(found == before || c.outcome != Outcome::untouched);
  if (c.outcome == Outcome::saved) expectSaved(before, found);
}

INSTANTIATE_TEST_SUITE_P(Cases, OthersOnTheFile, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace dialwright
