#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/ServerIntegrity.h"

namespace zelkor {
namespace {

// The indexes of a table that were made for it: without those over its row key and its counter, and those by
// which texts are ordered as numbers. One row for each column: the index's name, whether it is unique, its
// condition, the column (Null for an expression), whether it falls.
constexpr const char* kIndexQuery =
    "SELECT i.relname::text, x.indisunique, pg_get_expr(x.indpred, x.indrelid)::text, "
    "CASE WHEN x.indexprs IS NULL THEN a.attname::text END, (x.indoption[k.n] & 1) <> 0 "
    "FROM pg_index x JOIN pg_class i ON i.oid = x.indexrelid "
    "CROSS JOIN LATERAL generate_series(0, x.indnkeyatts - 1) AS k(n) "
    "LEFT JOIN pg_attribute a ON a.attrelid = x.indrelid AND a.attnum = x.indkey[k.n] "
    "WHERE x.indrelid = $1::text::regclass AND NOT starts_with(i.relname, 'zk_number_') "
    "AND NOT starts_with(i.relname, 'zk_odd_') AND (NOT EXISTS (SELECT 1 FROM pg_attribute own "
    "WHERE own.attrelid = x.indrelid AND own.attidentity <> '' AND own.attnum = x.indkey[0] "
    "AND x.indnkeyatts = 1) OR NOT EXISTS (SELECT 1 FROM pg_constraint c WHERE c.conindid = x.indexrelid)) "
    "ORDER BY i.oid, k.n";

constexpr const char* kDefaultQuery =
    "SELECT a.attname::text, pg_get_expr(d.adbin, d.adrelid)::text FROM pg_attrdef d JOIN pg_attribute a "
    "ON a.attrelid = d.adrelid AND a.attnum = d.adnum WHERE d.adrelid = $1::text::regclass "
    "AND a.attidentity = ''";

constexpr const char* kOtherQuery =
    "SELECT c.relname::text, c.relname::text, '视图' FROM pg_class c WHERE c.relkind IN ('v', 'm') "
    "AND c.relnamespace = current_schema()::text::regnamespace UNION ALL "
    "SELECT c.relname::text, t.tgname::text, '触发器' FROM pg_trigger t JOIN pg_class c ON c.oid = t.tgrelid "
    "WHERE NOT t.tgisinternal AND t.tgname NOT IN ('zk_counter', 'zk_counter_null') "
    "AND c.relnamespace = current_schema()::text::regnamespace";

template <typename Take>
void forEachRow(Engine& engine, const char* sql, const std::string& table, Take take) {
  const auto statement = engine.prepare(sql);
  if (!table.empty()) statement->bindText(1, postgreSqlWords().quoted(table));
  while (statement->step()) take(*statement);
}

std::string spelled(const dialect::TableInfo& table, std::string_view column) {
  const dialect::ColumnInfo* found = table.find(column);
  return found == nullptr ? std::string(column) : found->name;
}

std::string folded(std::string_view name) {
  return postgreSqlWords().kept(name);
}

std::string indexName(const dialect::TableInfo& table, std::string_view physical) {
  const std::string prefix = folded(dialect::physicalIndexName(table.name, ""));
  return std::string(physical.starts_with(prefix) ? physical.substr(prefix.size()) : physical);
}

bool isNullLeftOut(const IndexDef& index, std::string_view condition) {
  const std::string column = folded(index.columns.front());
  return condition == "(" + column + " IS NOT NULL)" || condition == "(\"" + column + "\" IS NOT NULL)";
}

/// Joins the rows of the query, one for each column, to indexes.
class IndexReading {
 public:
  IndexReading(const dialect::TableInfo& table, std::vector<TransferProblem>& problems)
      : table_(table), problems_(problems) {}

  void take(const EngineStatement& row) {
    if (row.text(0) != physical_) finishIndex();
    physical_ = row.text(0);
    plain_ = plain_ && row.kind(3) != CellKind::Null;
    condition_ = row.kind(2) == CellKind::Null ? "" : row.text(2);
    index_.name = indexName(table_, physical_);
    index_.unique = row.integer(1) != 0;
    index_.columns.push_back(spelled(table_, row.text(3)));
    if (row.integer(4) != 0) index_.descending.push_back(index_.columns.back());
  }

