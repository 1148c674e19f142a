#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "beside/Changes.h"

class QPushButton;
class QTreeWidget;

namespace dialwright {

class Dispatch;
class History;

/// What differs from what was loaded or saved last, menu by menu, the old beside the new. Each row
/// can be gone to, and can be given its key and voice back.
class ChangesDialog : public QDialog {
 public:
  ChangesDialog(History& steps, Dispatch& dispatch, QWidget* parent);

  /// The row that the user wants to go to, once the dialog is accepted.
  const Change& Wanted() const { return wanted; }

 private:
  const Change* Chosen() const;
  void Fill();
  void ShowButtons();
  void RevertChosen();

  History& history;
  Dispatch& entry;
  QTreeWidget* list;
  QPushButton* go;
  QPushButton* revert;
  std::vector<Change> changes;
  Change wanted;
};

}  // namespace dialwright
