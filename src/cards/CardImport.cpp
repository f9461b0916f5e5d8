#include "cards/CardImport.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "base/Csv.h"
#include "base/CsvTable.h"
#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardRow.h"
#include "cards/CardSequences.h"
#include "cards/NewCards.h"
#include "cards/VoucherStaging.h"
#include "store/accountset/OneTransaction.h"

namespace zelkor {
namespace {

/// A row of the register on its way.
struct RegisterRow {
  std::size_t line = 0;
  std::string broken = {};  // what is wrong with its quotes; nothing else is there then
  std::vector<CellProblem> problems = {};
  CardValues card = {};
  std::exception_ptr failure = {};  // of the engine, which ends the import
  KeptRows::Row text = {};          // as it was read

  bool isGood() const { return broken.empty() && problems.empty() && !failure; }
};
using RegisterRows = std::vector<RegisterRow>;

/// Rows that are numbered and written together.
struct RowGroup {
  RowGroup(RunContext& context, NewCardType type)
      : statements(context.dbZKData), cards(type), staging(context) {}

  StatementGroup statements;
  CardSequences sequences;
  NewCards cards;
  AssetStaging staging;
  std::set<std::string> taken;      // card numbers, in small letters
  std::vector<std::size_t> behind;  // statements up to the end of each row
};

/// Saves the rows of one register; knows what they are checked against.
class CardImport {
 public:
  CardImport(RunContext& context, RegisterColumns columns, NewCardType newType)
      : context_(context),
        columns_(std::move(columns)),
        newType_(newType),
        archives_(CardArchives::read(context)),
        defaults_{context.gstrUser, context.gdOpDate, static_cast<CardMode>(newType)} {}

  /// The row with everything that can be told of it by itself.
  RegisterRow check(const CsvRecord& record) const;
  /// Saves the good rows with the numbers that they get one after the other; the others get their problems.
  /// Where one fails it is the last that is left.
  void save(RegisterRows& rows) const;

 private:
  void read(RowGroup& group, const RegisterRows& rows) const;
  void write(RowGroup& group, RegisterRow& row) const;
  std::vector<CellProblem> number(RowGroup& group, CardValues& card) const;
  std::string problemOfCardNumber(const RowGroup& group, std::string& cardNumber) const;
  bool isTaken(const std::string& cardNumber) const;

