#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "paper/Deflater.h"

namespace zelkor {

/// A zip archive that is written from front to end, into pipes too. What the stream refuses is reported by
/// the stream; error 57 for an archive that is too large for its form (4 GB).
class ZipStream {
 public:
  explicit ZipStream(std::ostream& out);
  ZipStream(const ZipStream&) = delete;
  ZipStream& operator=(const ZipStream&) = delete;

  /// Begins a file of the archive; the one before is complete then.
  void begin(std::string name);
  void write(std::string_view content);
  /// Completes the archive.
  void finish();

 private:
  struct Entry {
    std::string name;
    std::uint32_t begin = 0;  // in the archive
    std::uint32_t checksum = 0;
    std::uint64_t packed = 0;
    std::uint64_t size = 0;
  };

  void put(std::string_view bytes);
  void compress(std::string_view content, bool end);
  void endEntry();
  std::uint32_t place() const;

  std::ostream& out_;
  std::uint64_t written_ = 0;
  Deflater deflater_;
  std::vector<Entry> entries_;
  std::string waiting_;  // small pieces are compressed together
  bool open_ = false;
};

}  // namespace zelkor
