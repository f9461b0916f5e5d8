#include <QClipboard>
#include <QHeaderView>

#include "base/GridSpans.h"
#include "support/Widgets.h"
#include "ui/GridFindBar.h"
#include "ui/TreeLoader.h"

namespace zelkor::test {
namespace {

TextGrid sampleGrid() {
  TextGrid grid;
  grid.addRow({"名称", "本月", "本月", "状态"});
  grid.addRow({"名称", "原值", "折旧", "状态"});
  grid.addRow({"车床", "100.00", "1.00", "在用"});
  grid.addRow({"车床", "200.00", "2.00", "在用"});
  grid.addRow({"铣床", "300.00", "3.00", "在用"});
  grid.setHeaderRows(2);
  grid.setRowMerged(0, true);
  grid.setColumnMerged(0, true);
  grid.setColumnWidth(1, 2880);
  grid.setAlignment(1, Align::Right);
  return grid;
}

TEST(GridSpansTest, mergesEqualNeighboursWhereTheGridSaysSo) {
  const TextGrid grid = sampleGrid();
  EXPECT_EQ(mergedCells(grid, 0, 1, 0, 1), (CellSpan{0, 1, 0, 2}));
  EXPECT_EQ(mergedCells(grid, 0, 2, 0, 1), (CellSpan{0, 1, 0, 2}));
  EXPECT_EQ(mergedCells(grid, 1, 0, 0, 1), (CellSpan{0, 0, 1, 0}));
  EXPECT_EQ(mergedCells(grid, 2, 0, 2, 4), (CellSpan{2, 0, 3, 0}));
  EXPECT_TRUE(mergedCells(grid, 2, 3, 2, 4).isSingle()) << "column 3 is not merged";
}

TEST(FlexGridTest, showsTheGridAsItIs) {
  FlexGrid view;
  TextGrid grid = sampleGrid();
  grid.setRowHidden(4, true);
  grid.setColumnHidden(3, true);
  view.setGrid(grid);
  EXPECT_EQ(view.model()->rowCount(), 2) << "a hidden row is left out";
  EXPECT_EQ(view.columnWidth(1), 2 * view.logicalDpiX()) << "2880 twips are two inches";
  EXPECT_TRUE(view.isColumnHidden(3));
  EXPECT_EQ(view.rowSpan(0, 0), 2);
  EXPECT_EQ(view.model()->data(view.model()->index(1, 1), Qt::TextAlignmentRole).toInt() & Qt::AlignRight,
            Qt::AlignRight);
  grid.setRowHidden(4, false);
  view.setGrid(grid);
  EXPECT_EQ(view.model()->rowCount(), 3) << "nothing stays from the grid before";
}

TEST(FlexGridTest, tellsRowsByTheGridsNumbers) {
  FlexGrid view;
  TextGrid grid = sampleGrid();
  grid.setColumnMerged(0, false);
  view.setGrid(grid);
  std::vector<std::size_t> selected;
  std::vector<std::size_t> opened;
  QObject::connect(&view, &FlexGrid::rowSelected, [&](std::size_t row) { selected.push_back(row); });
  QObject::connect(&view, &FlexGrid::rowOpened, [&](std::size_t row) { opened.push_back(row); });
  EXPECT_FALSE(view.currentGridRow());
  view.selectGridRow(4);
  sendKey(view, Qt::Key_Up);
  sendKey(view, Qt::Key_Return);
  EXPECT_EQ(selected, (std::vector<std::size_t>{4, 3}));
  EXPECT_EQ(opened, (std::vector<std::size_t>{3}));
}

/// A list with a hidden row and a total.
class FoundListTest : public testing::Test {
 protected:
  FoundListTest() {
    TextGrid grid;
    grid.setHeader("编号|名称|日期|原值");
    grid.setAlignment(3, Align::Right);
    grid.addRow({"00001", "铣床", "2020-4-1", "1,000.00"});
    grid.addRow({"00002", "车床\t旧", "2020-10-1", "200.00"});
    grid.addRow({"00003", "没有", "2020-1-1", "1.00"});
    grid.addRow({"00012", "车床", "2019-12-31", "30.00"});
    grid.setRowHidden(3, true);
    grid.setTotal(grid.addRow({"合计", "", "", "1,230.00"}));
    list.setGrid(std::move(grid));
    QObject::connect(&list, &FlexGrid::rowSelected, [this](std::size_t row) { selected.push_back(row); });
    QObject::connect(&list, &FlexGrid::rowOpened, [this](std::size_t row) { opened.push_back(row); });
  }
  std::string shown() const {
    std::string numbers;
    for (int row = 0; row < list.model()->rowCount(); ++row)
      numbers += list.model()->index(row, 0).data().toString().toStdString() + " ";
    return numbers;
  }
  void clickHeading(int column) { emit list.horizontalHeader()->sectionClicked(column); }

