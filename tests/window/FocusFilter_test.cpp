#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QWheelEvent>
#include <functional>

#include "WindowTest.h"
#include "desktop/GridView.h"
#include "desktop/KeyEdit.h"
#include "desktop/SpinArrows.h"

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

  struct Step {
    const char* name;
    std::function<void()> take;
    const char* reaches;  ///< the control that has the focus after it, if nothing holds it up
  };
  /// Every way in which a user leaves the box.
  std::vector<Step> stepsOutOfTheBox();
};

std::vector<FocusFilterTest::Step> FocusFilterTest::stepsOutOfTheBox() {
  return {
      // A row that is chosen sends the focus on to the box.
      {"click on a row", [this] { click(*grid().viewport(), rowPlace(3)); }, "txtKeyAssignment(0)"},
      {"double click on a row",
       [this] {
         QTest::mouseDClick(grid().viewport(), Qt::LeftButton, Qt::NoModifier, rowPlace(3));
       },
       "txtKeyAssignment(0)"},
      {"click on the current row", [this] { click(*grid().viewport(), rowPlace(1)); },
       "gridKeyMap(0)"},
      {"click on the heading", [this] { click(*grid().horizontalHeader()->viewport()); },
       "gridKeyMap(0)"},
      {"click on a tab", [this] { click(tabs(), tabs().tabRect(4).center()); },
       "txtKeyAssignment(4)"},
      {"click on the current tab", [this] { click(tabs(), tabs().tabRect(0).center()); }, "SSTab1"},
      {"click on the check box",
       [this] {
         click(widget<QCheckBox>("chkDontVoiceAction(0)"), {8, 8});
       },
       "txtKeyAssignment(0)"},
      {"click on an arrow",
       [this] { click(widget<SpinArrows>("UpDownMenuOrder(0)").downButton()); },
       "txtKeyAssignment(0)"},
      {"click on Exit", [this] { click(widget<QPushButton>("cmdExit")); }, "cmdExit"},
      {"Tab", [this] { press(Qt::Key_Tab); }, "chkDontVoiceAction(0)"},
      {"Shift+Tab", [this] { press(Qt::Key_Backtab, Qt::ShiftModifier); }, "gridKeyMap(0)"},
      {"Ctrl+Tab", [this] { press(Qt::Key_Tab, Qt::ControlModifier); }, "txtKeyAssignment(1)"},
      {"Ctrl+Page Up", [this] { press(Qt::Key_PageUp, Qt::ControlModifier); }, "SSTab1"},
      {"Down", [this] { press(Qt::Key_Down); }, "txtKeyAssignment(0)"},
      {"Alt+X", [this] { press(Qt::Key_X, Qt::AltModifier); }, "cmdExit"},
      // A save leaves the button disabled, and so without the focus.
      {"Alt+S", [this] { press(Qt::Key_S, Qt::AltModifier); }, ""},
  };
}

TEST_F(FocusFilterTest, ARefusedKeyKeepsTheFocusAndNothingElseHappens) {
  for (const Step& step : stepsOutOfTheBox()) {
    SCOPED_TRACE(step.name);
    user.type("12a", true);
    const int checked = form.chkDontVoiceAction[0].Value();
    step.take();
    EXPECT_EQ(shown(), keyRefused);
    EXPECT_EQ(focused(), "txtKeyAssignment(0)");
    EXPECT_EQ(widget<KeyEdit>("txtKeyAssignment(0)").text(), "12a");
    EXPECT_EQ(form.SSTab1.Tab(), 0);
    EXPECT_EQ(form.gridKeyMap[0].Row(), 1);
    EXPECT_EQ(form.gridKeyMap[0].Text(1, Column::KeyAssignment), "1");
    EXPECT_EQ(form.chkDontVoiceAction[0].Value(), checked);
    EXPECT_TRUE(form.cmdSave.Enabled);
  }
}

TEST_F(FocusFilterTest, AGoodKeyLetsEachStepTakePlace) {
  for (const Step& step : stepsOutOfTheBox()) {
    SCOPED_TRACE(step.name);
    user.tab(0);
    user.row(0, "MENU_NEW");
    // Exit asks, and is answered No.
    world.messages.answers = {MsgBoxAnswer::No};
    const auto row = static_cast<std::size_t>(form.gridKeyMap[0].Row());
    user.type("95", true);
    step.take();
    EXPECT_EQ(focused(), step.reaches);
    bool written = false;
    for (int place = 1; place < form.gridKeyMap[0].Rows(); ++place)
      written |= form.gridKeyMap[0].Text(place, Column::ActionToken) == "MENU_NEW" &&
                 form.gridKeyMap[0].Text(place, Column::KeyAssignment) == "95";
    EXPECT_TRUE(written) << "row " << row;
    // The check box and the arrow have changed the row: put it back.
    user.row(0, "MENU_NEW");
    user.set("chkDontVoiceAction(0)", 0);
    while (form.gridKeyMap[0].Row() > 1) user.spin(true);
  }
}

