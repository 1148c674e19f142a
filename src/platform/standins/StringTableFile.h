#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dialwright {

/// The string table of a Windows resource library (PE32 or PE32+), read out of the file's bytes.
/// Nothing in the file is trusted: whatever leads outside the file or is not laid out as the format
/// tells counts as missing.
class StringTableFile {
 public:
  /// Nothing when the bytes are not such a file. A library without a string table is one that
  /// holds no string.
  static std::optional<StringTableFile> Parse(std::string bytes);

  /// The text of a number (0 to 65535) in UTF-8, from the neutral language if its block has that
  /// one, else from the block's first language. Half surrogate pairs become U+FFFD. Nothing when
  /// the text is missing, damaged or empty.
  std::optional<std::string> Find(int number) const;

 private:
  /// From a resource's address in memory to the end of its section, in the file; empty when no
  /// section holds it.
  std::string_view SectionFrom(std::uint32_t address) const;

  std::string bytes_;
  std::uint64_t sectionTable_ = 0;
  std::uint32_t sectionCount_ = 0;
  std::uint32_t resourceAddress_ = 0;
};

}  // namespace dialwright
