#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

#include "cards/CardImport.h"
#include "cards/CardPreview.h"
#include "support/AccountSetFixture.h"
#include "support/Golden.h"
#include "support/Paths.h"

namespace zelkor::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

/// A register of one row, of which a test changes single cells.
class ImportTest : public AccountSetTest {
 protected:
  static Rows goodRegister() {
    return {{"卡片编号", "固定资产编号", "固定资产名称", "类别编号", "部门名称", "增加方式", "使用状况",
             "使用年限", "折旧方法", "开始使用日期", "原值", "净残值率", "累计折旧", "录入日期", "净残值",
             "对应折旧科目"},
            {"", "", "数控车床", "021", "301", "101", "11", "120", "平均年限法(一)", "2018-3-5", "1200.00",
             "0.05", "200.00", "2020-01-01", "", "410502"}};
  }

  static std::string csvOf(const Rows& rows) {
    std::string text;
    for (const auto& row : rows) {
      for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "\"" : ",\"") + row[i] + "\"";
      text += "\n";
    }
    return text;
  }

  ImportResult import(const Rows& rows, int newType = 1) {
    problems.str("");
    return importCards(context, csvOf(rows), newType, problems);
  }

  ImportPreview preview(const Rows& cells, int newType = 1) {
    CsvReader rows(csvOf(cells));
    return previewCards(context, rows, newType);
  }

  static void setCell(Rows& rows, const std::string& column, const std::string& value) {
    for (std::size_t i = 0; i < rows[0].size(); ++i) {
      if (rows[0][i] == column) rows[1][i] = value;
    }
  }

  std::ostringstream problems;
};

TEST_F(ImportTest, AGoodRowBecomesACard) {
  Rows rows = goodRegister();
  rows.push_back(rows[1]);
  rows[0].push_back("备注");
  for (const std::size_t row : {1, 2}) rows[row].push_back("x");
  const ImportResult result = import(rows);
  EXPECT_EQ(result.stored, 2);
  EXPECT_EQ(result.refused, 0);
  EXPECT_EQ(problems.str(), "第1行，列“备注”：不是卡片的项目，已忽略此列\n");
  EXPECT_EQ(this->rows(
                "select sCardNum,sAssetNum,sDeptNum,sDeprMethodID,lLife,dblValue,dblBV,dblBVRate,lUsedMonths,"
                "sCurrency,sOperator,dStartDate,iNewType from fa_Cards order by sCardNum"),
            (std::vector<std::string>{"00001|02100001|301|2|120|1200|60|0.05|26|人民币|陈会计|2018-3-5|1",
                                      "00002|02100002|301|2|120|1200|60|0.05|26|人民币|陈会计|2018-3-5|1"}));
  EXPECT_EQ(row("select count(*) from fa_ZWVouchers"), "0");
}

TEST_F(ImportTest, ARowWaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  Rows rows = goodRegister();
  import(rows);
  std::string waits;
  for (const int cards : {100, 300}) {
    rows.resize(1);
    rows.resize(static_cast<std::size_t>(cards) + 1, goodRegister()[1]);
    const std::uint64_t before = db().waits();
    EXPECT_EQ(import(rows).stored, cards);
    waits += std::to_string(db().waits() - before) + " for " + std::to_string(cards) + " cards\n";
  }
  expectGolden("cards/golden/import-waits.txt", waits);
}

TEST_F(ImportTest, AdditionsOfTheMonthAreStaged) {
  Rows rows = goodRegister();
  setCell(rows, "开始使用日期", "2020-5-31");
  EXPECT_EQ(import(rows, 2).stored, 1) << problems.str();
  EXPECT_EQ(row("select count(*) from fa_ZWVouchers where coutbillsign='新增资产'"), "2");
  EXPECT_EQ(row("select iNewType from fa_Cards"), "2");
}

