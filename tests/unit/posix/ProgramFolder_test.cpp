#include "platform/posix/ProgramFolder.h"

#include <gtest/gtest.h>

#include "../../support/TempFolder.h"

namespace dialwright {

namespace fs = std::filesystem;

struct ProgramFolderTest : testing::Test {
  ProgramFolderTest() {
    for (const std::string name :
         {"Dialwright_ENU.dll", "Dialwright.chm", "Blank_Map_Template.htm", "XMLShots/a.XML",
          "PDFFoldoutBuilder/itext-1.3.jar", "XMLKeyMap.XML", "server.reg", "Dialwright"})
      host.Write("shipped/" + name, name);
    fs::create_directory(host / "server");
  }
  std::string Folder() {
    return ProgramFolderFor((host / "server").string(), (host / "shipped").string());
  }

  TempFolder host;
  const fs::path own = host / "server/Dialwright Files";
};

TEST_F(ProgramFolderTest, WhatIsShippedAndNothingElseIsLaid) {
  EXPECT_EQ(Folder(), own.string());
  for (const std::string name : {"Dialwright_ENU.dll", "Dialwright.chm", "Blank_Map_Template.htm",
                                 "XMLShots/a.XML", "PDFFoldoutBuilder/itext-1.3.jar"})
    EXPECT_EQ(fs::read_symlink(own / name), host / "shipped" / name);
  for (const std::string name : {"XMLKeyMap.XML", "server.reg", "Dialwright"})
    EXPECT_FALSE(fs::exists(own / name)) << name << " is somebody's work";
  EXPECT_FALSE(fs::is_symlink(own / "PDFFoldoutBuilder")) << "the cards are left in it";
}

TEST_F(ProgramFolderTest, LinksFollowTheProgramAndFilesStay) {
  fs::create_directory(own);
  fs::create_symlink(host / "older/Dialwright.chm", own / "Dialwright.chm");
  host.Write("server/Dialwright Files/Blank_Map_Template.htm", "our own page");
  Folder();
  EXPECT_EQ(host.Read("server/Dialwright Files/Dialwright.chm"), "Dialwright.chm");
  EXPECT_EQ(host.Read("server/Dialwright Files/Blank_Map_Template.htm"), "our own page");
}

TEST_F(ProgramFolderTest, WhereNothingCanBeLaid) {
  host.Write("server/Dialwright Files", "a file");
  EXPECT_EQ(Folder(), (host / "shipped").string());
  host.Write("server/Dialwright_ENU.dll", "the server lies beside a program");
  EXPECT_EQ(Folder(), (host / "server").string());
}

TEST_F(ProgramFolderTest, WhereTheShippedFilesLie) {
  const std::string root = host.path.string();
  EXPECT_EQ(ShippedFolder(root + "/shipped"), root + "/shipped");
  EXPECT_EQ(ShippedFolder(root + "/bin"), root + "/bin");
  host.Write("share/dialwright/Dialwright_ENU.dll", "");
  EXPECT_EQ(ShippedFolder(root + "/bin"), root + "/share/dialwright");
}

}  // namespace dialwright
