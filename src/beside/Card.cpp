#include "beside/Card.h"

#include <charconv>

#include "documents/TaskLabels.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// The card tool's classes are built for it.
constexpr int oldestJava = 11;

/// The number by which a Java is known: 17 of "17.0.15", 8 of "1.8.0_402".
int Feature(std::string_view version) {
  if (version.starts_with("1.")) version.remove_prefix(2);
  int number = 0;
  std::from_chars(version.data(), version.data() + version.size(), number);
  return number;
}

}  // namespace

std::string CardOmissions(const frmMain& form) {
  std::string list;
  for (int i = 0; i < gridCount; ++i) {
    const KeyGrid& grid = At(form.gridKeyMap, i);
    for (int row = 1; row < grid.Rows(); ++row) {
      const std::string keys = ReplaceAll(grid.Text(row, Column::KeyAssignment), "\"", "");
      const std::string token = UpperCase(grid.Text(row, Column::ActionToken));
      if (Trim(keys).empty() || HasTaskLabel(token)) continue;
      list += "\r\n" + form.SSTab1.TabCaption(i) + ": " + grid.Text(row, Column::Action) + " (" +
              std::string(Trim(keys)) + ")";
    }
  }
  return list.empty() ? list : form.program.mymyLoadString(1532) + "\r\n" + list;
}

std::string_view JavaVersion(std::string_view printed) {
  constexpr std::string_view before = "version \"";
  const std::size_t begin = printed.find(before);
  if (begin == std::string_view::npos) return {};
  printed.remove_prefix(begin + before.size());
  return printed.substr(0, printed.find('"'));
}

std::string CardJavaComplaint(const frmMain& form, std::optional<std::string_view> printed) {
  Program& program = form.program;
  const std::string oldest = std::to_string(oldestJava);
  if (!printed) return ReplaceAll(program.mymyLoadString(1533), "%1", oldest);
  const std::string_view version = JavaVersion(*printed);
  const int feature = Feature(version);
  if (feature == 0 || feature >= oldestJava) return {};
  return ReplaceAll(ReplaceAll(program.mymyLoadString(1534), "%1", oldest), "%2", version);
}

}  // namespace dialwright
