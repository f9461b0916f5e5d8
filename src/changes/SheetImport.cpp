#include "changes/SheetImport.h"

#include <array>
#include <map>

#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "changes/BalanceSheet.h"
#include "changes/CardDetailList.h"
#include "changes/ChangeSheets.h"
#include "changes/ClsBalanType.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 5> kCaptions = {"变动类型", "卡片编号", "变动后内容", "变动后地点",
                                                       "变动原因"};
constexpr std::array<std::string_view, 1> kOptional = {"变动后地点"};

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
  if (auto problem = quoteProblem(row.cardNum)) return refused("列“卡片编号”：" + *problem);
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

ImportedSheet importRow(SheetImport& import, const CsvTableRow& row) {
  const auto& cells = row.cells;
  ImportedSheet imported{
      .line = row.line, .row = SheetRow{cells[0], cells[1], cells[2], cells[3], cells[4]}, .text = {}};
  RowEnd end = import.save(*imported.row);
  imported.saved = end.saved;
  imported.text = std::move(end.text);
  return imported;
}

/// The next row; nothing at the end. A line that is no row of the table is refused like any other bad row.
std::optional<ImportedSheet> importNext(CsvTable& table, SheetImport& import) {
  try {
    const auto row = table.next();
    return row ? std::optional(importRow(import, *row)) : std::nullopt;
  } catch (const CsvRowError& error) {
    return ImportedSheet{.line = error.line(), .row = std::nullopt, .text = error.what()};
  }
}

}  // namespace

void importSheets(RunContext& context, std::string_view csv,
                  const std::function<void(const ImportedSheet&)>& ended) {
  CsvTable table(csv, kCaptions, kOptional);
  SheetImport import(context);
  while (const auto imported = importNext(table, import)) ended(*imported);
}

}  // namespace zelkor
