#include "desktop/MainWindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "beside/StepNames.h"
#include "desktop/AboutDialog.h"
#include "desktop/BesideViews.h"
#include "desktop/ChangeTexts.h"
#include "desktop/ChangesDialog.h"
#include "desktop/EditMenu.h"
#include "desktop/FileSafetyView.h"
#include "desktop/FocusFilter.h"
#include "desktop/GridView.h"
#include "desktop/HelpKey.h"
#include "desktop/KeyMapItems.h"
#include "desktop/KeypadPanel.h"
#include "desktop/Menus.h"
#include "desktop/PaneScroll.h"
#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "desktop/SetupPage.h"
#include "desktop/Spoken.h"
#include "desktop/StatusLine.h"
#include "desktop/TabPage.h"
#include "desktop/Texts.h"
#include "desktop/Translations.h"
#include "shell/Program.h"
#include "shell/events/Lifecycle.h"
#include "shell/frmMain.h"

namespace dialwright {

MainWindow::MainWindow(Program& theProgram)
    : program(theProgram),
      form(*theProgram.main),
      history(form),
      views([this](Control& control, const ControlViews::Action& action) {
        entry.Run([&] {
          if (form.focus.Reachable(control) && form.focus.MoveByUser(control)) action();
        });
      }) {
  setObjectName(ToQt(form.Name));
  translations = std::make_unique<Translations>(program);
  auto* centre = new QWidget;
  auto* column = new QVBoxLayout(centre);
  column->setSpacing(10);
  // The status line has room of its own around it.
  column->setContentsMargins(column->contentsMargins() -
                             QMargins(0, 0, 0, column->contentsMargins().bottom() / 2));
  tabs = new QTabWidget;
  bottom = new QHBoxLayout;
  middle = new QHBoxLayout;
  middle->setSpacing(10);
  middle->addWidget(tabs, 1);
  column->addLayout(middle, 1);
  column->addLayout(bottom);
  setCentralWidget(centre);

  BuildTabs();
  BuildBottom();
  menus = std::make_unique<Menus>(form, *menuBar(), [this](MenuItem& item) { Pick(item); });
  editMenu = std::make_unique<EditMenu>(form, history, *menuBar(), entry);
  keyMapItems = std::make_unique<KeyMapItems>(form, history, *this, *editMenu);
  focus = std::make_unique<FocusFilter>(*this, form, views, entry);
  helpKey = std::make_unique<HelpKey>(program);
  beside = std::make_unique<BesideViews>(form, *this, views, *focus);
  middle->addWidget(&beside->Panel());
  safety = std::make_unique<FileSafetyView>(program, *this, entry);
  BuildStatus();
  SetTabOrders();
  ListenToControls();
  form.hWnd = static_cast<std::uintptr_t>(winId());
  Refresh();
}

MainWindow::~MainWindow() {
  // The form outlives its window. Tabs that go away one by one are no choice of a tab.
  disconnect(tabs->tabBar(), &QTabBar::currentChanged, nullptr, nullptr);
  safety.reset();
  delete takeCentralWidget();
  for (Control* control : form.Controls) control->changed = nullptr;
  form.focus.changed = nullptr;
  form.changed = nullptr;
  form.hWnd = 0;
  program.aboutCreated = nullptr;
}

void MainWindow::BuildTabs() {
  for (int i = 0; i < gridCount; ++i)
    tabs->addTab(At(pages, i) = new TabPage(form, i, views), QString());
  At(pages, mainMenuGrid)->Build();
  setup = new SetupPage(form, views);
  tabs->addTab(new PaneScroll(*setup), QString());
  tabs->tabBar()->setElideMode(Qt::ElideNone);
  views.Join(form.SSTab1, *tabs);
}

void MainWindow::BuildOtherPages() {
  if (std::exchange(allPagesBuilt, true)) return;
  for (TabPage* page : pages) page->Build();
  Refresh();
}

void MainWindow::BuildBottom() {
  documents = new QWidget;
  auto* boxes = new QVBoxLayout(documents);
  boxes->setContentsMargins(0, 0, 0, 0);
  for (CheckBox* control : {&form.chkGenerateHelp, &form.chkGeneratePDF}) {
    auto* box = new QCheckBox;
    boxes->addWidget(box, 0, Qt::AlignLeft);
    views.Join(*control, *box);
  }
  bottom->addWidget(documents);
  bottom->addStretch();
  for (CommandButton* control : {&form.cmdSave, &form.cmdExit}) {
    auto* button = new QPushButton;
    bottom->addWidget(button, 0, Qt::AlignBottom);
    views.Join(*control, *button);
  }
}

void MainWindow::AddNotice(QWidget& notice) {
  auto* column = static_cast<QVBoxLayout*>(centralWidget()->layout());
  column->insertWidget(column->indexOf(bottom), &notice);
}

void MainWindow::AddNoticeBar(QWidget& bar) {
  static_cast<QVBoxLayout*>(centralWidget()->layout())->insertWidget(0, &bar);
}

void MainWindow::NameServer(const QString& name) {
  serverName = name;
  ShowTitle();
}

void MainWindow::ShowTitle() {
  const QString caption = ToQt(form.Caption);
  setWindowTitle((serverName.isEmpty() ? caption : caption + " - " + serverName) + "[*]");
  setWindowModified(history.HasUnsaved());
}

void MainWindow::PlaceDocuments() {
  const bool onSetup = form.chkGenerateHelp.HomeTab == setupTab;
  if (onSetup == documentsOnSetup) return;
  documentsOnSetup = onSetup;
  if (onSetup)
    setup->documents->addWidget(documents);
  else
    bottom->insertWidget(0, documents);
}

void MainWindow::SetTabOrders() {
  std::vector<Control*>& order = focus->tabOrder;
  order.push_back(&form.SSTab1);
  for (int i = 0; i < gridCount; ++i)
    for (Control* control : {static_cast<Control*>(&At(form.gridKeyMap, i)),
                             static_cast<Control*>(&At(form.txtKeyAssignment, i)),
                             static_cast<Control*>(&At(form.chkDontVoiceAction, i)),
                             static_cast<Control*>(&At(form.UpDownMenuOrder, i)),
                             static_cast<Control*>(&At(form.txtDescription, i))})
      order.push_back(control);
  for (Control* control : SetupPage::ControlsInOrder(form)) order.push_back(control);
  for (Control* control :
       {static_cast<Control*>(&form.chkGenerateHelp), static_cast<Control*>(&form.chkGeneratePDF),
        static_cast<Control*>(&form.cmdSave), static_cast<Control*>(&form.cmdExit)})
    order.push_back(control);
}

void MainWindow::ListenToControls() {
  const auto later = [this] {
    if (refreshQueued) return;
    refreshQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (refreshQueued) Refresh();
        },
        Qt::QueuedConnection);
  };
  for (Control* control : form.Controls) control->changed = later;
  form.focus.changed = later;
  // The title and the pointer don't wait: they change while the system works.
  form.changed = [this] {
    ShowTitle();
    const bool waits = form.Pointer == MousePointer::hourglass;
    // A first pointer of a window's own is searched for through all the desktop's themes.
    if (waits != (cursor().shape() == Qt::WaitCursor) && (isVisible() || !waits))
      setCursor(waits ? Qt::WaitCursor : Qt::ArrowCursor);
  };
  program.aboutCreated = [this](frmAbout& box) {
    about = std::make_unique<AboutDialog>(box, entry, this);
    about->holdsUp = aboutHoldsUp;
  };
  entry.stepBegins = [this] {
    if (isVisible()) BuildOtherPages();  // the start's own load needs one page only
    history.StepBegins();
  };
  entry.afterWork = [this] {
    Refresh();
    if (about) about->Refresh();
  };
}

