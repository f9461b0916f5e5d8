#pragma once

#include <filesystem>
#include <string_view>
#include <utility>

#include "base/FileAccess.h"

namespace zelkor {

/// Error 3204 when there is something under that path.
void requireAbsent(const std::filesystem::path& file);

/// A path that is taken away again unless `keep` was called; of a folder only an empty one.
class Unfinished {
 public:
  explicit Unfinished(std::filesystem::path path) : path_(std::move(path)) {}
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  ~Unfinished();

  void keep() { path_.clear(); }

 private:
  std::filesystem::path path_;
};

/// A file that is written under a temporary name beside its own, where it lies empty at first. Unless it was
/// given its name it goes with the object.
class NewFile {
 public:
  static constexpr std::string_view kTemporaryEnding = ".new";

  /// Error 3204 when the file is there already, 3051 when it cannot be made; what a killed process has left
  /// under the temporary name goes.
  NewFile(std::filesystem::path file, const FileAccess& access);
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

/// Gives both files of an account set their names, or neither. Errors as `NewFile::giveName`.
void giveNames(NewFile& data, NewFile& system);

}  // namespace zelkor
