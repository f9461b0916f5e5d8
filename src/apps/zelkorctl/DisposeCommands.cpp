#include "apps/zelkorctl/DisposeCommands.h"

#include <array>
#include <iostream>
#include <map>
#include <vector>

#include "apps/zelkorctl/CommandRun.h"
#include "archives/ArchiveTrees.h"
#include "base/Conversion.h"
#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "base/TerminalDialogs.h"
#include "closing/Disposal.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

enum Column : std::size_t { CardNum, Date, Way, Revenue, Cost, Reason };
constexpr std::array<std::string_view, 6> kCaptions = {"卡片编号", "减少日期", "减少方式",
                                                       "清理收入", "清理费用", "清理原因"};

/// Turns rows into the list of disposals, as the screen lets assets into it.
class DisposalList {
 public:
  DisposalList(Database& data, std::ostream& problems) : data_(data), problems_(problems) {
    for (const TreeRow& way : reductionPickTree(data)) {
      if (!way.tag.empty()) ways_[way.tag] = way.text;  // the head of the tree is no way
    }
  }

  void add(const CsvTableRow& row);
  bool refusedAny() const { return refusedAny_; }
  const std::vector<DisposedAsset>& assets() const { return assets_; }

 private:
  void refuse(const CsvTableRow& row, Column column, const std::string& reason);
  void check(const CsvTableRow& row);

  Database& data_;
  std::ostream& problems_;
  std::map<std::string, std::string> ways_;  // texts by sID
  std::map<std::string, std::size_t> linesOfCards_;
  std::vector<DisposedAsset> assets_;
  bool refusedAny_ = false;
};

void DisposalList::refuse(const CsvTableRow& row, Column column, const std::string& reason) {
  problems_ << "第" << row.line << "行，列“" << kCaptions[column] << "”：" << reason << '\n';
  refusedAny_ = true;
}

void DisposalList::check(const CsvTableRow& row) {
  const std::string& card = row.cells[CardNum];
  if (card.empty()) refuse(row, CardNum, "不能为空");
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

void DisposalList::add(const CsvTableRow& row) {
  check(row);
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
  assets_.push_back(std::move(asset));
}

void dispose(RunContext& context, const std::vector<CsvTableRow>& rows, std::ostream& problems) {
  DisposalList list(context.dbZKData, problems);
  for (const CsvTableRow& row : rows) list.add(row);
  if (list.refusedAny()) throw EndProgram{1};
  if (refusedBeforeDepreciation(context)) throw EndProgram{1};
  if (!disposeOfAssets(context, list.assets())) throw EndProgram{1};
  tellDisposed(context);
}

}  // namespace

int disposeCommand(const DisposeOptions& options, std::ostream& output, std::ostream& problems) {
  const auto rows = readCsvTable(contentOf(options.file), kCaptions);
  const auto clock = clockOf(options.today);
  DbEngine engine;
  TerminalDialogs dialogs(std::cin, output);
  RunContext context(engine, dialogs, *clock);
  writeOutBeforeShowing(context);
  const auto status = runToEnd(context, [&] {
    prepareRun(context, options.arguments);
    dispose(context, rows, problems);
  });
  return status.value_or(0);
}

}  // namespace zelkor
