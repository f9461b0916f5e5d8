#include "closing/frmWaiting.h"
#include "closing/frmYMJZ.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

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

}  // namespace
}  // namespace zelkor::test
