#include "apps/zelkorctl/SheetImport.h"

#include <map>
#include <ostream>

#include "apps/zelkorctl/SheetRow.h"
#include "base/Csv.h"
#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "changes/BalanceSheet.h"
#include "changes/CardDetailList.h"
#include "changes/ChangeSheets.h"
#include "changes/ClsBalanType.h"

namespace zelkor {
namespace {

/// How a row ended: the number of its sheet, or why there is none.
struct RowEnd {
  bool saved = false;
  std::string text;
};

RowEnd refused(std::string reason) {
  return {false, std::move(reason)};
}

/// Saves the rows of one file.
class SheetImport {
 public:
  explicit SheetImport(RunContext& context) : context_(context), balance_(context), methods_(context) {
    balance_.setZkDataPath(context.gstrZtFile);
    methods_.setZkDataPath(context.gstrZtFile);
  }

  RowEnd save(const SheetRow& row);

 private:
  RowEnd saveByKind(const SheetRow& row);
  RowEnd saveSheet(ChangeKind kind, const SheetRow& row);
  RowEnd saveBalanceSheet(const SheetRow& row);
  SheetResult load(ChangeSheets& sheets, const SheetRow& row, ChangeSheet& sheet);
  std::optional<std::string> enter(ChangeKind kind, const SheetRow& row, ChangeSheet& sheet);
  std::string methodIDOf(const std::string& name);

  RunContext& context_;
  std::map<ChangeKind, ChangeSheets> sheets_;
  ClsBLLBalance balance_;
  ClsBalanType methods_;
};

// Each row stands for a run of its own: the transaction that a refused check leaves open ends with it.
RowEnd SheetImport::save(const SheetRow& row) {
  RowEnd end;
  try {
    end = saveByKind(row);
  } catch (const RuntimeError& error) {
    end = refused(error.what());
  }
  Workspace& workspace = context_.engine.workspace();
  if (workspace.inTransaction()) workspace.Rollback();
  return end;
}

RowEnd SheetImport::saveByKind(const SheetRow& row) {
  if (row.kind == balanceCaption) return saveBalanceSheet(row);
  if (const auto kind = changeKindOf(row.kind)) return saveSheet(*kind, row);
  return refused("没有此变动类型");
}

/// Transfers go by the list of the versions in force, the other kinds by the typed number.
SheetResult SheetImport::load(ChangeSheets& sheets, const SheetRow& row, ChangeSheet& sheet) {
  if (sheets.kind() != ChangeKind::Transfer) return sheets.loadCard(CardKey::CardNumber, row.cardNum, sheet);
  const auto version = versionInForce(context_.dbZKData, row.cardNum, context_.gdOpDate);
  if (version) return sheets.pickCard(transferListRow(context_.dbZKData, *version), sheet);
  MessageBox missing;
  missing.text = cardMissing;
  return {SheetResult::Outcome::Refused, missing};
}

/// What the operator would enter; why the screen would not take it.
std::optional<std::string> SheetImport::enter(ChangeKind kind, const SheetRow& row, ChangeSheet& sheet) {
  sheet.reason = row.reason;
  sheet.siteAfter = row.siteAfter;
  switch (kind) {
    case ChangeKind::OriginalValue:
      sheet.increase = row.after;
      sheet.recomputeValues();
      return std::nullopt;
    case ChangeKind::UsageStatus:
      return chooseStatus(context_.dbZKData, row.after, sheet);
    case ChangeKind::Transfer:
      return chooseDepartments(context_.dbZKData, row.after, sheet);
    default:
      sheet.after.text = row.after;
      return std::nullopt;
  }
}

RowEnd SheetImport::saveSheet(ChangeKind kind, const SheetRow& row) {
  ChangeSheets& sheets = sheets_.try_emplace(kind, context_, kind).first->second;
  ChangeSheet sheet = sheets.newSheet();
  if (const SheetResult loaded = load(sheets, row, sheet); !loaded.done()) return refused(loaded.box->text);
  if (auto problem = enter(kind, row, sheet)) return refused(std::move(*problem));
  const SheetResult result = sheets.save(sheet);
  if (result.done()) return {true, sheet.number};
  if (result.outcome == SheetResult::Outcome::Nothing) return refused("此类变动单不保存");
  if (result.toolbarAsSaved) return refused("变动单 " + sheet.number + " 之后出错：" + result.box->text);
  return refused(result.box->text);
}

std::string SheetImport::methodIDOf(const std::string& name) {
  Recordset methods = methods_.rstGetDepartMent();
  for (; methods.isOpen() && !methods.Eof(); methods.MoveNext()) {
    if (methods.TextOrEmpty("sName") == name) return methods.TextOrEmpty("sID");
  }
  return "";
}

RowEnd SheetImport::saveBalanceSheet(const SheetRow& row) {
  BalanceSheet sheet = newBalanceSheet(balance_, context_.gdOpDate, context_.gstrUser);
  if (!loadBalanceCard(context_.dbZKData, row.cardNum, sheet)) return refused(cardMissing);
  sheet.methodAfter = row.after;
  sheet.methodAfterID = methodIDOf(row.after);
  sheet.reason = row.reason;
  if (const auto refusal = balanceRefusal(sheet)) return refused(refusal->text);
  if (sheet.methodAfterID.empty()) return refused("折旧方法中没有“" + row.after + "”");
  const BalanceSaved result = saveBalance(balance_, sheet);
  return result.saved ? RowEnd{true, sheet.number} : refused(result.box.text);
}

RowEnd saveRecord(SheetImport& import, const SheetColumns& columns, const CsvRecord& record,
                  std::ostream& output) {
  output << "第" << record.line << "行";
  if (record.fields.size() != columns.count()) {
    return refused("有" + std::to_string(record.fields.size()) + "列，表头有" +
                   std::to_string(columns.count()) + "列");
  }
  const SheetRow row = columns.row(record.fields);
  output << " 卡片 " << row.cardNum << " " << row.kind;
  return import.save(row);
}

/// Imports the next row; false at the end. A row whose quotes are wrong is refused like any other bad row.
bool importNext(CsvReader& reader, SheetImport& import, const SheetColumns& columns,
                SheetImportResult& result, std::ostream& output) {
  try {
    const auto record = reader.next();
    if (!record) return false;
    const RowEnd end = saveRecord(import, columns, *record, output);
    output << "：" << (end.saved ? "变动单 " : "") << end.text << '\n';
    ++(end.saved ? result.saved : result.refused);
  } catch (const CsvError& error) {
    output << error.what() << '\n';
    ++result.refused;
  }
  return true;
}

}  // namespace

SheetImportResult importSheets(RunContext& context, std::string_view csv, std::ostream& output) {
  requireUtf8(csv);
  CsvReader reader{std::string(csv)};
  const auto header = reader.next();
  if (!header) throw RuntimeError(ErrorNumber::DataTypeConversion, "文件是空的：没有表头");
  const SheetColumns columns(header->fields);
  SheetImport import(context);
  SheetImportResult result;
  while (importNext(reader, import, columns, result, output)) {
  }
  return result;
}

}  // namespace zelkor
