#pragma once

#include <filesystem>

namespace zelkor {

/// Error 3204 when there is something under that path.
void requireAbsent(const std::filesystem::path& file);

/// A file that is written under a temporary name beside its own. Unless it was given its name it goes with
/// the object.
class NewFile {
 public:
  /// Error 3204 when the file is there already; what a killed process has left under the temporary name goes.
  explicit NewFile(std::filesystem::path file);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  const std::filesystem::path& path() const { return path_; }
  const std::filesystem::path& temporary() const { return temporary_; }
  /// Error 3204 when the file has come to be meanwhile, 3051 when it cannot be named.
  void giveName();

 private:
  void removeTemporary();

  std::filesystem::path path_;
  std::filesystem::path temporary_;
};

}  // namespace zelkor
