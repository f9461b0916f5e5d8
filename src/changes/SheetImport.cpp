#include "changes/SheetImport.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>

#include "base/CsvTable.h"
#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardVersions.h"
#include "changes/BalanceSheet.h"
#include "changes/CardDetailList.h"
#include "changes/ChangeSheets.h"
#include "changes/ClsBalanType.h"
#include "changes/RowsOfSheets.h"
#include "changes/SheetRules.h"
#include "changes/TransferBatch.h"
#include "startup/ImportLog.h"
#include "store/accountset/OneTransaction.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kNotSaved = "此类变动单不保存";

/// How a row ended: the number of its sheet, or why there is none.
struct RowEnd {
  SheetEnd end = SheetEnd::Refused;
  std::string text;
};

RowEnd refused(std::string reason) {
  return {SheetEnd::Refused, std::move(reason)};
}

std::string inColumn(std::size_t column, const std::string& problem) {
  return "列“" + std::string(kSheetCaptions[column]) + "”：" + problem;
}

/// An error that no check has foreseen says nothing of the row.
std::string failureText(const SheetRow& row, const std::string& error) {
  return "变动单未保存，卡片或“" + row.after + "”中有不能用的值：" + error;
}

std::string kindsText() {
  std::string text;
  for (const ChangeKind kind : {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife, ChangeKind::Transfer})
    text += std::string(captionOf(kind)) + "、";
  return text + kBalanceCaption;
}

/// The row as the log of operations has it.
std::string textOf(const SheetRow& row) {
  std::string text = csvField(row.kind);
  for (const std::string* cell : {&row.cardNum, &row.after, &row.siteAfter, &row.reason})
    text += "," + csvField(*cell);
  return text;
}

using Ended = std::function<void(const ImportedSheet&)>;

/// Saves the rows of one file.
class SheetImport {
 public:
  SheetImport(RunContext& context, bool saves)
      : context_(context), saves_(saves), log_(context, "导入变动单"), balance_(context), methods_(context) {
    balance_.setZkDataPath(context.gstrZtFile);
    methods_.setZkDataPath(context.gstrZtFile);
  }

  RowEnd save(const SheetRow& row);
  /// Whether the row can be saved with others.
  bool canGoWithOthers(const SheetRow& row) const;
  /// Saves transfers of different cards, as many together as none is refused between.
  void saveTogether(std::span<const ReadRow> rows, const Ended& ended);

 private:
  std::vector<std::optional<ReadyTransfer>> readTogether(std::span<const ReadRow> rows);
  bool savedTogether(std::span<const ReadRow> rows, std::span<std::optional<ReadyTransfer>> transfers);
  std::optional<std::string> savedBefore(const SheetRow& row);
  void begin(const SheetRow& row, const std::string& sheet);
  RowEnd saveByKind(const SheetRow& row);
  static RowEnd checked(ChangeKind kind, const ChangeSheet& sheet);
  RowEnd saveSheet(ChangeKind kind, const SheetRow& row);
  RowEnd saveBalanceSheet(const SheetRow& row);
  SheetResult load(ChangeSheets& sheets, const SheetRow& row, ChangeSheet& sheet);
  std::optional<std::string> enter(ChangeKind kind, const SheetRow& row, ChangeSheet& sheet);
  std::string methodIDOf(const std::string& name);

  RunContext& context_;
  bool saves_;
  ImportLog log_;
  std::map<ChangeKind, ChangeSheets> sheets_;
  ClsBLLBalance balance_;
  ClsBalanType methods_;
};

/// What no other row could be saved after: the books are locked, gone, full, or may not be written.
bool endsImport(const RuntimeError& error) {
  constexpr std::array kReasons = {ErrorNumber::FileLocked, ErrorNumber::CannotOpenReadOnly,
                                   ErrorNumber::FileNotFound, ErrorNumber::DiskFull, ErrorNumber::DeviceIo};
  return std::ranges::any_of(kReasons, [&error](ErrorNumber reason) { return error.is(reason); });
}

/// Screens report what fails behind them, or keep silent about it: to an import it may be the end.
void endIfFailed(const std::optional<RuntimeError>& failure) {
  if (failure && endsImport(*failure)) throw *failure;
}

/// The failure that ends the import is the one to report. What it has undone was no sheet that was told as
/// saved, so that the next flush need not speak of it.
void rollBackIfPossible(DbEngine& engine) {
  try {
    rollBackIfOpen(engine.workspace());
    engine.flush();
  } catch (const RuntimeError&) {  // the connection may be what failed
  }
}

// Each row stands for a run of its own: the transaction that a refused check leaves open ends with it.
RowEnd SheetImport::save(const SheetRow& row) {
  if (auto sheet = savedBefore(row)) return {SheetEnd::Before, std::move(*sheet)};
  Workspace& workspace = context_.engine.workspace();
  RowEnd end;
  try {
    end = saveByKind(row);
  } catch (const RuntimeError& error) {
    if (endsImport(error)) {
      rollBackIfPossible(context_.engine);
      throw;
    }
    end = refused(failureText(row, error.what()));
  }
  rollBackIfOpen(workspace);
  return end;
}

