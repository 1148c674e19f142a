#include "documents/HTMLKeyMap.h"

#include <memory>
#include <string>

#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view namePlaceholder = "%CONV_NAME%";

constexpr PageTemplate templates[] = {
    {{5, 0, 0, 1}, "\\Blank_Map_Template_50.htm"},
    {{4, 2, 0, 38}, "\\Blank_Map_Template.htm"},
    {{}, "\\Blank_Map_TemplatePre42.htm"},
};

std::string TemplatePath(const Program& program) {
  for (const PageTemplate& candidate : templates)
    if (candidate.since.IsOpen(program.server)) return program.folder + std::string(candidate.name);
  return {};
}

std::string PagePath(const Program& program) {
  return program.folder + std::string(strHelpFileName);
}

/// The first slot's name has no number here.
std::string ConversationName(const frmMain& form) {
  const int slot = SelectedSlot(form);
  return slot == 1 ? "Dialwright" : "Dialwright " + std::to_string(slot);
}

std::string ReadAll(FileSystemObject& files, const std::string& path) {
  const auto page = files.OpenTextFile(path, IOMode::reading, false, TextFormat::systemDefault);
  // A page without any text, as a write that failed leaves it, holds no placeholder: that failure
  // has been reported, and not again at every row behind it.
  std::string text = page->AtEndOfStream() ? std::string() : page->ReadAll();
  page->Close();
  return text;
}

}  // namespace

std::span<const PageTemplate> PageTemplates() { return templates; }

void CreateKeyMapHTMLFromTemplate(frmMain& form) {
  Program& program = form.program;
  FileSystemObject& files = program.files;
  const std::string page = PagePath(program);
  if (files.FileExists(page)) files.DeleteFile(page, true);
  const std::string source = TemplatePath(program);
  if (!files.FileExists(source)) {
    program.MsgBox(program.mymyLoadString(1146));
    return;
  }
  files.CopyFile(source, page, true);
}

void FillPlaceholder(frmMain& form, std::string_view token, std::string_view keys) {
  FileSystemObject& files = form.program.files;
  const std::string path = PagePath(form.program);
  std::string text = ReadAll(files, path);
  if (ContainsIgnoringCase(text, namePlaceholder))
    text = ReplaceAll(text, namePlaceholder, ConversationName(form));
  const std::string placeholder = "%" + std::string(Trim(token)) + "%";
  if (!ContainsIgnoringCase(text, placeholder)) return;
  text = ReplaceAllIgnoringCase(text, placeholder, keys);

  files.DeleteFile(path, true);
  const auto page = files.CreateTextFile(path, true, true);
  page->Write(text);
  page->Close();
}

}  // namespace dialwright
