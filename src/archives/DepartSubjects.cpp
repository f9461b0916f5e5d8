#include "archives/DepartSubjects.h"

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kRootCode = "&";

std::string subjectText(const Recordset& depart) {
  const std::string code = depart.TextOrEmpty("sSubjectNum");
  return code.empty() ? std::string() : code + "," + depart.TextOrEmpty("sSubjectName");
}

Recordset departRow(Database& data, std::string_view code) {
  return data.OpenRecordset(sql("select * from fa_departments where sNum='", code, "'"));
}

}  // namespace

TextGrid departSubjectList(Database& data, std::string_view selectedCode) {
  TextGrid grid;
  grid.setHeader("部门编码|部门名称|折旧科目");
  Recordset departs = data.OpenRecordset(
      selectedCode == kRootCode
          ? std::string("select * from fa_departments where iLevel<=1 order by sNum")
          : sql("select * from fa_departments where sNum like '", selectedCode, "*' order by sNum"));
  for (; !departs.Eof(); departs.MoveNext()) {
    const std::string code = departs.TextOrEmpty("sNum");
    if (code != kRootCode) grid.addRow({code, departs.TextOrEmpty("sName"), subjectText(departs)});
  }
  return grid;
}

std::optional<DepartSubject> readDepartSubject(Database& data, std::string_view code) {
  const Recordset row = departRow(data, code);
  if (row.Eof()) return std::nullopt;
  const Recordset parent = departRow(data, row.TextOrEmpty("sParentNum"));
  return DepartSubject{row.TextOrEmpty("sNum"), row.TextOrEmpty("sNum1"), row.TextOrEmpty("sName"),
                       parent.Eof() ? std::string() : parent.TextOrEmpty("sName"), subjectText(row)};
}

std::optional<DetailSubject> findDetailSubject(Database& data, std::string_view code) {
  const Recordset subject = data.OpenRecordset(sql("SELECT * FROM CODE WHERE CCODE='", code, "' and bend"));
  if (subject.Eof()) return std::nullopt;
  return DetailSubject{subject.TextOrEmpty("ccode"), subject.TextOrEmpty("ccode_name")};
}

bool hasDepartsBelow(Database& data, std::string_view code) {
  return data.OpenRecordset(sql("select * from fa_departments where sNum='", code, "' and lchilds=0")).Eof();
}

std::string departSubjectQuestion(std::string_view departName, std::string_view subject) {
  return sql("是否将[", departName, "]部门的所有下级部门的折旧科目替换为[", subject,
             "]?\n如果选择是,请在成功保存后点[刷新]查看。");
}

void storeDepartSubject(Database& data, std::string_view code, const DetailSubject& subject,
                        SubjectReach reach) {
  const std::string where = reach == SubjectReach::AllBelow ? sql(" where sNum like '", code, "*'")
                                                            : sql(" where sNum='", code, "'");
  data.Execute(sql("update fa_departments set sSubjectNum='", subject.code, "',sSubjectName='", subject.name,
                   "'", where));
}

void clearDepartSubject(Database& data, std::string_view code) {
  data.Execute(sql("update fa_departments set sSubjectNum='',sSubjectName='' where sNum='", code, "'"));
}

}  // namespace zelkor
