#pragma once

#include <string>
#include <vector>

#include "store/engine/Recordset.h"

namespace zelkor::test {

/// The rows of a query, cells joined by "|", Null as "~".
inline std::vector<std::string> rowsOf(Recordset rows) {
  std::vector<std::string> lines;
  for (; !rows.Eof(); rows.MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      const Value cell = rows.Fields(i);
      line += (i == 0 ? "" : "|") + (cell.isNull() ? "~" : cell.text());
    }
    lines.push_back(line);
  }
  return lines;
}

/// The rows of a query as text: a line each, the cells that are not Null as "column=value".
inline std::string namedRowsOf(Recordset rows) {
  std::string text;
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      const Value cell = rows.Fields(i);
      if (!cell.isNull()) text += rows.FieldName(i) + "=" + cell.text() + " ";
    }
    text.back() = '\n';
  }
  return text;
}

}  // namespace zelkor::test
