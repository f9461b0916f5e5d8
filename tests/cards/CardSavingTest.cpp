#include "cards/CardFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class CardSavingTest : public CardTest {
 protected:
  std::string count(const std::string& table) { return row("select Count(*) from " + table); }

  /// The rows of a table with all their values but Null, 0 and False.
  std::string contentOf(const std::string& table, const std::string& order) {
    std::string text;
    Recordset rows = db().OpenRecordset("select * from " + table + " order by " + order);
    for (; !rows.Eof(); rows.MoveNext()) {
      text += table;
      for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
        const std::string value = rows.Fields(i).textOrEmpty();
        if (!value.empty() && value != "0" && value != "False") text += " " + rows.FieldName(i) + "=" + value;
      }
      text += "\n";
    }
    return text;
  }
  std::string allRows() {
    return contentOf("fa_Cards", "val(sCardID)") + contentOf("fa_DeptScale", "sCardNum") +
           contentOf("fa_Cards_Detail", "sCardNum") + contentOf("fa_DeprTransactions", "sCardNum") +
           contentOf("fa_DeprTransactions_Detail", "sCardNum") + contentOf("fa_ZWVouchers", "i_id");
  }

  bool saveAs(const std::string& cardNum, const std::string& department, const std::string& subject,
              NewCardType type) {
    CardValues values = card(cardNum);
    values[CardField::Department] = department;
    values[CardField::DepreciationSubject] = subject;
    return save(values, type);
  }
};

TEST_F(CardSavingTest, writesTheRowsOfNewAndChangedCards) {
  using enum CardField;
  for (const char* key : {"00000000000000000100", "99"}) {
    execute(std::string("insert into fa_ZWVouchers (coutid) values ('") + key + "')");
  }
  EXPECT_TRUE(saveAs("00001", "301,一车间", "410502,折旧费", NewCardType::Original));
  EXPECT_TRUE(saveAs("00002", "302", "550202", NewCardType::AddedInPeriod)) << "its name is in the chart";
  EXPECT_TRUE(saveAs("02", "302,二车间,x", "9999", NewCardType::AddedInPeriod)) << "no subject of the chart";
  EXPECT_TRUE(saveAs("00003", "303", "1,a,b", NewCardType::AddedInPeriod));
  CardValues december = workloadCard("00004");
  december[AdditionWay] = "nowhere";
  EXPECT_TRUE(cards.SaveNewCard(december, 12, NewCardType::AddedInPeriod, CardLayout::Workload));
  EXPECT_EQ(december[DepreciationMethod], "4") << "the name is replaced in place";
  EXPECT_TRUE(save(workloadCard("00005"), NewCardType::Original, CardLayout::Ordinary));
  std::string content = "New cards\n" + allRows();

  execute(
      "insert into fa_Cards (sCardID,sCardNum,lOptID,iOptType,iNewType,iInputPeriod) "
      "values ('9','00001',70,10,1,4)");
  CardValues changed = card("00001", "X1");
  changed[OriginalValue] = "777";
  changed[AccumulatedDepreciation] = "33.5";
  changed[DepreciationMethod] = "6";
  changed[StartDate] = "2019年3月5日";
  changed[EntryDate] = "2020-02-01";
  EXPECT_TRUE(cards.UpdateCard(changed, 3, "00001", CardLayout::Ordinary)) << "all of its versions";
  EXPECT_TRUE(cards.UpdateCard(changed, 5, "00002", CardLayout::Ordinary)) << "its staged rows stay";
  EXPECT_TRUE(cards.UpdateCard(changed, 4, "02", CardLayout::Ordinary)) << "none are staged in that month";
  EXPECT_TRUE(cards.UpdateCard(changed, 5, "02", CardLayout::Ordinary)) << "its rows are staged anew";
  CardValues workload = workloadCard("00005");
  workload[DepreciationMethod] = "4";
  EXPECT_TRUE(cards.UpdateCard(workload, 5, "00005", CardLayout::Workload));
  content += "Changed cards\n" + allRows();

  expectGolden("cards/golden/saved.txt", content);
}

