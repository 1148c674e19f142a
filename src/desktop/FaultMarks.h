#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QString>

#include "beside/Findings.h"

namespace dialwright {

/// How loud a finding is where it is shown.
enum class Mark { none, caution, fault };

inline Mark MarkOf(FindingKind kind) {
  return kind == FindingKind::refused ? Mark::fault : Mark::caution;
}

/// The colour of what a save would refuse, on a palette's ground.
QColor FaultColour(const QPalette& palette);

/// A mark of that loudness, in the palette's colours: a filled sign for a fault, an open one for a
/// caution. `side` in points.
QIcon MarkIcon(Mark mark, const QPalette& palette, int side);

/// What a finding says, and under it the other rows that it names, by their labels and keys. `row`
/// is the one that it is said at.
QString FindingText(const frmMain& form, const Finding& finding, int row);

}  // namespace dialwright
