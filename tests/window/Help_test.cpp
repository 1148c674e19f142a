#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <random>
#include <set>

#include "../support/TempFolder.h"
#include "WindowTest.h"
#include "desktop/help/ChmArchive.h"
#include "desktop/help/HelpContents.h"
#include "desktop/help/HelpViewerQt.h"
#include "desktop/help/HelpWindow.h"

namespace dialwright {

static std::string SmallHelp() { return BytesOf(SMALL_HELP); }

TEST(ChmArchive, ReadsWhatTheCompilerHasPutIn) {
  const auto archive = ChmArchive::Open(SmallHelp());
  ASSERT_NE(archive, nullptr);
  EXPECT_EQ(archive->Title(), "Small Help");
  EXPECT_EQ(archive->HomePage(), "/first.html");
  EXPECT_NE(archive->Read("FIRST.html").value_or("").find("f\xc3\xbcr alle"), std::string::npos);
  EXPECT_EQ(HelpText("f\xfcr \x93").toStdString(), "f\xc3\xbcr \xe2\x80\x9c") << "no UTF-8";
}

/// Whatever the bytes are, the answer is an archive that can be read through or none.
static bool ReadThrough(const std::string& bytes) {
  const auto archive = ChmArchive::Open(bytes);
  if (!archive) return false;
  for (const std::string& page : archive->Pages()) archive->Read(page);
  ReadHelpContents(HelpText(archive->Read(archive->ContentsFile()).value_or("")));
  return true;
}

TEST(ChmArchive, ADamagedFileIsNoneOrIsReadAsFarAsItGoes) {
  const std::string whole = SmallHelp(), zero(4, '\0'), huge(4, '\x7f');
  for (std::size_t length = 0; length < whole.size(); length += 37)
    ReadThrough(whole.substr(0, length));
  std::mt19937 random(7);
  for (unsigned round = 0; round < 2000; ++round) {
    std::string damaged = whole;
    for (unsigned change = 0; change < 1 + round % 8; ++change)
      damaged[random() % damaged.size()] = static_cast<char>(random());
    ReadThrough(damaged);
  }
  // What the library itself would stumble over.
  const std::tuple<const char*, std::size_t, std::string> rows[] = {
      {"PMGL", 0x10, zero},  // the first page of the directory comes again
      {"PMGL", 4, huge},     // more free space than a page has
      {"LZXC", 8, zero},     // no interval between resets
      {"ITSF", 0x48, huge},  // a directory outside the file
  };
  for (const auto& [mark, offset, damage] : rows) {
    std::string bytes = whole;
    bytes.replace(bytes.find(mark) + offset, damage.size(), damage);
    EXPECT_FALSE(ReadThrough(bytes)) << mark << offset;
  }
}

TEST(HelpWindow, TurnsPagesAndFindsWords) {
  HelpWindow window(ChmArchive::Open(SmallHelp()));
  window.ShowHomePage();
  window.show();
  auto& page = *window.findChild<QTextBrowser*>("helpPage");
  auto& tree = *window.findChild<QTreeWidget*>("helpContents");
  const auto title = [&] { return page.documentTitle().toStdString(); };
  EXPECT_EQ(window.windowTitle(), "Small Help");
  EXPECT_EQ(title(), "The first page");
  EXPECT_EQ(tree.currentItem()->text(0), "First & foremost");

  tree.setCurrentItem(tree.topLevelItem(0)->child(0));
  EXPECT_EQ(title(), "The second page");
  window.findChild<QAction*>("helpBack")->trigger();
  EXPECT_EQ(title(), "The first page");
  EXPECT_EQ(tree.currentItem(), tree.topLevelItem(0));

  auto& words = *window.findChild<QLineEdit*>("helpFind");
  auto& found = *window.findChild<QListWidget*>("helpFound");
  words.setText("ORDER page");
  ASSERT_EQ(found.count(), 1);
  found.setCurrentRow(0);
  EXPECT_EQ(title(), "The second page");

  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&page, Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(words.hasFocus());
  EXPECT_EQ(words.selectedText(), words.text());
  words.setText("page");
  EXPECT_FALSE(page.extraSelections().isEmpty());
  std::set<std::string> reached;
  for (int hit = 0; hit < 12; ++hit) {
    QTest::keyClick(&words, hit % 2 == 0 ? Qt::Key_Return : Qt::Key_F3);
    EXPECT_EQ(page.textCursor().selectedText().toLower(), "page");
    reached.insert(title());
  }
  EXPECT_EQ(reached.size(), 2U) << "the hits of all pages";
  QTest::keyClick(&words, Qt::Key_Escape);
  EXPECT_EQ(words.text(), "");
  EXPECT_TRUE(page.extraSelections().isEmpty());
  EXPECT_TRUE(page.hasFocus());
}

TEST(HelpViewer, OpensClosesAndSaysWhichFileIsNoHelp) {
  Printer printer;
  World world(printer);
  HelpViewerQt viewer(world.files);
  const std::string good = "C:\\Dialwright\\good.chm", bad = "C:\\Dialwright\\bad.chm";
  world.MakeFile(good, SmallHelp());
  world.MakeFile(bad, "something else");
  const auto open = [&] {
    const WindowHandle opened = viewer.HtmlHelpA(0, good, 0, 0);
    EXPECT_TRUE(viewer.IsWindow(opened));
    return opened;
  };
  const WindowHandle first = open();
  viewer.SendMessageA(first, 16, 0, 0);
  EXPECT_FALSE(viewer.IsWindow(first));

  const WindowHandle atPage = viewer.HtmlHelpA(0, good + "::/second.html", 0, 0);
  const auto* page = QWidget::find(atPage)->findChild<QTextBrowser*>("helpPage");
  EXPECT_EQ(page->documentTitle(), "The second page");

  const WindowHandle second = open();
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (dynamic_cast<HelpWindow*>(widget) != nullptr) widget->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(viewer.IsWindow(second));

  world.files.Lock(good);
  for (const std::string& path : {std::string("C:\\Dialwright\\none.chm"), bad, good}) {
    QString text;
    QTimer::singleShot(0, [&text] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      text = box->text();
      box->close();
    });
    EXPECT_EQ(viewer.HtmlHelpA(0, path, 0, 0), 0U);
    EXPECT_TRUE(text.contains(path.c_str())) << text.toStdString();
  }
}

}  // namespace dialwright
