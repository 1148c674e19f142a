#pragma once

#include <QWidget>
#include <functional>
#include <vector>

class QVBoxLayout;

namespace dialwright {

/// Quiet lines under the menus, each with a button if something can be done about it. Hidden while
/// there is nothing to say.
class NoticeBar : public QWidget {
 public:
  struct Notice {
    QString text;
    QString button;  ///< its caption; empty: none
    std::function<void()> pressed;
  };

  explicit NoticeBar(const QString& name);

  void Show(std::vector<Notice> wanted);

 private:
  void AddRow(const Notice& notice);

  QVBoxLayout* rows;
  std::vector<Notice> shown;
};

}  // namespace dialwright
