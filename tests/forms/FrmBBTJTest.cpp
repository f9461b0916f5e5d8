#include "reports/ConditionPages.h"
#include "reports/FrmBBTJ.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

std::string numbered(const char* name, std::size_t index) {
  return name + std::to_string(index);
}

/// The account set holds the archives alone. Operating date 2020-05-15.
class FrmBBTJTest : public FormTest {
 protected:
  FrmBBTJ& open(const std::string& report) { return host.show<FrmBBTJ>(*findReport(report), view); }
  Lines memos() { return rows("select dDate,sOperater,mMemo from Fa_log"); }
  static void confirm(const QWidget& form, ConditionPage page) {
    click(form, numbered("CmdYes", numberOf(page)).c_str());
  }
  /// Confirms a report that is computed, and looks at it.
  static void lookAt(const QWidget& form, ConditionPage page, const std::function<void(QWidget&)>& look) {
    inModalForm([&look](QWidget& shown) {
      look(shown);
      shown.close();
    });
    confirm(form, page);
  }
  static void pick(const QWidget& form, const char* button, const QString& entry) {
    pickNext("TvAssentTypes", entry, "CmdOK");
    click(form, button);
  }
  /// Another month in each period list: 2020.01 in the first, 2020.12 in the twelfth, then from the start.
  static void spreadPeriods(const QWidget& form) {
    for (std::size_t i = 0; i < 21; ++i) {
      control<QComboBox>(form, numbered("Combo1", i).c_str()).setCurrentIndex(static_cast<int>(i % 12));
    }
  }
  static Lines textsOfAll(const QWidget& form, const char* name, std::size_t count) {
    Lines texts;
    for (std::size_t i = 0; i < count; ++i) texts.push_back(textOf(form, numbered(name, i).c_str()));
    return texts;
  }

  ReportView view;
};

TEST_F(FrmBBTJTest, bringsThePageOfEachReportToTheFront) {
  for (const ReportKind& kind : reportKinds()) {
    SCOPED_TRACE(kind.name);
    FrmBBTJ& form = open(std::string(kind.name));
    keepPicture(form, "FrmBBTJ-" + std::to_string(numberOf(kind.page)));
    EXPECT_EQ(form.windowTitle().toStdString(), "条件 - [" + std::string(kind.name) + "]");
    for (std::size_t page = 0; page < conditionPages.size(); ++page) {
      const auto& panel = control<QWidget>(form, numbered("Picture1", page).c_str());
      EXPECT_EQ(panel.isVisible(), page == numberOf(kind.page)) << page;
      for (const char* button : {"CmdYes", "CmdCancel"}) {
        EXPECT_TRUE(panel.findChild<QWidget*>(numbered(button, page).c_str())) << button;
      }
    }
    form.close();
  }
}

