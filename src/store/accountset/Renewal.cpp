#include "store/accountset/Renewal.h"

#include <algorithm>
#include <stdexcept>

#include "base/RuntimeError.h"
#include "store/accountset/BooksRevision.h"
#include "store/accountset/DataFile.h"
#include "store/catalogue/Catalogue.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/dialect/Translate.h"
#include "store/engine/Connection.h"

namespace zelkor {
namespace {

bool isStatement(std::string_view change) {
  return change.find(' ') != std::string_view::npos;
}

/// The table of the catalogue that a step names or its statement works on.
const TableDef& tableOf(std::string_view change, const dialect::EngineWords& engine) {
  std::string name(change.substr(0, change.find('.')));
  if (isStatement(change)) {
    dialect::Shape shape;
    dialect::shapeOf(change, shape);
    name = dialect::translate(change, shape, catalogueSchema(), engine).table;
  }
  const TableDef* table = catalogueTable(name);
  if (table == nullptr) throw std::logic_error("revisions: no table in " + std::string(change));
  return *table;
}

/// Takes one data file through the steps, within a transaction that a failure gives up.
class Renewing {
 public:
  explicit Renewing(Connection& connection) : connection_(connection), engine_(connection.engine()) {}

  Renewal run(const std::string& path, std::span<const RevisionStep> steps);

 private:
  bool make(std::string_view change);
  bool makeIn(const TableDef& table, std::string_view change);
  bool createTable(const TableDef& table);
  bool addColumn(const TableDef& table, const std::string& name);
  bool execute(std::string_view statement);

  Connection& connection_;
  Engine& engine_;
  bool holdsData_ = false;
  bool holdsSystem_ = false;
};

Renewal Renewing::run(const std::string& path, std::span<const RevisionStep> steps) {
  connection_.gathering().beforeTableChange();
  engine_.shutOutOtherRenewals();
  const std::vector<std::string> tables = engine_.tableNames();
  holdsData_ = namesSome(tables, dataTables());
  holdsSystem_ = namesSome(tables, systemTables());
  if (!holdsData_ && !holdsSystem_)
    throw RuntimeError(ErrorNumber::UnrecognizedFormat, "文件 '" + path + "' 中没有账套的表，不能更新。");
  Renewal renewal;
  renewal.before = renewal.after = revisionOf(engine_);
  // What the steps create can call functions.
  renewal.functions = !engine_.hasOwnFunctions();
  if (renewal.functions) engine_.layOwnFunctions();
  for (const RevisionStep& step : steps) {
    if (step.revision <= renewal.before) continue;
    if (make(step.change)) renewal.changes.push_back(step.change);
    renewal.after = step.revision;
  }
  if (renewal.after != renewal.before) engine_.setBooksRevision(renewal.after);
  return renewal;
}

// An account set's two files have different tables.
bool Renewing::make(std::string_view change) {
  const TableDef& table = tableOf(change, engine_.words());
  const bool inData = namesSome({table.info.name}, dataTables());
  if (inData ? !holdsData_ : !holdsSystem_) return false;
  try {
    return makeIn(table, change);
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                       "更新步骤“" + std::string(change) + "”：" + error.what());
  }
}

bool Renewing::makeIn(const TableDef& table, std::string_view change) {
  if (isStatement(change)) return execute(change);
  const std::size_t point = change.find('.');
  if (point == std::string_view::npos) return createTable(table);
  const std::string column(change.substr(point + 1));
  const bool added = addColumn(table, column);
  const TableDef* model = catalogueTable(templateTableName(table.info.name));
  const bool hasModel = model != nullptr && engine_.tableInfo(model->info.name);
  return (hasModel && addColumn(*model, column)) || added;
}

bool Renewing::createTable(const TableDef& table) {
  if (engine_.tableInfo(table.info.name)) return false;
  for (const std::string& statement : createStatements(table, engine_.words())) engine_.run(statement);
  return true;
}

bool Renewing::addColumn(const TableDef& table, const std::string& name) {
  const dialect::ColumnInfo* column = table.info.find(name);
  if (column == nullptr) throw std::logic_error("revisions: no column " + table.info.name + "." + name);
  const auto present = engine_.tableInfo(table.info.name);
  if (!present) throw dialect::unknownTable(table.info.name);
  if (present->find(name) != nullptr) return false;
  for (const std::string& statement : addColumnStatements(table, *column, engine_.words()))
    engine_.run(statement);
  return true;
}

bool Renewing::execute(std::string_view statement) {
  try {
    connection_.execute(statement);
    return true;
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::IndexAlreadyExists)) return false;
    throw;
  }
}

}  // namespace

// A connection that is closed before the end of its transaction has changed nothing.
Renewal renewBooks(const std::string& path, std::span<const RevisionStep> steps) {
  Connection connection(openDataFile(path));
  connection.gathering().beginWorkspaceTransaction();
  const Renewal renewal = Renewing(connection).run(path, steps);
  connection.gathering().endWorkspaceTransaction();
  connection.flush();
  return renewal;
}

}  // namespace zelkor
