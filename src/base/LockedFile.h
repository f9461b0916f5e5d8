#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace zelkor {

/// A file that one holder at a time has locked. The lock is the operating system's: it goes with the process
/// that took it, on whatever path that ends, and a program that it starts has no part in it.
class LockedFile {
 public:
  /// What becomes of the file when its holder lets go.
  enum class Afterwards : std::uint8_t { Stays, Goes };

  /// Locks the file of that path, which is made with that mode where there is none; nullptr when somebody
  /// else holds it. Error 57 when it can be neither opened nor made.
  static std::unique_ptr<LockedFile> take(const std::string& path, mode_t mode, Afterwards afterwards);
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile();

  int descriptor() const { return descriptor_; }

 private:
  LockedFile(std::string path, int descriptor, Afterwards afterwards)
      : path_(std::move(path)), descriptor_(descriptor), afterwards_(afterwards) {}

  std::string path_;
  int descriptor_;
  Afterwards afterwards_;
};

}  // namespace zelkor
