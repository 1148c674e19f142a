#pragma once

#include <QString>
#include <string_view>
#include <vector>

#include "beside/Changes.h"

namespace dialwright {

/// What the window says of changes, in the language of the moment.

/// The action, the setup box, or that the rows stand in another order.
QString ChangedThing(const frmMain& form, const Change& change);
QString BeforeText(const frmMain& form, const Change& change);
QString NowText(const frmMain& form, const Change& change);

/// For each row of a grid how it was before; empty for a row that is as it was.
std::vector<QString> ChangeTips(const frmMain& form, int grid, const std::vector<Change>& changes);

/// Whether a grid has a row with that token.
bool HasRow(const KeyGrid& grid, std::string_view token);

}  // namespace dialwright
