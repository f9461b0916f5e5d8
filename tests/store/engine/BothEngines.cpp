#include "store/engine/BothEngines.h"

namespace zelkor::test {
namespace {

// Whole numbers are one kind: an engine's own width of a number does not show.
std::string described(const Value& cell) {
  switch (cell.kind()) {
    case Value::Kind::Null:
      return "~";
    case Value::Kind::Text:
      return "'" + cell.text() + "'";
    case Value::Kind::Date:
      return "#" + cell.text() + "#";
    case Value::Kind::Boolean:
      return cell.text();
    case Value::Kind::Currency:
      return cell.text() + "$";
    default:
      return cell.text();
  }
}

std::string rowsIn(Recordset rows) {
  std::string text;
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i)
      text += (i == 0 ? "" : "|") + described(rows.Fields(i));
    text += '\n';
  }
  return text;
}

}  // namespace

std::string BothEngines::outcomeOf(Database& database, const std::string& statement) {
  try {
    if (statement.starts_with("select ") && statement.find(" into ") == std::string::npos)
      return rowsIn(database.OpenRecordset(statement));
    database.Execute(statement);
    return std::to_string(database.RecordsAffected()) + " rows";
  } catch (const RuntimeError& error) {
    const bool inOwnWords = error.is(ErrorNumber::OperationNotUpdatable);
    return "error " + std::to_string(error.number()) + " " + (inOwnWords ? "" : error.what());
  }
}

void BothEngines::expectSame(const std::string& statement) {
  const std::string outcome = outcomeOf(file_, statement);
  EXPECT_EQ(outcome, outcomeOf(server_, statement)) << statement;
  if (!outcome.starts_with("error ")) ++succeeded_;
}

}  // namespace zelkor::test
