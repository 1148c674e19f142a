#include "text/UnifiedDiff.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace dialwright {

namespace {

using Lines = std::vector<std::string_view>;

/// A line of the result: of both files, taken away or added.
struct Edit {
  char mark;  ///< ' ', '-' or '+'
  std::string_view line;
};

constexpr std::size_t contextLines = 3;
/// Texts that differ in more lines are shown as one replaced by the other.
constexpr int mostEdits = 2000;

/// The lines with their ends.
Lines LinesOf(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

/// The furthest places on each diagonal after 0, 1, 2, ... edits (the greedy way of E. W. Myers),
/// up to the one that reaches the ends of both; empty if there would be too many.
std::vector<std::vector<int>> FurthestPlaces(const Lines& before, const Lines& after) {
  const int from = static_cast<int>(before.size());
  const int to = static_cast<int>(after.size());
  std::vector<std::vector<int>> steps;
  for (int edits = 0; edits <= std::min(from + to, mostEdits); ++edits) {
    // Diagonal k = x - y stands at k + edits.
    std::vector<int> places(static_cast<std::size_t>(2 * edits + 1), 0);
    for (int k = -edits; k <= edits; k += 2) {
      int x = 0;
      if (edits > 0) {
        const auto at = [&](int diagonal) {
          return steps.back()[static_cast<std::size_t>(diagonal + edits - 1)];
        };
        const bool down = k == -edits || (k != edits && at(k - 1) < at(k + 1));
        x = down ? at(k + 1) : at(k - 1) + 1;
      }
      while (x < from && x - k < to && x - k >= 0 &&
             before[static_cast<std::size_t>(x)] == after[static_cast<std::size_t>(x - k)])
        ++x;
      places[static_cast<std::size_t>(k + edits)] = x;
      if (x >= from && x - k >= to) {
        steps.push_back(std::move(places));
        return steps;
      }
    }
    steps.push_back(std::move(places));
  }
  return {};
}

std::vector<Edit> Replacement(const Lines& before, const Lines& after) {
  std::vector<Edit> edits;
  for (const std::string_view line : before) edits.push_back({'-', line});
  for (const std::string_view line : after) edits.push_back({'+', line});
  return edits;
}

std::vector<Edit> EditsOf(const Lines& before, const Lines& after) {
  const std::vector<std::vector<int>> steps = FurthestPlaces(before, after);
  if (steps.empty()) return Replacement(before, after);
  std::vector<Edit> edits;
  int x = static_cast<int>(before.size());
  int y = static_cast<int>(after.size());
  const auto keep = [&] {
    edits.push_back({' ', before[static_cast<std::size_t>(--x)]});
    --y;
  };
  for (int count = static_cast<int>(steps.size()) - 1; count > 0; --count) {
    const std::vector<int>& last = steps[static_cast<std::size_t>(count - 1)];
    const auto at = [&](int diagonal) {
      return last[static_cast<std::size_t>(diagonal + count - 1)];
    };
    const int k = x - y;
    const bool down = k == -count || (k != count && at(k - 1) < at(k + 1));
    const int fromX = down ? at(k + 1) : at(k - 1);
    const int fromY = fromX - (down ? k + 1 : k - 1);
    while (x > fromX && y > fromY) keep();
    if (down)
      edits.push_back({'+', after[static_cast<std::size_t>(--y)]});
    else
      edits.push_back({'-', before[static_cast<std::size_t>(--x)]});
  }
  while (x > 0) keep();
  std::ranges::reverse(edits);
  return edits;
}

std::string Span(std::size_t first, std::size_t count) {
  // A stretch without lines is told by the line before it.
  const std::string start = std::to_string(count == 0 ? first : first + 1);
  return count == 1 ? start : start + "," + std::to_string(count);
}

void AddLine(std::string& text, const Edit& edit) {
  text.append(1, edit.mark).append(edit.line);
  if (!edit.line.ends_with('\n')) text += "\n\\ No newline at end of file\n";
}

/// The stretches around the changes, each with its heading.
std::string Hunks(const std::vector<Edit>& edits) {
  std::string text;
  const auto isChange = [](const Edit& edit) { return edit.mark != ' '; };
  std::size_t lineBefore = 0, lineAfter = 0, at = 0;
  const auto pass = [&](std::size_t to) {
    for (; at < to; ++at) {
      lineBefore += edits[at].mark != '+';
      lineAfter += edits[at].mark != '-';
    }
  };
  for (;;) {
    const auto change =
        std::find_if(edits.begin() + static_cast<std::ptrdiff_t>(at), edits.end(), isChange);
    if (change == edits.end()) return text;
    std::size_t end = static_cast<std::size_t>(change - edits.begin());
    pass(end - std::min(contextLines, end - at));
    for (std::size_t next = end; next < edits.size() && next <= end + 2 * contextLines; ++next)
      if (isChange(edits[next])) end = next;
    end = std::min(end + 1 + contextLines, edits.size());
    const std::size_t first = at, firstBefore = lineBefore, firstAfter = lineAfter;
    pass(end);
    text += "@@ -" + Span(firstBefore, lineBefore - firstBefore) + " +" +
            Span(firstAfter, lineAfter - firstAfter) + " @@\n";
    for (std::size_t i = first; i < end; ++i) AddLine(text, edits[i]);
  }
}

}  // namespace

std::string UnifiedDiff(std::string_view name, std::optional<std::string_view> before,
                        std::optional<std::string_view> after) {
  if (before == after) return {};
  constexpr std::string_view nothing = "/dev/null";
  const std::string from(before ? name : nothing);
  const std::string to(after ? name : nothing);
  const std::string_view old = before.value_or(""), fresh = after.value_or("");
  if (old.find('\0') != std::string_view::npos || fresh.find('\0') != std::string_view::npos)
    return "Binary files " + from + " and " + to + " differ\n";
  return "--- " + from + "\n+++ " + to + "\n" + Hunks(EditsOf(LinesOf(old), LinesOf(fresh)));
}

}  // namespace dialwright
