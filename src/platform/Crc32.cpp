#include "platform/Crc32.h"

#include <array>
#include <cstddef>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace dialwright {
namespace {

constexpr std::uint32_t polynomial = 0xEDB88320;

/// What becomes of a state by that many bits of zeros.
constexpr std::uint32_t PastZeros(std::uint32_t crc, int bits) {
  for (; bits > 0; --bits) crc = (crc >> 1) ^ ((crc & 1) != 0 ? polynomial : 0);
  return crc;
}

using CrcTable = std::array<std::uint32_t, 256>;

// Table k takes a byte that has k more bytes behind it in the same step: sixteen look-ups that do
// not wait for each other do sixteen bytes.
constexpr std::size_t slices = 16;

constexpr std::array<CrcTable, slices> MakeTables() {
  std::array<CrcTable, slices> tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) tables[0][byte] = PastZeros(byte, 8);
  for (std::size_t k = 1; k < slices; ++k) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t before = tables[k - 1][byte];
      tables[k][byte] = (before >> 8) ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}

constexpr std::array<CrcTable, slices> tables = MakeTables();

/// Takes in as many bytes as there are tables.
std::uint32_t Step(std::uint32_t crc, const char* bytes) {
  std::uint32_t next = 0;
  for (std::size_t i = 0; i < slices; ++i) {
    const auto before = static_cast<unsigned char>(i < 4 ? crc >> 8 * i : 0);
    next ^= tables[slices - 1 - i][static_cast<unsigned char>(bytes[i]) ^ before];
  }
  return next;
}

#if defined(__x86_64__)

// By multiplication without carries, as V. Gopal and others describe it in "Fast CRC Computation
// for Generic Polynomials Using PCLMULQDQ Instruction" (Intel, 2009): a block moves onto a later
// one by the remainder of its distance in bits. The last block is left to the tables.
constexpr std::size_t blocksAtOnce = 4;

using Block = __m128i;

constexpr long long Remainder(int bits) {
  return static_cast<long long>(PastZeros(1u << 31, bits)) << 1;
}

__attribute__((target("pclmul"))) Block Load(const char* bytes, std::size_t block) {
  return _mm_loadu_si128(reinterpret_cast<const Block*>(bytes) + block);
}

__attribute__((target("pclmul"))) Block Moved(Block block, Block distance, Block onto) {
  const Block low = _mm_clmulepi64_si128(block, distance, 0x00);
  const Block high = _mm_clmulepi64_si128(block, distance, 0x11);
  return _mm_xor_si128(onto, _mm_xor_si128(low, high));
}

/// Takes in whole blocks, of which there are at least as many as are gone through at once.
__attribute__((target("pclmul"))) std::uint32_t StepByMultiplication(std::uint32_t crc,
                                                                     std::string_view bytes) {
  constexpr int bits = 8 * sizeof(Block);
  const Block byFour =
      _mm_set_epi64x(Remainder(blocksAtOnce * bits - 32), Remainder(blocksAtOnce * bits + 32));
  const Block byOne = _mm_set_epi64x(Remainder(bits - 32), Remainder(bits + 32));
  std::array<char, sizeof(Block)> last{};
  Block a = _mm_xor_si128(Load(bytes.data(), 0), _mm_cvtsi32_si128(static_cast<int>(crc)));
  Block b = Load(bytes.data(), 1), c = Load(bytes.data(), 2), d = Load(bytes.data(), 3);
  constexpr std::size_t step = blocksAtOnce * sizeof(Block);
  for (bytes.remove_prefix(step); bytes.size() >= step; bytes.remove_prefix(step)) {
    a = Moved(a, byFour, Load(bytes.data(), 0));
    b = Moved(b, byFour, Load(bytes.data(), 1));
    c = Moved(c, byFour, Load(bytes.data(), 2));
    d = Moved(d, byFour, Load(bytes.data(), 3));
  }
  a = Moved(Moved(Moved(a, byOne, b), byOne, c), byOne, d);
  for (; bytes.size() >= sizeof(Block); bytes.remove_prefix(sizeof(Block)))
    a = Moved(a, byOne, Load(bytes.data(), 0));
  _mm_storeu_si128(reinterpret_cast<Block*>(last.data()), a);
  return Step(0, last.data());
}

bool CanMultiply() {
  static const bool can = __builtin_cpu_supports("pclmul") != 0;
  return can;
}

#endif

}  // namespace

void Crc32::Add(std::string_view bytes) {
#if defined(__x86_64__)
  if (CanMultiply() && bytes.size() >= blocksAtOnce * sizeof(Block)) {
    const std::size_t whole = bytes.size() / sizeof(Block) * sizeof(Block);
    crc = StepByMultiplication(crc, bytes.substr(0, whole));
    bytes.remove_prefix(whole);
  }
#endif
  for (; bytes.size() >= slices; bytes.remove_prefix(slices)) crc = Step(crc, bytes.data());
  for (const char c : bytes)
    crc = (crc >> 8) ^ tables[0][(crc ^ static_cast<unsigned char>(c)) & 0xFF];
}

}  // namespace dialwright
