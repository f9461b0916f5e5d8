#include "archives/SyncDepartments.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archives/ClsBLLDepart.h"
#include "base/Conversion.h"
#include "base/Text.h"
#include "startup/Strings.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

/// The groups of the coding rule; index 0 is no level. Beyond the groups kept, reading is error 9.
class LevelLengths {
 public:
  explicit LevelLengths(std::string_view pattern) { SplitString(pattern, groups_, " ", false); }
  std::size_t operator[](std::size_t level) const { return element(groups_, level).size(); }

 private:
  std::vector<std::string> groups_;
};

std::int32_t countDepartments(Database& database, const std::string& condition) {
  const Recordset row =
      database.OpenRecordset(sql("select Count(*) as xjsl from department where ", condition));
  return CLng(row.Fields("xjsl"));
}

std::string levelColumns(std::size_t level) {
  std::string columns;
  for (std::size_t i = 1; i <= level; ++i) columns += sql(",sNum", i);
  return columns;
}

/// The code's parts, each after "','".
std::string levelParts(std::string_view code, const LevelLengths& lengths, std::size_t level) {
  std::string parts;
  std::size_t start = 1;
  for (std::size_t i = 1; i <= level; ++i) {
    parts += sql("','", Mid(code, start, lengths[i]));
    start += lengths[i];
  }
  return parts;
}

void mirrorDepartment(Database& database, const Recordset& depart, const LevelLengths& lengths,
                      std::size_t level) {
  const std::string code = depart.TextOrEmpty("cDepCode");
  const std::int32_t rowsUnder = countDepartments(database, sql("cDepCode like '", code, "*'"));
  // As long as the part of the level above alone: from level 3 on this is not the parent's whole code.
  const std::string parent = level == 1 ? std::string() : Left(code, lengths[level - 1]);
  database.Execute(sql("insert into fa_departments (sNum,sName", levelColumns(level),
                       ",sParentNum,lChilds,iLevel,iDefinetype) values ('", code, "','",
                       depart.TextOrEmpty("cDepName"), levelParts(code, lengths, level), "','", parent, "',",
                       rowsUnder - 1, ",", level, ",1)"));
}

void mirrorLevel(Database& database, const LevelLengths& lengths, std::size_t level, std::size_t codeLength) {
  Recordset departs = database.OpenRecordset(
      sql("select * from department where len(cDepCode)=", codeLength, " order by cDepCode"));
  for (; !departs.Eof(); departs.MoveNext()) mirrorDepartment(database, departs, lengths, level);
}

}  // namespace

void SyncDepartments(RunContext& context) {
  ClsBLLDepart departs(context.engine);
  departs.setZkDataPath(context.gstrZtFile);
  std::int32_t levels = 0;  // the last level's length, by which the mirror goes as if it were their number
  const LevelLengths lengths(departs.GetDepartCodingRule(levels));

  Database& database = context.dbZKData;
  database.Execute("delete from fa_departments where sNum<>'&'");
  const std::int32_t topLevel = countDepartments(database, sql("len(cDepCode)=", lengths[1]));
  database.Execute(sql("update fa_departments set lChilds=", topLevel, " where sNum='&'"));

  std::size_t codeLength = 0;
  for (std::size_t level = 1; level <= static_cast<std::size_t>(levels); ++level) {
    codeLength += lengths[level];
    mirrorLevel(database, lengths, level, codeLength);
  }
}

}  // namespace zelkor
