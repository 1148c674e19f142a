#include "platform/EarlierFolder.h"

#include <cstdlib>

#include "platform/win32/Win32Text.h"

namespace dialwright {

std::string EarlierFolder() {
  const wchar_t* data = _wgetenv(L"LOCALAPPDATA");
  return data == nullptr ? std::string() : NarrowText(data) + "\\Dialwright\\Earlier";
}

}  // namespace dialwright
