#include "changes/SheetRow.h"

#include <cmath>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "changes/SplitDeparts.h"
#include "changes/UsefulLife.h"
#include "store/engine/Statement.h"
#include "store/settings/SubjectText.h"

namespace zelkor {
namespace {

template <typename Read>
bool canBeRead(Read read) {
  try {
    read();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

bool isAmount(const std::string& text) {
  constexpr double kLargest = 922337203685477.0;  // what a currency value can hold
  return canBeRead([&text] {
    if (std::abs(CDbl(Value(text))) > kLargest) throw RuntimeError(ErrorNumber::Overflow);
  });
}

struct Archive {
  std::string_view table;
  std::string_view code;
  std::string_view name;
};

constexpr Archive kStatuses{"fa_Status", "sID", "sName"};
constexpr Archive kDepartments{"fa_departments", "sNum", "sName"};

std::string searchFor(const Archive& archive, const std::string& code) {
  return sql("select * from ", archive.table, " where ", archive.code, "='", code, "'");
}

/// The entry as the archive has it; nothing without one.
std::optional<ArchiveEntry> entryIn(const Recordset& row, const Archive& archive) {
  if (row.Eof()) return std::nullopt;
  return ArchiveEntry{row.TextOrEmpty(archive.code), row.TextOrEmpty(archive.name)};
}

/// The rows of frmDepart that the cell stands for.
class SplitReading {
 public:
  explicit SplitReading(Database& database) : database_(database) {}

  std::optional<std::string> read(const std::string& cell);
  const std::vector<SplitRow>& rows() const { return rows_; }

 private:
  std::optional<std::string> add(const std::string& element);

  Database& database_;
  std::vector<SplitRow> rows_;
};

std::optional<std::string> SplitReading::read(const std::string& cell) {
  for (const std::string& element : Split(cell, '/')) {
    if (rows_.size() == kMostSplitDeparts) return "使用部门有效数量范围：2~20个";
    if (auto problem = add(element)) return problem;
  }
  return std::nullopt;
}

// A department that the picker would not offer leaves its cell empty, which the confirmation refuses.
std::optional<std::string> SplitReading::add(const std::string& element) {
  auto parts = Split(element, ':');
  if (parts.size() > 3) return "“" + element + "”不是 部门:比例:科目，如 301:60:410502";
  parts.resize(3);
  SplitRow row{.departCode = "",
               .departName = "",
               .scale = Trim(parts[1]),
               .subject = "",
               .itemClass = "",
               .project = ""};
  if (const auto department = leafDepartment(database_, Trim(parts[0]))) {
    row.departCode = department->code;
    row.departName = department->name;
  }
  if (!canBeRead([&row] { CInt(Value(row.scale)); }))
    return "“" + element + "”的比例不是数，应为 部门:比例:科目，如 301:60:410502/6:40";
  const std::string code = Trim(parts[2]);
  const auto subject = code.empty() ? "" : lookUpSubject(database_, code);
  if (!subject) return "科目中没有“" + code + "”";
  row.subject = *subject;
  rows_.push_back(row);
  if (row.departCode.empty()) return std::nullopt;
  const auto repeated = departRepeated(rows_, rows_.size() - 1, row.departCode);
  return repeated ? std::optional(repeated->text) : std::nullopt;
}

std::optional<std::string> chooseSplit(Database& database, const std::string& cell, ChangeSheet& sheet) {
  SplitReading reading(database);
  if (auto problem = reading.read(cell)) return problem;
  DepartSplit split;
  if (const auto refusal = confirmSplit(reading.rows(), split)) return refusal->text;
  sheet.chooseSplit(std::move(split));
  return std::nullopt;
}

}  // namespace

std::optional<std::string> formProblem(ChangeKind kind, const std::string& after) {
  const std::string shown = after.empty() ? "空白" : "“" + after + "”";
  switch (kind) {
    case ChangeKind::OriginalValue:
      if (Trim(after).empty() || isAmount(after)) return std::nullopt;  // the screen says that of a blank
      return shown + "不是金额，应为增加的原值，如 1000.00";
    case ChangeKind::AccumulatedDepr:
      if (isAmount(after)) return std::nullopt;
      return shown + "不是金额，应为变动后的累计折旧，如 1000.00";
    case ChangeKind::UsefulLife:
      if (canBeRead([&after] { monthsOnSheet(after); })) return std::nullopt;
      return shown + "不是年限，应为几年几月，如 6年0月";
    default:
      return std::nullopt;
  }
}

std::optional<std::string> chooseStatus(Database& database, const std::string& statusID, ChangeSheet& sheet) {
  const auto status = entryIn(database.OpenRecordset(searchFor(kStatuses, statusID)), kStatuses);
  if (!status || statusID == "0") return "使用状况中没有“" + statusID + "”";
  sheet.after = {status->name, status->code};
  return std::nullopt;
}

std::optional<std::string> chooseDepartments(Database& database, const std::string& cell,
                                             ChangeSheet& sheet) {
  if (cell.empty()) return std::nullopt;  // nothing chosen
  if (!isOneDepartment(cell)) return chooseSplit(database, cell, sheet);
  return chooseDepartment(database.OpenRecordset(departmentOf(cell)), cell, sheet);
}

bool isOneDepartment(const std::string& cell) {
  return !cell.empty() && cell.find_first_of(":/") == std::string::npos;
}

std::string departmentOf(const std::string& cell) {
  return searchFor(kDepartments, cell);
}

std::optional<std::string> chooseDepartment(const Recordset& found, const std::string& cell,
                                            ChangeSheet& sheet) {
  const auto department = entryIn(found, kDepartments);
  if (!department || cell == "&") return "使用部门非末级部门或不存在，请重新录入或参照选择";
  sheet.chooseDepartment(department->code, department->name);
  return std::nullopt;
}

}  // namespace zelkor
