#include <algorithm>

#include "base/Conversion.h"
#include "base/Text.h"
#include "changes/TransferRows.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kShares = "select * from fa_deptscale";

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
  ShareCarrying(const SheetSaving& saving, const CarriedRows& carried)
      : saving_(saving), carried_(carried), highest_(highest(saving, CarriedRows::kHighestShare)) {}

  void copyEarlier();
  void addWhole(const std::string& department);
  void addSplit(const DepartSplit& split);

 private:
  std::int32_t operationBehind(const Value& fallback, int step) const {
    return CLng(CDbl(highest_.isNull() ? fallback : highest_) + step);
  }
  void add(const std::string& department, ColumnValues values);

  const SheetSaving& saving_;
  const CarriedRows& carried_;
  Value highest_;
  double lastID_ = 0;
  std::optional<CardVersion> previous_;
};

// The share before the transfer stands again, under the operation of the row left behind.
void ShareCarrying::copyEarlier() {
  const auto shares = carried_.shares(saving_.group);
  const auto count = static_cast<double>(shares.size());
  for (const CardVersion& share : shares) {
    const Value& id = share["sID"];
    lastID_ = id.isNull() ? 0 : CDbl(id) + count;
    addCopy(saving_.group, kShares, share, {"sID", "lOptID"},
            {{"sID", lastID_}, {"lOptID", operationBehind(share["lOptID"], 1)}});
    previous_ = share;
  }
}

void ShareCarrying::add(const std::string& department, ColumnValues values) {
  const std::int32_t lOptID = operationBehind(saving_.card["lOptID"], 2);
  values.insert(values.end(), {{"sID", ++lastID_},
                               {"sCardNum", saving_.sheet.cardNum},
                               {"lOptID", lOptID},
                               {"sDeptNum", department}});
  noteHighest(saving_, CarriedRows::kHighestShare, lOptID);
  addRow(saving_.group, kShares, values);
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

void carryShares(const SheetSaving& saving, const CarriedRows& carried) {
  ShareCarrying shares(saving, carried);
  shares.copyEarlier();
  const ChangeSheet& sheet = saving.sheet;
  if (sheet.split.empty()) {
    shares.addWhole(sheet.after.tag);
  } else {
    shares.addSplit(sheet.split);
  }
}

}  // namespace zelkor
