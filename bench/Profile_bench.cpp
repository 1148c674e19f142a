// Reading and writing the keys of a script, beside a plain read and a plain copy of the same file.
//
// A script of a server is mostly conversation text with one section of keys in it; the worst case
// is a file that is one section of nothing but keys, with those that are wanted at its end
// ("dense").

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "Pairs.h"
#include "files/PrivateProfile.h"
#include "platform/ScriptChecksumComponent.h"
#include "platform/posix/FileStorePosix.h"

namespace dialwright {
namespace {

namespace fs = std::filesystem;

constexpr int keys = 150;
constexpr std::string_view path = "C:\\a.cde";

std::string KeyName(int number) { return "HEADER_ACTION_NUMBER_" + std::to_string(number); }

std::string Section() {
  std::string text = "[MACROS]\r\n";
  for (int i = 0; i < keys; ++i) text += KeyName(i) + "= \"" + std::to_string(i % 100) + "\"\r\n";
  return text;
}

std::string ScriptText(std::size_t size, bool dense) {
  const std::string wanted = Section() + "#CRC  12\r\n";
  std::string text = dense ? "[MACROS]\r\n" : "[CONVERSATION]\r\n";
  for (int i = 0; text.size() + wanted.size() < size; ++i) {
    const std::string number = std::to_string(i);
    text.append(dense ? "FOOTER_OTHER_KEY_" : "STEP").append(number);
    text.append(dense ? "= \"" + number + "\"\r\n"
                      : " PLAY PROMPT THEN WAIT FOR KEY ELSE GOTO MENU\r\n");
  }
  return text + (dense ? wanted.substr(wanted.find('\n') + 1) : wanted);
}

class ScriptOnMemoryDisk {
 public:
  explicit ScriptOnMemoryDisk(const benchmark::State& state)
      : host(fs::exists("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()) {
    host /= "dialwright-bench-" + std::to_string(getpid());
    fs::create_directories(host / "drive_c");
    const auto size = static_cast<std::size_t>(state.range(0)) * 1024;
    std::ofstream(File(), std::ios::binary) << ScriptText(size, state.range(1) != 0);
  }
  ~ScriptOnMemoryDisk() { fs::remove_all(host); }

  fs::path File() const { return host / "drive_c/a.cde"; }
  fs::path Copy() const { return host / "copy"; }

  fs::path host;
};

void Nothing() {}

void LoadKeys(benchmark::State& state) {
  const ScriptOnMemoryDisk script(state);
  FileStorePosix store(script.host.string());
  Pair(
      state, Nothing, [&] { benchmark::DoNotOptimize(ReadPlainly(script.File())); },
      [&] {
        PrivateProfile profile(store);
        const ProfileBatch batch(profile, path);
        for (int i = 0; i < keys; ++i) {
          const std::string value =
              profile.GetPrivateProfileStringA("MACROS", KeyName(i), "", 127, path);
          if (value != std::to_string(i % 100)) state.SkipWithError("a key was not found");
        }
      });
}

void SaveKeys(benchmark::State& state) {
  const ScriptOnMemoryDisk script(state);
  FileStorePosix store(script.host.string());
  int round = 0;
  Pair(
      state, Nothing,
      [&] { fs::copy_file(script.File(), script.Copy(), fs::copy_options::overwrite_existing); },
      [&] {
        PrivateProfile profile(store);
        const ProfileBatch batch(profile, path);
        const std::string value = " \"" + std::to_string(++round % 1000) + "\"";
        for (int i = 0; i < keys; ++i) {
          if (!profile.WritePrivateProfileStringA("MACROS", KeyName(i), value, path)) {
            state.SkipWithError("a key was not written");
          }
        }
      });
}

void Checksum(benchmark::State& state) {
  const ScriptOnMemoryDisk script(state);
  const std::string text = ReadPlainly(script.File());
  Pair(
      state, Nothing, [&] { benchmark::DoNotOptimize(ReadPlainly(script.File())); },
      [&] { benchmark::DoNotOptimize(ScriptChecksum(text)); });
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"KB", "dense"})->UseManualTime()->Unit(benchmark::kMicrosecond);
  bench->ArgsProduct({{16, 128, 1024, 10240}, {0, 1}});
}

BENCHMARK(LoadKeys)->Apply(Sizes);
BENCHMARK(SaveKeys)->Apply(Sizes);
BENCHMARK(Checksum)->Apply(Sizes);

}  // namespace
}  // namespace dialwright
