#include <algorithm>
#include <map>

#include "MonthEndFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using BackInfoTest = MonthEndTest;

TEST_F(BackInfoTest, CopiesEveryTableRowByRow) {
  execute("SELECT * INTO ZKFA_BAK_fa_Cards_4 FROM fa_Cards");
  execute("SELECT * INTO ZKFA_BAKED FROM fa_Cards");
  enter("00001", "1234.5");
  enter("00002");
  execute("insert into AccInformation (cSysID,cName,cValue) values ('GL','dGLStartDate','2020-1-1')");
  execute("insert into fa_ItemsManual (sCardNum) values ('00001')");
  execute("insert into fa_ZWVouchers (coutno_id,md) values ('01',12.25)");
  std::map<std::string, Lines> wanted;
  Lines listed;
  for (const auto& table : casesIn("closing/backups.txt")) listed.push_back(table[0]);
  for (const std::string& table : listed) {
    if (count(table) == "0") {
      Recordset empty = db().OpenRecordset(table);
      empty.AddNew();
      for (std::size_t i = 0; i < empty.FieldCount(); ++i) {
        const std::string name = empty.FieldName(i);
        if (!name.starts_with("d") || name.starts_with("dbl")) empty.Collect(name, "7");
      }
      empty.Update();
    }
    wanted[table] = rows("select * from " + table);
  }
  wanted["AccInformation"] = rows("select * from AccInformation where cSysID='FA'");
  context.gdOpDate = day("2020-7-1");
  expectClosing("7", "7");
  ASSERT_TRUE(close());

  Lines names;
  for (const std::string& table : listed) names.push_back("ZKFA_BAK_" + table + "_7");
  Lines made = backups();
  std::ranges::sort(made);
  std::ranges::sort(names);
  EXPECT_EQ(made, names) << "earlier backups go, whatever stands behind their first letters";
  for (const std::string& table : listed) {
    std::string order;
    Recordset original = db().OpenRecordset(table);
    for (std::size_t i = 0; i < original.FieldCount(); ++i) {
      order += (i == 0 ? "" : ",") + original.FieldName(i);
    }
    EXPECT_FALSE(wanted[table].empty()) << table;
    EXPECT_EQ(rows("select " + order + " from ZKFA_BAK_" + table + "_7"), wanted[table]) << table;
  }
  EXPECT_EQ(errorOf([&] { execute("insert into ZKFA_BAK_fa_ItemsManual_7 (sCardNum) values ('00001')"); }),
            3022);
}

TEST_F(BackInfoTest, TellsHowFarTheBackupIs) {
  std::vector<std::pair<int, std::size_t>> steps;
  expectClosing();
  EXPECT_THROW(closeMonth(context, {[&](int percent) {
                                      if (steps.empty() || steps.back().first != percent)
                                        steps.emplace_back(percent, backups().size());
                                    },
                                    [&](const auto&) { steps.emplace_back(-1, dialogs.boxes().size()); }}),
               EndProgram);
  const std::vector<std::pair<int, std::size_t>> wanted = {{1, 0},   {30, 7},   {50, 13},
                                                           {89, 23}, {100, 30}, {-1, 0}};
  EXPECT_EQ(steps, wanted) << "percentage and tables that are there, then the first box";
}

TEST_F(BackInfoTest, ReplacesABackupThatAnotherReads) {
  enter("00001");
  enter("00002");
  closeWell();
  enter("00003");
  engine.flush();
  DbEngine elsewhere;
  Recordset held =
      elsewhere.OpenDatabase(context.gstrZtFile).OpenRecordset("select sCardNum from ZKFA_BAK_fa_Cards_5");
  EXPECT_EQ(held.Text("sCardNum"), "00001");
  closeWell();
  EXPECT_EQ(rows("select sCardNum from ZKFA_BAK_fa_Cards_5 order by sCardNum"),
            (Lines{"00001", "00002", "00003"}));
  held.MoveNext();
  EXPECT_EQ(held.Text("sCardNum"), "00002") << "what was being read is read to its end";
}

TEST_F(BackInfoTest, GoesOnWithoutABackup) {
  execute("SELECT * INTO [ZKFA_BAK of the auditor] FROM fa_Cards");
  execute("update AccInformation set cValue='x' where cName='lPaperHeight'");
  closeWell();
  EXPECT_EQ(backups(), Lines{"ZKFA_BAK of the auditor"}) << "its name breaks the statement that drops it";
  EXPECT_EQ(option("lPaperHeight"), "16832");
}

}  // namespace
}  // namespace zelkor::test
