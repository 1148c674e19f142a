// A program for a test to start: it leaves what it was told of its window in the file "state" of
// the current folder, whole or not at all.

#include <windows.h>

#include <cstdio>

int main() {
  STARTUPINFOW startup{};
  GetStartupInfoW(&startup);
  const bool isTold = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0;
  std::FILE* file = std::fopen("state.new", "w");
  std::fprintf(file, "%d", isTold ? startup.wShowWindow : -1);
  std::fclose(file);
  return std::rename("state.new", "state");
}
