#include "platform/win32/HelpViewerWin32.h"

#include <windows.h>

#include <string>

#include "platform/Failure.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

HWND Window(WindowHandle window) { return reinterpret_cast<HWND>(window); }

}  // namespace

WindowHandle HelpViewerWin32::HtmlHelpA(WindowHandle owner, std::string_view path, unsigned command,
                                        std::uintptr_t data) {
  if (viewer == nullptr) {
    // Never unloaded: the window and its thread live in it.
    const HMODULE library = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) throw RuntimeFailure(Failure::fileNotFound);
    viewer =
        reinterpret_cast<Call>(reinterpret_cast<void (*)()>(GetProcAddress(library, "HtmlHelpA")));
    if (viewer == nullptr) throw RuntimeFailure(Failure::fileNotFound);
  }
  return reinterpret_cast<WindowHandle>(
      viewer(Window(owner), Utf8ToAnsi(path).c_str(), command, data));
}

bool HelpViewerWin32::IsWindow(WindowHandle window) { return ::IsWindow(Window(window)) != 0; }

void HelpViewerWin32::SendMessageA(WindowHandle window, unsigned message, std::uintptr_t first,
                                   std::uintptr_t second) {
  ::SendMessageA(Window(window), message, first, static_cast<LPARAM>(second));
}

void HelpViewerWin32::Sleep(unsigned milliseconds) { ::Sleep(milliseconds); }

}  // namespace dialwright
