#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace dialwright {

/// How many cases a test generates: the short form's number, times what DIALWRIGHT_ROUNDS says.
inline int Rounds(int shortForm) {
  const char* factor = std::getenv("DIALWRIGHT_ROUNDS");
  return factor == nullptr ? shortForm : shortForm * std::atoi(factor);
}

/// Choices that are the same in every run of the same length.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine(seed) {}

  std::size_t Below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(engine);
  }
  bool OneIn(std::size_t n) { return Below(n) == 0; }
  template <typename List>
  const auto& OneOf(const List& list) {
    return list[Below(std::size(list))];
  }
  /// Up to `longest` characters of the alphabet.
  std::string Text(std::string_view alphabet, std::size_t longest) {
    std::string result(Below(longest + 1), ' ');
    for (char& c : result) c = alphabet[Below(alphabet.size())];
    return result;
  }

 private:
  std::mt19937 engine;
};

}  // namespace dialwright
