#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "../support/MemoryFileStore.h"
#include "../support/ProfileModel.h"
#include "platform/PrivateProfile.h"
#include "text/Ansi.h"

namespace {

using namespace dialwright;

constexpr std::string_view path = "C:\\a.cdh";

void require(bool holds) {
  if (!holds) std::abort();
}

// Names and values that the model knows how to write; the rest is for the program to refuse.
bool isPlain(std::string_view section, std::string_view key, std::string_view value) {
  const std::string_view name = ProfileModel::trim(key);
  return section.find_first_of("\r\n]") == std::string_view::npos && !name.empty() &&
         name.find_first_of("\r\n=") == std::string_view::npos && name.front() != '[' &&
         value.find_first_of("\r\n") == std::string_view::npos;
}

// How much two texts have in common at the front, and then at the back.
std::size_t commonBytes(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t front = 0;
  while (front < shorter && a[front] == b[front]) ++front;
  std::size_t back = 0;
  while (back < shorter - front && a[a.size() - 1 - back] == b[b.size() - 1 - back]) ++back;
  return front + back;
}

}  // namespace

// Reads and writes in a file of any bytes, in and out of a batch: the outcome is the model's, and a
// single write changes one stretch of the file and nothing around it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const bool batched = input.ConsumeBool();
  struct Step {
    std::string section;
    std::string key;
    std::string value;
  };
  std::vector<Step> steps(input.ConsumeIntegralInRange<std::size_t>(1, 4));
  for (Step& step : steps) {
    step = {input.ConsumeBool() ? "MACROS" : input.ConsumeRandomLengthString(12),
            input.ConsumeRandomLengthString(12), input.ConsumeRandomLengthString(20)};
  }
  const std::string text = input.ConsumeRemainingBytesAsString();

  MemoryFileStore store;
  PrivateProfile profile(store);
  store.put(path, text);
  std::unique_ptr<ProfileBatch> batch;
  if (batched) batch = std::make_unique<ProfileBatch>(profile, path);
  std::string expected = text;
  for (const auto& [section, key, value] : steps) {
    if (!isPlain(section, key, value)) continue;
    ProfileModel model(expected);
    const std::string before = store.bytes(path);
    const bool present = model.value(section, key).has_value();
    const bool written = model.set(section, key, value);
    require(profile.WritePrivateProfileStringA(AnsiToUtf8(section), AnsiToUtf8(key),
                                               AnsiToUtf8(value), path) == written);
    expected = model.text();
    const std::string read = profile.GetPrivateProfileStringA(AnsiToUtf8(section), AnsiToUtf8(key),
                                                              "", value.size() + 1, path);
    std::string_view plain = ProfileModel::trim(value);
    if (plain.size() > 1 && (plain[0] == '"' || plain[0] == '\'') && plain.back() == plain[0]) {
      plain = plain.substr(1, plain.size() - 2);
    }
    require(read == (written ? AnsiToUtf8(plain) : ""));
    if (!batched && !present) require(commonBytes(before, store.bytes(path)) == before.size());
  }
  batch.reset();
  require(store.bytes(path) == expected);

  // Whatever is asked for: an answer, or none, but no harm.
  for (const auto& [section, key, value] : steps) {
    profile.GetPrivateProfileStringA(section, key, value, 127, path);
    profile.WritePrivateProfileStringA(section, key, value, path);
  }
  return 0;
}
