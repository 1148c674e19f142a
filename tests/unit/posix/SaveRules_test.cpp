// The findings against the save itself: over random edits a save is refused exactly if there is a
// refusal, and its box is the first one's text.

#include "validation/SaveRules.h"

#include <gtest/gtest.h>

#include <random>

#include "Desk.h"
#include "beside/Findings.h"
#include "transcript/HeadlessUser.h"

namespace dialwright {

namespace {

constexpr std::string_view texts[] = {"",  "1",  "2", "5",  "7",   "9",  "12", "77", "99",
                                      "*", "*1", "#", "88", "# *", "1a", "-5", "+5", "912"};

class Walk {
 public:
  Walk(std::string_view server, unsigned seed) : store(ServerFiles(server)), desk(store, server) {
    random.seed(seed);
    desk.Start();
  }

  void Edit() {
    const int tab = desk.Form().SSTab1.Tab();
    switch (Below(8)) {
      case 0:
        user.Tab(Below(TabStrip::tabCount));
        break;
      case 1:
        user.Set("chkDontVoiceAction(" + std::to_string(tab) + ")", Below(2));
        break;
      case 2:
        user.Spin(Below(2) == 0);
        break;
      case 3:
        // Faults pile up: now and then the whole map comes anew.
        desk.messages.answers.assign(3, MsgBoxAnswer::Yes);
        if (Below(3) == 0) user.Click("mnuResetKeysToAlternateKeyMappingN");
        break;
      default:
        user.Row(tab, 1 + Below(36));
        user.Type(texts[random() % std::size(texts)], true);
    }
  }

  void Save() {
    if (!desk.Form().cmdSave.Enabled) return;
    const std::vector<Finding> findings = Findings(desk.Form());
    desk.printer.lines.clear();
    desk.messages.answers = {};
    user.Click("cmdSave");
    ASSERT_FALSE(desk.printer.lines.empty());
    if (!findings.empty() && findings.front().kind == FindingKind::refused) {
      ++refused;
      EXPECT_EQ(desk.printer.lines, std::vector{"msgbox OK " + Shown(findings.front().text)});
    } else {
      ++saved;
      EXPECT_EQ(desk.printer.lines.back(),
                "msgbox OK \"Custom conversation key mappings updated.\"");
    }
  }

  int refused = 0;
  int saved = 0;

 private:
  int Below(std::size_t count) { return static_cast<int>(random() % count); }

  MemoryFileStore store;
  Desk desk;
  HeadlessUser user{desk.program};
  std::mt19937 random;
};

}  // namespace

TEST(SaveRules, ASaveIsRefusedExactlyForTheFirstFinding) {
  unsigned seed = 0;
  for (const std::string_view server : {"merid-7.0-2.0", "merid-4.0-5.0", "tessel-1.1-0.0"}) {
    int refused = 0;
    int saved = 0;
    for (int round = 0; round < 40; ++round) {
      Walk walk(server, ++seed);
      for (int edit = 0; edit < 84; ++edit) {
        walk.Edit();
        if (edit % 3 == 0) walk.Save();
        if (::testing::Test::HasFailure()) FAIL() << server << ", seed " << seed;
      }
      refused += walk.refused;
      saved += walk.saved;
    }
    EXPECT_GT(refused, 100) << server;
    EXPECT_GT(saved, 100) << server;
  }
}

}  // namespace dialwright
