#include "base/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <ostream>
#include <streambuf>

#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

/// Bytes on their way into a descriptor. The first failure is kept, nothing is written after it.
class DescriptorBuffer final : public std::streambuf {
 public:
  explicit DescriptorBuffer(FileDescriptor file) : file_(std::move(file)) {
    setp(bytes_.data(), bytes_.data() + bytes_.size());
  }

  const FileDescriptor& file() const { return file_; }
  int failure() const { return failure_; }
  void note(bool done) {
    if (!done && failure_ == 0) failure_ = errno;
  }
  void close() { note(file_.close()); }

 protected:
  int_type overflow(int_type byte) override {
    if (sync() != 0) return traits_type::eof();
    if (!traits_type::eq_int_type(byte, traits_type::eof())) sputc(traits_type::to_char_type(byte));
    return traits_type::not_eof(byte);
  }

  int sync() override {
    const char* from = pbase();
    while (failure_ == 0 && from != pptr()) {
      const ssize_t written = ::write(file_.get(), from, static_cast<std::size_t>(pptr() - from));
      if (written >= 0) {
        from += written;
      } else if (errno != EINTR) {
        note(false);
      }
    }
    setp(bytes_.data(), bytes_.data() + bytes_.size());
    return failure_ == 0 ? 0 : -1;
  }

 private:
  FileDescriptor file_;
  int failure_ = 0;
  std::array<char, 65536> bytes_{};
};

bool isPipeOrDevice(const fs::file_status& status) {
  switch (status.type()) {
    case fs::file_type::fifo:
    case fs::file_type::character:
    case fs::file_type::block:
      return true;
    default:
      return false;
  }
}

/// The number of an open file that the program was started with, where the path is the system's name for it:
/// its own descriptor is written then, in its place and way (after the end, into a socket).
std::optional<int> descriptorOf(const fs::path& file) {
  const std::string name = file.lexically_normal();
  if (name == "/dev/stdout") return STDOUT_FILENO;
  if (name == "/dev/stderr") return STDERR_FILENO;
  for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
    if (!name.starts_with(folder)) continue;
    int number = -1;
    const auto [end, failure] =
        std::from_chars(name.data() + folder.size(), name.data() + name.size(), number);
    if (failure == std::errc() && end == name.data() + name.size()) return number;
  }
  return std::nullopt;
}

std::string pathOf(const FileDescriptor& file) {
  return "/proc/self/fd/" + std::to_string(file.get());
}

/// A file in that folder that has no name yet; none where the file system knows no such files.
FileDescriptor namelessFile(const fs::path& folder) {
  FileDescriptor file(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (file && ::access(pathOf(file).c_str(), F_OK) != 0) return FileDescriptor();
  return file;
}

}  // namespace

class OutputFile::Stream : public std::ostream {
 public:
  explicit Stream(FileDescriptor file) : std::ostream(nullptr), buffer_(std::move(file)) { rdbuf(&buffer_); }
  DescriptorBuffer& buffer() { return buffer_; }

 private:
  DescriptorBuffer buffer_;
};

void cannotWrite(const fs::path& file, const std::string& reason) {
  throw RuntimeError(ErrorNumber::DeviceIo, "不能写文件“" + file.string() + "”：" + reason);
}

// A link is followed to a pipe or a device alone: who may plant one must not choose what is overwritten.
OutputFile::OutputFile(fs::path file, const Options& options)
    : file_(std::move(file)), descriptor_(descriptorOf(file_)), options_(options) {
  std::error_code ignored;
  const fs::file_status status = fs::status(file_, ignored);
  direct_ = descriptor_ || isPipeOrDevice(status);
  if (direct_) return;
  if (fs::is_symlink(fs::symlink_status(file_, ignored))) {
    cannotWrite(file_, "它是一个链接，请指定文件本身");
  }
  if (fs::is_directory(status)) cannotWrite(file_, "是一个目录");
  if (!fs::exists(status)) return;
  if (!fs::is_regular_file(status)) cannotWrite(file_, "不是普通文件");
  if (!options_.replace) cannotWrite(file_, "文件已存在；要替换它请用 --force");
  const FileAccess before = accessOf(file_);
  options_.access.mode &= before.mode;
  // Another group gets what everybody had.
  if (before.group != options_.access.group)
    options_.access.mode &= ~static_cast<mode_t>(S_IRWXG) | (before.mode & S_IRWXO) << 3U;
}

OutputFile::~OutputFile() {
  if (!beside_.empty()) ::unlink(beside_.c_str());
}

std::ostream& OutputFile::open() {
  FileDescriptor file = direct_ ? openDirectly() : openBeside();
  if (!file) cannotWrite(file_, systemReason(errno));
  stream_ = std::make_unique<Stream>(std::move(file));
  return *stream_;
}

FileDescriptor OutputFile::openDirectly() const {
  if (descriptor_) return FileDescriptor(::fcntl(*descriptor_, F_DUPFD_CLOEXEC, 0));
  FileDescriptor file(::open(file_.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
  struct stat found {};
  if (file && ::fstat(file.get(), &found) == 0 && S_ISREG(found.st_mode)) {
    cannotWrite(file_, "它已不是管道或设备");
  }
  return file;
}

// A file that has no name yet leaves nothing when the program is killed.
FileDescriptor OutputFile::openBeside() {
  FileDescriptor file = namelessFile(folderOf(file_));
  if (file) {
    nameless_ = FileDescriptor(::fcntl(file.get(), F_DUPFD_CLOEXEC, 0));
    if (!nameless_) return FileDescriptor();
  } else {
    std::string name = folderOf(file_) / ".zelkor-XXXXXX";
    file = FileDescriptor(::mkostemp(name.data(), O_CLOEXEC));
    if (!file) return file;
    beside_ = name;
  }
  return grant(file, options_.access) ? std::move(file) : FileDescriptor();
}

/// False with `errno` when it cannot be named.
bool OutputFile::nameBeside() {
  constexpr int kMostTries = 1000;
  const fs::path folder = folderOf(file_);
  const std::string beginning = ".zelkor-" + std::to_string(::getpid()) + "-";
  for (int i = 0; i < kMostTries; ++i) {
    const fs::path name = folder / (beginning + std::to_string(i));
    if (::linkat(AT_FDCWD, pathOf(nameless_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      beside_ = name;
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

void OutputFile::complete() {
  DescriptorBuffer& buffer = stream_->buffer();
  stream_->flush();
  if (!direct_) buffer.note(::fsync(buffer.file().get()) == 0);
  buffer.close();
  if (buffer.failure() != 0) cannotWrite(file_, systemReason(buffer.failure()));
  stream_.reset();
}

void OutputFile::finish() {
  if (stream_) complete();
  if (!direct_) keep();
}

// A file that has come meanwhile is not replaced unasked; where a file cannot have two names, nothing shows.
void OutputFile::keep() {
  if (nameless_ && !nameBeside()) cannotWrite(file_, systemReason(errno));
  if (!options_.replace && ::link(beside_.c_str(), file_.c_str()) == 0) {
    ::unlink(beside_.c_str());
  } else {
    if (!options_.replace && errno == EEXIST) cannotWrite(file_, systemReason(errno));
    if (::rename(beside_.c_str(), file_.c_str()) != 0) cannotWrite(file_, systemReason(errno));
  }
  beside_.clear();
  if (!forceToDisk(folderOf(file_))) cannotWrite(file_, systemReason(errno));
}

}  // namespace zelkor
