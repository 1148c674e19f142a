#pragma once

#include <QWidget>

namespace dialwright {

class ControlViews;
struct frmMain;

/// A tab with a key map: what the menu is, its grid, and beside it the edit controls of the current
/// row. It is empty until it is built: of the pages only one is seen at the start.
class TabPage : public QWidget {
 public:
  TabPage(frmMain& theForm, int theIndex, ControlViews& theViews);

  /// Makes what stands on the page, where that is not done yet.
  void Build();

 private:
  frmMain& form;
  const int index;
  ControlViews& views;
};

}  // namespace dialwright