TEST_F(ImportTest, FiguresThatARowLeavesBlankAreThoseOfTheCardEditor) {
  const struct {
    const char *value, *rate, *depreciated, *expected;  // residual value, and what a unit of work costs
  } cases[] = {
      {"1000000000", "0.05", "0", "50000000.75|9.4999999925"},  // the rate counts in single precision
      {"12000.5", "0.05", "95", "600.03|0.0001130547"},
  };
  for (const auto& c : cases) {
    Rows rows = goodRegister();
    setCell(rows, "折旧方法", "工作量法");
    setCell(rows, "原值", c.value);
    setCell(rows, "净残值率", c.rate);
    setCell(rows, "累计折旧", c.depreciated);
    for (const auto& [column, value] :
         {std::pair("工作总量", "100000000"), {"工作量单位", "公里"}, {"可抵扣税额", "7"}}) {
      rows[0].push_back(column);
      rows[1].push_back(value);
    }
    execute("delete from fa_Cards");
    EXPECT_EQ(import(rows).stored, 1) << problems.str();
    EXPECT_EQ(row("select dblBV,dblPerDepr from fa_Cards"), c.expected);
    EXPECT_EQ(row("select dblCanWork,sWorkUnit,dblOffsetTax from fa_Cards"), "100000000|公里|7");
  }
}

struct BadCell {
  const char* column;
  const char* value;
  const char* reason;
  int newType = 1;
};

TEST_F(ImportTest, ABadRowIsNamedAndTheOthersAreKept) {
  const BadCell cases[] = {
      {"类别编号", "99", "固定资产类别中没有“99”"},
      {"类别编号", "&", "固定资产类别中没有“&”"},
      {"类别编号", "02", "固定资产类别“02”不是末级，应填其下级的编码"},
      {"部门名称", "399", "部门中没有“399”"},
      {"部门名称", "3,生产部", "部门“3”不是末级，应填其下级的编码"},
      {"折旧方法", "平均法", "折旧方法中没有“平均法”"},
      {"增加方式", "201", "增加方式中没有“201”"},
      {"增加方式", "1", "增加方式“1”不是末级，应填其下级的编码"},
      {"使用状况", "77", "使用状况中没有“77”"},
      {"使用状况", "1", "使用状况“1”不是末级，应填其下级的编码"},
      {"对应折旧科目", "4105,制造费用", "此4105在科目表中不存在，或非明细级！"},
      {"对应折旧科目", "9999", "此9999在科目表中不存在，或非明细级！"},
      {"原值", "12O0", "“12O0”不是数字"},
      {"原值", "", "不能为空"},
      {"原值", "1e300", "“1e300”超出范围"},
      {"原值", "-0.01", "不能为负数"},
      {"累计折旧", "abc", "“abc”不是数字"},
      {"累计折旧", "-200", "不能为负数"},
      {"累计折旧", "1200.01", "累计折旧不能大于原值!"},
      {"累计折旧", "1140.01", "净残值不能大于净值!"},
      {"净残值", "-60", "不能为负数"},
      {"净残值", "1200.01", "净残值不能大于原值!"},
      {"净残值", "1000.01", "净残值不能大于净值!"},
      {"净残值率", "5", "应为 0 到 1 之间的小数，如 0.05"},
      {"开始使用日期", "2020-02-30", "“2020-02-30”不是日期"},
      {"开始使用日期", "2020-05-01", "原始卡片的开始日期不能在本月或本月之后！"},
      {"开始使用日期", "2020-04-30", "新资产的开始使用日期必须在本月！", 2},
      {"开始使用日期", "2020-06-01", "新资产的开始使用日期必须在本月！", 2},
      {"录入日期", "昨天", "“昨天”不是日期"},
      {"使用年限", "-12", "不能为负数"},
      {"使用年限", "1.5", "应为整数"},
      {"使用年限", "99999999999", "超出范围"},
      {"固定资产名称", "MEN'S BOOTS", "值中有单引号（'），会打断保存卡片的语句"},
      {"固定资产编号", "01234567890123456789012345678901234567891", "超过40个字符"},
  };
  for (const BadCell& c : cases) {
    Rows rows = goodRegister();
    rows.push_back(rows[1]);
    if (c.newType == 2) rows[2][9] = "2020-5-1";
    setCell(rows, c.column, c.value);
    const ImportPreview shown = preview(rows, c.newType);
    ASSERT_EQ(shown.problems.size(), 1U) << c.column << " " << c.value;
    EXPECT_EQ(shown.problems[0].column, c.column);
    EXPECT_EQ(shown.problems[0].reason, c.reason);
    const ImportResult result = import(rows, c.newType);
    EXPECT_EQ(result.stored, 1) << c.column << " " << c.value;
    EXPECT_EQ(result.refused, 1) << c.column << " " << c.value;
    EXPECT_EQ(problems.str(), std::string("第2行，列“") + c.column + "”：" + c.reason + "\n");
  }
}

