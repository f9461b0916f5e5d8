#include "store/settings/Parameters.h"

#include "base/Text.h"
#include "store/engine/Statement.h"
#include "store/settings/SubjectText.h"

namespace zelkor {
namespace {

Recordset parameterRow(Database& data, std::string_view name) {
  return data.OpenRecordset(parameterQuery(name));
}

}  // namespace

std::string parameterQuery(std::string_view name) {
  return sql("select * from AccInformation where cSysID ='FA' And cName ='", name, "'");
}

void setParameter(Database& data, std::string_view name, std::string_view value) {
  data.Execute(
      sql("update AccInformation set cValue='", value, "' where cSysID='FA' and cName='", name, "'"));
}

void setYesNo(Database& data, std::string_view name, bool value) {
  setParameter(data, name, value ? "TRUE" : "FALSE");
}

std::optional<std::string> readParameter(Database& data, std::string_view name) {
  const Recordset row = parameterRow(data, name);
  if (row.Eof()) return std::nullopt;
  return row.TextOrEmpty("cValue");
}

std::string parameterDefault(Database& data, std::string_view name) {
  const Recordset row = parameterRow(data, name);
  return row.Eof() ? std::string() : row.TextOrEmpty("cDefault");
}

bool isYes(std::string_view word) {
  return UCase(word) == "TRUE";
}

void storeSubject(Database& data, std::string_view text, std::string_view numberRow,
                  std::string_view nameRow) {
  const std::string_view code = text.substr(0, text.find(','));
  setParameter(data, numberRow, code);
  if (const auto name = subjectName(data, code)) setParameter(data, nameRow, *name);
}

}  // namespace zelkor
