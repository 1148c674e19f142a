#pragma once

class QTreeWidget;

namespace dialwright {

/// Makes each column but the last as wide as its texts, with a gap before the next.
void FitColumns(QTreeWidget& list);

}  // namespace dialwright
