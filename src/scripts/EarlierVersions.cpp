#include "scripts/EarlierVersions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <set>

#include "platform/Clock.h"
#include "platform/Failure.h"
#include "shell/Program.h"
#include "shell/frmMain.h"
#include "text/Lines.h"
#include "text/Text.h"

namespace dialwright {

namespace {

// Each server and slot has a folder of its own. In it lie contents, each named for itself, and the
// list of the versions: a line a version, its time and then path and contents of each script,
// divided by tabs. A version is there once its line is whole.
constexpr std::string_view listName = "versions.txt";
constexpr std::size_t lastVersions = 200;

/// Four words at a time, none of which waits for another.
std::uint64_t Hash(std::string_view bytes) {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
  std::array<std::uint64_t, 4> hashes{bytes.size(), 1, 2, 3};
  const auto mix = [](std::uint64_t& hash, std::uint64_t word) {
    hash = (hash ^ word) * factor;
    hash ^= hash >> 32;
  };
  for (std::array<std::uint64_t, 4> words; bytes.size() >= sizeof words;
       bytes.remove_prefix(sizeof words)) {
    std::memcpy(words.data(), bytes.data(), sizeof words);
    for (std::size_t i = 0; i < words.size(); ++i) mix(hashes.at(i), words.at(i));
  }
  while (!bytes.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = std::min(bytes.size(), sizeof word);
    std::memcpy(&word, bytes.data(), length);
    mix(hashes[0], word);
    bytes.remove_prefix(length);
  }
  for (std::size_t i = 1; i < hashes.size(); ++i) mix(hashes[0], hashes.at(i));
  return hashes[0];
}

std::string Hexadecimal(std::uint64_t number) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(number));
  return text;
}

std::string FolderOf(std::string_view path) {
  return std::string(path.substr(0, path.rfind('\\') + 1));
}

/// The folder for a slot of the server whose script this is; empty if there is no place for it.
std::string KeptFolder(Program& program, int slot, std::string_view script) {
  if (program.services.earlierFolder.empty() || script.empty()) return {};
  const std::string server = LowerCase(program.services.files.RealPath(FolderOf(script)));
  return program.services.earlierFolder + "\\" + Hexadecimal(Hash(server)) + "-" +
         std::to_string(slot) + "\\";
}

std::string Now(Clock& clock) {
  const SystemTime now = clock.Now();
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day,
                now.hour, now.minute, now.second);
  return text;
}

/// Makes a folder with those above it: the scripts that it keeps may be for their user's eyes only.
/// One that cannot be made shows when something goes into it.
void MakeFolders(FileStore& files, const std::string& folder) {
  if (files.KindOf(folder) != FileStore::Kind::none) return;
  const std::size_t parent = folder.find_last_of("\\/", folder.size() - 2);
  if (parent != std::string::npos && parent > 0) MakeFolders(files, folder.substr(0, parent));
  try {
    files.CreatePrivateFolder(folder);
  } catch (const RuntimeFailure&) {
  }
}

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  for (;;) {
    const std::size_t tab = line.find('\t');
    fields.push_back(line.substr(0, tab));
    if (tab == std::string_view::npos) return fields;
    line.remove_prefix(tab + 1);
  }
}

std::string LineOf(const EarlierVersion& version) {
  std::string line = version.time;
  for (const EarlierScript& script : version.scripts)
    line.append("\t").append(script.path).append("\t").append(script.kept);
  return line + "\n";
}

/// The versions in their order in time; a line that is not whole is none.
std::vector<EarlierVersion> ListedIn(FileStore& files, const std::string& folder) {
  std::vector<EarlierVersion> versions;
  if (folder.empty() || files.KindOf(folder + std::string(listName)) != FileStore::Kind::file)
    return versions;
  std::string list = files.Read(folder + std::string(listName));
  list.resize(list.rfind('\n') + 1);
  for (LineReader lines(list); !lines.AtEnd();) {
    const std::vector<std::string_view> fields = Fields(lines.Next());
    if (fields.size() < 3 || fields.size() % 2 == 0) continue;
    EarlierVersion version{std::string(fields[0]), {}};
    for (std::size_t i = 1; i < fields.size(); i += 2)
      version.scripts.push_back({std::string(fields[i]), std::string(fields[i + 1])});
    versions.push_back(std::move(version));
  }
  return versions;
}

