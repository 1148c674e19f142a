#pragma once

#include <QMainWindow>
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

  std::unique_ptr<ChmArchive> archive;
  std::vector<Page> pages;  ///< read at the first search
  HelpBrowser* browser;
  QTreeWidget* contents;
  QListWidget* found;
  QStackedWidget* side;
  QLineEdit* words;
};

}  // namespace dialwright
