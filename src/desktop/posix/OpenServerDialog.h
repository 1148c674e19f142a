#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QListWidget;
class QPushButton;

namespace dialwright {

/// Tells what a server folder is, and offers one to open: any, one of the last ones, or the sample.
/// Before the first window it is the window.
class OpenServerDialog : public QDialog {
 public:
  /// `fault` says why the user is asked, where there is a reason. `isFirst`: to leave it is to
  /// leave the program.
  OpenServerDialog(QString shipped, const QString& fault, bool isFirst, QWidget* parent = nullptr);

  /// The folder that was chosen, which is a server's.
  QString Folder() const { return folder; }

 private:
  void Build(bool isFirst);
  void Choose(const QString& candidate);
  void Browse();
  void TrySample();
  void Tell(const QString& fault);

  QString shippedFolder;
  QString folder;
  QWidget* faultRow = nullptr;
  QLabel* faultText = nullptr;
  QListWidget* last = nullptr;
};

}  // namespace dialwright
