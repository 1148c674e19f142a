#include "WorldSteps.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <limits>

#include "PeWriter.h"
#include "text/Ansi.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view tesselKey = "SOFTWARE\\Varlo Systems\\Varlo Merid";
constexpr std::string_view meridKey = "Software\\Quillon";
constexpr std::string_view telhostKey = "SOFTWARE\\Quillon\\Telhost\\1.0";

void Need(bool holds, const std::string& message) {
  if (!holds) throw TranscriptError{message};
}

std::int64_t Number(std::string_view text) {
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  const std::string_view digits = hexadecimal ? text.substr(2) : text;
  std::int64_t value = 0;
  const auto [end, fault] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
  Need(fault == std::errc() && end == digits.data() + digits.size(),
       "not a number: " + std::string(text));
  return value;
}

struct Version {
  int major, minor, release, build;
};

Version ParseVersion(const std::string& text) {
  Version v{};
  int end = 0;
  const int read =
      std::sscanf(text.c_str(), "%d.%d(%d.%d)%n", &v.major, &v.minor, &v.release, &v.build, &end);
  Need(read == 4 && static_cast<std::size_t>(end) == text.size(), "not a version: " + text);
  return v;
}

bool Fits16(int value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return value >= Limits::min() && value <= Limits::max();
}

/// The number whose hexadecimal digits are the decimal ones of `value`.
std::uint32_t ShownInHexadecimal(int value) {
  Need(value >= 0 && value <= 9999, "cannot be stored: " + std::to_string(value));
  return static_cast<std::uint32_t>(Number("0x" + std::to_string(value)));
}

std::string Joined(const std::vector<std::string>& lines, std::string_view end, bool open) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(end);
  if (open && !lines.empty()) text.resize(text.size() - end.size());
  return text;
}

/// A line and its end, as the bytes have it.
struct Line {
  std::string text;
  std::string end;
};

std::vector<Line> SplitLines(std::string_view bytes) {
  std::vector<Line> lines;
  while (!bytes.empty()) {
    const std::size_t feed = bytes.find('\n');
    if (feed == std::string_view::npos) {
      lines.push_back({std::string(bytes), ""});
      break;
    }
    const bool carriage = feed > 0 && bytes[feed - 1] == '\r';
    lines.push_back(
        {std::string(bytes.substr(0, carriage ? feed - 1 : feed)), carriage ? "\r\n" : "\n"});
    bytes.remove_prefix(feed + 1);
  }
  return lines;
}

/// A line's text with its control characters to be seen.
std::string Shown(const Line& line) {
  return ReplaceAll(ReplaceAll(line.text, "\r", "<CR>"), "\t", "<TAB>");
}

std::string Marked(const Line& line) {
  return Shown(line) + (line.end == "\r\n" ? "" : line.end.empty() ? "<EOF>" : "<LF>");
}

/// The bytes of a file to look at; prints "missing" where there is none.
bool ReadForShow(World& world, const std::string& path, std::string& bytes) {
  if (world.disk.KindOf(path) != FileStore::Kind::file) {
    world.printer.Line("missing");
    return false;
  }
  bytes = world.disk.Read(path);
  return true;
}

}  // namespace

void SetServer(World& world, const Words& words) {
  Need(words.size() == 3, "server EDITION VERSION");
  WorldRegistry& registry = world.registry;
  registry.RemoveKey(tesselKey);
  for (const char* name : {"Version Number", "Build Number"}) registry.RemoveValue(meridKey, name);
  registry.RemoveValue(telhostKey, "Root Path");
  const Version v = ParseVersion(words[2]);
  const auto set = [&registry](std::string_view key, std::string_view name, int value) {
    registry.Set(key, name, RegistryValue::DoubleWord(static_cast<std::uint32_t>(value)));
  };
  if (words[1] == "merid") {
    Need(Fits16(v.build), "cannot be stored: " + words[2]);
    const std::uint32_t numbers = ShownInHexadecimal(v.major) << 16 | ShownInHexadecimal(v.minor);
    const std::uint32_t build =
        ShownInHexadecimal(v.release) << 16 | (static_cast<std::uint32_t>(v.build) & 0xFFFF);
    registry.Set(meridKey, "Version Number", RegistryValue::DoubleWord(numbers));
    registry.Set(meridKey, "Build Number", RegistryValue::DoubleWord(build));
    registry.Set(telhostKey, "Root Path", RegistryValue::Text("C:\\Telhost\\"));
  } else if (words[1] == "tessel") {
    for (const int part : {v.major, v.minor, v.release, v.build})
      Need(Fits16(part), "cannot be stored: " + words[2]);
    set(tesselKey, "MajorVersion", v.major);
    set(tesselKey, "MinorVersion", v.minor);
    set(tesselKey, "ReleaseVersion", v.release);
    set(tesselKey, "BuildVersion", v.build);
    registry.Set(tesselKey, "InstalledFolderPath", RegistryValue::Text("C:\\Telhost"));
  } else {
    throw TranscriptError{"no such edition: " + words[1]};
  }
}

void SetRegistryValue(World& world, const Words& words) {
  Need(words.size() >= 4, "registry KEY VALUE KIND");
  if (words[3] == "absent") {
    world.registry.RemoveValue(words[1], words[2]);
    return;
  }
  Need(words.size() == 5, "registry KEY VALUE KIND DATA");
  if (words[3] == "string") {
    world.registry.Set(words[1], words[2], RegistryValue::Text(words[4]));
  } else if (words[3] == "dword") {
    world.registry.Set(words[1], words[2],
                       RegistryValue::DoubleWord(static_cast<std::uint32_t>(Number(words[4]))));
  } else {
    throw TranscriptError{"no such kind: " + words[3]};
  }
}

