#include "depreciation/PlannedChanges.h"

#include <array>
#include <optional>
#include <span>

#include "base/Conversion.h"
#include "base/CsvTable.h"
#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

enum Column : std::size_t {
  kKind,
  kDate,
  kCardNum,
  kAssetName,
  kCategory,
  kDepartment,
  kLife,
  kMethod,
  kValue,
  kResidualRate,
  kSubject
};

constexpr std::array<std::string_view, 11> kCaptions = {"业务",     "日期",     "卡片编号",    "固定资产名称",
                                                        "类别编号", "部门名称", "使用年限",    "折旧方法",
                                                        "原值",     "净残值率", "对应折旧科目"};

/// Reads the rows of one file against the archives.
class ChangeReader {
 public:
  ChangeReader(Database& data, DateTime month, std::vector<std::string>& problems)
      : data_(data), month_(month), problems_(problems) {}

  void read(const CsvTableRow& row);
  PlannedChanges taken() && { return std::move(changes_); }

 private:
  void refuse(Column column, const std::string& reason) {
    problems_.push_back(csvCellText(row_->line, kCaptions[column], reason));
  }
  const std::string& cell(Column column) const { return row_->cells[column]; }

  std::optional<DateTime> date();
  void readDisposal(DateTime date);
  void readAddition(DateTime date);
  std::string named(Column column, const char* query);
  void readCategory(PlannedAddition& addition);
  Value method(const Value& ofCategory);
  Value life(const Value& ofCategory);
  Value residualRate(const Value& ofCategory);
  Value value();

  Database& data_;
  DateTime month_;
  std::vector<std::string>& problems_;
  const CsvTableRow* row_ = nullptr;
  PlannedChanges changes_;
};

void ChangeReader::read(const CsvTableRow& row) {
  row_ = &row;
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    if (const auto problem = quoteProblem(row.cells[i])) return refuse(static_cast<Column>(i), *problem);
  }
  const auto day = date();
  if (cell(kKind) == "增加") {
    if (day) readAddition(*day);
  } else if (cell(kKind) == "减少") {
    if (day) readDisposal(*day);
  } else {
    refuse(kKind, "“" + cell(kKind) + "”不是“增加”或“减少”");
  }
}

std::optional<DateTime> ChangeReader::date() {
  const auto day = parseDate(cell(kDate));
  if (!day) {
    refuse(kDate, "“" + cell(kDate) + "”不是日期");
  } else if (*day < month_) {
    refuse(kDate, "“" + cell(kDate) + "”早于计划的第一个月");
    return std::nullopt;
  }
  return day;
}

void ChangeReader::readDisposal(DateTime date) {
  const std::string& number = cell(kCardNum);
  if (data_.OpenRecordset(sql("select top 1 sCardNum from fa_Cards where sCardNum='", number, "'")).Eof())
    return refuse(kCardNum, "没有卡片“" + number + "”");
  if (!changes_.disposals.emplace(asciiLower(number), date).second)
    refuse(kCardNum, "卡片“" + number + "”减少了不止一次");
}

/// The name that the query finds for the code in the column.
std::string ChangeReader::named(Column column, const char* query) {
  const Recordset rows = data_.OpenRecordset(sql(query, cell(column), "'"));
  if (!rows.Eof()) return rows.Fields(0).textOrEmpty();
  refuse(column, cell(column).empty() ? "不能为空" : "没有“" + cell(column) + "”");
  return {};
}

Value ChangeReader::method(const Value& ofCategory) {
  if (cell(kMethod).empty()) return ofCategory;
  const Recordset rows =
      data_.OpenRecordset(sql("select sID from fa_Depreciations where sName='", cell(kMethod), "'"));
  if (!rows.Eof()) return rows.Fields(0);
  refuse(kMethod, "没有“" + cell(kMethod) + "”");
  return {};
}

Value ChangeReader::life(const Value& ofCategory) {
  if (cell(kLife).empty()) return ofCategory;
  const auto months = parseNumber(cell(kLife));
  if (months && *months >= 1 && *months <= 1200 && *months == roundHalfEven(*months))
    return static_cast<std::int32_t>(*months);
  refuse(kLife, "“" + cell(kLife) + "”不是月数");
  return {};
}

Value ChangeReader::residualRate(const Value& ofCategory) {
  if (cell(kResidualRate).empty()) return ofCategory;
  const auto rate = parseNumber(cell(kResidualRate));
  if (rate && *rate >= 0 && *rate <= 1) return *rate;
  refuse(kResidualRate, "“" + cell(kResidualRate) + "”不是小数，如 0.05");
  return {};
}

Value ChangeReader::value() {
  const auto value = parseNumber(cell(kValue));
  if (value && *value > 0 && *value < 1e12) return *value;
  refuse(kValue, "“" + cell(kValue) + "”不是金额");
  return {};
}

void ChangeReader::readCategory(PlannedAddition& addition) {
  const Recordset category = data_.OpenRecordset(sql(
      "select sName,sDeprMethodNum,iLife,dblBVRate from fa_AssetTypes where sNum='", cell(kCategory), "'"));
  if (category.Eof()) return refuse(kCategory, "没有类别“" + cell(kCategory) + "”");
  addition.place.category = cell(kCategory);
  addition.place.categoryName = category.TextOrEmpty("sName");
  addition.basis.sDeprMethodID = method(category.Fields("sDeprMethodNum"));
  addition.basis.lLife = life(category.Fields("iLife"));
  addition.basis.dblBVRate = residualRate(category.Fields("dblBVRate").numberOrZero());
}

void ChangeReader::readAddition(DateTime date) {
  const std::size_t before = problems_.size();
  PlannedAddition addition{.label = sql("第", row_->line, "行"),
                           .date = date,
                           .assetName = cell(kAssetName),
                           .basis = {},
                           .place = {}};
  readCategory(addition);
  addition.basis.dblValue = value();
  addition.basis.lUsedMonths = 0;
  addition.place.department = cell(kDepartment);
  addition.place.departmentName = named(kDepartment, "select sName from fa_Departments where sNum='");
  addition.place.subject = cell(kSubject);
  if (!cell(kSubject).empty())
    addition.place.subjectName = named(kSubject, "select ccode_name from code where ccode='");
  if (problems_.size() > before) return;
  const double residual = addition.basis.dblValue.number() * addition.basis.dblBVRate.number();
  addition.basis.dblBV = Val(Format(residual, "0.00"));
  changes_.additions.push_back(std::move(addition));
}

}  // namespace

PlannedChanges readPlannedChanges(Database& data, DateTime month, std::string_view csv,
                                  std::vector<std::string>& problems) {
  requireUtf8(csv);
  CsvReader rows{std::string(csv)};
  CsvTable table(rows, kCaptions, std::span(kCaptions).subspan(kCardNum));
  ChangeReader reader(data, month, problems);
  for (bool more = true; more;) {
    try {
      const auto row = table.next();
      more = row.has_value();
      if (row) reader.read(*row);
    } catch (const CsvRowError& error) {
      problems.push_back((error.line() > 0 ? sql("第", error.line(), "行：") : "") + error.what());
    }
  }
  return std::move(reader).taken();
}

}  // namespace zelkor
