#include "cards/CardPreview.h"

#include <map>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardRow.h"
#include "cards/CardSequences.h"
#include "cards/ClsBLLFACards.h"

namespace zelkor {
namespace {

std::string kindOf(const CardFieldRow& field) {
  const std::string needed = field.inRegister ? "，必填" : "";
  if (field.isCode()) return (field.field == CardField::DepreciationMethod ? "名称" : "编码") + needed;
  if (field.field == CardField::UsefulLife) return "月数" + needed;
  switch (field.type) {
    case CardDataType::Date:
      return "日期" + needed;
    case CardDataType::Int:
      return "整数" + needed;
    case CardDataType::Cur:
      return "金额" + needed;
    case CardDataType::Per:
      return "小数" + needed;
    default:
      return "文字" + needed;
  }
}

/// What each column would be taken for, whether all needed ones are there or not.
void describeColumns(const CsvRecord& header, ImportPreview& preview) {
  for (const std::string& caption : header.fields) {
    const auto field = cardFieldOfLabel(caption);
    preview.columns.push_back({caption, field ? kindOf(cardField(*field)) : ""});
  }
}

/// The numbers that a register gives, of which each may be there once.
class GivenNumbers {
 public:
  explicit GivenNumbers(RunContext& context) : cards_(context) {
    cards_.setZkDataPath(context.gstrZtFile);
    Recordset taken = context.dbZKData.OpenRecordset("select distinct sCardNum from FA_Cards");
    for (; !taken.Eof(); taken.MoveNext()) lines_.emplace(asciiLower(taken.TextOrEmpty("sCardNum")), 0);
  }

  std::vector<CellProblem> check(std::size_t line, const CardValues& card) {
    const std::string& number = card[CardField::CardNumber];
    const auto earlier = number.empty() ? lines_.end() : lines_.find(asciiLower(number));
    if (earlier != lines_.end()) {
      const std::string place =
          earlier->second == 0 ? "已存在" : "与第" + std::to_string(earlier->second) + "行重复";
      return {{std::string(cardFieldLabel(CardField::CardNumber)), "“" + number + "”" + place}};
    }
    if (card[CardField::AssetNumber].empty() && givesNoAssetNumbers(card))
      return {{std::string(cardFieldLabel(CardField::AssetNumber)), kNumberedByHand}};
    lines_.emplace(asciiLower(number), line);
    return {};
  }

 private:
  /// Asked once: it is an option of the account set.
  bool givesNoAssetNumbers(const CardValues& card) {
    if (!byHand_) byHand_ = cards_.GetNewAssetNum(card[CardField::CategoryCode]).empty();
    if (const auto failure = cards_.takeFailure()) throw *failure;
    return *byHand_;
  }

  ClsBLLFACards cards_;
  std::map<std::string, std::size_t> lines_;  // 0: of a card that is there
  std::optional<bool> byHand_;
};

void checkRows(RunContext& context, TableRows& rows, const RegisterColumns& columns, int newType,
               ImportPreview& preview) {
  const CardArchives archives = CardArchives::read(context);
  const CardDefaults defaults{context.gstrUser, context.gdOpDate, static_cast<CardMode>(newType)};
  GivenNumbers numbers(context);
  while (const auto row = previewNext(rows, preview)) {
    CardValues card;
    auto found = readCardRow(columns, row->fields, archives, defaults, card);
    if (found.empty()) found = numbers.check(row->line, card);
    if (found.empty()) continue;
    std::vector<ImportPreview::Problem> problems;
    for (CellProblem& problem : found)
      problems.push_back({row->line, std::move(problem.column), std::move(problem.reason)});
    addBadRow(preview, problems);
  }
}

}  // namespace

ImportPreview previewCards(RunContext& context, TableRows& rows, int newType) {
  ImportPreview preview;
  const CsvRecord header = previewHeader(rows, registerCaptions(), preview);
  describeColumns(header, preview);
  if (preview.missing.empty()) {
    checkRows(context, rows, RegisterColumns(header.fields), newType, preview);
  } else {
    while (previewNext(rows, preview)) {
    }
  }
  return preview;
}

}  // namespace zelkor
