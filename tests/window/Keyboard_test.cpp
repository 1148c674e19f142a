// What the mouse and the keyboard do at the window, where a transcript has no word for it.

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>
#include <QWheelEvent>
#include <functional>

#include "WindowTest.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"

namespace dialwright {

class FocusFilterTest : public WindowTest {
 protected:
  GridView& Grid() { return widget<GridView>("gridKeyMap(0)"); }
  void Click(QWidget& target, QPoint place) {
    QTest::mouseClick(&target, Qt::LeftButton, Qt::NoModifier, place);
    QCoreApplication::processEvents();
  }
  void ClickRow(int row) {
    Click(*Grid().viewport(), Grid().visualRect(Grid().model()->index(row - 1, 0)).center());
  }
  void ExpectRefused() {
    EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
    EXPECT_EQ(widget<KeyEdit>("txtKeyAssignment(0)").text(), "12a");
    EXPECT_EQ(form.SSTab1.Tab(), 0);
    EXPECT_EQ(form.gridKeyMap[0].Row(), 1);
    EXPECT_EQ(form.gridKeyMap[0].Text(1, Column::KeyAssignment), "1");
    EXPECT_TRUE(form.cmdSave.Enabled);
  }
};

// The transcripts click everything else that a refused key holds back.
TEST_F(FocusFilterTest, EveryStepOutOfTheBoxIsHeldByARefusedKeyAndLetByAGoodOne) {
  const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [this, pressed, modifiers] { Press(pressed, modifiers); };
  };
  const std::tuple<const char*, std::function<void()>, const char*> steps[] = {
      {"click on the current row", [this] { ClickRow(1); }, "gridKeyMap(0)"},
      {"Tab", key(Qt::Key_Tab), "chkDontVoiceAction(0)"},
      {"Shift+Tab", key(Qt::Key_Backtab, Qt::ShiftModifier), "gridKeyMap(0)"},
      {"Ctrl+Tab", key(Qt::Key_Tab, Qt::ControlModifier), "txtKeyAssignment(1)"},
      {"Down", key(Qt::Key_Down), "txtKeyAssignment(0)"},
      {"Alt+X", key(Qt::Key_X, Qt::AltModifier), "cmdExit"},
      // A save leaves the button disabled, and so without the focus.
      {"Alt+S", key(Qt::Key_S, Qt::AltModifier), ""},
  };
  const KeyGrid& keys = form.gridKeyMap[0];
  for (const auto& [name, take, reaches] : steps) {
    SCOPED_TRACE(name);
    user.Type("12a", true);
    take();
    EXPECT_EQ(Shown(), keyRefused);
    ExpectRefused();

    world.messages.answers = {MsgBoxAnswer::No};  // to Exit's question
    user.Type("95", true);
    take();
    EXPECT_EQ(Focused(), reaches);
    user.Tab(0);
    user.Row(0, "MENU_NEW");
    EXPECT_EQ(keys.Text(keys.Row(), Column::KeyAssignment), "95");
    user.Type("1", true);
    user.Leave();
    Shown();
  }
}

TEST_F(FocusFilterTest, WhatTakesNoFocusValidatesNothing) {
  user.Type("12a", true);
  QMenuBar& bar = *window.menuBar();
  Click(bar, bar.actionGeometry(bar.actions().front()).center());
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  Press(Qt::Key_Escape);

  QWidget other;
  for (QWidget* next : {&other, static_cast<QWidget*>(&window)}) {
    next->show();
    next->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(next));
  }
  auto& tabs = widget<QTabBar>("SSTab1");
  const QPointF place = tabs.rect().center();
  QWheelEvent turn(place, tabs.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&tabs, &turn);
  Click(*Grid().verticalScrollBar(), {1, 1});
  form.chkDontVoiceAction[0].Enabled = false;
  QCoreApplication::processEvents();
  Click(widget<QCheckBox>("chkDontVoiceAction(0)"), {8, 8});
  EXPECT_TRUE(Shown().empty());
  ExpectRefused();
}

TEST_F(FocusFilterTest, TabVisitsWhatCanBeUsedInTheOrderOfThePage) {
  const auto round = [this] {
    std::string names;
    const std::string first = Focused();
    do {
      names += Focused() + " ";
      Press(Qt::Key_Tab);
    } while (Focused() != first && names.size() < 1000);
    return names;
  };
  EXPECT_EQ(round(),
            "txtKeyAssignment(0) chkDontVoiceAction(0) UpDownMenuOrder(0) cmdExit SSTab1 "
            "gridKeyMap(0) ");
  user.Tab(setupTab);
  user.Set("chkMAIN_MESSAGE_SETTINGS", 0);
  EXPECT_EQ(round(),
            "chkMAIN_MESSAGE_SETTINGS chkMAIN_PERSONAL_SETTINGS chkMAIN_TRANSFER chkGenerateHelp "
            "chkGeneratePDF cmdSave cmdExit SSTab1 chkMAIN_GREETINGS ");
}

