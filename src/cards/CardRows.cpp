#include "cards/CardRows.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

constexpr int kMonthsOfYear = 12;

/// What comes before and after the first comma; without one, all of it comes before.
std::pair<std::string, std::string> splitAtComma(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, comma)), std::string(text.substr(comma + 1))};
}

/// A column that a save of a card writes; the second one of a subject takes its name.
struct SavedColumn {
  const CardFieldRow* field;
  std::string_view name;
  bool isSecond;
  bool isText;
};

/// The columns of the fields, in the order of the statements, without the number that tells the card: those
/// of all cards, or those that come on top with the workload method.
std::vector<SavedColumn> columnsSaved(bool withWorkload) {
  std::vector<const CardFieldRow*> fields;
  for (const CardFieldRow& field : cardFields()) {
    const bool isKey = field.field == CardField::CardNumber;
    if (field.isSaved() && !isKey && field.withWorkload == withWorkload) fields.push_back(&field);
  }
  std::ranges::sort(fields, {}, &CardFieldRow::savedAs);
  std::vector<SavedColumn> columns;
  for (const CardFieldRow* field : fields) {
    for (const std::string_view& name : field->columns) {
      if (!name.empty()) columns.push_back({field, name, &name != &field->columns[0], field->size() > 0});
    }
  }
  return columns;
}

/// Columns with their names as a statement lists them, each after a comma.
struct ColumnList {
  explicit ColumnList(std::vector<SavedColumn> saved) : columns(std::move(saved)) {
    for (const SavedColumn& column : columns) names += sql(",", column.name, column.field->afterName);
  }
  std::vector<SavedColumn> columns;
  std::string names;
};

const ColumnList& columnsOfAll() {
  static const ColumnList list(columnsSaved(false));
  return list;
}

const ColumnList& columnsOfWorkload(CardLayout layout) {
  static const ColumnList list(columnsSaved(true));
  static const ColumnList none{{}};
  return layout == CardLayout::Workload ? list : none;
}

const std::string& savedText(const CardEntry& card, const SavedColumn& column) {
  const CardField field = column.field->field;
  if (field == CardField::Department) return card.department;
  if (field != CardField::DepreciationSubject) return card[field];
  return column.isSecond ? card.subject.name : card.subject.code;
}

/// The value of a column that is no text as a statement holds it: amounts as they are typed, dates and whole
/// numbers in their plain form.
std::string plainLiteral(const CardEntry& card, const CardFieldRow& field, const std::string& text) {
  if (field.field == CardField::UsefulLife) return sql(card.life);
  if (field.field == CardField::EntryDate) return sql("#", card.entered.toText(), "#");
  if (!field.blank.empty() && text == field.blank) return text;
  if (field.type == CardDataType::Int) return sql(CLng(Value(text)));
  if (field.type == CardDataType::Date) return sql("#", CDate(Value(text)).toText(), "#");
  return text;
}

void appendLiteral(std::string& statement, const CardEntry& card, const SavedColumn& column) {
  const std::string& text = savedText(card, column);
  if (column.isText) {
    statement.append("'").append(text).append("'");
  } else {
    statement += plainLiteral(card, *column.field, text);
  }
}

std::string literals(const CardEntry& card, const ColumnList& list) {
  std::string values;
  for (const SavedColumn& column : list.columns) appendLiteral(values += ',', card, column);
  return values;
}

std::string assignments(const CardEntry& card, const ColumnList& list) {
  std::string text;
  for (const SavedColumn& column : list.columns) {
    appendLiteral(text.append(",").append(column.name).append("="), card, column);
  }
  return text;
}

/// The months' columns of a department's ledger.
std::string ledgerDetailColumns() {
  std::string columns;
  for (int n = 1; n <= kMonthsOfYear; ++n) columns += sql(",dblDepr", n, ",dblDeprT", n);
  for (int n = 1; n <= kMonthsOfYear + 1; ++n) columns += sql(",dblMonthValue", n);
  return columns;
}

}  // namespace

void readSubject(StatementGroup& group, const std::string& text, CardSubject& subject) {
  if (text.empty()) return;
  if (text.find(',') != std::string::npos) {
    std::tie(subject.code, subject.name) = splitAtComma(text);
    return;
  }
  group.open(sql("select * from code where ccode='", text, "'"), [&subject](const Recordset& row) {
    if (!row.Eof()) subject = {row.TextOrEmpty("ccode"), row.TextOrEmpty("ccode_name")};
  });
}

CardEntry::CardEntry(const CardValues& cardValues, CardLayout cardLayout, int operatingMonth,
                     CardSubject cardSubject)
    : values(cardValues), layout(cardLayout), month(operatingMonth), subject(std::move(cardSubject)) {
  department = splitAtComma(values[CardField::Department]).first;
  life = CLng(Value(values[CardField::UsefulLife]));
  entered = CDate(Value(values[CardField::EntryDate]));
}

