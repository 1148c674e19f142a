#include <windows.h>
// after windows.h
#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "InputLines.h"

namespace dialwright {

namespace {

/// Whether a read would not wait: a pipe has to be asked, since nothing tells when its bytes come.
/// What is no pipe never waits.
bool IsReady(HANDLE input) {
  DWORD there = 0;
  if (GetFileType(input) != FILE_TYPE_PIPE) return true;
  return !PeekNamedPipe(input, nullptr, 0, nullptr, &there, nullptr) || there > 0;
}

}  // namespace

std::optional<std::size_t> ReadInput(int timeout, char* bytes, std::size_t size) {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  for (int waited = 0; timeout >= 0 && !IsReady(input); ++waited) {
    if (waited >= timeout) return {};
    Sleep(1);
  }
  DWORD count = 0;
  if (!ReadFile(input, bytes, static_cast<DWORD>(size), &count, nullptr)) return 0;
  return count;
}

void UseBinaryStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace dialwright
