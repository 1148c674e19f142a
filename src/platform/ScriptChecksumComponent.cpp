#include "platform/ScriptChecksumComponent.h"

#include <array>
#include <cstddef>

#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {
namespace {

using CrcTable = std::array<std::uint32_t, 256>;

// Table k takes a byte that has k more bytes behind it in the same step: sixteen look-ups that do
// not wait for each other do sixteen bytes.
constexpr std::size_t slices = 16;

constexpr std::array<CrcTable, slices> MakeTables() {
  std::array<CrcTable, slices> tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t crc = byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320u : 0u);
    tables[0][byte] = crc;
  }
  for (std::size_t k = 1; k < slices; ++k) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t before = tables[k - 1][byte];
      tables[k][byte] = (before >> 8) ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}

constexpr std::array<CrcTable, slices> tables = MakeTables();

// Two stretches of a text are gone through at once, as each step waits for the one before it. What
// the first has come to is then moved past the second, as if that were zeros.
constexpr std::size_t stretch = 1024;

constexpr std::array<CrcTable, 4> MakeShifts() {
  std::array<CrcTable, 4> shifts{};
  for (std::size_t bit = 0; bit < 32; ++bit) {
    std::uint32_t crc = 1u << bit;
    for (std::size_t i = 0; i < stretch; ++i) crc = (crc >> 8) ^ tables[0][crc & 0xFF];
    for (std::size_t byte = 0; byte < 256; ++byte)
      if ((byte >> bit % 8 & 1) != 0) shifts[3 - bit / 8][byte] ^= crc;
  }
  return shifts;
}

constexpr std::array<CrcTable, 4> shifts = MakeShifts();

// What four bytes come to by the four tables.
std::uint32_t LookUp(const CrcTable* table, std::uint32_t four) {
  return table[3][four & 0xFF] ^ table[2][(four >> 8) & 0xFF] ^ table[1][(four >> 16) & 0xFF] ^
         table[0][four >> 24];
}

class Crc32 {
 public:
  void Add(std::string_view bytes) {
    for (; bytes.size() >= 2 * stretch; bytes.remove_prefix(2 * stretch)) {
      std::uint32_t second = 0;
      for (std::size_t at = 0; at < stretch; at += slices) {
        crc = Step(crc, bytes.data() + at);
        second = Step(second, bytes.data() + stretch + at);
      }
      crc = LookUp(shifts.data(), crc) ^ second;
    }
    for (; bytes.size() >= slices; bytes.remove_prefix(slices)) crc = Step(crc, bytes.data());
    for (const char c : bytes) {
      crc = (crc >> 8) ^ tables[0][(crc ^ static_cast<unsigned char>(c)) & 0xFF];
    }
  }
  std::uint32_t Value() const { return ~crc; }

 private:
  // Takes in as many bytes as there are tables.
  static std::uint32_t Step(std::uint32_t crc, const char* bytes) {
    std::uint32_t next = 0;
    for (std::size_t word = 0; word < slices; word += 4)
      next ^= LookUp(&tables[slices - 4 - word], Word(bytes + word) ^ (word == 0 ? crc : 0));
    return next;
  }

  static std::uint32_t Word(const char* bytes) {
    const auto byte = [&](std::size_t i) -> std::uint32_t {
      return static_cast<unsigned char>(bytes[i]);
    };
    return byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24;
  }

  std::uint32_t crc = 0xFFFFFFFF;
};

bool IsChecksumLine(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  return first != std::string_view::npos && line[first] == '#' &&
         StartsWithIgnoringCase(line.substr(first), "#CRC");
}

std::uint32_t CrcOfLines(std::string_view text) {
  constexpr std::string_view lineEnd = "\r\n";
  Crc32 crc;
  // Lines that already end as they should are not taken one by one: `run` is where those not yet
  // added begin.
  std::size_t run = 0;
  for (LineReader lines(text); !lines.AtEnd();) {
    if (!lines.PlainLines('#').empty()) continue;
    const std::size_t start = lines.Place();
    const std::string_view line = lines.Next();
    const std::string_view end = text.substr(start, lines.Place() - start).substr(line.size());
    const bool leftOut = IsChecksumLine(line);
    if (!leftOut && end == lineEnd) continue;
    crc.Add(text.substr(run, start - run));
    if (!leftOut) {
      crc.Add(line);
      crc.Add(lineEnd);
    }
    run = lines.Place();
  }
  crc.Add(text.substr(run));
  return crc.Value();
}

class CrcChecksumComponent : public ScriptChecksumComponent {
 public:
  explicit CrcChecksumComponent(FileStore& fileStore) : store(fileStore) {}

  // The stamp is for components that guard against old requests; this one answers all.
  std::int32_t CalculateFileChecksum(std::int32_t, std::string_view path) override {
    return ScriptChecksum(store.Read(path));
  }

 private:
  FileStore& store;
};

}  // namespace

std::int32_t ScriptChecksum(std::string_view bytes) {
  const std::uint32_t crc = CrcOfLines(bytes);
  return crc == 0 ? 1 : static_cast<std::int32_t>(crc);
}

std::unique_ptr<ScriptChecksumComponent> CrcChecksumFactory::CreateObject() {
  return std::make_unique<CrcChecksumComponent>(store);
}

}  // namespace dialwright
