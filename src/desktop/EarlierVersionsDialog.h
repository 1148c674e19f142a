#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "scripts/EarlierVersions.h"

class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace dialwright {

/// The versions kept of the selected slot's scripts, with what each holds otherwise than the form,
/// and a button that brings one back.
class EarlierVersionsDialog : public QDialog {
 public:
  /// `bring` takes the number of the version, the newest being 1.
  EarlierVersionsDialog(frmMain& mainForm, QWidget* parent, std::function<void(int)> bring);

 private:
  void ShowDifferences();
  void BringBack();

  frmMain& form;
  std::vector<EarlierVersion> versions;
  std::function<void(int)> bringBack;
  QListWidget* times;
  QTreeWidget* differences;
  QLabel* remark;
  QPushButton* button;
};

}  // namespace dialwright
