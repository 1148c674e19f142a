#include "platform/win32/ProcessesWin32.h"

#include <windows.h>

#include <string>

#include "platform/win32/FailureWin32.h"
#include "platform/win32/HandleWin32.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {
namespace {

static_assert(static_cast<int>(WindowState::hidden) == SW_HIDE);
static_assert(static_cast<int>(WindowState::minimizedFocus) == SW_SHOWMINIMIZED);

// What is no program, or cannot be loaded as one, is a wrong argument of the call.
Failure StartFailure(DWORD error) {
  const bool badProgram = error == ERROR_BAD_EXE_FORMAT || error == ERROR_EXE_MACHINE_TYPE_MISMATCH;
  return badProgram ? Failure::invalidProcedureCall : FailureOfWin32(error);
}

}  // namespace

void ProcessesWin32::Shell(std::string_view commandLine, WindowState state,
                           std::string_view currentFolder) {
  std::wstring line = WideText(commandLine);
  if (line.find_first_not_of(L" \t") == std::wstring::npos) {
    throw RuntimeFailure(Failure::invalidProcedureCall);
  }
  const std::wstring folder = WideText(currentFolder);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(state);
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      folder.empty() ? nullptr : folder.c_str(), &startup, &started)) {
    throw RuntimeFailure(StartFailure(GetLastError()));
  }
  const HandleWin32 process(started.hProcess);
  const HandleWin32 thread(started.hThread);
}

}  // namespace dialwright
