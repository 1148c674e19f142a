#pragma once

#include <string_view>

namespace dialwright {

struct frmMain;

/// Writes one row of the key map documents: to the XML key map, and into the HTML page if that is
/// wanted. Writes nothing when there is no page. `keys` may carry quotes and blanks; `firstRow`
/// opens the section. The last argument is not looked at.
void ConstructKeyDocument(frmMain& form, std::string_view token, std::string_view keys,
                          std::string_view sectionName, bool firstRow, bool unused);

/// Closes a section of the XML key map. Like the two below, does nothing when there is none.
void FinishXMLMappingSection(frmMain& form);
/// A section without a mapping.
void AddEmptySection(frmMain& form, std::string_view sectionName);
/// Ends the XML key map.
void FinishXMLDocument(frmMain& form);

}  // namespace dialwright
