#include <QAction>
#include <QApplication>
#include <QFontDatabase>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "WindowTest.h"
#include "desktop/AboutDialog.h"
#include "desktop/LanguageFontResolver.h"
#include "desktop/QtMessageBoxes.h"
#include "transcript/PeWriter.h"

namespace dialwright {

namespace {

/// Does something with the message box that comes up next.
void withNextBox(const std::function<void(QMessageBox&)>& use) {
  QTimer::singleShot(0, [use] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(box));
    use(*box);
  });
}

TEST(QtMessageBoxes, AnswersComeFromButtonsLettersAndTheCloseBox) {
  const auto key = [](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [=](QMessageBox& box) { QTest::keyClick(&box, pressed, modifiers); };
  };
  const auto button = [](QMessageBox::StandardButton which) {
    return [=](QMessageBox& box) { QTest::mouseClick(box.button(which), Qt::LeftButton); };
  };
  const std::tuple<MsgBoxButtons, std::function<void(QMessageBox&)>, MsgBoxAnswer> rows[] = {
      {MsgBoxButtons::OK, button(QMessageBox::Ok), MsgBoxAnswer::OK},
      {MsgBoxButtons::OK, key(Qt::Key_Escape), MsgBoxAnswer::OK},
      {MsgBoxButtons::YesNo, button(QMessageBox::Yes), MsgBoxAnswer::Yes},
      {MsgBoxButtons::YesNo, button(QMessageBox::No), MsgBoxAnswer::No},
      {MsgBoxButtons::YesNo, key(Qt::Key_Return), MsgBoxAnswer::Yes},
      {MsgBoxButtons::YesNo, key(Qt::Key_N, Qt::AltModifier), MsgBoxAnswer::No},
      {MsgBoxButtons::YesNo, key(Qt::Key_Escape), MsgBoxAnswer::No},
      {MsgBoxButtons::YesNo, [](QMessageBox& box) { box.close(); }, MsgBoxAnswer::No},
  };
  QtMessageBoxes messages("Program");
  for (const auto& [buttons, use, answer] : rows) {
    withNextBox(use);
    EXPECT_EQ(messages.MsgBox("text", buttons, ""), answer);
  }
}

TEST(QtMessageBoxes, TheTextIsPlainAndCanBeCopied) {
  QtMessageBoxes messages("Program");
  withNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Program");
    EXPECT_EQ(box.text(), "C:\\<b>\n& more");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_TRUE(box.textInteractionFlags() & Qt::TextSelectableByMouse);
    box.close();
  });
  messages.MsgBox("C:\\<b>\r\n& more", MsgBoxButtons::OK, "");
  withNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Title");
    box.close();
  });
  messages.MsgBox("", MsgBoxButtons::OK, "Title");
}

class AboutDialogTest : public WindowTest {
 protected:
  AboutDialogTest() {
    for (const char* code : {"DEU", "JPN"})
      world.makeFile("C:\\Dialwright\\Dialwright_" + std::string(code) + ".dll",
                     MakeStringLibrary({{1036, u"&Beenden"}, {1098, u"Gut"}}));
    user.click("mnuAbout");
  }
  AboutDialog& about() { return *window.aboutBox(); }
};

TEST_F(AboutDialogTest, ALanguageIsSpokenByBothWindowsAtOnce) {
  for (const Control* control : world.program.about().Controls)
    EXPECT_NE(about().findChild<QObject*>(QString::fromStdString(control->Name)), nullptr)
        << control->Name;
  EXPECT_TRUE(about().isModal());
  auto* opener = about().findChild<QPushButton*>("lblChangeLanguage");
  opener->setFocus();
  QTest::keyClick(opener, Qt::Key_Space);
  auto* list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->actions().size(), 2);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(about().findChild<QPushButton*>("cmdOK")->text(), "Gut");
  EXPECT_EQ(widget<QPushButton>("cmdExit").text(), "&Beenden");
}

TEST_F(AboutDialogTest, AnyWayToCloseItIsItsButton) {
  const std::function<void()> ways[] = {
      [this] { QTest::mouseClick(about().findChild<QPushButton*>("cmdOK"), Qt::LeftButton); },
      [this] { QTest::keyClick(&about(), Qt::Key_Escape); },
      [this] { QTest::keyClick(&about(), Qt::Key_Return); },
      [this] { about().close(); },
  };
  AboutDialog* first = window.aboutBox();
  for (const auto& way : ways) {
    EXPECT_EQ(user.click("cmdSave"), Outcome::refused);
    way();
    EXPECT_FALSE(about().isVisible());
    EXPECT_FALSE(world.program.aboutIsUp());
    user.click("mnuAbout");
    EXPECT_TRUE(about().isVisible());
    EXPECT_EQ(window.aboutBox(), first);
  }
}

TEST_F(AboutDialogTest, AsAModalBoxItHoldsUpWhoeverOpensIt) {
  user.click("cmdOK");
  about().holdsUp = true;
  bool wasUp = false;
  QTimer::singleShot(0, [&] {
    wasUp = world.program.aboutIsUp();
    QTest::mouseClick(about().findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  window.findChild<QAction*>("mnuAbout")->trigger();
  EXPECT_TRUE(wasUp);
  EXPECT_FALSE(world.program.aboutIsUp());
}

TEST(LanguageFont, HasTheLettersOfItsScript) {
  const std::pair<int, QFontDatabase::WritingSystem> scripts[] = {
      {128, QFontDatabase::Japanese},
      {129, QFontDatabase::Korean},
      {134, QFontDatabase::SimplifiedChinese},
      {136, QFontDatabase::TraditionalChinese}};
  for (const auto& [charset, script] : scripts) {
    if (QFontDatabase::families(script).isEmpty()) continue;
    const QStringList families = languageFont({charset, "No Such Font"}).families();
    const QString usual = QApplication::font().family();
    const QString writing = families.isEmpty() ? usual : families.front();
    EXPECT_TRUE(QFontDatabase::writingSystems(writing).contains(script)) << charset;
  }
  EXPECT_EQ(languageFont({1, ""}), QFont());
  const QString installed = QFontDatabase::families().front();
  EXPECT_EQ(languageFont({128, installed.toStdString()}).families().front(), installed);
}

}  // namespace

}  // namespace dialwright
