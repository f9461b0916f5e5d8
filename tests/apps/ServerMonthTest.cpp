#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/CallFixture.h"
#include "store/accountset/DataFile.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/ColumnValue.h"
#include "support/AccountSetCopy.h"

// The month of the sample register by the administrator's tool, in files and on a server: the same rows.
namespace zelkor::test {
namespace {

std::string columnList(const dialect::TableInfo& table) {
  std::string list;
  for (const dialect::ColumnInfo& column : table.columns) list += (list.empty() ? "" : ", ") + column.name;
  return list;
}

/// A table's rows in the order in which they were added.
std::vector<std::string> dumpOf(Engine& engine, const dialect::TableInfo& table) {
  const auto statement = engine.prepare("SELECT " + columnList(table) + " FROM " + table.name + " ORDER BY " +
                                        std::string(engine.words().rowKey()));
  std::vector<std::string> rows;
  while (statement->step()) {
    std::string row;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Value cell = readCell(*statement, static_cast<int>(i), table.columns[i].type);
      row += (cell.isNull() ? "~" : cell.text()) + "|";
    }
    rows.push_back(row);
  }
  return rows;
}

class ServerMonthTest : public CallTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }

  /// Gives what the import and the run have printed.
  std::string runMonth(const std::string& set, std::vector<std::string> where) {
    where.emplace_back("--sample");
    create(set, where);
    std::string printed;
    for (std::vector<std::string> call : std::vector<std::vector<std::string>>{
             {"cards", "import", arguments("5", set), (test::dataFolder() / "sample-register.csv").string()},
             {"run", arguments("8", set), "--answers", "y,y,n"}}) {
      call.insert(call.end(), {"--today", "2020-01-31"});
      const ProgramResult result = ctl(call);
      EXPECT_EQ(result.status, 0) << result.output << result.errors;
      printed += result.output;
    }
    return printed;
  }
};

TEST_F(ServerMonthTest, LeavesTheSameRowsInEveryTable) {
  const TestDatabase database("template0");
  EXPECT_EQ(runMonth("file", {}), runMonth("server", {"--server", database.conninfo()}));
  for (const auto& [name, tables] :
       {std::pair{"ZkData.Mdb", &dataTables()}, {"ZkSystem.Mdb", &systemTables()}}) {
    const auto local = openDataFile(file("file", name));
    const auto remote = openDataFile(file("server", name));
    EXPECT_EQ(local->tableNames().size(), remote->tableNames().size());
    for (const TableDef& table : *tables)
      EXPECT_EQ(dumpOf(*local, table.info), dumpOf(*remote, table.info)) << table.info.name;
    EXPECT_FALSE(dumpOf(*local, tables->front().info).empty());
  }
}

}  // namespace
}  // namespace zelkor::test
