#include "desktop/help/HelpBrowser.h"

#include <QDesktopServices>

#include "desktop/QtText.h"
#include "desktop/help/HelpContents.h"

namespace dialwright {

namespace {

const QString archiveScheme = QStringLiteral("help");

/// The file inside the archive that an address means: the viewers of other systems write the
/// archive's name in front of it.
QString PathInside(const QUrl& url) {
  const QString path = url.path();
  const qsizetype inside = path.lastIndexOf("::");
  return inside < 0 ? path : path.mid(inside + 2);
}

}  // namespace

HelpBrowser::HelpBrowser(const ChmArchive& helpFile, QWidget* parent)
    : QTextBrowser(parent), archive(helpFile) {
  setOpenLinks(true);
  // The pages bring colours of their own, which are made for paper.
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
}

void HelpBrowser::ShowPage(const QString& page) {
  QUrl base;
  base.setScheme(archiveScheme);
  base.setPath("/");
  setSource(base.resolved(QUrl(page)));
}

void HelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  const QString scheme = url.scheme();
  if (scheme == "http" || scheme == "https") {
    QDesktopServices::openUrl(url);
    return;
  }
  QTextBrowser::doSetSource(url, type);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl url = source().resolved(name);
  const auto bytes = archive.Read(FromQt(PathInside(url)));
  if (!bytes) return {};
  if (type == QTextDocument::ImageResource) return QByteArray::fromStdString(*bytes);
  return HelpText(*bytes);
}

}  // namespace dialwright
