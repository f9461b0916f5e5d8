#include <algorithm>
#include <cmath>
#include <map>

#include "paper/PagedTable.h"
#include "paper/TextLines.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

/// Wide characters are as wide as the letters' size, others half of that.
TextWidths plainWidths() {
  return TextWidths([](char32_t character, Face) { return character < 0x2E80 ? 0.5 : 1.0; });
}

std::string joined(const std::vector<std::string_view>& lines) {
  std::string all;
  for (const std::string_view line : lines) all += (all.empty() ? "" : "|") + std::string(line);
  return all;
}

TEST(TextLinesTest, BreaksWhereAReaderWould) {
  struct Case {
    const char* text;
    double width;
    const char* lines;
  };
  const Case cases[] = {{"", 3, ""},
                        {"一二三四五", 3, "一二三|四五"},
                        {"一二三，四五", 3, "一二|三，四|五"},
                        {"一二（三四）", 3, "一二|（三|四）"},
                        {"车床 CA6140 型", 3, "车床|CA6140|型"},
                        {"1,234.50", 2, "1,23|4.50"},
                        {"ab cd ef", 2.5, "ab cd|ef"},
                        {"　　在用", 3, "　　在|用"},
                        {"一\r\n二\n三", 9, "一|二|三"},
                        {"  x", 9, "  x"}};
  TextWidths widths = plainWidths();
  for (const Case& c : cases) {
    EXPECT_EQ(joined(linesOf(c.text, c.width, Face::Regular, widths)), c.lines) << c.text;
  }
}

/// A text, then amounts in columns under captions of three each.
PaperTable amounts(std::size_t columns, std::size_t rows, const std::string& name) {
  PaperTable table;
  table.title = "一览表";
  table.head = {{"账套：[001] 甲", "期间：2020.01", "单位：元"}, {"使用单位：甲", "", "汇总部门：1---1"}};
  table.foot = {"制表人：陈会计", "", "打印日期：2020-01-31"};
  table.grid = TextGrid(0, columns);
  for (const bool upper : {true, false}) {
    std::vector<std::string> captions{"部门名称"};
    for (std::size_t i = 1; i < columns; ++i) {
      captions.push_back(upper ? "类别" + std::to_string((i - 1) / 3) : "列" + std::to_string(i));
    }
    table.grid.addRow(captions);
  }
  table.grid.setHeaderRows(2);
  table.grid.setRowMerged(0, true);
  for (std::size_t i = 1; i < columns; ++i) table.grid.setAlignment(i, Align::Right);
  for (std::size_t row = 0; row < rows; ++row) {
    std::vector<std::string> cells{name};
    for (std::size_t i = 1; i < columns; ++i) {
      cells.push_back(std::to_string(99999999999 - row * 100 - i) + ".99");
    }
    table.grid.addRow(cells);
  }
  return table;
}

double right(const PlacedText& text, TextWidths& widths) {
  return text.x + widths.of(text.text, text.face) * text.size;
}

/// Everything is between the margins, is large enough to be read, and nothing lies upon anything else.
void expectReadable(const Page& page, PageSize size, TextWidths& widths) {
  std::map<long, std::map<double, double>> lines;  // texts by their ends, by base line
  for (const PlacedText& text : page.texts) {
    EXPECT_GE(text.size, kSmallestSize);
    EXPECT_GE(text.x, kPageMargin - 0.01) << text.text;
    EXPECT_LE(right(text, widths), size.width - kPageMargin + 0.01) << text.text;
    EXPECT_LE(text.y, size.height - kPageMargin) << text.text;
    auto& line = lines[std::lround(text.y * 10)];
    for (const auto& [from, to] : line) {
      EXPECT_TRUE(right(text, widths) <= from || text.x >= to) << text.text;
    }
    line[text.x] = right(text, widths);
  }
}

TEST(PagedTableTest, CutsNothingHoweverManyColumns) {
  std::string name;
  for (int i = 0; i < 100; ++i) name += "部A";
  for (const bool landscape : {true, false}) {
    for (const std::size_t columns : {1, 3, 7, 12, 22, 40}) {
      TextWidths widths = plainWidths();
      const PaperTable table = amounts(columns, 30, columns == 12 ? "生产部" : name);
      const PagedTable paged(table, PageForm{.landscape = landscape}.size(), widths);
      std::map<std::string, int> seen;
      for (std::size_t i = 0; i < paged.pages(); ++i) {
        const Page page = paged.page(i);
        expectReadable(page, paged.size(), widths);
        for (const PlacedText& text : page.texts) ++seen[text.text];
        EXPECT_EQ(seen["部门名称"], static_cast<int>(i + 1)) << "the first column leads every page";
      }
      for (std::size_t row = 2; row < table.grid.rows(); ++row) {
        for (std::size_t i = 1; i < columns; ++i) EXPECT_EQ(seen[table.grid.text(row, i)], 1) << columns;
      }
    }
  }
}

