#pragma once

#include <QDialog>
#include <map>

#include "desktop/ControlViews.h"
#include "shell/frmAbout.h"

class QAction;
class QActionGroup;
class QMenu;

namespace dialwright {

class Dispatch;

/// The about box on the screen.
class AboutDialog : public QDialog {
 public:
  AboutDialog(frmAbout& aboutForm, Dispatch& dispatch, QWidget* parent);
  ~AboutDialog() override;

  void Refresh();

  /// Whether showing the box waits for its end.
  bool holdsUp = true;

  /// To close the box by other ways than its button is to press the button.
  void reject() override;

 private:
  void Build();
  void AddNewLanguages();
  void ShowLanguages();
  void RunUntilHidden();

  frmAbout& form;
  Dispatch& entry;
  ControlViews views;
  QMenu* languages = nullptr;
  QActionGroup* oneLanguage = nullptr;
  std::map<const MenuItem*, QAction*> items;
};

}  // namespace dialwright
