#include "depreciation/WorkloadImport.h"

#include <array>
#include <map>

#include "base/CsvTable.h"
#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "depreciation/Workload.h"
#include "store/accountset/OneTransaction.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 2> kCaptions = {"卡片编号", "本月工作量"};
enum Column : std::size_t { kCardNum, kWork };

/// Stores the rows of one file.
class WorkloadImport {
 public:
  WorkloadImport(Database& data, int month) : data_(data), month_(month) {
    for (const CardWorkload& card : workloadCards(data, month))
      cards_.emplace(asciiLower(card.cardNum), Card{card, 0});
  }

  /// What kept the row from being stored, a sentence each.
  std::vector<std::string> store(const CsvTableRow& row);

 private:
  struct Card {
    CardWorkload workload;
    std::size_t line;  // that has given its work; 0 before
  };

  std::string cardProblem(const std::string& cardNum);

  Database& data_;
  int month_;
  std::map<std::string, Card> cards_;
};

std::string WorkloadImport::cardProblem(const std::string& cardNum) {
  const auto card = cards_.find(asciiLower(cardNum));
  if (cardNum.empty()) return "不能为空";
  if (card == cards_.end()) return "没有折旧方法为工作量法的卡片“" + cardNum + "”";
  return card->second.line > 0 ? sql("与第", card->second.line, "行重复") : "";
}

std::vector<std::string> WorkloadImport::store(const CsvTableRow& row) {
  std::vector<std::string> problems;
  const std::string& cardNum = row.cells[kCardNum];
  if (const std::string problem = cardProblem(cardNum); !problem.empty())
    problems.push_back(csvCellText(row.line, kCaptions[kCardNum], problem));
  const auto work = workOf(row.cells[kWork]);
  if (!work) {
    problems.push_back(csvCellText(row.line, kCaptions[kWork],
                                   "“" + row.cells[kWork] + "”不是工作量，应为不小于 0 的数，小数不超过" +
                                       std::to_string(kWorkDecimals) + "位，如 160.5"));
  }
  if (!problems.empty()) return problems;
  Card& card = cards_.at(asciiLower(cardNum));
  card.line = row.line;
  storeWorkload(data_, card.workload.cardNum, month_, *work, card.workload.before + *work);
  return {};
}

std::string linesOf(const std::vector<std::string>& sentences) {
  std::string lines;
  for (const std::string& sentence : sentences) lines += (lines.empty() ? "" : "\n") + sentence;
  return lines;
}

/// Stores a row. A failure of the engine ends the import with its reason and the place.
std::vector<std::string> stored(WorkloadImport& import, const CsvTableRow& row) {
  try {
    return import.store(row);
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                       sql("导入停在第", row.line, "行，没有保存任何工作量。", error.what()));
  }
}

/// Imports the next row; false at the end. A line that is no row of the table is refused like any other bad
/// row.
bool importNext(CsvTable& table, WorkloadImport& import, ImportResult& result, ImportProblems& problems) {
  try {
    const auto row = table.next();
    if (!row) return false;
    const auto found = stored(import, *row);
    if (!found.empty()) problems.refuse(linesOf(found));
    ++(found.empty() ? result.stored : result.refused);
  } catch (const CsvRowError& error) {
    problems.refuse((error.line() > 0 ? sql("第", error.line(), "行：") : "") + error.what());
    ++result.refused;
  }
  return true;
}

}  // namespace

std::vector<std::string_view> workloadCaptions() {
  return {kCaptions.begin(), kCaptions.end()};
}

ImportResult importWorkload(RunContext& context, TableRows& rows, ImportProblems& problems) {
  CsvTable table(rows, kCaptions);
  ImportResult result;
  OneTransaction transaction(context.engine.workspace());
  context.dbZKData.lockForWriting();
  WorkloadImport import(context.dbZKData, context.period());
  while (importNext(table, import, result, problems)) goOnUnlessSignalled();
  transaction.commit();
  return result;
}

}  // namespace zelkor