TEST_F(FocusFilterTest, TheKeysOfBoxAndGridChooseRows) {
  const int last = form.gridKeyMap[0].Rows() - 1;
  const std::tuple<bool, Qt::Key, int> keys[] = {
      {false, Qt::Key_End, last}, {false, Qt::Key_Up, last - 1}, {true, Qt::Key_Up, last - 2},
      {false, Qt::Key_Home, 1},   {false, Qt::Key_Down, 2},      {true, Qt::Key_Down, 3}};
  for (const auto& [inBox, key, row] : keys) {
    if (!inBox) user.Leave();
    Press(key);
    EXPECT_EQ(form.gridKeyMap[0].Row(), row);
    EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  }
}

TEST_F(FocusFilterTest, AClickMeansThePlaceThatWasUnderThePointer) {
  // Without its key the first row loses its voice and sinks while the click is on its way, and the
  // list scrolls after it.
  window.resize(window.width(), window.minimumSizeHint().height());
  QCoreApplication::processEvents();
  ASSERT_GT(Grid().verticalScrollBar()->maximum(), 0);
  const std::string third = form.gridKeyMap[0].Text(3, Column::ActionToken);
  user.Type("", true);
  ClickRow(2);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 2);
  EXPECT_EQ(form.gridKeyMap[0].Text(2, Column::ActionToken), third);
}

TEST_F(FocusFilterTest, AMnemonicOfATabOrALabelLeadsThere) {
  form.SSTab1.SetTabCaption(4, "&After Message Menu");
  form.labelKeyMap[4].Caption = "&Key map";
  QCoreApplication::processEvents();
  Press(Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(form.SSTab1.Tab(), 4);
  user.Leave();
  Press(Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(Focused(), "txtKeyAssignment(4)");
}

class KeyEditTest : public WindowTest {
 protected:
  KeyEdit& Edit() { return widget<KeyEdit>("txtKeyAssignment(0)"); }
  EditBox& Box() { return form.txtKeyAssignment[0]; }

  /// Opens the menu of the box and picks an item, by the toolkit's name for it.
  void Pick(const char* item) {
    QTimer::singleShot(0, [item] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      menu->findChild<QAction*>(item)->trigger();
      menu->close();
    });
    QContextMenuEvent open(QContextMenuEvent::Keyboard, {}, Edit().mapToGlobal(QPoint(4, 4)));
    QApplication::sendEvent(&Edit(), &open);
  }
};

TEST_F(KeyEditTest, EveryWayToChangeTheTextIsAKeyPressBeforeIt) {
  const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [this, pressed, modifiers] { Press(pressed, modifiers); };
  };
  const auto menu = [this](const char* item) { return [this, item] { Pick(item); }; };
  const auto inputMethod = [this] {
    QInputMethodEvent commit;
    commit.setCommitString("2345");
    QApplication::sendEvent(&Edit(), &commit);
  };
  constexpr auto control = Qt::ControlModifier;
  const std::tuple<const char*, const char*, bool, std::function<void()>, const char*> ways[] = {
      {"a character", "12", false, key(Qt::Key_3), "123"},
      {"one that is not taken", "123", false, key(Qt::Key_4), "123"},
      {"backspace", "12", false, key(Qt::Key_Backspace), "1"},
      {"delete", "12", true, key(Qt::Key_Delete), ""},
      {"cut", "12", true, key(Qt::Key_X, control), ""},
      {"paste, cut to the room left", "12", false, key(Qt::Key_V, control), "127"},
      {"undo", "12", false, key(Qt::Key_Z, control), ""},
      {"input method", "1", false, inputMethod, "123"},
      {"menu: paste of the first line", "1", true, menu("paste"), "7*"},
      {"menu: cut", "12", true, menu("cut"), ""},
      {"menu: delete", "12", true, menu("delete"), ""},
  };
  for (const auto& [name, before, selected, change, after] : ways) {
    SCOPED_TRACE(name);
    Box().SetText("");
    QCoreApplication::processEvents();
    user.Type(before, true);
    if (selected) Edit().selectAll();
    QApplication::clipboard()->setText("7*\n8");
    form.cmdSave.Enabled = false;
    const auto keyPress = Box().KeyPress;
    std::vector<std::string> textsAtKeyPress;
    Box().KeyPress = [&](int code) {
      textsAtKeyPress.push_back(Box().Text());
      keyPress(code);
    };
    change();
    Box().KeyPress = keyPress;
    ASSERT_FALSE(textsAtKeyPress.empty());
    EXPECT_EQ(textsAtKeyPress.front(), before);
    EXPECT_TRUE(form.cmdSave.Enabled);
    EXPECT_EQ(Box().Text(), after);
  }
  form.cmdSave.Enabled = false;
  for (const auto other : {Qt::Key_Left, Qt::Key_Escape}) Press(other);
  for (const auto other : {Qt::Key_A, Qt::Key_C}) Press(other, control);
  EXPECT_FALSE(form.cmdSave.Enabled) << "what changes no text is no key press";
}

}  // namespace dialwright
