#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/Schema.h"
#include "store/dialect/Translation.h"

namespace zelkor {

struct IndexDef {
  std::string name;  // in the dialect, unique within its table
  std::vector<std::string> columns;
  bool unique = false;
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

/// The statements, in the engine's own language, that create an empty table with its indexes.
std::vector<std::string> createStatements(const TableDef& table, dialect::EngineKind engine);

}  // namespace zelkor
