// Reads and writes in a file of any bytes, in and out of a batch: what is written is read again, a
// single write changes one stretch of the file and nothing around it, and a batch leaves what
// single writes leave.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "MemoryFileStore.h"
#include "platform/PrivateProfile.h"
#include "text/Ansi.h"

namespace {

using namespace dialwright;

constexpr std::string_view path = "C:\\a.cdh";
constexpr std::string_view absent = "\x01";  // no value below has it

void need(bool holds) {
  if (!holds) std::abort();
}

struct Step {
  std::string section, key, value;
};

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

/// What one write took out of a file and what it put in, between what stayed.
std::pair<std::string_view, std::string_view> change(std::string_view before,
                                                     std::string_view after) {
  const auto front = std::ranges::mismatch(before, after);
  before.remove_prefix(static_cast<std::size_t>(front.in1 - before.begin()));
  after.remove_prefix(static_cast<std::size_t>(front.in2 - after.begin()));
  while (!before.empty() && !after.empty() && before.back() == after.back()) {
    before.remove_suffix(1);
    after.remove_suffix(1);
  }
  return {before, after};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
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
  store.put(path, text);
  batchedStore.put(path, text);
  auto batch = std::make_unique<ProfileBatch>(batchedProfile, path);
  for (const auto& [section, key, value] : steps) {
    const auto get = [&section = section, &key = key](PrivateProfile& from) {
      return from.GetPrivateProfileStringA(section, key, absent, 127, path);
    };
    const std::string old = get(profile);
    const std::string before = store.bytes(path);
    const bool written = profile.WritePrivateProfileStringA(section, key, value, path);
    need(batchedProfile.WritePrivateProfileStringA(section, key, value, path) == written);
    need(get(profile) == get(batchedProfile));
    const auto [out, in] = change(before, store.bytes(path));
    if (!written) need(get(profile) == old && out.empty() && in.empty());
    if (!written) continue;
    std::string_view plain = trimmed(value);
    if (plain.size() > 1 && (plain[0] == '"' || plain[0] == '\'') && plain.back() == plain[0])
      plain = plain.substr(1, plain.size() - 2);
    need(get(profile) == plain);
    // A new key takes nothing away, a new value nothing but the old one.
    need(old == absent ? out.empty() : out.find_first_of("\r\n") == std::string_view::npos);
    if (old != absent) need(Utf8ToAnsi(value).find(in) != std::string::npos);
  }
  batch.reset();
  need(store.bytes(path) == batchedStore.bytes(path));
  return 0;
}
