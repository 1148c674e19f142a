// What the window shows beside the form, and what its keys do there.

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTimer>

#include "WindowTest.h"
#include "desktop/FindingLine.h"
#include "desktop/GridView.h"
#include "desktop/KeyButton.h"

namespace dialwright {

class BesideTest : public WindowTest {
 protected:
  QString Tip(int row) {
    auto& grid = widget<GridView>("gridKeyMap(0)");
    return grid.model()->index(row - 1, 0).data(Qt::ToolTipRole).toString();
  }
  std::string Keyboard() {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
  QStringList Items(const std::string& list) {
    QStringList texts;
    auto& items = widget<QListWidget>(list);
    for (int i = 0; i < items.count(); ++i) texts << items.item(i)->text();
    return texts;
  }
};

TEST_F(BesideTest, AFaultIsMarkedAsItIsTypedAndNamesTheOtherRow) {
  auto& tabs = widget<QTabBar>("SSTab1");
  auto& line = widget<FindingLine>("findings(0)");
  user.Row(0, 2);
  EXPECT_TRUE(line.isHidden());
  user.Type("1", true);
  EXPECT_TRUE(Tip(1).startsWith("Duplicate key map for the main menu: 1")) << Tip(1).toStdString();
  EXPECT_TRUE(Tip(2).contains("Hear new messages (1)"));
  EXPECT_FALSE(tabs.tabIcon(0).isNull());
  EXPECT_TRUE(tabs.tabIcon(1).isNull());
  EXPECT_TRUE(tabs.accessibleTabName(0).contains("1"));
  ASSERT_FALSE(line.isHidden());
  user.Type("2", false);
  EXPECT_TRUE(tabs.tabIcon(0).isNull());
  EXPECT_TRUE(line.isHidden());
  EXPECT_TRUE(Tip(1).startsWith("The telephone waits"));

  user.Type("1", true);
  emit line.linkActivated("MENU_NEW");
  EXPECT_EQ(form.gridKeyMap[0].Row(), 1);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
}

TEST_F(BesideTest, OnANarrowScreenTheKeypadScrollsAndSaveStaysInSight) {
  const auto expectInSight = [this](const char* what) {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    const auto& save = widget<QPushButton>("cmdSave");
    const QRect place(save.mapToGlobal(QPoint()), save.size());
    const QRect room = window.screen()->availableGeometry();
    EXPECT_TRUE(room.contains(place)) << what;
    EXPECT_TRUE(room.contains(window.frameGeometry())) << what;
    EXPECT_TRUE(widget<KeyButton>("key(1)").isVisible()) << what;
  };
  ASSERT_LT(window.screen()->availableGeometry().width(), 1000);
  window.move(200, 0);
  Press(Qt::Key_F9);
  expectInSight("as it is");
  for (Control* control : form.Controls)
    if (const std::string text = control->Caption; !text.empty())
      control->Caption = text + " " + text.substr(0, text.size() / 4);
  expectInSight("longer texts");
  Press(Qt::Key_F6);
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  const auto& key = widget<KeyButton>("key(3)");
  EXPECT_TRUE(key.hasFocus());
  EXPECT_EQ(key.visibleRegion().boundingRect().width(), key.width());
}

TEST_F(BesideTest, F8GoesThroughTheFindingsOfAllTabs) {
  const auto place = [this] {
    const int tab = form.SSTab1.Tab();
    return std::pair(
        tab, At(form.gridKeyMap, tab).Text(At(form.gridKeyMap, tab).Row(), Column::ActionToken));
  };
  Press(Qt::Key_F8);
  EXPECT_EQ(place(), std::pair(0, std::string("MENU_GREETINGS_ADMINISTRATOR")));
  Press(Qt::Key_F8);
  EXPECT_EQ(place().first, 1);
  Press(Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(place(), std::pair(0, std::string("MENU_GREETINGS_ADMINISTRATOR")));
  Press(Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(place().first, 4);
  // Among the rows of one finding.
  user.Tab(0);
  user.Row(0, "MENU_BROADCAST_MESSAGE_ADMIN");
  for (const char* other : {"MENU_GREETINGS_ADMINISTRATOR", "MENU_BROADCAST_MESSAGE_ADMIN"}) {
    Press(Qt::Key_F8, Qt::ControlModifier);
    EXPECT_EQ(place(), std::pair(0, std::string(other)));
  }
  user.Tab(4);
  // A key that may not leave its box holds the user there.
  user.Type("x", true);
  Shown();
  Press(Qt::Key_F8);
  EXPECT_EQ(Shown(), keyRefused);
  EXPECT_EQ(place().first, 4);
}

TEST_F(BesideTest, TheKeypadWorksByKeyboardAndGivesAFreeKey) {
  Press(Qt::Key_F6);
  EXPECT_EQ(Keyboard(), "key(1)");
  EXPECT_EQ(form.focus.ActiveControl(), form.txtKeyAssignment.data());
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right}) Press(key);
  EXPECT_EQ(Keyboard(), "key(8)");
  EXPECT_EQ(Items("keySequences").front(), "81  Follow-Me Here");
  EXPECT_TRUE(
      widget<KeyButton>("key(8)").accessibleDescription().startsWith("longer sequences: 4"));
  EXPECT_EQ(Items("menuSays").front(), "1  Hear new messages");
  Press(Qt::Key_Right);
  QTimer::singleShot(0, [] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), "Give 9 to Hear new messages");
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
  });
  Press(Qt::Key_Return);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "9");
  EXPECT_TRUE(form.cmdSave.Enabled);

  Press(Qt::Key_F6);
  Press(Qt::Key_Right);
  Press(Qt::Key_Return);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  EXPECT_EQ(form.gridKeyMap[0].Text(form.gridKeyMap[0].Row(), Column::ActionToken), "MENU_SEND");
  Press(Qt::Key_F6);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  user.Tab(setupTab);
  EXPECT_TRUE(widget<QLabel>("keypadEmpty").isVisibleTo(&window));
}

