#include "transfer/SqliteTarget.h"

#include "store/engine/sqlite/OpenSqliteFile.h"
#include "transfer/ExactCurrency.h"
#include "transfer/IndexRefusal.h"

namespace zelkor {
namespace {

const dialect::EngineWords& kSqlite = sqliteWords();

struct Binding {
  SqliteStatement& statement;
  int parameter;

  void operator()(std::monostate) const { statement.bindNull(parameter); }
  void operator()(std::int64_t value) const { statement.bindInteger(parameter, value); }
  void operator()(double value) const { statement.bindReal(parameter, value); }
  void operator()(Currency value) const { statement.bindReal(parameter, value.toDouble()); }
  void operator()(DateTime value) const { statement.bindText(parameter, value.toIso()); }
  void operator()(std::string_view value) const { statement.bindLastingText(parameter, value); }
  void operator()(const CarriedBytes& value) const { statement.bindBytes(parameter, value.content); }
};

std::vector<std::string> columnNames(const TableDef& table) {
  std::vector<std::string> names;
  for (const dialect::ColumnInfo& column : table.info.columns) names.push_back(column.name);
  return names;
}

const std::filesystem::path& checked(const std::filesystem::path& path) {
  requireShortPath(path, NewFile::kTemporaryEnding.size());
  return path;
}

}  // namespace

SqliteTarget::SqliteTarget(const std::filesystem::path& path, const FileAccess& access)
    : name_(checked(path), access), file_(name_.temporary()) {}

std::int64_t SqliteTarget::load(const TableDef& table, RowReader& rows) {
  for (const std::string& statement : createTableStatements(table, kSqlite)) file_.run(statement);
  SqliteStatement insert = file_.prepareInsert(table.info.name, columnNames(table));
  const std::size_t columns = table.info.columns.size();
  std::int64_t stored = 0;
  while (rows.next()) {
    ++stored;
    for (std::size_t column = 0; column < columns; ++column) {
      const CarriedCell cell = rows.cell(column);
      std::visit(Binding{insert, static_cast<int>(column) + 1}, cell);
      noteIfRounded(table, stored, column, cell);
    }
    insert.step();
    insert.reset();
  }
  return stored;
}

// Amounts are doubles here: beyond some 900 thousand million the ten-thousandths are no longer told apart.
void SqliteTarget::noteIfRounded(const TableDef& table, std::int64_t row, std::size_t column,
                                 const CarriedCell& cell) {
  const auto* amount = std::get_if<Currency>(&cell);
  if (amount == nullptr || exactCurrency(amount->toDouble()) == *amount) return;
  problems_.push_back({table.info.name, row, table.info.columns[column].name,
                       "金额 " + amount->toText() + " 的位数太多，文件中只能近似保存。"});
}

void SqliteTarget::continueCounter(const TableDef& table, std::int64_t last) {
  SqliteStatement raise = file_.prepare("UPDATE sqlite_sequence SET seq = max(seq, ?1) WHERE name = ?2");
  SqliteStatement begin = file_.prepare(
      "INSERT INTO sqlite_sequence (name, seq) SELECT ?2, ?1 "
      "WHERE ?1 > 0 AND NOT EXISTS (SELECT 1 FROM sqlite_sequence WHERE name = ?2)");
  for (SqliteStatement* statement : {&raise, &begin}) {
    statement->bindInteger(1, last);
    statement->bindText(2, table.info.name);
    statement->step();
  }
}

std::optional<std::string> SqliteTarget::createIndex(const TableDef& table, const IndexDef& index) {
  return refusalOf([&] { file_.run(createIndexStatement(table, index, kSqlite)); });
}

void SqliteTarget::completeTable(const TableDef& table) {
  for (const std::string& statement : createNumberIndexStatements(table, kSqlite)) file_.run(statement);
}

void SqliteTarget::finish() {
  file_.finish();
  name_.giveName();
}

}  // namespace zelkor
