#include <gmock/gmock.h>

#include "forms/VoucherForms.h"
#include "vouchers/FrmEditPZType.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTitle = "提示";
constexpr const char* kLimitMissing = "凭证类别有限制，必须输入限制科目！";
enum Column : std::size_t { kSign, kName, kLimit, kCodes };

/// The archive holds 记 (no limit) and 收 (limited to 1001 on the debit side).
class FrmEditPZTypeTest : public VoucherFormTest {
 protected:
  FrmEditPZTypeTest() {
    types.setZkDataPath(context.gstrZtFile);
    execute("insert into dsign (csign,isignseq,ctext,itype) values ('收',2,'收款凭证',1)");
    execute("insert into dsigns (csign,ccode) values ('收','1001')");
  }
  FrmEditPZType& open() { return host.show<FrmEditPZType>(types); }
  static FlexGrid& table(const QWidget& form) { return gridOf(form, "GridDsign"); }
  static std::vector<std::string> list(const QWidget& form) { return body(form, "GridDsign"); }
  static bool open(const QWidget& form, const char* box) { return editing(table(form), box); }
  static void write(const QWidget& form, std::size_t row, std::size_t column, const QString& text,
                    int key = Qt::Key_Return) {
    clickCell(table(form), row, column);
    enter(table(form), "TxtEdit", text, key);
  }
  static void chooseLimit(const QWidget& form, std::size_t row, const QString& limit) {
    clickCell(table(form), row, kLimit);
    auto& combo = control<QComboBox>(form, "ComboDsignType");
    combo.setCurrentText(limit);
    emit combo.activated(combo.currentIndex());
  }
  void tells(const char* text) { dialogs.expectOk(text, Icon::Information, kTitle); }
  std::vector<std::string> stored() {
    return rows("select csign,isignseq,ctext,itype from dsign order by I_ID");
  }
  std::vector<std::string> limits() { return rows("select csign,ccode from dsigns order by csign,ccode"); }

  ClsBLLPZType types{engine};
};

TEST_F(FrmEditPZTypeTest, showsTheTypes) {
  const FrmEditPZType& form = open();
  EXPECT_EQ(form.windowTitle(), "凭证类别");
  EXPECT_EQ(textsOf(table(form).grid())[0],
            (std::vector<std::string>{"类别字", "类别名称", "限制类型", "限制科目"}));
  EXPECT_THAT(list(form), ElementsAre("记|记账凭证|无限制|", "收|收款凭证|借方必有|1001"));
  EXPECT_EQ(table(form).currentGridRow(), std::nullopt);
}

TEST_F(FrmEditPZTypeTest, keepsAWrongSignOrNameInItsCell) {
  struct Case {
    std::size_t column;
    const char* text;
    const char* message;
  };
  const FrmEditPZType& form = open();
  for (const Case& one :
       {Case{kSign, " ", "凭证类别字不能为空！"}, Case{kSign, "收", "凭证类别字不能重复！"},
        Case{kName, "", "类别名称不能为空！"}, Case{kName, "收款凭证", "类别名称不能重复！"}}) {
    tells(one.message);
    write(form, 1, one.column, one.text);
    EXPECT_TRUE(open(form, "TxtEdit")) << one.message;
    EXPECT_EQ(textOf(form, "TxtEdit"), one.text);
    clickCell(table(form), 2, kSign);
    EXPECT_EQ(table(form).currentGridRow(), 1U) << "the cell stays";
    sendKey(control<QLineEdit>(form, "TxtEdit"), Qt::Key_Escape);
  }
  EXPECT_THAT(list(form), ElementsAre("记|记账凭证|无限制|", "收|收款凭证|借方必有|1001"));
}

TEST_F(FrmEditPZTypeTest, storesARowThatIsLeft) {
  const FrmEditPZType& form = open();
  write(form, 1, kName, "通用凭证", Qt::Key_Escape);
  write(form, 1, kName, "通用");
  EXPECT_TRUE(control<QComboBox>(form, "ComboDsignType").isVisible()) << "Enter leads to the next cell";
  chooseLimit(form, 1, "贷方必有");
  write(form, 1, kCodes, "1002，1501；1502;1601");
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|2|收款凭证|1")) << "the row is not left yet";
  table(form).selectGridRow(2);
  EXPECT_THAT(stored(), ElementsAre("记|1|通用|2", "收|2|收款凭证|1"));
  EXPECT_THAT(limits(), ElementsAre("收|1001", "记|1002", "记|1501", "记|1502", "记|1601"));
}

