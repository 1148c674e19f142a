#pragma once

#include <QMainWindow>
#include <QTextCursor>
#include <memory>

#include "desktop/help/ChmArchive.h"
#include "desktop/help/HelpContents.h"

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace dialwright {

class HelpBrowser;

/// The window of the help: contents at the left, the page at the right, and a search over all
/// pages.
class HelpWindow : public QMainWindow {
 public:
  explicit HelpWindow(std::unique_ptr<ChmArchive> helpFile);
  ~HelpWindow() override;

  void ShowHomePage();
  /// A page of the file, as "keypad.html#find".
  void ShowPage(const QString& page);

 private:
  struct Page {
    QString name;
    QString title;
    QString text;
  };

  void BuildBar();
  void AddTopics(QTreeWidgetItem* parent, const std::vector<HelpTopic>& topics, int& left);
  void find(const QString& text);
  const std::vector<Page>& Searchable();
  void SelectTopic(const QUrl& page);

  /// Marks in the page what is searched for.
  void MarkHits();
  /// Goes to the next hit (+1) or the one before (-1), on other pages too.
  void StepToHit(int direction);
  bool StepToHitOfPage(int direction);
  void StepToFoundPage(int direction);
  void EndSearch();

  std::unique_ptr<ChmArchive> archive;
  std::vector<QTextCursor> hits;  ///< in the page that is shown, in their order
  std::vector<Page> pages;        ///< read at the first search
  HelpBrowser* browser;
  QTreeWidget* contents;
  QListWidget* found;
  QStackedWidget* side;
  QLineEdit* words;
};

}  // namespace dialwright
