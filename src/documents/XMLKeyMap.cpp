#include "documents/XMLKeyMap.h"

#include <memory>
#include <string>

#include "documents/HTMLKeyMap.h"
#include "documents/TaskLabels.h"
#include "messages/FailureTrap.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view sectionClosing = "     </Mappings>\r\n</KeyMapping>\r\n";

/// The spacing of this line is irregular, and the card tool's stored documents have it so.
std::string RootOpening(const frmMain& form) {
  const VersionInfo& version = form.program.server.currentVersion;
  return "<ConversationKeyMap conversationName = \"Dialwright " +
         std::to_string(SelectedSlot(form)) + "\" product= \"" +
         (version.bIsTessel != false16 ? "Tessel" : "Merid") + "\" version= \"" +
         version.strVersion + "\">\r\n";
}

std::string SectionOpening(std::string_view name) {
  return "<KeyMapping>\r\n     <MenuName>" + std::string(name) +
         "</MenuName>\r\n     <Mappings>\r\n";
}

std::string Mapping(std::string_view keys, std::string_view task) {
  return "          <Mapping>\r\n               <Keys>" + std::string(keys) +
         "</Keys>\r\n               <Task>" + std::string(task) +
         "</Task>\r\n          </Mapping>\r\n";
}

void Append(frmMain& form, std::string_view text) {
  const auto document = form.program.files.OpenTextFile(form.strXMLKeyMapFile, IOMode::appending,
                                                        false, TextFormat::systemDefault);
  document->Write(text);
  document->Close();
}

/// Appends to a document that is there; a failure is reported under the procedure's name.
void AppendIfThere(frmMain& form, std::string_view procedure, std::string_view text) {
  const FailureTrap step{form.program, FailurePrefix::fixed, procedure};
  if (form.program.files.FileExists(form.strXMLKeyMapFile)) step([&] { Append(form, text); });
}

void WriteRow(frmMain& form, std::string_view text) {
  if (form.program.files.FileExists(form.strXMLKeyMapFile)) {
    Append(form, text);
    return;
  }
  const auto document = form.program.files.CreateTextFile(form.strXMLKeyMapFile, true, false);
  document->Write(RootOpening(form) + std::string(text));
  document->Close();
}

}  // namespace

void ConstructKeyDocument(frmMain& form, std::string_view token, std::string_view keys,
                          std::string_view sectionName, bool firstRow, bool) {
  const FailureTrap step{form.program, FailurePrefix::fixed, "ConstructKeyDocument"};
  Program& program = form.program;
  if (!program.files.FileExists(program.folder + std::string(strHelpFileName))) return;
  const std::string unquoted = ReplaceAll(keys, "\"", "");
  const std::string_view bareKeys = Trim(unquoted);
  step([&] {
    std::string text = firstRow ? SectionOpening(sectionName) : std::string();
    if (!bareKeys.empty()) text += Mapping(bareKeys, Trim(TaskLabel(program, UpperCase(token))));
    WriteRow(form, text);
  });
  if (form.chkGenerateHelp.Value() != 0) step([&] { FillPlaceholder(form, token, bareKeys); });
}

void FinishXMLMappingSection(frmMain& form) {
  AppendIfThere(form, "FinishXMLMappingSection", sectionClosing);
}

void AddEmptySection(frmMain& form, std::string_view sectionName) {
  AppendIfThere(form, "AddEmptySection", SectionOpening(sectionName) + std::string(sectionClosing));
}

void FinishXMLDocument(frmMain& form) {
  AppendIfThere(form, "FinishXMLDocument", "</ConversationKeyMap>\r\n");
}

}  // namespace dialwright
