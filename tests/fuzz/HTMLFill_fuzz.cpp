// The fill of one placeholder of the page, with whatever stands in it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "Desk.h"
#include "Server.h"
#include "documents/HTMLKeyMap.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {
namespace {

constexpr std::string_view page = R"(C:\Dialwright\Conversation Key Mappings.HTM)";
constexpr std::string_view utf16Mark = "\xFF\xFE";

char folded(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool standsAt(const std::string& text, std::size_t at, std::string_view part, bool anyCase) {
  if (text.size() - at < part.size()) return false;
  for (std::size_t i = 0; i < part.size(); ++i)
    if (anyCase ? folded(text[at + i]) != folded(part[i]) : text[at + i] != part[i]) return false;
  return true;
}

/// The text with each occurrence replaced, going from place to place; nothing if there is none.
std::optional<std::string> replaced(const std::string& text, std::string_view part,
                                    std::string_view with, bool anyCase) {
  std::string result;
  bool any = false;
  for (std::size_t i = 0; i < text.size();) {
    if (standsAt(text, i, part, anyCase)) {
      result += with;
      i += part.size();
      any = true;
    } else {
      result += text[i++];
    }
  }
  return any ? std::optional(result) : std::nullopt;
}

}  // namespace
}  // namespace dialwright

/// The first two lines of the input are token and keys, what follows is the page.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace dialwright;
  static Server server;
  static Desk desk(server.disk);
  std::string input(reinterpret_cast<const char*>(data), size);
  const auto line = [&input] {
    const std::size_t end = input.find('\n');
    const std::string text = AnsiToUtf8(input.substr(0, end));
    input.erase(0, end == std::string::npos ? end : end + 1);
    return text;
  };
  const std::string token = line();
  const std::string keys = line();
  server.folder.write("drive_c/Dialwright/Conversation Key Mappings.HTM", input);
  FillPlaceholder(desk.form(), token, keys);

  std::string text = input.starts_with(utf16Mark) ? Utf16ToUtf8(input.substr(utf16Mark.size()))
                                                  : AnsiToUtf8(input);
  text = replaced(text, "%CONV_NAME%", "Dialwright", false).value_or(text);
  const auto filled = replaced(text, "%" + std::string(Trim(token)) + "%", keys, true);
  const std::string wanted = filled ? std::string(utf16Mark) + Utf8ToUtf16(*filled) : input;
  if (server.disk.read(page) != wanted || !desk.printer.lines.empty()) std::abort();
  return 0;
}