TEST_F(FocusFilterTest, WhatTakesNoFocusValidatesNothing) {
  QWidget other;
  const Step steps[] = {
      {"a menu is opened and left",
       [this] {
         QMenuBar& bar = *window.menuBar();
         click(bar, bar.actionGeometry(bar.actions().front()).center());
         QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
         press(Qt::Key_Escape);
       },
       ""},
      {"a menu item", [this] { user.click("mnuRestoreScripts"); }, ""},
      {"F1", [this] { press(Qt::Key_F1); }, ""},
      {"another window",
       [&] {
         other.show();
         other.activateWindow();
         EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
         other.hide();
         window.activateWindow();
         EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
       },
       ""},
      {"the wheel over the tabs",
       [this] {
         const QPointF place = tabs().rect().center();
         QWheelEvent turn(place, tabs().mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
         QApplication::sendEvent(&tabs(), &turn);
       },
       ""},
      {"the scroll bar of the grid", [this] { click(*grid().verticalScrollBar()); }, ""},
      {"the description", [this] { click(widget<QWidget>("txtDescription(0)")); }, ""},
      {"a disabled control",
       [this] {
         form.chkDontVoiceAction[0].Enabled = false;
         QCoreApplication::processEvents();
         click(widget<QCheckBox>("chkDontVoiceAction(0)"), {8, 8});
       },
       ""},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.name);
    user.type("12a", true);
    step.take();
    const std::vector<std::string> lines = shown();
    EXPECT_FALSE(!lines.empty() && lines.front() == keyRefused.front());
    EXPECT_EQ(focused(), "txtKeyAssignment(0)");
    EXPECT_EQ(widget<KeyEdit>("txtKeyAssignment(0)").text(), "12a");
  }
}

TEST_F(FocusFilterTest, TabVisitsWhatCanBeUsedInTheOrderOfThePage) {
  const auto round = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    std::vector<std::string> names;
    const std::string first = focused();
    do {
      names.push_back(focused());
      press(key, modifiers);
    } while (focused() != first && names.size() < 50);
    return names;
  };
  const std::vector<std::string> mainMenu{
      "txtKeyAssignment(0)", "chkDontVoiceAction(0)", "UpDownMenuOrder(0)", "cmdExit", "SSTab1",
      "gridKeyMap(0)"};
  EXPECT_EQ(round(Qt::Key_Tab, Qt::NoModifier), mainMenu);
  std::vector<std::string> backwards(mainMenu.rbegin(), mainMenu.rend());
  std::rotate(backwards.begin(), backwards.end() - 1, backwards.end());
  EXPECT_EQ(round(Qt::Key_Backtab, Qt::ShiftModifier), backwards);

  user.tab(setupTab);
  user.set("chkMAIN_MESSAGE_SETTINGS", 0);
  const std::vector<std::string> setup{"chkMAIN_MESSAGE_SETTINGS",
                                       "chkMAIN_PERSONAL_SETTINGS",
                                       "chkMAIN_TRANSFER",
                                       "chkGenerateHelp",
                                       "chkGeneratePDF",
                                       "cmdSave",
                                       "cmdExit",
                                       "SSTab1",
                                       "chkMAIN_GREETINGS"};
  EXPECT_EQ(round(Qt::Key_Tab, Qt::NoModifier), setup);
}

TEST_F(FocusFilterTest, UpAndDownInTheBoxChooseRowsAsAClickThereWould) {
  press(Qt::Key_Up);  // there is no row above the first
  EXPECT_EQ(form.gridKeyMap[0].Row(), 1);
  EXPECT_EQ(focused(), "gridKeyMap(0)");
  user.row(0, 2);
  press(Qt::Key_Down);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 3);
  EXPECT_EQ(focused(), "txtKeyAssignment(0)");
  press(Qt::Key_Up);
  EXPECT_EQ(form.gridKeyMap[0].Row(), 2);
}

TEST_F(FocusFilterTest, TheKeysOfTheGridChooseItsRows) {
  const int last = form.gridKeyMap[0].Rows() - 1;
  const std::pair<Qt::Key, int> keys[] = {
      {Qt::Key_End, last}, {Qt::Key_Up, last - 1}, {Qt::Key_Home, 1}, {Qt::Key_Down, 2}};
  for (const auto& [key, row] : keys) {
    user.leave();
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
  click(*grid().viewport(), rowPlace(2));
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
  EXPECT_EQ(focused(), "txtKeyAssignment(4)");
}

}  // namespace

}  // namespace dialwright
