#include "cards/CardTree.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class CardTreeTest : public AccountSetTest {
 protected:
  CardTreeTest() { cards.setZkDataPath(context.gstrZtFile); }

  /// Texts of what hangs below a node.
  std::vector<std::string> below(const CardTreeNode& node) {
    std::vector<std::string> texts;
    const auto children = cardTreeChildren(cards, node).value();
    for (const CardTreeNode& child : children) texts.push_back(child.text());
    return texts;
  }
  CardTreeNode child(CardQuery query, const std::string& code) {
    const auto children = cardTreeChildren(cards, cardTreeRoot(cards, query)).value();
    for (const CardTreeNode& node : children) {
      if (node.code == code) return node;
    }
    throw std::runtime_error("no node " + code);
  }

  ClsBLLManageCards cards{engine};
};

using Texts = std::vector<std::string>;

TEST_F(CardTreeTest, showsCodeNameAndNumberOfChildren) {
  const CardTreeNode departments = cardTreeRoot(cards, CardQuery::ByDepartment);
  EXPECT_EQ(departments.key() + " " + departments.text(), "R& 固定资产部门编码目录(7)");
  EXPECT_EQ(below(departments), (Texts{"1 总经理办公室(0)", "2 财务部(0)", "3 生产部(3)", "4 研发部(2)",
                                       "5 销售部(2)", "6 仓储物流部(0)", "7 行政后勤部(0)"}));
  const CardTreeNode production = child(CardQuery::ByDepartment, "3");
  EXPECT_EQ(production.key(), "D3");
  EXPECT_EQ(below(production), (Texts{"301 一车间(0)", "302 二车间(0)", "303 机修车间(0)"}));
  EXPECT_EQ(cardTreeRoot(cards, CardQuery::ByCategory).text(), "固定资产分类编码表(6)");
  EXPECT_EQ(below(child(CardQuery::ByCategory, "02")).size(), 2u);
  const CardTreeNode custom = cardTreeRoot(cards, CardQuery::Custom);
  EXPECT_EQ(custom.text(), "自定义查询");
  EXPECT_EQ(below(custom), Texts());
}

TEST_F(CardTreeTest, selectsCardsByTheNodeOrByItsChildren) {
  const auto condition = [this](const CardTreeNode& node) { return cardTreeCondition(cards, node).value(); };
  EXPECT_EQ(condition(cardTreeRoot(cards, CardQuery::ByDepartment)), "");
  EXPECT_EQ(condition(child(CardQuery::ByDepartment, "2")), "  sDeptNum='2' ");
  EXPECT_EQ(condition(child(CardQuery::ByDepartment, "3")),
            "(  sDeptNum='301'  or    sDeptNum='302'  or    sDeptNum='303'  or   1<>1 )");
  EXPECT_EQ(condition(child(CardQuery::ByCategory, "02")),
            "(  sTypeNum='021'  or    sTypeNum='022'  or   1<>1 )");
  // The archive counts a department below that hangs elsewhere.
  EXPECT_EQ(condition({CardQuery::ByDepartment, "9", "新部门", 1}), "( 1<>1 )");
}

TEST_F(CardTreeTest, tellsWhatCannotBeRead) {
  const CardTreeNode odd{CardQuery::ByDepartment, "3'", "", 1};
  EXPECT_FALSE(cardTreeChildren(cards, odd));
  EXPECT_FALSE(cardTreeCondition(cards, odd));
  ClsBLLManageCards missing(engine);
  missing.setZkDataPath(missingFile());
  EXPECT_EQ(cardTreeRoot(missing, CardQuery::ByCategory).text(), "按类别查询(0)");
}

}  // namespace
}  // namespace zelkor::test
