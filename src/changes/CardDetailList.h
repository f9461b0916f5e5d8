#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "base/TextGrid.h"
#include "changes/CardVersion.h"
#include "changes/ChangeKind.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The cards that frmCardDetail offers for a sheet of the kind, below one header row: sCardNum, sAssetNum,
/// sAssetName, dStartdate, sStyle, then
/// - 原值增加: ends after sAssetName;
/// - 使用状况调整: name of the status, sStatusID;
/// - 累计折旧调整: the value that the next sheet finds;
/// - 使用年限调整: what the sheet has left, for a card without one lLife;
/// - 净残值调整: dblBVRate, dblBV;
/// - 部门转移: names of the departments, their codes, dInputDate.
TextGrid cardDetailList(Database& database, ChangeKind kind, DateTime operatingDate);

/// Column of the value that the next sheet finds in the list of 累计折旧调整.
inline constexpr std::size_t kListedValueColumn = 5;
/// Column of dInputDate in the list of 部门转移.
inline constexpr std::size_t kTransferEntryDateColumn = 7;

/// The card's version in force on the date, which the list of 部门转移 shows.
std::optional<CardVersion> versionInForce(Database& database, std::string_view cardNum, DateTime date);

/// The statement by which it is read.
std::string versionInForceOf(std::string_view cardNum, DateTime date);

/// The row of the list of 部门转移 for a version.
std::vector<std::string> transferListRow(Database& database, const CardVersion& version);
/// The same where the names of its departments have been read.
std::vector<std::string> transferListRow(const CardVersion& version, const std::string& departmentNames);

/// The name of a department, or the names of several whose codes are joined by "/", joined likewise.
std::string departmentNames(Database& database, std::string_view codes);
/// The statement by which they are read, and what its rows say.
std::string departmentsOf(std::string_view codes);
std::string departmentNames(Recordset departments, std::string_view codes);

}  // namespace zelkor
