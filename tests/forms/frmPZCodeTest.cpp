#include <algorithm>

#include "support/Widgets.h"
#include "vouchers/frmPZCode.h"
#include "vouchers/frmPZCode1.h"

namespace zelkor::test {
namespace {

class frmPZCodeTest : public FormTest {
 protected:
  frmPZCode& open() { return host.show<frmPZCode>(); }
  static Lines headsOf(const QWidget& form) {
    Lines heads = nodesOf(form, "TvCode");
    std::erase_if(heads, [](const std::string& node) { return node.starts_with(" "); });
    return heads;
  }
  static bool holds(const QWidget& form, const std::string& node) {
    const Lines nodes = nodesOf(form, "TvCode");
    return std::ranges::find(nodes, node) != nodes.end();
  }
  static std::string ticked(const QWidget& form) {
    std::string boxes;
    for (int i = 0; i < 10; ++i) {
      const std::string name = "ChkFilter" + std::to_string(i);
      boxes += control<QCheckBox>(form, name.c_str()).isChecked() ? "1" : "0";
    }
    return boxes;
  }
};

TEST_F(frmPZCodeTest, hangsSubjectsBelowTheirClasses) {
  execute("insert into code (ccode,ccode_name,cclass,igrade) values ('9001','备查','表外',1)");
  execute("insert into code (ccode,ccode_name,igrade) values ('9002','无类别',1)");
  const frmPZCode& form = open();
  EXPECT_EQ(headsOf(form), (Lines{"常用", "资产", "负债", "权益", "成本", "损益", "表外", "9002 无类别"}));
  EXPECT_TRUE(holds(form, "  1002 银行存款"));
  EXPECT_TRUE(holds(form, "    100201 工行存款"));
  EXPECT_TRUE(holds(form, "  9001 备查"));
}

TEST_F(frmPZCodeTest, showsTheFlagsOfASubjectAndFiltersByThem) {
  frmPZCode& form = open();
  selectNode(form, "TvCode", "100201 工行存款");
  keepPicture(form, "frmPZCode");
  EXPECT_EQ(ticked(form), "0000100011");
  click(form, "ChkFilter0");
  auto& tree = control<QTreeWidget>(form, "TvCode");
  emit tree.itemClicked(tree.currentItem(), 0);
  EXPECT_EQ(ticked(form), "0000100011") << "clicked again";
  selectNode(form, "TvCode", "资产");
  EXPECT_EQ(ticked(form), "0000000000");
  click(form, "ChkFilter3");
  click(form, "CmdFilter");
  EXPECT_TRUE(holds(form, "  1501 固定资产")) << "a box without a flag filters nothing";
  execute("update code set be=0 where ccode='1002'");
  click(form, "ChkFilter9");
  click(form, "CmdFilter");
  EXPECT_FALSE(holds(form, "  1501 固定资产"));
  EXPECT_TRUE(holds(form, "  100202 建行存款")) << "the subject above it is filtered out";
}

TEST_F(frmPZCodeTest, keepsFrequentSubjectsOncePerOperator) {
  execute("delete from GL_MCodeUsed");
  const frmPZCode& form = open();
  for (int i = 0; i < 2; ++i) {
    selectNode(form, "TvCode", "1501 固定资产");
    click(form, "CmdUsed");
    EXPECT_EQ(rows("select CUser,CCode from GL_MCodeUsed"), Lines{"陈会计|1501"});
  }
  EXPECT_EQ(nodesOf(form, "TvCode")[1], "  1501 固定资产");
  EXPECT_EQ(nodesOf(open(), "TvCode")[1], "  1501 固定资产") << "and is there the next time";
}

TEST_F(frmPZCodeTest, letsTheAnswerLiveOnUntilTheNextPick) {
  frmPZCode& first = open();
  selectNode(first, "TvCode", "100201 工行存款");
  click(first, "cmdOK");
  EXPECT_EQ(first.picked().code + "|" + first.picked().name, "100201|工行存款");
  frmPZCode& cancelled = open();
  selectNode(cancelled, "TvCode", "1501 固定资产");
  click(cancelled, "cmdCancel");
  EXPECT_EQ(context.pickedSubject.code + "|" + context.pickedSubject.content, "100201|100201 工行存款");
  EXPECT_EQ(cancelled.picked().code, "") << "nothing was picked here";
  click(open(), "cmdOK");
  EXPECT_EQ(context.pickedSubject.code + context.pickedSubject.name, "");
}

TEST_F(frmPZCodeTest, writesIntoTheFieldWhatIsPickedForIt) {
  const struct {
    const char* node;
    const char* button;
    const char* field;
  } cases[] = {{"100201 工行存款", "cmdOK", "100201,工行存款"},
               {"1501 固定资产", "cmdCancel", "1502,累计折旧"},
               {"资产", "cmdOK", "1502,累计折旧"}};
  for (const auto& c : cases) {
    QLineEdit field("1502,累计折旧");
    pickNext("TvCode", c.node, c.button);
    pickSubjectInto(host, field);
    EXPECT_EQ(field.text().toStdString(), c.field) << c.button;
  }
}

TEST_F(frmPZCodeTest, refusesAChartWithoutARule) {
  execute("update GradeDef set CodingRule='' where KeyWord='code'");
  tells("科目规则有误！", Icon::None, "凭证");
  EXPECT_TRUE(nodesOf(open(), "TvCode").empty());
}

TEST_F(frmPZCodeTest, theOtherPickerPicksFromTheDatabaseThatItIsGiven) {
  context.pickedSubject = {"1502", "累计折旧", "1502 累计折旧"};
  frmPZCode1& form = host.show<frmPZCode1>();
  EXPECT_TRUE(nodesOf(form, "TvCode").empty());
  form.setZKDatabase(db());
  selectNode(form, "TvCode", "1501 固定资产");
  keepPicture(form, "frmPZCode1");
  sendKey(control<QTreeWidget>(form, "TvCode"), Qt::Key_Return);
  EXPECT_EQ(form.AccountCode() + "," + form.AccountContent(), "1501,固定资产");
  EXPECT_EQ(context.pickedSubject.code, "1502") << "the answer of the first picker is left alone";
}

}  // namespace
}  // namespace zelkor::test
