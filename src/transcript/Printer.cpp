#include "Printer.h"

namespace dialwright {

std::string ShownBare(std::string_view text) {
  std::string result;
  for (const char character : text) {
    switch (character) {
      case '\r':
        result += "<CR>";
        break;
      case '\n':
        result += "<LF>";
        break;
      case '\t':
        result += "<TAB>";
        break;
      default:
        result += character;
    }
  }
  return result;
}

std::string Shown(std::string_view text) { return '"' + ShownBare(text) + '"'; }

}  // namespace dialwright
