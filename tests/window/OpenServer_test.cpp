#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "../support/TempFolder.h"
#include "desktop/QtText.h"
#include "desktop/posix/OpenServerDialog.h"
#include "desktop/posix/ServerFolder.h"

namespace dialwright {

namespace fs = std::filesystem;

struct OpenServerTest : testing::Test {
  OpenServerTest() {
    qputenv("XDG_DATA_HOME", (host / "data").c_str());
    // Where the list is kept is settled once a process.
    static const TempFolder settings;
    qputenv("XDG_CONFIG_HOME", settings.path.c_str());
    fs::create_directory(host / "shipped");
    fs::copy(fs::path(DIALWRIGHT_SOURCE_DIR) / "sandbox/tessel-1.1-0.0", host / "shipped/sample",
             fs::copy_options::recursive);
  }
  QString Path(const std::string& name) const { return ToQt((host / name).string()); }

  TempFolder host;
};

TEST_F(OpenServerTest, AFolderThatIsNoneSaysWhatIsMissing) {
  fs::create_directories(host / "empty/drive_c");
  host.Write("other/server.reg", "REGEDIT4\n[HKEY_LOCAL_MACHINE\\Software\\Other]\n");
  host.Write("driveless/SERVER.REG",
             "REGEDIT4\n[HKEY_LOCAL_MACHINE\\Software\\Varlo Systems\\Varlo Merid]\n");
  const std::pair<std::string, QString> cases[] = {
      {"nowhere", "There is no folder %1."},
      {"empty", "There is no file server.reg in %1."},
      {"other", "The file server.reg in %1 tells of no Merid or Merid Tessel server."},
      {"driveless", "There is no folder drive_c in %1."},
  };
  for (const auto& [name, text] : cases)
    EXPECT_TRUE(ServerFolderFault(Path(name)).startsWith(text.arg(Path(name)))) << name;
  EXPECT_EQ(ServerFolderFault(Path("shipped/sample")), QString());
}

TEST_F(OpenServerTest, TheSampleIsCopiedOnceAndOpened) {
  OpenServerDialog dialog(Path("shipped"), {}, true);
  QTest::mouseClick(dialog.findChild<QPushButton*>("sample"), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Folder(), Path("data/dialwright/Sample Server"));
  EXPECT_TRUE(fs::exists(host / "data/dialwright/Sample Server/server.reg"));
  host.Write("data/dialwright/Sample Server/mine", "edited");
  QString fault;
  EXPECT_EQ(SampleServer(Path("shipped"), fault), dialog.Folder());
  EXPECT_EQ(host.Read("data/dialwright/Sample Server/mine"), "edited");
}

TEST_F(OpenServerTest, TheLastOnesAreOffered) {
  const QString odd = Path("a, \"b\"; ä");
  fs::copy(host / "shipped/sample", FromQt(odd), fs::copy_options::recursive);
  fs::create_directory(host / "gone");
  RememberServer(Path("gone"));
  RememberServer(odd);
  RememberServer(Path("shipped/sample"));
  RememberServer(odd);
  EXPECT_EQ(LastServers(), (QStringList{odd, Path("shipped/sample"), Path("gone")}));
  OpenServerDialog dialog(Path("shipped"), {}, true);
  dialog.show();
  auto* last = dialog.findChild<QListWidget*>("last");
  last->setCurrentRow(2);
  QTest::keyClick(last, Qt::Key_Return);
  EXPECT_TRUE(dialog.findChild<QLabel*>("fault")->isVisible());
  EXPECT_TRUE(dialog.isVisible()) << "a folder that is none changes nothing";
  last->setCurrentRow(0);
  QTest::keyClick(last, Qt::Key_Return);
  EXPECT_EQ(dialog.Folder(), odd);
}

}  // namespace dialwright
