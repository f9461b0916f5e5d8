#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct zip;
struct zip_file;

namespace zelkor {

/// A part of a workbook that is being read. What it unpacks to is bounded.
class ArchivePart {
 public:
  ArchivePart(zip_file* file, std::string name);

  /// The next bytes; 0 at the end, where the part's checksum has been found right.
  std::size_t read(char* buffer, std::size_t size);
  /// Reads to the end without keeping anything.
  void finish();

 private:
  struct Close {
    void operator()(zip_file* file) const;
  };
  std::unique_ptr<zip_file, Close> file_;
  std::string name_;
  std::size_t read_ = 0;
};

/// The zip archive that a workbook is. Raises error 3421 with the reason for one that is damaged.
class WorkbookArchive {
 public:
  /// `content` must outlive the object.
  explicit WorkbookArchive(std::string_view content);

  bool has(const std::string& name) const;
  ArchivePart open(const std::string& name) const;
  /// A part as a whole; refused beyond the size of those that describe a workbook.
  std::string text(const std::string& name) const;

 private:
  struct Discard {
    void operator()(zip* archive) const;
  };
  std::unique_ptr<zip, Discard> archive_;
};

}  // namespace zelkor
