// Reads and writes in a file of any bytes, in and out of a batch: what is written is read again, a
// single write changes one stretch of the file and nothing around it, and a batch leaves what
// single writes leave.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <memory>

#include "Fuzz.h"
#include "files/PrivateProfile.h"

namespace {

constexpr std::string_view path = "C:\\a.cdh";
constexpr std::string_view absent = "\x01";  // no value below has it

struct Step {
  std::string section, key, value;
};

/// A value without the white space around it and without one pair of quotes.
std::string_view plain(std::string_view text) {
  text = text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
  text = text.substr(0, text.find_last_not_of(" \t") + 1);
  const bool quoted = text.size() > 1 && (text[0] == '"' || text[0] == '\'');
  return quoted && text.back() == text[0] ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

void Check(const std::string& bytes) {
  FuzzedDataProvider input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::vector<Step> steps(input.ConsumeIntegralInRange<std::size_t>(1, 4));
  const auto without = [](std::string_view characters, std::string text) {
    std::erase_if(text, [characters](char c) { return characters.find(c) != std::string::npos; });
    return text;
  };
  for (Step& step : steps)
    step = {input.ConsumeBool() ? "MACROS" : AnsiToUtf8(input.ConsumeRandomLengthString(12)),
            AnsiToUtf8(input.ConsumeRandomLengthString(12)),
            AnsiToUtf8(without("\x01\r\n", input.ConsumeRandomLengthString(20)))};
  const std::string text = without(absent, input.ConsumeRemainingBytesAsString());

  MemoryFileStore store, batchedStore;
  PrivateProfile profile(store), batchedProfile(batchedStore);
  store.Put(path, text);
  batchedStore.Put(path, text);
  auto batch = std::make_unique<ProfileBatch>(batchedProfile, path);
  for (const auto& [section, key, value] : steps) {
    const auto get = [&section = section, &key = key](PrivateProfile& from) {
      return from.GetPrivateProfileStringA(section, key, absent, 127, path);
    };
    const std::string old = get(profile);
    const std::string before = store.Bytes(path);
    const bool written = profile.WritePrivateProfileStringA(section, key, value, path);
    need(batchedProfile.WritePrivateProfileStringA(section, key, value, path) == written);
    need(get(profile) == get(batchedProfile));
    // What the write took out of the file and what it put in, between what stayed.
    const std::string& after = store.Bytes(path);
    const auto front = std::ranges::mismatch(before, after);
    std::string_view out(front.in1, before.end());
    std::string_view in(front.in2, after.end());
    while (!out.empty() && !in.empty() && out.back() == in.back()) {
      out.remove_suffix(1);
      in.remove_suffix(1);
    }
    need(get(profile) == (written ? plain(value) : old));
    need(written || after == before);
    if (!written) continue;
    // A new key takes nothing away, a new value nothing but the old one.
    need(old == absent ? out.empty() : out.find_first_of("\r\n") == std::string_view::npos);
    if (old != absent) need(Utf8ToAnsi(value).find(in) != std::string::npos);
  }
  batch.reset();
  need(store.Bytes(path) == batchedStore.Bytes(path));
}
