#pragma once

#include <QToolButton>
#include <QWidget>
#include <functional>

namespace dialwright {

/// The two arrows of a spin control, side by side. They grow with the font. The keys that work them
/// are the window's: see FocusFilter.
class SpinArrows : public QWidget {
 public:
  explicit SpinArrows(QWidget* parent = nullptr);

  QToolButton& UpButton() { return *up; }
  QToolButton& DownButton() { return *down; }

  /// Sets what the arrows are called, in the language of the moment.
  void SetNames(const QString& upName, const QString& downName);

  std::function<void()> upClick;
  std::function<void()> downClick;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  void FitToFont();

  QToolButton* up;
  QToolButton* down;
};

}  // namespace dialwright
