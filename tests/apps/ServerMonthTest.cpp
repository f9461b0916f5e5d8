#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/ProgramRun.h"
#include "store/accountset/DataFile.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/ColumnValue.h"
#include "support/AccountSetCopy.h"
#include "support/Paths.h"
#include "support/Support.h"

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

class ServerMonthTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }

  void ctl(const std::vector<std::string>& arguments) {
    const ProgramResult result = ProgramRun(test::zelkorctlProgram(), arguments, home_.path()).finish();
    ASSERT_EQ(result.status, 0) << result.output << result.errors;
    outputs_ += result.output;
  }
  /// Gives what the import and the run have printed.
  std::string runMonth(const std::string& set, const std::vector<std::string>& where) {
    const std::string directory = home_ / set;
    const std::string run = directory + "/ZkData.Mdb,demo,2020-01-31,8," + directory + "/ZkSystem.Mdb,001";
    std::vector<std::string> create{"create", directory, "--sample", "--year", "2020", "--month", "1"};
    create.insert(create.end(), where.begin(), where.end());
    ctl(create);
    outputs_.clear();
    ctl({"cards", "import", run, (test::dataFolder() / "sample-register.csv").string(), "--today",
         "2020-01-31"});
    ctl({"run", run, "--answers", "y,y,n", "--today", "2020-01-31"});
    return outputs_;
  }

  TempDir home_;
  std::string outputs_;
};

TEST_F(ServerMonthTest, LeavesTheSameRowsInEveryTable) {
  const TestDatabase database("template0");
  EXPECT_EQ(runMonth("file", {}), runMonth("server", {"--server", database.conninfo()}));
  for (const auto& [name, tables] :
       {std::pair{"ZkData.Mdb", &dataTables()}, {"ZkSystem.Mdb", &systemTables()}}) {
    const auto file = openDataFile((home_ / "file" / name).string());
    const auto server = openDataFile((home_ / "server" / name).string());
    EXPECT_EQ(file->tableNames().size(), server->tableNames().size());
    for (const TableDef& table : *tables)
      EXPECT_EQ(dumpOf(*file, table.info), dumpOf(*server, table.info)) << table.info.name;
    EXPECT_FALSE(dumpOf(*file, tables->front().info).empty());
  }
}

}  // namespace
}  // namespace zelkor::test
