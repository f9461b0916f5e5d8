#include "store/settings/SubjectText.h"

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

Recordset subjectRow(Database& data, std::string_view code) {
  return data.OpenRecordset(subjectQuery(code));
}

}  // namespace

std::string subjectQuery(std::string_view code) {
  return sql("select * from code where cCode ='", code, "'");
}

std::string subjectCodeOf(std::string_view text) {
  const std::size_t comma = text.find(',');
  const bool hasName = comma != std::string_view::npos && comma > 0;
  return std::string(hasName ? text.substr(0, comma) : text);
}

std::optional<std::string> lookUpSubject(Database& data, std::string_view text) {
  const Recordset subject = subjectRow(data, subjectCodeOf(text));
  if (subject.Eof()) return std::nullopt;
  return subject.TextOrEmpty("ccode") + "," + subject.TextOrEmpty("ccode_name");
}

std::optional<std::string> subjectName(Database& data, std::string_view code) {
  const Recordset subject = subjectRow(data, code);
  if (subject.Eof()) return std::nullopt;
  return subject.TextOrEmpty("ccode_name");
}

}  // namespace zelkor
