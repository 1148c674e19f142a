#include "platform/CommandLine.h"

#include <gtest/gtest.h>

#include <utility>

namespace dialwright {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLineTest, Splitting) {
  const std::pair<std::string_view, Words> cases[] = {
      {"", {}},
      {"  \t ", {}},
      {"java", {"java"}},
      {" java  -cp\tx ", {"java", "-cp", "x"}},
      {R"(Explorer "C:\a b\c.htm")", {"Explorer", R"(C:\a b\c.htm)"}},
      {R"("C:\Program Files\x\" y)", {R"(C:\Program Files\x\)", "y"}},
      {R"(p "a;b c" FBuilder)", {"p", "a;b c", "FBuilder"}},
      {R"(p "" x)", {"p", "", "x"}},
      {R"(p a"b c"d)", {"p", "ab cd"}},
      {R"(p a\b\\c)", {"p", R"(a\b\\c)"}},
      {R"(p "a\\" b)", {"p", R"(a\)", "b"}},
      {R"(p "a\" b)", {"p", R"(a" b)"}},
      {R"(p \\\"x)", {"p", R"(\"x)"}},
      {R"(p "a""b" c)", {"p", R"(a"b)", "c"}},
      {R"(p "a b)", {"p", "a b"}},
      {R"(p x\)", {"p", R"(x\)"}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(SplitCommandLine(line), words) << line;
}

}  // namespace
}  // namespace dialwright
