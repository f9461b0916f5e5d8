#include "reports/ZipStream.h"

#include <zlib.h>

#include <limits>
#include <ostream>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::size_t kPieceSize = 65536;
constexpr std::uint16_t kVersion = 20;             // of the form, that it takes to read the archive
constexpr std::uint16_t kSizesFollow = 1U << 3;    // checksum and sizes come after the content
constexpr std::uint16_t kFirstOfJanuary1980 = 33;  // archives of one content are alike

/// Little-endian numbers, one after the other.
class Bytes {
 public:
  Bytes& two(std::uint64_t number) { return add(number, 2); }
  Bytes& four(std::uint64_t number) { return add(number, 4); }
  Bytes& text(std::string_view bytes) {
    text_ += bytes;
    return *this;
  }
  const std::string& all() const { return text_; }

 private:
  Bytes& add(std::uint64_t number, int count) {
    for (int i = 0; i < count; ++i) text_.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
    return *this;
  }

  std::string text_;
};

std::uint32_t checked(std::uint64_t size) {
  if (size < std::numeric_limits<std::uint32_t>::max()) return static_cast<std::uint32_t>(size);
  throw RuntimeError(ErrorNumber::DeviceIo, "报表太大，不能写成工作簿");
}

}  // namespace

ZipStream::ZipStream(std::ostream& out) : out_(out), deflater_(Deflater::Form::Bare) {}

void ZipStream::put(std::string_view bytes) {
  out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  written_ += bytes.size();
}

std::uint32_t ZipStream::place() const {
  return checked(written_);
}

void ZipStream::begin(std::string name) {
  if (open_) endEntry();
  entries_.push_back({.name = std::move(name), .begin = place(), .checksum = 0, .packed = 0, .size = 0});
  const Entry& entry = entries_.back();
  put(Bytes()
          .text("PK\x03\x04")
          .two(kVersion)
          .two(kSizesFollow)
          .two(Z_DEFLATED)
          .two(0)
          .two(kFirstOfJanuary1980)
          .four(0)
          .four(0)
          .four(0)
          .two(entry.name.size())
          .two(0)
          .text(entry.name)
          .all());
  deflater_.begin();
  open_ = true;
}

void ZipStream::write(std::string_view content) {
  waiting_ += content;
  if (waiting_.size() < kPieceSize) return;
  compress(waiting_, false);
  waiting_.clear();
}

void ZipStream::compress(std::string_view content, bool end) {
  Entry& entry = entries_.back();
  entry.checksum = static_cast<std::uint32_t>(crc32(
      entry.checksum, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size())));
  entry.size += content.size();
  deflater_.run(content, end, [&](std::string_view packed) {
    entry.packed += packed.size();
    put(packed);
  });
}

void ZipStream::endEntry() {
  compress(waiting_, true);
  waiting_.clear();
  const Entry& entry = entries_.back();
  put(Bytes()
          .text("PK\x07\x08")
          .four(entry.checksum)
          .four(checked(entry.packed))
          .four(checked(entry.size))
          .all());
  open_ = false;
}

void ZipStream::finish() {
  if (open_) endEntry();
  const std::uint32_t directory = place();
  for (const Entry& entry : entries_) {
    put(Bytes()
            .text("PK\x01\x02")
            .two(kVersion)
            .two(kVersion)
            .two(kSizesFollow)
            .two(Z_DEFLATED)
            .two(0)
            .two(kFirstOfJanuary1980)
            .four(entry.checksum)
            .four(entry.packed)
            .four(entry.size)
            .two(entry.name.size())
            .two(0)
            .two(0)
            .two(0)
            .two(0)
            .four(0)
            .four(entry.begin)
            .text(entry.name)
            .all());
  }
  const std::uint32_t size = place() - directory;
  put(Bytes()
          .text("PK\x05\x06")
          .two(0)
          .two(0)
          .two(entries_.size())
          .two(entries_.size())
          .four(size)
          .four(directory)
          .two(0)
          .all());
}

}  // namespace zelkor
