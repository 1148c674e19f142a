// What the window says beside the form of its scripts, and keys that come from another slot.

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include "../support/TempFolder.h"
#include "WindowTest.h"
#include "beside/KeyMapExchange.h"
#include "desktop/Dispatch.h"
#include "desktop/NoticeBar.h"
#include "text/Text.h"

namespace dialwright {

class FileSafetyTest : public WindowTest {
 protected:
  /// The first lines of what stands in the bar.
  std::vector<std::string> Notices() {
    QCoreApplication::processEvents();
    std::vector<std::string> texts;
    for (const auto* label : widget<NoticeBar>("fileNotices").findChildren<QLabel*>())
      if (label->isVisible() && !label->text().isEmpty())
        texts.push_back(label->text().section('\n', 0, 0).toStdString());
    return texts;
  }
  std::string Text(int number) { return world.program.mymyLoadString(number); }
  void PressInBar(int text) {
    for (auto* button : widget<NoticeBar>("fileNotices").findChildren<QPushButton*>())
      if (button->isVisible() && button->text().toStdString() == Text(text)) return button->click();
    FAIL() << "no button " << Text(text);
  }
  void Activate() {
    QEvent event(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &event);
  }
  std::string KeyOf(const std::string& token) {
    for (const KeyGrid::Cells& row : form.gridKeyMap[0].DataRows())
      if (row[static_cast<std::size_t>(Column::ActionToken)] == token)
        return row[static_cast<std::size_t>(Column::KeyAssignment)];
    return "none";
  }
  void ChangeOnDisk(const std::string& path) {
    const auto place = world.HostPath(path);
    const std::string text = ReplaceAll(BytesOf(place), "MENU_NEW=1", "MENU_NEW=\"888\"");
    std::ofstream(place, std::ios::binary) << text;
  }
};

TEST_F(FileSafetyTest, WhatASaveDidNotReachIsToldUntilOneIsComplete) {
  EXPECT_EQ(Notices(), std::vector<std::string>{});
  world.files.Lock(form.strMainMenuScript);
  user.Type("17", true);
  user.Click("cmdSave");
  ASSERT_FALSE(Notices().empty());
  EXPECT_EQ(Notices().front(), Text(1350));
  world.files.Unlock(form.strMainMenuScript);
  user.Type("18", true);
  user.Click("cmdSave");
  EXPECT_EQ(Notices(), std::vector<std::string>{});
}

TEST_F(FileSafetyTest, AScriptThatSomebodyElseHasChangedIsLoadedAnewIfTheUserSaysSo) {
  ChangeOnDisk(form.strMainMenuScript);
  EXPECT_EQ(Notices(), std::vector<std::string>{});
  window.Entry().Run([this] { Activate(); });
  EXPECT_EQ(Notices(), std::vector<std::string>{}) << "as while the box of a save is up";
  Activate();
  EXPECT_EQ(Notices(), std::vector{Text(1354)});
  user.Type("17", true);
  user.Leave();
  world.messages.answers = {MsgBoxAnswer::No};
  PressInBar(1360);
  EXPECT_EQ(KeyOf("MENU_NEW"), "17");
  world.messages.answers = {MsgBoxAnswer::Yes};
  PressInBar(1360);
  EXPECT_EQ(KeyOf("MENU_NEW"), "888");
  EXPECT_EQ(Notices(), std::vector<std::string>{});
}

TEST_F(FileSafetyTest, AScriptThatCouldNotBeReadIsToldBeforeItsBlankKeysAreSaved) {
  const std::string script = ReplaceAll(form.strMainMenuScript, "Custom.cdh", "Custom2.cdh");
  world.files.Lock(script);
  user.Click("mnuSelectDialwright2");
  EXPECT_EQ(KeyOf("MENU_NEW"), "");
  ASSERT_FALSE(Notices().empty());
  EXPECT_EQ(Notices().front(), Text(1355));
  world.files.Unlock(script);
  world.messages.answers = {MsgBoxAnswer::Yes};
  PressInBar(1360);
  EXPECT_EQ(KeyOf("MENU_NEW"), "8");
  EXPECT_EQ(Notices(), std::vector<std::string>{});
}

TEST_F(FileSafetyTest, KeysOfAnotherSlotAreOneStep) {
  EXPECT_FALSE(widget<QAction>("mnuCopyKeysFrom1").isVisible());
  widget<QAction>("mnuCopyKeysFrom2").trigger();
  EXPECT_EQ(KeyOf("MENU_NEW"), "8");
  EXPECT_TRUE(form.cmdSave.Enabled());
  EXPECT_EQ(user.Undo(), Outcome::done);
  EXPECT_EQ(KeyOf("MENU_NEW"), "1");
  EXPECT_EQ(user.Undo(), Outcome::refused);
  user.Click("mnuSelectDialwright2");
  EXPECT_FALSE(widget<QAction>("mnuCopyKeysFrom2").isVisible());
  EXPECT_TRUE(widget<QAction>("mnuCopyKeysFrom1").isVisible());
}

TEST_F(FileSafetyTest, ARefusedImportChangesNothingAndAnAcceptedOneIsOneStep) {
  world.MakeFile("C:\\a.json", R"({"format": "dialwright key map", "version": 1, "menus": {"main":
    [{"action": "MENU_NEW", "key": "17"}, {"action": "MENU_SEND", "key": "\u0001"}]}})");
  KeyMapNews news;
  user.Import("C:\\a.json", news);
  EXPECT_NE(news.fault.find("main, MENU_SEND"), std::string::npos) << news.fault;
  EXPECT_EQ(KeyOf("MENU_NEW"), "1");
  EXPECT_EQ(user.Undo(), Outcome::refused);
  world.MakeFile("C:\\a.json", R"({"format": "dialwright key map", "version": 1, "menus": {"main":
    [{"action": "MENU_NEW", "key": "17"}, {"action": "MENU_SEND", "key": "18"}]}})");
  user.Import("C:\\a.json", news);
  EXPECT_EQ(KeyOf("MENU_NEW") + KeyOf("MENU_SEND"), "1718");
  EXPECT_EQ(user.Undo(), Outcome::done);
  EXPECT_EQ(KeyOf("MENU_NEW") + KeyOf("MENU_SEND"), "12");
}

}  // namespace dialwright
