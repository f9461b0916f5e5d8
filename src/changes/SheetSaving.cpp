#include "changes/SheetSaving.h"

#include <algorithm>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::int32_t numberBehind(const Value& number) {
  return CLng(CDbl(number) + 1);
}

void setAll(Recordset& row, const ColumnValues& values) {
  for (const auto& [column, value] : values) row.Collect(column, value);
}

}  // namespace

void addCopy(StatementGroup& group, std::string_view table, const CardVersion& source,
             const std::vector<std::string_view>& except, const ColumnValues& values) {
  group.add(table, [&](Recordset& row) {
    row.AddNew();
    for (std::size_t i = 0; i < row.FieldCount(); ++i) {
      const std::string& column = row.FieldName(i);
      const bool left = std::ranges::any_of(
          except, [&](std::string_view name) { return equalsIgnoringCase(name, column); });
      const Value* value = left ? nullptr : source.find(column);
      if (value != nullptr) row.Collect(column, *value);
    }
    setAll(row, values);
  });
}

void addRow(StatementGroup& group, std::string_view table, const ColumnValues& values) {
  group.add(table, [&](Recordset& row) {
    row.AddNew();
    setAll(row, values);
  });
}

VersionKeys keysBehind(const CardVersion& card, int optType) {
  return {sql(numberBehind(card["sCardID"])), numberBehind(card["lOptID"]), optType};
}

VersionKeys keysBehindAll(const SheetSaving& saving, int optType) {
  const std::int32_t next = CLng(Val(saving.group.rowsOf(kHighestVersion).Text("sCardID")) + 1);
  return {sql(next), next, optType};
}

Value highest(const SheetSaving& saving, std::string_view statement) {
  if (saving.numbers != nullptr)
    if (const auto known = saving.numbers->find(statement); known != saving.numbers->end())
      return known->second;
  return saving.group.rowsOf(statement).Fields(std::size_t{0});
}

void noteHighest(const SheetSaving& saving, std::string_view statement, const Value& number) {
  if (saving.numbers != nullptr) saving.numbers->insert_or_assign(std::string(statement), number);
}

void requireDigits(std::string_view number) {
  if (number.find_first_not_of("0123456789") != std::string_view::npos)
    throw RuntimeError(ErrorNumber::OperationNotSupported);
}

std::int32_t operationBehind(const SheetSaving& saving, std::string_view statement) {
  const std::int32_t number = CLng(highest(saving, statement).numberOrZero() + 1);
  noteHighest(saving, statement, number);
  return number;
}

void addVersion(const SheetSaving& saving, const VersionKeys& keys, const ColumnValues& values) {
  ColumnValues all{{"sCardID", keys.cardID},
                   {"lOptID", keys.lOptID},
                   {"iOptType", keys.optType},
                   {"dTransDate", saving.sheet.date},
                   {"sOperator", saving.context.gstrUser},
                   {"sVoucherNum", saving.sheet.number}};
  all.insert(all.end(), values.begin(), values.end());
  addCopy(saving.group, "Select  *  From fa_cards   Where 1=0 ", saving.card, {"sCardID"}, all);
}

void addSheet(const SheetSaving& saving, ChangeKind kind, std::int32_t lOptID, const std::string& before,
              const std::string& after, const ColumnValues& values) {
  const ChangeSheet& sheet = saving.sheet;
  ColumnValues all{{"sNum", sheet.number},
                   {"sCardNum", sheet.cardNum},
                   {"lOptID", lOptID},
                   {"sVoucherName", captionOf(kind)},
                   {"sVoucherEngName", captionOf(kind)},
                   {"iVoucherType", voucherTypeOf(kind)},
                   {"lPreOptID", CLng(Val(sheet.number) - 1)},
                   {"sBeforeVoucher", before},
                   {"sAfterVoucher", after},
                   {"memReason", sheet.reason},
                   {"dTransDate", sheet.date},
                   {"sOperatorVou", sheet.operatorName}};
  all.insert(all.end(), values.begin(), values.end());
  addRow(saving.group, "select * from fa_Vouchers", all);
}

// The last number in the order of text: after ten rows the same number comes again and again.
void addRegisterRow(const SheetSaving& saving) {
  const Recordset last = saving.group.rowsOf(kLastOfRegister);
  const std::string number = last.Eof() ? "1" : textOfDouble(Val(last.TextOrEmpty("sID")) + 1);
  addRow(saving.group, "select * from fa_CardsSheets",
         {{"sID", number},
          {"sCardNum", saving.sheet.cardNum},
          {"sNum", saving.sheet.number},
          {"sVoucherNum", saving.sheet.number},
          {"dStartdate", saving.card["dStartdate"]},
          {"memReason", saving.sheet.reason}});
}

std::string nextSheetNumber(Database& database) {
  return sheetNumberBehind(lastSheetNumber(database));
}

std::string lastSheetNumber(Database& database) {
  const Recordset sheets = database.OpenRecordset("Select  * From fa_Vouchers  Order By sNum Desc ");
  return sheets.Eof() ? "" : sheets.TextOrEmpty("sNum");
}

std::string sheetNumberBehind(const std::string& last) {
  return Format(Val(last) + 1, "00000");
}

MessageBox refusal(std::string text, std::string title) {
  return {std::move(text), Buttons::Ok, Icon::Exclamation, std::move(title)};
}

}  // namespace zelkor
