#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <new>
#include <utility>

#include "base/Conversion.h"
#include "base/GridSpans.h"
#include "base/Text.h"
#include "reports/ReportExport.h"

namespace zelkor {
namespace {

constexpr double kTwipsPerCharacter = 110;  // of a column's width in the workbook
constexpr double kNarrowest = 8;
constexpr double kWidest = 60;
constexpr double kCellPadding = 2;  // characters; a number that does not fit is shown as a row of hashes
constexpr std::uint8_t kPaperA4 = 9;
constexpr std::size_t kSheetNameLimit = 31;
constexpr std::string_view kForbiddenInSheetName = "[]:*?/\\'";

/// Formats of a report's cells, one per alignment each; amounts with two decimals.
struct Formats {
  explicit Formats(lxw_workbook* workbook)
      : title(workbook_add_format(workbook)), header(workbook_add_format(workbook)) {
    format_set_bold(title);
    format_set_font_size(title, 16);
    format_set_bold(header);
    format_set_align(header, LXW_ALIGN_CENTER);
    format_set_align(header, LXW_ALIGN_VERTICAL_CENTER);
    format_set_border(header, LXW_BORDER_THIN);
    static constexpr std::array<lxw_format_alignments, 3> kAlignments{LXW_ALIGN_LEFT, LXW_ALIGN_CENTER,
                                                                      LXW_ALIGN_RIGHT};
    for (std::size_t i = 0; i < body.size(); ++i) {
      body[i] = bodyFormat(workbook, kAlignments[i]);
      amount[i] = bodyFormat(workbook, kAlignments[i]);
      format_set_num_format(amount[i], "0.00");
    }
  }

  static lxw_format* bodyFormat(lxw_workbook* workbook, lxw_format_alignments alignment) {
    lxw_format* format = workbook_add_format(workbook);
    format_set_align(format, static_cast<std::uint8_t>(alignment));
    format_set_border(format, LXW_BORDER_THIN);
    return format;
  }

  lxw_format* title;
  lxw_format* header;
  std::array<lxw_format*, 3> body{};
  std::array<lxw_format*, 3> amount{};
};

std::string sheetName(const std::string& title) {
  std::string name = Left(title, kSheetNameLimit);
  std::ranges::replace_if(
      name, [](char letter) { return kForbiddenInSheetName.find(letter) != std::string_view::npos; }, ' ');
  return name;
}

/// Writes one sheet from top to bottom, as the library keeps one row in memory.
class SheetWriter {
 public:
  SheetWriter(lxw_workbook* workbook, const std::string& title, const ReportView& view)
      : grid_(view.grid),
        formats_(workbook),
        sheet_(workbook_add_worksheet(workbook, sheetName(title).c_str())) {
    setColumns();
    writeCaptions(title, view);
    writeHeader();
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      if (!grid_.rowHidden(row)) writeRow(row);
    }
    mergeHeader();
  }

 private:
  void setColumns() {
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      if (grid_.columnHidden(column)) continue;
      worksheet_set_column(sheet_, columns_, columns_, widthOf(column), nullptr);
      places_.emplace_back(column, columns_++);
    }
  }

  /// In characters: as the grid has it, or wider where its texts need it.
  double widthOf(std::size_t column) const {
    const double told = std::max(kNarrowest, grid_.columnWidth(column) / kTwipsPerCharacter);
    return std::max(told, std::min(kWidest, widestText(column) + kCellPadding));
  }

  /// A caption over several columns shares their width.
  double widestText(std::size_t column) const {
    double widest = 0;
    for (std::size_t row = 0; row < grid_.rows(); ++row) {
      auto width = static_cast<double>(displayWidth(grid_.text(row, column)));
      if (row < grid_.headerRows()) {
        const CellSpan span = spanOf(row, column);
        width /= static_cast<double>(span.lastColumn - span.firstColumn + 1);
      }
      widest = std::max(widest, width);
    }
    return widest;
  }

