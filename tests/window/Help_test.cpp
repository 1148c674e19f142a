#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <fstream>
#include <iterator>
#include <random>

#include "WindowTest.h"
#include "desktop/ChmArchive.h"
#include "desktop/HelpContents.h"
#include "desktop/HelpViewerQt.h"
#include "desktop/HelpWindow.h"

namespace dialwright {

namespace {

std::string smallHelp() {
  std::ifstream file(SMALL_HELP, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ChmArchive, ReadsWhatTheCompilerHasPutIn) {
  const auto archive = ChmArchive::open(smallHelp());
  ASSERT_NE(archive, nullptr);
  EXPECT_EQ(archive->title(), "Small Help");
  EXPECT_EQ(archive->homePage(), "/first.html");
  EXPECT_EQ(archive->pages(), (std::vector<std::string>{"/first.html", "/second.html"}));
  EXPECT_NE(archive->read("FIRST.html").value_or("").find("f\xc3\xbcr alle"), std::string::npos);
  EXPECT_EQ(archive->read("none.html"), std::nullopt);
}

/// Whatever the bytes are, the answer is an archive that can be read through or none.
void readThrough(const std::string& bytes) {
  const auto archive = ChmArchive::open(bytes);
  if (!archive) return;
  for (const std::string& page : archive->pages()) archive->read(page);
  readHelpContents(helpText(archive->read(archive->contentsFile()).value_or("")));
}

TEST(ChmArchive, ADamagedFileIsNoneOrIsReadAsFarAsItGoes) {
  const std::string whole = smallHelp();
  EXPECT_EQ(ChmArchive::open(""), nullptr);
  EXPECT_EQ(ChmArchive::open("ITSF"), nullptr);
  EXPECT_EQ(ChmArchive::open(std::string(whole.size(), 'x')), nullptr);
  for (std::size_t length = 0; length < whole.size(); length += 37)
    readThrough(whole.substr(0, length));
  std::mt19937 random(7);
  for (unsigned round = 0; round < 2000; ++round) {
    std::string damaged = whole;
    for (unsigned change = 0; change < 1 + round % 8; ++change)
      damaged[random() % damaged.size()] = static_cast<char>(random());
    readThrough(damaged);
  }
}

TEST(ChmArchive, WhatTheLibraryWouldStumbleOverIsNone) {
  const std::string zero(4, '\0');
  const std::string huge(4, '\x7f');
  const std::tuple<const char*, const char*, std::size_t, std::string> rows[] = {
      {"the first page of the directory comes again", "PMGL", 0x10, zero},
      {"more free space than a page has", "PMGL", 4, huge},
      {"pages without length", "ITSP", 0x10, zero},
      {"no window", "LZXC", 12, zero},
      {"no blocks between resets", "LZXC", 16, zero},
      {"no interval between resets", "LZXC", 8, zero},
      {"a directory outside the file", "ITSF", 0x48, huge},
  };
  for (const auto& [what, mark, offset, damage] : rows) {
    std::string bytes = smallHelp();
    const std::size_t place = bytes.find(mark);
    ASSERT_NE(place, std::string::npos) << what;
    bytes.replace(place + offset, damage.size(), damage);
    EXPECT_EQ(ChmArchive::open(bytes), nullptr) << what;
  }
}

std::string outline(const std::vector<HelpTopic>& topics) {
  std::string result;
  for (const HelpTopic& topic : topics)
    result += topic.title.toStdString() + "=" + topic.page.toStdString() + "(" +
              outline(topic.topics) + ")";
  return result;
}

TEST(HelpContents, ReadsListsOfLists) {
  const std::string a = R"(<LI><OBJECT type="text/sitemap"><param name="Name" value="A">)"
                        R"(<param name="Local" value="a.html"></OBJECT>)";
  const std::string b =
      R"(<li><object type='text/sitemap'><PARAM value='B &lt;' name='Name'></object>)";
  const std::pair<std::string, const char*> rows[] = {
      {"", ""},
      {"no list at all", ""},
      {"<UL>" + a + b + "</UL>", "A=a.html()B <=()"},
      {"<UL>" + a + "<UL>" + b + "</UL>" + b + "</UL>", "A=a.html(B <=())B <=()"},
      {"<UL><UL>" + a + "</UL></UL></UL></UL>" + b, "A=a.html()B <=()"},
      {"<UL>" + a + "<UL>" + b, "A=a.html(B <=())"},
      {"<OBJECT type=\"text/site properties\"><param name=\"Name\" value=\"X\"></OBJECT>", ""},
      {"<OBJECT type=\"text/sitemap\"><param name=\"Local\" value=\"x.html\"></OBJECT>", ""},
  };
  for (const auto& [text, expected] : rows)
    EXPECT_EQ(outline(readHelpContents(QString::fromStdString(text))), expected) << text;

  QString deep;
  for (int i = 0; i < 5000; ++i) deep += "<UL>" + QString::fromStdString(a);
  EXPECT_FALSE(readHelpContents(deep).empty());
}

TEST(HelpText, IsUtf8OrElseAnsi) {
  EXPECT_EQ(helpText("f\xc3\xbcr").toStdString(), "f\xc3\xbcr");
  EXPECT_EQ(helpText("f\xfcr \x93").toStdString(), "f\xc3\xbcr \xe2\x80\x9c");
}

TEST(HelpWindow, TurnsPagesAndFindsWords) {
  HelpWindow window(ChmArchive::open(smallHelp()));
  window.showHomePage();
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
  window.findChild<QAction*>("helpForward")->trigger();
  EXPECT_EQ(title(), "The second page");
  page.setSource(QUrl("mk:@MSITStore:small.chm::/first.html"));
  EXPECT_EQ(title(), "The first page");

  auto& words = *window.findChild<QLineEdit*>("helpFind");
  auto& found = *window.findChild<QListWidget*>("helpFound");
  words.setText("ORDER page");
  ASSERT_EQ(found.count(), 1);
  found.setCurrentRow(0);
  EXPECT_EQ(title(), "The second page");
  words.setText("nowhere");
  EXPECT_FALSE(found.item(0)->flags() & Qt::ItemIsEnabled);
  words.clear();
  EXPECT_TRUE(tree.isVisible());
}

struct HelpViewerTest : testing::Test {
  HelpViewerTest() {
    world.makeFile("C:\\Dialwright\\good.chm", smallHelp());
    world.makeFile("C:\\Dialwright\\bad.chm", "something else");
  }
  Printer printer;
  World world{printer};
  HelpViewerQt viewer{world.files};
};

TEST_F(HelpViewerTest, SaysWhichFileIsMissingOrIsNoHelp) {
  world.files.lock("C:\\Dialwright\\good.chm");
  for (const char* path :
       {"C:\\Dialwright\\none.chm", "C:\\Dialwright\\bad.chm", "C:\\Dialwright\\good.chm"}) {
    QString text;
    QTimer::singleShot(0, [&text] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      text = box->text();
      box->close();
    });
    EXPECT_EQ(viewer.HtmlHelpA(0, path, 0, 0), 0U);
    EXPECT_FALSE(viewer.IsWindow(0));
    EXPECT_TRUE(text.contains(path)) << text.toStdString();
  }
}

TEST_F(HelpViewerTest, ClosesOnTheMessageAndByTheUser) {
  const char* path = "C:\\Dialwright\\good.chm";
  const WindowHandle first = viewer.HtmlHelpA(0, path, 0, 0);
  EXPECT_TRUE(viewer.IsWindow(first));
  EXPECT_FALSE(viewer.IsWindow(first + 1));
  viewer.SendMessageA(first, 15, 0, 0);
  EXPECT_TRUE(viewer.IsWindow(first));
  viewer.SendMessageA(first, 16, 0, 0);
  EXPECT_FALSE(viewer.IsWindow(first));

  const WindowHandle second = viewer.HtmlHelpA(0, path, 0, 0);
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (dynamic_cast<HelpWindow*>(widget) != nullptr) widget->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(viewer.IsWindow(second));
}

}  // namespace

}  // namespace dialwright
