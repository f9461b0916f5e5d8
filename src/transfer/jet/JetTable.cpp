#include "transfer/jet/JetTable.h"

namespace zelkor::jet {
namespace {

constexpr std::size_t kPointerSize = 4;
constexpr int kMostMoves = 16;

// What a field of a long value begins with: the length, with two flags in its high bits, and the place.
constexpr std::size_t kLongValueHead = 12;
constexpr std::uint32_t kInRow = 0x80000000;
constexpr std::uint32_t kInOnePiece = 0x40000000;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;

}  // namespace

TableWalk::TableWalk(JetFile& file, const Definition& table, const std::string& name)
    : file_(file), table_(table), name_(name), fields_(file.layout()) {}

bool TableWalk::next() {
  while (true) {
    if (nextRow_ >= rowsOnPage_) {
      if (turnPage()) continue;
      return false;
    }
    const auto row = page_.row(nextRow_++, file_.layout());
    if (!row) damaged("第 " + std::to_string(table_.pages[nextPage_ - 1]) + " 页的行不能读出");
    if (row->deleted || row->content.empty()) continue;
    ++row_;
    if (!fields_.open(settled(*row))) damaged("第 " + std::to_string(row_) + " 行不能读出");
    return true;
  }
}

// A file that was not closed properly may count too few rows or too many.
std::optional<std::string> TableWalk::countProblem() const {
  if (row_ == table_.rows) return std::nullopt;
  const bool fewer = row_ < table_.rows;
  return "表定义记有 " + std::to_string(table_.rows) + " 行，" + (fewer ? "只" : "") + "读出 " +
         std::to_string(row_) + " 行，已全部导入；" +
         (fewer ? "文件可能已损坏或没有正常关闭，请在原系统中压缩修复后重新导入"
                : "文件可能没有正常关闭，请在原系统中压缩修复后核对");
}

// The map of a table may name pages of other kinds. Those are passed over.
bool TableWalk::turnPage() {
  const Layout& layout = file_.layout();
  nextRow_ = 0;
  rowsOnPage_ = 0;
  while (nextPage_ < table_.pages.size()) {
    file_.read(table_.pages[nextPage_++], page_);
    if (page_.kind() != kRowPage || page_.link() != table_.page) continue;
    rowsOnPage_ = page_.rows(layout);
    return true;
  }
  return false;
}

std::string_view TableWalk::settled(PlacedRow row) {
  for (int moves = 0; row.moved; ++moves) {
    if (row.content.size() < kPointerSize || moves == kMostMoves)
      damaged("第 " + std::to_string(row_) + " 行不能读出");
    row = pointedAt({numberAt<std::uint32_t>(row.content, 0)}, movedTo_, movedToNumber_);
  }
  return row.content;
}

PlacedRow TableWalk::pointedAt(RowPointer pointer, Page& page, PageNumber& held) {
  if (held != pointer.page() || held == 0) {
    file_.read(pointer.page(), page);
    held = pointer.page();
  }
  const auto row = page.kind() == kRowPage ? page.row(pointer.row(), file_.layout()) : std::nullopt;
  if (!row) damaged("第 " + std::to_string(row_) + " 行指向的第 " + std::to_string(held) + " 页不能读出");
  return *row;
}

std::string_view TableWalk::field(const Column& column) {
  const auto bytes = fields_.field(column);
  if (!bytes) damaged(column, "不能读出");
  return *bytes;
}

std::string_view TableWalk::longValue(std::string_view field, std::string& buffer) {
  if (field.size() < kLongValueHead) {
    if (field.empty()) return field;
    damaged("第 " + std::to_string(row_) + " 行的长数据不能读出");
  }
  const auto head = numberAt<std::uint32_t>(field, 0);
  const std::size_t length = head & kLengthMask;
  std::string_view content = field.substr(kLongValueHead);
  if ((head & kInRow) == 0) {
    const RowPointer pointer{numberAt<std::uint32_t>(field, kPointerSize)};
    if ((head & kInOnePiece) == 0) {
      appendChain(pointer, length, buffer);
      return buffer;
    }
    // Values share pages, so that the page stays until another one is needed; the value itself may not.
    content = buffer.assign(pointedAt(pointer, values_, valuesNumber_).content);
  }
  if (content.size() < length) damaged("第 " + std::to_string(row_) + " 行的长数据不完整");
  return content.substr(0, length);
}

void TableWalk::appendChain(RowPointer pointer, std::size_t length, std::string& buffer) {
  buffer.clear();
  if (!file_.holds(length)) damaged("第 " + std::to_string(row_) + " 行的长数据不能读出");
  while (buffer.size() < length && pointer.value != 0) {
    const std::string_view piece = pointedAt(pointer, values_, valuesNumber_).content;
    if (piece.size() <= kPointerSize) break;
    buffer.append(piece.substr(kPointerSize));
    pointer = {numberAt<std::uint32_t>(piece, 0)};
  }
  if (buffer.size() < length) damaged("第 " + std::to_string(row_) + " 行的长数据不完整");
  buffer.resize(length);
}

void TableWalk::damaged(const Column& column, const std::string& what) const {
  damaged("第 " + std::to_string(row_) + " 行的 " + column.name + " " + what);
}

void TableWalk::damaged(const std::string& what) const {
  file_.damaged("表 " + name_ + " " + what);
}

}  // namespace zelkor::jet
