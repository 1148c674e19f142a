#include "cli/CommandLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "../support/TempFolder.h"
#include "text/Text.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> FilesIn(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file())
      files[fs::relative(entry.path(), folder).generic_string()] = BytesOf(entry.path());
  }
  return files;
}

/// A desk with a copy of each server image, and the terminal at it. In arguments and in what is
/// expected `@` is the desk's folder.
class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    fs::copy(fs::path(DIALWRIGHT_SOURCE_DIR) / "sandbox", desk.path, fs::copy_options::recursive);
    // Earlier versions are kept with the user's own data.
    static TempFolder data;
    static std::string places[] = {"XDG_DATA_HOME=" + data.path.string(),
                                   "LOCALAPPDATA=" + data.path.string()};
    for (std::string& place : places) putenv(place.data());
  }

  ExitCode Run(const std::string& line) {
    std::istringstream words(line);
    std::vector<std::string> arguments;
    for (std::string word; words >> word;) arguments.push_back(AtDesk(word));
    results.str("");
    said.str("");
    return RunCommandLine(arguments, {results, said});
  }
  std::string AtDesk(const std::string& text) const {
    return ReplaceAll(text, "@", desk.path.generic_string());
  }
  void Replace(const std::string& from, const std::string& what, const std::string& with,
               const std::string& to) {
    desk.Write(to, ReplaceAll(desk.Read(from), what, with));
  }

  TempFolder desk;
  std::ostringstream results, said;
};

TEST_F(CommandLine, EndsAsThePageSays) {
  ASSERT_EQ(Run("export --server @/merid-7.0-2.0 @/a.json"), ExitCode::done);
  Replace("a.json", "\"MENU_NEW\", \"key\": \"1\"", "\"MENU_NEW\", \"key\": \"2\"", "clash.json");
  Replace("a.json", "\"MENU_NEW\", \"key\": \"1\"", "\"MENU_NEW\", \"key\": \"17\"", "b.json");
  Replace("a.json", "MENU_SEND", "MENU_SENT", "other.json");
  desk.Write("none.json", "{\n  ?");
  desk.Write("large.json", std::string(3'000'000, ' '));
  struct Row {
    std::string line;
    ExitCode code;
    std::string results, said;  ///< what stands in them; "-" where nothing may
  };
  const Row rows[] = {
      {"", ExitCode::wrongUse, "-", "A subcommand is required"},
      {"shows", ExitCode::wrongUse, "-", "dialwright-cli: "},
      {"check --slot 4", ExitCode::wrongUse, "-", "--slot"},
      {"apply", ExitCode::wrongUse, "-", "FILE"},
      {"show --dry-run", ExitCode::wrongUse, "-", "--dry-run"},
      {"--version", ExitCode::done, "Dialwright ", "-"},
      {"show --help", ExitCode::done, "--slot", "-"},
      {"show --server @", ExitCode::unreadable, "-", "server.reg"},
      {"show --server @/tessel-1.1-0.0 --slot 2", ExitCode::unreadable, "-", "no slot 2"},
      {"diff @/a.json @/missing.json", ExitCode::unreadable, "-", "missing.json"},
      {"diff @/none.json @/a.json", ExitCode::unreadable, "-", "line 2, column 3"},
      {"diff @/a.json @/large.json", ExitCode::unreadable, "-", "larger than 1 MB"},
      {"diff @/a.json @/merid-7.0-2.0#7", ExitCode::wrongUse, "-", "1, 2 or 3"},
      {"check --server @/merid-7.0-2.0", ExitCode::done, "Slot 3", "-"},
      {"check --server @/merid-7.0-2.0 --slot 1 --json", ExitCode::done,
       "{\n  \"edition\": \"Merid\",\n  \"server\": \"7.0(2.0)\",\n  \"slots\": [\n    {\n      "
       "\"slot\": 1,",
       "-"},
      {"show --server @/merid-7.0-2.0", ExitCode::done,
       "  1   Hear new messages                 MENU_NEW\n", "-"},
      {"show --server @/merid-7.0-2.0 --json", ExitCode::done,
       "{\n  \"format\": \"dialwright key map\",\n", "-"},
      {"diff @/a.json @/merid-7.0-2.0", ExitCode::done, "-", "-"},
      {"diff @/a.json @/b.json", ExitCode::found, "main MENU_NEW key \"1\" \"17\"\n", "-"},
      {"diff @/a.json @/other.json", ExitCode::found, "main MENU_SEND silent\n", "-"},
      {"diff --json @/a.json @/b.json", ExitCode::found, "\"now\": \"17\"", "-"},
      {"apply --server @/merid-7.0-2.0 @/clash.json", ExitCode::found, "-",
       "refused main: Duplicate key map for the main menu: 2 MENU_NEW MENU_SEND"},
      {"apply --server @/merid-7.0-2.0 @/none.json", ExitCode::unreadable, "-", "line 2, column 3"},
      {"apply --server @/merid-7.0-2.0 @/other.json --dry-run", ExitCode::done,
       "+ORDINAL_MENU_SEND= 90", "  main MENU_SENT\n"},
      {"apply --server @/merid-7.0-2.0 @/b.json --dry-run", ExitCode::done, "+MENU_NEW= \"17\"",
       "key mappings updated"},
  };
  const auto before = FilesIn(desk.path);
  const auto holds = [&](const std::string& text, const std::string& part) {
    return part == "-" ? text.empty() : text.find(AtDesk(part)) != std::string::npos;
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Run(row.line), row.code) << row.line << '\n' << said.str();
    EXPECT_TRUE(holds(results.str(), row.results)) << row.line << '\n' << results.str();
    EXPECT_TRUE(holds(said.str(), row.said)) << row.line << '\n' << said.str();
    if (row.code == ExitCode::wrongUse || row.code == ExitCode::unreadable) {
      EXPECT_EQ(std::ranges::count(said.str(), '\n'), 1) << row.line << '\n' << said.str();
    }
  }
  EXPECT_EQ(FilesIn(desk.path), before);
}

