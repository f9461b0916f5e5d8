#include "archives/ArchiveTrees.h"
#include "archives/AssetTypeList.h"
#include "archives/AssetTypeMaintenance.h"
#include "archives/AssetTypeTree.h"
#include "archives/ClsBLLAssentTypes.h"
#include "support/AccountSetFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class AssetTypesTest : public AccountSetTest {
 protected:
  AssetTypesTest() { types.setZkDataPath(context.gstrZtFile); }

  void addRow(const std::string& code, int level) {
    execute("insert into fa_AssetTypes (sNum,iLevel,sID) values ('" + code + "'," + std::to_string(level) +
            ",'90')");
  }
  std::string stored(const std::string& code) {
    return row(
        "select sName,iLife,dblBVRate,sUnit,iDeprType,sDeprMethodNum,sModelID,sNum1,sNum2,sNum3,sNum4,"
        "iLevel,lChilds,sID,sParentID,sParentNum,iDefineType from fa_AssetTypes where sNum='" +
        code + "'");
  }
  std::string children(const std::string& code) {
    return row("select lChilds from fa_AssetTypes where sNum='" + code + "'");
  }

  ClsBLLAssentTypes types{engine};
};

const AssetTypeEntry kMachine = {.parts = {"02", "3"},
                                 .name = "仪器",
                                 .lifeYears = "5",
                                 .residualRatePercent = "4.5",
                                 .unit = "台",
                                 .depreciationRule = 2,
                                 .methodName = "年数总和法"};

TEST_F(AssetTypesTest, WaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  AssetTypeEntry entry = kMachine;
  std::string waits;
  const auto count = [&](const char* what, auto save) {
    const std::uint64_t before = db().waits();
    save();
    engine.flush();
    waits += what + (" " + std::to_string(db().waits() - before)) + "\n";
  };
  addAssetType(db(), entry, 2);
  entry.parts[1] = "4";
  count("add", [&] { addAssetType(db(), entry, 2); });
  count("update", [&] { updateAssetType(db(), entry, "024"); });
  count("delete", [&] { deleteAssetType(db(), "024"); });
  count("tree of categories", [&] { assetTypeTree(db()); });
  count("tree of methods", [&] { depreciationMethodTree(db()); });
  count("a category shown", [&] { readAssetType(db(), "022"); });
  count("departments to pick", [&] { departPickTree(db()); });
  count("statuses to pick", [&] { statusPickTree(db()); });
  count("reductions to pick", [&] { reductionPickTree(db()); });
  expectGolden("archives/golden/waits.txt", waits);
}

TEST_F(AssetTypesTest, readsCategories) {
  EXPECT_EQ(types.GetDeprMethodID("022"), "6");
  EXPECT_EQ(types.GetAssetLift("022"), 120);
  EXPECT_EQ(types.GetAssetTypeName("022"), "动力设备");
  EXPECT_EQ(types.GetAssetTypeName("099") + types.GetDeprMethodID("&"), "");
  EXPECT_EQ(types.GetAssetLift("099"), 0);
  EXPECT_EQ(types.GetAssetInfo("iLevel=2 and sNum like '04*' order by sNum").Text("sNum"), "041");
  EXPECT_EQ(rowsOf(types.GetAssentTypes()).size(), 15u);
  EXPECT_EQ(types.GetAssentTypes().Text("sNum"), "&");  // its sID is 1; as text 10 would come second
  execute("update fa_AssetTypes set sName=Null where sNum='022'");
  EXPECT_EQ(types.GetAssetTypeName("022"), "");
  EXPECT_EQ(types.GetAssetTypeName("0'2"), "");
  EXPECT_FALSE(types.GetAssetInfo("nonsense=").isOpen());
}

TEST_F(AssetTypesTest, offersEveryArchiveUnderTheSameNames) {
  const struct {
    ArchiveKind kind;
    const char* first;
  } cases[] = {{ArchiveKind::Departments, "固定资产部门编码目录|&|&|"},
               {ArchiveKind::Origins, "增减方式|0|0|"},
               {ArchiveKind::Statuses, "使用状况|0|0|"},
               {ArchiveKind::Methods, "不提折旧|1|1|"}};
  for (const auto& c : cases) {
    const Recordset entries = types.GetOtherTypes(c.kind);
    ASSERT_TRUE(entries.isOpen());
    std::string line;
    for (const char* name : {"sName", "sNum", "sID", "sParentID"}) {
      const Value cell = entries.Fields(name);
      line += (line.empty() ? "" : "|") + (cell.isNull() ? "~" : cell.text());
    }
    EXPECT_EQ(line, c.first);
  }
  for (const std::string& line : rowsOf(types.GetOtherTypes(ArchiveKind::Origins))) {
    EXPECT_EQ(line.find("出售"), std::string::npos) << "only additions are offered";
  }
  EXPECT_FALSE(types.GetOtherTypes(ArchiveKind::AssetTypes).isOpen());
}

TEST_F(AssetTypesTest, proposesTheNextPart) {
  execute("delete from fa_AssetTypes where sNum<>'&'");
  const AssetTypeParent root;
  EXPECT_EQ(proposeAssetTypeCode(db(), root).parts[0], "01");
  for (const char* code : {"01", "02", "05"}) addRow(code, 1);
  EXPECT_EQ(proposeAssetTypeCode(db(), root).parts[0], "06");

  const AssetTypeParent parent{"05", {"05"}, 1};
  const NewAssetTypeCode first = proposeAssetTypeCode(db(), parent);
  EXPECT_EQ(first.parts, (AssetTypeCodeParts{"05", "1", "", ""}));
  EXPECT_EQ(first.level, 2);
  EXPECT_EQ(first.rule.lengths, (std::array<int, 4>{2, 1, 1, 2}));
  addRow("053", 2);
  addRow("0538", 3);  // deeper, and left out of account
  EXPECT_EQ(proposeAssetTypeCode(db(), parent).parts[1], "4");

  addRow("99", 1);
  EXPECT_EQ(proposeAssetTypeCode(db(), root).parts[0], "00") << "a full level starts again";
  addRow("059", 2);
  EXPECT_EQ(proposeAssetTypeCode(db(), parent).parts[1], "0");
}