  QWidget form;
  FlexGrid list;
  std::vector<std::size_t> selected;
  std::vector<std::size_t> opened;
};

TEST_F(FoundListTest, sortsByAHeadingAndBackToItsOwnOrder) {
  list.makeSortable();
  const std::string own = "00001 00002 00012 合计 ";
  const struct {
    int column;
    std::string shown;
  } clicks[] = {{3, "00012 00002 00001 合计 "},
                {3, "00001 00002 00012 合计 "},
                {3, own},
                {2, "00012 00001 00002 合计 "},
                {2, "00002 00001 00012 合计 "},
                {1, "00012 00002 00001 合计 "},
                {1, "00001 00002 00012 合计 "},
                {1, own}};
  list.selectGridRow(2);
  for (const auto& click : clicks) {
    clickHeading(click.column);
    EXPECT_EQ(shown(), click.shown) << click.column;
    EXPECT_EQ(list.currentGridRow(), 2U) << "the same row, wherever it stands";
  }
  clickHeading(3);
  TextGrid more(0, 4);
  more.addRow({"00099", "新", "", "40.00"});
  list.addRows(std::move(more));
  list.sortRowsAgain();
  EXPECT_EQ(shown(), "00012 00099 00002 00001 合计 ");
  list.setGrid(list.grid());
  EXPECT_EQ(shown(), "00012 00099 00002 00001 合计 ") << "sorted as before under the same header";
}

TEST_F(FoundListTest, findsRowsAsOneTypes) {
  GridFindBar bar(
      list, "", [this](std::size_t row) { return list.grid().text(row, 0) + list.grid().text(row, 1); },
      &form);
  const struct {
    const char* typed;
    const char* shown;
    std::size_t current;
  } cases[] = {
      {"车", "00002 00012 ", 2}, {"床 00012", "00012 ", 4},         {"没有", "", 0},
      {"合计", "", 0},           {"　床　0000", "00001 00002 ", 1}, {"", "00001 00002 00012 合计 ", 1}};
  for (const auto& each : cases) {
    bar.searchFor(each.typed);
    EXPECT_EQ(shown(), each.shown) << each.typed;
    EXPECT_EQ(list.currentGridRow().value_or(0), each.current) << each.typed;
  }
  auto& field = *bar.findChild<QLineEdit*>();
  bar.searchFor("车");
  sendKey(field, Qt::Key_Down);
  sendKey(field, Qt::Key_Down);
  sendKey(field, Qt::Key_Return);
  EXPECT_EQ(opened, (std::vector<std::size_t>{4})) << "the last one that was found";
  field.selectAll();
  sendKey(field, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "车") << "a field's own text, no rows";
  TextGrid more(0, 4);
  more.addRow({"00013", "车"});
  list.addRows(std::move(more));
  EXPECT_EQ(shown(), "00002 00012 00013 ");
  list.setGrid(sampleGrid());
  EXPECT_EQ(shown(), "车床 车床 ");
  sendKey(field, Qt::Key_Escape);
  EXPECT_EQ(shown(), "车床 车床 铣床 ");
  EXPECT_TRUE(bar.isHidden());
}

TEST_F(FoundListTest, goesToTheRowThatBeginsWithWhatIsTyped) {
  for (const char* key : {"1", "2"}) sendKey(list, *key, Qt::NoModifier, key);
  EXPECT_EQ(selected, (std::vector<std::size_t>{1, 4})) << "the noughts in front are not typed";
}

TEST_F(FoundListTest, copiesTheSelectedRowsForASpreadsheet) {
  list.setColumnHidden(2, true);
  sendKey(list, Qt::Key_A, Qt::ControlModifier);
  sendKey(list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "00001\t铣床\t1,000.00\n00002\t车床 旧\t200.00\n00012\t车床\t30.00\n合计\t\t1,230.00\n");
}

TEST_F(FoundListTest, hasTheCurrentRowAmongTheSelectedOnes) {
  list.selectGridRow(1);
  const auto turn = [this](int row) {
    list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                           QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
  };
  turn(1);
  EXPECT_EQ(list.selectedGridRows(), (std::vector<std::size_t>{1, 2}));
  turn(1);
  EXPECT_EQ(list.currentGridRow(), 1U) << "row 2 is no longer selected";
  sendKey(list, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(list.selectedGridRows(), (std::vector<std::size_t>{2}));
}

TEST(TreeLoaderTest, hangsRowsWhoseParentIsMissingBelowTheRoot) {
  QWidget form;
  QTreeWidget tree(&form);
  tree.setObjectName("tree");
  const std::vector<TreeRow> rows = {{"R", "", "目录"},      {"D11", "D1", "孙", "11"},
                                     {"D1", "R", "子", "1"}, {"D9", "D8", "孤", "9"},
                                     {"Da", "Db", "甲"},     {"Db", "Da", "乙"}};
  loadTree(tree, rows);
  EXPECT_EQ(nodesOf(form, "tree"), (Lines{"目录", "  子", "    孙", "  孤", "  乙", "    甲"}));
  ASSERT_NE(findByKey(tree, "d11"), nullptr);
  EXPECT_EQ(tagOf(*findByKey(tree, "D11")), "11");
  const auto looks = [](const QTreeWidgetItem* item) { return item->icon(0).pixmap(16).toImage(); };
  EXPECT_NE(looks(findByKey(tree, "D9")), looks(findByKey(tree, "D1")));
  addTreeRow(*findByKey(tree, "D9"), {"D91", "D9", "新"});
  EXPECT_EQ(looks(findByKey(tree, "D9")), looks(findByKey(tree, "D1"))) << "a new parent looks like one";
}

}  // namespace
}  // namespace zelkor::test
