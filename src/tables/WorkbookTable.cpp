#include "tables/WorkbookTable.h"

#include <algorithm>
#include <limits>

#include "base/KeptRows.h"
#include "base/Text.h"
#include "tables/DamagedWorkbook.h"
#include "tables/SheetReader.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRows = 10;  // among which the header is looked for
constexpr std::size_t kLargestTable = std::size_t{256} << 20;

/// Rows that were read already, close together: many of them are held at once.
class HeldRows final : public TableRows {
 public:
  void add(const WorkbookRow& row, const std::vector<std::size_t>& columns);
  std::optional<CsvRecord> next() override;
  std::size_t count() const override { return rows_.size(); }

 private:
  static constexpr char kBetween = '\x1F';  // no cell may hold it
  struct Held {
    std::size_t line = 0;
    std::size_t end = 0;      // in the text
    std::size_t problem = 0;  // number of it, from 1
  };
  std::string text_;
  std::vector<Held> rows_;
  std::vector<WorkbookRow::Problem> problems_;
  std::size_t next_ = 0;
};

/// Takes the cells of those columns, which are in order; what is wrong in others is nothing to the table.
void HeldRows::add(const WorkbookRow& row, const std::vector<std::size_t>& columns) {
  const auto isBlank = [&row](std::size_t column) {
    return column >= row.cells.size() || Trim(row.cells[column]).empty();
  };
  const auto problem = std::ranges::find_if(row.problems, [&columns](const WorkbookRow::Problem& one) {
    return std::ranges::binary_search(columns, one.column - 1);
  });
  const bool isBad = problem != row.problems.end();
  if (std::ranges::all_of(columns, isBlank) && !isBad) return;
  if (text_.size() > kLargestTable) refuseWorkbook("工作表太大，请分成几个");
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) text_ += kBetween;
    if (columns[i] < row.cells.size()) text_ += row.cells[columns[i]];
  }
  if (isBad) problems_.push_back(*problem);
  rows_.push_back({row.number, text_.size(), isBad ? problems_.size() : 0});
}

std::optional<CsvRecord> HeldRows::next() {
  if (next_ == rows_.size()) return std::nullopt;
  const std::size_t begin = next_ == 0 ? 0 : rows_[next_ - 1].end;
  const Held& row = rows_[next_++];
  CsvRecord record{.fields = {}, .line = row.line};
  std::string_view rest = std::string_view(text_).substr(begin, row.end - begin);
  for (std::size_t end = rest.find(kBetween); end != std::string_view::npos; end = rest.find(kBetween)) {
    record.fields.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  record.fields.emplace_back(rest);
  if (row.problem == 0) return record;
  const WorkbookRow::Problem& problem = problems_[row.problem - 1];
  throw CsvError(row.line, problem.column, problem.reason, csvLine(record.fields));
}

/// Where a table may begin.
struct Header {
  const WorkbookMap::Sheet* sheet = nullptr;
  WorkbookRow row;
  std::size_t missing = std::numeric_limits<std::size_t>::max();  // captions
};

std::size_t missingIn(const WorkbookRow& row, const std::vector<std::string_view>& needed) {
  return static_cast<std::size_t>(std::ranges::count_if(needed, [&row](std::string_view caption) {
    return std::ranges::none_of(row.cells, [caption](const auto& cell) { return Trim(cell) == caption; });
  }));
}

Header bestHeader(const WorkbookArchive& archive, const WorkbookMap& map,
                  const std::vector<std::string_view>& needed) {
  Header best;
  for (const WorkbookMap::Sheet& sheet : map.sheets) {
    SheetReader reader(archive, map, sheet.part);
    for (std::size_t i = 0; i < kFirstRows && best.missing > 0; ++i) {
      auto row = reader.next();
      if (!row) break;
      const std::size_t missing = missingIn(*row, needed);
      if (missing < best.missing) best = {&sheet, std::move(*row), missing};
    }
  }
  return best;
}

std::vector<std::size_t> columnsWithCaptions(const WorkbookRow& header) {
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < header.cells.size(); ++i)
    if (!Trim(header.cells[i]).empty()) columns.push_back(i);
  return columns;
}

}  // namespace

TableFile readWorkbookTable(std::string_view content, const std::vector<std::string_view>& needed) {
  const WorkbookArchive archive(content);
  const WorkbookMap map = readWorkbookMap(archive);
  const Header header = bestHeader(archive, map, needed);
  auto rows = std::make_unique<HeldRows>();
  if (header.sheet == nullptr) return {std::move(rows), "空工作簿"};
  const std::vector<std::size_t> columns = columnsWithCaptions(header.row);
  SheetReader reader(archive, map, header.sheet->part);
  while (const auto row = reader.next())
    if (row->number >= header.row.number) rows->add(*row, columns);
  return {std::move(rows),
          "工作表“" + header.sheet->name + "”，表头在第 " + std::to_string(header.row.number) + " 行"};
}

}  // namespace zelkor
