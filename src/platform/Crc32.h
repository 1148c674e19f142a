#pragma once

#include <cstdint>
#include <string_view>

namespace dialwright {

/// CRC-32 with the reflected polynomial EDB88320, the one of zip files and Ethernet.
class Crc32 {
 public:
  void Add(std::string_view bytes);
  std::uint32_t Value() const { return ~crc; }

 private:
  std::uint32_t crc = 0xFFFFFFFF;
};

}  // namespace dialwright
