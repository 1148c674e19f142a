// A save on a script of any bytes and any mix of line ends: what is written is read again, every
// other line is there, and the checksum fits. A write changes one stretch of the file and nothing
// around it, and a batch leaves what single writes leave.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "Fuzz.h"
#include "ScriptText.h"
#include "scripts/Checksum.h"

namespace {

constexpr std::string_view path = "C:\\a.cdh";
constexpr std::string_view absent = "\x01";  // no value below has it

struct Step {
  std::string section, key, value;
};

std::string Without(std::string_view characters, std::string text) {
  std::erase_if(text, [characters](char c) { return characters.find(c) != std::string::npos; });
  return text;
}

std::string_view Trimmed(std::string_view text) {
  text = text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t") + 1);
}

/// A value without the white space around it and without one pair of quotes.
std::string_view Plain(std::string_view text) {
  text = Trimmed(text);
  const bool quoted = text.size() > 1 && (text[0] == '"' || text[0] == '\'');
  return quoted && text.back() == text[0] ? text.substr(1, text.size() - 2) : text;
}

std::string Script(FuzzedDataProvider& input) {
  if (input.ConsumeBool()) return Without(absent, input.ConsumeRemainingBytesAsString());
  constexpr std::string_view lines[] = {"[MACROS]", "#CRC 5", " #crc",
                                        "[OTHER]",  "A=1",    "B = \"2\""};
  constexpr std::string_view ends[] = {"\r\n", "\r", "\n", "\r\r\n", "\r\r", "\n\r", ""};
  std::string text;
  while (input.remaining_bytes() > 0) {
    text += input.ConsumeBool() ? input.PickValueInArray(lines)
                                : Without(absent, input.ConsumeRandomLengthString(12));
    text += input.PickValueInArray(ends);
  }
  return text;
}

/// A run of carriage returns is one line end with the line feed behind it; without one each of them
/// ends a line.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    lines.push_back(text.substr(at, end - at));
    const std::size_t feed = std::min(text.find_first_not_of('\r', end), text.size());
    at = feed < text.size() && text[feed] == '\n' ? feed + 1 : end + 1;
  }
  return lines;
}

bool IsChecksum(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return UpperCase(line.substr(0, 4)) == "#CRC";
}

/// A key that was written, by its section and name without case.
struct Written {
  Step step;
  bool isNew;
};
using AllWritten = std::map<std::pair<std::string, std::string>, Written>;

/// One write; it changes one stretch of the file.
void WriteOne(MemoryFileStore& store, PrivateProfile& profile, const Step& step,
              AllWritten& written) {
  const auto get = [&] {
    return profile.GetPrivateProfileStringA(step.section, step.key, absent, 127, path);
  };
  const std::string old = get();
  const std::string before = store.Bytes(path);
  const bool holds = profile.WritePrivateProfileStringA(step.section, step.key, step.value, path);
  // What the write took out of the file and what it put in, between what stayed.
  const std::string& after = store.Bytes(path);
  const auto front = std::ranges::mismatch(before, after);
  std::string_view out(front.in1, before.end());
  std::string_view in(front.in2, after.end());
  while (!out.empty() && !in.empty() && out.back() == in.back()) {
    out.remove_suffix(1);
    in.remove_suffix(1);
  }
  need(get() == (holds ? Plain(step.value) : old));
  need(holds || after == before);
  if (!holds) return;
  // A new key takes nothing away, a new value nothing but the old one.
  need(old == absent ? out.empty() : out.find_first_of("\r\n") == std::string_view::npos);
  if (old != absent) need(Utf8ToAnsi(step.value).find(in) != std::string::npos);
  const std::pair name(LowerCase(step.section), LowerCase(Trimmed(step.key)));
  written.try_emplace(name, Written{step, old == absent}).first->second.step = step;
}

/// Holds the lines of a saved script against those before: in their order they are all there, but
/// for new values, and among them stand the new keys and their headings.
void CheckLines(const std::vector<std::string>& before, const std::vector<std::string>& now,
                const std::string& checksumLine, const AllWritten& written) {
  std::set<std::string> newLines, newHeadings, values;
  for (const auto& [name, key] : written) {
    const std::string value = Utf8ToAnsi(key.step.value);
    if (key.isNew) newHeadings.insert(LowerCase("[" + Utf8ToAnsi(key.step.section) + "]"));
    if (key.isNew) newLines.insert(LowerCase(Trimmed(Utf8ToAnsi(key.step.key))) + "=" + value);
    if (!key.isNew) values.insert(value);
  }
  auto old = before.begin();
  for (const std::string& line : now) {
    const std::string start = line.substr(0, line.find('=') + 1);
    const std::string value = line.substr(start.size());
    const bool isOld = old != before.end() &&
                       (line == (IsChecksum(*old) ? checksumLine : *old) ||
                        (!start.empty() && old->starts_with(start) && values.erase(value) == 1));
    if (isOld)
      ++old;
    else
      need(newLines.erase(LowerCase(start) + value) + newHeadings.erase(LowerCase(line)) == 1);
  }
  need(old == before.end() && newLines.empty());
}

}  // namespace

void Check(const std::string& bytes) {
  FuzzedDataProvider input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::vector<Step> steps(input.ConsumeIntegralInRange<std::size_t>(1, 4));
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const char* sections[] = {"MACROS", "macros", "OTHER"};
    std::string section = input.ConsumeBool() ? input.PickValueInArray(sections)
                                              : AnsiToUtf8(input.ConsumeRandomLengthString(12));
    std::string key = input.ConsumeRandomLengthString(12);
    // The number that tells the values apart stands within quotation marks.
    std::string value = Without("\x01\r\n", input.ConsumeRandomLengthString(20));
    value.insert(value.size() / 2, std::to_string(i));
    steps[i] = {std::move(section), AnsiToUtf8(key), AnsiToUtf8(value)};
    // No menu has such a key: the rewrite takes its line for the checksum's.
    if (IsChecksum(Trimmed(key))) steps[i].key = "A";
  }
  const std::string text = Script(input);
  const bool wide = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");

  static MemoryFileStore store;
  static Desk desk(store);
  MemoryFileStore singleStore;
  PrivateProfile single(singleStore);
  desk.program.profile.ForgetMissed();
  singleStore.Put(path, text);
  store.Put(path, text);
  AllWritten written;
  {
    const ProfileBatch batch(desk.program.profile, path);
    for (const Step& step : steps) {
      WriteOne(singleStore, single, step, written);
      desk.program.profile.WritePrivateProfileStringA(step.section, step.key, step.value, path);
    }
  }
  need(single.Missed() == desk.program.profile.Missed());
  need(singleStore.Bytes(path) == store.Bytes(path));

  const std::int32_t checksum = lngGetFileChecksum(desk.program, path);
  const std::string number = strChecksumText(checksum);
  need(UpdateChecksumForFile(desk.program, number, path) == !wide);
  const std::string saved = store.Bytes(path);
  need(desk.printer.lines.empty());
  // A script in UTF-16 is none that a server reads: nothing writes into it.
  if (wide) return need(saved == text && written.empty());
  CheckLines(LinesOf(text), LinesOf(saved), "#CRC " + number, written);
  need(ScriptChecksum(saved) == checksum && ChecksumFits(saved));
  PrivateProfile fresh(store);
  for (const auto& [name, key] : written)
    need(fresh.GetPrivateProfileStringA(key.step.section, key.step.key, absent, 127, path) ==
         Plain(key.step.value));
  UpdateChecksumForFile(desk.program, number, path);
  need(store.Bytes(path) == saved);
}
