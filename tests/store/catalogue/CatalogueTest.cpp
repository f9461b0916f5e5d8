#include <gtest/gtest.h>

#include "store/accountset/DataFile.h"
#include "store/catalogue/Catalogue.h"
#include "store/catalogue/Revisions.h"
#include "store/dialect/binding/ColumnTypes.h"
#include "support/AccountSetCopy.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

std::string typeOf(const dialect::ColumnInfo& column) {
  return dialect::typeWord(column) + (column.orderedAsNumber ? "#" : "");
}

std::string layoutOf(const TableDef& table) {
  std::string line = table.info.name + ':';
  for (const dialect::ColumnInfo& column : table.info.columns) {
    line += ' ' + column.name + ' ' + typeOf(column);
    if (const auto value = table.defaults.find(column.name); value != table.defaults.end())
      line += '=' + value->second;
    line += ',';
  }
  for (const IndexDef& index : table.indexes) {
    line += index.unique ? " unique(" : " index(";
    for (const std::string& column : index.columns) line += (line.back() == '(' ? "" : " ") + column;
    line += ')';
  }
  return line + '\n';
}

std::vector<std::string> columnsOf(const dialect::TableInfo& table) {
  std::vector<std::string> columns;
  for (const dialect::ColumnInfo& column : table.columns)
    columns.push_back(column.name + ' ' + typeOf(column));
  return columns;
}

// Books keep this layout until they are renewed: what is changed here needs a step in Revisions.cpp, and with
// its number a golden file of its own.
TEST(Catalogue, IsTheLayoutOfItsRevision) {
  std::string layout;
  for (const auto* tables : {&dataTables(), &systemTables()})
    for (const TableDef& table : *tables)
      if (!table.info.name.starts_with("ZKFA_Model_")) layout += layoutOf(table);
  expectGolden("store/catalogue/books-" + std::to_string(currentRevision()) + ".golden", layout);
}

// Re-initialisation copies some tables as a whole: by position, not by name.
TEST(Catalogue, TemplatesHaveTheColumnsOfTheirTables) {
  ASSERT_EQ(templatedTables().size(), 30U);
  for (const std::string& name : templatedTables()) {
    const TableDef* table = catalogueTable(name);
    const TableDef* model = catalogueTable(templateTableName(name));
    ASSERT_NE(table, nullptr) << name;
    ASSERT_NE(model, nullptr) << name;
    ASSERT_EQ(model->info.columns.size(), table->info.columns.size()) << name;
    for (std::size_t i = 0; i < table->info.columns.size(); ++i)
      EXPECT_EQ(model->info.columns[i].name, table->info.columns[i].name) << name;
  }
}

// A file that is opened without the catalogue shows the same tables.
TEST(Catalogue, AFileTellsItsColumnsAsTheCatalogueDoes) {
  const auto engine = openDataFile((PreparedAccountSet::get().directory / "ZkData.Mdb").string());
  for (const TableDef& table : dataTables()) {
    const auto info = engine->tableInfo(table.info.name);
    ASSERT_TRUE(info.has_value()) << table.info.name;
    EXPECT_EQ(columnsOf(*info), columnsOf(table.info)) << table.info.name;
  }
}

}  // namespace
}  // namespace zelkor::test
