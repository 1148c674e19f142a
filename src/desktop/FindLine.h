#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "beside/FindAction.h"

class QLineEdit;
class QTreeWidget;

namespace dialwright {

/// One line over the window, and under it the actions of all tabs that it finds as one types. Enter
/// goes to the one that is chosen, Esc leaves all as it was.
class FindLine : public QDialog {
 public:
  using GoTo = std::function<void(int grid, const std::string& token)>;

  FindLine(const frmMain& mainForm, GoTo goTo, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void accept() override;

 private:
  void Search(const QString& text);

  const frmMain& form;
  GoTo go;
  QLineEdit* line;
  QTreeWidget* list;
  std::vector<Match> found;
};

}  // namespace dialwright
