#include "changes/SplitDeparts.h"

#include "base/Text.h"

namespace zelkor {

std::optional<ArchiveEntry> leafDepartment(Database& data, std::string_view text) {
  const std::string typed = Trim(text.substr(0, text.find(',')));
  if (typed.empty() || typed == "&") return std::nullopt;
  // Compared here and not by a condition: a typed text may hold a quote.
  Recordset departments = data.OpenRecordset("select sNum,sName,lChilds from fa_departments order by sNum");
  for (; !departments.Eof(); departments.MoveNext()) {
    const ArchiveEntry entry{departments.TextOrEmpty("sNum"), departments.TextOrEmpty("sName")};
    if (entry.code != typed && entry.name != typed) continue;
    if (departments.Fields("lChilds").numberOrZero() == 0) return entry;
  }
  return std::nullopt;
}

}  // namespace zelkor
