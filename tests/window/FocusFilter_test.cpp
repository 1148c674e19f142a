#include <QApplication>
#include <QCheckBox>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>
#include <QWheelEvent>
#include <functional>

#include "WindowTest.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"

namespace dialwright {

namespace {

class FocusFilterTest : public WindowTest {
 protected:
  GridView& grid() { return widget<GridView>("gridKeyMap(0)"); }
  QTabBar& tabs() { return widget<QTabBar>("SSTab1"); }
  QPoint rowPlace(int row) { return grid().visualRect(grid().model()->index(row - 1, 0)).center(); }
  void click(QWidget& target, QPoint place) {
    QTest::mouseClick(&target, Qt::LeftButton, Qt::NoModifier, place);
    QCoreApplication::processEvents();
  }
  void click(QWidget& target) { click(target, target.rect().center()); }
  void clickRow(int row) { click(*grid().viewport(), rowPlace(row)); }

  void expectRefused() {
    EXPECT_EQ(focused(), "txtKeyAssignment(0)");
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
    return [this, pressed, modifiers] { press(pressed, modifiers); };
  };
  const auto doubleClick = [this] {
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, Qt::NoModifier, rowPlace(3));
  };
  struct {
    const char* name;
    std::function<void()> take;
    const char* reaches;
  } const steps[] = {
      // A row that is chosen sends the focus on to the box.
      {"double click on a row", doubleClick, "txtKeyAssignment(0)"},
      {"click on the current row", [this] { clickRow(1); }, "gridKeyMap(0)"},
      {"Tab", key(Qt::Key_Tab), "chkDontVoiceAction(0)"},
      {"Shift+Tab", key(Qt::Key_Backtab, Qt::ShiftModifier), "gridKeyMap(0)"},
      {"Ctrl+Tab", key(Qt::Key_Tab, Qt::ControlModifier), "txtKeyAssignment(1)"},
      {"Ctrl+Page Up", key(Qt::Key_PageUp, Qt::ControlModifier), "SSTab1"},
      {"Down", key(Qt::Key_Down), "txtKeyAssignment(0)"},
      {"Alt+X", key(Qt::Key_X, Qt::AltModifier), "cmdExit"},
      // A save leaves the button disabled, and so without the focus.
      {"Alt+S", key(Qt::Key_S, Qt::AltModifier), ""},
  };
  const KeyGrid& keys = form.gridKeyMap[0];
  for (const auto& step : steps) {
    SCOPED_TRACE(step.name);
    user.type("12a", true);
    step.take();
    EXPECT_EQ(shown(), keyRefused);
    expectRefused();

    world.messages.answers = {MsgBoxAnswer::No};  // to Exit's question
    user.type("95", true);
    step.take();
    EXPECT_EQ(focused(), step.reaches);
    user.tab(0);
    user.row(0, "MENU_NEW");
    EXPECT_EQ(keys.Text(keys.Row(), Column::KeyAssignment), "95");
    user.type("1", true);
    user.leave();
    shown();
  }
}

TEST_F(FocusFilterTest, WhatTakesNoFocusValidatesNothing) {
  QWidget other;
  const auto menu = [this] {
    QMenuBar& bar = *window.menuBar();
    click(bar, bar.actionGeometry(bar.actions().front()).center());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    press(Qt::Key_Escape);
  };
  const auto otherWindow = [&] {
    for (QWidget* next : {&other, static_cast<QWidget*>(&window)}) {
      next->show();
      next->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(next));
    }
  };
  const auto wheel = [this] {
    const QPointF place = tabs().rect().center();
    QWheelEvent turn(place, tabs().mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&tabs(), &turn);
  };
  const auto disabled = [this] {
    form.chkDontVoiceAction[0].Enabled = false;
    QCoreApplication::processEvents();
    click(widget<QCheckBox>("chkDontVoiceAction(0)"), {8, 8});
  };
  const std::pair<const char*, std::function<void()>> steps[] = {
      {"a menu is opened and left", menu},
      {"F1", [this] { press(Qt::Key_F1); }},
      {"another window", otherWindow},
      {"the wheel over the tabs", wheel},
      {"the scroll bar of the grid", [this] { click(*grid().verticalScrollBar()); }},
      {"the description", [this] { click(widget<QWidget>("txtDescription(0)")); }},
      {"a disabled control", disabled},
  };
  for (const auto& [name, take] : steps) {
    SCOPED_TRACE(name);
    user.type("12a", true);
    take();
    const std::vector<std::string> lines = shown();
    EXPECT_FALSE(!lines.empty() && lines.front() == keyRefused.front());
    expectRefused();
  }
}

