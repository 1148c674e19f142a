#include "PeWriter.h"

#include <cstddef>

namespace dialwright::test {
namespace {

constexpr std::uint32_t kFileAlignment = 0x200;
constexpr std::uint32_t kSectionAlignment = 0x1000;
constexpr std::uint32_t kHighBit = 0x80000000;
constexpr int kBlockStrings = 16;

void Put16(std::string& out, std::uint32_t value) {
  out += static_cast<char>(value & 0xff);
  out += static_cast<char>(value >> 8 & 0xff);
}
void Put32(std::string& out, std::uint32_t value) {
  Put16(out, value & 0xffff);
  Put16(out, value >> 16);
}
std::uint32_t Size(const std::string& bytes) { return static_cast<std::uint32_t>(bytes.size()); }
std::uint32_t AlignedUp(std::uint32_t size, std::uint32_t to) { return (size + to - 1) / to * to; }

/// What one language has for one block: its sixteen strings, each behind its length.
struct BlockData {
  std::uint16_t language;
  std::string bytes;
};
using Blocks = std::map<std::uint32_t, std::vector<BlockData>>;

Blocks MakeBlocks(const std::vector<std::pair<std::uint16_t, StringTable>>& languages) {
  Blocks blocks;
  for (const auto& [language, strings] : languages) {
    std::map<int, std::vector<std::u16string>> texts;
    for (const auto& [number, text] : strings) {
      auto& block = texts[number / kBlockStrings];
      block.resize(kBlockStrings);
      block[static_cast<std::size_t>(number % kBlockStrings)] = text;
    }
    for (const auto& [block, sixteen] : texts) {
      std::string bytes;
      for (const auto& text : sixteen) {
        Put16(bytes, static_cast<std::uint32_t>(text.size()));
        for (const char16_t unit : text) Put16(bytes, unit);
      }
      blocks[static_cast<std::uint32_t>(block + 1)].push_back({language, std::move(bytes)});
    }
  }
  return blocks;
}

void PutDirectory(std::string& out, std::size_t entries) {
  Put32(out, 0);  // characteristics
  Put32(out, 0);  // time stamp
  Put32(out, 0);  // version
  Put16(out, 0);  // entries with a name
  Put16(out, static_cast<std::uint32_t>(entries));
}
constexpr std::uint32_t DirectorySize(std::size_t entries) {
  return static_cast<std::uint32_t>(16 + 8 * entries);
}

/// The resource section: the types, the blocks, each block's languages, the descriptions of the
/// data, the data; level behind level.
std::string MakeResources(const Blocks& blocks, std::uint32_t sectionAddress) {
  constexpr std::uint32_t kStringType = 6;
  std::size_t dataCount = 0;
  for (const auto& [block, data] : blocks) dataCount += data.size();
  const std::uint32_t languagesStart = DirectorySize(1) + DirectorySize(blocks.size());
  const std::uint32_t entriesStart =
      languagesStart + static_cast<std::uint32_t>(16 * blocks.size() + 8 * dataCount);

  std::string out;
  PutDirectory(out, 1);
  Put32(out, kStringType);
  Put32(out, DirectorySize(1) | kHighBit);

  PutDirectory(out, blocks.size());
  std::uint32_t next = languagesStart;
  for (const auto& [block, data] : blocks) {
    Put32(out, block);
    Put32(out, next | kHighBit);
    next += DirectorySize(data.size());
  }

  next = entriesStart;
  for (const auto& [block, data] : blocks) {
    PutDirectory(out, data.size());
    for (const auto& one : data) {
      Put32(out, one.language);
      Put32(out, next);
      next += 16;
    }
  }

  next = sectionAddress + entriesStart + static_cast<std::uint32_t>(16 * dataCount);
  std::string texts;
  for (const auto& [block, data] : blocks) {
    for (const auto& one : data) {
      Put32(out, next + Size(texts));
      Put32(out, Size(one.bytes));
      Put32(out, 0);  // code page
      Put32(out, 0);  // reserved
      texts += one.bytes;
      texts.resize(AlignedUp(Size(texts), 4));
    }
  }
  return out + texts;
}

std::string MakeHeaders(PeFormat format, std::uint32_t resourcesSize) {
  const bool plus = format == PeFormat::pe32Plus;
  constexpr std::uint32_t kHeader = 0x40;
  constexpr std::uint32_t kDirectories = 16;
  std::string out = "MZ";
  out.resize(0x3c);
  Put32(out, kHeader);

  out.append("PE\0\0", 4);
  Put16(out, plus ? 0x8664 : 0x14c);  // machine
  Put16(out, 1);                      // sections
  for (int i = 0; i < 3; ++i) Put32(out, 0);
  Put16(out, (plus ? 112 : 96) + 8 * kDirectories);
  Put16(out, plus ? 0x2022 : 0x2102);  // executable image, library, word size

  Put16(out, plus ? 0x20b : 0x10b);
  Put16(out, 0);  // linker
  Put32(out, 0);  // code
  Put32(out, AlignedUp(resourcesSize, kFileAlignment));
  for (int i = 0; i < 3; ++i) Put32(out, 0);  // other data, entry point, start of code
  if (!plus) Put32(out, kSectionAlignment);   // start of data
  Put32(out, 0x10000000);                     // image base
  if (plus) Put32(out, 0);
  Put32(out, kSectionAlignment);
  Put32(out, kFileAlignment);
  for (int i = 0; i < 3; ++i) {  // versions of system, image, subsystem
    Put16(out, i == 1 ? 0 : 4);
    Put16(out, 0);
  }
  Put32(out, 0);
  Put32(out, kSectionAlignment + AlignedUp(resourcesSize, kSectionAlignment));  // image
  Put32(out, kFileAlignment);                                                   // headers
  Put32(out, 0);                                                                // checksum
  Put16(out, 2);  // subsystem: windows
  Put16(out, 0x100);
  for (int i = 0; i < (plus ? 8 : 4); ++i) Put32(out, 0);  // stack and heap
  Put32(out, 0);
  Put32(out, kDirectories);
  for (std::uint32_t i = 0; i < kDirectories; ++i) {
    Put32(out, i == 2 ? kSectionAlignment : 0);
    Put32(out, i == 2 ? resourcesSize : 0);
  }

  out.append(".rsrc\0\0\0", 8);
  Put32(out, resourcesSize);
  Put32(out, kSectionAlignment);
  Put32(out, AlignedUp(resourcesSize, kFileAlignment));
  Put32(out, kFileAlignment);
  for (int i = 0; i < 3; ++i) Put32(out, 0);
  Put32(out, 0x40000040);  // initialized data, readable
  out.resize(kFileAlignment);
  return out;
}

}  // namespace

std::string MakeStringLibrary(const std::vector<std::pair<std::uint16_t, StringTable>>& languages,
                              PeFormat format) {
  std::string resources = MakeResources(MakeBlocks(languages), kSectionAlignment);
  std::string library = MakeHeaders(format, Size(resources));
  resources.resize(AlignedUp(Size(resources), kFileAlignment));
  return library + resources;
}

std::string MakeStringLibrary(const StringTable& strings, PeFormat format, std::uint16_t language) {
  return MakeStringLibrary({{language, strings}}, format);
}

}  // namespace dialwright::test
