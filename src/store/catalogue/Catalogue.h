#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/binding/Schema.h"
#include "store/dialect/printing/EngineWords.h"

namespace zelkor {

struct IndexDef {
  std::string name;  // in the dialect, unique within its table
  std::vector<std::string> columns;
  bool unique = false;
  std::vector<std::string> descending = {};  // those of the columns that it has in falling order
  bool ignoresNull = false;                  // rows without a value in the first column are left out
};

/// One table of an account set as it is created on any engine.
struct TableDef {
  dialect::TableInfo info;
  std::map<std::string, std::string> defaults;  // column, literal
  std::vector<IndexDef> indexes;
};

/// The tables of the data file, the template tables among them.
const std::vector<TableDef>& dataTables();

/// The tables of the system file.
const std::vector<TableDef>& systemTables();

/// The tables that re-initialisation restores, and month-end backs up, from and to tables of their own.
const std::vector<std::string>& templatedTables();

/// Name of the table that holds the rows which re-initialisation gives back to `table`.
std::string templateTableName(std::string_view table);

/// Table of that name in any case in either file, or nullptr.
const TableDef* catalogueTable(std::string_view name);

/// The catalogue of both files as the translator wants it, without a file.
const dialect::SchemaView& catalogueSchema();

// The statements below are in the engine's own language. Rows are loaded fastest between a table and its
// indexes.

/// Create an empty table without keys and indexes.
std::vector<std::string> createTableStatements(const TableDef& table, const dialect::EngineWords& engine);

std::string createIndexStatement(const TableDef& table, const IndexDef& index,
                                 const dialect::EngineWords& engine);

/// Create the indexes by which texts are ordered as numbers.
std::vector<std::string> createNumberIndexStatements(const TableDef& table,
                                                     const dialect::EngineWords& engine);

/// Add a column that the table of an older account set does not have.
std::vector<std::string> addColumnStatements(const TableDef& table, const dialect::ColumnInfo& column,
                                             const dialect::EngineWords& engine);

/// Create an empty table with all its indexes.
std::vector<std::string> createStatements(const TableDef& table, const dialect::EngineWords& engine);

}  // namespace zelkor
