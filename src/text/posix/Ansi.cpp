#include "text/Ansi.h"

namespace dialwright {

std::string AnsiToUtf8(std::string_view ansi) { return Windows1252ToUtf8(ansi); }
std::string Utf8ToAnsi(std::string_view utf8) { return Utf8ToWindows1252(utf8); }

}  // namespace dialwright
