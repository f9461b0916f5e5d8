#include <QItemSelectionModel>

#include "closing/frmDelZC.h"
#include "closing/frmReduceBLL.h"
#include "closing/frmWaiting.h"
#include "closing/frmYMJZ.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

/// Three cards in service, the month's depreciation run.
class DisposalScreensTest : public FormTest {
 protected:
  DisposalScreensTest() {
    execute("update AccInformation set cValue='false' where cName='bNeedDepr'");
    for (const std::string number : {"1", "2", "3"}) {
      execute(
          "insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName,sDeprMethodID,dInputDate,lOptID) "
          "values ('" +
          number + "','0000" + number + "','A" + number + "','车床','2',#2020-1-1#," + number + ")");
      execute("insert into fa_DeprTransactions (sCardNum) values ('0000" + number + "')");
    }
  }
  static FlexGrid& list(const QWidget& form) { return gridOf(form, "MSFZCJS"); }
  static Lines listed(const QWidget& form) { return body(form, "MSFZCJS"); }
  /// Presses a button that opens the card picker and takes these rows there.
  static void take(const QWidget& form, const char* button, const std::vector<std::size_t>& cards) {
    inModalForm([&cards](QWidget& picker) {
      auto& offered = gridOf(picker, "mshTable");
      for (const std::size_t card : cards) {
        offered.selectionModel()->setCurrentIndex(offered.cellIndex(card, 0),
                                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
      }
      click(picker, "cmdOK");
    });
    click(form, button);
  }
  static void chooseWay(FlexGrid& grid, std::size_t row, const QString& way) {
    pickNext("TreeView1", way, "cmdYes");
    clickCell(grid, row, 4);
  }
  static void enterText(FlexGrid& grid, std::size_t row, std::size_t column, const QString& text) {
    clickCell(grid, row, column);
    enter(grid, "txtEdit", text);
  }
};

TEST_F(DisposalScreensTest, waitsForTheMonthsDepreciation) {
  execute("update AccInformation set cValue='True' where cName='bNeedDepr'");
  tells("本账套需要进行计提折旧后，才能减少资产！", Icon::Information);
  host.dispatch([&] { host.show<frmDelZC>(); });
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(DisposalScreensTest, takesCardsFromThePicker) {
  const frmDelZC& form = host.show<frmDelZC>();
  EXPECT_FALSE(isEnabled(form, "cmdOK") || isEnabled(form, "cmdRemove")) << "nothing stands in the list";
  inModalForm([](QWidget& picker) {
    EXPECT_FALSE(isEnabled(picker, "cmdOK")) << "nothing is selected yet";
    gridOf(picker, "mshTable").selectGridRow(2);
    sendKey(gridOf(picker, "mshTable"), Qt::Key_Return);
  });
  click(form, "cmdAdd");
  EXPECT_EQ(listed(form), Lines{"00002|A2|车床|2020-6-1||||"}) << "the system's date, not the login's";
  take(form, "cmdAdd", {1, 2, 3});
  EXPECT_EQ(listed(form), (Lines{"00002|A2|车床|2020-6-1||||", "00001|A1|车床|2020-6-1||||"}))
      << "up to the first that is there";
  take(form, "cmdKP", {3});
  EXPECT_EQ(listed(form).back(), "00003|A3|车床|||||");
  EXPECT_EQ(textsOf(form, {"txtKPCode", "txtZCCode"}), "00003|A3");

  list(form).selectGridRow(2);
  click(form, "cmdRemove");
  EXPECT_EQ(listed(form), (Lines{"00002|A2|车床|2020-6-1||||", "00003|A3|车床|||||"}));
  for (int i = 0; i < 2; ++i) click(form, "cmdRemove");
  EXPECT_FALSE(isEnabled(form, "cmdOK") || isEnabled(form, "cmdRemove"));

  type(form, "txtKPCode", "");
  inModalForm([](QWidget& picker) {
    std::string hidden;
    for (const int row : {0, 1, 2}) hidden += gridOf(picker, "mshTable").isRowHidden(row) ? "1" : "0";
    EXPECT_EQ(hidden, "110") << "the asset number is that of the third";
    sendKey(picker, Qt::Key_Escape);
  });
  click(form, "cmdTJ");
  EXPECT_EQ(listed(form), Lines{});
}

TEST_F(DisposalScreensTest, disposesOfTheListAndEnds) {
  frmDelZC& form = host.show<frmDelZC>();
  FlexGrid& grid = list(form);
  take(form, "cmdAdd", {1, 2});
  chooseWay(grid, 1, "201 出售");
  chooseWay(grid, 2, "205 报废");
  for (const auto& [column, text] : {std::pair{5, "12.5x"}, {6, "3"}, {7, "更新设备"}})
    enterText(grid, 1, static_cast<std::size_t>(column), text);
  clickCell(grid, 2, 7);
  type(grid, "txtEdit", "a");
  keepPicture(form, "frmDelZC");
  EXPECT_EQ(listed(form),
            (Lines{"00001|A1|车床|2020-6-1|出售|12.5|3|更新设备", "00002|A2|车床|2020-6-1|报废|||"}));
  tells("所选卡片已减少成功！", Icon::Information);
  click(form, "cmdOK");
  EXPECT_EQ(listed(form), Lines{});
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(rows("select sCardNum,memReason,dblAfterValue,dblTransValue from fa_CardsSheets order by sID"),
            (Lines{"00001|更新设备|12.5|3", "00002|a|~|~"}))
      << "what is being typed counts";
}

TEST_F(DisposalScreensTest, keepsTheDateAndTheWayWhenTheirPickerIsLeft) {
  const frmDelZC& form = host.show<frmDelZC>();
  take(form, "cmdAdd", {1});
  chooseWay(list(form), 1, "201 出售");
  for (const std::size_t column : {3, 4}) {
    leaveNext();
    clickCell(list(form), 1, column);
  }
  EXPECT_EQ(listed(form), Lines{"00001|A1|车床|2020-6-1|出售|||"});
  inModalForm([](QWidget& picker) {
    control<QCalendarWidget>(picker, "").setSelectedDate(QDate(2020, 5, 31));
    click(picker, "cmdOk");
  });
  list(form).selectCell(1, 3);
  sendKey(list(form), Qt::Key_Return);
  EXPECT_EQ(listed(form), Lines{"00001|A1|车床|2020-5-31|出售|||"});
}

TEST_F(DisposalScreensTest, keepsTheListWhereAWayIsMissing) {
  const frmDelZC& form = host.show<frmDelZC>();
  take(form, "cmdAdd", {1});
  dialogs.expectOk("00001卡片未填写减少方式！", Icon::Information);
  click(form, "cmdOK");
  EXPECT_EQ(listed(form).size(), 1u);
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(DisposalScreensTest, stampsTheCardsOfThePlainScreen) {
  frmReduceBLL& form = host.show<frmReduceBLL>();
  FlexGrid& grid = gridOf(form, "mshTable");
  take(form, "cmdAdd", {1, 2, 3});
  for (const std::size_t row : {1, 2, 3}) chooseWay(grid, row, "205 报废");
  enterText(grid, 1, 7, "损坏");
  enterText(grid, 3, 7, "it's");
  keepPicture(form, "frmReduceBLL");
  dialogs.expectOk("所选卡片已经减少成功！", Icon::Exclamation);
  dialogs.expectOk("00002卡片信息填写不完整！");
  dialogs.expectOk("所选卡片减少失败！", Icon::Exclamation);
  click(form, "cmdOK");
  EXPECT_EQ(body(form, "mshTable"),
            (Lines{"00002|A2|车床|2020-6-1|报废|||", "00003|A3|车床|2020-6-1|报废|||it's"}));
  EXPECT_EQ(rows("select sCardNum,sOrgDisposeID,sDisposeReason from fa_Cards where not dDisposeDate is null"),
            Lines{"00001|205|损坏"});
  click(form, "cmdCancel");
  EXPECT_EQ(endStatus(), -1);
}

class frmYMJZTest : public FormTest {
 protected:
  frmYMJZTest() {
    execute("insert into fa_Cards (sCardID,sCardNum,lUsedMonths) values ('1','00001',3)");
    execute("insert into fa_DeprTransactions (sCardNum,dblDeprT5) values ('00001',12.5)");
  }
  void expectReconciliation() {
    tells(
        "固定资产账套原值：\n账务账套原值：0.00\n固定资产账套累计折旧：\n账务账套累计折旧：0.00\n"
        "结果：平衡",
        Icon::Information, "与账务对账结果");
  }
  static QWidget* waitingForm() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "frmWaiting") return window;
    }
    return nullptr;
  }
};

