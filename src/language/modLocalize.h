#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"
#include "platform/Languages.h"

namespace dialwright {

class FileSystemObject;
class Messages;
struct Form;

/// A language of this system that no operating system knows: "English (TDD/TTY)", code ENX.
inline constexpr std::int32_t languageENX = 33801;

/// The id of a three-letter language code, compared exactly; any other code gives that of English.
std::int32_t GetLanguageId(std::string_view code);

/// The font that a language's script needs.
ControlFont LanguageFont(std::int32_t language);

/// The language of the moment and the libraries beside the program.
class modLocalize {
 public:
  /// `libraryFolder` is without a backslash at its end; a library's name there begins with
  /// `programName` and an underscore. `loadedForms` are those that take a language's font. All
  /// that is given outlives this.
  modLocalize(Messages& boxes, Languages& languages, FileSystemObject& fileSystem,
              const std::string& libraryFolder, const std::string& programName,
              const std::vector<Form*>& loadedForms)
      : messages(boxes),
        system(languages),
        files(fileSystem),
        folder(libraryFolder),
        programFile(programName),
        forms(loadedForms) {}

  /// A text by its number: the loaded library's, else the program's own. A number that neither has
  /// is reported and gives the empty text.
  std::string mymyLoadString(int number);

  /// Loads the library of `lCurrentLanguage`, lists the libraries beside the program, and gives all
  /// loaded forms the language's font.
  void InitalizeLanguages();

  /// The abbreviated language name, "ERR" if the system has none.
  std::string GetLanguageCode(std::int32_t language);
  /// The display name, "(error)" if the system has none.
  std::string GetLanguageName(std::int32_t language);
  std::string GetLanguageNameFromCode(std::string_view code);
  void ApplyLanguageFontToForm(Form& form);

  std::int32_t lCurrentLanguage = 0;       ///< 0 until the first InitalizeLanguages
  LibraryHandle hLanguageModule = 0;       ///< 0 is the program's own table
  std::vector<std::string> astrLanguages;  ///< the codes found; one empty entry when there is none

 private:
  Messages& messages;
  Languages& system;
  FileSystemObject& files;
  const std::string& folder;
  const std::string& programFile;
  const std::vector<Form*>& forms;
};

}  // namespace dialwright
