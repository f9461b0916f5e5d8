#pragma once

#include <optional>
#include <string>
#include <vector>

#include "audit/BookCheck.h"
#include "cards/ClsBLLFACards.h"
#include "changes/ChangeSheets.h"
#include "closing/Disposal.h"
#include "support/AccountSetFixture.h"
#include "vouchers/BatchBilling.h"
#include "year/YearAssets.h"

namespace zelkor::test {

/// Keeps what is told, box by box, and answers yes to all but the questions that are to be refused.
class KeptBoxes final : public Dialogs {
 public:
  void note(const std::string& line) { lines_ += line + "\n"; }
  /// What was told since the last call.
  std::string take() { return std::exchange(lines_, {}); }

 protected:
  Answer ask(const MessageBox& box) override;
  void present(const std::string& caption, const TextGrid& /*grid*/) override { note("grid " + caption); }

 private:
  std::string lines_;
};

/// The books of a company, kept job by job as its bookkeeper does, without screens. What goes wrong in a job
/// is noted among what was told, as the person would see it.
class YearBooks {
 public:
  YearBooks();

  /// The programs of one day; the system date is another one where it is given.
  void logIn(const std::string& operatingDate, const std::string& systemTime = "");
  int period() const { return context_.period(); }
  Database& db() { return context_.dbZKData; }
  const RunContext& run() const { return context_; }
  void execute(const std::string& statement) { db().Execute(statement); }
  std::vector<std::string> rows(const std::string& query) { return rowsOf(db().OpenRecordset(query)); }
  /// The only cell of the only row.
  std::string cell(const std::string& query) { return rows(query).at(0); }
  std::string whatWasTold() { return dialogs_.take(); }
  /// What a check of the books finds as of the operating date.
  CheckResult check();
  const std::string& dataFile() const { return context_.gstrZtFile; }

  /// Enters a card that was in the books before the module's first period.
  void enterOriginal(const YearAsset& asset);
  /// Enters an asset that came by that way.
  void addAsset(const YearAsset& asset, const std::string& way = "101");
  void enterWorkloadCard(const YearAsset& asset, const YearWorkload& workload, NewCardType type);
  /// Rewrites a card as the editor does.
  void correct(const YearAsset& asset);
  void deleteCard(const std::string& number);
  void enterWorkload(const std::string& number, double work);

  void changeValue(const std::string& number, const std::string& increase);
  void changeStatus(const std::string& number, const std::string& id, const std::string& name);
  void changeAccumulated(const std::string& number, const std::string& after);
  void changeLife(const std::string& number, const std::string& after);
  /// The sheet that shows and is not saved.
  void changeResidual(const std::string& number);
  void transfer(const std::string& number, const std::string& code, const std::string& name);
  void splitBetween(const std::string& number, const DepartSplit& split);
  void changeMethod(const std::string& number, const std::string& id, const std::string& name);

  void runMonth();
  /// Makes a voucher for the event ("卡片00009", "折旧计提01") with these subjects where a line has none.
  void makeVoucher(const std::string& event, const std::string& debit, const std::string& credit);
  /// One voucher for several events.
  void makeMergedVoucher(const std::vector<std::string>& events, const std::string& debit,
                         const std::string& credit);
  /// A voucher with one line per subject.
  void makeVoucherBySubject(const std::string& event, const std::string& credit, const std::string& digest);
  /// Deletes the voucher of that kind and event number as voucher query lists it; "" for none.
  void deleteVoucher(const std::string& sign, const std::string& number);

  void dispose(const DisposedAsset& asset);
  void stampDisposal(const std::string& assetNumber, const std::string& way, const std::string& date,
                     const std::string& reason);
  void closeMonth();

 private:
  void save(CardValues values, NewCardType type, CardLayout layout);
  CardValues valuesOf(const YearAsset& asset, const std::string& way) const;
  void saveSheet(ChangeSheets& sheets, const ChangeSheet& sheet);
  std::optional<ChangeSheet> sheetFor(ChangeSheets& sheets, const std::string& number,
                                      const std::string& reason);
  std::optional<ChangeSheet> pickedFor(ChangeSheets& sheets, const std::string& number);
  void tell(const SheetResult& result);
  void mark(BatchBilling& billing, const std::string& event, const std::string& mergeNumber = "");
  void fillSubjects(BatchBilling& billing, const std::string& debit, const std::string& credit);
  void saveVoucher(const VoucherRequest& request, const std::string& digest = "");

  TempDir directory_;
  AccountSetCopy files_{directory_.path()};
  DbEngine engine_;
  KeptBoxes dialogs_;
  FixedClock clock_{day("2020-1-31 17:30:00")};
  RunContext context_{engine_, dialogs_, clock_};
};

}  // namespace zelkor::test
