#include "desktop/help/HelpContents.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>

#include "desktop/QtText.h"
#include "text/Ansi.h"

namespace dialwright {

namespace {

constexpr int deepestList = 32;
constexpr int mostTopics = 10000;

QString Attribute(const QString& tag, const char* name) {
  const QRegularExpression pattern(
      QStringLiteral("\\b%1\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')").arg(QLatin1String(name)),
      QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = pattern.match(tag);
  return QTextDocumentFragment::fromHtml(match.captured(1) + match.captured(2)).toPlainText();
}

/// A sitemap, tag by tag.
class SitemapReader {
 public:
  void Object(const QString& attributes) {
    inTopic = attributes.contains("text/sitemap", Qt::CaseInsensitive);
    topic = {};
  }
  void Parameter(const QString& attributes) {
    if (!inTopic) return;
    const QString key = Attribute(attributes, "name").toLower();
    if (key == "name" && topic.title.isEmpty()) topic.title = Attribute(attributes, "value");
    if (key == "local") topic.page = Attribute(attributes, "value");
  }
  void EndOfObject() {
    if (inTopic && !topic.title.isEmpty()) {
      lists.back()->push_back(topic);
      ++count;
    }
    inTopic = false;
  }
  void List() {
    std::vector<HelpTopic>& current = *lists.back();
    const bool nested = !current.empty() && static_cast<int>(lists.size()) < deepestList;
    lists.push_back(nested ? &current.back().topics : &current);
  }
  void EndOfList() {
    if (lists.size() > 1) lists.pop_back();
  }

  bool Full() const { return count == mostTopics; }
  std::vector<HelpTopic> Topics() const { return roots; }

 private:
  std::vector<HelpTopic> roots;
  /// The list that grows at each depth: a topic's own list opens behind the topic.
  std::vector<std::vector<HelpTopic>*> lists{&roots};
  bool inTopic = false;
  HelpTopic topic;
  int count = 0;
};

}  // namespace

std::vector<HelpTopic> ReadHelpContents(const QString& sitemap) {
  static const QRegularExpression tagPattern(
      QStringLiteral("<\\s*(/?)\\s*(ul|object|param)\\b([^>]*)>"),
      QRegularExpression::CaseInsensitiveOption);
  SitemapReader reader;
  for (auto tags = tagPattern.globalMatch(sitemap); tags.hasNext() && !reader.Full();) {
    const QRegularExpressionMatch tag = tags.next();
    const QString name = tag.captured(1) + tag.captured(2).toLower();
    if (name == "object") reader.Object(tag.captured(3));
    if (name.endsWith("param")) reader.Parameter(tag.captured(3));
    if (name == "/object") reader.EndOfObject();
    if (name == "ul") reader.List();
    if (name == "/ul") reader.EndOfList();
  }
  return reader.Topics();
}

QString HelpText(const std::string& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = utf8(QByteArrayView(bytes));
  return utf8.hasError() ? ToQt(AnsiToUtf8(bytes)) : text;
}

}  // namespace dialwright
