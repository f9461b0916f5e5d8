#pragma once

#include <optional>
#include <string>

#include "changes/ChangeKind.h"
#include "changes/ChangeSheet.h"
#include "store/engine/Database.h"

namespace zelkor {

/// One change as a row of the file gives it.
struct SheetRow {
  std::string kind;
  std::string cardNum;
  std::string after;
  std::string siteAfter;
  std::string reason;
};

/// Which form a value after has to have that is typed on the screen, and has not; nothing when it may be
/// saved.
std::optional<std::string> formProblem(ChangeKind kind, const std::string& after);

// What the pickers of the screens would give for a cell. An answer is why they would not.

/// The usage status of that sID as the value after.
std::optional<std::string> chooseStatus(Database& database, const std::string& statusID, ChangeSheet& sheet);

/// One department, or a split as code:percent:subject joined by "/"; the subject may be left out.
std::optional<std::string> chooseDepartments(Database& database, const std::string& cell, ChangeSheet& sheet);
/// Whether the cell is one department, which is the one of that code: the statement by which it is read, and
/// what its rows say.
bool isOneDepartment(const std::string& cell);
std::string departmentOf(const std::string& cell);
std::optional<std::string> chooseDepartment(const Recordset& found, const std::string& cell,
                                            ChangeSheet& sheet);

}  // namespace zelkor
