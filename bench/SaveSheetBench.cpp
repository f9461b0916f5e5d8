#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Benchmarks.h"
#include "changes/CardDetailList.h"
#include "changes/ChangeSheets.h"
#include "PostgreSql.h"
#include "Sqlite.h"
#include "Stopwatch.h"

namespace zelkor::bench {

namespace {

constexpr int kSheets = 50;
constexpr int kRounds = 15;

/// The card as the screen takes it: a transfer from the list, else by its typed number.
bool takeCard(ChangeSheets& sheets, RunContext& run, const std::string& cardNum, ChangeSheet& sheet) {
  if (sheets.kind() != ChangeKind::Transfer)
    return sheets.loadCard(CardKey::CardNumber, cardNum, sheet).done();
  const auto version = versionInForce(run.dbZKData, cardNum, run.gdOpDate);
  return version && sheets.pickCard(transferListRow(run.dbZKData, *version), sheet).done();
}

/// A whole sheet on this card, from its number to its commit.
void saveSheet(ChangeSheets& sheets, RunContext& run, const std::string& cardNum) {
  ChangeSheet sheet = sheets.newSheet();
  const bool taken = takeCard(sheets, run, cardNum, sheet);
  sheet.reason = "bench";
  sheet.increase = "100";
  if (sheets.kind() == ChangeKind::OriginalValue) sheet.recomputeValues();
  if (sheets.kind() == ChangeKind::AccumulatedDepr) sheet.after.text = "5000";
  if (sheets.kind() == ChangeKind::UsefulLife) sheet.after.text = "9年0月";
  if (sheets.kind() == ChangeKind::UsageStatus) sheet.after = {"未使用", "21"};
  if (sheets.kind() == ChangeKind::Transfer) sheet.chooseDepartment("6", "仓储物流部");
  if (!taken || !sheets.save(sheet).done()) throw std::runtime_error("a sheet was not saved");
}

/// A run in January 2020 whose system date is June, so that no card counts as entered in the current month.
class SheetRun {
 public:
  explicit SheetRun(const LargeAccountSet& set) {
    run_.gstrZtFile = set.dataFile();
    run_.gstrUser = "bench";
    run_.gdOpDate = *DateTime::fromParts(2020, 1, 31);
    run_.dbZKData = engine_.OpenDatabase(run_.gstrZtFile);
  }
  RunContext& run() { return run_; }

 private:
  SilentDialogs dialogs_;
  FixedClock clock_{*DateTime::fromParts(2020, 6, 1)};
  DbEngine engine_;
  RunContext run_{engine_, dialogs_, clock_};
};

/// Sheets of one kind on one card after the other of a set.
class SheetSeries {
 public:
  SheetSeries(const LargeAccountSet& original, ChangeKind kind) : set_(original) {
    if (kind == ChangeKind::Transfer) keepNumbersSmall(set_);
    run_.emplace(set_);
    sheets_.emplace(run_->run(), kind);
  }

  /// Saves the next sheets and keeps the seconds that they took.
  void saveRound() {
    rounds_.push_back(secondsOf([&] {
      for (int sheet = 0; sheet < kSheets; ++sheet) {
        const std::string number = std::to_string(++card_);
        saveSheet(*sheets_, run_->run(), std::string(6 - number.size(), '0') + number);
      }
      run_->run().engine.flush();
    }));
  }
  double microsecondsPerSheet() const { return best(rounds_) * 1e6 / kSheets; }

 private:
  LargeAccountSet set_;
  std::optional<SheetRun> run_;
  std::optional<ChangeSheets> sheets_;
  std::vector<double> rounds_;
  int card_ = 0;
};

/// By turns, so that whatever else the machine does bears on both alike.
void compare(const LargeAccountSet& smallSet, const LargeAccountSet& largeSet, ChangeKind kind) {
  SheetSeries small(smallSet, kind);
  SheetSeries large(largeSet, kind);
  for (int round = 0; round < kRounds; ++round) {
    small.saveRound();
    large.saveRound();
  }
  const double smallCost = small.microsecondsPerSheet();
  const double largeCost = large.microsecondsPerSheet();
  std::printf("saving a sheet    %7ld cards %8.2f, %7ld cards %8.2f us/sheet  ratio %5.2f  %s\n",
              smallSet.cards(), smallCost, largeSet.cards(), largeCost, largeCost / smallCost,
              std::string(captionOf(kind)).c_str());
}

}  // namespace

void keepNumbersSmall(const LargeAccountSet& set) {
  for (const std::string table : {"fa_Cards", "fa_Cards_Detail"}) {
    const std::string small =
        "UPDATE " + table + " SET sCardID=CAST(CAST(CAST(sCardID AS TEXT) AS INTEGER)%30000+1 AS TEXT)";
    if (set.onServer())
      BareServer(set.conninfo(), kDataSchema).run(small);
    else
      BareFile(set.dataFile()).run(small);
  }
}

void saveOneSheet(const LargeAccountSet& set, ChangeKind kind, const std::string& cardNum) {
  SheetRun run(set);
  ChangeSheets sheets(run.run(), kind);
  saveSheet(sheets, run.run(), cardNum);
}

void benchSaveSheets(const LargeAccountSet& small, const LargeAccountSet& large) {
  for (const ChangeKind kind : {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife, ChangeKind::Transfer}) {
    compare(small, large, kind);
  }
}

}  // namespace zelkor::bench
