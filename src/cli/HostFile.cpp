#include "cli/HostFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "cli/CommandLine.h"

namespace dialwright {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& path, const std::error_code& fault) {
  throw CommandFailure{ExitCode::unreadable, path + ": " + fault.message()};
}

std::error_code LastFault() { return {errno == 0 ? EIO : errno, std::generic_category()}; }

bool Wrote(const fs::path& path, std::string_view bytes) {
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return !file.fail();
}

}  // namespace

fs::path HostFilePath(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

std::string Utf8Path(const fs::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

std::string ReadHostFile(const std::string& path, std::size_t most) {
  const fs::path place = HostFilePath(path);
  std::error_code fault;
  if (fs::is_directory(place, fault)) Fail(path, std::make_error_code(std::errc::is_a_directory));
  errno = 0;
  std::ifstream file(place, std::ios::binary);
  if (!file) Fail(path, LastFault());
  std::string bytes(most + 1, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) Fail(path, LastFault());
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

void WriteHostFile(const std::string& path, std::string_view bytes) {
  fs::path place = HostFilePath(path);
  std::error_code fault;
  if (!fs::is_regular_file(place, fault)) {
    if (!Wrote(place, bytes)) Fail(path, LastFault());
    return;
  }
  place = fs::canonical(place, fault);
  if (fault) Fail(path, fault);
  fs::path fresh = place;
  fresh += ".new";
  const fs::perms permissions = fs::status(place, fault).permissions();
  if (!Wrote(fresh, bytes)) {
    const std::error_code written = LastFault();
    fs::remove(fresh, fault);
    Fail(path, written);
  }
  fs::permissions(fresh, permissions, fault);
  fs::rename(fresh, place, fault);
  if (!fault) return;
  std::error_code ignored;
  fs::remove(fresh, ignored);
  Fail(path, fault);
}

}  // namespace dialwright