TEST_F(AssetTypesTest, followsTheCodingRuleInForce) {
  const struct {
    const char* rule;
    int deepest;
  } cases[] = {{"2112", 4}, {"3322", 4}, {"2100", 2}, {"2012", 1}, {"22", 2}, {"", 0}};
  for (const auto& c : cases) {
    execute(std::string("update AccInformation set cValue='") + c.rule +
            "' where cSysID='fa' and cName='sTypeNumType'");
    EXPECT_EQ(readAssetTypeCodingRule(db()).deepestLevel(), c.deepest) << c.rule;
  }
}

TEST_F(AssetTypesTest, presetsTheMainMethod) {
  execute("update AccInformation set cValue='5' where cSysID='FA' and cName='sDeprMethodNum'");
  EXPECT_EQ(mainDepreciationMethodName(db()), "年数总和法");
  execute("update AccInformation set cValue='77' where cSysID='FA' and cName='sDeprMethodNum'");
  EXPECT_EQ(mainDepreciationMethodName(db()), "");
}

TEST_F(AssetTypesTest, addsBelowACategory) {
  addAssetType(db(), kMachine, 2);
  EXPECT_EQ(stored("023"), "仪器|60|0.045|台|2|5|1|02|3|||2|0|16|3|02|1");
  EXPECT_EQ(children("02"), "3");
  EXPECT_EQ(children("&"), "6");
}

TEST_F(AssetTypesTest, addsBelowTheRootWithTheDefaultsOfBlankFields) {
  addAssetType(db(), {.parts = {"07"}, .name = "", .methodName = "no such method"}, 1);
  EXPECT_EQ(stored("07"), "|60|0|~|1||1|07||||1|0|16|1|~|1");
  EXPECT_EQ(children("&"), "7");
  addAssetType(db(), {.parts = {"88", "1"}, .name = "orphan"}, 2);  // 88 does not exist
  EXPECT_EQ(row("select sParentID,sParentNum,sID from fa_AssetTypes where sNum='881'"), "1|~|17");
  EXPECT_EQ(children("&"), "8");
}

TEST_F(AssetTypesTest, numbersBehindTheHighestNumber) {
  execute("update fa_AssetTypes set sID='100' where sNum='042'");
  execute("delete from fa_AssetTypes where sNum='041'");
  addAssetType(db(), kMachine, 2);
  EXPECT_EQ(row("select sID from fa_AssetTypes where sNum='023'"), "101");
}

TEST_F(AssetTypesTest, countsTheChildThatAQuoteKeepsOut) {
  AssetTypeEntry entry = kMachine;
  entry.name = "driver's";
  EXPECT_EQ(errorOf([&] { addAssetType(db(), entry, 2); }), 3134);
  EXPECT_EQ(stored("023"), "(none)");
  EXPECT_EQ(children("02"), "3");
}

TEST_F(AssetTypesTest, editsTheRowAlone) {
  AssetTypeEntry entry = kMachine;
  entry.parts = {"08"};
  EXPECT_EQ(updateAssetType(db(), entry, "02"), AssetTypeSaved::Stored);
  EXPECT_EQ(stored("08"), "仪器|60|0.045|台|2|5|1|02||||1|2|3|1|~|1") << "parts and level stay";
  EXPECT_EQ(row("select sParentNum from fa_AssetTypes where sNum='021'"), "02") << "so does what is below";
  entry.parts = {"03"};
  EXPECT_EQ(updateAssetType(db(), entry, "08"), AssetTypeSaved::CodeTaken);
  EXPECT_EQ(row("select sName from fa_AssetTypes where sNum='03'"), "运输设备");
  EXPECT_EQ(updateAssetType(db(), {.parts = {"08"}, .name = "n", .methodName = "直线法"}, "08"),
            AssetTypeSaved::Stored);
  EXPECT_EQ(stored("08"), "n|60|0|~|1|6|1|02||||1|2|3|1|~|1");
}

TEST_F(AssetTypesTest, deletesAndCountsDown) {
  execute("insert into fa_Cards (sCardID,sCardNum,sTypeNum) values ('1','00001','021')");
  deleteAssetType(db(), "021");
  EXPECT_EQ(stored("021"), "(none)");
  EXPECT_EQ(children("02"), "1");
  deleteAssetType(db(), "05");
  EXPECT_EQ(children("&"), "5");
}

TEST_F(AssetTypesTest, listsTheFirstLevelOrASubtree) {
  execute("update fa_AssetTypes set dblBVRate=0.045, iLife=30, sModelID='2' where sNum='022'");
  const auto first = textsOf(assetTypeList(db(), "&", context.gstrDeprStates));
  ASSERT_EQ(first.size(), 7u) << "a header and six categories, without the root";
  using Row = std::vector<std::string>;
  EXPECT_EQ(first[1],
            (Row{"01", "房屋及建筑物", "20", "5.00%", "栋", "正常计提", "平均年限法(一)", "通用样式"}));
  const auto below = textsOf(assetTypeList(db(), "02", context.gstrDeprStates));
  ASSERT_EQ(below.size(), 4u);
  EXPECT_EQ(below[3], (Row{"  022", "动力设备", "2.5", "4.50%", "台", "正常计提", "直线法", ""}));
}

}  // namespace
}  // namespace zelkor::test
