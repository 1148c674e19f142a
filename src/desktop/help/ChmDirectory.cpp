#include "desktop/help/ChmDirectory.h"

#include <set>

namespace dialwright {

namespace {

/// A place where the file is not what it says.
struct Unsound {};

void Require(bool condition) {
  if (!condition) throw Unsound{};
}

/// Little-endian numbers out of a part of the file. A read outside it throws.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : data(bytes) {}

  std::uint64_t Number(std::size_t offset, std::size_t size) const {
    Require(offset <= data.size() && size <= data.size() - offset);
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
      value = value << 8 | static_cast<unsigned char>(data[offset + i]);
    return value;
  }
  std::uint32_t Word(std::size_t offset) const {
    return static_cast<std::uint32_t>(Number(offset, 4));
  }
  std::uint64_t Quad(std::size_t offset) const { return Number(offset, 8); }
  bool Has(std::size_t offset, std::string_view mark) const {
    return offset <= data.size() && data.substr(offset).starts_with(mark);
  }
  std::string_view Part(std::uint64_t offset, std::uint64_t length) const {
    Require(offset <= data.size() && length <= data.size() - offset);
    return data.substr(offset, length);
  }

 private:
  std::string_view data;
};

/// The entries of a directory page, one behind the other: numbers of seven bits a byte, and names.
class PageReader {
 public:
  explicit PageReader(std::string_view entries) : rest(entries) {}

  bool AtEnd() const { return rest.empty(); }
  std::uint64_t Number() {
    std::uint64_t value = 0;
    for (int count = 0; count < 9; ++count) {
      Require(!rest.empty());
      const auto byte = static_cast<unsigned char>(rest.front());
      rest.remove_prefix(1);
      value = value << 7 | (byte & 0x7f);
      if (byte < 0x80) return value;
    }
    throw Unsound{};
  }
  std::string Name() {
    constexpr std::size_t longestName = 511;
    const std::uint64_t length = Number();
    Require(length <= longestName && length <= rest.size());
    std::string result(rest.substr(0, length));
    rest.remove_prefix(length);
    return result;
  }

 private:
  std::string_view rest;
};

constexpr std::string_view compressedContent = "::DataSpace/Storage/MSCompressed/Content";
constexpr std::string_view controlData = "::DataSpace/Storage/MSCompressed/ControlData";
constexpr std::string_view resetTable =
    "::DataSpace/Storage/MSCompressed/Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/"
    "InstanceData/ResetTable";

constexpr std::uint32_t noPage = 0xffffffff;
constexpr std::uint64_t blockLength = 0x8000;
constexpr std::uint64_t largestFile = 256U << 20;

class Directory {
 public:
  explicit Directory(std::string_view bytes) : file(bytes) {
    Require(file.Has(0, "ITSF") && (file.Word(4) == 2 || file.Word(4) == 3));
    const std::uint64_t directory = file.Quad(0x48);
    const std::uint64_t directoryLength = file.Quad(0x50);
    const Bytes header(file.Part(directory, directoryLength));
    Require(header.Has(0, "ITSP") && header.Word(4) == 1 && header.Word(8) == headerLength);
    dataOffset = file.Word(4) == 3 ? file.Quad(0x58) : directory + directoryLength;
    pageLength = header.Word(0x10);
    Require(pageLength >= 64 && pageLength <= 1U << 20);
    pages = file.Part(directory + headerLength, directoryLength - headerLength);

    ReadList(header.Word(0x20));
    if (const std::uint32_t root = header.Word(0x1c); root != noPage) CheckIndex(root, 0);
    CheckEntries();
  }

  std::vector<ChmEntry> entries;

 private:
  static constexpr std::uint32_t headerLength = 0x54;

  /// What a page holds behind its head, without the free space at its end.
  std::string_view Page(std::uint32_t number, std::string_view mark, std::size_t head) const {
    const std::string_view whole =
        Bytes(pages).Part(std::uint64_t{number} * pageLength, pageLength);
    const Bytes bytes(whole);
    Require(bytes.Has(0, mark) && bytes.Word(4) <= pageLength - head);
    return whole.substr(head, pageLength - head - bytes.Word(4));
  }

