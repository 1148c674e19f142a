#include "desktop/KeyEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTimer>
#include <functional>

#include "WindowTest.h"

namespace dialwright {

namespace {

class KeyEditTest : public WindowTest {
 protected:
  KeyEdit& edit() { return widget<KeyEdit>("txtKeyAssignment(0)"); }
  EditBox& box() { return form.txtKeyAssignment[0]; }

  /// Opens the menu of the box and picks an item, by the toolkit's name for it.
  void pick(const char* item) {
    QTimer::singleShot(0, [item] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      auto* action = menu->findChild<QAction*>(item);
      EXPECT_NE(action, nullptr);
      if (action != nullptr) action->trigger();
      menu->close();
    });
    QContextMenuEvent open(QContextMenuEvent::Keyboard, {}, edit().mapToGlobal(QPoint(4, 4)));
    QApplication::sendEvent(&edit(), &open);
  }
};

TEST_F(KeyEditTest, EveryWayToChangeTheTextIsAKeyPressBeforeIt) {
  struct Way {
    const char* name;
    const char* before;
    std::function<void()> change;
    const char* after;
  };
  const Way ways[] = {
      {"a character", "12", [this] { press(Qt::Key_3); }, "123"},
      {"one that is not taken", "123", [this] { press(Qt::Key_4); }, "123"},
      {"backspace", "12", [this] { press(Qt::Key_Backspace); }, "1"},
      {"delete", "12",
       [this] {
         edit().setCursorPosition(0);
         press(Qt::Key_Delete);
       },
       "2"},
      {"delete a word", "12", [this] { press(Qt::Key_Backspace, Qt::ControlModifier); }, ""},
      {"cut", "12",
       [this] {
         edit().selectAll();
         press(Qt::Key_X, Qt::ControlModifier);
       },
       ""},
      {"paste, cut to the room left", "1",
       [this] {
         QApplication::clipboard()->setText("2*#");
         press(Qt::Key_V, Qt::ControlModifier);
       },
       "12*"},
      {"paste of the first line", "1",
       [this] {
         QApplication::clipboard()->setText("2\n3");
         press(Qt::Key_V, Qt::ControlModifier);
       },
       "12"},
      {"undo", "12", [this] { press(Qt::Key_Z, Qt::ControlModifier); }, ""},
      {"input method", "1",
       [this] {
         QInputMethodEvent commit;
         commit.setCommitString("2345");
         QApplication::sendEvent(&edit(), &commit);
       },
       "123"},
      {"menu: paste", "1",
       [this] {
         QApplication::clipboard()->setText("9");
         pick("paste");
       },
       "19"},
      {"menu: cut", "12",
       [this] {
         edit().selectAll();
         pick("cut");
       },
       ""},
      {"menu: delete", "12",
       [this] {
         edit().setSelection(0, 1);
         pick("delete");
       },
       "2"},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    box().SetText("");
    QCoreApplication::processEvents();
    user.type(way.before, true);
    form.cmdSave.Enabled = false;
    const auto keyPress = box().KeyPress;
    std::vector<std::string> textsAtKeyPress;
    box().KeyPress = [&](int code) {
      textsAtKeyPress.push_back(box().Text());
      keyPress(code);
    };
    way.change();
    box().KeyPress = keyPress;
    ASSERT_FALSE(textsAtKeyPress.empty());
    EXPECT_EQ(textsAtKeyPress.front(), way.before);
    EXPECT_TRUE(form.cmdSave.Enabled);
    EXPECT_EQ(box().Text(), way.after);
    EXPECT_EQ(edit().text().toStdString(), way.after);
  }
}

TEST_F(KeyEditTest, WhatChangesNoTextIsNoKeyPress) {
  user.type("12", true);
  form.cmdSave.Enabled = false;
  press(Qt::Key_Left);
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  press(Qt::Key_Escape);
  EXPECT_FALSE(form.cmdSave.Enabled);
  EXPECT_EQ(box().Text(), "12");
  EXPECT_EQ(box().SelLength, 2U);
}

TEST_F(KeyEditTest, LimitAndSelectionCountCharacters) {
  const std::string telephone = "\xf0\x9f\x93\x9e";
  user.type(telephone + telephone + telephone + telephone, true);
  EXPECT_EQ(box().Text(), telephone + telephone + telephone);
  press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(box().SelStart, 2U);
  EXPECT_EQ(box().SelLength, 1U);
  press(Qt::Key_5);
  EXPECT_EQ(box().Text(), telephone + telephone + "5");
}

TEST_F(KeyEditTest, TheCursorStaysWhereTheUserTypes) {
  user.type("13", true);
  press(Qt::Key_Left);
  press(Qt::Key_2);
  EXPECT_EQ(box().Text(), "123");
  EXPECT_EQ(edit().cursorPosition(), 2);
}

}  // namespace

}  // namespace dialwright
