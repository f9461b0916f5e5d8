#include "vouchers/SubjectName.h"

#include "store/engine/Statement.h"

namespace zelkor {

std::optional<std::string> enteredSubjectName(Database& data, std::string_view code) {
  const Recordset subject = data.OpenRecordset(sql("select ccode_name from code where ccode='", code, "'"));
  if (subject.Eof()) return std::nullopt;
  return subject.TextOrEmpty("ccode_name");
}

}  // namespace zelkor
