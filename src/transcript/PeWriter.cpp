#include "PeWriter.h"

#include <cstddef>
#include <initializer_list>

namespace dialwright {
namespace {

using Numbers = std::initializer_list<std::uint32_t>;

constexpr std::uint32_t fileAlignment = 0x200, sectionAlignment = 0x1000;
constexpr std::uint32_t highBit = 0x80000000;
constexpr int blockStrings = 16;

void Put16(std::string& out, Numbers numbers) {
  for (const std::uint32_t number : numbers)
    for (const int shift : {0, 8}) out += static_cast<char>(number >> shift & 0xff);
}
void Put32(std::string& out, Numbers numbers) {
  for (const std::uint32_t number : numbers) Put16(out, {number & 0xffff, number >> 16});
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
    for (auto next = strings.begin(); next != strings.end();) {
      const int block = next->first / blockStrings;
      std::string bytes;
      for (int number = block * blockStrings; number < (block + 1) * blockStrings; ++number) {
        const bool there = next != strings.end() && next->first == number;
        const std::u16string text = there ? (next++)->second : u"";
        Put16(bytes, {static_cast<std::uint32_t>(text.size())});
        for (const char16_t unit : text) Put16(bytes, {unit});
      }
      blocks[static_cast<std::uint32_t>(block + 1)].push_back({language, std::move(bytes)});
    }
  }
  return blocks;
}

constexpr std::uint32_t DirectorySize(std::size_t entries) {
  return static_cast<std::uint32_t>(16 + 8 * entries);
}
void PutDirectory(std::string& out, std::size_t entries) {
  Put32(out, {0, 0, 0});                                 // characteristics, time stamp, version
  Put16(out, {0, static_cast<std::uint32_t>(entries)});  // with a name, with a number
}

/// The resource section: the types, the blocks, each block's languages, the descriptions of the
/// data, the data; level behind level.
std::string MakeResources(const Blocks& blocks, std::uint32_t sectionAddress) {
  constexpr std::uint32_t stringType = 6, descriptionSize = 16;
  const std::uint32_t languagesStart = DirectorySize(1) + DirectorySize(blocks.size());
  std::string blockList, languageLists, descriptions, texts;
  PutDirectory(blockList, blocks.size());
  std::uint32_t count = 0;
  std::uint32_t descriptionsStart = languagesStart;
  for (const auto& [block, data] : blocks) {
    Put32(blockList, {block, descriptionsStart | highBit});
    descriptionsStart += DirectorySize(data.size());
    count += static_cast<std::uint32_t>(data.size());
  }
  const std::uint32_t textsStart = descriptionsStart + descriptionSize * count;
  for (const auto& [block, data] : blocks) {
    PutDirectory(languageLists, data.size());
    for (const auto& [language, bytes] : data) {
      Put32(languageLists, {language, descriptionsStart + Size(descriptions)});
      const std::uint32_t address = sectionAddress + textsStart + Size(texts);
      Put32(descriptions, {address, Size(bytes), 0, 0});  // code page, reserved
      texts += bytes;
      texts.resize(AlignedUp(Size(texts), 4));
    }
  }
  std::string types;
  PutDirectory(types, 1);
  Put32(types, {stringType, DirectorySize(1) | highBit});
  return types + blockList + languageLists + descriptions + texts;
}

std::string MakeHeaders(PeFormat format, std::uint32_t resourcesSize) {
  const bool plus = format == PeFormat::pe32Plus;
  constexpr std::uint32_t header = 0x40, imageBase = 0x10000000, directories = 16;
  const std::uint32_t sizeInFile = AlignedUp(resourcesSize, fileAlignment);
  const std::uint32_t imageSize = sectionAlignment + AlignedUp(resourcesSize, sectionAlignment);
  std::string out = "MZ";
  out.resize(0x3c);
  Put32(out, {header});

  out.append("PE\0\0", 4);
  Put16(out, {plus ? 0x8664u : 0x14c, 1});  // machine, sections
  Put32(out, {0, 0, 0});                    // time stamp, symbols
  Put16(out, {(plus ? 112 : 96) + 8 * directories, plus ? 0x2022u : 0x2102});

  Put16(out, {plus ? 0x20bu : 0x10b, 0});  // format, linker
  Put32(out, {0, sizeInFile, 0, 0, 0});    // code, data, other data, entry point, start of code
  // The narrow format has the start of the data in front of the base, the wide one a wider base.
  Put32(out, {plus ? imageBase : sectionAlignment, plus ? 0 : imageBase});
  Put32(out, {sectionAlignment, fileAlignment, 4, 0, 4, 0});  // then versions
  Put32(out, {imageSize, fileAlignment, 0});                  // image, headers, checksum
  Put16(out, {2, 0x100});                                     // subsystem: windows
  out.resize(out.size() + (plus ? 32 : 16) + 4);              // stack and heap, flags
  Put32(out, {directories, 0, 0, 0, 0, sectionAlignment, resourcesSize});
  out.resize(out.size() + std::size_t{8} * (directories - 3));

  out.append(".rsrc\0\0\0", 8);
  Put32(out, {resourcesSize, sectionAlignment, sizeInFile, fileAlignment, 0, 0, 0});
  Put32(out, {0x40000040});  // initialized data, readable
  out.resize(fileAlignment);
  return out;
}

}  // namespace

std::string MakeStringLibrary(const std::vector<std::pair<std::uint16_t, StringTable>>& languages,
                              PeFormat format) {
  std::string resources = MakeResources(MakeBlocks(languages), sectionAlignment);
  std::string library = MakeHeaders(format, Size(resources));
  resources.resize(AlignedUp(Size(resources), fileAlignment));
  return library + resources;
}

std::string MakeStringLibrary(const StringTable& strings, PeFormat format, std::uint16_t language) {
  return MakeStringLibrary({{language, strings}}, format);
}

}  // namespace dialwright
