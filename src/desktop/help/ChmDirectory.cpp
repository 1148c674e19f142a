#include "desktop/help/ChmDirectory.h"

#include <set>

namespace dialwright {

namespace {

/// A place where the file is not what it says.
struct Unsound {};

void require(bool condition) {
  if (!condition) throw Unsound{};
}

/// Little-endian numbers out of a part of the file. A read outside it throws.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : data(bytes) {}

  std::uint64_t number(std::size_t offset, std::size_t size) const {
    require(offset <= data.size() && size <= data.size() - offset);
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
      value = value << 8 | static_cast<unsigned char>(data[offset + i]);
    return value;
  }
  std::uint32_t word(std::size_t offset) const {
    return static_cast<std::uint32_t>(number(offset, 4));
  }
  std::uint64_t quad(std::size_t offset) const { return number(offset, 8); }
  bool has(std::size_t offset, std::string_view mark) const {
    return offset <= data.size() && data.substr(offset).starts_with(mark);
  }
  std::string_view part(std::uint64_t offset, std::uint64_t length) const {
    require(offset <= data.size() && length <= data.size() - offset);
    return data.substr(offset, length);
  }

 private:
  std::string_view data;
};

/// The entries of a directory page, one behind the other: numbers of seven bits a byte, and names.
class PageReader {
 public:
  explicit PageReader(std::string_view entries) : rest(entries) {}

  bool atEnd() const { return rest.empty(); }
  std::uint64_t number() {
    std::uint64_t value = 0;
    for (int count = 0; count < 9; ++count) {
      require(!rest.empty());
      const auto byte = static_cast<unsigned char>(rest.front());
      rest.remove_prefix(1);
      value = value << 7 | (byte & 0x7f);
      if (byte < 0x80) return value;
    }
    throw Unsound{};
  }
  std::string name() {
    constexpr std::size_t longestName = 511;
    const std::uint64_t length = number();
    require(length <= longestName && length <= rest.size());
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
    require(file.has(0, "ITSF") && (file.word(4) == 2 || file.word(4) == 3));
    const std::uint64_t directory = file.quad(0x48);
    const std::uint64_t directoryLength = file.quad(0x50);
    const Bytes header(file.part(directory, directoryLength));
    require(header.has(0, "ITSP") && header.word(4) == 1 && header.word(8) == headerLength);
    dataOffset = file.word(4) == 3 ? file.quad(0x58) : directory + directoryLength;
    pageLength = header.word(0x10);
    require(pageLength >= 64 && pageLength <= 1U << 20);
    pages = file.part(directory + headerLength, directoryLength - headerLength);

    readList(header.word(0x20));
    if (const std::uint32_t root = header.word(0x1c); root != noPage) checkIndex(root, 0);
    checkEntries();
  }

  std::vector<ChmEntry> entries;

 private:
  static constexpr std::uint32_t headerLength = 0x54;

  /// What a page holds behind its head, without the free space at its end.
  std::string_view page(std::uint32_t number, std::string_view mark, std::size_t head) const {
    const std::string_view whole =
        Bytes(pages).part(std::uint64_t{number} * pageLength, pageLength);
    const Bytes bytes(whole);
    require(bytes.has(0, mark) && bytes.word(4) <= pageLength - head);
    return whole.substr(head, pageLength - head - bytes.word(4));
  }

  void readList(std::uint32_t number) {
    constexpr std::size_t head = 0x14;
    std::set<std::uint32_t> seen;
    while (number != noPage) {
      require(seen.insert(number).second);
      PageReader reader(page(number, "PMGL", head));
      while (!reader.atEnd()) {
        ChmEntry entry;
        entry.name = reader.name();
        const std::uint64_t space = reader.number();
        require(space <= 1);
        entry.compressed = space == 1;
        entry.start = reader.number();
        entry.length = reader.number();
        entries.push_back(std::move(entry));
      }
      number = Bytes(pages).word(std::size_t{number} * pageLength + 0x10);
    }
  }

  void checkIndex(std::uint32_t number, int depth) {
    constexpr int deepest = 8;
    require(depth < deepest);
    const std::size_t offset = std::size_t{number} * pageLength;
    if (Bytes(pages).has(offset, "PMGL")) return;
    PageReader reader(page(number, "PMGI", 8));
    std::set<std::uint64_t> children;
    while (!reader.atEnd()) {
      reader.name();
      const std::uint64_t child = reader.number();
      // A page stands in the index once, so the walk ends.
      require(child < pages.size() / pageLength && children.insert(child).second &&
              indexed.insert(child).second);
      checkIndex(static_cast<std::uint32_t>(child), depth + 1);
    }
  }

  const ChmEntry* find(std::string_view name) const {
    for (const ChmEntry& entry : entries)
      if (entry.name == name) return &entry;
    return nullptr;
  }

  Bytes contents(const ChmEntry& entry) const {
    require(!entry.compressed);
    return Bytes(file.part(dataOffset + entry.start, entry.length));
  }

  void checkEntries() const {
    std::uint64_t unpacked = 0;
    if (const ChmEntry* content = find(compressedContent)) unpacked = checkCompression(*content);
    for (const ChmEntry& entry : entries) {
      require(entry.start <= largestFile && entry.length <= largestFile);
      if (entry.compressed)
        require(entry.start + entry.length <= unpacked);
      else
        contents(entry);
    }
  }

  /// Returns the length of all that is compressed, unpacked.
  std::uint64_t checkCompression(const ChmEntry& content) const {
    require(!content.compressed && content.start <= largestFile && content.length <= largestFile);
    const ChmEntry* control = find(controlData);
    const ChmEntry* resets = find(resetTable);
    require(control != nullptr && resets != nullptr && resets->length <= largestFile &&
            control->length <= largestFile);

    const Bytes lzx = contents(*control);
    const std::uint64_t unit = lzx.word(8) == 2 ? blockLength : 1;
    const std::uint64_t interval = lzx.word(12) * unit;
    const std::uint64_t window = lzx.word(16) * unit;
    const std::uint32_t windows = lzx.word(20);
    require(lzx.has(4, "LZXC") && window >= 1U << 15 && window <= 1U << 21 &&
            (window & (window - 1)) == 0);
    // The library divides by the number of blocks between two resets.
    require(interval >= window / 2 && interval % (window / 2) == 0 && interval <= largestFile &&
            windows >= 1 && windows <= 1024);

    const Bytes table = contents(*resets);
    const std::uint32_t blocks = table.word(4);
    const std::uint32_t addresses = table.word(0xc);
    const std::uint64_t unpacked = table.quad(0x10);
    require(table.word(0) == 2 && table.quad(0x20) == blockLength && unpacked <= largestFile &&
            unpacked <= blocks * blockLength);
    std::uint64_t previous = 0;
    for (std::uint32_t block = 0; block < blocks; ++block) {
      const std::uint64_t address = table.quad(addresses + std::size_t{block} * 8);
      require(address >= previous && address <= content.length);
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

std::optional<std::vector<ChmEntry>> soundChmDirectory(std::string_view file) {
  try {
    if (file.size() > largestFile) return std::nullopt;
    return Directory(file).entries;
  } catch (const Unsound&) {
    return std::nullopt;
  }
}

}  // namespace dialwright
