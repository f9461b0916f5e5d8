#include "changes/CardDetailList.h"
#include "SheetFixture.h"

// The picker of cards and the split between departments.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;
using Rows = std::vector<Lines>;

class CardListsTest : public SheetTest {
 protected:
  CardListsTest() {
    addCard("00002", "2020-04-15");
    addCard("00003", "2020-04-15");
    execute("update fa_Cards set dblTransInDeprTCard=0 where sCardNum='00002'");
    execute("update fa_Cards set dDisposeDate=#2020-5-1#,dTransDate=#2020-5-1# where sCardNum='00003'");
  }
  /// The rows without heading, of the columns from the sixth on, after the card number.
  Rows list(ChangeKind kind) {
    Rows rows;
    const TextGrid grid = cardDetailList(db(), kind, context.gdOpDate);
    EXPECT_EQ(grid.headerRows(), 1U);
    for (std::size_t row = 1; row < grid.rows(); ++row) {
      rows.push_back({grid.text(row, 0)});
      for (std::size_t column = 5; column < grid.columns(); ++column)
        rows.back().push_back(grid.text(row, column));
    }
    return rows;
  }
};

TEST_F(CardListsTest, EachKindHasItsCardsAndColumns) {
  std::string lists;
  for (int kind = 0; kind <= static_cast<int>(ChangeKind::Transfer); ++kind) {
    const TextGrid grid = cardDetailList(db(), static_cast<ChangeKind>(kind), context.gdOpDate);
    lists += std::string(captionOf(static_cast<ChangeKind>(kind))) + "\n" + gridText(grid) + "\n";
  }
  expectGolden("changes/golden/card-lists.txt", lists);
}

TEST_F(CardListsTest, NewestVersionsAndSheetsComeFirst) {
  saveGood(ChangeKind::UsageStatus);
  saveGood(ChangeKind::UsefulLife, "00002");
  saveGood(ChangeKind::AccumulatedDepr, "00003");
  EXPECT_EQ(list(ChangeKind::UsageStatus)[0], (std::vector<std::string>{"00001", "未使用", "21"}));
  EXPECT_EQ(list(ChangeKind::UsefulLife), (Rows{{"00002", "6年0月"}, {"00001", "60"}, {"00003", "60"}}));
  EXPECT_EQ(list(ChangeKind::AccumulatedDepr), (Rows{{"00003", "120"}, {"00001", "95"}}));
}

TEST_F(CardListsTest, TheRowThatIsChosenFillsTheSheet) {
  saveGood(ChangeKind::Transfer);
  execute(
      "update fa_Cards set sCardID='1' where sCardNum='00002'");  // brings back the first version of 00001
  saveGood(ChangeKind::AccumulatedDepr, "00003");
  ChangeSheets again = sheets(ChangeKind::AccumulatedDepr);
  ChangeSheet correction = goodSheet(again, "00003");
  correction.after.text = "150";
  expectSaved(again.save(correction));
  const std::pair<ChangeKind, Lines> cases[] = {{ChangeKind::Transfer, {"一车间", "二车间", "一车间"}},
                                                {ChangeKind::AccumulatedDepr, {"150", "120", "95"}}};
  for (const auto& [kind, values] : cases) {
    ChangeSheets kindOfSheets = sheets(kind);
    Lines before;
    for (const auto& chosen : textsOf(kindOfSheets.cardList())) {
      if (chosen[0] == "卡片编号") continue;
      ChangeSheet sheet = kindOfSheets.newSheet();
      ASSERT_TRUE(kindOfSheets.pickCard(chosen, sheet).done()) << chosen[0];
      EXPECT_EQ(sheet.before.text, chosen[5]) << chosen[0];
      before.push_back(sheet.before.text);
    }
    EXPECT_EQ(before, values);
  }
}

TEST_F(CardListsTest, ASharedCardShowsItsDepartments) {
  execute("update fa_Cards set sDeptNum='301/4/302' where sCardNum='00001'");
  EXPECT_EQ(list(ChangeKind::Transfer)[0],
            (std::vector<std::string>{"00001", "一车间/二车间/研发部", "301/4/302", "2020-05-15"}));
  EXPECT_EQ(departmentNames(db(), "999"), "");
}

TEST_F(CardListsTest, AnEmptyListHasItsHeadingAlone) {
  execute("delete from fa_Cards");
  for (int kind = 0; kind <= static_cast<int>(ChangeKind::Transfer); ++kind) {
    EXPECT_EQ(cardDetailList(db(), static_cast<ChangeKind>(kind), context.gdOpDate).rows(), 1U);
  }
}

TEST(DepartSplitTest, IsConfirmedOrRefused) {
  const auto row = [](const std::string& code, const std::string& scale) {
    return SplitRow{code, code, scale, "", "", ""};
  };
  for (const auto& one : casesIn("changes/splits.txt")) {
    std::vector<SplitRow> shares;
    for (std::size_t i = 1; i + 1 < one.size(); i += 2) shares.push_back(row(one[i], one[i + 1]));
    DepartSplit split;
    split.codes = "old/";
    const auto refusal = confirmSplit(shares, split);
    EXPECT_EQ(refusal ? refusal->text : "", one[0]);
    if (refusal) {
      EXPECT_EQ(refusal->title, "固定资产");
      EXPECT_EQ(refusal->icon, Icon::Information);
    }
    EXPECT_NE(split.codes, "old/");
  }
  DepartSplit split;
  EXPECT_FALSE(
      confirmSplit({{"1", "甲", "60", "5,费", "97", "01,线"}, {"2", "乙", "40", "", "", ""}}, split));
  EXPECT_EQ(split.codes + split.names + split.scales + split.subjects + split.itemClasses + split.projects,
            "1/2/甲/乙/60/40/5,费//97//01,线//");
}

TEST(DepartSplitTest, ADepartmentIsTakenOnce) {
  const std::vector<SplitRow> rows{{"1", "", "", "", "", ""}, {"2", "", "", "", "", ""}};
  EXPECT_FALSE(departRepeated(rows, 1, "2"));
  EXPECT_FALSE(departRepeated(rows, 1, "3"));
  ASSERT_TRUE(departRepeated(rows, 1, "1"));
  EXPECT_EQ(departRepeated(rows, 1, "1")->text, "使用部门不允许重复，请重新录入或参照选择");
}

}  // namespace
}  // namespace zelkor::test
