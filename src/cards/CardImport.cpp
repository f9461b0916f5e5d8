#include "cards/CardImport.h"

#include <algorithm>
#include <utility>

#include "base/Csv.h"
#include "base/CsvTable.h"
#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardRow.h"
#include "cards/ClsBLLFACards.h"
#include "store/accountset/OneTransaction.h"

namespace zelkor {
namespace {

/// Saves the rows of one register; knows what they are checked against.
class CardImport {
 public:
  CardImport(RunContext& context, RegisterColumns columns, NewCardType newType)
      : context_(context),
        columns_(std::move(columns)),
        newType_(newType),
        archives_(CardArchives::read(context)),
        defaults_{context.gstrUser, context.gdOpDate, static_cast<CardMode>(newType)},
        cards_(context) {
    cards_.setZkDataPath(context.gstrZtFile);
  }

  /// Everything that kept the row from being saved.
  std::vector<CellProblem> save(const CsvRecord& row);

 private:
  std::vector<CellProblem> number(CardValues& card);
  std::string problemOfCardNumber(std::string& cardNumber);
  std::string problemOfAssetNumber(std::string& assetNumber, const std::string& category);
  void requireNoFailure();
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

/// The number after 99999. Texts are sorted, so that it would be given to each card that follows.
bool isBehindTheLast(std::string_view number) {
  return number == "1" + std::string(kSequenceLength, '0');
}

constexpr const char* kUsedUp = "编号已用到99999，五位数字没有下一个";

/// Fills a blank number in. A workstation of a server may take the next number at this moment: then there is
/// another next one.
std::string CardImport::problemOfCardNumber(std::string& cardNumber) {
  const auto isThere = [&] { return "“" + cardNumber + "”已存在"; };
  if (!cardNumber.empty()) return isTaken(cardNumber) ? isThere() : std::string();
  std::int32_t digits = 0;
  std::string taken;
  do {
    taken = std::exchange(cardNumber, cards_.GetNewCardNum(digits));
    if (isBehindTheLast(cardNumber)) return kUsedUp;
    if (!isTaken(cardNumber)) return {};
  } while (cardNumber != taken);
  return isThere();
}

std::string CardImport::problemOfAssetNumber(std::string& assetNumber, const std::string& category) {
  if (!assetNumber.empty()) return {};
  assetNumber = cards_.GetNewAssetNum(category);
  if (assetNumber.empty()) return "不能为空：本账套的固定资产编号由手工输入";
  const std::string_view sequence = std::string_view(assetNumber).substr(category.size());
  return isBehindTheLast(sequence) ? kUsedUp : std::string();
}

/// Gives the card the numbers that its row leaves blank. A number that is taken would make the row another
/// version of that card.
std::vector<CellProblem> CardImport::number(CardValues& card) {
  const auto problemsOf = [](CardField field, const std::string& reason) -> std::vector<CellProblem> {
    if (reason.empty()) return {};
    return {{std::string(cardFieldLabel(field)), reason}};
  };
  const std::string problem = problemOfCardNumber(card[CardField::CardNumber]);
  if (!problem.empty()) return problemsOf(CardField::CardNumber, problem);
  return problemsOf(CardField::AssetNumber,
                    problemOfAssetNumber(card[CardField::AssetNumber], card[CardField::CategoryCode]));
}

/// The business class keeps silent about what fails in it. No row that follows would fare better, and half a
/// card must not stay.
void CardImport::requireNoFailure() {
  if (const auto failure = cards_.takeFailure()) throw *failure;
}

std::vector<CellProblem> CardImport::save(const CsvRecord& row) {
  CardValues card;
  auto problems = readCardRow(columns_, row.fields, archives_, defaults_, card);
  if (problems.empty()) problems = number(card);
  requireNoFailure();
  if (!problems.empty()) return problems;
  const CardLayout layout = isWorkloadCard(card) ? CardLayout::Workload : CardLayout::Ordinary;
  cards_.SaveNewCard(card, context_.period(), newType_, layout);
  requireNoFailure();
  return {};
}

std::string sentenceOf(std::size_t line, const std::vector<CellProblem>& problems) {
  std::string sentence = "第" + std::to_string(line) + "行";
  const char* separator = "，";
  for (const CellProblem& problem : problems) {
    sentence += separator;
    sentence += "列“" + problem.column + "”：" + problem.reason;
    separator = "；";
  }
  return sentence;
}

/// Saves a row. A failure of the engine ends the import with its reason and the place.
std::vector<CellProblem> saved(CardImport& import, const CsvRecord& row) {
  try {
    return import.save(row);
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                       "导入停在第" + std::to_string(row.line) + "行，没有保存任何卡片。" + error.what());
  }
}

/// Imports the next row; false at the end. A row whose quotes are wrong is refused like any other bad row.
bool importNext(TableRows& rows, CardImport& import, ImportResult& result, ImportProblems& problems) {
  try {
    const auto row = rows.next();
    if (!row) return false;
    const auto found = saved(import, *row);
    if (!found.empty()) problems.refuse(sentenceOf(row->line, found));
    ++(found.empty() ? result.stored : result.refused);
  } catch (const CsvError& error) {
    problems.refuse(error.what());
    ++result.refused;
  }
  return true;
}

RegisterColumns columnsOf(TableRows& rows, ImportProblems& problems) {
  const auto header = rows.next();
  if (!header) throw RuntimeError(ErrorNumber::DataTypeConversion, "文件是空的：没有表头");
  RegisterColumns columns(header->fields);
  for (const std::string& caption : columns.unknown()) {
    problems.tell(sentenceOf(header->line, {{caption, "不是卡片的项目，已忽略此列"}}));
  }
  return columns;
}

}  // namespace

ImportResult importCards(RunContext& context, TableRows& rows, int newType, ImportProblems& problems) {
  RegisterColumns columns = columnsOf(rows, problems);
  ImportResult result;
  OneTransaction transaction(context.engine.workspace());
  context.dbZKData.lockForWriting();
  CardImport import(context, std::move(columns), static_cast<NewCardType>(newType));
  LongJob job(context.dialogs, "正在导入卡片", rows.count());
  while (importNext(rows, import, result, problems)) job.step();
  transaction.commit();
  return result;
}

ImportResult importCards(RunContext& context, std::string_view csv, int newType, std::ostream& problems) {
  requireUtf8(csv);
  CsvReader reader{std::string(csv)};
  KeptRows rows(reader);
  ImportProblems told(problems, rows);
  return importCards(context, rows, newType, told);
}

}  // namespace zelkor
