#include "archives/UsageStatuses.h"

#include "base/Conversion.h"
#include "base/Text.h"
#include "startup/CloseObject.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kRootID = "0";
constexpr std::size_t kIDColumn = 2;

bool depreciates(const Recordset& status) {
  return status.Fields("bNeedDepr").numberOrZero() != 0;
}

std::string indentedName(const Recordset& status) {
  const auto level = static_cast<std::size_t>(status.Fields("iLevel").numberOrZero());
  return std::string(2 * level, ' ') + status.TextOrEmpty("sName");
}

}  // namespace

UsageStatuses::UsageStatuses(DbEngine& engine, const std::string& path)
    : data_(engine.OpenDatabase(path)), statuses_(data_.OpenRecordset("Select * From fa_Status")) {}

std::vector<TreeRow> UsageStatuses::tree() {
  std::vector<TreeRow> rows{{"N0", "", "使用状况目录表"}};
  Recordset statuses = data_.OpenRecordset("SELECT * From fa_Status  Where (iLevel <= 2)  ORDER BY sID");
  for (; !statuses.Eof(); statuses.MoveNext()) {
    const std::string id = statuses.TextOrEmpty("sID");
    if (id == kRootID) continue;
    rows.push_back({std::string("N").append(id), std::string("N").append(statuses.TextOrEmpty("sParentID")),
                    statuses.TextOrEmpty("sName"), id});
  }
  return rows;
}

TextGrid UsageStatuses::list(std::string_view id) {
  TextGrid grid;
  grid.setHeader("使用状况名称|是否计提折旧|");
  grid.setColumnHidden(kIDColumn, true);
  const std::string_view columns = "Select sID,sName,bNeedDepr,iLevel From fa_Status";
  Recordset statuses =
      data_.OpenRecordset(id.empty() ? std::string(columns) : sql(columns, " Where sID Like '", id, "*'"));
  for (; !statuses.Eof(); statuses.MoveNext()) {
    grid.addRow({indentedName(statuses), depreciates(statuses) ? "是" : "否", statuses.TextOrEmpty("sID")});
  }
  return grid;
}

std::optional<UsageStatus> UsageStatuses::read(std::string_view id) {
  statuses_.Requery();
  statuses_.FindFirst(sql("sID='", id, "'"));
  if (statuses_.NoMatch()) return std::nullopt;
  return UsageStatus{statuses_.TextOrEmpty("sID"),
                     statuses_.TextOrEmpty("sName"),
                     statuses_.TextOrEmpty("sEngName"),
                     statuses_.TextOrEmpty("sParentID"),
                     depreciates(statuses_),
                     CInt(statuses_.Fields("iLevel").numberOrZero())};
}

void UsageStatuses::change(const UsageStatus& status) {
  if (!read(status.id)) return;
  statuses_.Edit();
  statuses_.Collect("sName", status.name);
  statuses_.Collect("sEngName", status.englishName);
  statuses_.Collect("bNeedDepr", status.depreciates);
  statuses_.Update();
}

/// Without a status below the parent the first one gets 1 after the parent's number.
std::string UsageStatuses::nextID(const std::string& parentID) {
  statuses_.Requery();
  statuses_.FindLast(sql("sParentID='", parentID, "'"));
  if (statuses_.NoMatch()) return parentID + "1";
  return sql(Val(statuses_.TextOrEmpty("sID")) + 1);
}

std::string UsageStatuses::add(const UsageStatus& status, const std::string& parentID) {
  std::string id = nextID(parentID);
  statuses_.AddNew();
  statuses_.Collect("sID", id);
  statuses_.Collect("sName", status.name);
  statuses_.Collect("sEngName", status.englishName);
  statuses_.Collect("sParentID", parentID);
  statuses_.Collect("bNeedDepr", status.depreciates);
  statuses_.Collect("lchilds", std::int32_t{0});
  statuses_.Collect("Num1", parentID);
  statuses_.Collect("Num2", Mid(id, 2));
  statuses_.Collect("iLevel", std::int32_t{2});
  statuses_.Collect("iDefineType", std::int32_t{1});
  statuses_.Update();
  return id;
}

void UsageStatuses::remove(std::string_view id) {
  data_.Execute(sql("Delete From fa_status Where sID='", id, " '"));
}

void UsageStatuses::close() {
  CloseObject(statuses_);
  CloseObject(data_);
}

}  // namespace zelkor
