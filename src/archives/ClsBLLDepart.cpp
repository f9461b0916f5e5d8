#include "archives/ClsBLLDepart.h"

#include "archives/CodingRule.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

std::string departDetailStatement(std::string_view code) {
  return sql("Select * From Department Where cDepCode='", code, "'");
}

std::string departsStatement(std::string_view code, int level) {
  return sql("Select * From Department Where iDepGrade=", level, " And cDepCode Like '", code, "*'");
}

Value nullIfEmpty(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

}  // namespace

Recordset ClsBLLDepart::TopDepartInfo() {
  return query("TopDepartInfo", "Select * From Department Where iDepGrade=1");
}

Recordset ClsBLLDepart::GetDepartsInfo(std::string_view code, int level) {
  return query("GetDepartsInfo", departsStatement(code, level));
}

void ClsBLLDepart::GetDepartsInfo(std::span<const std::string> codes, int level, const UseOfRows& use) {
  std::vector<std::string> statements;
  for (const std::string& code : codes) statements.push_back(departsStatement(code, level));
  eachQuery("GetDepartsInfo", statements, use);
}

Recordset ClsBLLDepart::GetDepartDetail(std::string_view code) {
  return query("GetDepartDetail", departDetailStatement(code));
}

bool ClsBLLDepart::DeleteDepart(std::string_view code) {
  return attempt("DeleteDepart", false, [&] {
    zkData().Execute(sql("Delete * From Department Where cDepCode='", code, "'"));
    return true;
  });
}

bool ClsBLLDepart::UpdateDepart(const DepartRecord& depart, DepartSaving saving) {
  return attempt("UpdateDepart", false, [&] {
    Recordset row = zkData().OpenRecordset(departDetailStatement(depart.code));
    if (saving == DepartSaving::New) {
      row.AddNew();  // with the code taken, the key refuses the row on update
    } else if (!row.Eof()) {
      row.Edit();
    } else {
      row.Close();
      return false;
    }
    storeDepart(row, depart);
    row.Update();
    row.Close();
    return true;
  });
}

void ClsBLLDepart::storeDepart(Recordset& row, const DepartRecord& depart) {
  row.Collect("cDepCode", depart.code);
  row.Collect("cDepName", depart.name);
  row.Collect("iDepGrade", std::int32_t{depart.level});
  row.Collect("cDepPerson", nullIfEmpty(depart.person));
  row.Collect("cDepProp", nullIfEmpty(depart.property));
  row.Collect("cDepPhone", nullIfEmpty(depart.phone));
  row.Collect("cDepAddress", nullIfEmpty(depart.address));
  row.Collect("cDepMemo", nullIfEmpty(depart.memo));
  std::int32_t lastLength = 0;
  GetDepartCodingRule(lastLength);
  row.Collect("bDepEnd", depart.level > lastLength);
}

std::string ClsBLLDepart::GetDepartCodingRule(std::int32_t& lastLength) {
  const std::string rule =
      firstText("GetDepartCodingRule", "Select * From GradeDef Where KeyWord='department'", "CodingRule");
  return codingRulePattern(rule, lastLength);
}

std::string ClsBLLDepart::GetPersonName(std::string_view personCode) {
  return firstText("GetPersonName", sql("Select * From Person Where cPersonCode='", personCode, "'"),
                   "cPersonName");
}

Recordset ClsBLLDepart::GetAllPersons() {
  return query("GetAllPersons",
               "Select Person.*,Department.cDepName From Person,Department "
               "Where Person.cDepCode=Department.cDepCode");
}

}  // namespace zelkor
