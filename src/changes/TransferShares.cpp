#include <algorithm>

#include "base/Conversion.h"
#include "base/Text.h"
#include "changes/TransferRows.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// What comes before and after the first comma.
std::pair<std::string, std::string> codeAndName(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return {text, ""};
  return {text.substr(0, comma), text.substr(comma + 1)};
}

Value nullWhenBlank(const std::string& text) {
  return Trim(text).empty() ? Value() : Value(text);
}

/// Element of one of the texts of a split; blank where it has fewer.
std::string elementOf(const std::string& joined, std::size_t index) {
  const auto elements = Split(withoutLastSlash(joined), '/');
  return index < elements.size() ? elements[index] : " ";
}

/// The shares of one card as they are carried on.
class ShareCarrying {
 public:
  explicit ShareCarrying(const SheetSaving& saving)
      : saving_(saving), highest_(number("select max(lOptID) as ch from fa_deptscale", "ch")) {}

  void copyEarlier();
  void addWhole(const std::string& department);
  void addSplit(const DepartSplit& split);

 private:
  Value number(std::string_view statement, std::string_view column) {
    return saving_.database.OpenRecordset(statement).Fields(column);
  }
  std::int32_t operationBehind(const Value& fallback, int step) const {
    return CLng(CDbl(highest_.isNull() ? fallback : highest_) + step);
  }
  void add(const std::string& department, ColumnValues values);
  std::vector<CardVersion> earlierShares();

  const SheetSaving& saving_;
  Value highest_;
  double lastID_ = 0;
  std::optional<CardVersion> previous_;
};

std::vector<CardVersion> ShareCarrying::earlierShares() {
  const std::string& card = saving_.sheet.cardNum;
  const Value last =
      number(sql("select max(lOptID) as ch0 from fa_deptscale where sCardNum='", card, "'"), "ch0");
  std::vector<CardVersion> shares;
  if (last.isNull()) return shares;
  Recordset rows = saving_.database.OpenRecordset(
      sql("select * from fa_deptscale where lOptID=", CLng(last), " and sCardNum='", card, "'"));
  for (; !rows.Eof(); rows.MoveNext()) shares.emplace_back(rows);
  return shares;
}

// The share before the transfer stands again, under the operation of the row left behind.
void ShareCarrying::copyEarlier() {
  const auto shares = earlierShares();
  const auto count = static_cast<double>(shares.size());
  for (const CardVersion& share : shares) {
    const Value& id = share["sID"];
    lastID_ = id.isNull() ? 0 : CDbl(id) + count;
    Recordset table = saving_.database.OpenRecordset("select * from fa_deptscale");
    addCopy(table, share, {"sID", "lOptID"},
            {{"sID", lastID_}, {"lOptID", operationBehind(share["lOptID"], 1)}});
    previous_ = share;
  }
}

void ShareCarrying::add(const std::string& department, ColumnValues values) {
  values.insert(values.end(), {{"sID", ++lastID_},
                               {"sCardNum", saving_.sheet.cardNum},
                               {"lOptID", operationBehind(saving_.card["lOptID"], 2)},
                               {"sDeptNum", department}});
  Recordset table = saving_.database.OpenRecordset("select * from fa_deptscale");
  table.AddNew();
  for (const auto& [column, value] : values) table.Collect(column, value);
  table.Update();
}

void ShareCarrying::addWhole(const std::string& department) {
  ColumnValues values{{"dblScale", "1"}};
  for (const char* column :
       {"sDeprSubjectNum", "sDeprSubjectName", "sProjectNum", "sProjectName", "cItemclsId"}) {
    if (previous_) values.emplace_back(column, (*previous_)[column]);
  }
  add(department, std::move(values));
}

void ShareCarrying::addSplit(const DepartSplit& split) {
  const auto departments = Split(withoutLastSlash(split.codes), '/');
  for (std::size_t i = 0; i < departments.size(); ++i) {
    const auto [subject, subjectName] = codeAndName(elementOf(split.subjects, i));
    const auto [project, projectName] = codeAndName(elementOf(split.projects, i));
    add(departments[i], {{"dblScale", nullWhenBlank(elementOf(split.scales, i))},
                         {"sDeprSubjectNum", nullWhenBlank(subject)},
                         {"sDeprSubjectName", nullWhenBlank(subjectName)},
                         {"sProjectNum", nullWhenBlank(project)},
                         {"sProjectName", nullWhenBlank(projectName)},
                         {"cItemclsId", nullWhenBlank(elementOf(split.itemClasses, i))}});
  }
}

}  // namespace

void carryShares(const SheetSaving& saving) {
  ShareCarrying shares(saving);
  shares.copyEarlier();
  const ChangeSheet& sheet = saving.sheet;
  if (sheet.split.empty()) {
    shares.addWhole(sheet.after.tag);
  } else {
    shares.addSplit(sheet.split);
  }
}

}  // namespace zelkor