TEST_F(FocusFilterTest, TabVisitsWhatCanBeUsedInTheOrderOfThePage) {
  using Names = std::vector<std::string>;
  const auto round = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Names names;
    const std::string first = focused();
    do {
      names.push_back(focused());
      press(key, modifiers);
    } while (focused() != first && names.size() < 50);
    return names;
  };
  EXPECT_EQ(round(Qt::Key_Tab),
            (Names{"txtKeyAssignment(0)", "chkDontVoiceAction(0)", "UpDownMenuOrder(0)", "cmdExit",
                   "SSTab1", "gridKeyMap(0)"}));
  EXPECT_EQ(round(Qt::Key_Backtab, Qt::ShiftModifier),
            (Names{"txtKeyAssignment(0)", "gridKeyMap(0)", "SSTab1", "cmdExit",
                   "UpDownMenuOrder(0)", "chkDontVoiceAction(0)"}));
  user.tab(setupTab);
  user.set("chkMAIN_MESSAGE_SETTINGS", 0);
  EXPECT_EQ(round(Qt::Key_Tab), (Names{"chkMAIN_MESSAGE_SETTINGS", "chkMAIN_PERSONAL_SETTINGS",
                                       "chkMAIN_TRANSFER", "chkGenerateHelp", "chkGeneratePDF",
                                       "cmdSave", "cmdExit", "SSTab1", "chkMAIN_GREETINGS"}));
}

TEST_F(FocusFilterTest, TheKeysOfBoxAndGridChooseRows) {
  press(Qt::Key_Up);  // there is no row above the first
  EXPECT_EQ(form.gridKeyMap[0].Row(), 1);
  EXPECT_EQ(focused(), "gridKeyMap(0)");
  const int last = form.gridKeyMap[0].Rows() - 1;
  const std::tuple<bool, Qt::Key, int> keys[] = {
      {false, Qt::Key_End, last}, {false, Qt::Key_Up, last - 1}, {true, Qt::Key_Up, last - 2},
      {false, Qt::Key_Home, 1},   {false, Qt::Key_Down, 2},      {true, Qt::Key_Down, 3}};
  for (const auto& [inBox, key, row] : keys) {
    if (!inBox) user.leave();
    press(key);
    EXPECT_EQ(form.gridKeyMap[0].Row(), row);
    EXPECT_EQ(focused(), "txtKeyAssignment(0)");
  }
}

TEST_F(FocusFilterTest, AClickMeansThePlaceThatWasUnderThePointer) {
  // Without its key the first row loses its voice and sinks while the click is on its way, and the
  // list scrolls after it.
  window.resize(window.width(), window.minimumSizeHint().height());
  QCoreApplication::processEvents();
  ASSERT_GT(grid().verticalScrollBar()->maximum(), 0);
  const std::string third = form.gridKeyMap[0].Text(3, Column::ActionToken);
  user.type("", true);
  clickRow(2);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 2);
  EXPECT_EQ(form.gridKeyMap[0].Text(2, Column::ActionToken), third);
}

TEST_F(FocusFilterTest, AMnemonicOfATabOrALabelLeadsThere) {
  form.SSTab1.SetTabCaption(4, "&After Message Menu");
  form.labelKeyMap[4].Caption = "&Key map";
  QCoreApplication::processEvents();
  press(Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(form.SSTab1.Tab(), 4);
  user.leave();
  press(Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(focused(), "txtKeyAssignment(4)");
  user.type("12a", true);
  press(Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(shown(), keyRefused);
}

}  // namespace

}  // namespace dialwright
