// What the window says once a card has been started.

#include <QDesktopServices>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>
#include <filesystem>

#include "WindowTest.h"
#include "desktop/CardNotice.h"
#include "shell/frmMain.h"

namespace dialwright {

/// A search path with a Java of the test's own, or none; each call of it leaves a line in a file.
class CardNoticeTest : public WindowTest {
 protected:
  CardNoticeTest() : notice(*new CardNotice(world.program, world.messages)) {
    namespace fs = std::filesystem;
    const fs::path program = world.HostPath("C:\\Dialwright");
    fs::create_directories(program / "PDFFoldoutBuilder");
    fs::create_directories(program / "XMLShots");
    const fs::path files = fs::path(DIALWRIGHT_SOURCE_DIR) / "program";
    fs::copy(files / "Blank_Map_Template_50.htm", program);
    fs::copy(files / "XMLShots/StandardKeyMap.XML", program / "XMLShots");
    window.AddNotice(notice);
    qputenv("PATH", folder.path().toUtf8());
    user.Tab(setupTab);
    user.Set("chkGeneratePDF", 1);
    Shown();
  }
  ~CardNoticeTest() override { qputenv("PATH", path); }

  void install(const char* version) {
    QFile java(folder.filePath("java"));
    ASSERT_TRUE(java.open(QIODevice::WriteOnly));
    java.write("#!/bin/sh\necho \"$@\" >> \"${0%/*}/calls\"\necho 'openjdk version \"");
    java.write(version);
    java.write("\"' >&2\n");
    java.close();
    java.setPermissions(java.permissions() | QFile::ExeOwner);
  }
  /// The boxes that come up, apart from what the form shows.
  std::vector<std::string> boxes() {
    for (int round = 0; round < 40; ++round) QTest::qWait(10);
    std::vector<std::string> lines = Shown();
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("msgbox"); });
    return lines;
  }
  void save() {
    user.Tab(0);
    user.Type(std::to_string(++saves), true);
    ASSERT_EQ(user.Click("cmdSave"), Outcome::done);
  }

  const QByteArray path = qgetenv("PATH");
  QTemporaryDir folder;
  CardNotice& notice;
  int saves = 70;
};

TEST_F(CardNoticeTest, TellsWhereTheCardWillBeAndOnceWhatItLeavesOut) {
  install("17.0.15");
  EXPECT_FALSE(notice.isVisible());
  save();
  EXPECT_TRUE(notice.isVisible());
  const std::vector<std::string> first = boxes();
  ASSERT_EQ(first.size(), 1U);
  EXPECT_TRUE(first[0].starts_with("msgbox OK \"The card leaves out these actions"));
  EXPECT_NE(first[0].find("<CR><LF>Globals: Increase Speed and Save (*6)"), first[0].npos)
      << first[0];
  save();
  user.Click("mnuWKWStandard");
  EXPECT_TRUE(boxes().empty());
  QFile calls(folder.filePath("calls"));
  ASSERT_TRUE(calls.open(QIODevice::ReadOnly));
  EXPECT_EQ(calls.readAll(), "-version\n");

  QTextBrowser opened;  // in the place of the desktop's own
  QDesktopServices::setUrlHandler("file", &opened, "setSource");
  QTest::mouseClick(&widget<QPushButton>("openCardFolder"), Qt::LeftButton);
  QDesktopServices::unsetUrlHandler("file");
  EXPECT_EQ(opened.source(),
            QUrl::fromLocalFile(QString::fromStdString(
                world.HostPath("C:\\Dialwright\\PDFFoldoutBuilder\\PDF").string())));
}

TEST_F(CardNoticeTest, AJavaThatMakesNoCardEndsInABox) {
  install("1.8.0_402");
  for (int card = 0; card < 2; ++card) {
    user.Click("mnuWKWStandard");
    const std::vector<std::string> told = boxes();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("is 1.8.0_402"), told[0].npos) << told[0];
    EXPECT_FALSE(notice.isVisible());
  }
}

TEST_F(CardNoticeTest, SoDoesNone) {
  save();
  const std::vector<std::string> told = boxes();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("there is no Java"), told[0].npos) << told[0];
}

TEST_F(CardNoticeTest, NothingIsSaidOfACardThatHasNoKeyMap) {
  install("1.8.0_402");
  std::filesystem::remove(world.HostPath("C:\\Dialwright\\Blank_Map_Template_50.htm"));
  save();
  EXPECT_EQ(boxes(),
            std::vector<std::string>{"msgbox OK \"" + world.program.mymyLoadString(1146) + "\""});
  EXPECT_FALSE(notice.isVisible());
}

}  // namespace dialwright
