#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace dialwright {

/// Texts by string number, 0 to 65535. Numbers that are absent get the length 0.
using StringTable = std::map<int, std::u16string>;

enum class PeFormat { pe32, pe32Plus };

/// The bytes of a resource library that holds a string table and no code. Each block of sixteen
/// bears the tables of the languages that have one of its numbers, in the order given.
std::string MakeStringLibrary(const std::vector<std::pair<std::uint16_t, StringTable>>& languages,
                              PeFormat format = PeFormat::pe32Plus);

/// The same with one language, 0 being the neutral one.
std::string MakeStringLibrary(const StringTable& strings, PeFormat format = PeFormat::pe32Plus,
                              std::uint16_t language = 0);

}  // namespace dialwright
