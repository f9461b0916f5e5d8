#include "vouchers/LineSubjects.h"

#include <array>

#include "base/CsvTable.h"
#include "base/RuntimeError.h"
#include "vouchers/SubjectName.h"

namespace zelkor {
namespace {

constexpr std::array<std::string_view, 3> kColumns = {"业务类型", "方向", "科目"};

[[noreturn]] void refuse(const CsvTableRow& row, std::string_view column, const std::string& reason) {
  throw RuntimeError(ErrorNumber::DataTypeConversion, csvCellText(row.line, column, reason));
}

}  // namespace

LineSubjects::LineSubjects(const std::string& csv, Database& data) {
  for (const CsvTableRow& row : readCsvTable(csv, kColumns)) {
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      if (row.cells[i].empty()) refuse(row, kColumns[i], "不能为空");
    }
    const std::string& sign = row.cells[0];
    const std::string& side = row.cells[1];
    const std::string& subject = row.cells[2];
    if (side != "借" && side != "贷") refuse(row, kColumns[1], "“" + side + "”不是“借”或“贷”");
    if (!enteredSubjectName(data, subject)) refuse(row, kColumns[2], "“" + subject + "”不是会计科目");
    if (!subjects_.emplace(std::pair(sign, side), subject).second) {
      refuse(row, kColumns[0], "“" + sign + "”的" + side + "方已有科目");
    }
  }
}

const std::string* LineSubjects::find(const std::string& sign, const std::string& side) const {
  const auto found = subjects_.find({sign, side});
  return found == subjects_.end() ? nullptr : &found->second;
}

}  // namespace zelkor
