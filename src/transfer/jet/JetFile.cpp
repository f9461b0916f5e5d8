#include "transfer/jet/JetFile.h"

#include <mdbtools.h>

#include "base/RuntimeError.h"
#include "transfer/jet/JetHeader.h"

namespace zelkor::jet {
namespace {

constexpr PageNumber kFilePages = 1;  // the page whose first row maps the pages of the whole file
constexpr char kDirectMap = 0;        // one bit for each page from a first one on
constexpr char kIndirectMap = 1;      // numbers of pages that hold such bits
constexpr std::size_t kMapHead = 5;   // the kind, and the first page of a direct map

struct Close {
  void operator()(MdbHandle* handle) const { mdb_close(handle); }
};

std::size_t indirectEntries(const std::string& map) {
  return (map.size() - 1) / sizeof(PageNumber);
}

PageNumber indirectEntry(const std::string& map, std::size_t entry) {
  return numberAt<PageNumber>(map, 1 + entry * sizeof(PageNumber));
}

/// One more than the last page that a direct map of free pages has not among them.
PageNumber endOfUsed(const std::string& map) {
  const auto first = numberAt<PageNumber>(map, 1);
  for (std::size_t bit = (map.size() - kMapHead) * 8; bit > 0; --bit) {
    const auto byte = static_cast<unsigned char>(map[kMapHead + (bit - 1) / 8]);
    if ((byte >> ((bit - 1) % 8) & 1) == 0) return first + static_cast<PageNumber>(bit);
  }
  return 0;
}

}  // namespace

struct JetFile::Library {
  std::unique_ptr<MdbHandle, Close> handle;
};

JetFile::JetFile(const std::filesystem::path& path)
    : path_(path), size_(0), layout_(checkedLayout(path)), library_(std::make_unique<Library>()) {
  size_ = std::filesystem::file_size(path);
  written_ = std::filesystem::last_write_time(path);
  // A last page that is not whole is left by some programs; nothing may lie there.
  pages_ = static_cast<PageNumber>(size_ / layout_.pageSize);
  if (pages_ < 3) damaged("文件被截断，连目录都没有");
  library_->handle.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
  if (!library_->handle)
    throw RuntimeError(ErrorNumber::UnrecognizedFormat, "无法打开 Jet 文件 '" + path.string() + "'。");
  // The key by which pages are encoded. A password alone keeps the programs of the maker from opening the
  // file but leaves its rows as they are, so that it is in nobody's way here.
  if (library_->handle->f->db_key != 0)
    throw RuntimeError(
        ErrorNumber::UnrecognizedFormat,
        "Jet 文件 '" + path.string() + "' 是加密（编码）的，不能导入；请先在原系统中解密再导入。");
  checkComplete();
}

JetFile::~JetFile() = default;

int JetFile::codePage() const {
  return library_->handle->f->code_page;
}

void JetFile::damaged(const std::string& what) const {
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "Jet 文件 '" + path_.string() + "' 不完整或已损坏：" + what + "。");
}

void JetFile::requireUnchanged() const {
  std::error_code failure;
  if (std::filesystem::file_size(path_, failure) == size_ &&
      std::filesystem::last_write_time(path_, failure) == written_)
    return;
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "Jet 文件 '" + path_.string() + "' 在导入时被其他程序改动；请先关闭使用它的程序。");
}

void JetFile::read(PageNumber number, Page& page) {
  if (number >= pages_)
    damaged("用到第 " + std::to_string(number) + " 页，而文件只有 " + std::to_string(pages_) + " 页");
  MdbHandle& handle = *library_->handle;
  if (mdb_read_pg(&handle, number) != static_cast<ssize_t>(layout_.pageSize))
    damaged("第 " + std::to_string(number) + " 页不能读出");
  std::memcpy(page.fill(layout_.pageSize), handle.pg_buf, layout_.pageSize);
}

std::optional<std::string> JetFile::mapAt(RowPointer map) {
  Page page;
  read(map.page(), page);
  const auto row = page.kind() == kRowPage ? page.row(map.row(), layout_) : std::nullopt;
  if (!row || row->content.size() < kMapHead) return std::nullopt;
  if (row->content[0] != kDirectMap && row->content[0] != kIndirectMap) return std::nullopt;
  return std::string(row->content);
}

std::string JetFile::requiredMap(RowPointer pointer) {
  auto map = mapAt(pointer);
  if (!map) damaged("第 " + std::to_string(pointer.page()) + " 页的页表不能读出");
  return *std::move(map);
}

void JetFile::checkMapPages(const std::string& map) {
  Page page;
  for (std::size_t entry = 0; entry < indirectEntries(map); ++entry) {
    const PageNumber number = indirectEntry(map, entry);
    if (number == 0) continue;
    read(number, page);
    if (page.kind() != kMapPage) damaged("第 " + std::to_string(number) + " 页不是页表");
  }
}

std::vector<PageNumber> JetFile::markedPages(RowPointer map) {
  return pagesOf(requiredMap(map));
}

void JetFile::checkMap(RowPointer pointer) {
  if (auto map = mapAt(pointer)) pagesOf(*std::move(map));
}

std::vector<PageNumber> JetFile::pagesOf(std::string map) {
  if (map[0] == kIndirectMap) checkMapPages(map);
  std::vector<PageNumber> pages;
  auto* bytes = reinterpret_cast<unsigned char*>(map.data());
  PageNumber last = 0;
  while (true) {
    const auto next = static_cast<PageNumber>(
        mdb_map_find_next(library_->handle.get(), bytes, static_cast<unsigned int>(map.size()), last));
    if (next == 0) return pages;
    if (next >= pages_ || next <= last)
      damaged("页表记有第 " + std::to_string(next) + " 页，而文件只有 " + std::to_string(pages_) + " 页");
    pages.push_back(last = next);
  }
}

// The file's own map marks the free pages; those that it might still grow by are marked, too. What follows
// the last page that is not free is not missed. The maps of the tables give the rest where a large file has
// its map on pages of their own.
void JetFile::checkComplete() {
  const std::string map = requiredMap({kFilePages << 8});
  if (map[0] == kIndirectMap) return checkMapPages(map);
  if (const PageNumber end = endOfUsed(map); end > pages_)
    damaged("文件被截断，应有 " + std::to_string(end) + " 页，实有 " + std::to_string(pages_) + " 页");
}

}  // namespace zelkor::jet
