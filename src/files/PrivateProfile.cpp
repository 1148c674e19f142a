#include "files/PrivateProfile.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "files/ProfileText.h"
#include "platform/Failure.h"
#include "text/Ansi.h"

namespace dialwright {
namespace {

// What a reader of a value sees of the text behind the equals sign.
std::string_view WithoutDecoration(std::string_view value) {
  value = TrimBlanksAndTabs(value);
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view Cut(std::string_view ansi, std::size_t size) {
  return ansi.substr(0, size > 0 ? size - 1 : 0);
}

}  // namespace

struct PrivateProfile::File {
  struct Write {
    std::string section;
    std::string key;
    std::string value;
  };

  std::optional<FileStamp> stamp;     // of the moment before the text was read
  std::unique_ptr<ProfileText> text;  // none: not read, or not readable
  int batches = 0;
  std::vector<Write> batched;  // in ANSI, what the open batches have to write
};

PrivateProfile::PrivateProfile(FileStore& fileStore) : store(fileStore) {}
PrivateProfile::~PrivateProfile() = default;

std::string PrivateProfile::GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                                     std::string_view defaultText, std::size_t size,
                                                     std::string_view path) {
  const File& file = Current(path);
  const std::optional<std::string_view> value =
      file.text ? file.text->Value(AnsiBytes(section), AnsiBytes(key)) : std::nullopt;
  if (!value) return AnsiToUtf8(Cut(AnsiBytes(defaultText), size));
  return AnsiToUtf8(Cut(WithoutDecoration(*value), size));
}

bool PrivateProfile::WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                                std::string_view value, std::string_view path) {
  File& file = Current(path);
  if (!file.text) return Miss(path);
  const AnsiBytes ansiSection(section), ansiKey(key), ansiValue(value);
  if (!file.text->Set(ansiSection, ansiKey, ansiValue)) return Miss(path);
  file.batched.push_back({std::string(ansiSection), std::string(ansiKey), std::string(ansiValue)});
  return file.batches > 0 || Flush(path, file);
}

std::optional<FileStamp> PrivateProfile::Seen(std::string_view path) { return Current(path).stamp; }

std::optional<std::string_view> PrivateProfile::BytesOnDisk(std::string_view path) {
  const File& file = FileAt(path);
  if (!file.text || file.text->Changed() || file.stamp != store.Stamp(path)) return std::nullopt;
  return file.text->Text();
}

bool PrivateProfile::CanRead(std::string_view path) {
  const File& file = Current(path);
  return file.text && file.text->Understood();
}

void PrivateProfile::FlushBatches() {
  for (auto& [path, file] : files) Flush(path, *file);
}

void PrivateProfile::BeginBatch(std::string_view path) {
  File& file = FileAt(path);
  // A stamp is only as fine as the system's clock: what a save begins with is what the disk holds.
  if (file.batches == 0) Read(path, store.Stamp(path), file);
  ++file.batches;
}

void PrivateProfile::EndBatch(std::string_view path) {
  File& file = FileAt(path);
  if (--file.batches == 0) Flush(path, file);
}

PrivateProfile::File& PrivateProfile::FileAt(std::string_view path) {
  const auto known = files.find(path);
  if (known != files.end()) return *known->second;
  return *files.emplace(path, std::make_unique<File>()).first->second;
}

PrivateProfile::File& PrivateProfile::Current(std::string_view path) {
  File& file = FileAt(path);
  if (file.text && file.batches > 0) return file;
  const std::optional<FileStamp> stamp = store.Stamp(path);
  if (file.text && stamp == file.stamp) return file;
  Read(path, stamp, file);
  return file;
}

// The stamp is that of before the reading: a change during it makes the file read again.
void PrivateProfile::Read(std::string_view path, const std::optional<FileStamp>& stamp,
                          File& file) {
  std::string bytes;
  if (file.text) bytes = std::move(*std::exchange(file.text, nullptr)).TakeBytes();
  file.stamp = stamp;
  if (!stamp) return;
  try {
    store.ReadInto(path, bytes);
    file.text = std::make_unique<ProfileText>(std::move(bytes));
  } catch (const RuntimeFailure&) {
    // What cannot be read has no keys, until it can.
  }
}

// Nothing is remembered afterwards: the next use reads what the disk holds, whatever became of
// this.
bool PrivateProfile::Flush(std::string_view path, File& file) {
  const std::vector<File::Write> writes = std::exchange(file.batched, {});
  if (!file.text || !file.text->Changed()) return true;
  // Somebody else has been at the file since it was read: the writes go into what it holds now.
  const std::optional<FileStamp> stamp = store.Stamp(path);
  if (stamp != file.stamp) {
    Read(path, stamp, file);
    if (!file.text) return Miss(path);
    bool holds = true;
    for (const auto& [section, key, value] : writes)
      holds = file.text->Set(section, key, value) && holds;
    if (!holds) return Miss(path);
  }
  const std::unique_ptr<ProfileText> text = std::exchange(file.text, nullptr);
  try {
    if (!text->Changed()) return true;
    if (beforeWrite) beforeWrite();
    store.Replace(path, text->Text());
    return true;
  } catch (const RuntimeFailure&) {
    return Miss(path);
  }
}

bool PrivateProfile::Miss(std::string_view path) {
  if (std::ranges::find(missed, path) == missed.end()) missed.emplace_back(path);
  return false;
}

ProfileBatch::ProfileBatch(PrivateProfile& privateProfile, std::string_view filePath)
    : profile(privateProfile), path(filePath) {
  profile.BeginBatch(path);
}

ProfileBatch::~ProfileBatch() { profile.EndBatch(path); }

}  // namespace dialwright
