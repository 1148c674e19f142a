#include "platform/standins/RegistryFile.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>

#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {
namespace {

constexpr std::string_view root = "HKEY_LOCAL_MACHINE";

std::string DecodeFile(std::string_view bytes) {
  constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(utf16Mark)) return Utf16ToUtf8(bytes.substr(utf16Mark.size()));
  if (bytes.starts_with(utf8Mark)) return std::string(bytes.substr(utf8Mark.size()));
  // An editor of today saves an export without a mark. ANSI text is hardly ever UTF-8 by chance.
  if (IsUtf8(bytes)) return std::string(bytes);
  return AnsiToUtf8(bytes);
}

std::string_view TrimWhite(std::string_view text) { return TrimOf(text, " \t\r\n"); }

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t feed = rest.find('\n');
  const std::string_view line = rest.substr(0, feed);
  rest.remove_prefix(feed == std::string_view::npos ? rest.size() : feed + 1);
  return line;
}

char Unescaped(char c) {
  switch (c) {
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case '0':
      return '\0';
    default:
      return c;
  }
}

// Takes a text in quotation marks off the front of `rest`. It may go over line ends, which the
// editor exports as they are.
std::optional<std::string> TakeQuoted(std::string_view& rest) {
  if (!rest.starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t at = 1; at < rest.size(); ++at) {
    if (rest[at] == '"') {
      rest.remove_prefix(at + 1);
      return text;
    }
    const bool escape = rest[at] == '\\' && at + 1 < rest.size();
    text.push_back(escape ? Unescaped(rest[++at]) : rest[at]);
  }
  return std::nullopt;
}

std::optional<std::uint32_t> HexNumber(std::string_view digits) {
  std::uint32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number, 16);
  if (digits.empty() || result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return number;
}

std::optional<std::string> HexBytes(std::string_view list) {
  std::string bytes;
  list = TrimWhite(list);
  while (!list.empty()) {
    const std::size_t comma = list.find(',');
    const std::string_view digits = TrimWhite(list.substr(0, comma));
    const std::optional<std::uint32_t> byte = HexNumber(digits);
    if (!byte || *byte > 0xFF) return std::nullopt;
    bytes.push_back(static_cast<char>(*byte));
    list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
  }
  return bytes;
}

bool IsTextType(std::uint32_t type) { return type == 1 || type == 2 || type == 7; }

class Reader {
 public:
  Reader(std::string_view text, MemoryRegistry& target) : rest(text), registry(target) {
    version4 = TrimWhite(text.substr(0, text.find('\n'))) == "REGEDIT4";
  }

  void Read() {
    while (!rest.empty()) {
      const std::string_view here = rest;
      const std::string_view line = TrimWhite(TakeLine(rest));
      if (line.starts_with('[')) {
        ReadKey(line);
      } else if (key && (line.starts_with('"') || line.starts_with('@'))) {
        ReadValue(here.substr(static_cast<std::size_t>(line.data() - here.data())));
      }
    }
  }

 private:
  void ReadKey(std::string_view line) {
    key.reset();
    const std::size_t end = line.rfind(']');
    if (end == std::string_view::npos) return;
    std::string_view path = line.substr(1, end - 1);
    const bool removed = path.starts_with('-');
    if (removed) path.remove_prefix(1);
    if (!StartsWithIgnoringCase(path, root)) return;
    path.remove_prefix(root.size());
    if (!path.empty() && !path.starts_with('\\')) return;
    if (!path.empty()) path.remove_prefix(1);
    if (removed) {
      registry.RemoveKey(path);
    } else {
      key = path;
      registry.MakeKey(path);
    }
  }

  // `text` goes from the value's name to the end of the file. A text in quotation marks is one
  // value over however many lines it goes; what is not understood ends with its first line.
  void ReadValue(std::string_view text) {
    std::string name;
    if (text.starts_with('@')) {
      text.remove_prefix(1);
    } else {
      std::optional<std::string> quoted = TakeQuoted(text);
      if (!quoted) return;
      name = std::move(*quoted);
    }
    const std::size_t equals = text.find_first_not_of(" \t");
    if (equals == std::string_view::npos || text[equals] != '=') return;
    text.remove_prefix(equals + 1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));

    if (text.starts_with('"')) {
      if (const std::optional<std::string> data = TakeQuoted(text)) {
        registry.Set(*key, name, RegistryValue::Text(*data));
        rest = text;
        TakeLine(rest);
      }
      return;
    }
    const std::string data = TakeJoinedLines(text);
    rest = text;
    if (data == "-") {
      registry.RemoveValue(*key, name);
    } else if (const std::optional<RegistryValue> value = ParseData(data)) {
      registry.Set(*key, name, *value);
    }
  }

  // A line and those after it that a backslash at the line's end calls for.
  static std::string TakeJoinedLines(std::string_view& text) {
    std::string joined;
    for (;;) {
      std::string_view line = TrimWhite(TakeLine(text));
      const bool goesOn = line.ends_with('\\');
      if (goesOn) line.remove_suffix(1);
      joined.append(line);
      if (!goesOn || text.empty()) return joined;
    }
  }

  std::optional<RegistryValue> ParseData(std::string_view data) const {
    constexpr std::string_view doubleWord = "dword:";
    constexpr std::string_view hex = "hex";
    if (StartsWithIgnoringCase(data, doubleWord)) {
      const std::optional<std::uint32_t> number =
          HexNumber(TrimWhite(data.substr(doubleWord.size())));
      return number ? std::optional(RegistryValue::DoubleWord(*number)) : std::nullopt;
    }
    if (!StartsWithIgnoringCase(data, hex)) return std::nullopt;
    data.remove_prefix(hex.size());

    const std::size_t colon = data.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    RegistryValue value{3, {}};
    if (colon > 0) {
      const std::string_view type = data.substr(0, colon);
      if (!type.starts_with('(') || !type.ends_with(')') || type.size() < 3) return std::nullopt;
      const std::optional<std::uint32_t> number = HexNumber(type.substr(1, type.size() - 2));
      if (!number) return std::nullopt;
      value.type = *number;
    }
    std::optional<std::string> bytes = HexBytes(data.substr(colon + 1));
    if (!bytes) return std::nullopt;
    const bool wide = !version4 && IsTextType(value.type);
    value.bytes = wide ? Utf8ToAnsi(Utf16ToUtf8(*bytes)) : std::move(*bytes);
    return value;
  }

  std::string_view rest;
  MemoryRegistry& registry;
  bool version4 = false;
  std::optional<std::string> key;  // none while the lines are not to be kept
};

}  // namespace

void ReadRegistryFile(std::string_view bytes, MemoryRegistry& registry) {
  const std::string text = DecodeFile(bytes);
  Reader(text, registry).Read();
}

}  // namespace dialwright