TEST_F(frmYMJZTest, closesTheMonthBehindTheWaitingScreen) {
  expectReconciliation();
  tells("月末结账成功完成！\n开始时间:2020-6-1 8:30:00\n结束时间:2020-6-1 8:30:00", Icon::Information);
  dialogs.expectOk(
      "本账套最新可修改日期已经更改为2020-6-1 "
      "，而您现在的登录日期为2020-5-15,您不能对此账套的任何数据进行修改！\n"
      "如果要进行下一会计期间的业务，请使用‘系统—>重新注册’菜单重新登录！",
      Icon::Information);
  frmYMJZ& form = host.show<frmYMJZ>();
  std::vector<std::string> shown;
  QTimer::singleShot(0, &form, [&] {
    QWidget* waiting = waitingForm();
    ASSERT_NE(waiting, nullptr);
    keepPicture(*waiting, "frmWaiting");
    EXPECT_TRUE(waiting->isVisible());
    EXPECT_FALSE(form.isVisible());
    shown.push_back(textOf(*waiting, "lblPercent"));
    QObject::connect(waiting->findChild<QProgressBar*>("probar"), &QProgressBar::valueChanged, waiting,
                     [&, waiting](int value) {
                       shown.push_back(textOf(*waiting, "lblPercent") + " " + std::to_string(value));
                     });
  });
  click(form, "cmdStart");
  EXPECT_EQ(shown, (std::vector<std::string>{"1%", "30% 30", "50% 50", "89% 89", "100% 100"}));
  EXPECT_EQ(waitingForm(), nullptr);
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(row("select dblDeprT6 from fa_DeprTransactions"), "12.5");
}

TEST_F(frmYMJZTest, comesBackWhenTheClosingFails) {
  execute("update fa_DeprTransactions set dblDeprT5=Null");
  expectReconciliation();
  frmYMJZ& form = host.show<frmYMJZ>();
  keepPicture(form, "frmYMJZ");
  click(form, "cmdStart");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(waitingForm(), nullptr);
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(frmYMJZTest, leavesTheMonthOpenWhenCancelled) {
  for (const auto& leave : waysToLeave("cmdCancel")) {
    frmYMJZ& form = host.show<frmYMJZ>();
    leave(form);
    EXPECT_FALSE(form.isVisible());
  }
  EXPECT_EQ(endStatus(), -1);
  EXPECT_FALSE(db().HasTable("ZKFA_BAK_fa_Cards_5"));
}

}  // namespace
}  // namespace zelkor::test
