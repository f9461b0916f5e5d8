#pragma once

#include "faults/FaultFixture.h"
#include "faults/Told.h"
#include "faults/Workstation.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace zelkor::test {

/// Four desks on one account set of January 2020 that is empty but for the archives.
class WorkstationsFixture : public FaultFixture {
 protected:
  static constexpr int desks = 4;

  explicit WorkstationsFixture(int cardsToImport) : FaultFixture(cardsToImport) {}

  void SetUp() override;
  /// What the job leaves undisturbed, from the state that is there and that is given back then.
  Lines computedBy(const Lines& job);

  Lines rows(const std::string& query) { return rowsOf(context.dbZKData.OpenRecordset(query)); }

  /// Everybody does this at once; what they tell.
  Told runDesks(const Workstation::Work& work);

  /// The cards of the register, as a desk tells of its own.
  Lines importedCards();

  static int deskOf(const RunContext& context) { return context.gstrUser.back() - '0'; }

  /// Each of these cards is there once, with all its rows; nothing else is.
  void expectCards(const Lines& told);
  /// Each of these sheets is there once, with the versions and the register row that its kind makes.
  void expectSheets(const Lines& sheets);
  /// Numbers are given twice by different desks only, and none is passed over; autonumbers are never given
  /// twice.
  void expectNumbers();
  /// Says how often numbers were given twice and how long somebody has waited; nobody has waited for more
  /// than a statement, nor for each other in a circle.
  void expectNoLongWaits(const Told& told);

  DbEngine engine;
  ScriptedDialogs dialogs;
  FixedClock clock{day("2020-2-1")};
  RunContext context{engine, dialogs, clock};
};

}  // namespace zelkor::test
