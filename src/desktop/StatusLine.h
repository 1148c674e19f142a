#pragma once

#include <QObject>
#include <QTimer>
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
  StatusLine(const frmMain& mainForm, QStatusBar& bar);

  /// `savedAt` is the time of the last save.
  void Refresh(const std::string& savedAt);
  /// Says something for a while, and has a screen reader say it.
  void Announce(const QString& text);

  std::function<void()> findingsWanted;  ///< the number of findings was clicked

 private:
  const frmMain& form;
  QLabel* server;
  QToolButton* findings;
  QLabel* told;
  QLabel* saved;
  QTimer forget;
};

}  // namespace dialwright