TEST_F(CardSavingTest, waitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  std::vector<std::uint64_t> waits;
  for (const NewCardType type : {NewCardType::Original, NewCardType::AddedInPeriod}) {
    for (const char* number : {"00001", "00002"}) {
      const std::uint64_t before = db().waits();
      ASSERT_TRUE(save(card(number), type));
      waits.push_back(db().waits() - before);
    }
  }
  EXPECT_EQ(waits, (std::vector<std::uint64_t>{8, 2, 3, 3})) << "a first one, further ones";
}

TEST_F(CardSavingTest, goesOnFromANumberInAnotherForm) {
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  execute("update fa_Cards set sCardID='7.0'");
  ASSERT_TRUE(save(card("00002"), NewCardType::AddedInPeriod));
  EXPECT_EQ(rows("select sCardID,sCardNum from fa_Cards order by sCardNum"),
            (std::vector<std::string>{"7.0|00001", "8|00002"}));
}

TEST_F(CardSavingTest, deletesTheCardAndLeavesItsRowsByDepartment) {
  ASSERT_TRUE(save(card("00001"), NewCardType::AddedInPeriod));
  ASSERT_TRUE(save(card("00002"), NewCardType::AddedInPeriod));
  ASSERT_TRUE(cards.DeleteCard("00001"));
  EXPECT_EQ(rows("select sCardNum from fa_Cards"), std::vector<std::string>{"00002"});
  EXPECT_EQ(rows("select sCardNum from fa_DeprTransactions"), std::vector<std::string>{"00002"});
  EXPECT_EQ(rows("select distinct cDefine9 from fa_ZWVouchers"), std::vector<std::string>{"00002"});
  EXPECT_EQ(count("fa_DeptScale"), "2");
  EXPECT_EQ(count("fa_Cards_Detail"), "2");
  EXPECT_EQ(count("fa_DeprTransactions_Detail"), "2");
}

TEST_F(CardSavingTest, writesNothingWhenTheCardItselfIsRefused) {
  for (const auto& one : casesIn("cards/refused.txt")) {
    CardValues values = card("00001");
    values[cardFieldOfLabel(one[0]).value()] = one[1];
    EXPECT_FALSE(save(values)) << one[0] << " " << one[1];
  }
  for (const char* table : {"fa_Cards", "fa_DeptScale", "fa_Cards_Detail", "fa_DeprTransactions"}) {
    EXPECT_EQ(count(table), "0") << table;
  }
}

TEST_F(CardSavingTest, leavesWhatWentBeforeAFailure) {
  context.gstrUser = "O'Brien";
  EXPECT_FALSE(save(card("00001"), NewCardType::AddedInPeriod));
  EXPECT_EQ(count("fa_Cards"), "1");
  EXPECT_EQ(count("fa_DeprTransactions_Detail"), "1");
  EXPECT_EQ(count("fa_ZWVouchers"), "0");
  execute("drop table fa_DeprTransactions");
  EXPECT_FALSE(cards.UpdateCard(card("00001", "X1"), 5, "00001", CardLayout::Ordinary));
  EXPECT_EQ(row("select sAssetNum from fa_Cards"), "X1");
}

TEST_F(CardSavingTest, isSilentWithoutAFile) {
  ClsBLLFACards nowhere(context);
  nowhere.setZkDataPath(missingFile());
  CardValues values = card("00001");
  std::int32_t length = 0;
  std::string method;
  EXPECT_EQ(nowhere.GetNewCardNum(length), "");
  EXPECT_EQ(nowhere.GetNewAssetNum("021"), "");
  EXPECT_FALSE(nowhere.SaveNewCard(values, 5, NewCardType::Original, CardLayout::Ordinary));
  EXPECT_FALSE(nowhere.UpdateCard(values, 5, "00001", CardLayout::Ordinary));
  EXPECT_FALSE(nowhere.DeleteCard("00001"));
  EXPECT_EQ(nowhere.GetAssetCard("1", CardMove::First, method), "");
  EXPECT_FALSE(nowhere.GetCard("1").isOpen());
  EXPECT_FALSE(std::filesystem::exists(missingFile())) << "none is made";
}

}  // namespace
}  // namespace zelkor::test
