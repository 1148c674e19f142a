#include "desktop/BesideViews.h"

#include <QAction>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <algorithm>
#include <utility>

#include "desktop/ControlViews.h"
#include "desktop/FindLine.h"
#include "desktop/FindingLine.h"
#include "desktop/FocusFilter.h"
#include "desktop/GridView.h"
#include "desktop/KeypadPanel.h"
#include "desktop/NumberedText.h"
#include "desktop/QtText.h"
#include "desktop/ScreenFit.h"
#include "shell/Program.h"

namespace dialwright {

namespace {

/// A narrower screen has better uses for its width, in points.
constexpr int wideScreen = 1200;

int MarkSide(const QWidget& widget) { return widget.fontMetrics().height(); }

}  // namespace

BesideViews::BesideViews(frmMain& mainForm, QMainWindow& mainWindow, ControlViews& controlViews,
                         FocusFilter& focusFilter)
    : form(mainForm), window(mainWindow), views(controlViews), focus(focusFilter) {
  const auto goTo = [this](int grid, const std::string& token) { GoTo(grid, token); };
  panel = new KeypadPanel(
      form, {goTo, [this](char key) { focus.TypeKey(key); }, [this] { focus.ComeBack(); }});
  panel->hide();
  BuildMenu();
}

QString BesideViews::Word(int number) const { return NumberedText(form.program, number); }

QAction& BesideViews::AddItem(QMenu& to, const char* name, int text, const char* keys,
                              std::function<void()> run) {
  QAction* action = to.addAction(QString());
  action->setObjectName(name);
  action->setMenuRole(QAction::NoRole);
  action->setShortcut(QKeySequence(QString(keys)));
  QObject::connect(action, &QAction::triggered, &window, std::move(run));
  texts[action] = text;
  return *action;
}

void BesideViews::BuildMenu() {
  QMenuBar& bar = *window.menuBar();
  menu = new QMenu(&bar);
  menu->setObjectName("mnuView");
  menu->menuAction()->setObjectName("mnuView");
  texts[menu->menuAction()] = 1383;
  QAction* before = nullptr;
  for (QAction* action : bar.actions())
    if (action->objectName() == ToQt(form.mnuHelpMenu.Name)) before = action;
  bar.insertMenu(before, menu);
  keypadItem = &AddItem(*menu, "mnuKeypad", 1384, "F9", [this] {
    ShowPanel(keypadItem->isChecked());
    if (panel->isHidden()) focus.ComeBack();
  });
  keypadItem->setCheckable(true);
  AddItem(*menu, "mnuToKeypad", 1409, "F6", [this] {
    if (panel->isVisible() && panel->isAncestorOf(window.focusWidget())) return focus.ComeBack();
    ShowPanel(true);
    panel->TakeKeyboard();
  });
  AddItem(*menu, "mnuTryKeys", 1388, "Ctrl+T", [this] {
    ShowPanel(true);
    panel->Try(!panel->IsTrying());
  });
  menu->addSeparator();
  AddItem(*menu, "mnuNextFinding", 1385, "F8", [this] { GoToFinding(+1); });
  AddItem(*menu, "mnuPreviousFinding", 1386, "Shift+F8", [this] { GoToFinding(-1); });
  AddItem(*menu, "mnuOtherRow", 1410, "Ctrl+F8", [this] { GoToOtherRow(); });
  menu->addSeparator();
  AddItem(*menu, "mnuFindAction", 1387, "Ctrl+F", [this] { FindAnAction(); });
}

void BesideViews::ShowPanel(bool isShown) {
  keypadItem->setChecked(isShown);
  // As narrow as it can be at first: a window grows for what comes up in it, but never shrinks.
  if (isShown && panel->isHidden()) panel->LimitWidth(0);
  panel->setVisible(isShown);
  FitPanel();
  BringIntoSight(window);
  Refresh();
}

void BesideViews::FitPanel() {
  if (panel->isHidden()) return;
  QLayout& whole = *window.centralWidget()->layout();
  whole.activate();
  const int others = whole.totalMinimumSize().width() - panel->minimumSizeHint().width();
  panel->LimitWidth(FittingSize(window, QSize(QWIDGETSIZE_MAX, 0)).width() - others);
  // Before the window asks how large it has to be.
  whole.activate();
}

void BesideViews::ShowPanelWhereItFits(int windowWidth, int screenWidth) {
  const bool fits =
      screenWidth >= wideScreen && windowWidth + panel->minimumSizeHint().width() <= screenWidth;
  keypadItem->setChecked(fits);
  panel->setVisible(fits);
}

void BesideViews::FindAnAction() {
  if (!findLine)
    findLine = new FindLine(
        form, [this](int grid, const std::string& token) { GoTo(grid, token); }, &window);
  findLine->open();
}

void BesideViews::GoTo(int grid, const std::string& token) { focus.GoTo(grid, token); }

void BesideViews::GoToFinding(int direction) {
  using Place = std::pair<int, int>;  // grid and row
  std::vector<Place> places;
  for (const Finding& finding : findings)
    if (!finding.rows.empty() && form.SSTab1.TabVisible(finding.grid))
      places.emplace_back(finding.grid, finding.rows.front());
  if (places.empty()) return;
  std::ranges::sort(places);
  const int tab = form.SSTab1.Tab();
  const Place here{tab, tab < gridCount ? At(form.gridKeyMap, tab).Row() : 0};
  const auto after = std::ranges::upper_bound(places, here);
  const auto before = std::ranges::lower_bound(places, here);
  const Place& to = direction > 0 ? (after == places.end() ? places.front() : *after)
                                  : (before == places.begin() ? places.back() : *(before - 1));
  GoTo(to.first, At(form.gridKeyMap, to.first).Text(to.second, Column::ActionToken));
}

void BesideViews::GoToOtherRow() {
  const int tab = form.SSTab1.Tab();
  if (tab >= gridCount) return;
  const KeyGrid& grid = At(form.gridKeyMap, tab);
  for (const Finding& finding : findings) {
    const auto here = std::ranges::find(finding.rows, grid.Row());
    if (finding.grid != tab || finding.rows.size() < 2 || here == finding.rows.end()) continue;
    const auto next = here + 1 == finding.rows.end() ? finding.rows.begin() : here + 1;
    return GoTo(tab, grid.Text(*next, Column::ActionToken));
  }
}

void BesideViews::MarkRows() {
  for (int grid = 0; grid < gridCount; ++grid) {
    auto* view = static_cast<GridView*>(views.FocusWidget(&At(form.gridKeyMap, grid)));
    if (view == nullptr) continue;
    std::vector<KeyGridModel::RowMark> marks(
        static_cast<std::size_t>(At(form.gridKeyMap, grid).Rows() - 1));
    for (const Finding& finding : findings) {
      if (finding.grid != grid) continue;
      for (const int row : finding.rows) {
        // The longer keys are at rest: it is the key before them that waits.
        if (finding.kind == FindingKind::waits && row != finding.rows.front()) continue;
        KeyGridModel::RowMark& mark = marks[static_cast<std::size_t>(row - 1)];
        mark.mark = std::max(mark.mark, MarkOf(finding.kind));
        if (!mark.tip.isEmpty()) mark.tip += "\n";
        mark.tip += FindingText(form, finding, row);
      }
    }
    view->ShowMarks(std::move(marks));
  }
}

void BesideViews::MarkTabs() {
  auto& bar = static_cast<QTabBar&>(*views.FocusWidget(&form.SSTab1));
  for (int grid = 0; grid < gridCount; ++grid) {
    const auto faults = std::ranges::count_if(findings, [grid](const Finding& finding) {
      return finding.grid == grid && finding.kind == FindingKind::refused;
    });
    const bool marked = !bar.tabIcon(grid).isNull();
    const QString tip = faults == 0 ? QString() : Word(1406).arg(faults);
    if (const QSize side(MarkSide(bar), MarkSide(bar)); bar.iconSize() != side)
      bar.setIconSize(side);
    if (marked != (faults != 0))
      bar.setTabIcon(grid,
                     faults == 0 ? QIcon() : MarkIcon(Mark::fault, bar.palette(), MarkSide(bar)));
    if (bar.tabToolTip(grid) == tip) continue;
    bar.setTabToolTip(grid, tip);
    const QString caption = Spoken(ToQt(form.SSTab1.TabCaption(grid)));
    bar.setAccessibleTabName(grid, faults == 0 ? QString() : caption + ", " + tip);
  }
}

void BesideViews::ShowLines() {
  for (int grid = 0; grid < gridCount; ++grid)
    if (auto* line = window.findChild<FindingLine*>(QString("findings(%1)").arg(grid))) {
      if (!line->goTo)
        line->goTo = [this](int where, const std::string& token) { GoTo(where, token); };
      line->Show(findings);
    }
}

void BesideViews::Refresh() {
  for (const auto& [action, text] : texts) action->setText(Word(text));
  findings = Findings(form);
  MarkRows();
  MarkTabs();
  ShowLines();
  panel->Refresh();
}

}  // namespace dialwright
