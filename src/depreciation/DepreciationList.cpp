#include "depreciation/DepreciationList.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

constexpr const char* kLongHeader =
    "卡片编号|资产编号|资产名称|原值|计提原值|本月折旧|累计折旧|净值|净残值|折旧率|单位折旧|本月工作量|"
    "累计工作量";
constexpr const char* kShortHeader =
    "卡片编号|资产编号|资产名称|原值|计提原值|本月折旧|累计折旧|净值|净残值|折旧率";

enum Column : std::size_t {
  kCardNum,
  kAssetNum,
  kAssetName,
  kValue,
  kDeprValue,
  kDepr,
  kDeprTotal,
  kNetValue,
  kResidual,
  kRate,
  kPerDepr,
  kWork,
  kWorkTotal,
  kColumns
};

constexpr std::array kAmounts = {kValue, kDeprValue, kDepr, kDeprTotal, kNetValue, kResidual};

/// The list while it is being filled: rows of figures, and the totals of the amounts.
class ListGrid {
 public:
  explicit ListGrid(bool withWorkload) : columns_(withWorkload ? kColumns : kPerDepr) {
    static constexpr int kWidths[kColumns] = {1100, 1500, 2400, 1500, 1500, 1300, 1500,
                                              1500, 1300, 1000, 1100, 1200, 1200};
    grid_.setHeader(withWorkload ? kLongHeader : kShortHeader);
    for (std::size_t column = 0; column < columns_; ++column) {
      grid_.setColumnWidth(column, kWidths[column]);
      if (column >= kValue) grid_.setAlignment(column, Align::Right);
    }
  }

  /// Gives the card's row.
  std::size_t addCard(const Recordset& card) {
    const std::size_t row = grid_.addRow(
        {card.TextOrEmpty("sCardNum"), card.TextOrEmpty("sAssetNum"), card.TextOrEmpty("sAssetName")});
    const Value value = card.Fields("dblValue");
    for (const Column column : {kValue, kDeprValue, kNetValue}) set(row, column, value);
    set(row, kResidual, card.Fields("dblBV"));
    set(row, kPerDepr, card.Fields("dblPerDepr"));
    return row;
  }

  /// Null leaves the cell empty, a column that is not shown is passed over.
  void set(std::size_t row, Column column, const Value& figure) {
    if (column >= columns_) return;
    const bool fourDecimals = column == kRate || column == kPerDepr;
    grid_.setText(row, column, Format(figure, fourDecimals ? "0.0000" : "0.00"));
    totals_[column] += figure.numberOrZero();
  }

  TextGrid finish() {
    const std::size_t row = grid_.addRow({"合计"});
    grid_.setTotal(row);
    for (const Column column : kAmounts) grid_.setText(row, column, Format(totals_[column], "0.00"));
    return std::move(grid_);
  }

 private:
  TextGrid grid_;
  std::size_t columns_;
  std::array<double, kColumns> totals_{};
};

void dropWorkingTable(Database& data) {
  if (data.HasTable("yxkp")) data.Execute("drop table yxkp");
}

/// Fills `yxkp` with what `rest` selects for each card number: the first card makes the table. False where
/// there is no card, and so no table.
template <typename RestOfCard>
bool fillWorkingTable(Database& data, const char* cardNums, const char* columns, RestOfCard rest) {
  dropWorkingTable(data);
  std::vector<std::string> cards;
  for (Recordset rows = data.OpenRecordset(cardNums); !rows.Eof(); rows.MoveNext())
    cards.push_back(rows.TextOrEmpty("sCardNum"));
  if (cards.empty()) return false;
  data.Execute(sql("SELECT ", columns, " into yxkp", rest(cards.front())));
  forEachGroup(data, std::span(cards).subspan(1), [&](std::span<const std::string> some) {
    StatementGroup group(data);
    for (const std::string& card : some)
      group.execute(sql("insert into yxkp SELECT ", columns, " ", rest(card)));
    group.run();
  });
  return true;
}

/// Adds the cards of the working table; `ask` puts what is asked for a card, in its row, into a group.
template <typename Ask>
void addCards(Database& data, ListGrid& list, const char* cards, Ask ask) {
  StatementGroup group(data);
  std::size_t asked = 0;
  for (Recordset rows = data.OpenRecordset(cards); !rows.Eof(); rows.MoveNext()) {
    ask(group, list.addCard(rows), rows.TextOrEmpty("sCardNum"));
    if (++asked % StatementGroup::kThings == 0) group.run();
  }
  group.run();
}

