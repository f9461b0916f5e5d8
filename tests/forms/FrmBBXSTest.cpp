#include <QLabel>

#include "reports/FrmBBXS.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class FrmBBXSTest : public FormTest {
 protected:
  static ReportView report() {
    ReportView view;
    view.title = "部门构成分析表";
    view.unitLine = "使用单位：某<b>厂";
    view.conditionLines = {{{"类别级次：第1级", true}, {"第二行", true}}};
    view.periods = {"2020.01", "2020.02"};
    view.selectedPeriod = 1;
    view.grid = TextGrid(0, 0);
    view.grid.setHeader("部门|原值");
    view.grid.setAlignment(1, Align::Right);
    view.grid.setColumnWidth(0, 3000);
    view.grid.addRow({"一车间", "12.00"});
    view.grid.addRow({"　合　计", "123456789012345.00"});
    return view;
  }
  FrmBBXS& open(ReportView view) { return host.show<FrmBBXS>(std::move(view)); }
  static bool shown(const QWidget& form, const char* name) {
    return control<QWidget>(form, name).isVisible();
  }
  static int left(const QWidget& form, const char* name) { return control<QWidget>(form, name).x(); }
};

TEST_F(FrmBBXSTest, showsTheCaptionsAndTheGrid) {
  const FrmBBXS& form = open(report());
  EXPECT_EQ(textOf(form, "lblTitle"), "部门构成分析表");
  EXPECT_EQ(textOf(form, "Label10"), "使用单位：某<b>厂");
  EXPECT_EQ(control<QLabel>(form, "Label10").textFormat(), Qt::PlainText);
  EXPECT_EQ(textOf(form, "Label11") + textOf(form, "Label12"), "类别级次：第1级第二行");
  EXPECT_EQ(textOf(form, "Label3"), "期间：");
  EXPECT_EQ(control<QComboBox>(form, "Combo1").currentText(), "2020.02");
  const auto& grid = control<FlexGrid>(form, "MSFlexGrid1");
  EXPECT_EQ(grid.grid().text(2, 1), "123456789012345.00");
  EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width()) << "the name takes the rest";
  EXPECT_GT(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("123456789012345.00"))
      << "the total is wider than the column was told to be";
  choose(form, "Combo1", "2020.01");
  EXPECT_EQ(grid.grid().rows(), 3u) << "the list of periods does nothing";
}

TEST_F(FrmBBXSTest, hidesAndMovesWhatTheReportHidesAndMoves) {
  ReportView ledger = report();
  ledger.periodListVisible = false;
  ledger.periodCaption = "";
  const FrmBBXS& withoutPeriod = open(std::move(ledger));
  EXPECT_FALSE(shown(withoutPeriod, "Combo1"));
  EXPECT_EQ(textOf(withoutPeriod, "Label3"), "");
  const int first = left(withoutPeriod, "Label11");
  const int second = left(withoutPeriod, "Label12");
  EXPECT_LT(first, second);

  ReportView statistics = report();
  statistics.conditionLines[0].visible = false;
  const FrmBBXS& hidden = open(statistics);
  EXPECT_FALSE(shown(hidden, "Label11"));
  EXPECT_EQ(left(hidden, "Label12"), second) << "it stays where it is";
  statistics.secondLineMovedUp = true;
  EXPECT_EQ(left(open(statistics), "Label12"), first);
}

TEST_F(FrmBBXSTest, keepsTheFirstColumnInPlaceWhenTheOthersAreMoved) {
  ReportView wide = report();
  wide.grid.setHeader("部门|一|二|三|四|五|六|七");
  for (std::size_t column = 0; column < 8; ++column) wide.grid.setColumnWidth(column, 3000);
  wide.grid.setColumnMerged(0, true);
  wide.grid.setText(2, 0, "一车间");
  FrmBBXS& form = open(std::move(wide));
  const FlexGrid& grid = gridOf(form, "MSFlexGrid1");
  auto& frozen = *grid.findChild<QTableView*>();
  EXPECT_TRUE(frozen.isHidden());
  grid.horizontalScrollBar()->setValue(250);
  keepPicture(form, "FrmBBXS-moved");
  EXPECT_TRUE(frozen.isVisible());
  EXPECT_EQ(frozen.geometry().left(), grid.viewport()->geometry().left());
  EXPECT_EQ(frozen.geometry().bottom(), grid.viewport()->geometry().bottom());
  EXPECT_EQ(frozen.rowSpan(0, 0), 2);
  EXPECT_EQ(frozen.indexAt({4, 4}), grid.model()->index(0, 0));
}

TEST_F(FrmBBXSTest, endsTheProcessWhenNoHeightIsLeftForTheGrid) {
  FrmBBXS& form = open(report());
  const int least = 1900 * form.logicalDpiY() / 1440;
  form.resize(400, least);
  settle();
  EXPECT_EQ(endStatus(), -1);
  dialogs.expectOk("实时错误 '380':\n无效属性值", Icon::Critical);
  form.resize(400, least - 1);
  settle();
  EXPECT_EQ(endStatus(), 1);
}

}  // namespace
}  // namespace zelkor::test
