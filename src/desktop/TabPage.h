#pragma once

#include <QWidget>

namespace dialwright {

class ControlViews;
struct frmMain;

/// A tab with a key map: what the menu is, its grid, and beside it the edit controls of the current
/// row.
class TabPage : public QWidget {
 public:
  TabPage(frmMain& form, int index, ControlViews& views, QWidget* parent = nullptr);
};

}  // namespace dialwright