void MainWindow::Refresh() {
  refreshQueued = false;
  if (form.SSTab1.Tab() != mainMenuGrid) BuildOtherPages();
  // Longer words make the window larger.
  if (translations->Refresh() && isVisible()) SettleInSight(*this);
  PlaceDocuments();
  views.Refresh();
  SetSpoken(*tabs->tabBar(), texts::Tabs());
  menus->Refresh();
  beside->Refresh();
  editMenu->Refresh();
  safety->Refresh();
  keyMapItems->Refresh();
  status->Refresh(history.SavedAt());
  ShowTitle();
  ShowChanges();
  focus->MirrorFocus();
}

void MainWindow::BuildStatus() {
  // Its text begins where the tabs do.
  const QMargins around = centralWidget()->layout()->contentsMargins();
  statusBar()->setSizeGripEnabled(false);  // the frame is there to be drawn
  statusBar()->setContentsMargins(around.left() / 2, 0, 0, 0);
  status = std::make_unique<StatusLine>(form, *statusBar());
  editMenu->done = [this](const QString& text) { status->Announce(text); };
  status->findingsWanted = [this] { findChild<QAction*>("mnuNextFinding")->trigger(); };
  editMenu->AddSeparator();
  editMenu->Add(*findChild<QAction*>("mnuFindAction"));
  // The list is no step of the user's: what is done from it are steps.
  QAction& changes = editMenu->Add("mnuChanges", 1463, [] {});
  connect(&changes, &QAction::triggered, this, [this] { OpenChanges(); });
}