void WriteFlushed(FileStore& files, const std::string& path, FileStore::Opening opening,
                  std::string_view bytes) {
  const auto file = files.Open(path, opening, true);
  file->Write(bytes);
  file->Flush();
  file->Close();
}

/// Puts contents into the folder, unless they are there; returns their name. Those of the last
/// version were on the disk before it was listed.
std::string KeepContents(FileStore& files, const std::string& folder, std::string_view bytes,
                         const EarlierVersion& last) {
  std::string start = Hexadecimal(Hash(bytes)) + "-" + std::to_string(bytes.size());
  const auto stamp = files.Stamp(folder + start);
  if (std::ranges::find(last.scripts, start, &EarlierScript::kept) != last.scripts.end() && stamp &&
      stamp->size == bytes.size())
    return start;
  std::string name = start;
  // The name may be that of others, or of some that were not written to their end.
  for (int other = 2; files.KindOf(folder + name) != FileStore::Kind::none; ++other) {
    if (files.Read(folder + name) == bytes) return name;
    name = start + "-" + std::to_string(other);
  }
  WriteFlushed(files, folder + name, FileStore::Opening::truncate, bytes);
  return name;
}

/// Lets go of versions that are neither the first nor among the last, and of their contents.
void Prune(FileStore& files, const std::string& folder, std::vector<EarlierVersion> versions) {
  if (versions.size() <= lastVersions + 1) return;
  versions.erase(versions.begin() + 1, versions.end() - lastVersions);
  std::string list;
  std::set<std::string, std::less<>> used{std::string(listName)};
  for (const EarlierVersion& version : versions) {
    list += LineOf(version);
    for (const EarlierScript& script : version.scripts) used.insert(script.kept);
  }
  files.Replace(folder + std::string(listName), list);
  for (const std::string& name : files.FileNames(folder))
    if (!used.contains(name)) files.Remove(folder + name, true);
}

/// A path that no line of the list could hold is not kept.
bool IsListable(std::string_view path) {
  return path.find_first_of("\t\r\n") == std::string_view::npos;
}

}  // namespace

std::vector<EarlierVersion> EarlierVersions(const frmMain& form) {
  Program& program = form.program;
  const std::string folder = KeptFolder(program, SelectedSlot(form), form.strMainMenuScript);
  std::vector<EarlierVersion> versions;
  try {
    versions = ListedIn(program.services.files, folder);
  } catch (const RuntimeFailure&) {
    // What cannot be read has no versions to bring back.
  }
  for (EarlierVersion& version : versions)
    for (EarlierScript& script : version.scripts) script.kept = folder + script.kept;
  std::ranges::reverse(versions);
  return versions;
}

bool KeepEarlierVersion(Program& program, int slot, const std::vector<std::string>& paths) {
  FileStore& files = program.services.files;
  const std::string folder = KeptFolder(program, slot, paths.empty() ? "" : paths.front());
  if (folder.empty()) return false;
  bool isWhole = true;
  try {
    MakeFolders(files, folder.substr(0, folder.size() - 1));
    std::vector<EarlierVersion> versions = ListedIn(files, folder);
    const EarlierVersion last = versions.empty() ? EarlierVersion{} : versions.back();
    EarlierVersion version{Now(program.services.clock), {}};
    std::string read;
    for (const std::string& path : paths) {
      const std::optional<std::string_view> known = program.profile.BytesOnDisk(path);
      if (!known && files.KindOf(path) == FileStore::Kind::none) continue;
      try {
        if (!IsListable(path)) throw RuntimeFailure(Failure::badFileName);
        if (!known) files.ReadInto(path, read);
        version.scripts.push_back({path, KeepContents(files, folder, known.value_or(read), last)});
      } catch (const RuntimeFailure&) {
        isWhole = false;
      }
    }
    if (version.scripts.empty() || version.scripts == last.scripts) return isWhole;
    versions.push_back(version);
    WriteFlushed(files, folder + std::string(listName), FileStore::Opening::append,
                 LineOf(version));
    Prune(files, folder, std::move(versions));
    return isWhole;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace dialwright
