#include "desktop/MainWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "WindowTest.h"
#include "desktop/KeyGridModel.h"
#include "desktop/SpinArrows.h"
#include "desktop/WrapLabel.h"

namespace dialwright {

namespace {

class MainWindowTest : public WindowTest {};

std::string accessibleName(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken != nullptr ? spoken->text(QAccessible::Name).toStdString() : "";
}

TEST_F(MainWindowTest, EveryFieldHasOneWidgetAndAName) {
  for (const Control* control : form.Controls) {
    if (dynamic_cast<const MenuItem*>(control) != nullptr) continue;
    EXPECT_EQ(window.findChildren<QWidget*>(QString::fromStdString(control->Name)).size(), 1);
    if (dynamic_cast<const Label*>(control) != nullptr) continue;
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
  KeyGridModel model(form.gridKeyMap[0]);
  EXPECT_FALSE(model.refresh());
  form.gridKeyMap[0].SetText(1, Column::KeyAssignment, "8");
  EXPECT_TRUE(model.refresh());
  form.gridKeyMap[0].SetRedraw(Redraw::none);
  form.gridKeyMap[0].CutToHeading();
  form.cmdSave.Enabled = true;
  QCoreApplication::processEvents();
  EXPECT_EQ(view.model()->rowCount(), 0);
  EXPECT_FALSE(view.currentIndex().isValid());
}

TEST_F(MainWindowTest, NothingButItsOwnWaysOutEndsTheProgram) {
  press(Qt::Key_Q, Qt::ControlModifier);
  press(Qt::Key_W, Qt::ControlModifier);
  press(Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(window.dispatch().ended());
  user.type("2", true);
  EXPECT_TRUE(form.cmdSave.Enabled);
  world.messages.answers = {MsgBoxAnswer::Yes};
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(window.dispatch().ended());
  EXPECT_EQ(shown().size(), 1U);
  // Events that are still on their way find nobody.
  press(Qt::Key_X, Qt::AltModifier);
  EXPECT_TRUE(shown().empty());
}

TEST_F(MainWindowTest, WorkIsNotEnteredAgainAndItsFailureEndsTheProgram) {
  int clicks = 0;
  form.cmdExit.Click = [&] {
    // As a timer might, while a message box is up.
    if (++clicks < 3) widget<QPushButton>("cmdExit").click();
    throw std::logic_error("broken");
  };
  widget<QPushButton>("cmdExit").click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(window.dispatch().ended());
  EXPECT_THROW(std::rethrow_exception(window.dispatch().failure()), std::logic_error);
}

TEST_F(MainWindowTest, ThePointerAndTheTitleFollowTheFormAtOnce) {
  form.Pointer = MousePointer::hourglass;
  EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
  form.Pointer = MousePointer::standard;
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
  form.Caption = "Other";
  EXPECT_EQ(window.windowTitle(), "Other");
}

/// The first widget that has less room than its text needs.
std::string cutWidget(const MainWindow& window) {
  for (const QWidget* widget : window.centralWidget()->findChildren<QWidget*>()) {
    const bool hasText = widget->inherits("QLabel") || widget->inherits("QCheckBox") ||
                         widget->inherits("QPushButton") || widget->inherits("QGroupBox");
    if (!widget->isVisible() || !hasText) continue;
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
  const auto resizeAndCheck = [this](bool small, const std::string& what) {
    for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
      user.tab(tab);
      window.resize(small ? window.minimumSizeHint() : QSize(1600, 1200));
      // The lines of a text and the width of the window settle each other.
      for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        if (small) window.resize(window.minimumSizeHint());
      }
      EXPECT_EQ(cutWidget(window), "") << what << ", tab " << tab << ", smallest " << small;
    }
  };
  for (const int points : {9, 20}) {
    large.setPointSize(points);
    QApplication::setFont(large);
    for (const bool longer : {false, true}) {
      if (longer)
        for (Control* control : form.Controls)
          if (const std::string text = control->Caption; !text.empty())
            control->Caption = text + " " + text.substr(0, text.size() / 2);
      for (const bool small : {false, true})
        resizeAndCheck(small, std::to_string(points) + (longer ? " points, longer" : " points"));
    }
  }
  QApplication::setFont(usual);
}

}  // namespace

}  // namespace dialwright
