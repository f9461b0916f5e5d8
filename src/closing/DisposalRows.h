#pragma once

#include <string>

#include "base/DateTime.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The numbers that a disposal counts in fa_Objects.
enum class Counter : int { CardVersion = 1, Operation = 2, SheetEntry = 8, DepartmentShare = 11 };

void raiseCounter(Database& data, Counter counter);
/// The counter as it is. It is read after a raise, although nothing is numbered by it.
Value readCounter(Database& data, Counter counter);

/// The number after the highest `sID` of a table, 1 in an empty one.
std::string nextNumber(Database& data, const char* table);

/// The card version that a disposal adds, as its numbers are in statements.
struct DisposalVersion {
  std::string sCardNum;
  std::string replacedID;  // sCardID of the version in force
  std::string sCardID;
  std::string lOptID;
  DateTime date;
};

/// Gives the version the department share that `share`, a row of the version in force, holds.
void addShare(Database& data, const DisposalVersion& version, const Recordset& share, const std::string& sID);

/// Gives the version the department rows of the version in force.
void copyDepartmentRows(Database& data, const DisposalVersion& version);

/// Clears what the card's ledger holds from month `m` on; the months' depreciation stays.
void clearLedger(Database& data, const std::string& card, int m);
void clearDepartmentLedgers(Database& data, const std::string& card, int m);

}  // namespace zelkor