/// The sheet as which an earlier call has saved the row. One that is not in the books any more went with a
/// re-initialisation.
std::optional<std::string> SheetImport::savedBefore(const SheetRow& row) {
  while (auto number = log_.take(textOf(row))) {
    Recordset sheets =
        context_.dbZKData.OpenRecordset(sql("select sCardNum from fa_Vouchers where sNum='", *number, "'"));
    for (; !sheets.Eof(); sheets.MoveNext())
      if (equalsIgnoringCase(sheets.TextOrEmpty("sCardNum"), row.cardNum)) return number;
  }
  return std::nullopt;
}

/// Begins the transaction of a sheet, in which the log notes the row.
void SheetImport::begin(const SheetRow& row, const std::string& sheet) {
  context_.engine.workspace().BeginTrans();
  log_.note(textOf(row), sheet);
}

RowEnd SheetImport::saveByKind(const SheetRow& row) {
  if (auto problem = quoteProblem(row.cardNum)) return refused("列“卡片编号”：" + *problem);
  if (row.kind == kBalanceCaption) return saveBalanceSheet(row);
  if (const auto kind = changeKindOf(row.kind)) return saveSheet(*kind, row);
  return refused(inColumn(sheet_column::Kind, "没有变动类型“" + row.kind + "”，应为 " + kindsText()));
}

/// Transfers go by the list of the versions in force, the other kinds by the typed number.
SheetResult SheetImport::load(ChangeSheets& sheets, const SheetRow& row, ChangeSheet& sheet) {
  if (sheets.kind() != ChangeKind::Transfer) return sheets.loadCard(CardKey::CardNumber, row.cardNum, sheet);
  const auto version = versionInForce(context_.dbZKData, row.cardNum, context_.gdOpDate);
  if (version && isCardInForce(context_.dbZKData, row.cardNum, context_.gdOpDate))
    return sheets.pickCard(transferListRow(context_.dbZKData, *version), sheet);
  MessageBox missing;
  missing.text = kCardMissing;
  return {SheetResult::Outcome::Refused, missing};
}

/// What the operator would enter; why the screen would not take it.
std::optional<std::string> SheetImport::enter(ChangeKind kind, const SheetRow& row, ChangeSheet& sheet) {
  sheet.reason = row.reason;
  sheet.siteAfter = row.siteAfter;
  if (auto problem = formProblem(kind, row.after)) return problem;
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

/// What the save would refuse before it writes.
RowEnd SheetImport::checked(ChangeKind kind, const ChangeSheet& sheet) {
  const SheetRules& rules = rulesOf(kind);
  if (rules.write == nullptr) return refused(kNotSaved);
  const auto box = rules.check(sheet);
  return box ? refused(box->text) : RowEnd{SheetEnd::Saved, sheet.number};
}

RowEnd SheetImport::saveSheet(ChangeKind kind, const SheetRow& row) {
  ChangeSheets& sheets = sheets_.try_emplace(kind, context_, kind).first->second;
  ChangeSheet sheet = sheets.newSheet();
  const SheetResult loaded = load(sheets, row, sheet);
  endIfFailed(loaded.failure);
  if (!loaded.done()) return refused(loaded.box->text);
  if (auto problem = enter(kind, row, sheet)) return refused(inColumn(sheet_column::After, *problem));
  if (!saves_) return checked(kind, sheet);
  begin(row, sheet.number);
  const SheetResult result = sheets.save(sheet);
  endIfFailed(result.failure);
  if (result.done()) return {SheetEnd::Saved, sheet.number};
  if (result.outcome == SheetResult::Outcome::Nothing) return refused(kNotSaved);
  if (result.toolbarAsSaved) return refused("变动单 " + sheet.number + " 之后出错：" + result.box->text);
  if (result.outcome == SheetResult::Outcome::Failed) return refused(failureText(row, result.box->text));
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
  if (!loadBalanceCard(context_.dbZKData, row.cardNum, sheet)) return refused(kCardMissing);
  sheet.methodAfter = row.after;
  sheet.methodAfterID = methodIDOf(row.after);
  sheet.reason = row.reason;
  if (const auto refusal = balanceRefusal(sheet)) return refused(refusal->text);
  if (sheet.methodAfterID.empty())
    return refused(inColumn(sheet_column::After, "折旧方法中没有“" + row.after + "”"));
  if (!saves_) return {SheetEnd::Saved, sheet.number};
  begin(row, sheet.number);
  const BalanceSaved result = saveBalance(balance_, sheet);
  endIfFailed(balance_.takeFailure());
  if (!result.saved) return refused(result.box.text);
  context_.engine.workspace().CommitTrans();
  return {SheetEnd::Saved, sheet.number};
}

/// A failure of the engine ends the import with its reason and the place.
RuntimeError stoppedAt(std::size_t line, const RuntimeError& error) {
  return {static_cast<ErrorNumber>(error.number()), sql("导入停在第", line, "行。", error.what())};
}

void saveOne(SheetImport& import, const ReadRow& row, const Ended& ended) {
  ImportedSheet imported{.line = row.line, .row = row.row, .text = row.problem};
  try {
    if (row.row) {
      RowEnd end = import.save(*row.row);
      imported.end = end.end;
      imported.text = std::move(end.text);
    }
  } catch (const RuntimeError& error) {
    throw stoppedAt(row.line, error);
  }
  ended(imported);
}

bool SheetImport::canGoWithOthers(const SheetRow& row) const {
  return saves_ && StatementGroup(context_.dbZKData).goesOutTogether() && zelkor::canGoWithOthers(row) &&
         !log_.knows(textOf(row));
}

// What cannot be read together tells why when it is saved by itself.
std::vector<std::optional<ReadyTransfer>> SheetImport::readTogether(std::span<const ReadRow> rows) {
  std::vector<SheetRow> asked;
  for (const ReadRow& row : rows) asked.push_back(*row.row);
  try {
    return readTransfers(context_, asked);
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DeviceIo)) throw stoppedAt(rows.front().line, error);
  }
  return std::vector<std::optional<ReadyTransfer>>(rows.size());
}