  void writeCaptions(const std::string& title, const ReportView& view) {
    worksheet_write_string(sheet_, next_++, 0, title.c_str(), formats_.title);
    for (const std::string& line : captionLines(view)) {
      worksheet_write_string(sheet_, next_++, 0, line.c_str(), nullptr);
    }
  }

  void writeHeader() {
    firstHeader_ = next_;
    for (std::size_t row = 0; row < grid_.headerRows(); ++row, ++next_) {
      for (const auto& [column, place] : places_) {
        const CellSpan span = spanOf(row, column);
        const bool begins = span.firstRow == row && span.firstColumn == column;
        const char* text = begins ? grid_.text(row, column).c_str() : "";
        worksheet_write_string(sheet_, next_, place, text, formats_.header);
      }
    }
    worksheet_freeze_panes(sheet_, next_, 0);
    if (next_ > firstHeader_) worksheet_repeat_rows(sheet_, firstHeader_, next_ - 1);
    worksheet_set_landscape(sheet_);
    worksheet_set_paper(sheet_, kPaperA4);
    worksheet_fit_to_pages(sheet_, 1, 0);
  }

  void mergeHeader() {
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
      for (const auto& [column, place] : places_) {
        const CellSpan span = spanOf(row, column);
        if (span.isSingle() || span.firstRow != row || span.firstColumn != column) continue;
        const auto last = std::ranges::find(places_, span.lastColumn, &Place::first);
        const lxw_col_t lastPlace = last == places_.end() ? place : last->second;
        merge({firstHeader_ + static_cast<lxw_row_t>(row),
               firstHeader_ + static_cast<lxw_row_t>(span.lastRow),
               place,
               lastPlace,
               {}});
      }
    }
  }

  /// The library's own merging writes cells of several rows at once, which it refuses while it keeps one row
  /// in memory. It frees what is in its list.
  void merge(const lxw_merged_range& cells) {
    auto* range = static_cast<lxw_merged_range*>(std::calloc(1, sizeof(lxw_merged_range)));
    if (range == nullptr) throw std::bad_alloc();
    *range = cells;
    STAILQ_INSERT_TAIL(sheet_->merged_ranges, range, list_pointers);
    ++sheet_->merged_range_count;
  }

  CellSpan spanOf(std::size_t row, std::size_t column) const {
    return mergedCells(grid_, row, column, 0, grid_.headerRows() - 1);
  }

  void writeRow(std::size_t row) {
    for (const auto& [column, place] : places_) {
      const std::string& text = grid_.text(row, column);
      const auto alignment = static_cast<std::size_t>(grid_.alignment(column));
      if (!isNumberCell(grid_, row, column)) {
        worksheet_write_string(sheet_, next_, place, text.c_str(), formats_.body[alignment]);
        continue;
      }
      const bool amount = text.size() > 3 && text[text.size() - 3] == '.';
      worksheet_write_number(sheet_, next_, place, Val(text),
                             (amount ? formats_.amount : formats_.body)[alignment]);
    }
    ++next_;
  }

  using Place = std::pair<std::size_t, lxw_col_t>;  // column of the grid and of the sheet

  const TextGrid& grid_;
  Formats formats_;
  lxw_worksheet* sheet_;
  std::vector<Place> places_;
  lxw_col_t columns_ = 0;
  lxw_row_t next_ = 0;
  lxw_row_t firstHeader_ = 0;
};

[[noreturn]] void failed(const std::filesystem::path& file, const std::string& reason) {
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  cannotWrite(file, reason);
}

}  // namespace

void writeXlsx(const std::filesystem::path& file, const std::string& title, const ReportView& view) {
  // The library would report this on standard error.
  if (!std::ofstream(file, std::ios::binary)) failed(file, std::strerror(errno));
  const std::string name = file.string();
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* workbook = workbook_new_opt(name.c_str(), &options);
  if (workbook == nullptr) failed(file, lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
  const SheetWriter sheet(workbook, title, view);
  const lxw_error error = workbook_close(workbook);
  if (error != LXW_NO_ERROR) failed(file, lxw_strerror(error));
}

}  // namespace zelkor