TEST_F(CommandLine, CarriesAKeyMapToAnotherSlotAndBack) {
  ASSERT_EQ(Run("export --server @/merid-7.0-2.0 @/first.json"), ExitCode::done);
  ASSERT_EQ(Run("apply --server @/merid-7.0-2.0 --slot 2 @/first.json"), ExitCode::done);
  EXPECT_EQ(Run("diff @/merid-7.0-2.0 @/merid-7.0-2.0#2"), ExitCode::done) << results.str();
}

/// The scripts behind a change that is taken back by a key map file are those of a save of the
/// first state, on every image.
TEST_F(CommandLine, BringsBackWhatWasExported) {
  for (const std::string server :
       {"merid-4.0-5.0", "merid-4.3-0.15", "merid-7.0-2.0", "tessel-1.1-0.0"}) {
    const std::string at = " --server @/" + server + " ";
    const fs::path folder = desk.path / server / "drive_c";
    ASSERT_EQ(Run("export" + at + "@/first.json"), ExitCode::done) << said.str();
    ASSERT_EQ(Run("apply" + at + "@/first.json"), ExitCode::done) << said.str();
    const auto saved = FilesIn(folder);
    desk.Write("other.json", R"({"format": "dialwright key map", "version": 1, "menus": {"main": [
      {"action": "MENU_EXIT", "key": "98", "voiced": true},
      {"action": "MENU_HELP", "key": "97", "voiced": false}]}})");
    ASSERT_EQ(Run("apply" + at + "@/other.json"), ExitCode::done) << server << said.str();
    EXPECT_NE(FilesIn(folder), saved);
    ASSERT_EQ(Run("apply" + at + "@/first.json"), ExitCode::done) << said.str();
    EXPECT_EQ(FilesIn(folder), saved) << server;
  }
}

}  // namespace
}  // namespace dialwright
