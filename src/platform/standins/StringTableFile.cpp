#include "platform/standins/StringTableFile.h"

#include <utility>

#include "text/Ansi.h"

namespace dialwright {
namespace {

constexpr std::uint32_t dosSignature = 0x5a4d;     // "MZ"
constexpr std::uint32_t ntSignature = 0x00004550;  // "PE", two zero bytes
constexpr std::uint32_t kPe32 = 0x10b;
constexpr std::uint32_t kPe32Plus = 0x20b;
constexpr std::uint64_t coffHeaderSize = 24;  // with the signature in front of it
constexpr std::uint64_t sectionHeaderSize = 40;
constexpr std::uint32_t resourceDirectory = 2;  // its place among the data directories
constexpr std::uint32_t stringType = 6;
constexpr std::uint32_t neutralLanguage = 0;
constexpr std::uint32_t highBit = 0x80000000;  // set in names and in links to directories
constexpr int blockStrings = 16;

/// A little-endian number of `width` bytes; nothing where the bytes end before it.
std::optional<std::uint32_t> Read(std::string_view bytes, std::uint64_t offset,
                                  std::uint64_t width) {
  if (offset > bytes.size() || bytes.size() - offset < width) return std::nullopt;
  std::uint32_t value = 0;
  for (std::uint64_t i = width; i > 0; --i)
    value = value << 8 | static_cast<unsigned char>(bytes[offset + i - 1]);
  return value;
}
std::optional<std::uint32_t> Read16(std::string_view bytes, std::uint64_t offset) {
  return Read(bytes, offset, 2);
}
std::optional<std::uint32_t> Read32(std::string_view bytes, std::uint64_t offset) {
  return Read(bytes, offset, 4);
}

/// Where a directory's entry leads: the one with the number `id` or, without an id, the first.
std::optional<std::uint32_t> Entry(std::string_view resources, std::uint64_t directory,
                                   std::optional<std::uint32_t> id) {
  const auto named = Read16(resources, directory + 12);
  const auto numbered = Read16(resources, directory + 14);
  if (!named || !numbered) return std::nullopt;
  const std::uint64_t first = directory + 16;
  const std::uint64_t end = first + 8 * (std::uint64_t{*named} + *numbered);
  if (end > resources.size()) return std::nullopt;
  for (std::uint64_t entry = first; entry < end; entry += 8)
    if (!id || Read32(resources, entry) == *id) return Read32(resources, entry + 4);
  return std::nullopt;
}

/// An entry that leads to a directory, as all but those of a language must.
std::optional<std::uint32_t> Subdirectory(std::string_view resources, std::uint64_t directory,
                                          std::uint32_t id) {
  const auto link = Entry(resources, directory, id);
  if (!link || (*link & highBit) == 0) return std::nullopt;
  return *link & ~highBit;
}

/// The description of a block's data: three fixed levels down, so that a tree with loops ends too.
std::optional<std::uint32_t> BlockEntry(std::string_view resources, std::uint32_t block) {
  const auto blocks = Subdirectory(resources, 0, stringType);
  if (!blocks) return std::nullopt;
  const auto languages = Subdirectory(resources, *blocks, block);
  if (!languages) return std::nullopt;
  auto entry = Entry(resources, *languages, neutralLanguage);
  if (!entry) entry = Entry(resources, *languages, std::nullopt);
  if (!entry || (*entry & highBit) != 0) return std::nullopt;
  return entry;
}

/// The UTF-16 bytes of one of a block's strings, each of which stands behind its length.
std::optional<std::string_view> BlockString(std::string_view block, int index) {
  std::uint64_t offset = 0;
  for (int i = 0; i < index; ++i) {
    const auto length = Read16(block, offset);
    if (!length) return std::nullopt;
    offset += 2 + std::uint64_t{2} * *length;
  }
  const auto length = Read16(block, offset);
  if (!length) return std::nullopt;
  const std::uint64_t size = std::uint64_t{2} * *length;
  const std::string_view text = block.substr(offset + 2);
  if (size == 0 || size > text.size()) return std::nullopt;
  return text.substr(0, size);
}

}  // namespace

std::optional<StringTableFile> StringTableFile::Parse(std::string bytes) {
  if (Read16(bytes, 0) != dosSignature) return std::nullopt;
  const auto header = Read32(bytes, 0x3c);
  if (!header || Read32(bytes, *header) != ntSignature) return std::nullopt;

  const auto sectionCount = Read16(bytes, std::uint64_t{*header} + 6);
  const auto optionalSize = Read16(bytes, std::uint64_t{*header} + 20);
  const std::uint64_t optional = *header + coffHeaderSize;
  const std::uint32_t magic = Read16(bytes, optional).value_or(0);
  const bool knownFormat = magic == kPe32 || magic == kPe32Plus;
  if (!sectionCount || !optionalSize || !knownFormat) return std::nullopt;

  StringTableFile file;
  file.sectionTable_ = optional + *optionalSize;
  file.sectionCount_ = *sectionCount;
  const std::uint64_t sectionsEnd = file.sectionTable_ + sectionHeaderSize * *sectionCount;
  if (sectionsEnd > bytes.size()) return std::nullopt;

  const std::uint64_t directories = magic == kPe32 ? 96 : 112;
  const auto directoryCount = Read32(bytes, optional + directories - 4);
  const std::uint64_t resources = directories + std::uint64_t{8} * resourceDirectory;
  if (directoryCount && *directoryCount > resourceDirectory && resources + 8 <= *optionalSize)
    file.resourceAddress_ = Read32(bytes, optional + resources).value_or(0);
  file.bytes_ = std::move(bytes);
  return file;
}

std::optional<std::string> StringTableFile::Find(int number) const {
  if (number < 0 || number > 0xffff || resourceAddress_ == 0) return std::nullopt;
  const std::string_view resources = SectionFrom(resourceAddress_);
  const auto entry = BlockEntry(resources, static_cast<std::uint32_t>(number / blockStrings + 1));
  if (!entry) return std::nullopt;

  const auto address = Read32(resources, *entry);
  const auto size = Read32(resources, std::uint64_t{*entry} + 4);
  if (!address || !size) return std::nullopt;
  const std::string_view block = SectionFrom(*address);
  if (*size > block.size()) return std::nullopt;
  const auto text = BlockString(block.substr(0, *size), number % blockStrings);
  if (!text) return std::nullopt;
  return Utf16ToUtf8(*text);
}

std::string_view StringTableFile::SectionFrom(std::uint32_t address) const {
  const std::string_view bytes = bytes_;
  for (std::uint64_t i = 0; i < sectionCount_; ++i) {
    const std::uint64_t header = sectionTable_ + sectionHeaderSize * i;
    const auto start = Read32(bytes, header + 12);
    const auto size = Read32(bytes, header + 16);
    const auto place = Read32(bytes, header + 20);
    if (!start || !size || !place) return {};
    if (address < *start || address - *start >= *size) continue;
    if (*place > bytes.size() || bytes.size() - *place < *size) return {};
    return bytes.substr(*place, *size).substr(address - *start);
  }
  return {};
}

}  // namespace dialwright