void insertCard(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys) {
  const ColumnList& ofWorkload = columnsOfWorkload(card.layout);
  group.execute(sql("Insert Into FA_Cards (sCardId,sCardNum,lOptID", columnsOfAll().names, ",iNewType",
                    ofWorkload.names, ",iInputPeriod) Values ( '", keys.cardID, "','",
                    card[CardField::CardNumber], "',", keys.lOptID, literals(card, columnsOfAll()), ",",
                    static_cast<int>(keys.type), literals(card, ofWorkload), ",", card.entered.month(), ")"));
}

void insertDeptScale(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys) {
  group.execute(
      sql("insert into fa_deptscale (sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,"
          "sDeprSubjectName,sProjectNum,sProjectName,cItemclsId) values('",
          card[CardField::CardNumber], "',", keys.lOptID, ",'", card.department, "',1,'", card.subject.code,
          "','", card.subject.name, "',null,null,null)"));
}

void insertCardDetail(StatementGroup& group, const CardEntry& card, const NewCardKeys& keys) {
  group.execute(sql(
      "insert into fa_Cards_Detail (sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,"
      "iDisposePeriod,dblValue,dblDecDeprT,dblBV,dblCanWork,dblTransInDeprTCard,"
      "dblTransOutDeprTCard,dblDecPreValueT,dblRetDecPreValueT,dblBuildArea,lBuildNum,"
      "lMachinNum,dblMachinW) values ('",
      keys.cardID, "','", card[CardField::CardNumber], "','", card.department, "',", keys.lOptID, ",'',0,",
      card[CardField::OriginalValue], ",0,", card[CardField::ResidualValue], ",0,0,0,0,0,0,0,0,0)"));
}

void insertDeprTransaction(StatementGroup& group, const CardEntry& card) {
  using enum CardField;
  std::string monthColumns;
  std::string monthValues;
  for (int n = card.month + 1; n <= kMonthsOfYear; ++n) {
    monthColumns.append(",dblMonthValue").append(std::to_string(n));
    monthValues.append(",").append(card[OriginalValue]);
  }
  group.execute(sql(
      "Insert Into FA_DeprTransactions (sCardNum,sDeprAssetNum,iInputPeriod,dblInputValue,"
      "dblInputDeprTotal,dblMonthDeprTotal,dblInputBV,dblMonthBV,dblInputBVRate,dblMonthBVRate,lInputLife,"
      "lInputDeprMonths,sMonthStatusID,dblDeprT",
      card.month, ",dblMonthValue0", monthColumns, ") Values ('", card[CardNumber], "','", card[AssetNumber],
      "',", card.month, ",", card[OriginalValue], ",", card[AccumulatedDepreciation], ",",
      card[AccumulatedDepreciation], ",", card[ResidualValue], ",", card[ResidualValue], ",",
      card[ResidualRate], ",", card[ResidualRate], ",", card.life, ",", card[MonthsDepreciated], ",'",
      card[UsageStatus], "',", card[AccumulatedDepreciation], ",", card[OriginalValue], monthValues, ")"));
}

void insertDeprTransactionDetail(StatementGroup& group, const CardEntry& card) {
  static const std::string columns = ledgerDetailColumns();
  std::string values;
  for (int n = 1; n <= kMonthsOfYear; ++n) values += ",0,0";
  for (int n = 1; n <= kMonthsOfYear + 1; ++n) {
    values += ',';
    values += n <= card.month ? "0" : card[CardField::OriginalValue];
  }
  group.execute(sql("Insert Into FA_DeprTransactions_detail (sCardNum,sDeptNum", columns,
                    ",dblDeprThisYear) Values ('", card[CardField::CardNumber], "','", card.department, "'",
                    values, ",0)"));
}

void updateCardRows(StatementGroup& group, const CardEntry& card, std::string_view cardNum) {
  const std::string columns =
      assignments(card, columnsOfAll()) + assignments(card, columnsOfWorkload(card.layout));
  group.execute(
      sql("Update FA_Cards Set ", std::string_view(columns).substr(1), " Where sCardNum='", cardNum, "'"));
}

void updateDeprTransaction(StatementGroup& group, const CardEntry& card, std::string_view cardNum) {
  using enum CardField;
  std::string monthAssignments;
  for (int n = card.month + 1; n <= kMonthsOfYear; ++n) {
    monthAssignments += sql(",dblMonthValue", n, "=", card[AccumulatedDepreciation]);
  }
  group.execute(
      sql("Update FA_DeprTransactions Set sDeprAssetNum='", card[AssetNumber], "',iInputPeriod=", card.month,
          ",dblInputValue=", card[OriginalValue], ",dblInputDeprTotal=", card[AccumulatedDepreciation],
          ",dblMonthDeprTotal=", card[AccumulatedDepreciation], ",dblInputBV=", card[ResidualValue],
          ",dblMonthBV=", card[ResidualValue], ",dblInputBVRate=", card[ResidualRate],
          ",dblMonthBVRate=", card[ResidualRate], ",lInputLife=", card.life,
          ",lInputDeprMonths=", card[MonthsDepreciated], ",sMonthStatusID='", card[UsageStatus], "',dblDeprT",
          card.month, "=", card[AccumulatedDepreciation], ",dblMonthValue0=", card[AccumulatedDepreciation],
          monthAssignments, " Where sCardNum='", cardNum, "'"));
}

}  // namespace zelkor
