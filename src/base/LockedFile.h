#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/FileAccess.h"

namespace zelkor {

/// A file that one holder at a time has locked. The lock is the operating system's: it goes with the process
/// that took it, on whatever path that ends, and a program that it starts has no part in it.
class LockedFile {
 public:
  /// What becomes of the file when its holder lets go.
  enum class Afterwards : std::uint8_t { Stays, Goes };

  /// Locks the file of that path, which is made with that mode where there is none; nullptr when somebody
  /// else holds it. Raises what `systemError` has for it when it can be neither opened nor made.
  static std::unique_ptr<LockedFile> take(const std::string& path, mode_t mode, Afterwards afterwards);
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile();

  const FileDescriptor& descriptor() const { return file_; }
  /// Writes what others may know of the holder.
  void tell(std::string_view text) const;
  /// What the present holder of the file has told of itself; empty while it has not, or nobody holds it.
  static std::string toldBy(const std::string& path);

 private:
  LockedFile(std::string path, FileDescriptor file, Afterwards afterwards)
      : path_(std::move(path)), file_(std::move(file)), afterwards_(afterwards) {}

  std::string path_;
  FileDescriptor file_;
  Afterwards afterwards_;
};

}  // namespace zelkor
