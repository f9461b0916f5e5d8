#pragma once

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "base/FileAccess.h"

namespace zelkor {

/// Raises error 57, a file that cannot be written.
[[noreturn]] void cannotWrite(const std::filesystem::path& file, const std::string& reason);

/// A file that the program writes for its user. It is written beside its place and takes it when it is whole,
/// on disk and closed; otherwise what was there stays. A pipe or a device is written directly, and so is an
/// open file that the program was given, by the system's name for it (/dev/stdout, /dev/fd/3). Every failure
/// raises error 57, which names the file.
class OutputFile {
 public:
  struct Options {
    bool replace = false;  // a file that is there already
    FileAccess access{};   // of the new file; one that is replaced lets nobody in whom it kept out
  };

  /// Nothing is written or opened yet, but what is in the way is refused.
  OutputFile(std::filesystem::path file, const Options& options);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  /// Opens it; the content is written there.
  std::ostream& open();
  /// To be called when all is written: forces it to disk. Several files that belong together take their names
  /// only when the last of them is there.
  void complete();
  /// Completes the file, where that is still to be done, and gives it its name.
  void finish();

 private:
  class Stream;

  FileDescriptor openDirectly() const;
  FileDescriptor openBeside();
  bool nameBeside();
  void keep();

  std::filesystem::path file_;
  std::filesystem::path beside_;  // its name until it has its place; empty while it has none
  FileDescriptor nameless_;       // what is written, where it needs no name until it is whole
  std::optional<int> descriptor_;
  Options options_;
  bool direct_ = false;
  std::unique_ptr<Stream> stream_;
};

}  // namespace zelkor
