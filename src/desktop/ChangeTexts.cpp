#include "desktop/ChangeTexts.h"

#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "keymap/Catalogue.h"
#include "scripts/SetupOptions.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

constexpr int voiced = 1469;
constexpr int notVoicedText = 1470;
constexpr int inAnotherOrder = 1471;
constexpr int noKey = 1472;
constexpr int keyBefore = 1476;
constexpr int before = 1485;
constexpr int checked = 1486;
constexpr int notChecked = 1487;

QString KeyText(const frmMain& form, const std::string& key) {
  return key.empty() ? NumberedText(form.program, noKey) : ToQt(key);
}

QString VoiceText(const frmMain& form, bool isVoiced) {
  return NumberedText(form.program, isVoiced ? voiced : notVoicedText);
}

/// The label of a row; its token where a preset has dropped it.
QString LabelOf(const frmMain& form, const Change& change) {
  for (const KeyGrid::Cells& row : At(form.gridKeyMap, change.grid).DataRows())
    if (row[static_cast<std::size_t>(Column::ActionToken)] == change.token)
      return ToQt(row[static_cast<std::size_t>(Column::Action)]);
  return ToQt(change.token);
}

/// What stood there before, or stands there now.
QString SideText(const frmMain& form, const Change& change, bool isNow) {
  const std::string& value = isNow ? change.now : change.before;
  switch (change.kind) {
    case Change::Kind::key:
      return KeyText(form, value);
    case Change::Kind::voiced:
    case Change::Kind::silent:
      return VoiceText(form, (change.kind == Change::Kind::voiced) == isNow);
    case Change::Kind::box:
      return NumberedText(form.program, value == "1" ? checked : notChecked);
    case Change::Kind::order:
      break;
  }
  return {};
}

}  // namespace

QString ChangedThing(const frmMain& form, const Change& change) {
  if (change.kind == Change::Kind::order) return NumberedText(form.program, inAnotherOrder);
  if (change.kind == Change::Kind::box)
    return Spoken(ToQt((form.*SetupOptions()[change.option].box).Caption));
  return LabelOf(form, change);
}

QString BeforeText(const frmMain& form, const Change& change) {
  return SideText(form, change, false);
}

QString NowText(const frmMain& form, const Change& change) { return SideText(form, change, true); }

std::vector<QString> ChangeTips(const frmMain& form, int grid, const std::vector<Change>& changes) {
  const KeyGrid& keys = At(form.gridKeyMap, grid);
  std::vector<QString> tips(keys.DataRows().size());
  for (const Change& change : changes) {
    if (change.grid != grid || change.token.empty()) continue;
    const QString tip =
        NumberedText(form.program, change.kind == Change::Kind::key ? keyBefore : before)
            .arg(BeforeText(form, change));
    for (int row = 1; row < keys.Rows(); ++row) {
      if (keys.Text(row, Column::ActionToken) != change.token) continue;
      QString& text = tips[static_cast<std::size_t>(row - 1)];
      text += text.isEmpty() ? tip : "\n" + tip;
    }
  }
  return tips;
}

bool HasRow(const KeyGrid& grid, std::string_view token) {
  for (int row = 1; row < grid.Rows(); ++row)
    if (grid.Text(row, Column::ActionToken) == token) return true;
  return false;
}

}  // namespace dialwright
