// The reader of exported registries against the system's own registry and its registry editor.

#include "platform/RegistryFile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <iterator>

#include "Rounds.h"
#include "TempFolder.h"
#include "platform/RegistryWin32.h"
#include "platform/Win32Text.h"

namespace dialwright {
namespace {

using namespace std::string_literals;

/// A key of the machine's own, gone with the test.
class RegistryFileTest : public testing::Test {
 protected:
  RegistryFileTest() {
    RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                    nullptr);
  }
  ~RegistryFileTest() override {
    RegCloseKey(key);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
  }

  void set(const std::string& below, const std::wstring& name, DWORD type,
           const std::string& bytes) {
    HKEY opened = nullptr;
    ASSERT_EQ(RegCreateKeyExA(key, below.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened,
                              nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(
        RegSetValueExW(opened, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size())),
        ERROR_SUCCESS);
    RegCloseKey(opened);
  }

  /// What the registry editor exports of the key.
  std::string exported() const {
    const std::string file = (folder / "export.reg").make_preferred().string();
    std::string line = "regedit /E \"" + file + "\" \"HKEY_LOCAL_MACHINE\\" + path + "\"";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &started));
    WaitForSingleObject(started.hProcess, 60'000);
    CloseHandle(started.hProcess);
    CloseHandle(started.hThread);
    return folder.read("export.reg");
  }

  struct Answer {
    long result = 0;
    std::uint32_t type = 0;
    std::string bytes;
    bool operator==(const Answer&) const = default;
    friend void PrintTo(const Answer& answer, std::ostream* out) {
      *out << answer.result << ", type " << answer.type << ", " << Visible(answer.bytes);
    }
  };

  Answer ask(Registry& registry, const std::string& below, std::string_view name) const {
    RegistryKey opened = RegistryKey::none;
    Answer answer;
    answer.result =
        registry.RegOpenKeyExA(RegistryKey::localMachine, path + below, 0, 131097, opened);
    if (answer.result != registrySuccess) return answer;
    std::vector<std::byte> buffer(4096);
    std::uint32_t size = 0;
    answer.result = registry.RegQueryValueExA(opened, name, answer.type, buffer, size);
    if (answer.result == registrySuccess)
      answer.bytes.assign(reinterpret_cast<const char*>(buffer.data()), size);
    registry.RegCloseKey(opened);
    return answer;
  }

  const std::string path = "Software\\Dialwright tests";
  HKEY key = nullptr;
  TempFolder folder;
};

std::string WideBytes(std::string_view utf8) {
  const std::wstring wide = WideText(utf8);
  return {reinterpret_cast<const char*>(wide.data()), 2 * wide.size()};
}

struct Value {
  std::string key;
  std::string name;
  DWORD type;
  std::string bytes;
};

std::vector<Value> Values(Dice& dice) {
  const std::string keys[] = {"", "\\Quillon", "\\Quillon\\Telhost\\1.0", "\\Brackets [1] ]",
                              "\\Blank key "};
  constexpr std::string_view characters = "AZaz09 \\\\\"';=[]@,-\t#%";
  const std::string beyond[] = {"", "", "\u00E4", "\u20AC", "\u00FF\u0152"};
  std::vector<Value> values;
  for (int i = 0; i < Rounds(300); ++i) {
    Value value;
    value.key = dice.oneOf(keys);
    value.name = i % 20 == 0 ? "" : "v" + std::to_string(i) + dice.text(characters, 12);
    const std::string text = dice.text(characters, dice.oneIn(5) ? 400 : 30) + dice.oneOf(beyond);
    const std::string wide = WideBytes(text);
    const DWORD types[] = {REG_SZ,       REG_SZ,   REG_EXPAND_SZ, REG_BINARY,           REG_DWORD,
                           REG_MULTI_SZ, REG_NONE, REG_QWORD,     REG_DWORD_BIG_ENDIAN, 0x12345};
    value.type = dice.oneOf(types);
    switch (value.type) {
      case REG_SZ:
      case REG_EXPAND_SZ:
        value.bytes = wide + "\0\0"s;
        break;
      case REG_MULTI_SZ:
        value.bytes = wide + "\0\0"s + WideBytes("second\\") + "\0\0\0\0"s;
        break;
      case REG_DWORD:
        value.bytes = dice.text("\x01\x7F\x80\xFF", 0) + dice.text("x", 0);
        for (int b = 0; b < 4; ++b) value.bytes += static_cast<char>(dice.below(256));
        break;
      default:
        for (std::size_t b = dice.below(60); b > 0; --b)
          value.bytes += static_cast<char>(dice.below(256));
    }
    values.push_back(value);
  }
  return values;
}

TEST_F(RegistryFileTest, ExportedByTheRegistryEditor) {
  Dice dice(3);
  const std::vector<Value> values = Values(dice);
  for (const Value& value : values) {
    const std::string below = value.key.empty() ? "" : value.key.substr(1);
    set(below, WideText(value.name), value.type, value.bytes);
  }
  RegistryWin32 theirs;
  const std::string bytes = exported();
  ASSERT_GT(bytes.size(), 1000u);
  MemoryRegistry ours;
  readRegistryFile(bytes, ours);
  for (const Value& value : values) {
    EXPECT_EQ(ask(ours, value.key, value.name), ask(theirs, value.key, value.name))
        << " [" << value.key << "] " << value.name;
  }
  EXPECT_EQ(ask(ours, "", "not there"), ask(theirs, "", "not there"));
  EXPECT_EQ(ask(ours, "\\not there", "v"), ask(theirs, "\\not there", "v"));
  std::printf("%zu values\n", values.size());
}

}  // namespace
}  // namespace dialwright
