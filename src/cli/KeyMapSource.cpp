#include "cli/KeyMapSource.h"

#include <ostream>

#include "beside/KeyMapFile.h"
#include "cli/CommandLine.h"
#include "cli/HostFile.h"
#include "cli/ServerDesk.h"
#include "language/EnglishStrings.h"

namespace dialwright {

namespace {

/// The texts of a command that has no server, and so no language of a server's.
class EnglishTexts : public Messages {
 public:
  MsgBoxAnswer MsgBox(std::string_view, MsgBoxButtons, std::string_view) override {
    return MsgBoxAnswer::OK;
  }
  std::string mymyLoadString(int number) override {
    return std::string(EnglishString(number).value_or(""));
  }
};

bool IsFolder(const std::string& path) {
  std::error_code fault;
  return std::filesystem::is_directory(HostFilePath(path), fault);
}

}  // namespace

std::string ReadKeyMapFile(const std::string& path) {
  return ReadHostFile(path, longestKeyMapFile);
}

KeyMap ParsedKeyMap(const std::string& path, const std::string& bytes, Messages& strings) {
  try {
    return ParseKeyMap(bytes);
  } catch (const KeyMapFault& fault) {
    throw CommandFailure{ExitCode::unreadable, path + ": " + FaultText(strings, fault)};
  }
}

KeyMap KeyMapFrom(const std::string& source, std::ostream& words) {
  // A folder may bear a sign of numbers in its own name: what is there comes first.
  const std::size_t mark = source.rfind('#');
  const bool whole = IsFolder(source);
  if (whole || (mark != std::string::npos && IsFolder(source.substr(0, mark)))) {
    const std::string slot = whole ? "1" : source.substr(mark + 1);
    if (slot != "1" && slot != "2" && slot != "3")
      throw CommandFailure{ExitCode::wrongUse, source + ": a slot is 1, 2 or 3"};
    ServerDesk desk(whole ? source : source.substr(0, mark), slot[0] - '0', words);
    return KeyMapOf(desk.Form());
  }
  EnglishTexts texts;
  return ParsedKeyMap(source, ReadKeyMapFile(source), texts);
}

}  // namespace dialwright
