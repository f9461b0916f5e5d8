#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "changes/CardVersion.h"
#include "changes/ChangeKind.h"
#include "changes/ChangeSheet.h"
#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

// What the saving of all kinds of sheet has in common.
namespace zelkor {

/// What the statements by which the next numbers are read would find, had all that was added to a group been
/// written.
using NumbersToBe = std::map<std::string, Value, std::less<>>;

/// A save on its way, inside the transaction of the default workspace.
struct SheetSaving {
  const RunContext& context;
  Database& database;
  const ChangeSheet& sheet;
  const CardVersion& card;  // the version that the sheet has shown
  StatementGroup& group;
  NumbersToBe* numbers = nullptr;  // of several saves that go out together

  /// Month of the system date.
  int systemMonth() const { return context.clock.now().month(); }
};

using ColumnValues = std::vector<std::pair<std::string_view, Value>>;

/// Adds a row to what the statement opens: all columns of `source` that it has but those in `except`.
void addCopy(StatementGroup& group, std::string_view table, const CardVersion& source,
             const std::vector<std::string_view>& except, const ColumnValues& values);
/// Adds a row of these values.
void addRow(StatementGroup& group, std::string_view table, const ColumnValues& values);

/// The statements that the numbers of a save are read by.
inline constexpr const char* kHighestVersion =
    "Select Top 1  *   From fa_cards  Order BY Val(sCardID)  Desc  ";
inline constexpr const char* kLastOfRegister = "Select Top 1 *  From  fa_cardsSheets Order By sID DESC  ";

struct VersionKeys {
  std::string cardID;
  std::int32_t lOptID = 0;
  int optType = 0;
};

/// The keys after those of the version shown, as 原值增加 and 使用状况调整 number theirs.
VersionKeys keysBehind(const CardVersion& card, int optType);
/// The keys after the highest sCardID of the table, lOptID being the same number.
VersionKeys keysBehindAll(const SheetSaving& saving, int optType);

/// The highest number, which the statement asks for; may be Null.
Value highest(const SheetSaving& saving, std::string_view statement);
/// What it will be when all is written that has been added.
void noteHighest(const SheetSaving& saving, std::string_view statement, const Value& number);

/// Raises for a number whose order as a text is the engine's own, so that nobody else can tell the highest.
void requireDigits(std::string_view number);

/// The operation number after the highest one, which the statement asks for; Null counts as 0.
std::int32_t operationBehind(const SheetSaving& saving, std::string_view statement);

/// Adds a copy of the version shown that differs in its keys, in what every sheet sets, and in `values`.
void addVersion(const SheetSaving& saving, const VersionKeys& keys, const ColumnValues& values);
/// Adds the sheet; `before` and `after` are what it keeps of the two values.
void addSheet(const SheetSaving& saving, ChangeKind kind, std::int32_t lOptID, const std::string& before,
              const std::string& after, const ColumnValues& values = {});
/// Adds the row of the sheet register.
void addRegisterRow(const SheetSaving& saving);

/// Number of the sheet that is saved next, five digits.
std::string nextSheetNumber(Database& database);
/// The last one in the order of text, empty where there is none, and the number after it.
std::string lastSheetNumber(Database& database);
std::string sheetNumberBehind(const std::string& last);

/// A box that refuses a sheet.
MessageBox refusal(std::string text, std::string title = "固定资产");

}  // namespace zelkor
