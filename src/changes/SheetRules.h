#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "changes/SheetSaving.h"

// What each kind of sheet does in the common frame; one file per kind.
namespace zelkor {

/// The card that was asked for.
struct CardSearch {
  std::string_view column;  // sCardNum or sAssetNum
  std::string_view number;
  DateTime operatingDate;
};

/// A row of the card list, its cells from column 0 on.
using ListRow = std::vector<std::string>;

struct PickRules {
  /// The message that refuses the row; none: every row is taken.
  std::optional<MessageBox> (*check)(const ListRow& row, DateTime systemDate);
  /// The version of the row, `search` naming its card.
  std::optional<CardVersion> (*find)(Database& database, const CardSearch& search, const ListRow& row);
  void (*show)(Database& database, const CardVersion& card, const ListRow& row, ChangeSheet& sheet);
};

struct SheetRules {
  /// The version that the sheet shows and copies.
  std::optional<CardVersion> (*find)(Database& database, const CardSearch& search);
  /// Fills what the kind shows beyond the fields of every panel.
  void (*show)(Database& database, const CardVersion& card, ChangeSheet& sheet);
  /// What is different for a card that was picked from the list; none: a pick is as good as typing its
  /// number.
  const PickRules* pick;
  /// A value before or after as a stored sheet keeps it.
  ShownValue (*stored)(Database& database, const std::string& kept);
  /// The message that refuses the save. Raises what a value raises that cannot be read.
  std::optional<MessageBox> (*check)(const ChangeSheet& sheet);
  /// The rows of the save; none: the kind is not saved.
  void (*write)(const SheetSaving& saving);
  /// What follows from the sheet, if anything does; an error in it leaves the sheet standing.
  void (*afterwards)(const SheetSaving& saving);
};

const SheetRules& originalValueRules();
const SheetRules& usageStatusRules();
const SheetRules& accumulatedDeprRules();
const SheetRules& usefulLifeRules();
const SheetRules& residualValueRules();
const SheetRules& transferRules();
const SheetRules& rulesOf(ChangeKind kind);

// Pieces that several kinds use.

/// First row of a query.
std::optional<CardVersion> firstVersion(Database& database, std::string_view statement);
/// Newest version of the card.
std::optional<CardVersion> newestVersion(Database& database, const CardSearch& search);
/// Newest version with accumulated depreciation carried in.
std::optional<CardVersion> newestDepreciated(Database& database, const CardSearch& search);
/// The text alone.
ShownValue storedText(Database& database, const std::string& kept);
/// A date as the sheets show it; empty for Null.
std::string shownDate(const Value& date);

}  // namespace zelkor
