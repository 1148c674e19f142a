#pragma once

#include <QObject>
#include <functional>
#include <string>

class QLabel;
class QStatusBar;
class QToolButton;

namespace dialwright {

struct frmMain;

/// The line at the foot of the window: the server, how many findings there are, and what came of
/// the last save.
class StatusLine : public QObject {
 public:
  StatusLine(const frmMain& mainForm, QStatusBar& statusBar);

  /// `savedAt` is the time of the last save.
  void Refresh(const std::string& savedAt);
  /// Says something for a while, and has a screen reader say it.
  void Announce(const QString& text);

  std::function<void()> findingsWanted;  ///< the number of findings was clicked

 private:
  const frmMain& form;
  QStatusBar& bar;
  QLabel* server;
  QToolButton* findings;
  QLabel* saved;
};

}  // namespace dialwright