  void ReadList(std::uint32_t number) {
    constexpr std::size_t head = 0x14;
    std::set<std::uint32_t> seen;
    while (number != noPage) {
      Require(seen.insert(number).second);
      PageReader reader(Page(number, "PMGL", head));
      while (!reader.AtEnd()) {
        ChmEntry entry;
        entry.name = reader.Name();
        const std::uint64_t space = reader.Number();
        Require(space <= 1);
        entry.compressed = space == 1;
        entry.start = reader.Number();
        entry.length = reader.Number();
        entries.push_back(std::move(entry));
      }
      number = Bytes(pages).Word(std::size_t{number} * pageLength + 0x10);
    }
  }

  void CheckIndex(std::uint32_t number, int depth) {
    constexpr int deepest = 8;
    Require(depth < deepest);
    const std::size_t offset = std::size_t{number} * pageLength;
    if (Bytes(pages).Has(offset, "PMGL")) return;
    PageReader reader(Page(number, "PMGI", 8));
    std::set<std::uint64_t> children;
    while (!reader.AtEnd()) {
      reader.Name();
      const std::uint64_t child = reader.Number();
      // A page stands in the index once, so the walk ends.
      Require(child < pages.size() / pageLength && children.insert(child).second &&
              indexed.insert(child).second);
      CheckIndex(static_cast<std::uint32_t>(child), depth + 1);
    }
  }

  const ChmEntry* Find(std::string_view name) const {
    for (const ChmEntry& entry : entries)
      if (entry.name == name) return &entry;
    return nullptr;
  }

  Bytes Contents(const ChmEntry& entry) const {
    Require(!entry.compressed);
    return Bytes(file.Part(dataOffset + entry.start, entry.length));
  }

  void CheckEntries() const {
    std::uint64_t unpacked = 0;
    if (const ChmEntry* content = Find(compressedContent)) unpacked = CheckCompression(*content);
    for (const ChmEntry& entry : entries) {
      Require(entry.start <= largestFile && entry.length <= largestFile);
      if (entry.compressed)
        Require(entry.start + entry.length <= unpacked);
      else
        Contents(entry);
    }
  }

  /// Returns the length of all that is compressed, unpacked.
  std::uint64_t CheckCompression(const ChmEntry& content) const {
    Require(!content.compressed && content.start <= largestFile && content.length <= largestFile);
    const ChmEntry* control = Find(controlData);
    const ChmEntry* resets = Find(resetTable);
    Require(control != nullptr && resets != nullptr && resets->length <= largestFile &&
            control->length <= largestFile);

    const Bytes lzx = Contents(*control);
    const std::uint64_t unit = lzx.Word(8) == 2 ? blockLength : 1;
    const std::uint64_t interval = lzx.Word(12) * unit;
    const std::uint64_t window = lzx.Word(16) * unit;
    const std::uint32_t windows = lzx.Word(20);
    Require(lzx.Has(4, "LZXC") && window >= 1U << 15 && window <= 1U << 21 &&
            (window & (window - 1)) == 0);
    // The library divides by the number of blocks between two resets.
    Require(interval >= window / 2 && interval % (window / 2) == 0 && interval <= largestFile &&
            windows >= 1 && windows <= 1024);

    const Bytes table = Contents(*resets);
    const std::uint32_t blocks = table.Word(4);
    const std::uint32_t addresses = table.Word(0xc);
    const std::uint64_t unpacked = table.Quad(0x10);
    Require(table.Word(0) == 2 && table.Quad(0x20) == blockLength && unpacked <= largestFile &&
            unpacked <= blocks * blockLength);
    std::uint64_t previous = 0;
    for (std::uint32_t block = 0; block < blocks; ++block) {
      const std::uint64_t address = table.Quad(addresses + std::size_t{block} * 8);
      Require(address >= previous && address <= content.length);
      previous = address;
    }
    return unpacked;
  }

  Bytes file;
  std::string_view pages;
  std::uint32_t pageLength = 0;
  std::uint64_t dataOffset = 0;
  std::set<std::uint64_t> indexed;
};

}  // namespace

std::optional<std::vector<ChmEntry>> SoundChmDirectory(std::string_view file) {
  try {
    if (file.size() > largestFile) return std::nullopt;
    return Directory(file).entries;
  } catch (const Unsound&) {
    return std::nullopt;
  }
}

}  // namespace dialwright
