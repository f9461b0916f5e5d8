#include "tables/WorkbookArchive.h"

#include <zip.h>

#include <array>

#include "base/RuntimeError.h"
#include "tables/DamagedWorkbook.h"

namespace zelkor {
namespace {

constexpr std::size_t kLargestPart = std::size_t{1} << 30;   // unpacked; a sheet of a million rows has less
constexpr std::size_t kLargestText = std::size_t{64} << 20;  // of a part that is held as a whole

/// An error of the library.
class ZipError {
 public:
  ZipError() { zip_error_init(&error_); }
  ZipError(const ZipError&) = delete;
  ZipError& operator=(const ZipError&) = delete;
  ~ZipError() { zip_error_fini(&error_); }
  zip_error_t* get() { return &error_; }
  std::string text() {
    return std::string("文件已损坏，或不是 xlsx 工作簿（") + zip_error_strerror(&error_) + "）";
  }

 private:
  zip_error_t error_{};
};

zip* opened(std::string_view content) {
  ZipError error;
  zip_source_t* source = zip_source_buffer_create(content.data(), content.size(), 0, error.get());
  if (source == nullptr) refuseWorkbook(error.text());
  zip* archive = zip_open_from_source(source, ZIP_RDONLY, error.get());
  if (archive != nullptr) return archive;
  zip_source_free(source);
  refuseWorkbook(error.text());
}

}  // namespace

void refuseWorkbook(const std::string& reason) {
  throw RuntimeError(ErrorNumber::DataTypeConversion, "工作簿读不出来：" + reason);
}

void ArchivePart::Close::operator()(zip_file* file) const {
  zip_fclose(file);
}

ArchivePart::ArchivePart(zip_file* file, std::string name) : file_(file), name_(std::move(name)) {}

std::size_t ArchivePart::read(char* buffer, std::size_t size) {
  const zip_int64_t length = zip_fread(file_.get(), buffer, size);
  if (length < 0) refuseWorkbook(name_ + " 已损坏（" + zip_file_strerror(file_.get()) + "）");
  read_ += static_cast<std::size_t>(length);
  if (read_ > kLargestPart) refuseWorkbook(name_ + " 展开后超过 1 GB");
  return static_cast<std::size_t>(length);
}

void ArchivePart::finish() {
  std::array<char, 65536> rest;  // NOLINT: nobody looks at it
  while (read(rest.data(), rest.size()) > 0) {
  }
}

void WorkbookArchive::Discard::operator()(zip* archive) const {
  zip_discard(archive);
}

WorkbookArchive::WorkbookArchive(std::string_view content) : archive_(opened(content)) {}

bool WorkbookArchive::has(const std::string& name) const {
  return zip_name_locate(archive_.get(), name.c_str(), 0) >= 0;
}

ArchivePart WorkbookArchive::open(const std::string& name) const {
  zip_file* file = zip_fopen(archive_.get(), name.c_str(), 0);
  if (file == nullptr) refuseWorkbook(name + "（" + zip_strerror(archive_.get()) + "）");
  return {file, name};
}

std::string WorkbookArchive::text(const std::string& name) const {
  ArchivePart part = open(name);
  std::string all;
  std::array<char, 65536> piece;  // NOLINT: written before it is read
  while (const std::size_t length = part.read(piece.data(), piece.size())) {
    all.append(piece.data(), length);
    if (all.size() > kLargestText) refuseWorkbook(name + " 太大");
  }
  return all;
}

}  // namespace zelkor
