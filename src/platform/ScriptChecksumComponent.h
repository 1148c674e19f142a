#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/FileStore.h"

namespace dialwright {

/// The server's component that knows the checksum of a script file.
class ScriptChecksumComponent {
 public:
  virtual ~ScriptChecksumComponent() = default;
  /// The checksum of a file, 0 when there is none for the moment; a new call with a new stamp may
  /// then succeed. Throws RuntimeFailure when the call fails.
  virtual std::int32_t CalculateFileChecksum(std::int32_t lngRequestStamp,
                                             std::string_view path) = 0;
};

/// Creates the component by its class identifier. Fails with 429 where it is not installed.
class ScriptChecksumFactory {
 public:
  virtual ~ScriptChecksumFactory() = default;
  virtual std::unique_ptr<ScriptChecksumComponent> CreateObject() = 0;
};

/// The component that the program brings for itself: CRC-32 (reflected polynomial EDB88320) over
/// the file's lines, each followed by carriage return and line feed, lines that begin with "#CRC"
/// (blanks before it, any case) left out, as a signed number, with 1 in place of 0.
class CrcChecksumFactory : public ScriptChecksumFactory {
 public:
  explicit CrcChecksumFactory(FileStore& fileStore) : store(fileStore) {}
  std::unique_ptr<ScriptChecksumComponent> CreateObject() override;

 private:
  FileStore& store;
};

/// The checksum of a file's bytes, as above.
std::int32_t ScriptChecksum(std::string_view bytes);

}  // namespace dialwright
