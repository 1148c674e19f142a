#include "text/UnifiedDiff.h"

#include <gtest/gtest.h>

namespace dialwright {
namespace {

TEST(UnifiedDiff, ShowsChangesWithTheLinesAround) {
  const std::string before = "1\n2\n3\n4\n5\r\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n";
  const std::string after = "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n15";
  EXPECT_EQ(UnifiedDiff("f", before, after),
            "--- f\n+++ f\n@@ -1,8 +1,9 @@\n+0\n 1\n 2\n 3\n 4\n-5\r\n+5\n 6\n 7\n 8\n"
            "@@ -11,5 +12,4 @@\n 11\n 12\n 13\n-14\n-15\n+15\n\\ No newline at end of file\n");
  EXPECT_EQ(UnifiedDiff("f", before, before), "");
}

TEST(UnifiedDiff, KnowsFilesThatComeAndGo) {
  EXPECT_EQ(UnifiedDiff("f", {}, "a\n"), "--- /dev/null\n+++ f\n@@ -0,0 +1 @@\n+a\n");
  EXPECT_EQ(UnifiedDiff("f", "a\n", {}), "--- f\n+++ /dev/null\n@@ -1 +0,0 @@\n-a\n");
  EXPECT_EQ(UnifiedDiff("f", "a", std::string("\0", 1)), "Binary files f and f differ\n");
}

TEST(UnifiedDiff, ReplacesTextsThatHaveNothingInCommon) {
  std::string before, after;
  for (int i = 0; i < 3000; ++i) {
    before += "a" + std::to_string(i) + "\n";
    after += "b" + std::to_string(i) + "\n";
  }
  EXPECT_EQ(UnifiedDiff("f", before, after).substr(0, 37),
            "--- f\n+++ f\n@@ -1,3000 +1,3000 @@\n-a0");
}

}  // namespace
}  // namespace dialwright
