#include "base/GridSpans.h"
#include "support/Widgets.h"
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
  EXPECT_EQ(view.model()->rowCount(), 3);
  EXPECT_EQ(view.columnWidth(1), 2 * view.logicalDpiX()) << "2880 twips are two inches";
  EXPECT_TRUE(view.isColumnHidden(3));
  EXPECT_TRUE(view.isRowHidden(2));
  EXPECT_EQ(view.rowSpan(0, 0), 2);
  EXPECT_EQ(view.model()->data(view.model()->index(1, 1), Qt::TextAlignmentRole).toInt() & Qt::AlignRight,
            Qt::AlignRight);
  grid.setRowHidden(4, false);
  view.setGrid(grid);
  EXPECT_FALSE(view.isRowHidden(2)) << "nothing stays from the grid before";
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
