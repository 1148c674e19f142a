#pragma once

#include <QTranslator>
#include <cstdint>

namespace dialwright {

class Program;

/// Lets the toolkit and the window's own texts speak the language of the moment: the toolkit's
/// words from the program folder (translations/), the window's from the
/// string table.
class Translations {
 public:
  explicit Translations(Program& theProgram);
  ~Translations();

  /// Takes over the language that is in force now; returns whether it is another one.
  bool Refresh();

 private:
  /// The texts of Texts.h, found in the string table by their English.
  class Own : public QTranslator {
   public:
    explicit Own(Program& theProgram) : program(theProgram) {}
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* english, const char* about,
                      int count) const override;

   private:
    Program& program;
  };

  Program& program;
  Own own;
  QTranslator toolkit;
  QString spoken;  ///< the toolkit's language; empty for English
};

/// The language that the program speaks, as the code of its library; empty for its own English.
std::string LanguageInForce(Program& program);

}  // namespace dialwright