// What a card's screen refuses must not speak against a real register of old assets.
TEST_F(ImportTest, ARealRegisterIsTakenButForItsQuotes) {
  const auto file = dataFolder().parent_path().parent_path() / "shared/data/register-2020-01.csv";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << "there is none beside the project";
  context.gdOpDate = day("2020-1-31");
  const ImportResult result = importCards(context, readFile(file), 1, problems);
  EXPECT_EQ(result.stored, 4807);
  std::istringstream told(problems.str());
  for (std::string line; std::getline(told, line);)
    EXPECT_THAT(line, testing::HasSubstr("值中有单引号（'）"));
}

TEST_F(ImportTest, ARowOfTheWrongLengthOrWithATakenNumberIsRefused) {
  Rows rows = goodRegister();
  setCell(rows, "卡片编号", "00007");
  rows.push_back(rows[1]);
  rows.push_back(rows[1]);
  rows.back().resize(5);
  rows.push_back(rows[1]);
  rows.back().push_back("more");
  EXPECT_EQ(import(rows).stored, 1);
  EXPECT_EQ(problems.str(),
            "第3行，列“卡片编号”：“00007”已存在\n"
            "第4行，列“增加方式”：缺少：本行只有5列，表头有16列\n"
            "第5行，列“对应折旧科目”：其后多出列：本行有17列，表头有16列\n");
}

// Behind 99999 comes a number that sorts before it, and would be given to every card that follows.
TEST_F(ImportTest, NumbersThatAreUsedUpAreSaidSo) {
  Rows rows = goodRegister();
  setCell(rows, "固定资产编号", "02199999");
  rows.push_back(goodRegister()[1]);
  setCell(rows, "卡片编号", "99998");
  rows.insert(rows.end(), 2, goodRegister()[1]);
  rows[3][1] = "021A";
  EXPECT_EQ(import(rows).stored, 2);
  EXPECT_EQ(problems.str(),
            "第3行，列“固定资产编号”：编号已用到99999，五位数字没有下一个\n"
            "第5行，列“卡片编号”：编号已用到99999，五位数字没有下一个\n");
}

// Nor is the half of a card that was written before.
TEST_F(ImportTest, AFailureOfTheEngineIsToldAndNothingIsSaved) {
  execute("drop table fa_DeptScale");
  try {
    import(goodRegister());
    FAIL() << "accepted";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.is(ErrorNumber::CannotOpenTableOrQuery)) << error.number();
    EXPECT_EQ(std::string(error.what()).find("导入停在第2行，没有保存任何卡片。"), 0U) << error.what();
  }
  EXPECT_EQ(row("select count(*) from fa_Cards"), "0");
}

// What comes before it is told of, what comes behind it is not.
TEST_F(ImportTest, AFailureOfTheEngineIsToldAtItsRow) {
  execute("create unique index zk_once on fa_Cards (sAssetNum)");
  Rows rows = goodRegister();
  rows.insert(rows.end(), 5, rows[1]);
  rows[2][8] = rows[5][8] = "平均法";
  rows[3][0] = "00007";
  rows[4][1] = "02100002";  // as the one before it has been given
  std::string told;
  try {
    import(rows);
  } catch (const RuntimeError& error) {
    told = error.what();
    EXPECT_TRUE(error.is(ErrorNumber::DuplicateKey)) << error.number();
  }
  EXPECT_EQ(told.find("导入停在第5行，没有保存任何卡片。"), 0U) << told;
  EXPECT_EQ(problems.str(), "第3行，列“折旧方法”：折旧方法中没有“平均法”\n");
  EXPECT_EQ(row("select count(*) from fa_Cards"), "0");
}

