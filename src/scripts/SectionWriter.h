#pragma once

#include <string>
#include <string_view>

#include "files/PrivateProfile.h"

namespace dialwright {

struct frmMain;

/// One section of a save.
struct MenuSection {
  int grid;
  std::string_view documentName;  ///< its name in the key map documents
};

/// One row of a grid as a save writes it.
struct RowToSave {
  std::string token;       ///< in upper case
  std::string keyValue;    ///< a blank and the key cell as it stands, in quotation marks
  std::string orderValue;  ///< a blank and the order cell as it stands
};

/// Writes one section of a save: its entries in one batch, its rows to the key map documents if
/// they are wanted. The results of the writes are not looked at.
class SectionWriter {
 public:
  SectionWriter(frmMain& theForm, const MenuSection& theSection, std::string_view filePath,
                bool createKeyDocument, bool second);

  /// The row's values; feeds the documents with them.
  RowToSave Row(int row);
  void Write(std::string_view key, std::string_view value);
  /// Closes the section in the documents.
  void Finish();

 private:
  frmMain& form;
  const MenuSection& section;
  std::string path;
  bool document;
  bool secondFlag;
  bool firstRow = true;
  ProfileBatch batch;
};

}  // namespace dialwright
