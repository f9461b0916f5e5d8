#include "cards/CardImport.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "base/Csv.h"
#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardRow.h"
#include "cards/ClsBLLFACards.h"

namespace zelkor {
namespace {

/// Saves the rows of one register; knows what they are checked against.
class CardImport {
 public:
  CardImport(RunContext& context, RegisterColumns columns, NewCardType newType)
      : context_(context),
        columns_(std::move(columns)),
        newType_(newType),
        archives_(CardArchives::read(context.dbZKData)),
        defaults_{context.gstrUser, context.gdOpDate},
        cards_(context) {
    cards_.setZkDataPath(context.gstrZtFile);
  }

  /// Everything that kept the row from being saved.
  std::vector<CellProblem> save(const CsvRecord& row);

 private:
  std::vector<CellProblem> number(CardValues& card);
  bool hasNumberOfItsOwn(std::string& cardNumber);
  bool isTaken(const std::string& cardNumber);

  RunContext& context_;
  RegisterColumns columns_;
  NewCardType newType_;
  CardArchives archives_;
  CardDefaults defaults_;
  ClsBLLFACards cards_;
};

bool CardImport::isTaken(const std::string& cardNumber) {
  return !context_.dbZKData
              .OpenRecordset("Select Top 1 sCardNum From FA_Cards Where sCardNum='" + cardNumber + "'")
              .Eof();
}

/// Fills a blank number in; false when it is that of another card. A workstation may take the next number at
/// this moment: then there is another next one.
bool CardImport::hasNumberOfItsOwn(std::string& cardNumber) {
  if (!cardNumber.empty()) return !isTaken(cardNumber);
  std::int32_t length = 0;
  std::string taken;
  do {
    taken = std::exchange(cardNumber, cards_.GetNewCardNum(length));
    if (!isTaken(cardNumber)) return true;
  } while (cardNumber != taken);
  return false;
}

/// Gives the card the numbers that its row leaves blank. A number that is taken would make the row another
/// version of that card.
std::vector<CellProblem> CardImport::number(CardValues& card) {
  std::string& cardNumber = card[CardField::CardNumber];
  if (!hasNumberOfItsOwn(cardNumber))
    return {{std::string(cardFieldLabel(CardField::CardNumber)), "“" + cardNumber + "”已存在"}};

  std::string& assetNumber = card[CardField::AssetNumber];
  if (assetNumber.empty()) assetNumber = cards_.GetNewAssetNum(card[CardField::CategoryCode]);
  if (!assetNumber.empty()) return {};
  return {{std::string(cardFieldLabel(CardField::AssetNumber)), "不能为空：本账套的固定资产编号由手工输入"}};
}

std::vector<CellProblem> CardImport::save(const CsvRecord& row) {
  CardValues card;
  auto problems = readCardRow(columns_, row.fields, archives_, defaults_, card);
  if (problems.empty()) problems = number(card);
  if (!problems.empty()) return problems;
  const CardLayout layout = isWorkloadCard(card) ? CardLayout::Workload : CardLayout::Ordinary;
  if (cards_.SaveNewCard(card, context_.period(), newType_, layout)) return {};
  return {{columns_.caption(0), "数据库拒绝保存此卡片"}};
}

/// Undoes everything unless it is committed.
class OneTransaction {
 public:
  explicit OneTransaction(Workspace& workspace) : workspace_(workspace) { workspace_.BeginTrans(); }
  OneTransaction(const OneTransaction&) = delete;
  OneTransaction& operator=(const OneTransaction&) = delete;
  ~OneTransaction() {
    try {
      if (workspace_.inTransaction()) workspace_.Rollback();
    } catch (const RuntimeError&) {
      // the error that led here is the one to report
    }
  }
  void commit() { workspace_.CommitTrans(); }

 private:
  Workspace& workspace_;
};

void print(std::ostream& out, std::size_t line, const std::vector<CellProblem>& problems) {
  out << "第" << line << "行";
  const char* separator = "，";
  for (const CellProblem& problem : problems) {
    out << separator << "列“" << problem.column << "”：" << problem.reason;
    separator = "；";
  }
  out << '\n';
}

/// Imports the next row; false at the end. A row whose quotes are wrong is refused like any other bad row.
bool importNext(CsvReader& reader, CardImport& import, ImportResult& result, std::ostream& problems) {
  try {
    const auto row = reader.next();
    if (!row) return false;
    const auto found = import.save(*row);
    if (!found.empty()) print(problems, row->line, found);
    ++(found.empty() ? result.stored : result.refused);
  } catch (const CsvError& error) {
    problems << error.what() << '\n';
    ++result.refused;
  }
  return true;
}

RegisterColumns columnsOf(CsvReader& reader, std::ostream& problems) {
  const auto header = reader.next();
  if (!header) throw RuntimeError(ErrorNumber::DataTypeConversion, "文件是空的：没有表头");
  RegisterColumns columns(header->fields);
  for (const std::string& caption : columns.unknown()) {
    problems << "第" << header->line << "行，列“" << caption << "”：不是卡片的项目，已忽略此列\n";
  }
  return columns;
}

}  // namespace

ImportResult importCards(RunContext& context, std::string_view csv, int newType, std::ostream& problems) {
  requireUtf8(csv);
  CsvReader reader{std::string(csv)};
  RegisterColumns columns = columnsOf(reader, problems);
  CardImport import(context, std::move(columns), static_cast<NewCardType>(newType));
  ImportResult result;
  OneTransaction transaction(context.engine.workspace());
  while (importNext(reader, import, result, problems)) {
  }
  transaction.commit();
  return result;
}

}  // namespace zelkor