TEST_F(FrmEditPZTypeTest, storesTwoLimitsUnderOtherNames) {
  const FrmEditPZType& form = open();
  chooseLimit(form, 2, "凭证必有");
  table(form).selectGridRow(1);
  EXPECT_EQ(stored()[1], "收|2|收款凭证|3");
  EXPECT_EQ(list(open())[1], "收|收款凭证|凭证必无|1001");
  const FrmEditPZType& again = open();
  chooseLimit(again, 2, "凭证必无");
  EXPECT_EQ(stored()[1], "收|2|收款凭证|3");
  table(again).selectGridRow(1);
  EXPECT_EQ(list(open())[1], "收|收款凭证|无限制|1001") << "choosing what stands there stores it too";
}

TEST_F(FrmEditPZTypeTest, wantsSubjectsForALimit) {
  const FrmEditPZType& form = open();
  tells(kLimitMissing);
  write(form, 2, kCodes, "");
  EXPECT_FALSE(open(form, "TxtEdit"));
  tells(kLimitMissing);
  table(form).selectGridRow(1);
  EXPECT_EQ(table(form).currentGridRow(), 2U);
  EXPECT_TRUE(open(form, "TxtEdit"));
  EXPECT_THAT(limits(), ElementsAre("收|1001"));
  pickSubject("1501 固定资产");
  click(form, "CmdFind");
  pickSubject("1502 累计折旧");
  click(form, "CmdFind");
  EXPECT_EQ(textOf(form, "TxtEdit"), "1501,1502");
  table(form).selectGridRow(1);
  EXPECT_THAT(limits(), ElementsAre("收|1501", "收|1502"));
}

TEST_F(FrmEditPZTypeTest, addsATypeAndStoresItWhenItIsLeft) {
  const FrmEditPZType& form = open();
  write(form, 1, kName, "通用凭证");
  press(form, "增加");
  EXPECT_EQ(stored()[0], "记|1|通用凭证|0") << "the row before is stored first";
  EXPECT_EQ(list(form)[2], "||无限制|");
  EXPECT_TRUE(open(form, "TxtEdit"));
  auto& grid = table(form);
  enter(grid, "TxtEdit", "付");
  enter(grid, "TxtEdit", "付款凭证");
  EXPECT_EQ(stored().size(), 2U);
  table(form).selectGridRow(1);
  EXPECT_EQ(stored()[2], "付|3|付款凭证|0");
  EXPECT_THAT(limits(), ElementsAre("收|1001"));
}

TEST_F(FrmEditPZTypeTest, aChangeInTheCurrentRowIsLostByLeavingTheScreen) {
  const FrmEditPZType& form = open();
  write(form, 2, kName, "收入凭证");
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored()[1], "收|2|收款凭证|1");
}

TEST_F(FrmEditPZTypeTest, deletesATypeWithItsSubjects) {
  const FrmEditPZType& form = open();
  press(form, "增加");
  dialogs.expectYesNo("删除当前选定的凭证吗？", Answer::Yes, Icon::Question, kTitle);
  press(form, "删除");
  EXPECT_EQ(list(form).size(), 2U) << "a new row stands in the grid alone";
  EXPECT_EQ(stored().size(), 2U);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    dialogs.expectYesNo("删除当前选定的凭证吗？", answer, Icon::Question, kTitle);
    press(form, "删除");
  }
  EXPECT_THAT(list(form), ElementsAre("记|记账凭证|无限制|"));
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0"));
  EXPECT_THAT(limits(), IsEmpty());
}

TEST_F(FrmEditPZTypeTest, changesPlaces) {
  const FrmEditPZType& form = open();
  table(form).selectGridRow(1);
  click(form, "CmdSort1");
  EXPECT_EQ(list(form)[0], "记|记账凭证|无限制|") << "the first stays";
  click(form, "CmdSort0");
  EXPECT_THAT(list(form), ElementsAre("收|收款凭证|借方必有|1001", "记|记账凭证|无限制|"));
  EXPECT_EQ(table(form).currentGridRow(), 2U) << "the row that moves stays the current one";
  EXPECT_THAT(stored(), ElementsAre("记|2|记账凭证|0", "收|1|收款凭证|1"));
  click(form, "CmdSort0");
  click(form, "CmdSort1");
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|2|收款凭证|1"));
}

}  // namespace
}  // namespace zelkor::test
