#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"
#include "depreciation/MonthlyDepr.h"
#include "store/engine/Database.h"

namespace zelkor {

/// Where the depreciation of a card goes: codes with their names.
struct DeprPlace {
  std::string department;
  std::string departmentName;
  std::string category;
  std::string categoryName;
  std::string subject;
  std::string subjectName;
};

/// A version of a card, with what the monthly run and a comparison of months look at.
struct DeprVersion {
  std::string cardNum;  // in its own spelling
  std::string assetName;
  DeprBasis basis;
  std::optional<MonthlyDepr> depr;  // nothing where the figures allow no computation
  DeprPlace place;
  bool inArchives = false;  // department and category are there; the run passes over others
  Value start;              // dates; any may be Null

  // With DeprDetail::History.
  Value entered;
  Value changed;
  Value disposed;
  std::int32_t kind = 0;  // what made it
  std::string sheet;      // the number of the change sheet
};

/// A card with all its versions, the last by the text of their numbers first, which is how the run chooses.
/// Without a version it is a ledger row that no card stands behind.
struct DeprCard {
  std::string number;
  std::vector<DeprVersion> versions;
  double opening = 0;  // accumulated depreciation at the opening of the month
  Currency lastMonth;  // the amount that the ledger has for the month before

  /// The version that the run computes; null where it computes none.
  const DeprVersion* current() const;
  /// Whether a version came into use before the day.
  bool inServiceBefore(DateTime day) const;
  /// The day on which the earliest version came into use.
  std::optional<DateTime> firstUse() const;
};

/// How much of the versions is read.
enum class DeprDetail { Figures, History };

/// Reads all cards, one after the other, by their numbers. It only reads.
class DeprCards {
 public:
  /// `month` is the first day of the month that is looked at.
  DeprCards(Database& data, DateTime month, DeprDetail detail);

  /// False at the end.
  bool next(DeprCard& card);

 private:
  using Names = std::map<std::string, std::string>;  // of the codes in small letters

  static Names namesIn(Database& data, const char* query);
  DeprVersion versionHere() const;
  void nextVersion();
  void nextLedger();
  void takeLedger(DeprCard& card);

  int month_;
  DeprDetail detail_;
  Names departments_;
  Names categories_;
  Recordset ledger_;
  Recordset versions_;
  std::string ledgerKey_;  // the card's number in small letters, of the row that is reached
  std::string versionKey_;
};

/// Cards in service that the run computes by an older version, or not at all, since no archive has the newest
/// one's department or category, as of an asset that several departments share.
struct PassedOver {
  long byOlder = 0;
  long notAtAll = 0;

  void count(const DeprCard& card);
  /// A sentence for each of both.
  std::vector<std::string> remarks() const;
};

/// What keeps the run from computing the card as it stands, a sentence; nothing where it can. `first` is the
/// first day of the month.
std::optional<std::string> deprProblem(const DeprCard& card, DateTime first);

}  // namespace zelkor
