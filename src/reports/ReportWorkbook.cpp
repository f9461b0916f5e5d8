#include "reports/ReportWorkbook.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Conversion.h"
#include "base/DateTime.h"
#include "base/GridSpans.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "reports/ReportCells.h"
#include "reports/WorkbookParts.h"
#include "reports/ZipStream.h"

namespace zelkor {
namespace {

constexpr double kTwipsPerCharacter = 110;  // of a column's width in the workbook
constexpr double kNarrowest = 8;
constexpr double kWidest = 40;
constexpr double kWidestOnPage = 240;  // characters; in more no print can be read
constexpr double kWidestBeside =
    165;                            // where pages stand side by side, whatever font takes the place of 宋体
constexpr double kCellPadding = 2;  // characters; a number that does not fit is shown as a row of hashes
constexpr double kSeparatorRoom = 4;          // characters, that separated thousands and decimals may add
constexpr std::size_t kMostRows = 1'048'576;  // of a sheet
constexpr std::size_t kMostColumns = 16'384;
// Merged cells do not make their row as high as their letters are.
constexpr std::string_view kTitleHeight = " ht=\"24\" customHeight=\"1\"";
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
  SheetWriter(ZipStream& out, const FinishedReport& report, const WorkbookOptions& options)
      : out_(out),
        heading_(report.heading),
        grid_(report.view.grid),
        ledger_(report.ledger),
        options_(options) {
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      if (!grid_.columnHidden(column)) columns_.push_back({column, letters(columns_.size())});
    }
    for (const std::string& line :
         {heading_.title, joined(heading_.account, heading_.unit),
          joined(joined(heading_.period, heading_.conditions), std::string(kAmountUnit))}) {
      captions_.push_back(line);
    }
    const std::size_t rows = captions_.size() + grid_.rows();
    if (rows > kMostRows || columns_.size() > kMostColumns) {
      throw RuntimeError(ErrorNumber::DeviceIo, "报表太大，不能写成工作簿：一张工作表最多 1048576 行");
    }
  }

  WorkbookSheet sheet() const {
    return {.name = sheetName(heading_.title),
            .firstHeader = captions_.size() + 1,
            .lastHeader = lastHeader(),
            .filter = filterCells("$"),
            .wide = wide_,
            .pageColumns = pageColumns_};
  }

