#include "platform/posix/ProcessesPosix.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <tuple>

#include "../../support/FailureNumber.h"
#include "../../support/TempFolder.h"
#include "platform/posix/FileStorePosix.h"
#include "platform/posix/HostPath.h"

namespace dialwright {

namespace fs = std::filesystem;

// Programs that write down how they were started, on a search path of the test's own.
struct ProcessesPosixTest : testing::Test {
  ProcessesPosixTest() : searchPath(std::getenv("PATH")) {
    for (const std::string name : {"java", "xdg-open"})
      Program(name,
              "#!/bin/sh\n{ pwd -P; for a in \"$0\" \"$@\"; do echo \"<$a>\"; done; } > $OUT.part\n"
              "mv $OUT.part $OUT\n");
    setenv("OUT", (host / "out").c_str(), 1);
    setenv("PATH", (bin + ":/usr/bin:/bin").c_str(), 1);
  }
  ~ProcessesPosixTest() override { setenv("PATH", searchPath.c_str(), 1); }

  void Program(const std::string& name, const std::string& text) {
    host.Write("drive_c/bin/" + name, text);
    fs::permissions(bin + "/" + name, fs::perms(0755));
  }
  int Shell(std::string_view commandLine, std::string_view folder = "C:\\") {
    return FailureNumber([&] { processes.Shell(commandLine, WindowState::hidden, folder); });
  }
  /// What the program has written down: its folder and its words.
  std::string Outcome() {
    for (int i = 0; i < 500 && !fs::exists(host / "out"); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    const std::string text = host.Read("out");
    fs::remove(host / "out");
    return text;
  }

  TempFolder host;
  const std::string bin = (host / "drive_c/bin").string();
  FileStorePosix store{host.path.string()};
  ProcessesPosix processes{[this](std::string_view path) { return store.HostPath(path); }};
  std::string searchPath;
};

TEST_F(ProcessesPosixTest, Programs) {
  host.Write("drive_c/P/PDFFoldoutBuilder/itext-1.3.jar", "");
  host.Write("drive_c/P/Key Mappings.htm", "");
  const std::string c = fs::canonical(host / "drive_c").string(), tool = c + "/P/PDFFoldoutBuilder";
  const std::tuple<std::string, std::string_view, std::string> cases[] = {
      {R"(java -classpath "C:\P\PDFFoldoutBuilder;C:\p\pdffoldoutbuilder\ITEXT-1.3.jar" FB)",
       R"(C:\P\PDFFoldoutBuilder)",
       tool + "\n<" + bin + "/java>\n<-classpath>\n<" + tool + ":" + tool +
           "/itext-1.3.jar>\n<FB>\n"},
      {R"(EXPLORER "C:\P\key mappings.HTM")", "C:\\",
       c + "\n<" + bin + "/xdg-open>\n<" + c + "/P/Key Mappings.htm>\n"},
      {R"("C:\BIN\java" "a b" $HOME `id` *;x)", "C:\\",
       c + "\n<" + bin + "/java>\n<a b>\n<$HOME>\n<`id`>\n<*;x>\n"},
  };
  for (const auto& [commandLine, folder, expected] : cases) {
    EXPECT_EQ(Shell(commandLine, folder), 0) << commandLine;
    EXPECT_EQ(Outcome(), expected);
  }
}

TEST_F(ProcessesPosixTest, FoldersOfAnyName) {
  Program("teller", "#!/bin/sh\nprintf %s \"$LC_ALL\" > $OUT.part; mv $OUT.part $OUT\n");
  const std::string odd = (host / "It's \"a:b;c\\d\" \xC3\xA4").string(), p = SystemPath(odd);
  host.Write("It's \"a:b;c\\d\" \xC3\xA4/T/a.jar", "");
  const std::string real = fs::canonical(odd).string();
  EXPECT_EQ(store.HostPath(p + "\\t\\A.jar"), odd + "/T/a.jar");
  EXPECT_EQ(Shell("java -classpath \"" + p + "\\T;" + p + "\\T\\a.jar\" FB", p + "\\T"), 0);
  EXPECT_EQ(Outcome(), real + "/T\n<" + bin + "/java>\n<-classpath>\n<.:a.jar>\n<FB>\n");
  EXPECT_EQ(Shell("explorer \"" + p + "\\T\\a.jar\""), 0);
  EXPECT_TRUE(Outcome().ends_with("<" + odd + "/T/a.jar>\n"));

  const std::string before = std::getenv("LC_ALL") != nullptr ? std::getenv("LC_ALL") : "";
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(Shell("teller", p), 0);
  EXPECT_EQ(Outcome(), "C.UTF-8");
  before.empty() ? unsetenv("LC_ALL") : setenv("LC_ALL", before.c_str(), 1);
}

TEST_F(ProcessesPosixTest, NobodyWaitsForTheProgram) {
  // It gives up by itself: where it is waited for, it ends without a word.
  Program("waiter",
          "#!/bin/sh\nfor i in `seq 30`; do [ -e go ] && exec mv go $OUT; sleep 0.1; done\n");
  EXPECT_EQ(Shell("waiter"), 0);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it is a child of ours";
  host.Write("drive_c/go", "went");
  EXPECT_EQ(Outcome(), "went");
}

TEST_F(ProcessesPosixTest, FailuresToStart) {
  Program("empty", "");
  host.Write("drive_c/bin/locked", "#!/bin/sh\n");
  EXPECT_EQ(Shell("no-such-program-anywhere"), 53);
  EXPECT_EQ(Shell(R"(C:\bin\locked)"), 70);
  EXPECT_EQ(Shell(R"(C:\bin\empty)"), 75);
  EXPECT_EQ(Shell(""), 5);
  EXPECT_EQ(Shell("java", R"(C:\nowhere)"), 76);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left to wait for";
}

}  // namespace dialwright
