#include "forms/VoucherForms.h"
#include "vouchers/FrmEditPZType.h"
#include "vouchers/FrmSetPZType.h"

namespace zelkor::test {
namespace {

constexpr const char* kLimitMissing = "凭证类别有限制，必须输入限制科目！";
constexpr const char* kPlain = "记|记账凭证|无限制|";
constexpr const char* kLimited = "收|收款凭证|借方必有|1001";
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
  static Lines list(const QWidget& form) { return body(form, "GridDsign"); }
  static void write(const QWidget& form, std::size_t row, std::size_t column, const QString& text,
                    int key = Qt::Key_Return) {
    clickCell(table(form), row, column);
    enter(form, "TxtEdit", text, key);
  }
  static void chooseLimit(const QWidget& form, std::size_t row, const QString& limit) {
    clickCell(table(form), row, kLimit);
    auto& combo = control<QComboBox>(form, "ComboDsignType");
    combo.setCurrentText(limit);
    emit combo.activated(combo.currentIndex());
  }
  void refuses(const char* text) { tells(text, Icon::Information, "提示"); }
  Lines stored() { return rows("select csign,isignseq,ctext,itype from dsign order by I_ID"); }
  Lines limits() { return rows("select csign,ccode from dsigns order by csign,ccode"); }

  ClsBLLPZType types{engine};
};

TEST_F(FrmEditPZTypeTest, keepsAWrongSignOrNameInItsCell) {
  const struct {
    std::size_t column;
    const char* text;
    const char* message;
  } cases[] = {{kSign, " ", "凭证类别字不能为空！"}, {kName, "收款凭证", "类别名称不能重复！"}};
  FrmEditPZType& form = open();
  keepPicture(form, "FrmEditPZType");
  EXPECT_THAT(list(form), ElementsAre(kPlain, kLimited));
  for (const auto& c : cases) {
    refuses(c.message);
    write(form, 1, c.column, c.text);
    EXPECT_TRUE(editing(form, "TxtEdit")) << c.message;
    EXPECT_EQ(textOf(form, "TxtEdit"), c.text);
    clickCell(table(form), 2, kSign);
    EXPECT_EQ(table(form).currentGridRow(), 1U) << "the cell stays";
    sendKey(control<QLineEdit>(form, "TxtEdit"), Qt::Key_Escape);
  }
  EXPECT_THAT(list(form), ElementsAre(kPlain, kLimited));
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
  write(form, 2, kName, "收入凭证");
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(stored()[1], "收|2|收款凭证|1") << "a change in the current row is lost";
}

TEST_F(FrmEditPZTypeTest, wantsSubjectsForALimit) {
  const FrmEditPZType& form = open();
  refuses(kLimitMissing);
  write(form, 2, kCodes, "");
  EXPECT_FALSE(editing(form, "TxtEdit"));
  refuses(kLimitMissing);
  table(form).selectGridRow(1);
  EXPECT_EQ(table(form).currentGridRow(), 2U);
  EXPECT_TRUE(editing(form, "TxtEdit"));
  for (const char* subject : {"1501 固定资产", "1502 累计折旧"}) {
    pickSubject(subject);
    click(form, "CmdFind");
  }
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
  enter(form, "TxtEdit", "付");
  enter(form, "TxtEdit", "付款凭证");
  EXPECT_EQ(stored().size(), 2U);
  table(form).selectGridRow(1);
  EXPECT_EQ(stored()[2], "付|3|付款凭证|0");
  EXPECT_THAT(limits(), ElementsAre("收|1001"));
}

TEST_F(FrmEditPZTypeTest, deletesATypeWithItsSubjects) {
  const FrmEditPZType& form = open();
  press(form, "增加");
  for (const auto& [answer, left] :
       {std::pair{Answer::Yes, 2U}, std::pair{Answer::No, 2U}, std::pair{Answer::Yes, 1U}}) {
    asks("删除当前选定的凭证吗？", answer, "提示");
    press(form, "删除");
    EXPECT_EQ(list(form).size(), left) << "a new row stands in the grid alone";
    EXPECT_EQ(stored().size(), left);
  }
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0"));
  EXPECT_THAT(limits(), IsEmpty());
}

TEST_F(FrmEditPZTypeTest, changesPlaces) {
  const FrmEditPZType& form = open();
  table(form).selectGridRow(1);
  click(form, "CmdSort1");
  EXPECT_THAT(list(form), ElementsAre(kPlain, kLimited)) << "the first stays";
  click(form, "CmdSort0");
  EXPECT_THAT(list(form), ElementsAre(kLimited, kPlain));
  EXPECT_EQ(table(form).currentGridRow(), 2U) << "the row that moves stays the current one";
  EXPECT_THAT(stored(), ElementsAre("记|2|记账凭证|0", "收|1|收款凭证|1"));
  click(form, "CmdSort0");
  click(form, "CmdSort1");
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|2|收款凭证|1"));
}

TEST_F(FrmEditPZTypeTest, aSetAddsItsTypesToWhatIsThere) {
  execute("delete from dsign");
  const auto signsAfter = [this](const char* option, const char* button) {
    auto& form = host.show<FrmSetPZType>(types);
    keepPicture(form, "FrmSetPZType");
    click(form, option);
    click(form, button);
    EXPECT_FALSE(form.isVisible());
    std::string signs;
    for (const std::string& sign : rows("select csign from dsign order by I_ID")) signs += sign;
    return signs;
  };
  EXPECT_EQ(signsAfter("OptType1", "cmdCancel"), "");
  EXPECT_EQ(signsAfter("OptType1", "cmdOK"), "收付转");
  EXPECT_EQ(signsAfter("OptType2", "cmdOK"), "收付转现银转");
  for (const char* withoutRows : {"OptType3", "OptType4"})
    EXPECT_EQ(signsAfter(withoutRows, "cmdOK"), "收付转现银转");
  EXPECT_EQ(signsAfter("OptType0", "cmdOK"), "收付转现银转记");
}

}  // namespace
}  // namespace zelkor::test
