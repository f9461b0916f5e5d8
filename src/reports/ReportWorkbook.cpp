#include <algorithm>
#include <cmath>
#include <ostream>
#include <utility>

#include "base/GridSpans.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "reports/ReportExport.h"
#include "reports/WorkbookParts.h"
#include "reports/ZipStream.h"

namespace zelkor {
namespace {

constexpr double kTwipsPerCharacter = 110;  // of a column's width in the workbook
constexpr double kNarrowest = 8;
constexpr double kWidest = 60;
constexpr double kCellPadding = 2;  // characters; a number that does not fit is shown as a row of hashes
constexpr std::size_t kMostRows = 1'048'576;  // of a sheet
constexpr std::size_t kMostColumns = 16'384;
constexpr std::size_t kSheetNameLimit = 31;
constexpr std::size_t kTextLimit = 32'767;  // characters of a cell
constexpr std::string_view kForbiddenInSheetName = "[]:*?/\\'";

std::string sheetName(const std::string& title) {
  std::string name = Left(title, kSheetNameLimit);
  std::ranges::replace_if(
      name, [](char letter) { return kForbiddenInSheetName.find(letter) != std::string_view::npos; }, ' ');
  return name;
}

bool isBlank(char letter) {
  return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

/// "A", "B", ... "AA" for columns from 0.
std::string letters(std::size_t column) {
  std::string name;
  for (++column; column > 0; column = (column - 1) / 26) {
    name.insert(name.begin(), static_cast<char>('A' + (column - 1) % 26));
  }
  return name;
}

/// A width in characters as the file has it, where a column's margins count too: 5 of 7 dots.
std::string storedWidth(double characters) {
  constexpr double kDots = 7;
  constexpr double kMargins = 5;
  return std::to_string(std::trunc((characters * kDots + kMargins) / kDots * 256) / 256);
}

/// Writes the sheet of a report from top to bottom.
class SheetWriter {
 public:
  SheetWriter(ZipStream& out, const std::string& title, const ReportView& view)
      : out_(out), grid_(view.grid), captions_(captionLines(view)) {
    captions_.insert(captions_.begin(), title);
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      if (!grid_.columnHidden(column)) columns_.push_back({column, letters(columns_.size())});
    }
    const std::size_t rows = captions_.size() + grid_.rows();
    if (rows > kMostRows || columns_.size() > kMostColumns) {
      throw RuntimeError(ErrorNumber::DeviceIo, "报表太大，不能写成工作簿：一张工作表最多 1048576 行");
    }
  }

  std::size_t firstHeader() const { return captions_.size() + 1; }
  std::size_t lastHeader() const { return captions_.size() + grid_.headerRows(); }

  void write() {
    out_.write(sheetBeginning(lastHeader()));
    writeColumns();
    out_.write("<sheetData>");
    for (std::size_t i = 0; i < captions_.size(); ++i) writeCaption(i);
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) writeHeader(row);
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      if (!grid_.rowHidden(row)) writeRow(row);
    }
    out_.write("</sheetData>");
    writeMerges();
    out_.write(sheetEnd());
  }

 private:
  struct Column {
    std::size_t inGrid;
    std::string letters;  // its name in the sheet
  };

  void writeColumns() {
    if (columns_.empty()) return;
    out_.write("<cols>");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string place = std::to_string(i + 1);
      out_.write("<col min=\"" + place + "\" max=\"" + place + "\" width=\"" +
                 storedWidth(widthOf(columns_[i].inGrid)) + "\" customWidth=\"1\"/>");
    }
    out_.write("</cols>");
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

  void writeCaption(std::size_t line) {
    beginRow();
    writeText("A", line == 0 ? kTitleStyle : kPlainStyle, captions_[line]);
    endRow();
  }

  void writeHeader(std::size_t row) {
    beginRow();
    for (const Column& column : columns_) {
      const CellSpan span = spanOf(row, column.inGrid);
      const bool begins = span.firstRow == row && span.firstColumn == column.inGrid;
      writeText(column.letters, kHeaderStyle, begins ? grid_.text(row, column.inGrid) : std::string());
    }
    endRow();
  }

  void writeRow(std::size_t row) {
    beginRow();
    for (const Column& column : columns_) {
      const std::string& text = grid_.text(row, column.inGrid);
      const auto alignment = static_cast<std::size_t>(grid_.alignment(column.inGrid));
      if (isNumberCell(grid_, row, column.inGrid)) {
        const bool amount = text.size() > 3 && text[text.size() - 3] == '.';
        writeNumber(column.letters, (amount ? kAmountStyles : kBodyStyles)[alignment], text);
      } else {
        writeText(column.letters, kBodyStyles[alignment], text);
      }
    }
    endRow();
  }

  void beginRow() {
    number_ = std::to_string(++rows_);
    line_ = "<row r=\"" + number_ + "\">";
  }
  void endRow() {
    line_ += "</row>";
    out_.write(line_);
  }

  void beginCell(const std::string& column, int style) {
    line_ += "<c r=\"";
    line_ += column;
    line_ += number_;
    line_ += "\" s=\"";
    line_ += std::to_string(style);
  }
  void writeText(const std::string& column, int style, const std::string& text) {
    beginCell(column, style);
    if (text.empty()) {
      line_ += "\"/>";
      return;
    }
    const bool blankEnds = isBlank(text.front()) || isBlank(text.back());
    line_ += blankEnds ? "\" t=\"inlineStr\"><is><t xml:space=\"preserve\">" : "\" t=\"inlineStr\"><is><t>";
    line_ += cellText(text.size() > kTextLimit ? Left(text, kTextLimit) : text);
    line_ += "</t></is></c>";
  }
  void writeNumber(const std::string& column, int style, const std::string& text) {
    beginCell(column, style);
    line_ += "\"><v>";
    line_ += text;
    line_ += "</v></c>";
  }

  void writeMerges() {
    std::string cells;
    std::size_t count = 0;
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
      for (const Column& column : columns_) {
        const CellSpan span = spanOf(row, column.inGrid);
        if (span.isSingle() || span.firstRow != row || span.firstColumn != column.inGrid) continue;
        const auto last = std::ranges::find(columns_, span.lastColumn, &Column::inGrid);
        cells += "<mergeCell ref=\"" + column.letters + std::to_string(firstHeader() + row) + ":" +
                 last->letters + std::to_string(firstHeader() + span.lastRow) + "\"/>";
        ++count;
      }
    }
    if (count > 0) {
      out_.write("<mergeCells count=\"" + std::to_string(count) + "\">" + cells + "</mergeCells>");
    }
  }

  CellSpan spanOf(std::size_t row, std::size_t column) const {
    return shownCells(grid_, row, column, 0, grid_.headerRows() - 1);
  }

  ZipStream& out_;
  const TextGrid& grid_;
  std::vector<std::string> captions_;  // the title first
  std::vector<Column> columns_;        // that are shown
  std::size_t rows_ = 0;               // that are written
  std::string number_;                 // of the row that is being written
  std::string line_;
};

}  // namespace

void writeXlsx(std::ostream& out, const std::string& title, const ReportView& view) {
  ZipStream archive(out);
  SheetWriter sheet(archive, title, view);
  for (const WorkbookPart& part : workbookParts(sheetName(title), sheet.firstHeader(), sheet.lastHeader())) {
    archive.begin(std::string(part.name));
    archive.write(part.content);
  }
  archive.begin("xl/worksheets/sheet1.xml");
  sheet.write();
  archive.finish();
}

}  // namespace zelkor
