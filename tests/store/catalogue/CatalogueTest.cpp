#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"
#include "store/catalogue/Revisions.h"
#include "store/dialect/binding/ColumnTypes.h"
#include "store/dialect/CatalogueFile.h"
#include "store/dialect/Translate.h"
#include "store/engine/ColumnValue.h"
#include "store/engine/sqlite/SqliteWords.h"
#include "support/AccountSetCopy.h"
#include "support/Paths.h"

namespace zelkor::test {
namespace {

using dialect::ColumnType;

/// Every table of the catalogue, empty, asked in the engine's own words.
class EmptyTables {
 public:
  /// The number of the error, 0 for none.
  int run(const std::string& statement) {
    return errorOf([&] { file_.engine().run(statement); });
  }

  /// Cells of all rows, one line per row, joined by "|"; Null is "~".
  std::string rows(const std::string& query, int columns) {
    std::string lines;
    const auto statement = file_.engine().prepare(query);
    while (statement->step()) {
      for (int i = 0; i < columns; ++i) {
        const Value cell = readCell(*statement, i, ColumnType::Unknown);
        lines += std::string(i == 0 ? "" : "|") + (cell.isNull() ? "~" : cell.text());
      }
      lines += '\n';
    }
    return lines;
  }

 private:
  dialect::test::CatalogueFile file_;
};

std::string layoutOf(const TableDef& table) {
  std::string line = table.info.name + ':';
  for (const dialect::ColumnInfo& column : table.info.columns) {
    line += ' ' + column.name + ' ' + dialect::typeWord(column) + (column.orderedAsNumber ? "#" : "");
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

// Books keep this layout until they are renewed: what is changed here needs a step in Revisions.cpp, and with
// its number a golden file of its own.
TEST(Catalogue, IsTheLayoutOfItsRevision) {
  std::string layout;
  for (const auto* tables : {&dataTables(), &systemTables()})
    for (const TableDef& table : *tables)
      if (!table.info.name.starts_with("ZKFA_Model_")) layout += layoutOf(table);
  const auto golden =
      testFolder() / "store" / "catalogue" / ("books-" + std::to_string(currentRevision()) + ".golden");
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr) return writeFile(golden, layout);
  EXPECT_EQ(layout, readFile(golden));
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

TEST(Catalogue, NewRowsHaveDefaultsAndKeys) {
  EmptyTables tables;
  EXPECT_EQ(tables.run("INSERT INTO fa_Cards (sCardID) VALUES ('1')"), 0);
  EXPECT_EQ(tables.rows("SELECT iOptType, iNewType, bMultiDept, dTransDate, sStyle FROM fa_Cards", 5),
            "1|0|0|~|~\n");
  EXPECT_EQ(tables.run("INSERT INTO fa_Cards (sCardID) VALUES ('1')"), 0);
  // Keys compare as texts do everywhere: without regard to case.
  EXPECT_EQ(tables.run("INSERT INTO department (cDepCode) VALUES ('a1')"), 0);
  EXPECT_EQ(tables.run("INSERT INTO department (cDepCode) VALUES ('A1')"), 3022);
}

/// What SQLite is asked for the statement when its texts that stand for numbers are all numbers.
std::string askedOfSqlite(std::string_view statement) {
  dialect::Shape shape;
  dialect::shapeOf(statement, shape);
  const dialect::Translation translation =
      dialect::translate(statement, shape, catalogueSchema(), sqliteWords());
  if (!translation.query)
    return translation.fastSql.empty() ? translation.sql.front() : translation.fastSql.front();
  std::vector<std::size_t> none;
  std::vector<std::size_t> first{0};
  const auto form = translation.query->guard() ? dialect::Query::Form::Fast : dialect::Query::Form::Plain;
  return translation.query->rows(translation.query->keyed() ? none : first, form);
}

// With 100,000 cards in the file none of these may read or sort a table from end to end; rows that are alike
// are sorted among each other (the right part of an ORDER BY).
TEST(SqliteCatalogue, IndexesServeTheStatementsOfEveryCard) {
  struct Case {
    const char* statement;
    const char* plan;
  };
  EmptyTables tables;
  for (const auto& [statement, expected] : std::vector<Case>{
           {"Select Top 1 * From FA_Cards Order by clng(sCardID) Desc", "INDEX zk_number_fa_Cards_sCardID"},
           {"Select top 2 * From FA_Cards Where clng(sCardID)<=5 Order by clng(sCardID) Desc",
            "INDEX zk_number_fa_Cards_sCardID (<expr>"},
           {"Select max(val(sCardID)) From fa_cards", "INDEX zk_number_fa_Cards_sCardID"},
           {"select * from fa_Cards where sCardID='1'", "fa_Cards__sCardID (sCardID=?"},
           {"select top 1 * from fa_cards where scardnum='00001' order by sCardID desc",
            "fa_Cards__sCardNum_sCardID (sCardNum=?)"},
           {"Select Top 1 * From FA_Cards Order by sCardNum Desc", "fa_Cards__sCardNum"},
           // The first row of a card is its oldest version.
           {"select * from fa_Cards where sCardNum='00001'", "fa_Cards__sCardNum (sCardNum=?)"},
           {"Select Top 1 * From FA_Cards Where sTypeNum='021' Order by sAssetNum Desc",
            "fa_Cards__sTypeNum_sAssetNum_sCardNum (sTypeNum=?)"},
           {"select max(lOptID) as a from FA_Cards", "fa_Cards__lOptID"},
           {"select distinct sCardNum from fa_Cards where sDeptNum like '3*'",
            "fa_Cards__sDeptNum_sTypeNum_sCardNum (sDeptNum>? AND sDeptNum<?)"},
           {"select * from fa_DeprTransactions where scardnum='00001'",
            "fa_DeprTransactions__sCardNum (sCardNum=?)"},
           {"update fa_DeprTransactions set dblDepr4=1 where scardnum='00001'",
            "fa_DeprTransactions__sCardNum (sCardNum=?)"},
           {"Select * from fa_DeprTransactions_Detail where sCardNum = '00001' and sDeptNum = '301'",
            "fa_DeprTransactions_Detail__sCardNum_sDeptNum (sCardNum=? AND sDeptNum=?)"},
           {"select * from fa_deptscale where lOptID=1 and sCardNum='00001'",
            "fa_DeptScale__sCardNum_lOptID (sCardNum=? AND lOptID=?)"},
           {"Select * from fa_Cards_Detail where sCardID='1'", "fa_Cards_Detail__sCardID (sCardID=?)"},
           {"select Max(val(coutid)) as imax from fa_ZWVouchers", "INDEX zk_number_fa_ZWVouchers_coutid"},
           // Of the indexes that begin alike the one that finds no row at all must win.
           {"select Max(inid) as inidmax from fa_ZWVouchers where coutsysname='FA' and ioutperiod=4 and "
            "coutsign='卡片' and coutno_id='02'",
            "fa_ZWVouchers__coutsign_coutno_id_ioutperiod (coutsign=? AND coutno_id=? AND ioutperiod=?)"},
           {"delete from fa_ZWVouchers where ioutperiod=4 and coutsign='折旧计提'",
            "fa_ZWVouchers__ioutperiod_coutsign (ioutperiod=? AND coutsign=?)"},
           {"Delete From fa_ZWVouchers Where cDefine9='00001'", "fa_ZWVouchers__cDefine9 (cDefine9=?)"},
           {"Select  * From fa_Vouchers  Order By sNum Desc ", "fa_Vouchers__sNum"},
           {"Select Top 1 *  From  fa_cardsSheets Order By sID DESC  ", "fa_CardsSheets__sID"},
       }) {
    const std::string plan = tables.rows("EXPLAIN QUERY PLAN " + askedOfSqlite(statement), 4);
    EXPECT_NE(plan.find(expected), std::string::npos) << statement << "\n" << plan;
    EXPECT_EQ(plan.find("FOR ORDER BY"), std::string::npos) << statement << "\n" << plan;
  }
}

// A file that is opened without the catalogue shows the same tables.
TEST(Catalogue, AFileTellsItsColumnsAsTheCatalogueDoes) {
  const auto engine = openDataFile((PreparedAccountSet::get().directory / "ZkData.Mdb").string());
  for (const TableDef& table : dataTables()) {
    const auto info = engine->tableInfo(table.info.name);
    ASSERT_TRUE(info.has_value()) << table.info.name;
    ASSERT_EQ(info->columns.size(), table.info.columns.size()) << table.info.name;
    for (std::size_t i = 0; i < info->columns.size(); ++i) {
      const dialect::ColumnInfo& expected = table.info.columns[i];
      const dialect::ColumnInfo& found = info->columns[i];
      EXPECT_EQ(found.name, expected.name) << table.info.name;
      EXPECT_EQ(found.type, expected.type) << table.info.name << "." << expected.name;
      EXPECT_EQ(found.size, expected.size) << table.info.name << "." << expected.name;
      EXPECT_EQ(found.orderedAsNumber, expected.orderedAsNumber) << table.info.name << "." << expected.name;
    }
  }
}

}  // namespace
}  // namespace zelkor::test
