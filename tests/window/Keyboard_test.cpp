// What the mouse and the keyboard do at the window, where a transcript has no word for it.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
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
  EXPECT_EQ(
      round(),
      "txtKeyAssignment(0) chkDontVoiceAction(0) UpDownMenuOrder(0) txtDescription(0) cmdExit "
      "SSTab1 gridKeyMap(0) ");
  user.Tab(setupTab);
  user.Set("chkMAIN_MESSAGE_SETTINGS", 0);
  EXPECT_EQ(round(),
            "chkMAIN_MESSAGE_SETTINGS chkMAIN_PERSONAL_SETTINGS chkMAIN_TRANSFER chkGenerateHelp "
            "chkGeneratePDF cmdSave cmdExit SSTab1 chkMAIN_GREETINGS ");
}

TEST_F(FocusFilterTest, TheKeysOfBoxAndGridChooseRows) {
  const int last = form.gridKeyMap[0].Rows() - 1;
  constexpr auto control = Qt::ControlModifier;
  const std::tuple<bool, Qt::Key, Qt::KeyboardModifiers, int> keys[] = {
      {false, Qt::Key_End, {}, last},      {false, Qt::Key_Up, {}, last - 1},
      {true, Qt::Key_Up, {}, last - 2},    {true, Qt::Key_End, control, last},
      {true, Qt::Key_Home, control, 1},    {true, Qt::Key_Up, {}, 1},
      {false, Qt::Key_Down, {}, 2},        {true, Qt::Key_Down, {}, 3},
      {true, Qt::Key_PageDown, {}, last},  {true, Qt::Key_PageUp, {}, 1},
      {false, Qt::Key_End, control, last}, {false, Qt::Key_Home, {}, 1},
      {true, Qt::Key_Return, {}, 2},
  };
  for (const auto& [inBox, key, modifiers, row] : keys) {
    if (!inBox) user.Leave();
    for (int pages = 0; pages < (key == Qt::Key_PageDown || key == Qt::Key_PageUp ? 5 : 1); ++pages)
      Press(key, modifiers);
    EXPECT_EQ(form.gridKeyMap[0].Row(), row);
    EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  }
}

TEST_F(FocusFilterTest, WhatLeavingTheBoxSortsAwayLeadsToTheNextActionAllTheSame) {
  const std::string next = form.gridKeyMap[0].Text(2, Column::ActionToken);
  user.Type("", true);
  Press(Qt::Key_Return);
  EXPECT_EQ(form.gridKeyMap[0].Text(form.gridKeyMap[0].Row(), Column::ActionToken), next);
}

TEST_F(FocusFilterTest, ADigitGoesToTheBoxFromTheGridAndFromNowhere) {
  auto& edit = widget<KeyEdit>("txtKeyAssignment(0)");
  const auto nowhere = [this] {
    form.focus.Withdraw(*form.focus.ActiveControl());
    QCoreApplication::processEvents();
    EXPECT_EQ(Focused(), "");
  };
  user.Leave();
  Press(Qt::Key_7);
  EXPECT_EQ(edit.text(), "7");
  nowhere();
  Press(Qt::Key_Asterisk);
  EXPECT_EQ(edit.text(), "*");
  Press(Qt::Key_Escape);
  EXPECT_EQ(edit.text(), "1");
  nowhere();
  Press(Qt::Key_Down);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 2);
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return}) {
    user.Leave();
    Press(key);
    EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
    EXPECT_EQ(edit.selectedText(), edit.text());
  }
  user.Leave();
  QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {},
                     Grid().visualRect(Grid().currentIndex()).center());
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
}

TEST_F(FocusFilterTest, ARowIsMovedAsOftenAsOneLikes) {
  const std::string token = form.gridKeyMap[0].Text(1, Column::ActionToken);
  const auto expectAt = [&](int row) {
    EXPECT_EQ(form.gridKeyMap[0].Row(), row);
    EXPECT_EQ(form.gridKeyMap[0].Text(row, Column::ActionToken), token);
  };
  for (const int row : {2, 3}) {
    Press(Qt::Key_Down, Qt::AltModifier);
    expectAt(row);
  }
  user.Leave();
  Press(Qt::Key_Up, Qt::AltModifier);
  expectAt(2);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  ASSERT_EQ(Focused(), "UpDownMenuOrder(0)");
  for (const bool isRepeat : {false, true, true}) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, isRepeat);
    QApplication::sendEvent(window.focusWidget(), &held);
    QCoreApplication::processEvents();
  }
  expectAt(5);
  Press(Qt::Key_Down);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 6) << "a new press is the box's";
  EXPECT_EQ(form.gridKeyMap[0].Text(5, Column::ActionToken), token);
}

