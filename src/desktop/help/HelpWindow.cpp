#include "desktop/help/HelpWindow.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <functional>
#include <utility>

#include "desktop/QtText.h"
#include "desktop/Texts.h"
#include "desktop/help/HelpBrowser.h"

namespace dialwright {

namespace {

constexpr int pageRole = Qt::UserRole;

/// A page's name without the place in it, for comparison.
QString PageName(const QString& page) {
  const QString name = page.section('#', 0, 0).toLower();
  return name.startsWith('/') ? name : "/" + name;
}

/// What the tree needs to show all its lines whole. Before it is on the screen it does not know.
int WidestTopic(QTreeWidget& tree) {
  int widest = 0;
  for (QTreeWidgetItemIterator item(&tree); *item != nullptr; ++item) {
    int depth = 1;
    for (const QTreeWidgetItem* above = (*item)->parent(); above != nullptr;
         above = above->parent())
      ++depth;
    widest = std::max(widest, depth * tree.indentation() +
                                  tree.fontMetrics().horizontalAdvance((*item)->text(0)));
  }
  return widest;
}

}  // namespace

HelpWindow::HelpWindow(std::unique_ptr<ChmArchive> helpFile)
    : archive(std::move(helpFile)),
      browser(new HelpBrowser(*archive)),
      contents(new QTreeWidget),
      found(new QListWidget),
      side(new QStackedWidget),
      words(new QLineEdit) {
  setObjectName("helpWindow");
  const QString title = HelpText(archive->Title());
  setWindowTitle(title.isEmpty() ? texts::Help() : title);
  browser->setObjectName("helpPage");
  contents->setObjectName("helpContents");
  contents->setAccessibleName(texts::Contents());
  contents->setHeaderHidden(true);
  found->setObjectName("helpFound");
  found->setWordWrap(true);

  side->addWidget(contents);
  side->addWidget(found);
  auto* halves = new QSplitter;
  halves->addWidget(side);
  halves->addWidget(browser);
  halves->setStretchFactor(1, 1);
  halves->setChildrenCollapsible(false);
  setCentralWidget(halves);
  BuildBar();

  int left = 10000;
  AddTopics(nullptr,
            ReadHelpContents(HelpText(archive->Read(archive->ContentsFile()).value_or(""))), left);
  contents->expandAll();
  contents->header()->setStretchLastSection(false);
  contents->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  const int character = fontMetrics().averageCharWidth();
  const int sideWidth = WidestTopic(*contents) + 5 * character;  // and its scroll bar
  const int pageWidth = character * 134;                         // as the widest picture
  resize(sideWidth + pageWidth, fontMetrics().height() * 40);
  halves->setSizes({sideWidth, pageWidth});

  connect(contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    const QString page = item != nullptr ? item->data(0, pageRole).toString() : QString();
    if (!page.isEmpty()) browser->ShowPage(page);
  });
  connect(found, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    const QString page = item != nullptr ? item->data(pageRole).toString() : QString();
    if (!page.isEmpty()) browser->ShowPage(page);
  });
  connect(browser, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
    SelectTopic(page);
    MarkHits();
  });
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::ShowHomePage() { ShowPage(ToQt(archive->HomePage())); }

void HelpWindow::ShowPage(const QString& page) { browser->ShowPage(page); }

void HelpWindow::BuildBar() {
  auto* bar = addToolBar(texts::Help());
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QAction* back = bar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), texts::Back());
  QAction* forward =
      bar->addAction(style()->standardIcon(QStyle::SP_ArrowForward), texts::Forward());
  back->setObjectName("helpBack");
  forward->setObjectName("helpForward");
  back->setShortcut(QKeySequence::Back);
  forward->setShortcut(QKeySequence::Forward);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(back, &QAction::triggered, browser, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, browser, &QTextBrowser::forward);
  connect(browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  auto* label = new QLabel(texts::Find());
  label->setBuddy(words);
  label->setContentsMargins(16, 0, 6, 0);
  words->setObjectName("helpFind");
  words->setClearButtonEnabled(true);
  words->setMaximumWidth(fontMetrics().averageCharWidth() * 40);
  bar->addWidget(label);
  bar->addWidget(words);
  connect(words, &QLineEdit::textChanged, this, [this](const QString& text) {
    find(text);
    MarkHits();
  });
  connect(words, &QLineEdit::returnPressed, this, [this] { StepToHit(+1); });
  const std::pair<QKeySequence, std::function<void()>> keys[] = {
      {QKeySequence(Qt::CTRL | Qt::Key_F),
       [this] {
         words->setFocus();
         words->selectAll();
       }},
      {QKeySequence(Qt::Key_F3), [this] { StepToHit(+1); }},
      {QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { StepToHit(-1); }},
      {QKeySequence(Qt::Key_Escape), [this] { EndSearch(); }},
  };
  for (const auto& [key, run] : keys)
    connect(new QShortcut(key, this), &QShortcut::activated, this, run);
}