TEST_F(BesideTest, KeysAreTriedAsOnATelephone) {
  Press(Qt::Key_T, Qt::ControlModifier);
  for (const Qt::Key key : {Qt::Key_7, Qt::Key_8, Qt::Key_8})
    QTest::keyClick(window.focusWidget(), key);
  EXPECT_EQ(Items("keySequences"), QStringList({"7 ... waits", "7  Greetings administrator",
                                                "8 ... waits", "88 nothing"}));
  QTest::mouseClick(&widget<KeyButton>("key(7)"), Qt::LeftButton);
  QTest::qWait(1700);
  EXPECT_EQ(Items("keySequences").back(), "7  Greetings administrator");
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "1");
  Press(Qt::Key_Escape);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
}

TEST_F(BesideTest, AnActionIsFoundAndGoneTo) {
  Press(Qt::Key_F, Qt::ControlModifier);
  auto& line = widget<QLineEdit>("findLine");
  QTest::keyClicks(&line, "REWIND");
  QTest::keyClick(&line, Qt::Key_Down);
  QTest::keyClick(&line, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(form.SSTab1.Tab(), 2);
  EXPECT_EQ(form.gridKeyMap[2].Text(form.gridKeyMap[2].Row(), Column::ActionToken), "BODY_REWIND");
  EXPECT_EQ(Focused(), "txtKeyAssignment(2)");
}

TEST_F(BesideTest, F1OpensTheChapterOfWhereTheKeyboardIs) {
  const auto page = [this] {
    const std::vector<std::string> lines = Shown();
    const std::string line = lines.empty() ? "" : lines.back();
    return line.substr(std::min(line.find(".chm"), line.size()));
  };
  Press(Qt::Key_F1);
  EXPECT_EQ(page(), ".chm\" 0");
  Press(Qt::Key_F6);
  Press(Qt::Key_F1);
  EXPECT_EQ(page(), ".chm::/keypad.html\" 0");
  Press(Qt::Key_T, Qt::ControlModifier);
  Press(Qt::Key_F1);
  EXPECT_EQ(page(), ".chm::/trying.html\" 0");
  Press(Qt::Key_Escape);
  Press(Qt::Key_Escape);
  Press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClick(&widget<QLineEdit>("findLine"), Qt::Key_F1);
  EXPECT_EQ(page(), ".chm::/keypad.html#find\" 0");
  QTest::keyClick(&widget<QLineEdit>("findLine"), Qt::Key_Escape);
  QTimer::singleShot(0, [] {
    QWidget* dialog = QApplication::activeModalWidget();
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal) << "the help stays open to reading";
    QTest::keyClick(dialog, Qt::Key_F1);
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  widget<QAction>("mnuChanges").trigger();
  EXPECT_EQ(page(), ".chm::/taking-back.html#changes\" 0");
}

}  // namespace dialwright
