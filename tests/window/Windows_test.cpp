#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTimer>
#include <functional>

#include "WindowTest.h"
#include "desktop/AboutDialog.h"
#include "desktop/FontStyle.h"
#include "desktop/GridView.h"
#include "desktop/MainWindow.h"
#include "desktop/QtMessageBoxes.h"
#include "desktop/ScreenFit.h"
#include "desktop/WrapLabel.h"
#include "transcript/PeWriter.h"

namespace dialwright {

/// Does something with the message box that comes up next.
static void WithNextBox(const std::function<void(QMessageBox&)>& use) {
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
  const auto click = [](QMessageBox& box) {
    QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
  };
  const std::tuple<MsgBoxButtons, std::function<void(QMessageBox&)>, MsgBoxAnswer> rows[] = {
      {MsgBoxButtons::OK, key(Qt::Key_Escape), MsgBoxAnswer::OK},
      {MsgBoxButtons::YesNo, click, MsgBoxAnswer::No},
      {MsgBoxButtons::YesNo, key(Qt::Key_Return), MsgBoxAnswer::Yes},
      {MsgBoxButtons::YesNo, key(Qt::Key_N, Qt::AltModifier), MsgBoxAnswer::No},
      {MsgBoxButtons::YesNo, [](QMessageBox& box) { box.close(); }, MsgBoxAnswer::No},
  };
  QtMessageBoxes messages("Program");
  for (const auto& [buttons, use, answer] : rows) {
    WithNextBox(use);
    EXPECT_EQ(messages.MsgBox("text", buttons, ""), answer);
  }
  WithNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Program");
    EXPECT_EQ(box.text(), "C:\u2060\\<b>\n& more") << "no line breaks behind the colon";
    const QFontMetrics metrics = box.fontMetrics();
    EXPECT_GT(box.width(), metrics.horizontalAdvance(box.windowTitle()));
    QApplication::clipboard()->setText(box.text());
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::clipboard()->text(), "C:\\<b>\n& more");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    box.close();
  });
  messages.MsgBox("C:\\<b>\r\n& more", MsgBoxButtons::OK, "");
}

TEST(QtMessageBoxes, EachBearsTheMarkThatItIsAndNothingIsLostByEnter) {
  const std::tuple<MsgBoxMark, MsgBoxButtons, QMessageBox::Icon, MsgBoxAnswer> rows[] = {
      {MsgBoxMark::usual, MsgBoxButtons::OK, QMessageBox::Warning, MsgBoxAnswer::OK},
      {MsgBoxMark::news, MsgBoxButtons::OK, QMessageBox::Information, MsgBoxAnswer::OK},
      {MsgBoxMark::failure, MsgBoxButtons::OK, QMessageBox::Critical, MsgBoxAnswer::OK},
      {MsgBoxMark::usual, MsgBoxButtons::YesNo, QMessageBox::Question, MsgBoxAnswer::Yes},
      {MsgBoxMark::loss, MsgBoxButtons::YesNo, QMessageBox::Warning, MsgBoxAnswer::No},
  };
  QWidget owner;
  owner.show();
  QtMessageBoxes messages("Program");
  messages.window = &owner;
  for (const auto& row : rows) {
    WithNextBox([&row](QMessageBox& box) {
      EXPECT_EQ(box.icon(), std::get<2>(row));
      EXPECT_EQ(box.windowModality(), Qt::WindowModal) << "the help stays open to reading";
      QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(messages.MarkedBox(std::get<0>(row), "text", std::get<1>(row), ""), std::get<3>(row));
  }
}

class AboutDialogTest : public WindowTest {
 protected:
  AboutDialogTest() {
    for (const char* code : {"DEU", "JPN"})
      world.MakeFile("C:\\Dialwright\\Dialwright_" + std::string(code) + ".dll",
                     MakeStringLibrary({{1036, u"&Beenden"}, {1098, u"Gut"}}));
    user.Click("mnuAbout");
  }
  AboutDialog& About() { return *window.AboutBox(); }
};

TEST_F(AboutDialogTest, ALanguageIsSpokenByBothWindowsAtOnce) {
  auto* opener = About().findChild<QPushButton*>("lblChangeLanguage");
  opener->setFocus();
  QTest::keyClick(opener, Qt::Key_Space);
  auto* list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(About().findChild<QPushButton*>("cmdOK")->text(), "Gut");
  EXPECT_EQ(widget<QPushButton>("cmdExit").text(), "&Beenden");
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "&Yes"), "&Ja");
  for (const QAction* language : list->actions())
    EXPECT_EQ(language->isChecked(), language->objectName() == "mnuLanguageList(0)");
}

TEST_F(AboutDialogTest, AnyWayToCloseItIsItsButton) {
  const std::function<void()> ways[] = {
      [this] { QTest::mouseClick(About().findChild<QPushButton*>("cmdOK"), Qt::LeftButton); },
      [this] { QTest::keyClick(&About(), Qt::Key_Escape); },
      [this] { About().close(); },
  };
  for (const auto& way : ways) {
    EXPECT_EQ(user.Click("cmdSave"), Outcome::refused);
    way();
    EXPECT_FALSE(About().isVisible());
    EXPECT_FALSE(world.program.AboutIsUp());
    user.Click("mnuAbout");
    EXPECT_TRUE(About().isVisible());
  }
}