  void write(bool first) {
    fitWidths();
    const WorkbookSheet described = sheet();
    out_.write(sheetBeginning(described, first));
    writeColumns();
    out_.write("<sheetData>");
    for (std::size_t i = 0; i < captions_.size(); ++i) writeCaption(i);
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) writeHeader(row);
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      if (!grid_.rowHidden(row)) writeRow(row);
      if (options_.progress) options_.progress(row + 1, grid_.rows());
    }
    out_.write("</sheetData>");
    if (const std::string cells = filterCells(""); !cells.empty()) {
      out_.write("<autoFilter ref=\"" + cells + "\"/>");
    }
    writeMerges();
    out_.write(sheetEnd(described, margins()));
  }

 private:
  struct Column {
    std::size_t inGrid;
    std::string letters;  // its name in the sheet
    double width = 0;     // in characters
    bool broken = false;  // has texts of several lines
  };

  static std::string joined(const std::string& one, const std::string& other) {
    return one + (one.empty() || other.empty() ? "" : "　　") + other;
  }

  SheetMargins margins() const {
    return {marginTexts(marginLines(marginText(heading_.account), marginText(heading_.unit)), "",
                        marginLines(marginText(heading_.title), marginText(heading_.period))),
            marginTexts(marginText(heading_.preparedBy), "第 &P 页 共 &N 页", marginText(heading_.printed))};
  }

  std::size_t lastHeader() const { return captions_.size() + grid_.headerRows(); }

  /// The lines of a ledger under the last row of its header, without the totals: what they can be chosen by.
  std::string filterCells(const std::string& fixed) const {
    if (!ledger_ || columns_.empty() || grid_.headerRows() == 0) return {};
    std::size_t last = 0;
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      if (!grid_.rowHidden(row) && !grid_.isTotal(row)) ++last;
    }
    if (last == 0) return {};
    return fixed + "A" + fixed + std::to_string(lastHeader()) + ":" + fixed + columns_.back().letters +
           fixed + std::to_string(lastHeader() + last);
  }

  /// In characters: as the grid has them, or wider where their texts need it.
  void fitWidths() {
    double all = 0;
    for (Column& column : columns_) {
      const double widest = widestText(column.inGrid);
      const double told = std::max(kNarrowest, grid_.columnWidth(column.inGrid) / kTwipsPerCharacter);
      column.width = std::max(told, std::min(kWidest, widest + kCellPadding));
      column.broken = widest > column.width;
      all += column.width;
    }
    wide_ = all > kWidestOnPage;
    if (wide_) findPages();
  }

  /// Columns under one caption stay on one page.
  void findPages() {
    double used = columns_.front().width;
    for (std::size_t first = 1; first < columns_.size();) {
      std::size_t end = first;
      double width = 0;
      const std::size_t last = spanOf(0, columns_[first].inGrid).lastColumn;
      for (; end < columns_.size() && (end == first || columns_[end].inGrid <= last); ++end) {
        width += columns_[end].width;
      }
      if (used + width > kWidestBeside && used > columns_.front().width) {
        pageColumns_.push_back(first);
        used = columns_.front().width;
      }
      used += width;
      first = end;
    }
  }

  void writeColumns() {
    if (columns_.empty()) return;
    out_.write("<cols>");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string place = std::to_string(i + 1);
      out_.write("<col min=\"" + place + "\" max=\"" + place + "\" width=\"" +
                 storedWidth(columns_[i].width) + "\" customWidth=\"1\"/>");
    }
    out_.write("</cols>");
  }

  /// A caption over several columns shares their width.
  double widestText(std::size_t column) const {
    double widest = 0;
    for (std::size_t row = 0; row < grid_.rows(); ++row) {
      auto width = static_cast<double>(displayWidth(grid_.text(row, column)));
      if (row < grid_.headerRows()) {
        const CellSpan span = spanOf(row, column);
        width /= static_cast<double>(span.lastColumn - span.firstColumn + 1);
      } else if (options_.money && isNumberCell(grid_, row, column)) {
        width += kSeparatorRoom;
      }
      widest = std::max(widest, width);
    }
    return widest;
  }

  void writeCaption(std::size_t line) {
    beginRow(line == 0 ? kTitleHeight : "");
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
    const bool total = grid_.isTotal(row);
    beginRow();
    for (const Column& column : columns_) writeCell(row, column, total);
    endRow();
  }

  void writeCell(std::size_t row, const Column& column, bool total) {
    const std::string& text = grid_.text(row, column.inGrid);
    const Align align = grid_.alignment(column.inGrid);
    if (isNumberCell(grid_, row, column.inGrid)) {
      writeNumber(column.letters, bodyStyle(formOf(text, column.inGrid), align, total), text);
    } else if (isDateCell(grid_, row, column.inGrid)) {
      writeNumber(column.letters, bodyStyle(CellForm::Date, align, total),
                  textOfDouble(parseDate(text)->toSerial()));
    } else {
      const CellForm form = column.broken ? CellForm::Lines : CellForm::General;
      writeText(column.letters, bodyStyle(form, align, total), text);
    }
  }

  CellForm formOf(const std::string& text, std::size_t column) const {
    if (options_.money && holdsAmounts(grid_, column)) return CellForm::Thousands;
    const bool amount = text.size() > 3 && text[text.size() - 3] == '.';
    return amount ? CellForm::TwoDecimals : CellForm::General;
  }

  void beginRow(std::string_view height = "") {
    number_ = std::to_string(++rows_);
    line_ = "<row r=\"" + number_ + "\"" + std::string(height) + ">";
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

  /// The title and the lines below it over the width of the first page, and captions over several cells.
  void writeMerges() {
    std::string cells;
    std::size_t count = 0;
    const auto merge = [&](const std::string& from, const std::string& to) {
      if (from == to) return;
      cells += "<mergeCell ref=\"" + from + ":" + to + "\"/>";
      ++count;
    };
    for (std::size_t i = 1; i <= captions_.size() && !columns_.empty(); ++i) {
      const std::size_t end = pageColumns_.empty() ? columns_.size() : pageColumns_.front();
      merge("A" + std::to_string(i), columns_[end - 1].letters + std::to_string(i));
    }
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
      for (const Column& column : columns_) {
        const CellSpan span = spanOf(row, column.inGrid);
        if (span.isSingle() || span.firstRow != row || span.firstColumn != column.inGrid) continue;
        const auto last = std::ranges::find(columns_, span.lastColumn, &Column::inGrid);
        merge(column.letters + std::to_string(captions_.size() + 1 + row),
              last->letters + std::to_string(captions_.size() + 1 + span.lastRow));
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
  const ReportHeading& heading_;
  const TextGrid& grid_;
  bool ledger_;
  const WorkbookOptions& options_;
  std::vector<std::string> captions_;  // the title first
  std::vector<Column> columns_;        // that are shown
  bool wide_ = false;                  // for one page
  std::vector<std::size_t> pageColumns_;
  std::size_t rows_ = 0;  // that are written
  std::string number_;    // of the row that is being written
  std::string line_;
};

}  // namespace

struct Workbook::Parts {
  explicit Parts(std::ostream& out) : archive(out) {}

  ZipStream archive;
  std::vector<WorkbookSheet> sheets;
};

Workbook::Workbook(std::ostream& out, WorkbookOptions options)
    : parts_(std::make_unique<Parts>(out)), options_(std::move(options)) {}

Workbook::~Workbook() = default;

void Workbook::add(FinishedReport report) {
  dressCells(report.view.grid, {});
  SheetWriter sheet(parts_->archive, report, options_);
  parts_->archive.begin(sheetPart(parts_->sheets.size()));
  sheet.write(parts_->sheets.empty());
  parts_->sheets.push_back(sheet.sheet());
}

void Workbook::finish() {
  for (const WorkbookPart& part : workbookParts(parts_->sheets)) {
    parts_->archive.begin(part.name);
    parts_->archive.write(part.content);
  }
  parts_->archive.finish();
}

}  // namespace zelkor
