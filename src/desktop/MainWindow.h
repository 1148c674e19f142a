#pragma once

#include <QMainWindow>
#include <memory>

#include "beside/History.h"
#include "desktop/ControlViews.h"
#include "desktop/Dispatch.h"

class QCheckBox;
class QHBoxLayout;
class QTabWidget;

namespace dialwright {

class AboutDialog;
class BesideViews;
class EditMenu;
class FileSafetyView;
class StatusLine;
class FocusFilter;
class HelpKey;
class KeyMapItems;
class Menus;
class Program;
class SetupPage;
class TabPage;
class Translations;
struct frmMain;

/// The working window. It shows the main form's controls and turns what the user does into actions
/// on them; every rule is the form's.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Program& theProgram);
  ~MainWindow() override;

  /// Comes up on the screen, once the start-up sequence is through.
  void Open();

  /// Gives a notice its place, between the tabs and the buttons. It belongs to the window then.
  void AddNotice(QWidget& notice);

  /// Gives a bar of notices its place under the menus. It belongs to the window then.
  void AddNoticeBar(QWidget& bar);

  /// The title names the server too, where it is not the machine's own.
  void NameServer(const QString& name);

  /// Called when the window has been painted for the first time: the place for what its first sight
  /// shall not wait for.
  std::function<void()> seen;

  /// Shows what the controls hold now.
  void Refresh();

  Dispatch& Entry() { return entry; }
  /// What the user has done to the key map.
  History& Steps() { return history; }
  /// Where key maps leave the editor and come into it.
  KeyMapItems& KeyMaps() { return *keyMapItems; }
  /// The about box, once it has been opened.
  AboutDialog* AboutBox() { return about.get(); }

  /// Whether the about box holds up whoever opens it until it is closed, as a modal box does.
  bool aboutHoldsUp = true;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void BuildTabs();
  /// Makes the pages that are not seen at the start.
  void BuildOtherPages();
  void BuildBottom();
  void PlaceDocuments();
  void ListenToControls();
  void Pick(MenuItem& item);
  void SetTabOrders();
  void BuildStatus();
  void ShowTitle();
  /// Marks the rows that differ from what was loaded or saved last.
  void ShowChanges();
  void OpenChanges();

  Program& program;
  frmMain& form;
  History history;
  Dispatch entry;
  ControlViews views;
  std::unique_ptr<Translations> translations;
  std::unique_ptr<FocusFilter> focus;
  std::unique_ptr<HelpKey> helpKey;
  std::unique_ptr<Menus> menus;
  std::unique_ptr<BesideViews> beside;
  std::unique_ptr<EditMenu> editMenu;
  std::unique_ptr<FileSafetyView> safety;
  std::unique_ptr<KeyMapItems> keyMapItems;
  std::unique_ptr<StatusLine> status;
  std::unique_ptr<AboutDialog> about;
  QTabWidget* tabs = nullptr;
  ControlArray<TabPage*> pages{};
  SetupPage* setup = nullptr;
  QHBoxLayout* middle = nullptr;
  QHBoxLayout* bottom = nullptr;
  QWidget* documents = nullptr;
  QString serverName;
  bool documentsOnSetup = false;
  bool refreshQueued = false;
  bool allPagesBuilt = false;
  bool wasPainted = false;
};

}  // namespace dialwright