TEST(PagedTableTest, TellsOnEveryPageWhatItIs) {
  TextWidths widths = plainWidths();
  const PaperTable table = amounts(22, 60, "生产部");
  const PagedTable paged(table, PageForm{}.size(), widths);
  ASSERT_GT(paged.pages(), 3U);
  const std::string all = std::to_string(paged.pages());
  for (std::size_t i = 0; i < paged.pages(); ++i) {
    std::string texts;
    for (const PlacedText& text : paged.page(i).texts) texts += text.text + "\n";
    for (const std::string& told :
         {std::string("一览表"), std::string("账套：[001] 甲"), std::string("单位：元"),
          std::string("期间：2020.01"), std::string("汇总部门：1---1"), std::string("制表人：陈会计"),
          std::string("打印日期：2020-01-31"),
          "第 " + std::to_string(i + 1) + " 页 共 " + all + " 页（横向第"}) {
      EXPECT_NE(texts.find(told), std::string::npos) << told << " in\n" << texts;
    }
  }
}

/// A long name has a line of its own, the others stay in their places.
TEST(PagedTableTest, SetsALongNameAboveTheOthers) {
  TextWidths widths = plainWidths();
  PaperTable table = amounts(3, 3, "生产部");
  const auto placed = [&](const std::string& text) {
    const Page page = PagedTable(table, PageForm{}.size(), widths).page(0);
    const auto found = std::ranges::find(page.texts, text, &PlacedText::text);
    return found == page.texts.end() ? PlacedText{} : *found;
  };
  const PlacedText usual = placed("单位：元");
  for (int i = 0; i < 50; ++i) table.head[0].left += "长";
  EXPECT_LT(placed(table.head[0].left).y, placed("单位：元").y);
  EXPECT_EQ(placed("单位：元").x, usual.x);
  EXPECT_EQ(placed("期间：2020.01").y, placed("单位：元").y);
}

/// No text reaches over the line beside it, as a sum might that is longer than what it adds up.
void expectInCells(const Page& page, TextWidths& widths) {
  for (const PlacedText& text : page.texts) {
    for (const PlacedLine& line : page.lines) {
      if (line.fromX != line.toX || text.y < line.fromY || text.y > line.toY) continue;
      EXPECT_TRUE(line.fromX <= text.x || line.fromX >= right(text, widths)) << text.text;
    }
  }
}

/// The texts of a page in the line of that label, from left to right.
std::string lineOf(const Page& page, const std::string& label) {
  const auto labelled = std::ranges::find(page.texts, label, &PlacedText::text);
  if (labelled == page.texts.end()) return {};
  std::map<double, std::string> line;
  for (const PlacedText& text : page.texts) {
    if (text.y == labelled->y) line[text.x] = text.text;
  }
  std::string all;
  for (const auto& [x, text] : line) all += (all.empty() ? "" : " ") + text;
  return all;
}

/// Sums are those of the lines so far, to the last hundredth; a total and an empty cell add nothing.
TEST(PagedTableTest, CarriesLedgersOver) {
  PaperTable table = amounts(3, 0, "");
  for (int i = 1; i <= 60; ++i) table.grid.addRow({"甲", "100000000.1", std::to_string(i)});
  table.grid.addRow({"合计", "6", "60"});
  table.grid.setTotal(table.grid.rows() - 1);
  table.carried = {CarriedOver::Nothing, CarriedOver::Sum, CarriedOver::Last};
  TextWidths widths = plainWidths();
  const PagedTable paged(table, PageForm{}.size(), widths);
  ASSERT_EQ(paged.pages(), 3U);
  int lines = 0;
  for (std::size_t i = 0; i < 2; ++i) {
    for (const PlacedText& text : paged.page(i).texts) lines += text.text == "甲" ? 1 : 0;
    const long tenths = lines * 1000000001L;
    const std::string sums =
        " " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " " + std::to_string(lines);
    EXPECT_EQ(lineOf(paged.page(i), "过次页"), "过次页" + sums);
    EXPECT_EQ(lineOf(paged.page(i + 1), "承前页"), "承前页" + sums);
    expectInCells(paged.page(i), widths);
  }
  EXPECT_EQ(lineOf(paged.page(0), "承前页") + lineOf(paged.page(2), "过次页"), "");
  EXPECT_EQ(lineOf(paged.page(2), "合计"), "合计 6 60");
}

/// Below one more row after the other: on the page where it is a total has the row before it above it.
TEST(PagedTableTest, LeavesNoTotalAlone) {
  TextWidths widths = plainWidths();
  std::size_t pages = 0;
  for (std::size_t rows = 20; rows < 40; ++rows) {
    PaperTable table = amounts(3, rows, "生产部");
    table.grid.setTotal(table.grid.addRow({"合计", "1.00", "2.00"}));
    const PagedTable paged(table, PageForm{}.size(), widths);
    EXPECT_GE(paged.pages(), pages);
    pages = paged.pages();
    const Page last = paged.page(pages - 1);
    EXPECT_EQ(lineOf(last, "合计"), "合计 1.00 2.00");
    EXPECT_NE(lineOf(last, "生产部"), "") << rows << " rows";
    const auto total = std::ranges::find(last.texts, "合计", &PlacedText::text);
    EXPECT_EQ(total->face, Face::Bold);
  }
  EXPECT_EQ(pages, 2U);
}