TEST_F(AboutDialogTest, AsAModalBoxItHoldsUpWhoeverOpensIt) {
  user.Click("cmdOK");
  About().holdsUp = true;
  bool wasUp = false;
  QTimer::singleShot(0, [&] {
    wasUp = world.program.AboutIsUp();
    QTest::mouseClick(About().findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  window.findChild<QAction*>("mnuAbout")->trigger();
  EXPECT_TRUE(wasUp);
  EXPECT_FALSE(world.program.AboutIsUp());
}

using MainWindowTest = WindowTest;

static std::string AccessibleName(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken != nullptr ? spoken->text(QAccessible::Name).toStdString() : "";
}

TEST_F(MainWindowTest, EveryFieldHasOneWidgetAndAName) {
  for (const Control* control : form.Controls) {
    if (dynamic_cast<const MenuItem*>(control) != nullptr) continue;
    EXPECT_EQ(window.findChildren<QWidget*>(QString::fromStdString(control->Name)).size(), 1);
    if (dynamic_cast<const Label*>(control) != nullptr) continue;
    EXPECT_NE(AccessibleName(widget<QWidget>(control->Name)), "") << control->Name;
  }
}

/// The first widget that has less room than its text needs.
static std::string CutWidget(const MainWindow& window) {
  for (const QWidget* widget : window.centralWidget()->findChildren<QWidget*>()) {
    const bool hasText = widget->inherits("QLabel") || widget->inherits("QCheckBox") ||
                         widget->inherits("QPushButton") || widget->inherits("QGroupBox");
    if (!widget->isVisible() || !hasText) continue;
    const auto* page = window.findChild<QTabWidget*>()->currentWidget();
    const auto* scrolled = qobject_cast<const QScrollArea*>(page);
    if (scrolled == nullptr) scrolled = page->findChild<QScrollArea*>();
    const QSize needed = widget->minimumSizeHint();
    const auto* wrapped = dynamic_cast<const WrapLabel*>(widget);
    const int height =
        wrapped != nullptr ? wrapped->heightForWidth(widget->width()) : needed.height();
    const bool isScrolled = scrolled != nullptr && scrolled->isAncestorOf(widget);
    const QRect place(widget->mapTo(&window, QPoint()), widget->size());
    if (widget->width() < needed.width() || widget->height() < height || place.left() < 0 ||
        place.right() >= window.width() || (!isScrolled && !window.rect().contains(place)))
      return widget->objectName().toStdString();
  }
  return "";
}

TEST_F(MainWindowTest, NoTextIsCutOffInALargeFontOrALongLanguage) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSize(20);
  const auto expectWhole = [this](const char* what) {
    for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
      user.Tab(tab);
      // The lines of a text and the width of the window settle each other.
      for (int round = 0; round < 5; ++round) {
        window.resize(window.minimumSizeHint());
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
      }
      EXPECT_EQ(CutWidget(window), "") << what << ", tab " << tab;
    }
  };
  expectWhole("as it is");
  QApplication::setFont(large);
  expectWhole("a large font");
  const auto& grid = widget<GridView>("gridKeyMap(0)");
  EXPECT_GE(grid.rowHeight(0), grid.fontMetrics().height());
  const auto expectKeysInSight = [&grid](const char* what) {
    const QHeaderView& heading = *grid.horizontalHeader();
    EXPECT_EQ(grid.columnViewportPosition(1) + grid.columnWidth(1), grid.viewport()->width());
    EXPECT_GE(grid.columnWidth(1), heading.sectionSizeHint(1)) << what;
    for (int row = 0; row < grid.model()->rowCount(); ++row)
      EXPECT_GE(grid.columnWidth(1), grid.sizeHintForIndex(grid.model()->index(row, 1)).width());
  };
  user.Tab(0);
  expectKeysInSight("small");
  window.resize(3000, 900);
  QCoreApplication::processEvents();
  expectKeysInSight("wide");
  for (int row = 0; row < grid.model()->rowCount(); ++row)
    EXPECT_GE(grid.columnWidth(0), grid.sizeHintForIndex(grid.model()->index(row, 0)).width());
  for (Control* control : form.Controls)
    if (const std::string text = control->Caption; !text.empty())
      control->Caption = text + " " + text.substr(0, text.size() / 2);
  expectWhole("longer texts too");
  QApplication::setFont(usual);
}

TEST(FontStyle, QuietTextsAndEdgesAreSeenInAPaletteThatForgetsThem) {
  QPalette palette(Qt::black);
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button})
    palette.setColor(role, Qt::black);
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText})
    palette.setColor(role, Qt::white);
  for (const QPalette::ColorRole role : {QPalette::PlaceholderText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Qt::black);
  palette.setColor(QPalette::Active, QPalette::PlaceholderText, Qt::black);
  FontStyle().polish(palette);
  const auto grey = [&palette](QPalette::ColorGroup group, QPalette::ColorRole role) {
    return qGray(palette.color(group, role).rgb());
  };
  EXPECT_GT(grey(QPalette::Active, QPalette::PlaceholderText), 100);
  EXPECT_GT(grey(QPalette::Disabled, QPalette::WindowText), 100);
  EXPECT_GT(grey(QPalette::Active, QPalette::Window), 20) << "edges are darker than this";
  EXPECT_EQ(grey(QPalette::Active, QPalette::Base), 0);
}