// Each counts for those that come behind it, as if it were there.
TEST_F(ImportTest, RowsAreNumberedOneAfterTheOther) {
  Rows rows = goodRegister();
  rows.insert(rows.end(), 5, rows[1]);
  setCell(rows, "卡片编号", "00041");
  rows[2][1] = "0210009x";  // behind all of them, and no number: 1 comes behind it
  rows[3][0] = "a7";        // so is this one
  rows[5][0] = "A7";
  EXPECT_EQ(import(rows).stored, 4);
  EXPECT_EQ(problems.str(),
            "第6行，列“卡片编号”：“A7”已存在\n"
            "第7行，列“卡片编号”：“00001”已存在\n");
  EXPECT_EQ(this->rows("select sCardID,lOptID,sCardNum,sAssetNum from fa_Cards order by val(sCardID)"),
            (std::vector<std::string>{"1|1|00041|02100001", "2|2|00042|0210009x", "3|3|a7|02100001",
                                      "4|4|00001|02100001"}));
}

TEST_F(ImportTest, NumbersGivenByHandAreNotInvented) {
  execute("update AccInformation set cValue='0' where cSysID='FA' and cName='iCardNumType'");
  EXPECT_EQ(import(goodRegister()).stored, 0);
  EXPECT_EQ(problems.str(), "第2行，列“固定资产编号”：不能为空：本账套的固定资产编号由手工输入\n");
}

TEST_F(ImportTest, APreviewSaysWhatWouldBecomeOfTheRows) {
  Rows rows = goodRegister();
  ASSERT_EQ(import(rows).stored, 1);
  rows[0].push_back("备注");
  rows[1].push_back("x");
  rows.resize(5, rows[1]);
  rows[1][0] = "00001";
  for (const std::size_t same : {2, 3}) rows[same][0] = "a7";
  ImportPreview shown = preview(rows);
  EXPECT_EQ(shown.rows, 4U);
  EXPECT_EQ(shown.badRows, 2U);
  EXPECT_EQ(shown.firstRows.size(), 4U);
  EXPECT_EQ(shown.problems[0].reason, "“00001”已存在");
  EXPECT_EQ(shown.problems[1].reason, "“a7”与第3行重复");
  EXPECT_EQ(shown.problems[1].line, 4U);
  EXPECT_EQ(shown.columns[3].takenFor, "编码，必填");
  EXPECT_EQ(shown.columns[7].takenFor, "月数，必填");
  EXPECT_EQ(shown.columns[10].takenFor, "金额，必填");
  EXPECT_EQ(shown.columns[16].takenFor, "");
  execute("update AccInformation set cValue='0' where cSysID='FA' and cName='iCardNumType'");
  Rows byHand = goodRegister();
  byHand.push_back(byHand[1]);
  byHand[1][0] = byHand[2][0] = "b8";
  byHand[2][1] = "x1";
  shown = preview(byHand);
  EXPECT_EQ(shown.badRows, 1U) << "a row that is refused does not use its number up";
  EXPECT_EQ(shown.problems[0].reason, "不能为空：本账套的固定资产编号由手工输入");
  rows[0][10] = "原价";
  shown = preview(rows);
  EXPECT_EQ(shown.missing, std::vector<std::string>{"原值"});
  EXPECT_FALSE(shown.canBeImported());
  EXPECT_EQ(row("select count(*) from fa_Cards"), "1");
}

TEST_F(ImportTest, AFileThatCannotBeReadAsARegisterSavesNothing) {
  const auto refused = [this](const std::string& csv) {
    try {
      importCards(context, csv, 1, problems);
      return std::string("accepted");
    } catch (const RuntimeError& error) {
      return std::string(error.what());
    }
  };
  EXPECT_EQ(refused(""), "文件是空的：没有表头");
  EXPECT_EQ(refused("固定资产名称\n\xB9\xCC\n"),
            "文件不是 UTF-8 编码（第2行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”");
  Rows rows = goodRegister();
  rows[0][10] = "原价";
  rows[0][8] = "方法";
  EXPECT_EQ(refused(csvOf(rows)), "表头中缺少列“折旧方法”、“原值”");
  rows = goodRegister();
  rows[0][12] = "原值";
  EXPECT_EQ(refused(csvOf(rows)), "表头中列“原值”出现了不止一次");
  EXPECT_EQ(row("select count(*) from fa_Cards"), "0");
}

}  // namespace
}  // namespace zelkor::test
