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
  const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [this, pressed, modifiers] { press(pressed, modifiers); };
  };
  const auto menu = [this](const char* item) { return [this, item] { pick(item); }; };
  const auto inputMethod = [this] {
    QInputMethodEvent commit;
    commit.setCommitString("2345");
    QApplication::sendEvent(&edit(), &commit);
  };
  constexpr auto control = Qt::ControlModifier;
  struct {
    const char* name;
    const char* before;
    int selected;  ///< how many characters, from the front; -1 leaves the cursor behind the text
    const char* clipboard;
    std::function<void()> change;
    const char* after;
  } const ways[] = {
      {"a character", "12", -1, "", key(Qt::Key_3), "123"},
      {"one that is not taken", "123", -1, "", key(Qt::Key_4), "123"},
      {"backspace", "12", -1, "", key(Qt::Key_Backspace), "1"},
      {"delete", "12", 0, "", key(Qt::Key_Delete), "2"},
      {"delete a word", "12", -1, "", key(Qt::Key_Backspace, control), ""},
      {"cut", "12", 2, "", key(Qt::Key_X, control), ""},
      {"paste, cut to the room left", "1", -1, "2*#", key(Qt::Key_V, control), "12*"},
      {"paste of the first line", "1", -1, "2\n3", key(Qt::Key_V, control), "12"},
      {"undo", "12", -1, "", key(Qt::Key_Z, control), ""},
      {"input method", "1", -1, "", inputMethod, "123"},
      {"menu: paste", "1", -1, "9", menu("paste"), "19"},
      {"menu: cut", "12", 2, "", menu("cut"), ""},
      {"menu: delete", "12", 1, "", menu("delete"), "2"},
  };
  for (const auto& way : ways) {
    SCOPED_TRACE(way.name);
    box().SetText("");
    QCoreApplication::processEvents();
    user.type(way.before, true);
    if (way.selected == 0) edit().setCursorPosition(0);
    if (way.selected > 0) edit().setSelection(0, way.selected);
    QApplication::clipboard()->setText(way.clipboard);
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

TEST_F(KeyEditTest, LimitSelectionAndCursorCountCharacters) {
  const std::string telephone = "\xf0\x9f\x93\x9e";
  user.type(telephone + telephone + telephone + telephone, true);
  EXPECT_EQ(box().Text(), telephone + telephone + telephone);
  press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(box().SelStart, 2U);
  EXPECT_EQ(box().SelLength, 1U);
  press(Qt::Key_Backspace);
  press(Qt::Key_Left);
  press(Qt::Key_5);
  EXPECT_EQ(box().Text(), telephone + "5" + telephone);
  EXPECT_EQ(edit().cursorPosition(), 3);  // where the user types, in the toolkit's units
}

}  // namespace

}  // namespace dialwright
