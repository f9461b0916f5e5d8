#include "transfer/backup/Checksum.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18U;

void require(int done) {
  if (done != 1) throw RuntimeError(ErrorNumber::DeviceIo, "不能计算校验值。");
}

[[noreturn]] void fail(const char* what, const std::filesystem::path& file) {
  throw systemError(std::string(what) + "“" + file.string() + "”", errno);
}

FileDescriptor opened(const std::filesystem::path& file) {
  FileDescriptor found(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  if (!found) fail("不能读文件", file);
  return found;
}

/// Hands the content to `take`, block by block; the program can be told to end in between.
template <typename Take>
void forEachBlock(const std::filesystem::path& file, const FileDescriptor& from, Take take) {
  std::string block(kBlock, '\0');
  while (true) {
    const ssize_t length = ::read(from.get(), block.data(), block.size());
    if (length == 0) return;
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) fail("不能读文件", file);
    take(std::string_view(block).substr(0, static_cast<std::size_t>(length)));
    goOnUnlessSignalled();
  }
}

bool writeWhole(const FileDescriptor& to, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(to.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

struct Checksum::State {
  struct Freer {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
  };
  std::unique_ptr<EVP_MD_CTX, Freer> context{EVP_MD_CTX_new()};
};

Checksum::Checksum() : state_(std::make_unique<State>()) {
  require(EVP_DigestInit_ex(state_->context.get(), EVP_sha256(), nullptr));
}
Checksum::~Checksum() = default;

void Checksum::add(std::string_view bytes) {
  require(EVP_DigestUpdate(state_->context.get(), bytes.data(), bytes.size()));
}

std::string Checksum::text() {
  static constexpr std::string_view kHex = "0123456789abcdef";
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned length = 0;
  require(EVP_DigestFinal_ex(state_->context.get(), digest.data(), &length));
  std::string text;
  for (unsigned i = 0; i < length; ++i) {
    text += kHex[digest[i] >> 4U];
    text += kHex[digest[i] & 0xFU];
  }
  return text;
}

std::string checksumOf(std::string_view bytes) {
  Checksum checksum;
  checksum.add(bytes);
  return checksum.text();
}

std::string checksumOfFile(const std::filesystem::path& file) {
  const FileDescriptor from = opened(file);
  ::posix_fadvise(from.get(), 0, 0, POSIX_FADV_DONTNEED);
  Checksum checksum;
  forEachBlock(file, from, [&](std::string_view block) { checksum.add(block); });
  return checksum.text();
}

std::string copyWithChecksum(const std::filesystem::path& from, const FileDescriptor& to) {
  const FileDescriptor source = opened(from);
  Checksum checksum;
  forEachBlock(from, source, [&](std::string_view block) {
    checksum.add(block);
    if (!writeWhole(to, block)) fail("不能写出文件", from.filename());
  });
  if (::fsync(to.get()) != 0) fail("不能写出文件", from.filename());
  return checksum.text();
}

}  // namespace zelkor
