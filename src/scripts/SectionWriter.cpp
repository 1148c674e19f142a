#include "scripts/SectionWriter.h"

#include "documents/XMLKeyMap.h"
#include "scripts/modCommon.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

SectionWriter::SectionWriter(frmMain& theForm, const MenuSection& theSection,
                             std::string_view filePath, bool createKeyDocument, bool second)
    : form(theForm),
      section(theSection),
      path(filePath),
      document(createKeyDocument),
      secondFlag(second),
      batch(theForm.program.profile, filePath) {}

RowToSave SectionWriter::Row(int row) {
  const KeyGrid& grid = At(form.gridKeyMap, section.grid);
  RowToSave values{UpperCase(grid.Text(row, Column::ActionToken)),
                   BlankAndQuoted(grid.Text(row, Column::KeyAssignment)),
                   " " + grid.Text(row, Column::Order)};
  if (document) {
    ConstructKeyDocument(form, values.token, values.keyValue, section.documentName, firstRow,
                         secondFlag);
    firstRow = false;
  }
  return values;
}

void SectionWriter::Write(std::string_view key, std::string_view value) {
  form.program.profile.WritePrivateProfileStringA(macrosSection, key, value, path);
}

void SectionWriter::Finish() {
  if (document) FinishXMLMappingSection(form);
}

}  // namespace dialwright
