#include "closing/DisposalTable.h"

#include <array>
#include <map>

#include "archives/ArchiveTrees.h"
#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

enum Column : std::size_t { CardNum, Date, Way, Revenue, Cost, Reason };
constexpr std::array<std::string_view, 6> kCaptions = {"卡片编号", "减少日期", "减少方式",
                                                       "清理收入", "清理费用", "清理原因"};

class DisposalReader {
 public:
  explicit DisposalReader(Database& data) : data_(data) {
    for (const TreeRow& way : reductionPickTree(data)) {
      if (!way.tag.empty()) ways_[way.tag] = way.text;  // the head of the tree is no way
    }
  }

  void add(const CsvTableRow& row);
  const DisposalTable& table() const { return table_; }

 private:
  void refuse(const CsvTableRow& row, Column column, const std::string& reason) {
    table_.problems.push_back(csvCellText(row.line, kCaptions[column], reason));
  }
  void check(const CsvTableRow& row);

  Database& data_;
  std::map<std::string, std::string> ways_;  // texts by sID
  std::map<std::string, std::size_t> linesOfCards_;
  DisposalTable table_;
};

void DisposalReader::check(const CsvTableRow& row) {
  const std::string& card = row.cells[CardNum];
  if (card.empty()) refuse(row, CardNum, "不能为空");
  if (const auto problem = quoteProblem(card)) refuse(row, CardNum, *problem);
  const auto [earlier, isNew] = linesOfCards_.try_emplace(card, row.line);
  if (!isNew) refuse(row, CardNum, sql("“", card, "”已在第", earlier->second, "行"));
  const auto shown = [&row](Column column) { return "“" + row.cells[column] + "”"; };
  if (!row.cells[Date].empty() && !IsDate(row.cells[Date])) refuse(row, Date, shown(Date) + "不是日期");
  if (!row.cells[Way].empty() && !ways_.contains(row.cells[Way])) {
    refuse(row, Way, "减少方式中没有" + shown(Way));
  }
  for (const Column amount : {Revenue, Cost}) {
    if (!row.cells[amount].empty() && !IsNumeric(row.cells[amount])) {
      refuse(row, amount, shown(amount) + "不是数");
    }
  }
}

void DisposalReader::add(const CsvTableRow& row) {
  check(row);
  if (quoteProblem(row.cells[CardNum])) return;
  DisposedAsset asset{.sCardNum = row.cells[CardNum],
                      .sAssetNum = "",
                      .sAssetName = "",
                      .way = "",
                      .wayID = row.cells[Way],
                      .revenue = row.cells[Revenue],
                      .cost = row.cells[Cost],
                      .reason = row.cells[Reason]};
  if (const auto way = ways_.find(asset.wayID); way != ways_.end()) asset.way = way->second;
  const Recordset card = data_.OpenRecordset(sql("select sAssetNum,sAssetName from fa_Cards where sCardNum='",
                                                 asset.sCardNum, "' order by val(sCardID) desc"));
  if (!card.Eof()) {
    asset.sAssetNum = card.TextOrEmpty("sAssetNum");
    asset.sAssetName = card.TextOrEmpty("sAssetName");
  }
  table_.assets.push_back(std::move(asset));
}

}  // namespace

std::vector<CsvTableRow> readDisposalRows(TableRows& rows) {
  return readCsvTable(rows, kCaptions);
}

std::vector<std::string_view> disposalCaptions() {
  return {kCaptions.begin(), kCaptions.end()};
}

DisposalTable listDisposals(Database& data, std::span<const CsvTableRow> rows) {
  DisposalReader reader(data);
  for (const CsvTableRow& row : rows) reader.add(row);
  return reader.table();
}

}  // namespace zelkor
