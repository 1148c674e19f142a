// The window in each language that is shipped.
#include <QFontInfo>
#include <QFontMetricsF>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <filesystem>
#include <map>

#include "WindowTest.h"
#include "desktop/LanguageFontResolver.h"
#include "language/modLocalize.h"

namespace dialwright {

class LanguagesTest : public WindowTest {
 protected:
  LanguagesTest() {
    for (const auto& file : std::filesystem::directory_iterator(DIALWRIGHT_PROGRAM_DIR))
      if (file.path().extension() == ".dll") {
        const std::string name = "C:\\Dialwright\\" + file.path().filename().string();
        std::filesystem::copy_file(file, world.HostPath(name));
      }
  }

  /// Notes the text under its underlined letter, if it has one.
  static void Note(std::multimap<QString, QString>& letters, const QString& text) {
    if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
      letters.emplace(key.toString(), text);
  }

  static void ExpectApart(const std::multimap<QString, QString>& letters,
                          const std::string& where) {
    for (const auto& [letter, text] : letters)
      EXPECT_EQ(letters.count(letter), 1U) << where << ": " << text.toStdString();
  }

  void CheckLetters(const std::string& language) {
    std::multimap<QString, QString> shown;
    for (const QAction* action : window.menuBar()->actions())
      if (action->isVisible()) Note(shown, action->text());
    for (const auto* button : window.findChildren<QAbstractButton*>())
      if (button->isVisible()) Note(shown, button->text());
    for (const auto* label : window.findChildren<QLabel*>())
      if (label->isVisible() && label->buddy() != nullptr) Note(shown, label->text());
    ExpectApart(shown, language);
    for (const auto* menu : window.findChildren<QMenu*>()) {
      std::multimap<QString, QString> items;
      for (const QAction* action : menu->actions())
        if (action->isVisible()) Note(items, action->text());
      ExpectApart(items, language + ", " + menu->objectName().toStdString());
    }
  }
};

TEST_F(LanguagesTest, NoLetterIsUnderlinedTwiceInAMenuOrInTheWindow) {
  user.Click("mnuAbout");
  const std::size_t count = world.program.language.astrLanguages.size();
  EXPECT_EQ(count, 7U);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(user.Click("mnuLanguageList(" + std::to_string(i) + ")"), Outcome::done);
    user.Click("cmdOK");
    for (int tab = 0; tab < TabStrip::tabCount; ++tab) {
      user.Tab(tab);
      CheckLetters(world.program.language.astrLanguages[i]);
    }
    user.Click("mnuAbout");
  }
}

TEST_F(LanguagesTest, NoScriptIsSetInATypewritersFontWhereAnotherIsInstalled) {
  for (const std::int32_t language : {1041, 1042, 1028, 2052}) {
    const QFont font = LanguageFont(LanguageFont(language));
    const QFontMetricsF metrics(font);
    EXPECT_NE(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W'))
        << language << ' ' << QFontInfo(font).family().toStdString();
  }
}

}  // namespace dialwright
