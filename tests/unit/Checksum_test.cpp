#include "scripts/Checksum.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/ScriptChecksumComponent.h"

namespace dialwright {

using namespace std::string_view_literals;

// The right-hand numbers are those that zlib's crc32 gives for the lines as they are to be counted.
TEST(ChecksumTest, LinesAndWhatIsLeftOut) {
  const std::pair<std::string_view, std::int32_t> cases[] = {
      {"", 1},
      {"123456789", -2005318284},
      {"123456789\r\n#CRC  17\r\n", -2005318284},
      {"  #crcXYZ\n123456789\n   #CRC", -2005318284},
      {"[MACROS]\n#CRC -3\r\nMENU_NEW= \"1\"", -269527096},
      {"a\r\n\r\nb\r\n", 808096034},
      {"a\n\nb", 808096034},
      {"\xE4\x80\xFF", 499942279},
      {"\xFF\xFE\xE4\0\xAC\x20\xFF\0\n\0"sv, 499942279},  // the same text in UTF-16
      {"a\r\r\n", -8565894},
      {"a\r", -8565894},
      {"x #CRC 1", 134879559},   // no checksum line: text stands before the mark
      {"\t#CRC 1", -968518645},  // nor this: a tab is text
      {"#CR", -207538025},
  };
  for (const auto& [bytes, checksum] : cases) EXPECT_EQ(scriptChecksum(bytes), checksum) << bytes;
}

TEST(ChecksumTest, TheTextHasAPlaceForTheSign) {
  EXPECT_EQ(strChecksumText(0), " 0");
  EXPECT_EQ(strChecksumText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

}  // namespace dialwright