void HelpWindow::MarkHits() {
  hits.clear();
  const QTextDocument& page = *browser->document();
  for (const QString& word : words->text().split(' ', Qt::SkipEmptyParts))
    for (QTextCursor hit = page.find(word); !hit.isNull(); hit = page.find(word, hit))
      hits.push_back(hit);
  std::sort(hits.begin(), hits.end());
  QList<QTextEdit::ExtraSelection> marks;
  for (const QTextCursor& hit : hits) {
    QTextCharFormat marked;
    marked.setBackground(QColor(0xff, 0xd9, 0x66));
    marked.setForeground(Qt::black);
    marks.push_back({hit, marked});
  }
  browser->setExtraSelections(marks);
}

bool HelpWindow::StepToHitOfPage(int direction) {
  const QTextCursor from = browser->textCursor();
  const auto shown = [this](const QTextCursor& hit) {
    browser->setTextCursor(hit);
    browser->ensureCursorVisible();
    return true;
  };
  // On a page that has just come up the cursor stands at the beginning, and the first hit may too.
  const int place = from.hasSelection() ? from.selectionStart() : -1;
  if (direction > 0) {
    for (const QTextCursor& hit : hits)
      if (hit.selectionStart() > place) return shown(hit);
  } else {
    for (auto hit = hits.rbegin(); hit != hits.rend(); ++hit)
      if (place < 0 || hit->selectionStart() < place) return shown(*hit);
  }
  return false;
}

void HelpWindow::StepToFoundPage(int direction) {
  const int count = found->count();
  const QString page = PageName(browser->source().path());
  int row = direction > 0 ? -1 : count;
  for (int each = 0; each < count; ++each)
    if (PageName(found->item(each)->data(pageRole).toString()) == page) row = each;
  row = (row + direction + count) % count;
  found->setCurrentRow(row);
  browser->ShowPage(found->item(row)->data(pageRole).toString());
  browser->moveCursor(QTextCursor::Start);
  MarkHits();
}

void HelpWindow::StepToHit(int direction) {
  if (words->text().trimmed().isEmpty() || StepToHitOfPage(direction)) return;
  // A page may bear the words in its title alone: so all are tried, the present one again at last.
  const bool any = found->count() > 0 && (found->item(0)->flags() & Qt::ItemIsEnabled) != 0;
  for (int pagesLeft = any ? found->count() : 0; pagesLeft > 0; --pagesLeft) {
    StepToFoundPage(direction);
    if (StepToHitOfPage(direction)) return;
  }
}

void HelpWindow::EndSearch() {
  words->clear();
  browser->setFocus();
}

void HelpWindow::AddTopics(QTreeWidgetItem* parent, const std::vector<HelpTopic>& topics,
                           int& left) {
  for (const HelpTopic& topic : topics) {
    if (left-- <= 0) return;
    auto* item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(contents);
    item->setText(0, topic.title);
    item->setToolTip(0, topic.title);
    item->setData(0, pageRole, topic.page);
    AddTopics(item, topic.topics, left);
  }
}

void HelpWindow::SelectTopic(const QUrl& page) {
  // A topic that leads to the same page stays selected: several may.
  const QString name = PageName(page.path());
  const QTreeWidgetItem* current = contents->currentItem();
  if (current != nullptr && PageName(current->data(0, pageRole).toString()) == name) return;
  for (QTreeWidgetItemIterator item(contents); *item != nullptr; ++item)
    if (PageName((*item)->data(0, pageRole).toString()) == name) {
      const QSignalBlocker quiet(contents);
      contents->setCurrentItem(*item);
      return;
    }
}

const std::vector<HelpWindow::Page>& HelpWindow::Searchable() {
  if (!pages.empty()) return pages;
  for (const std::string& name : archive->Pages()) {
    QTextDocument document;
    document.setHtml(HelpText(archive->Read(name).value_or("")));
    const QString title = document.metaInformation(QTextDocument::DocumentTitle);
    pages.push_back({ToQt(name), title.isEmpty() ? ToQt(name) : title, document.toPlainText()});
  }
  std::stable_sort(pages.begin(), pages.end(), [](const Page& a, const Page& b) {
    return QString::localeAwareCompare(a.title, b.title) < 0;
  });
  return pages;
}

void HelpWindow::find(const QString& text) {
  const QStringList wanted = text.split(' ', Qt::SkipEmptyParts);
  side->setCurrentWidget(wanted.isEmpty() ? static_cast<QWidget*>(contents) : found);
  found->clear();
  if (wanted.isEmpty()) return;
  for (const Page& page : Searchable()) {
    const bool all = std::all_of(wanted.begin(), wanted.end(), [&page](const QString& word) {
      return page.text.contains(word, Qt::CaseInsensitive) ||
             page.title.contains(word, Qt::CaseInsensitive);
    });
    if (!all) continue;
    auto* item = new QListWidgetItem(page.title, found);
    item->setData(pageRole, page.name);
  }
  if (found->count() == 0) {
    auto* nothing = new QListWidgetItem(texts::NoPageFound(), found);
    nothing->setFlags(Qt::NoItemFlags);
  }
}

}  // namespace dialwright