TEST_F(FrmBBTJTest, givesTheReportWhatItsListsHold) {
  const struct {
    const char* report;
    const char* memo;
    Lines captions;
  } cases[] = {
      {"(固定资产原值)一览表", "2020.03", {"期间：", "汇总部门：1---2", ""}},
      {"(单个)固定资产明细账",
       "2020.10,动力设备,一车间",
       {"期间：2020.11 --- 2020.12", "资产类别：动力设备", "使用部门：一车间"}},
      {"固定资产及累计折旧表(二)", "2020.12,动力设备", {"期间：", "汇总部门：1---2", ""}},
      {"固定资产折旧计算明细表", "2020.01,一车间", {"期间：", "使用部门：一车间", "汇总类别1---2"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.report);
    execute("delete from Fa_log");
    const FrmBBTJ& form = open(c.report);
    spreadPeriods(form);
    choose(form, "Combo21", "2");
    choose(form, "Combo23", "2");
    pick(form, "CmdCXBMMC0", "一车间");
    pick(form, "CmdCXLBMC0", "动力设备");
    lookAt(form, findReport(c.report)->page, [&c](QWidget& shown) {
      EXPECT_EQ(shown.objectName(), "FrmBBXS");
      EXPECT_EQ(textOf(shown, "Label10"), "使用单位：示例机械制造有限公司");
      EXPECT_EQ(control<QComboBox>(shown, "Combo1").currentText(), "2020.02") << "the second list";
      EXPECT_EQ((Lines{textOf(shown, "Label3"), textOf(shown, "Label11"), textOf(shown, "Label12")}),
                c.captions);
    });
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(view.periods.empty()) << "closing the report has unloaded it";
    EXPECT_EQ(memos(), Lines{std::string("2020-5-15|陈会计|固定资产：") + c.report + "," + c.memo});
  }
}

TEST_F(FrmBBTJTest, givesTheReportWhatItsOptionsSay) {
  const FrmBBTJ& composition = open("部门构成分析表");
  EXPECT_TRUE(control<QAbstractButton>(composition, "Option1").isChecked());
  click(composition, "Option2");
  lookAt(composition, ConditionPage::Composition,
         [](QWidget& shown) { EXPECT_EQ(textOf(shown, "Label11"), "类别级次：明细级"); });
  EXPECT_EQ(memos(), Lines{});
  const FrmBBTJ& statistics = open("固定资产统计表");
  choose(statistics, "ComboLBJC", "第 4 级");
  click(statistics, "Option32");
  lookAt(statistics, ConditionPage::Statistics, [](QWidget& shown) {
    EXPECT_FALSE(control<QWidget>(shown, "Label11").isVisible());
    EXPECT_EQ(textOf(shown, "Label12"), "类别级次：第 4 级");
    EXPECT_TRUE(control<FlexGrid>(shown, "MSFlexGrid1").isColumnHidden(0));
  });
}

TEST_F(FrmBBTJTest, writesWhatIsPickedToTheLabelsOfOtherPages) {
  const FrmBBTJ& form = open("评估变动表");
  pick(form, "CmdCXLBMC0", "动力设备");
  EXPECT_EQ(textsOfAll(form, "LblLBMC", 6), (Lines{"", "", "动力设备", "动力设备", "动力设备", "动力设备"}));
  EXPECT_EQ(textsOfAll(form, "LblBMMC", 5), (Lines{"", "", "", "", ""}));
  execute("update fa_Departments set sName='三 号 车间' where sNum='303'");
  pick(form, "CmdCXBMMC3", "三 号 车间");
  EXPECT_EQ(textsOfAll(form, "LblBMMC", 5), (Lines{"", "号 车间", "号 车间", "号 车间", "号 车间"}))
      << "what stands behind the first blank";
  execute("update fa_Departments set sName='-1' where sNum='303'");
  pick(form, "CmdCXBMMC3", "-1");
  EXPECT_EQ(textOf(form, "LblBMMC1"), "号 车间") << "such a name changes nothing";
  EXPECT_TRUE(form.isVisible());
}

TEST_F(FrmBBTJTest, closesWithoutAReportHoweverItIsLeft) {
  auto ways = waysToLeave("CmdCancel9");
  for (const char* picker : {"CmdCXBMMC2", "CmdCXLBMC3"}) {
    ways.push_back([picker](QWidget& form) {
      leaveNext();
      click(form, picker);
    });
  }
  for (const auto& leave : ways) {
    FrmBBTJ& form = open("(单个)固定资产明细账");
    leave(form);
    EXPECT_FALSE(form.isVisible());
  }
  EXPECT_EQ(memos(), Lines{});
  EXPECT_EQ(view.periods.size(), 0u) << "the view was not touched";
}

TEST_F(FrmBBTJTest, closesAtOnceWhereNothingIsComputed) {
  const FrmBBTJ& inventory = open("盘盈盘亏报告表");
  confirm(inventory, ConditionPage::Inventory);
  EXPECT_FALSE(inventory.isVisible());
  EXPECT_EQ(view.periods.size(), 12u) << "the view stays loaded with what was written into it";
  const FrmBBTJ& overAge = open("逾龄资产统计表");
  choose(overAge, "Combo11", "2020.06");
  dialogs.expectOk("您已完成查询 [逾龄资产统计表]的操作。\r\r会计期间为：2020.06", Icon::Information,
                   "会计电算化考试专用");
  confirm(overAge, ConditionPage::SinglePeriod);
  EXPECT_FALSE(overAge.isVisible());
}

TEST_F(FrmBBTJTest, keepsOnlyTheFirstPairOfLevelsInOrder) {
  const FrmBBTJ& form = open("(固定资产原值)一览表");
  const auto level = [&form](const char* list) {
    return control<QComboBox>(form, list).currentText().toStdString();
  };
  choose(form, "Combo20", "2");
  EXPECT_EQ(level("Combo20") + level("Combo21"), "11");
  choose(form, "Combo21", "2");
  choose(form, "Combo20", "2");
  EXPECT_EQ(level("Combo20") + level("Combo21"), "22");
  choose(form, "Combo21", "1");
  EXPECT_EQ(level("Combo20") + level("Combo21"), "11");
  for (const char* from : {"Combo22", "Combo24"}) {
    choose(form, from, "2");
    EXPECT_EQ(level(from), "2");
  }
}

TEST_F(FrmBBTJTest, locksTheLevelsThatALayoutDoesNotShow) {
  const FrmBBTJ& form = open("固定资产统计表");
  const struct {
    const char* layout;
    bool departments;
    bool types;
  } cases[] = {{"Option31", true, false}, {"Option32", false, true}, {"Option30", true, true}};
  for (const auto& c : cases) {
    click(form, c.layout);
    EXPECT_EQ(isEnabled(form, "ComboBMJC"), c.departments) << c.layout;
    EXPECT_EQ(isEnabled(form, "ComboLBJC"), c.types) << c.layout;
  }
}

}  // namespace
}  // namespace zelkor::test
