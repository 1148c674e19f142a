#pragma once

#include <QTextBrowser>

#include "desktop/help/ChmArchive.h"

namespace dialwright {

/// Shows the pages of a help file: links, pictures and style sheets come out of the file as well.
/// The pages' colours are made for light paper; on a dark desktop they take the desktop's.
class HelpBrowser : public QTextBrowser {
 public:
  explicit HelpBrowser(const ChmArchive& helpFile, QWidget* parent = nullptr);

  /// Shows a page as a table of contents or a link names it, with its place behind a "#".
  void ShowPage(const QString& page);

 protected:
  void changeEvent(QEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

 private:
  const ChmArchive& archive;
};

}  // namespace dialwright
