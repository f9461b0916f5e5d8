#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "base/FileAccess.h"

namespace zelkor {

/// SHA-256 of bytes that come in pieces.
class Checksum {
 public:
  Checksum();
  Checksum(const Checksum&) = delete;
  Checksum& operator=(const Checksum&) = delete;
  ~Checksum();

  void add(std::string_view bytes);
  /// 64 hexadecimal digits, as sha256sum prints them; to be called once.
  std::string text();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

std::string checksumOf(std::string_view bytes);
/// Of a file, as the disk has it and not what the system remembers of it. Error as `systemError`.
std::string checksumOfFile(const std::filesystem::path& file);
/// Copies a file to an open one, forces it to disk, and gives the checksum of what was copied. Error as
/// `systemError`.
std::string copyWithChecksum(const std::filesystem::path& from, const FileDescriptor& to);

}  // namespace zelkor
