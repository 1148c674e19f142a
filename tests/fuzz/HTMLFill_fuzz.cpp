// The fill of one placeholder of the page, with whatever stands in it.

#include "Fuzz.h"
#include "documents/HTMLKeyMap.h"
#include "text/Text.h"

namespace {

constexpr std::string_view page = R"(C:\Dialwright\Conversation Key Mappings.HTM)";

/// The text with each occurrence replaced, going from place to place; whether there was one.
bool replace(std::string& text, std::string_view part, std::string_view with, bool anyCase) {
  std::string result;
  bool any = false;
  for (std::size_t i = 0; i < text.size();) {
    const std::string_view here = std::string_view(text).substr(i, part.size());
    const bool found = here == part || (anyCase && UpperCase(here) == UpperCase(part));
    result += found ? with : here.substr(0, 1);
    i += found ? part.size() : 1;
    any |= found;
  }
  text = result;
  return any;
}

}  // namespace

/// The first two lines of the input are token and keys, what follows is the page.
void Check(const std::string& bytes) {
  static MemoryFileStore store;
  static Desk desk(store);
  std::string input = bytes;
  const auto line = [&input] {
    const std::size_t end = input.find('\n');
    std::string text = AnsiToUtf8(input.substr(0, end));
    input.erase(0, end == std::string::npos ? end : end + 1);
    return text;
  };
  const std::string token = line();
  const std::string keys = line();
  store.Put(page, input);
  FillPlaceholder(desk.Form(), token, keys);

  std::string text = input.starts_with(utf16Mark) ? Utf16ToUtf8(input.substr(utf16Mark.size()))
                                                  : AnsiToUtf8(input);
  replace(text, "%CONV_NAME%", "Dialwright", false);
  const bool filled = replace(text, "%" + std::string(Trim(token)) + "%", keys, true);
  const std::string wanted = filled ? std::string(utf16Mark) + Utf8ToUtf16(text) : input;
  need(store.Bytes(page) == wanted && desk.printer.lines.empty());
}
