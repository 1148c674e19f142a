#include "beside/KeyMapExchange.h"

#include "beside/KeyMapFile.h"
#include "beside/SlotReader.h"
#include "beside/TakeIn.h"
#include "platform/Failure.h"
#include "shell/Program.h"
#include "text/Text.h"

namespace dialwright {

namespace {

enum TextNumber {
  notTakenIn = 1502,
  leftOut = 1503,
  notWritten = 1504,
  notRead = 1505,
  importStep = 1506,
  copyStep = 1507,
  notCopied = 1508,
};

std::string Text(const frmMain& form, int number, std::string_view first,
                 std::string_view second = {}) {
  const std::string text = ReplaceAll(form.program.mymyLoadString(number), "%1", first);
  return ReplaceAll(text, "%2", second);
}

/// The file's bytes; of one that is too large as many as a reader needs to say so.
std::string BytesOf(FileStore& files, std::string_view path) {
  const auto stamp = files.Stamp(path);
  if (!stamp && files.KindOf(path) != FileStore::Kind::file)
    throw RuntimeFailure(Failure::fileNotFound);
  if (stamp && stamp->size > longestKeyMapFile) return std::string(longestKeyMapFile + 1, ' ');
  return files.Read(path);
}

void WriteWhole(FileStore& files, std::string_view path, std::string_view bytes) {
  if (files.KindOf(path) == FileStore::Kind::file) return files.Replace(path, bytes);
  const auto file = files.Open(path, FileStore::Opening::truncate, true);
  file->Write(bytes);
  file->Close();
}

std::string SlotName(const frmMain& form, int slot) {
  const MenuItem* items[] = {&form.mnuSelectDialwright, &form.mnuSelectDialwright2,
                             &form.mnuSelectDialwright3};
  return ReplaceAll(items[slot - 1]->Caption(), "&", "");
}

}  // namespace

KeyMapNews ExportKeyMap(const frmMain& form, std::string_view path) {
  try {
    WriteWhole(form.program.services.files, path, KeyMapText(KeyMapOf(form)));
    return {};
  } catch (const RuntimeFailure& failure) {
    return {Text(form, notWritten, path, failure.description), {}};
  }
}

KeyMapNews ImportKeyMap(History& history, const frmMain& form, std::string_view path) {
  try {
    const KeyMap map = ParseKeyMap(BytesOf(form.program.services.files, path));
    return {{}, TakeIn(history, form, map, form.program.mymyLoadString(importStep))};
  } catch (const RuntimeFailure& failure) {
    return {Text(form, notRead, path, failure.description), {}};
  } catch (const KeyMapFault& fault) {
    return {Text(form, notTakenIn, path) + "\r\n\r\n" + FaultText(form.program, fault), {}};
  }
}

KeyMapNews CopyKeysFrom(History& history, const frmMain& form, int slot) {
  const std::string name = SlotName(form, slot);
  try {
    const KeyMap map = KeyMapOfSlot(form.program, slot);
    return {{}, TakeIn(history, form, map, Text(form, copyStep, name))};
  } catch (const SlotFault& fault) {
    return {Text(form, notCopied, name) + "\r\n\r\n" + fault.text, {}};
  }
}

std::string SkippedText(const frmMain& form, const std::vector<SkippedAction>& skipped) {
  if (skipped.empty()) return {};
  std::string text = form.program.mymyLoadString(leftOut);
  for (const SkippedAction& action : skipped)
    text += "\r\n" + form.SSTab1.TabCaption(action.grid) + ": " + action.action;
  return text;
}

int SlotsOf(const frmMain& form) { return form.mnuSelectKeyMap.Visible ? slotCount : 1; }

}  // namespace dialwright
