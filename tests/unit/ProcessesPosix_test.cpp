#include "platform/ProcessesPosix.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "../support/TempFolder.h"
#include "platform/Failure.h"
#include "platform/FileStorePosix.h"

namespace dialwright {
namespace {

// Programs that write down how they were started, on a search path of the test's own.
class ProcessesPosixTest : public testing::Test {
 protected:
  ProcessesPosixTest() : searchPath(std::getenv("PATH")) {
    for (const std::string name : {"drive_c/bin/java", "drive_c/bin/xdg-open"}) {
      program(name, "#!/bin/sh\n{ pwd -P; for a in \"$0\" \"$@\"; do echo \"<$a>\"; done; } > " +
                        (host / "out.part").string() + "\nmv " + (host / "out.part").string() +
                        " " + (host / "out").string() + "\n");
    }
    setenv("PATH", ((host / "drive_c/bin").string() + ":/usr/bin:/bin").c_str(), 1);
  }
  ~ProcessesPosixTest() override { setenv("PATH", searchPath.c_str(), 1); }

  void program(const std::string& name, const std::string& text, unsigned permissions = 0755) {
    host.write(name, text);
    chmod((host / name).c_str(), permissions);
  }

  int shell(std::string_view commandLine, std::string_view folder = "C:\\") {
    try {
      processes.Shell(commandLine, WindowState::hidden, folder);
    } catch (const RuntimeFailure& failure) {
      return failure.number;
    }
    return 0;
  }

  // What the program has written down: its folder and its words.
  std::string outcome() {
    for (int i = 0; i < 500 && !std::filesystem::exists(host / "out"); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string text = host.read("out");
    std::filesystem::remove(host / "out");
    return text;
  }

  std::string at(std::string_view name) const {
    return std::filesystem::canonical(host / name).string();
  }

  TempFolder host;
  FileStorePosix store{host.path.string()};
  ProcessesPosix processes{[this](std::string_view path) { return store.HostPath(path); }};
  std::string searchPath;
};

TEST_F(ProcessesPosixTest, AProgramOnTheSearchPath) {
  host.write("drive_c/P/PDFFoldoutBuilder/itext-1.3.jar", "");
  const std::string folder = at("drive_c/P/PDFFoldoutBuilder");
  EXPECT_EQ(
      shell(
          R"(java -classpath "C:\P\PDFFoldoutBuilder;C:\p\pdffoldoutbuilder\ITEXT-1.3.jar" FBuilder)",
          R"(C:\P\PDFFoldoutBuilder)"),
      0);
  EXPECT_EQ(outcome(), folder + "\n<" + (host / "drive_c/bin/java").string() +
                           ">\n<-classpath>\n<" + folder + ":" + folder +
                           "/itext-1.3.jar>\n<FBuilder>\n");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD) << "a process is left to wait for";
}

TEST_F(ProcessesPosixTest, TheOpenerOfTheDesktop) {
  host.write("drive_c/P/Key Mappings.htm", "");
  EXPECT_EQ(shell(R"(EXPLORER "C:\P\key mappings.HTM")"), 0);
  EXPECT_EQ(outcome(), at("drive_c") + "\n<" + (host / "drive_c/bin/xdg-open").string() + ">\n<" +
                           at("drive_c/P/Key Mappings.htm") + ">\n");
  EXPECT_EQ(shell("explorer.exe http://localhost/x"), 0);
  EXPECT_NE(outcome().find("<http://localhost/x>"), std::string::npos);
}

TEST_F(ProcessesPosixTest, AProgramWithAPathAndWordsThatAShellWouldChange) {
  const std::string words = R"("a b" $HOME `id` *;x 'q' "\\" "")";
  EXPECT_EQ(shell(R"("C:\BIN\java" )" + words), 0);
  EXPECT_EQ(outcome(), at("drive_c") + "\n<" + (host / "drive_c/bin/java").string() +
                           ">\n<a b>\n<$HOME>\n<`id`>\n<*;x>\n<'q'>\n<\\>\n<>\n");
}

TEST_F(ProcessesPosixTest, NobodyWaitsForTheProgram) {
  program("drive_c/bin/waiter",
          "#!/bin/sh\ni=0\nwhile [ ! -e go ] && [ $i -lt 100 ]; do sleep 0.1; i=$((i+1)); done\n"
          "[ -e go ] && echo went > part\nmv part " +
              (host / "out").string() + "\n");
  EXPECT_EQ(shell("waiter"), 0);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it is a child of ours";
  EXPECT_EQ(errno, ECHILD);
  host.write("drive_c/go", "");
  EXPECT_EQ(outcome(), "went\n");
}

TEST_F(ProcessesPosixTest, FailuresToStart) {
  program("drive_c/bin/locked", "#!/bin/sh\n", 0644);
  program("drive_c/bin/orphan", "#!/no/such/interpreter\n");
  program("drive_c/bin/empty", "");
  EXPECT_EQ(shell("no-such-program-anywhere"), 53);
  EXPECT_EQ(shell(R"(C:\bin\none.exe)"), 53);
  EXPECT_EQ(shell(R"(C:\bin\orphan)"), 53);
  EXPECT_EQ(shell(R"(C:\bin\locked)"), 70);
  EXPECT_NE(shell(R"(C:\bin\empty)"), 0);
  EXPECT_EQ(shell("java", R"(C:\nowhere)"), 76);
  EXPECT_EQ(shell(""), 5);
  EXPECT_FALSE(std::filesystem::exists(host / "out"));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace dialwright