void MakeFile(World& world, const Words& words, const std::vector<std::string>& lines) {
  Need(words.size() >= 2, "file PATH");
  const auto has = [&words](std::string_view option) {
    return std::find(words.begin() + 2, words.end(), option) != words.end();
  };
  const std::string text = Joined(lines, has("lf") ? "\n" : "\r\n", has("open"));
  world.MakeFile(words[1], has("utf8") ? text : Utf8ToAnsi(text));
}

void CopyProjectFile(World& world, const Words& words) {
  Need(words.size() == 3, "copy FROM PATH");
  const std::filesystem::path from = std::filesystem::path(DIALWRIGHT_SOURCE_DIR) / words[1];
  const std::filesystem::path to = world.HostPath(words[2]);
  std::error_code fault;
  std::filesystem::create_directories(to.parent_path(), fault);
  std::filesystem::copy(
      from, to,
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing,
      fault);
  Need(!fault, "cannot copy " + words[1] + ": " + fault.message());
}

void RemovePath(World& world, const Words& words) {
  Need(words.size() == 2, "remove PATH");
  Need(std::filesystem::remove_all(world.HostPath(words[1])) > 0, "not there: " + words[1]);
}

void MakeLibrary(World& world, const Words& words, const std::vector<std::string>& lines) {
  Need(words.size() == 2, "library PATH");
  StringTable strings;
  for (const std::string& line : lines) {
    const std::size_t blank = line.find(' ');
    Need(blank != std::string::npos, "not a numbered text: " + line);
    const std::string text =
        ReplaceAll(ReplaceAll(line.substr(blank + 1), "<CR>", "\r"), "<LF>", "\n");
    const std::string bytes = Utf8ToUtf16(text);
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
      units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                     static_cast<unsigned char>(bytes[i + 1]) << 8);
    strings[static_cast<int>(Number(line.substr(0, blank)))] = units;
  }
  world.MakeFile(words[1], MakeStringLibrary(strings));
}

void SetLocale(World& world, const Words& words) {
  Need(words.size() == 2, "locale N");
  world.languages.defaultLanguage = static_cast<std::int32_t>(Number(words[1]));
}

void SetClock(World& world, const Words& words) {
  Need(words.size() == 3, "clock DATE TIME");
  SystemTime time;
  Need(std::sscanf((words[1] + " " + words[2]).c_str(), "%d-%d-%d %d:%d:%d", &time.year,
                   &time.month, &time.day, &time.hour, &time.minute, &time.second) == 6,
       "not a date and time");
  world.clock.now = time;
}

void SetComponent(World& world, const Words& words) {
  Need(words.size() >= 2, "component off | on | returns N,N,...");
  ScriptedChecksums& checksums = world.checksums;
  checksums.present = words[1] != "off";
  checksums.answers.clear();
  if (words[1] != "returns") {
    Need(words[1] == "on" || words[1] == "off", "no such component: " + words[1]);
    return;
  }
  Need(words.size() == 3, "component returns N,N,...");
  for (const std::string_view answer : SplitAtCommas(words[2]))
    checksums.answers.push_back(
        answer == "fail" ? std::nullopt : std::optional(static_cast<std::int32_t>(Number(answer))));
}

void AddAnswers(World& world, const Words& words) {
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    Need(*word == "Yes" || *word == "No", "no such answer: " + *word);
    world.messages.answers.push_back(*word == "Yes" ? MsgBoxAnswer::Yes : MsgBoxAnswer::No);
  }
}

void ShowFile(World& world, const Words& words) {
  Need(words.size() == 2, "cat PATH");
  std::string bytes;
  if (!ReadForShow(world, words[1], bytes)) return;
  const bool wide = bytes.starts_with(utf16Mark);
  if (wide) world.printer.Line("UTF-16");
  const std::string text = wide ? Utf16ToUtf8(bytes.substr(utf16Mark.size())) : AnsiToUtf8(bytes);
  for (const Line& line : SplitLines(text)) world.printer.Line("| " + Marked(line));
}

void ShowMacros(World& world, const Words& words) {
  Need(words.size() >= 2, "macros PATH KEY ...");
  std::string bytes;
  if (!ReadForShow(world, words[1], bytes)) return;
  bool inside = false;
  bool seen = false;
  for (const Line& line : SplitLines(AnsiToUtf8(bytes))) {
    const std::string_view text = TrimOf(line.text, " \t");
    if (text.starts_with("[")) {
      inside = !seen && EqualsIgnoringCase(text.substr(1, text.find(']') - 1), "MACROS");
      seen = seen || inside;
      continue;
    }
    const std::size_t equals = text.find('=');
    if (!inside || equals == std::string_view::npos || text.starts_with(";")) continue;
    const std::string_view key = TrimOf(text.substr(0, equals), " \t");
    if (words.size() == 2 ||
        std::any_of(words.begin() + 2, words.end(),
                    [key](const std::string& word) { return EqualsIgnoringCase(word, key); }))
      world.printer.Line(Shown(line));
  }
}

void ShowFolder(World& world, const Words& words) {
  Need(words.size() == 2, "ls PATH");
  const std::filesystem::path folder = world.HostPath(words[1]);
  std::error_code fault;
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder, fault))
    names.push_back(entry.path().filename().string());
  if (fault) {
    world.printer.Line("missing");
    return;
  }
  std::sort(names.begin(), names.end());
  for (std::string& name : names) world.printer.Line(std::move(name));
}

}  // namespace dialwright
