#include <array>

#include "store/engine/sqlite/SqliteEngine.h"
#include "store/engine/sqlite/SqliteIntegrity.h"

namespace zelkor {
namespace {

constexpr std::string_view kPrimaryKey = "pk";
constexpr std::string_view kMadeByStatement = "c";

/// The rows of a query with one text for its parameter.
template <typename Take>
void forEachRow(Engine& engine, const char* sql, const std::string& parameter, Take take) {
  const auto statement = engine.prepare(sql);
  statement->bindText(1, parameter);
  while (statement->step()) take(*statement);
}

bool endsWithCondition(std::string_view statement, const TableDef& table, const IndexDef& index) {
  const std::string ours = createIndexStatement(table, index, sqliteWords());
  const std::string_view condition = std::string_view(ours).substr(ours.rfind(" WHERE "));
  return statement.size() > condition.size() &&
         dialect::sameName(statement.substr(statement.size() - condition.size()), condition);
}

// Index names of the dialect are per table.
std::string indexName(const dialect::TableInfo& table, std::string_view physical, std::string_view origin) {
  if (origin == kPrimaryKey) return "PrimaryKey";
  const std::string prefix = dialect::physicalIndexName(table.name, "");
  const bool ours =
      physical.size() > prefix.size() && dialect::sameName(physical.substr(0, prefix.size()), prefix);
  return std::string(ours ? physical.substr(prefix.size()) : physical);
}

// Made with the table from what its columns say.
bool belongsToColumns(std::string_view name) {
  return name.starts_with("zk_number_") || name.starts_with("zk_odd_");
}

class SqliteStoredTables final : public StoredTables {
 public:
  explicit SqliteStoredTables(Engine& engine) : engine_(engine) {}

  // The state is that of the first reading.
  std::string beginReading(const std::string& /*shared*/) const override {
    return "BEGIN; SELECT 1 FROM sqlite_master LIMIT 1";
  }
  std::string stateMark() override;
  std::vector<IndexDef> indexes(const dialect::TableInfo& table,
                                std::vector<TransferProblem>& problems) override;
  std::map<std::string, std::string> defaults(const dialect::TableInfo& table) override;
  std::string rowOrder(const dialect::TableInfo& table) override;
  std::int64_t lastCounter(const dialect::TableInfo& table, const std::string& column) override;
  std::vector<TransferProblem> others() override;
  IntegrityCheck checkIntegrity() override { return sqliteIntegrity(engine_); }

 private:
  std::optional<IndexDef> index(const dialect::TableInfo& table, const EngineStatement& row);
  bool addColumns(const std::string& physical, IndexDef& index);

  Engine& engine_;
};

std::string SqliteStoredTables::stateMark() {
  const auto version = engine_.prepare("PRAGMA data_version");
  version->step();
  return std::to_string(version->integer(0));
}

bool SqliteStoredTables::addColumns(const std::string& physical, IndexDef& index) {
  bool plain = true;
  forEachRow(engine_, "SELECT name, \"desc\" FROM pragma_index_xinfo(?1) WHERE key = 1 ORDER BY seqno",
             physical, [&](const EngineStatement& row) {
               plain = plain && row.kind(0) != CellKind::Null;
               index.columns.emplace_back(row.text(0));
               if (row.integer(1) != 0) index.descending.push_back(index.columns.back());
             });
  return plain && !index.columns.empty();
}

// The columns of the row: name, unique, origin, partial, statement.
std::optional<IndexDef> SqliteStoredTables::index(const dialect::TableInfo& table,
                                                  const EngineStatement& row) {
  IndexDef index{indexName(table, row.text(0), row.text(2)), {}, row.integer(1) != 0, {}, false};
  if (!addColumns(std::string(row.text(0)), index)) return std::nullopt;
  if (row.text(2) != kMadeByStatement && row.text(2) != kPrimaryKey) index.name = index.columns.front();
  index.ignoresNull = row.integer(3) != 0;
  if (index.ignoresNull && !endsWithCondition(row.text(4), {table, {}, {}}, index)) return std::nullopt;
  return index;
}

std::vector<IndexDef> SqliteStoredTables::indexes(const dialect::TableInfo& table,
                                                  std::vector<TransferProblem>& problems) {
  std::vector<IndexDef> indexes;
  forEachRow(engine_,
             "SELECT l.name, l.\"unique\", l.origin, l.partial, coalesce(m.sql, '') "
             "FROM pragma_index_list(?1) l JOIN sqlite_master m ON m.name = l.name AND m.type = 'index' "
             "ORDER BY m.rowid",
             table.name, [&](const EngineStatement& row) {
               if (belongsToColumns(row.text(0))) return;
               if (auto found = index(table, row)) {
                 indexes.push_back(std::move(*found));
               } else {
                 problems.push_back(
                     {table.name, 0, "", "索引 " + std::string(row.text(0)) + " 带表达式或条件，不能转移。"});
               }
             });
  return indexes;
}

std::map<std::string, std::string> SqliteStoredTables::defaults(const dialect::TableInfo& table) {
  std::map<std::string, std::string> defaults;
  forEachRow(engine_, "SELECT name, dflt_value FROM pragma_table_info(?1) WHERE dflt_value IS NOT NULL",
             table.name,
             [&](const EngineStatement& row) { defaults[std::string(row.text(0))] = row.text(1); });
  return defaults;
}

// The row key has several names, each of which a column may bear; a table may have none.
std::string SqliteStoredTables::rowOrder(const dialect::TableInfo& table) {
  bool keyed = true;
  forEachRow(engine_, "SELECT wr FROM pragma_table_list WHERE schema = 'main' AND name = ?1", table.name,
             [&](const EngineStatement& row) { keyed = row.integer(0) == 0; });
  for (const char* name : std::array{"rowid", "_rowid_", "oid"})
    if (keyed && table.find(name) == nullptr) return name;
  return {};
}

std::int64_t SqliteStoredTables::lastCounter(const dialect::TableInfo& table, const std::string&) {
  std::int64_t last = 0;
  bool counted = false;
  forEachRow(engine_, "SELECT 1 FROM sqlite_master WHERE name = ?1", "sqlite_sequence",
             [&](const EngineStatement&) { counted = true; });
  if (counted)
    forEachRow(engine_, "SELECT seq FROM sqlite_sequence WHERE name = ?1", table.name,
               [&](const EngineStatement& row) { last = row.integer(0); });
  return last;
}

std::vector<TransferProblem> SqliteStoredTables::others() {
  std::vector<TransferProblem> others;
  forEachRow(engine_,
             "SELECT name, type, tbl_name FROM sqlite_master WHERE type IN ('view', ?1) ORDER BY rowid",
             "trigger", [&](const EngineStatement& row) {
               const bool view = row.text(1) == "view";
               others.push_back({std::string(row.text(2)), 0, "",
                                 (view ? "视图 " : "触发器 ") + std::string(row.text(0)) + " 不转移。"});
             });
  return others;
}

}  // namespace

std::unique_ptr<StoredTables> SqliteEngine::storedTables() {
  return std::make_unique<SqliteStoredTables>(*this);
}

}  // namespace zelkor
