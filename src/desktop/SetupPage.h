#pragma once

#include <QWidget>
#include <vector>

class QVBoxLayout;

namespace dialwright {

class ControlViews;
struct Control;
struct frmMain;

/// The Setup tab: the options of the subscriber's setup conversation, and below them the documents
/// that a save makes.
class SetupPage : public QWidget {
 public:
  SetupPage(frmMain& form, ControlViews& views, QWidget* parent = nullptr);

  /// Its controls in the order in which they stand.
  static std::vector<Control*> ControlsInOrder(frmMain& form);

  /// Where the document boxes stand while the server has this tab.
  QVBoxLayout* documents = nullptr;
};

}  // namespace dialwright