void MainWindow::ShowChanges() {
  const std::vector<Change> changes = history.Changes();
  for (int i = 0; i < gridCount; ++i)
    if (auto* grid = static_cast<GridView*>(views.FocusWidget(&At(form.gridKeyMap, i))))
      grid->ShowChanges(ChangeTips(form, i, changes));
}

void MainWindow::OpenChanges() {
  ChangesDialog dialog(history, entry, this);
  if (dialog.exec() != QDialog::Accepted) return;
  const Change& wanted = dialog.Wanted();
  if (!wanted.token.empty()) return focus->GoTo(wanted.grid, wanted.token);
  entry.Run([&] {
    if (form.focus.MoveByUser(form.SSTab1))
      form.SSTab1.SetTab(wanted.kind == Change::Kind::box ? setupTab : wanted.grid);
  });
}

void MainWindow::Pick(MenuItem& item) {
  entry.Run([&] {
    history.NameStep(ItemStepName(form, item));
    if (item.Offered() && item.Enabled && item.Click) item.Click();
  });
}

void MainWindow::Open() {
  Refresh();
  // Wide enough for a page and for all tabs, with room for the tabs of languages of longer words.
  centralWidget()->layout()->invalidate();
  const QSize wanted = centralWidget()->sizeHint();
  const int tabsWidth =
      tabs->tabBar()->sizeHint().width() + wanted.width() - tabs->sizeHint().width();
  const int least = std::max(wanted.width(), tabsWidth);
  int width = least * 5 / 4;
  beside->ShowPanelWhereItFits(least, screen()->availableSize().width());
  if (beside->Panel().isVisibleTo(this))
    width += beside->Panel().sizeHint().width() + middle->spacing();
  ShowFitted(*this, QSize(width, fontMetrics().height() * 42));
}

void MainWindow::paintEvent(QPaintEvent* event) {
  QMainWindow::paintEvent(event);
  if (std::exchange(wasPainted, true)) return;
  QTimer::singleShot(1, this, [this] {  // what is painted is on the screen by then
    BuildOtherPages();
    if (seen) seen();
  });
}

bool MainWindow::event(QEvent* event) {
  if (event->type() != QEvent::LayoutRequest || !isVisible()) return QMainWindow::event(event);
  beside->FitPanel();
  return QMainWindow::event(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  std::int16_t cancel = 0;
  const bool asked = entry.Run([&] { Form_Unload(form, cancel); });
  if (entry.Ended()) return;
  if (!asked || cancel != 0) {
    event->ignore();
    return;
  }
  entry.end();
}

}  // namespace dialwright