  std::vector<IndexDef> finish() {
    finishIndex();
    return std::move(indexes_);
  }

 private:
  void finishIndex() {
    if (index_.columns.empty()) return;
    index_.ignoresNull = plain_ && !condition_.empty() && isNullLeftOut(index_, condition_);
    if (plain_ && (condition_.empty() || index_.ignoresNull)) {
      indexes_.push_back(std::move(index_));
    } else {
      problems_.push_back({table_.name, 0, "", "索引 " + physical_ + " 带表达式或条件，不能转移。"});
    }
    index_ = {};
    plain_ = true;
  }

  const dialect::TableInfo& table_;
  std::vector<TransferProblem>& problems_;
  std::vector<IndexDef> indexes_;
  IndexDef index_;
  std::string physical_;
  std::string condition_;
  bool plain_ = true;
};

class ServerStoredTables final : public StoredTables {
 public:
  explicit ServerStoredTables(Engine& engine) : engine_(engine) {}

  bool amountsAreDecimal() const override { return true; }
  // A state can be named to others before the first savepoint only.
  std::string beginReading(const std::string& shared) const override {
    const std::string begin = "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; ";
    return begin + (shared.empty() ? "SELECT set_config('zelkor.state', pg_export_snapshot(), true)"
                                   : "SET TRANSACTION SNAPSHOT '" + shared + "'");
  }
  std::string sharedState() override {
    const auto state = engine_.prepare("SELECT current_setting('zelkor.state')");
    return state->step() ? std::string(state->text(0)) : std::string();
  }
  std::string beginTable() const override { return "SAVEPOINT zk_table"; }
  std::string endTable() const override { return "ROLLBACK TO zk_table; RELEASE zk_table"; }

  std::vector<IndexDef> indexes(const dialect::TableInfo& table,
                                std::vector<TransferProblem>& problems) override {
    IndexReading reading(table, problems);
    forEachRow(engine_, kIndexQuery, table.name, [&](const EngineStatement& row) { reading.take(row); });
    return reading.finish();
  }

  std::map<std::string, std::string> defaults(const dialect::TableInfo& table) override {
    std::map<std::string, std::string> defaults;
    forEachRow(engine_, kDefaultQuery, table.name,
               [&](const EngineStatement& row) { defaults[spelled(table, row.text(0))] = row.text(1); });
    return defaults;
  }

  // A table that another program has made has no row keys.
  std::string rowOrder(const dialect::TableInfo& table) override {
    std::string order = "ctid";
    forEachRow(engine_,
               "SELECT 1 FROM pg_attribute WHERE attrelid = $1::text::regclass AND attname = 'zk_row'",
               table.name, [&](const EngineStatement&) { order = "zk_row"; });
    return order;
  }

  std::int64_t lastCounter(const dialect::TableInfo& table, const std::string& column) override {
    std::string sequence;
    const auto find = engine_.prepare("SELECT pg_get_serial_sequence($1, $2)::text");
    find->bindText(1, postgreSqlWords().quoted(table.name));
    find->bindText(2, folded(column));
    if (find->step() && find->kind(0) != CellKind::Null) sequence = find->text(0);
    std::int64_t last = 0;
    if (!sequence.empty())
      forEachRow(engine_, ("SELECT last_value FROM " + sequence + " WHERE is_called").c_str(), "",
                 [&](const EngineStatement& row) { last = row.integer(0); });
    return last;
  }

  std::vector<TransferProblem> others() override {
    std::vector<TransferProblem> others;
    forEachRow(engine_, kOtherQuery, "", [&](const EngineStatement& row) {
      others.push_back({std::string(row.text(0)), 0, "",
                        std::string(row.text(2)) + " " + std::string(row.text(1)) + " 不转移。"});
    });
    return others;
  }

  IntegrityCheck checkIntegrity() override { return serverIntegrity(engine_); }

 private:
  Engine& engine_;
};

}  // namespace

std::unique_ptr<StoredTables> PostgreSqlEngine::storedTables() {
  return std::make_unique<ServerStoredTables>(*this);
}

}  // namespace zelkor
