#pragma once

#include <sys/types.h>

#include <filesystem>
#include <utility>

namespace zelkor {

/// A file descriptor that is closed with the object.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  ~FileDescriptor();

  explicit operator bool() const { return number_ >= 0; }
  int get() const { return number_; }
  /// Closes it; false with `errno` when what was written cannot be kept.
  bool close();

 private:
  int number_;
};

/// Who may read and write a file. Its owner always may do both, nobody may execute it, and strangers never
/// write it.
struct FileAccess {
  mode_t mode = 0600;
  gid_t group = static_cast<gid_t>(-1);  // of whom the middle digit speaks; -1: the one that comes by itself
  uid_t owner = static_cast<uid_t>(-1);  // given by the superuser alone; -1: whoever makes the file
};

/// That of a file which another one is made from; its owner's alone when there is no such file.
FileAccess accessOf(const std::filesystem::path& file);
/// That of a new file in a folder: the owner's alone unless the folder's group may write there.
FileAccess accessWithin(const std::filesystem::path& folder);

/// The folder that a file or a folder of that path lies in.
std::filesystem::path folderOf(const std::filesystem::path& path);
/// The path of the file itself, by whatever links it was reached; as far as it is there.
std::filesystem::path realPathOf(const std::filesystem::path& file);

/// Makes a folder for its owner, or for the group that the folder above hands down (setgid, writable), and
/// forces its name to disk; false when it is there already. Raises filesystem_error.
bool makeFolder(const std::filesystem::path& folder);

/// Forces a file to disk, or the names in a folder; false with `errno` when the disk fails. What may not be
/// read is left to the system.
bool forceToDisk(const std::filesystem::path& path);

/// Gives a file or folder to its owner, where the superuser has made it.
void giveToOwner(const FileDescriptor& file, const FileAccess& access);
/// Gives the file that access. A group that cannot be given keeps what strangers have: nobody gets more.
bool grant(const FileDescriptor& file, const FileAccess& access);
/// A new file that nobody else can have put there, links included; none with `errno` when it fails.
FileDescriptor createFile(const std::filesystem::path& file, const FileAccess& access);

}  // namespace zelkor
