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
#include "store/engine/StatementGroup.h"

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

std::string countOf(const std::string& condition) {
  return sql("select Count(*) as xjsl from department where ", condition);
}

std::string countUnder(const std::string& code) {
  return countOf(sql("cDepCode like '", code, "*'"));
}

std::int32_t countDepartments(StatementGroup& group, const std::string& count) {
  return CLng(group.rowsOf(count).Fields("xjsl"));
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

struct Depart {
  std::string code;
  std::string name;
};

std::vector<Depart> departsOfLength(StatementGroup& group, std::size_t codeLength) {
  const std::string query =
      sql("select * from department where len(cDepCode)=", codeLength, " order by cDepCode");
  group.foresee({query});
  std::vector<Depart> departs;
  for (Recordset rows = group.rowsOf(query); !rows.Eof(); rows.MoveNext())
    departs.push_back({rows.TextOrEmpty("cDepCode"), rows.TextOrEmpty("cDepName")});
  return departs;
}

void foreseeCounts(StatementGroup& group, const std::vector<Depart>& departs) {
  std::vector<std::string> counts;
  for (const Depart& depart : departs) counts.push_back(countUnder(depart.code));
  group.foresee(counts);
}

void mirrorDepartment(StatementGroup& group, const Depart& depart, const LevelLengths& lengths,
                      std::size_t level) {
  const std::int32_t rowsUnder = countDepartments(group, countUnder(depart.code));
  // As long as the part of the level above alone: from level 3 on this is not the parent's whole code.
  const std::string parent = level == 1 ? std::string() : Left(depart.code, lengths[level - 1]);
  group.execute(sql("insert into fa_departments (sNum,sName", levelColumns(level),
                    ",sParentNum,lChilds,iLevel,iDefinetype) values ('", depart.code, "','", depart.name,
                    levelParts(depart.code, lengths, level), "','", parent, "',", rowsUnder - 1, ",", level,
                    ",1)"));
}

void mirrorLevel(StatementGroup& group, const LevelLengths& lengths, std::size_t level,
                 std::size_t codeLength) {
  const std::vector<Depart> departs = departsOfLength(group, codeLength);
  foreseeCounts(group, departs);
  for (const Depart& depart : departs) mirrorDepartment(group, depart, lengths, level);
}

void mirrorDepartments(StatementGroup& group, const LevelLengths& lengths, std::size_t levels) {
  group.execute("delete from fa_departments where sNum<>'&'");
  const std::string ofTopLevel = countOf(sql("len(cDepCode)=", lengths[1]));
  group.foresee({ofTopLevel});
  const std::int32_t topLevel = countDepartments(group, ofTopLevel);
  group.execute(sql("update fa_departments set lChilds=", topLevel, " where sNum='&'"));

  std::size_t codeLength = 0;
  for (std::size_t level = 1; level <= levels; ++level) {
    codeLength += lengths[level];
    mirrorLevel(group, lengths, level, codeLength);
  }
}

}  // namespace

void SyncDepartments(RunContext& context) {
  ClsBLLDepart departs(context.engine);
  departs.setZkDataPath(context.gstrZtFile);
  std::int32_t levels = 0;  // the last level's length, by which the mirror goes as if it were their number
  const LevelLengths lengths(departs.GetDepartCodingRule(levels));

  StatementGroup group(context.dbZKData);
  group.runAll([&] { mirrorDepartments(group, lengths, static_cast<std::size_t>(levels)); });
}

}  // namespace zelkor
