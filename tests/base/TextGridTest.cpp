#include <sstream>

#include "base/TextGrid.h"
#include "base/TextGridPrinter.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using Rows = std::vector<std::vector<std::string>>;

TextGrid sample() {
  TextGrid grid;
  grid.setHeader("部门|内部号|金额");
  grid.addRow({"财务部", "7", "5.00"});
  grid.addRow({"生产部", "8", "12345.60"});
  grid.addRow({"合计", "", "12350.60"});
  grid.setAlignment(2, Align::Right);
  return grid;
}

TEST(TextGrid, GrowsAndShrinks) {
  TextGrid grid = sample();
  EXPECT_EQ(grid.addRow({"a", "b", "c", "d"}), 4U);
  EXPECT_EQ(grid.columns(), 4U);
  EXPECT_EQ(grid.text(0, 3), "");
  grid.removeRow(1);
  EXPECT_EQ(test::textsOf(grid), (Rows{{"部门", "内部号", "金额", ""},
                                       {"生产部", "8", "12345.60", ""},
                                       {"合计", "", "12350.60", ""},
                                       {"a", "b", "c", "d"}}));
  grid.clearBody();
  EXPECT_EQ(grid.rows(), 1U);
  EXPECT_EQ(grid.alignment(2), Align::Right);
}

TEST(TextGrid, OutsideIsASubscriptError) {
  TextGrid grid = sample();
  EXPECT_EQ(test::errorOf([&] { grid.text(4, 0); }), 9);
  EXPECT_EQ(test::errorOf([&] { grid.setText(0, 3, ""); }), 9);
  EXPECT_EQ(test::errorOf([&] { grid.setColumnHidden(3, true); }), 9);
  EXPECT_EQ(test::errorOf([&] { grid.removeRow(4); }), 9);
}

TEST(TextGrid, PrintsWhatIsVisible) {
  TextGrid grid = sample();
  grid.setColumnHidden(1, true);
  grid.setRowHidden(1, true);
  grid.setCentred(0, 2, true);
  std::ostringstream out;
  printGrid(out, grid);
  EXPECT_EQ(out.str(),
            "部门      金额\n"
            "----------------\n"
            "生产部  12345.60\n"
            "合计    12350.60\n");
  std::ostringstream none;
  printGrid(none, TextGrid());
  EXPECT_EQ(none.str(), "");
}

}  // namespace
}  // namespace zelkor
