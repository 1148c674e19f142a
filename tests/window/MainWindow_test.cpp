#include "desktop/MainWindow.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>

#include "WindowTest.h"
#include "desktop/SpinArrows.h"
#include "desktop/WrapLabel.h"
#include "platform/Failure.h"

namespace dialwright {

namespace {

class MainWindowTest : public WindowTest {
 protected:
  using WindowTest::WindowTest;
};

std::string accessibleName(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken != nullptr ? spoken->text(QAccessible::Name).toStdString() : "";
}

TEST_F(MainWindowTest, EveryControlHasOneWidgetOrActionOfItsName) {
  for (const Control* control : form.Controls) {
    const QString name = QString::fromStdString(control->Name);
    const bool item = dynamic_cast<const MenuItem*>(control) != nullptr;
    const auto count = item ? window.findChildren<QAction*>(name).size()
                            : window.findChildren<QWidget*>(name).size();
    EXPECT_EQ(count, 1) << control->Name;
  }
}

TEST_F(MainWindowTest, EveryFieldHasAName) {
  for (const Control* control : form.Controls) {
    if (dynamic_cast<const MenuItem*>(control) != nullptr ||
        dynamic_cast<const Label*>(control) != nullptr)
      continue;
    EXPECT_NE(accessibleName(widget<QWidget>(control->Name)), "") << control->Name;
  }
  for (int i = 0; i < gridCount; ++i) {
    auto& label = widget<QLabel>(At(form.labelKeyMap, i).Name);
    EXPECT_EQ(label.buddy(), &widget<QWidget>(At(form.txtKeyAssignment, i).Name));
    auto& arrows = widget<SpinArrows>(At(form.UpDownMenuOrder, i).Name);
    EXPECT_NE(accessibleName(arrows.upButton()), accessibleName(arrows.downButton()));
  }
  form.labelKeyMap[0].Caption = "Key && &map";
  QCoreApplication::processEvents();
  EXPECT_EQ(accessibleName(widget<QWidget>("txtKeyAssignment(0)")), "Key & map");
}

TEST_F(MainWindowTest, AGridThatDrawsNoMoreShowsTheTruth) {
  auto& view = widget<QTableView>("gridKeyMap(0)");
  ASSERT_GT(view.model()->rowCount(), 0);
  form.gridKeyMap[0].SetRedraw(Redraw::none);
  form.gridKeyMap[0].CutToHeading();
  form.cmdSave.Enabled = true;
  QCoreApplication::processEvents();
  EXPECT_EQ(view.model()->rowCount(), 0);
  EXPECT_FALSE(view.currentIndex().isValid());
}

TEST_F(MainWindowTest, NothingButItsOwnWaysOutEndsTheProgram) {
  for (const auto& [key, modifiers] :
       {std::pair{Qt::Key_Q, Qt::KeyboardModifiers(Qt::ControlModifier)},
        std::pair{Qt::Key_W, Qt::KeyboardModifiers(Qt::ControlModifier)},
        std::pair{Qt::Key_Escape, Qt::KeyboardModifiers()}}) {
    press(key, modifiers);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.dispatch().ended());
  }
  user.type("2", true);
  world.messages.answers = {MsgBoxAnswer::No, MsgBoxAnswer::Yes};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(window.dispatch().ended());
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(window.dispatch().ended());
  EXPECT_EQ(shown().size(), 2U);
  // Events that are still on their way find nobody.
  press(Qt::Key_X, Qt::AltModifier);
  EXPECT_TRUE(shown().empty());
}

TEST_F(MainWindowTest, AFailureOfOurOwnEndsTheProgramAndIsNotLost) {
  form.cmdExit.Click = [] { throw std::logic_error("broken"); };
  QTest::mouseClick(&widget<QPushButton>("cmdExit"), Qt::LeftButton);
  EXPECT_TRUE(window.dispatch().ended());
  EXPECT_THROW(std::rethrow_exception(window.dispatch().failure()), std::logic_error);
}

TEST_F(MainWindowTest, WorkThatIsNotDoneIsNotEnteredAgain) {
  int clicks = 0;
  form.cmdExit.Click = [&] {
    // As a timer might, while a message box is up.
    if (++clicks < 3) widget<QPushButton>("cmdExit").click();
  };
  widget<QPushButton>("cmdExit").click();
  EXPECT_EQ(clicks, 1);
}

TEST_F(MainWindowTest, ThePointerAndTheTitleFollowTheFormAtOnce) {
  form.Pointer = MousePointer::hourglass;
  EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
  form.Pointer = MousePointer::standard;
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
  form.Caption = "Other";
  EXPECT_EQ(window.windowTitle(), "Other");
}

class OldServerTest : public WindowTest {
 protected:
  OldServerTest() : WindowTest("merid-4.2-0.20") {}
};

TEST_F(OldServerTest, WithoutASetupTabTheDocumentBoxesStandBesideSave) {
  EXPECT_FALSE(widget<QTabBar>("SSTab1").isTabVisible(setupTab));
  for (const char* name : {"chkGenerateHelp", "chkGeneratePDF"}) {
    auto& box = widget<QCheckBox>(name);
    EXPECT_TRUE(box.isVisible());
    EXPECT_GT(box.mapTo(&window, QPoint()).y(),
              widget<QTableView>("gridKeyMap(0)").mapTo(&window, QPoint()).y());
    EXPECT_EQ(user.set(name, 1), Outcome::done);
  }
  EXPECT_TRUE(form.cmdSave.Enabled);
}

/// The first widget that has less room than its text needs.
std::string cutWidget(const MainWindow& window) {
  for (const QWidget* widget : window.centralWidget()->findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    const bool hasText = qobject_cast<const QLabel*>(widget) != nullptr ||
                         qobject_cast<const QCheckBox*>(widget) != nullptr ||
                         qobject_cast<const QPushButton*>(widget) != nullptr ||
                         qobject_cast<const QGroupBox*>(widget) != nullptr;
    if (!hasText) continue;
    const QSize needed = widget->minimumSizeHint();
    const auto* wrapped = dynamic_cast<const WrapLabel*>(widget);
    const int height =
        wrapped != nullptr ? wrapped->heightForWidth(widget->width()) : needed.height();
    const QRect place(widget->mapTo(&window, QPoint()), widget->size());
    if (widget->width() < needed.width() || widget->height() < height ||
        !window.rect().contains(place))
      return widget->objectName().toStdString();
  }
  return "";
}

TEST_F(MainWindowTest, NoTextIsCutOffInALargeFontOrALongLanguage) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  for (const int points : {9, 20}) {
    large.setPointSize(points);
    QApplication::setFont(large);
    for (const bool longer : {false, true}) {
      if (longer)
        for (Control* control : form.Controls)
          if (const std::string text = control->Caption; !text.empty())
            control->Caption = text + " " + text.substr(0, text.size() / 2);
      for (const bool small : {false, true}) {
        for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
          user.tab(tab);
          window.resize(small ? window.minimumSizeHint() : QSize(1600, 1200));
          // The lines of a text and the width of the window settle each other.
          for (int round = 0; round < 4; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            if (small) window.resize(window.minimumSizeHint());
          }
          EXPECT_EQ(cutWidget(window), "")
              << points << " points, tab " << tab << (longer ? ", longer texts" : "")
              << (small ? ", smallest window" : "");
        }
      }
    }
  }
  QApplication::setFont(usual);
}

}  // namespace

}  // namespace dialwright