TEST(WrapLabel, AsksForTheHeightOfTheTextThatItHasNow) {
  WrapLabel label;
  label.setText("A word");
  const int low = label.heightForWidth(100);
  label.setText(QString("A word ").repeated(40));
  const int high = label.heightForWidth(100);
  EXPECT_GT(high, 3 * low);
  QFont larger = label.font();
  larger.setPointSizeF(larger.pointSizeF() * 2);
  label.setFont(larger);
  EXPECT_GT(label.heightForWidth(100), high);
}

TEST_F(MainWindowTest, ItFitsASmallScreen) {
  const QFontMetrics letters = window.fontMetrics();
  EXPECT_LT(window.minimumSizeHint().height(), letters.height() * 28);
  EXPECT_LT(window.minimumSizeHint().width(), letters.averageCharWidth() * 110);
}

TEST_F(MainWindowTest, ItComesUpInsideTheScreenWithItsFrame) {
  QWidget large;
  ShowFitted(large, {5000, 5000});
  QTest::qWait(500);
  EXPECT_TRUE(large.screen()->availableGeometry().contains(large.frameGeometry()));
  EXPECT_LT(large.height(), large.screen()->availableGeometry().height());
}

TEST_F(MainWindowTest, AnnouncedRowsBearTheirPlacesAndTheOthersNone) {
  for (const int tab : {0, 4}) {
    const KeyGrid& keys = form.gridKeyMap.at(static_cast<std::size_t>(tab));
    const auto& rows = *widget<GridView>("gridKeyMap(" + std::to_string(tab) + ")").model();
    int voiced = 0;
    for (int row = 1; row < keys.Rows(); ++row) {
      const QString place = rows.index(row - 1, KeyGridModel::placeColumn).data().toString();
      const bool isVoiced = keys.Text(row, Column::Order) != "99999";
      EXPECT_EQ(place, isVoiced ? QString::number(++voiced) : "");
    }
    EXPECT_GT(voiced, 0);
  }
  EXPECT_TRUE(widget<GridView>("gridKeyMap(1)").isColumnHidden(KeyGridModel::placeColumn));
  EXPECT_FALSE(widget<QWidget>("silentMenu(1)").isHidden());
  EXPECT_TRUE(widget<QWidget>("silentMenu(0)").isHidden());
}

TEST_F(MainWindowTest, OneStepDownTellsAScreenReaderOnce) {
  static std::vector<QString> told;
  told.clear();
  QAccessible::setActive(true);
  const auto before = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
    if (event->object() != nullptr && event->type() != QAccessible::ObjectShow)
      told.push_back(event->object()->objectName());
  });
  user.Row(0, 2);
  told.clear();
  Press(Qt::Key_Down);
  const auto ofGrid = std::count(told.begin(), told.end(), QString("gridKeyMap(0)"));
  QAccessible::installUpdateHandler(before);
  QAccessible::setActive(false);
  EXPECT_LT(told.size(), 20U);
  EXPECT_LE(ofGrid, 1) << "the grid behind the box";
  EXPECT_TRUE(widget<QWidget>("txtKeyAssignment(0)")
                  .accessibleName()
                  .contains(form.gridKeyMap[0].Text(3, Column::Action).c_str()));
}

TEST_F(MainWindowTest, TheRowThatTheBoxesEditIsMarkedWhereverTheKeyboardIs) {
  auto& grid = widget<GridView>("gridKeyMap(0)");
  QPalette colors = grid.palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    colors.setColor(group, QPalette::Highlight, group == QPalette::Active ? Qt::blue : Qt::gray);
  grid.setPalette(colors);
  QWidget another;
  another.show();
  another.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&another));
  const QRect row = grid.visualRect(grid.currentIndex());
  EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(row.topRight() - QPoint(2, -2)),
            QColor(Qt::blue));
}

// From here on the program has ended, and no message box of the toolkit stays up any more.

TEST_F(MainWindowTest, NothingButItsOwnWaysOutEndsTheProgram) {
  Press(Qt::Key_Q, Qt::ControlModifier);
  Press(Qt::Key_W, Qt::ControlModifier);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(window.Entry().Ended());
  user.Type("2", true);
  EXPECT_TRUE(form.cmdSave.Enabled);
  world.messages.answers = {MsgBoxAnswer::Yes};
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(window.Entry().Ended());
  EXPECT_EQ(Shown().size(), 1U);
  // Events that are still on their way find nobody.
  widget<QPushButton>("cmdExit").click();
  EXPECT_TRUE(Shown().empty());
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
  EXPECT_TRUE(window.Entry().Ended());
  EXPECT_THROW(std::rethrow_exception(window.Entry().Failure()), std::logic_error);
}

}  // namespace dialwright
