// A key map that leaves the editor and comes back.

#include "beside/KeyMapExchange.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "Desk.h"
#include "keymap/Catalogue.h"
#include "presets/Presets.h"
#include "scripts/Checksum.h"
#include "text/Lines.h"
#include "transcript/HeadlessUser.h"

namespace dialwright {
namespace {

constexpr std::string_view file = R"(C:\keys.json)";

/// Gives the key of one action of each menu to another and moves a third: where a stock
/// conversation drops rows, it drops the other.
void Edit(HeadlessUser& user, const frmMain& form) {
  constexpr auto token = static_cast<std::size_t>(Column::ActionToken);
  constexpr auto key = static_cast<std::size_t>(Column::KeyAssignment);
  for (int grid = 0; grid < gridCount; ++grid) {
    if (user.Tab(grid) != Outcome::done) continue;
    const auto rows = At(form.gridKeyMap, grid).DataRows();
    const auto dropped = std::ranges::find_if(
        rows, [](const auto& row) { return row[token].ends_with("SKIP_MARK_ASIS"); });
    const std::string one = rows.front()[token], oneKey = rows.front()[key];
    const std::string other = (dropped == rows.end() ? rows.back() : *dropped)[token];
    user.Row(grid, one);
    user.Type("", true);
    user.Row(grid, other);
    user.Type(oneKey, true);
    user.Row(grid, 3);
    user.Spin(true);
  }
  user.Leave();
}

/// The server's scripts behind a save of a user's key map, which may have left the editor and come
/// in again behind a stock conversation.
Files Saved(std::string_view server, const Preset* stock) {
  MemoryFileStore files(ServerFiles(server));
  Desk desk(files, server);
  desk.Start();
  HeadlessUser user(desk.program);
  Edit(user, desk.Form());
  if (stock != nullptr) {
    KeyMapNews news;
    user.Export(file, news);
    desk.messages.answers = {MsgBoxAnswer::Yes};
    user.Click((desk.Form().*stock->item).Name);
    user.Import(file, news);
    EXPECT_EQ(SkippedText(desk.Form(), news.skipped), "") << server << stock->stockScript;
  }
  desk.printer.lines.clear();
  user.Click("cmdSave");
  EXPECT_EQ(desk.Form().lastSave.kind, SaveOutcome::Kind::complete)
      << server << testing::PrintToString(desk.printer.lines);
  Files saved = files.All();
  std::erase_if(saved, [](const auto& entry) { return !entry.first.starts_with(R"(c:\telhost)"); });
  return saved;
}

/// The lines of a script, each with its characters in order: lists of keys follow the rows, and a
/// stock conversation may leave those that are silent in another order. Without the checksum, and
/// without the actions that stock conversations give to servers that do not have them.
std::multiset<std::string> KeysOf(const std::string& bytes) {
  std::multiset<std::string> lines;
  for (LineReader reader(bytes); !reader.AtEnd();) {
    std::string line(reader.Next());
    const std::string_view token =
        std::string_view(line).substr(std::min(line.find("MENU_"), line.size()));
    const Action* action = FindAction(mainMenuGrid, token.substr(0, token.find('=')));
    if (IsChecksumLine(line) || (action != nullptr && !action->gate.any)) continue;
    std::ranges::sort(line);
    lines.insert(std::move(line));
  }
  return lines;
}

TEST(KeyMapExchange, ComesBackBehindAStockConversation) {
  constexpr std::pair<std::string_view, bool> servers[] = {{"merid-4.0-5.0", false},
                                                           {"merid-4.3-0.15", true},
                                                           {"merid-7.0-2.0", true},
                                                           {"tessel-1.1-0.0", false}};
  for (const auto& [server, hasAllActions] : servers) {
    const Files wanted = Saved(server, nullptr);
    EXPECT_NE(wanted, ServerFiles(server));
    for (const Preset& stock : Presets()) {
      const Files found = Saved(server, &stock);
      for (const auto& [path, bytes] : wanted) {
        EXPECT_EQ(KeysOf(found.at(path)), KeysOf(bytes)) << server << stock.stockScript;
        EXPECT_TRUE(!hasAllActions || found.at(path) == bytes) << server << stock.stockScript;
      }
    }
  }
}

}  // namespace
}  // namespace dialwright