  RunContext& context_;
  RegisterColumns columns_;
  NewCardType newType_;
  CardArchives archives_;
  CardDefaults defaults_;
};

RegisterRow CardImport::check(const CsvRecord& record) const {
  RegisterRow row{.line = record.line};
  try {
    row.problems = readCardRow(columns_, record.fields, archives_, defaults_, row.card);
  } catch (const RuntimeError&) {
    row.failure = std::current_exception();
  }
  return row;
}

std::string searchFor(const std::string& cardNumber) {
  return "Select Top 1 sCardNum From FA_Cards Where sCardNum='" + cardNumber + "'";
}

bool CardImport::isTaken(const std::string& cardNumber) const {
  return !context_.dbZKData.OpenRecordset(searchFor(cardNumber)).Eof();
}

/// The number after 99999. Texts are sorted, so that it would be given to each card that follows.
bool isBehindTheLast(std::string_view number) {
  return number == "1" + std::string(kSequenceLength, '0');
}

constexpr const char* kUsedUp = "编号已用到99999，五位数字没有下一个";

/// Fills a blank number in. A number behind all others is free; another workstation that takes it at this
/// moment takes it behind the back of any check.
std::string CardImport::problemOfCardNumber(const RowGroup& group, std::string& cardNumber) const {
  const bool isDrawn = cardNumber.empty();
  if (isDrawn) cardNumber = group.sequences.nextCardNumber();
  if (isDrawn && isBehindTheLast(cardNumber)) return kUsedUp;
  const bool taken = group.taken.contains(asciiLower(cardNumber)) ||
                     (isDrawn && !group.sequences.isBehindAll(cardNumber) && isTaken(cardNumber));
  return taken ? "“" + cardNumber + "”已存在" : std::string();
}

std::string problemOfAssetNumber(const CardSequences& sequences, std::string& assetNumber,
                                 const std::string& category) {
  if (!assetNumber.empty()) return {};
  assetNumber = sequences.nextAssetNumber(category);
  if (assetNumber.empty()) return kNumberedByHand;
  const std::string_view sequence = std::string_view(assetNumber).substr(category.size());
  return isBehindTheLast(sequence) ? kUsedUp : std::string();
}

/// Gives the card the numbers that its row leaves blank. A number that is taken would make the row another
/// version of that card.
std::vector<CellProblem> CardImport::number(RowGroup& group, CardValues& card) const {
  const auto problemsOf = [](CardField field, const std::string& reason) -> std::vector<CellProblem> {
    if (reason.empty()) return {};
    return {{std::string(cardFieldLabel(field)), reason}};
  };
  const std::string problem = problemOfCardNumber(group, card[CardField::CardNumber]);
  if (!problem.empty()) return problemsOf(CardField::CardNumber, problem);
  return problemsOf(
      CardField::AssetNumber,
      problemOfAssetNumber(group.sequences, card[CardField::AssetNumber], card[CardField::CategoryCode]));
}

void CardImport::read(RowGroup& group, const RegisterRows& rows) const {
  for (const RegisterRow& row : rows) {
    if (!row.isGood()) continue;
    const std::string& number = row.card[CardField::CardNumber];
    if (!number.empty()) {
      group.statements.open(searchFor(number), [&group, &number](const Recordset& found) {
        if (!found.Eof()) group.taken.insert(asciiLower(number));
      });
    }
    group.sequences.read(group.statements, row.card);
    group.cards.read(group.statements, row.card);
    if (newType_ == NewCardType::AddedInPeriod)
      group.staging.read(group.statements, row.card[CardField::AdditionWay], context_.period());
  }
  group.statements.run();
}

void CardImport::write(RowGroup& group, RegisterRow& row) const {
  if (row.isGood()) row.problems = number(group, row.card);
  if (!row.isGood()) return;
  const CardLayout layout = isWorkloadCard(row.card) ? CardLayout::Workload : CardLayout::Ordinary;
  const CardEntry card = group.cards.entry(row.card, layout, context_.period());
  group.cards.write(group.statements, card);
  if (newType_ == NewCardType::AddedInPeriod)
    group.staging.write(group.statements, stagedAsset(card, card[CardField::CardNumber]));
  group.sequences.note(row.card);
  group.taken.insert(asciiLower(row.card[CardField::CardNumber]));
}

void CardImport::save(RegisterRows& rows) const {
  RowGroup group(context_, newType_);
  try {
    read(group, rows);
    group.statements.runAll([&] {
      for (RegisterRow& row : rows) {
        write(group, row);
        group.behind.push_back(group.statements.added());
      }
    });
  } catch (const RuntimeError&) {
    const auto done = std::ranges::upper_bound(group.behind, group.statements.carriedOut());
    const auto failed =
        std::ranges::find_if(rows.begin() + (done - group.behind.begin()), rows.end(), &RegisterRow::isGood);
    failed->failure = std::current_exception();
    rows.erase(std::next(failed), rows.end());
  }
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

std::string whyRefused(const RegisterRow& row) {
  return row.broken.empty() ? sentenceOf(row.line, row.problems) : row.broken;
}

/// The next row; nothing at the end. A row whose quotes are wrong is refused like any other bad row.
std::optional<RegisterRow> nextRow(TableRows& rows, const CardImport& import) {
  try {
    const auto record = rows.next();
    return record ? std::optional(import.check(*record)) : std::nullopt;
  } catch (const CsvError& error) {
    return RegisterRow{.broken = error.what()};
  }
}

/// The next rows that go out together; the last of them may have failed.
RegisterRows nextRows(TableRows& table, const CardImport& import, const ImportProblems& problems) {
  RegisterRows rows;
  rows.reserve(StatementGroup::kThings);
  while (rows.size() < StatementGroup::kThings && (rows.empty() || !rows.back().failure)) {
    auto row = nextRow(table, import);
    if (!row) break;
    row->text = problems.lastRow();
    rows.push_back(std::move(*row));
  }
  return rows;
}

/// A failure of the engine ends the import with its reason and the place.
void requireNoFailure(const RegisterRow& row) {
  if (!row.failure) return;
  try {
    std::rethrow_exception(row.failure);
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                       "导入停在第" + std::to_string(row.line) + "行，没有保存任何卡片。" + error.what());
  }
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

ImportResult importCards(RunContext& context, TableRows& table, int newType, ImportProblems& problems) {
  RegisterColumns columns = columnsOf(table, problems);
  ImportResult result;
  OneTransaction transaction(context.engine.workspace());
  context.dbZKData.lockForWriting();
  const CardImport import(context, std::move(columns), static_cast<NewCardType>(newType));
  LongJob job(context.dialogs, "正在导入卡片", table.count());
  for (RegisterRows rows = nextRows(table, import, problems); !rows.empty();
       rows = nextRows(table, import, problems)) {
    import.save(rows);
    for (const RegisterRow& row : rows) {
      requireNoFailure(row);
      if (!row.isGood()) problems.refuse(row.text, whyRefused(row));
      ++(row.isGood() ? result.stored : result.refused);
      job.step();
    }
  }
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
