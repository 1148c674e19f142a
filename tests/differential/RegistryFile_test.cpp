// The reader of exported registries against the system's own registry and its registry editor.

#include "platform/standins/RegistryFile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

#include "Rounds.h"
#include "TempFolder.h"
#include "platform/win32/RegistryWin32.h"
#include "platform/win32/Win32Text.h"

namespace dialwright {
namespace {

using namespace std::string_literals;

const std::string path = "Software\\Dialwright tests";

struct Value {
  std::string key;
  std::string name;
  DWORD type;
  std::string bytes;
};

std::string WideBytes(std::string_view utf8) {
  const std::wstring wide = WideText(utf8);
  return {reinterpret_cast<const char*>(wide.data()), 2 * wide.size()};
}

Value AnyValue(Dice& dice, int number) {
  const std::string keys[] = {"", "\\Quillon", "\\Quillon\\Telhost\\1.0", "\\Brackets [1] ]",
                              "\\Blank key "};
  constexpr std::string_view characters = "AZaz09 \\\\\"';=[]@,-\t#%";
  const std::string beyond[] = {"", "", "\u00E4", "\u20AC", "\u00FF\u0152"};
  const DWORD types[] = {REG_SZ,       REG_SZ,   REG_EXPAND_SZ, REG_BINARY,           REG_DWORD,
                         REG_MULTI_SZ, REG_NONE, REG_QWORD,     REG_DWORD_BIG_ENDIAN, 0x12345};
  Value value{dice.OneOf(keys), "", dice.OneOf(types), ""};
  if (number % 20 != 0) value.name = "v" + std::to_string(number) + dice.Text(characters, 12);
  if (value.type == REG_SZ || value.type == REG_EXPAND_SZ || value.type == REG_MULTI_SZ) {
    const std::string text = dice.Text(characters, dice.OneIn(5) ? 400 : 30) + dice.OneOf(beyond);
    value.bytes = WideBytes(text) + "\0\0"s;
    if (value.type == REG_MULTI_SZ) value.bytes += WideBytes("second\\") + "\0\0\0\0"s;
  } else {
    for (std::size_t b = value.type == REG_DWORD ? 4 : dice.Below(60); b > 0; --b)
      value.bytes += static_cast<char>(dice.Below(256));
  }
  return value;
}

std::string Ask(Registry& registry, const std::string& below, std::string_view name) {
  RegistryKey opened = RegistryKey::none;
  std::vector<std::byte> buffer(4096);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  long result = registry.RegOpenKeyExA(RegistryKey::localMachine, path + below, 0, 131097, opened);
  if (result != registrySuccess) return "no key: " + std::to_string(result);
  result = registry.RegQueryValueExA(opened, name, type, buffer, size);
  registry.RegCloseKey(opened);
  if (result != registrySuccess) return "no value: " + std::to_string(result);
  return std::to_string(type) + std::string(reinterpret_cast<char*>(buffer.data()), size);
}

TEST(RegistryFileTest, ExportedByTheRegistryEditor) {
  Dice dice(3);
  std::vector<Value> values;
  for (int i = 0; i < Rounds(300); ++i) {
    const Value& value = values.emplace_back(AnyValue(dice, i));
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, WideText(path + value.key).c_str(),
                              WideText(value.name).c_str(), value.type, value.bytes.data(),
                              static_cast<DWORD>(value.bytes.size())),
              ERROR_SUCCESS);
  }
  const TempFolder folder;
  const std::string file = (folder / "export.reg").make_preferred().string();
  const std::string command =
      "start /wait regedit /E \"" + file + "\" \"HKEY_LOCAL_MACHINE\\" + path + "\"";
  ASSERT_EQ(std::system(command.c_str()), 0);

  RegistryWin32 theirs;
  MemoryRegistry ours;
  ReadRegistryFile(folder.Read("export.reg"), ours);
  for (const Value& value : values) {
    EXPECT_EQ(Ask(ours, value.key, value.name), Ask(theirs, value.key, value.name))
        << " [" << value.key << "] " << value.name;
  }
  EXPECT_EQ(Ask(ours, "", "not there"), Ask(theirs, "", "not there"));
  EXPECT_EQ(Ask(ours, "\\not there", "v"), Ask(theirs, "\\not there", "v"));
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
  std::printf("%zu values\n", values.size());
}

}  // namespace
}  // namespace dialwright