void askMonth(StatementGroup& group, ListGrid& list, std::size_t row, const std::string& cardNum, int month) {
  group.open(sql("select * from fa_DeprTransactions where sCardNum='", cardNum, "'"),
             [&list, row, month](const Recordset& ledger) {
               if (ledger.Eof()) return;
               list.set(row, kDepr, ledger.Fields(sql("dblDepr", month)));
               list.set(row, kDeprTotal, ledger.Fields(sql("dblDeprT", month)));
               list.set(row, kRate, ledger.Fields(sql("dblDeprRate", month)));
             });
  group.open(sql("select * from fa_workload where sCardNum='", cardNum, "'"),
             [&list, row, month](const Recordset& work) {
               if (work.Eof()) return;
               list.set(row, kWork, work.Fields(sql("dblWork", month)));
               list.set(row, kWorkTotal, work.Fields(sql("dblWorkT", month)));
             });
}

/// The combo text between the point and the bracket or the end; empty for "全年".
std::string periodOf(std::string_view item) {
  const std::size_t point = item.find('.');
  if (point == std::string_view::npos) return {};
  const std::string_view behind = item.substr(point + 1);
  return std::string(behind.substr(0, behind.find('(')));
}

struct Choice {
  std::string period;
  std::string_view department;  // empty: none chosen
  std::string_view assetType;   // empty: none chosen
};

std::string versionOfPeriod(const Choice& choice, const std::string& cardNum) {
  const std::string from = sql(
      " FROM fa_Cards a WHERE a.sCardID IN (SELECT max(sCardID)   From fa_Cards WHERE fa_Cards.iInputPeriod=",
      choice.period);
  if (choice.assetType.empty()) return sql(from, "and sCardNum ='", cardNum, "')");
  return sql(from, " and sTypeNum like'", choice.assetType, "*' and sCardNum ='", cardNum, "')");
}

void askPeriod(StatementGroup& group, ListGrid& list, std::size_t row, const std::string& cardNum,
               const Choice& choice) {
  const std::string& n = choice.period;
  group.open(sql("select dblDeprRate", n, " as dblDeprRate,dblDepr", n, " as dblDepr,dblDeprT", n,
                 " as dblDeprT from fa_DeprTransactions where sCardNum='", cardNum, "'"),
             [&list, row](const Recordset& ledger) {
               if (ledger.Eof()) return;
               list.set(row, kDepr, ledger.Fields("dblDepr"));
               list.set(row, kDeprTotal, ledger.Fields("dblDeprT"));
               list.set(row, kRate, ledger.Fields("dblDeprRate"));
             });
  if (choice.department.empty()) return;
  group.open(sql("select sum(dblWork", n, ") as dblWork,sum(dblWorkT", n,
                 ") as dblWorkT from fa_WorkLoad_Detail where sDeptNum='", choice.department,
                 "' and sCardNum='", cardNum, "'"),
             [&list, row](const Recordset& work) {
               list.set(row, kWork, work.Fields("dblWork"));
               list.set(row, kWorkTotal, work.Fields("dblWorkT"));
             });
}

TextGrid listOfPeriod(RunContext& run, const Choice& choice) {
  Database& data = run.dbZKData;
  ListGrid list(choice.period == std::to_string(run.period()));
  if (choice.period.empty()) {
    dropWorkingTable(data);
    return list.finish();
  }
  const bool filled =
      fillWorkingTable(data, "select distinct sCardNum from fa_cards",
                       "sCardID,sCardNum,sAssetNum,sAssetName,dblValue,dblBV,dblBVrate,dblPerDepr",
                       [&](const std::string& cardNum) { return versionOfPeriod(choice, cardNum); });
  if (!filled) return list.finish();
  addCards(data, list, "select * from yxkp ",
           [&](StatementGroup& group, std::size_t row, const std::string& cardNum) {
             askPeriod(group, list, row, cardNum, choice);
           });
  return list.finish();
}

}  // namespace

TextGrid depreciationList(RunContext& run) {
  Database& data = run.dbZKData;
  const bool filled = fillWorkingTable(
      data, "select distinct sCardNum from fa_Cards",
      "top 1 sCardID,sCardNum,sAssetNum,sAssetName,dblValue,dblBV,dblPerDepr,iTransPeriod",
      [](const std::string& cardNum) {
        return sql(" FROM fa_Cards Where sCardNum='", cardNum, "' order by val(sCardID) desc");
      });
  ListGrid list(true);
  if (!filled) return list.finish();
  addCards(data, list, "select * from yxkp order by sCardNum",
           [&, month = run.period()](StatementGroup& group, std::size_t row, const std::string& cardNum) {
             askMonth(group, list, row, cardNum, month);
           });
  return list.finish();
}

TextGrid depreciationListByDepartment(RunContext& run, std::string_view periodItem,
                                      std::string_view department) {
  return listOfPeriod(run, {periodOf(periodItem), department, ""});
}

TextGrid depreciationListByAssetType(RunContext& run, std::string_view periodItem,
                                     std::string_view assetType) {
  return listOfPeriod(run, {periodOf(periodItem), "", assetType});
}

}  // namespace zelkor