// Of a failure nothing is left here: saved by itself, the row that fails tells it.
bool SheetImport::savedTogether(std::span<const ReadRow> rows,
                                std::span<std::optional<ReadyTransfer>> transfers) {
  std::vector<ReadyTransfer> ready;
  for (std::optional<ReadyTransfer>& transfer : transfers) ready.push_back(*transfer);
  try {
    saveTransfers(context_, ready, [&](StatementGroup& group, std::size_t i) {
      log_.note(group, textOf(*rows[i].row), ready[i].sheet.number);
    });
  } catch (const RuntimeError& error) {
    rollBackIfPossible(context_.engine);
    if (error.is(ErrorNumber::DeviceIo)) throw stoppedAt(rows.front().line, error);
    return false;
  }
  for (std::size_t i = 0; i < ready.size(); ++i) transfers[i]->sheet.number = ready[i].sheet.number;
  return true;
}

void SheetImport::saveTogether(std::span<const ReadRow> rows, const Ended& ended) {
  auto transfers = readTogether(rows);
  for (std::size_t next = 0; next < rows.size();) {
    const auto begin = transfers.begin() + static_cast<std::ptrdiff_t>(next);
    const auto end = std::find(begin, transfers.end(), std::nullopt);
    const auto together = static_cast<std::size_t>(end - begin);
    const bool saved = together > 1 && savedTogether(rows.subspan(next, together), {begin, end});
    const std::size_t behind = next + std::max(together, std::size_t{1});
    for (; next < behind; ++next) {
      if (!saved) {
        saveOne(*this, rows[next], ended);
      } else {
        ended({rows[next].line, rows[next].row, SheetEnd::Saved, transfers[next]->sheet.number});
      }
    }
  }
}

void importAll(RunContext& context, bool saves, TableRows& table, const Ended& ended) {
  SheetImport import(context, saves);
  RowsOfSheets groups(table, [&import](const SheetRow& row) { return import.canGoWithOthers(row); });
  LongJob job(context.dialogs, saves ? "正在导入变动单" : "正在检查变动单", table.count());
  for (auto rows = groups.next(); !rows.empty(); rows = groups.next()) {
    if (rows.size() == 1) {
      saveOne(import, rows.front(), ended);
    } else {
      import.saveTogether(rows, ended);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) job.step();
  }
}

}  // namespace

void importSheets(RunContext& context, TableRows& rows,
                  const std::function<void(const ImportedSheet&)>& ended) {
  importAll(context, true, rows, ended);
}

void checkSheets(RunContext& context, TableRows& rows,
                 const std::function<void(const ImportedSheet&)>& ended) {
  importAll(context, false, rows, ended);
}

std::vector<std::string_view> sheetCaptions() {
  std::vector<std::string_view> captions(kSheetCaptions.begin(), kSheetCaptions.end());
  std::erase(captions, kOptionalSheetCaptions.front());
  return captions;
}

std::string_view descriptionOfColumn(std::string_view caption) {
  constexpr std::array<std::string_view, kSheetCaptions.size()> kDescriptions = {
      "名称，必填", "编码，必填", "按变动类型，必填", "文字", "文字，必填"};
  const auto found = std::ranges::find(kSheetCaptions, caption);
  return found == kSheetCaptions.end()
             ? ""
             : kDescriptions.at(static_cast<std::size_t>(found - kSheetCaptions.begin()));
}

}  // namespace zelkor
