#include "World.h"

#include <fstream>

#include "platform/Failure.h"
#include "shell/events/MainEvents.h"
#include "shell/frmMain.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::int32_t englishLanguage = 1033;
constexpr std::string_view programFolder = "C:\\Dialwright";
/// The user's own data lie on a drive that neither the server nor the program has.
constexpr std::string_view earlierFolder = "U:\\Dialwright\\Earlier";

std::string LockKey(std::string_view path) { return LowerCase(path); }

}  // namespace

void LockableFiles::Lock(std::string_view path) { locked.insert(LockKey(path)); }
void LockableFiles::Unlock(std::string_view path) { locked.erase(LockKey(path)); }

bool LockableFiles::IsLocked(std::string_view path) const { return locked.contains(LockKey(path)); }

void LockableFiles::RefuseLocked(std::string_view path) const {
  if (IsLocked(path)) throw RuntimeFailure(Failure::permissionDenied);
}

std::optional<FileStamp> LockableFiles::Stamp(std::string_view path) {
  // What cannot be opened has nothing to be known by: whoever kept a copy has to open it again.
  if (IsLocked(path)) return {};
  return files.Stamp(path);
}

std::vector<std::string> LockableFiles::FileNames(std::string_view folder) {
  return files.FileNames(folder);
}

std::string LockableFiles::Read(std::string_view path) {
  RefuseLocked(path);
  return files.Read(path);
}

void LockableFiles::ReadInto(std::string_view path, std::string& bytes) {
  RefuseLocked(path);
  files.ReadInto(path, bytes);
}

std::unique_ptr<OutputFile> LockableFiles::Open(std::string_view path, Opening opening,
                                                bool create) {
  RefuseLocked(path);
  return files.Open(path, opening, create);
}

void LockableFiles::Replace(std::string_view path, std::string_view bytes) {
  RefuseLocked(path);
  files.Replace(path, bytes);
}

void LockableFiles::Copy(std::string_view from, std::string_view to, bool overwrite) {
  RefuseLocked(from);
  RefuseLocked(to);
  files.Copy(from, to, overwrite);
}

void LockableFiles::Remove(std::string_view path, bool force) {
  RefuseLocked(path);
  files.Remove(path, force);
}

void LockableFiles::CreateFolder(std::string_view path) { files.CreateFolder(path); }

std::string LockableFiles::RealPath(std::string_view path) { return files.RealPath(path); }

bool LockableFiles::IsWritable(std::string_view path) {
  return !IsLocked(path) && files.IsWritable(path);
}

std::unique_ptr<FolderLock> LockableFiles::Lock(std::string_view folder,
                                                std::chrono::milliseconds patience) {
  return files.Lock(folder, patience);
}

void LockableFiles::RemoveLeftovers(std::string_view folder) { files.RemoveLeftovers(folder); }

MsgBoxAnswer ScriptedMessages::MsgBox(std::string_view text, MsgBoxButtons buttons,
                                      std::string_view title) {
  const std::string shownTitle = title.empty() ? "" : " title " + Shown(title);
  if (buttons == MsgBoxButtons::OK) {
    printer.Line("msgbox OK " + Shown(text) + shownTitle);
    return MsgBoxAnswer::OK;
  }
  if (answers.empty()) {
    printer.Line("error: no answer waits for " + Shown(text));
    return MsgBoxAnswer::No;
  }
  const MsgBoxAnswer answer = answers.front();
  answers.pop_front();
  printer.Line("msgbox YesNo " + Shown(text) + shownTitle +
               (answer == MsgBoxAnswer::Yes ? " Yes" : " No"));
  return answer;
}

void PrintedProcesses::Shell(std::string_view commandLine, WindowState state,
                             std::string_view currentFolder) {
  printer.Line("shell " + std::to_string(static_cast<int>(state)) + " " + Shown(commandLine) +
               " in " + Shown(currentFolder));
}

WindowHandle PrintedHelp::HtmlHelpA(WindowHandle, std::string_view path, unsigned command,
                                    std::uintptr_t) {
  printer.Line("help " + Shown(path) + " " + std::to_string(command));
  shown = 1;
  return shown;
}

void PrintedHelp::SendMessageA(WindowHandle, unsigned, std::uintptr_t, std::uintptr_t) {
  printer.Line("help closed");
  shown = 0;
}

namespace {

class ScriptedComponent : public ScriptChecksumComponent {
 public:
  explicit ScriptedComponent(ScriptedChecksums& script) : checksums(script) {}
  std::int32_t CalculateFileChecksum(std::int32_t stamp, std::string_view path) override {
    return checksums.Answer(stamp, path);
  }

 private:
  ScriptedChecksums& checksums;
};

}  // namespace

std::unique_ptr<ScriptChecksumComponent> ScriptedChecksums::CreateObject() {
  if (!present) throw RuntimeFailure(Failure::cannotCreateObject);
  return std::make_unique<ScriptedComponent>(*this);
}

std::int32_t ScriptedChecksums::Answer(std::int32_t stamp, std::string_view path) {
  printer.Line("component " + std::to_string(stamp) + " " + Shown(path));
  if (answers.empty()) return own.CreateObject()->CalculateFileChecksum(stamp, path);
  const std::optional<std::int32_t> next = answers.front();
  if (answers.size() > 1) answers.pop_front();
  if (!next) throw RuntimeFailure(Failure::cannotCreateObject);
  return *next;
}

World::World(Printer& output)
    : disk(root),
      printer(output),
      files(disk),
      processes(output),
      messages(output),
      checksums(files, output),
      languages(root, files, englishLanguage),
      help(output),
      program(Services{files, registry, clock, processes, messages, checksums, languages, help,
                       std::string(earlierFolder)},
              std::string(programFolder), "Dialwright") {
  ConnectEvents(*program.main);
  for (const std::string_view folder : {programFolder, earlierFolder})
    std::filesystem::create_directories(HostPath(folder));
}

World::~World() = default;

void World::MakeFile(std::string_view path, std::string_view bytes) {
  const std::filesystem::path host = HostPath(path);
  std::filesystem::create_directories(host.parent_path());
  std::ofstream file(host, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw TranscriptError{"cannot make " + std::string(path)};
}

}  // namespace dialwright