TEST_F(FocusFilterTest, AGuestKeepsTheKeyboardUntilAStepToAControl) {
  auto& guest = *new QLineEdit(&window);
  guest.show();
  guest.setFocus();
  QTest::keyClicks(&guest, "7");
  window.Refresh();
  EXPECT_EQ(window.focusWidget(), &guest);
  EXPECT_EQ(guest.text(), "7");
  Press(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(Focused(), "txtKeyAssignment(1)");
}

TEST_F(FocusFilterTest, TheMenuLeavesTheSelectionOfTheBox) {
  auto& edit = widget<KeyEdit>("txtKeyAssignment(0)");
  user.Type("12", true);
  edit.selectAll();
  QFocusEvent away(QEvent::FocusOut, Qt::MenuBarFocusReason),
      back(QEvent::FocusIn, Qt::MenuBarFocusReason);
  QApplication::sendEvent(&edit, &away);
  QApplication::sendEvent(&edit, &back);
  EXPECT_EQ(edit.selectedText(), "12");
  EXPECT_EQ(form.txtKeyAssignment[0].SelLength, 2U);
}

TEST_F(FocusFilterTest, ControlAndADigitChooseTabsAndControlSSaves) {
  Press(Qt::Key_5, Qt::ControlModifier);
  EXPECT_EQ(form.SSTab1.Tab(), 4);
  Press(Qt::Key_7, Qt::ControlModifier);
  EXPECT_EQ(form.SSTab1.Tab(), setupTab);
  Press(Qt::Key_1, Qt::ControlModifier);
  user.Type("95", true);
  world.messages.answers = {MsgBoxAnswer::No};
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(form.gridKeyMap[0].Text(1, Column::KeyAssignment), "95");
  EXPECT_FALSE(form.cmdSave.Enabled);
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

TEST_F(FocusFilterTest, UndoTakesTheTypingBackFirstAndNamesWhatItWouldDo) {
  auto& undo = widget<QAction>("mnuUndo");
  EXPECT_FALSE(undo.isEnabled());
  user.Leave();
  user.Set("chkDontVoiceAction(0)", 1);
  user.Type("12", true);
  EXPECT_EQ(undo.text(), "&Undo Key of Hear new messages");
  EXPECT_TRUE(window.isWindowModified());
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "1");
  EXPECT_EQ(undo.text(), "&Undo Voicing of Hear new messages");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(form.chkDontVoiceAction[0].Value(), 0);
  EXPECT_FALSE(form.cmdSave.Enabled);
  EXPECT_FALSE(window.isWindowModified());
  Press(Qt::Key_Y, Qt::ControlModifier);
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "12");
}

TEST_F(FocusFilterTest, TheListOfChangesLeadsToARowAndRevertsOne) {
  user.Row(0, "MENU_SAVED");
  user.Type("99", true);
  user.Row(0, "MENU_NEW");
  user.Tab(bodyGrid);
  const auto inList = [this](const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, [&act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
    });
    widget<QAction>("mnuChanges").trigger();
  };
  inList([](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
  EXPECT_EQ(Focused(), "txtKeyAssignment(0)");
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "99");
  EXPECT_TRUE(window.isWindowModified());
  inList([](QDialog& dialog) {
    dialog.findChild<QPushButton*>("revertChange")->click();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(form.txtKeyAssignment[0].Text(), "3");
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_FALSE(form.cmdSave.Enabled);
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
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, bool> others[] = {
      {Qt::Key_Return, {}, true},          {Qt::Key_Escape, {}, true},
      {Qt::Key_A, control, true},          {Qt::Key_C, control, true},
      {Qt::Key_Left, {}, false},           {Qt::Key_F, Qt::AltModifier, false},
      {Qt::Key_9, Qt::AltModifier, false},
  };
  for (const auto& [pressed, modifiers, isKeyPress] : others) {
    user.Type("1", true);
    form.cmdSave.Enabled = false;
    const std::string text = Box().Text();
    Press(pressed, modifiers);
    EXPECT_EQ(form.cmdSave.Enabled, isKeyPress) << "whatever gives a character is a key press";
    if (pressed != Qt::Key_Return && pressed != Qt::Key_Escape) {
      EXPECT_EQ(Box().Text(), text);
    }
  }
}

TEST_F(KeyEditTest, ADigitTooManyIsTold) {
  int told = 0;
  Edit().tellFull = [&told] { ++told; };
  user.Type("123", true);
  EXPECT_EQ(told, 0);
  Press(Qt::Key_4);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(widget<QLabel>("keyRoom(0)").text(), "At most 3 keys");
}

}  // namespace dialwright