/// The rows of a group, whose name is in its first row alone, and the letters' size of the last of them.
PaperTable groups(std::size_t rows) {
  PaperTable table = amounts(3, 0, "");
  table.grid.addRow({"生产部", "1.00", "2.00"});
  for (std::size_t row = 1; row < rows; ++row) table.grid.addRow({"", std::to_string(1000 + row), "2.00"});
  table.grid.setTotal(table.grid.addRow({"合计", "1.00", "2.00"}));
  return table;
}

TEST(PagedTableTest, NamesTheGroupThatGoesOnOverleaf) {
  TextWidths widths = plainWidths();
  PaperTable table = groups(70);
  const PagedTable paged(table, PageForm{}.size(), widths);
  ASSERT_EQ(paged.pages(), 3U);
  for (const std::size_t page : {1, 2}) {
    const std::string line = lineOf(paged.page(page), "生产部（续）");
    EXPECT_TRUE(line.starts_with("生产部（续） 10")) << line;
  }
  EXPECT_EQ(lineOf(paged.page(0), "生产部（续）"), "");
  table.carried.assign(3, CarriedOver::Nothing);
  EXPECT_EQ(lineOf(PagedTable(table, PageForm{}.size(), widths).page(1), "生产部（续）"), "") << "a ledger";
}

/// A few rows more than a page are set in smaller letters, more of them are not.
TEST(PagedTableTest, SparesALastPageOfFewRows) {
  TextWidths widths = plainWidths();
  std::map<double, std::size_t> pages;  // by the letters' size
  for (std::size_t rows = 20; rows < 45; ++rows) {
    const PaperTable table = groups(rows);
    const PagedTable paged(table, PageForm{}.size(), widths);
    const Page last = paged.page(paged.pages() - 1);
    const double size = std::ranges::find(last.texts, "合计", &PlacedText::text)->size;
    expectReadable(last, paged.size(), widths);
    EXPECT_TRUE(size == kUsualSize || paged.pages() == 1) << rows << " rows";
    pages[size] = std::max(pages[size], paged.pages());
  }
  EXPECT_EQ(pages, (std::map<double, std::size_t>{{8, 1}, {8.5, 1}, {9, 2}}));
}

/// The label of a total is in a column that pages beside do not have.
TEST(PagedTableTest, NamesATotalOnThePagesBeside) {
  PaperTable table = amounts(40, 3, "生产部");
  table.grid.setTotal(table.grid.addRow({""}));
  table.grid.setText(5, 1, "本期合计");
  table.grid.setAlignment(1, Align::Left);
  for (std::size_t row = 2; row < 5; ++row) table.grid.setText(row, 1, std::string(60, 'x'));
  TextWidths widths = plainWidths();
  const PagedTable paged(table, PageForm{}.size(), widths);
  ASSERT_GT(paged.pages(), 3U);
  for (std::size_t i = 0; i < paged.pages(); ++i) {
    EXPECT_EQ(std::ranges::count(paged.page(i).texts, "本期合计", &PlacedText::text), 1) << "page " << i;
  }
}

/// Few columns are as wide as the lines above them, within reason.
TEST(PagedTableTest, ReachesFromMarginToMargin) {
  for (const std::size_t columns : {7, 22}) {
    TextWidths widths = plainWidths();
    PaperTable table = amounts(columns, 5, "生产部");
    for (std::size_t i = 0; i < columns; ++i) table.grid.setColumnWidth(i, 1000);
    const PagedTable paged(table, PageForm{}.size(), widths);
    for (std::size_t i = 0; i < paged.pages(); ++i) {
      const Page page = paged.page(i);
      const auto right =
          std::ranges::max(page.boxes, {}, [](const PlacedBox& box) { return box.x + box.width; });
      EXPECT_NEAR(right.x + right.width, paged.size().width - kPageMargin, 0.1) << columns << ", page " << i;
    }
  }
}

TEST(PagedTableTest, GoesOnOverleafWithinARow) {
  std::string text;
  for (int i = 1000; i < 3000; ++i) text += std::to_string(i) + "\n";
  PaperTable table = amounts(2, 1, "前");
  table.grid.addRow({text, "12.00"});
  table.grid.addRow({"后", "13.00"});
  TextWidths widths = plainWidths();
  const PagedTable paged(table, PageForm{}.size(), widths);
  std::vector<std::string> shown;
  for (std::size_t i = 0; i < paged.pages(); ++i) {
    const Page page = paged.page(i);
    expectReadable(page, paged.size(), widths);
    for (const PlacedText& one : page.texts) {
      if (one.text.size() == 4 && one.text[0] >= '1' && one.text[0] <= '2') shown.push_back(one.text);
    }
  }
  ASSERT_EQ(shown.size(), 2000U);
  EXPECT_TRUE(std::ranges::is_sorted(shown));
}

}  // namespace
}  // namespace zelkor::test
