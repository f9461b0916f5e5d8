#include <cstdlib>
#include <sstream>

#include "reports/ReportCells.h"
#include "reports/ReportExport.h"
#include "reports/ReportWorkbook.h"
#include "support/Golden.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

/// Two header lines, a hidden column, a total; codes and counts beside amounts.
ReportView sampleView() {
  ReportView view;
  view.unitLine = "使用单位：甲 & 乙";
  view.periods = {"2020.01", "2020.02"};
  view.selectedPeriod = 1;
  view.conditionLines[0].text = "部门：一<二>";
  view.conditionLines[1] = {"看不见", false};
  view.grid = TextGrid(0, 5);
  view.grid.addRow({"类别", "隐", "原值", "原值", "数量"});
  view.grid.addRow({"类别", "隐", "借方", "贷方", "数量"});
  view.grid.addRow({"机床, 车间", "x", "1234.50", "", "2"});
  view.grid.addRow({"007", "x", "01100", "-0.5", "00001"});
  view.grid.setHeaderRows(2);
  view.grid.setRowMerged(0, true);
  view.grid.setRowMerged(1, true);
  view.grid.setColumnHidden(1, true);
  view.grid.setAlignment(2, Align::Right);
  view.grid.setAlignment(3, Align::Right);
  return view;
}

FinishedReport sampleReport(const std::string& title) {
  ReportHeading heading{.title = title,
                        .account = "账套：[001] 甲",
                        .unit = "使用单位：甲 & 乙",
                        .period = "期间：2020.02",
                        .conditions = "部门：一<二>",
                        .preparedBy = "制表人：陈会计",
                        .printed = "打印日期：2020-02-29"};
  return {std::move(heading), sampleView(), true};
}

template <typename Write>
std::string streamed(Write write) {
  std::ostringstream out;
  write(out);
  return out.str();
}

TEST(ReportExportTest, TellsNumbersFromCodes) {
  const TextGrid grid = sampleView().grid;
  struct Case {
    std::size_t row, column;
    bool number;
  };
  const Case cases[] = {{0, 2, false}, {2, 0, false}, {2, 2, true}, {2, 3, false}, {2, 4, true},
                        {3, 0, false}, {3, 2, false}, {3, 3, true}, {3, 4, false}};
  for (const Case& c : cases) {
    EXPECT_EQ(isNumberCell(grid, c.row, c.column), c.number) << c.row << "," << c.column;
  }
}

/// A department that is called by a number stands to the right; an upper caption has nothing below it.
TEST(ReportExportTest, DressesNoNameAsAnAmount) {
  TextGrid grid(0, 2);
  grid.addRow({"类别", "使用部门"});
  grid.addRow({"", "使用部门"});
  grid.addRow({"甲", "101"});
  grid.setHeaderRows(2);
  grid.setAlignment(1, Align::Right);
  dressCells(grid, {.money = true});
  EXPECT_EQ(grid.text(2, 1), "101");
  EXPECT_EQ(grid.text(1, 0), "类别");
}

TEST(ReportExportTest, WritesTheCaptionsThatAreSeen) {
  const ReportView view = sampleView();
  const auto csv = [&](bool mark) {
    return streamed([&](std::ostream& out) { writeCsv(out, "表(一)", view, mark); });
  };
  expectGolden("reports/golden/export.csv", csv(true));
  EXPECT_EQ("\xEF\xBB\xBF" + csv(false), csv(true));
  expectGolden("reports/golden/export.html",
               streamed([](std::ostream& out) { writeHtml(out, sampleReport("表(一)"), true); }));
  EXPECT_EQ(streamed([&](std::ostream& out) { writeText(out, "表(一)", view); }).find("看不见"),
            std::string::npos);
}

/// One file of a workbook, which is a zip archive.
std::string partOf(const fs::path& workbook, const std::string& part) {
  const TempDir directory;
  const fs::path file = directory / "part";
  const std::string command = "unzip -p '" + workbook.string() + "' " + part + " > '" + file.string() + "'";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("no " + part);
  return readFile(file);
}

void writeWorkbook(const fs::path& file, const std::string& title, const ReportView& view) {
  std::ofstream out(file, std::ios::binary);
  Workbook book(out, {});
  FinishedReport report = sampleReport(title);
  report.view = view;
  book.add(std::move(report));
  book.finish();
}

TEST(ReportExportTest, WritesAWorkbookWithNumbers) {
  const TempDir directory;
  writeWorkbook(directory / "a.xlsx", "表[一]", sampleView());
  const std::string sheet = partOf(directory / "a.xlsx", "xl/worksheets/sheet1.xml");
  for (const char* piece :
       {"<v>1234.50</v>", "<v>-0.5</v>", "<v>2</v>", "<t>01100</t>", "<t>00001</t>", "<t>借方</t>",
        "<mergeCells count=\"6\"><mergeCell ref=\"A1:D1\"/><mergeCell ref=\"A2:D2\"/><mergeCell "
        "ref=\"A3:D3\"/><mergeCell ref=\"A4:A5\"/><mergeCell ref=\"B4:C4\"/><mergeCell ref=\"D4:D5\"/>"
        "</mergeCells>",
        "ySplit=\"5\"", "<autoFilter ref=\"A5:D7\"/>"}) {
    EXPECT_NE(sheet.find(piece), std::string::npos) << piece << "\nin\n" << sheet;
  }
  EXPECT_NE(partOf(directory / "a.xlsx", "xl/workbook.xml").find("name=\"表 一 \""), std::string::npos);
}

/// As a program of others reads it: texts that look like escapes, and captions over columns that are hidden.
TEST(ReportExportTest, WritesAWorkbookThatOthersRead) {
  const std::string reader = "/usr/bin/python3 '" + (testFolder() / "reports/read-workbook").string() + "' ";
  if (std::system((reader + "--there 2>/dev/null").c_str()) != 0)
    GTEST_SKIP() << "python3-openpyxl is missing";
  ReportView view;
  view.grid = TextGrid(0, 4);
  view.grid.addRow({"甲", "甲", "乙", "乙"});
  view.grid.addRow({"编号", "隐", "隐", "名称"});
  view.grid.addRow({"_x0041_", "x", "x", "_x0041_x0042_"});
  view.grid.addRow({"_x005F_", "x", "x", "a_x00e9_ _x12_ _xyz0_ __x0041__"});
  view.grid.setHeaderRows(2);
  view.grid.setRowMerged(0, true);
  view.grid.setColumnHidden(1, true);
  view.grid.setColumnHidden(2, true);
  const TempDir directory;
  writeWorkbook(directory / "a.xlsx", "表_x0041_", view);
  const std::string read = directory / "read";
  ASSERT_EQ(std::system((reader + "'" + (directory / "a.xlsx").string() + "' >" + read).c_str()), 0);
  EXPECT_EQ(readFile(read),
            "表_x0041_|\n账套：[001] 甲　　使用单位：甲 & 乙|\n期间：2020.02　　部门：一<二>　　单位：元|\n"
            "甲|乙\n编号|名称\n_x0041_|_x0041_x0042_\n_x005F_|a_x00e9_ _x12_ _xyz0_ __x0041__\n"
            "merged A1:B1\nmerged A2:B2\nmerged A3:B3\n");

  view.grid.setColumnHidden(1, false);
  writeWorkbook(directory / "a.xlsx", "表", view);
  ASSERT_EQ(std::system((reader + "'" + (directory / "a.xlsx").string() + "' >" + read).c_str()), 0);
  EXPECT_NE(readFile(read).find("甲||乙\n"), std::string::npos) << readFile(read);
  EXPECT_TRUE(readFile(read).ends_with("\nmerged A4:B4\n")) << readFile(read);
}

/// A number that does not fit into its column is shown as a row of hashes.
TEST(ReportExportTest, MakesColumnsOfAWorkbookWideEnoughForTheirNumbers) {
  const TempDir directory;
  ReportView view = sampleView();
  view.grid.setColumnWidth(2, 600);
  view.grid.setAlignment(3, Align::Center);
  view.grid.setText(3, 2, "30799101.26");
  view.grid.setText(3, 3, "12.50");
  writeWorkbook(directory / "a.xlsx", "表", view);
  const std::string sheet = partOf(directory / "a.xlsx", "xl/worksheets/sheet1.xml");
  EXPECT_NE(sheet.find("<col min=\"2\" max=\"2\" width=\"13.7"), std::string::npos) << sheet;
  const std::string styles = partOf(directory / "a.xlsx", "xl/styles.xml");
  EXPECT_NE(styles.find("<xf numFmtId=\"2\" fontId=\"0\" fillId=\"0\" borderId=\"1\" xfId=\"0\" "
                        "applyNumberFormat=\"1\" applyBorder=\"1\" applyAlignment=\"1\">"
                        "<alignment horizontal=\"center\" vertical=\"center\"/></xf>"),
            std::string::npos)
      << styles;
}

/// A name that is longer than its column may be goes on below, others stay as they are.
TEST(ReportExportTest, BreaksLongTextsOfAWorkbook) {
  const TempDir directory;
  ReportView view = sampleView();
  view.grid.setText(3, 0, std::string(200, 'x'));
  writeWorkbook(directory / "a.xlsx", "表", view);
  const std::string sheet = partOf(directory / "a.xlsx", "xl/worksheets/sheet1.xml");
  for (const char* piece : {"<col min=\"1\" max=\"1\" width=\"40.7", "<c r=\"A7\" s=\"15\" t=\"inlineStr\">",
                            "<c r=\"B7\" s=\"5\" t=\"inlineStr\">"}) {
    EXPECT_NE(sheet.find(piece), std::string::npos) << piece << "\nin\n" << sheet;
  }
  const std::string styles = partOf(directory / "a.xlsx", "xl/styles.xml");
  EXPECT_NE(styles.find("horizontal=\"left\" vertical=\"center\" wrapText=\"1\"/>"), std::string::npos)
      << styles;
}

/// Dates, exponents and totals in one sheet, and one that is too wide for a page in another.
TEST(ReportExportTest, WritesASheetForEachReport) {
  const TempDir directory;
  FinishedReport lines = sampleReport("明细");
  lines.view.grid = TextGrid(0, 2);
  lines.view.grid.addRow({"日期", "原值"});
  lines.view.grid.addRow({"2020-1-31", "1.5E-05"});
  lines.view.grid.setTotal(lines.view.grid.addRow({"合计", "123456789012.5"}));
  lines.view.grid.setHeaderRows(1);
  lines.view.grid.setAlignment(1, Align::Right);
  FinishedReport wide = sampleReport("一览");
  wide.ledger = false;
  wide.view.grid.resize(4, 12);
  for (std::size_t i = 0; i < 12; ++i) wide.view.grid.setColumnWidth(i, 3000);
  std::ofstream out(directory / "a.xlsx", std::ios::binary);
  Workbook book(out, {.money = true});
  book.add(std::move(lines));
  book.add(std::move(wide));
  book.finish();
  out.close();
  const std::string first = partOf(directory / "a.xlsx", "xl/worksheets/sheet1.xml");
  for (const char* piece : {"<c r=\"A5\" s=\"12\"><v>43861</v>", "<v>1.5E-05</v>",
                            "<c r=\"B6\" s=\"26\"><v>123456789012.5</v>", "<autoFilter ref=\"A4:B5\"/>",
                            "<oddFooter>&amp;L&amp;9制表人：陈会计&amp;C&amp;9第 &amp;P 页 共 &amp;N 页",
                            "<oddHeader>&amp;L&amp;9账套：[001] 甲\n使用单位：甲 &amp;&amp; "
                            "乙&amp;R&amp;9明细\n期间：2020.02</oddHeader>"}) {
    EXPECT_NE(first.find(piece), std::string::npos) << piece << "\nin\n" << first;
  }
  const std::string second = partOf(directory / "a.xlsx", "xl/worksheets/sheet2.xml");
  for (const char* piece : {"overThenDown", "<colBreaks count=\"1\" manualBreakCount=\"1\"><brk id=\"4\" ",
                            "<mergeCell ref=\"A1:D1\"/>"}) {
    EXPECT_NE(second.find(piece), std::string::npos) << piece << "\nin\n" << second;
  }
  const std::string workbook = partOf(directory / "a.xlsx", "xl/workbook.xml");
  EXPECT_NE(workbook.find("localSheetId=\"1\">'一览'!$A:$A,'一览'!$4:$5<"), std::string::npos) << workbook;
}

/// What a spreadsheet would compute is no more than text in its file.
TEST(ReportExportTest, LeavesNothingToCompute) {
  const std::pair<const char*, const char*> cells[] = {{"=1+1", "'=1+1"},
                                                       {"@SUM(A1)", "'@SUM(A1)"},
                                                       {"+cmd|' /C calc'!A0", "'+cmd|' /C calc'!A0"},
                                                       {"-2+3", "'-2+3"},
                                                       {"-", "'-"},
                                                       {"\t=1", "'\t=1"},
                                                       {"\r=1", "\"'\r=1\""},
                                                       {"-0.50", "-0.50"},
                                                       {"+1,234.50", "\"+1,234.50\""},
                                                       {"-5%", "-5%"},
                                                       {"车-1", "车-1"},
                                                       {"00001", "00001"}};
  for (const auto& [text, field] : cells) {
    ReportView view;
    view.grid = TextGrid(0, 1);
    view.grid.addRow({text});
    std::ostringstream out;
    writeCsv(out, text, view, true);
    EXPECT_EQ(out.str(), "\xEF\xBB\xBF" + std::string(field) + "\r\n期间：\r\n" + field + "\r\n");
  }
}

TEST(ReportExportTest, ShowsWhatNoTextMayHold) {
  ReportView view = sampleView();
  view.grid.setText(2, 0, std::string("车\0床\x1B\xEF\xBF\xBE\xFF\t", 13));
  replaceUnwritable(view);
  EXPECT_EQ(view.grid.text(2, 0), "车\uFFFD床\uFFFD\uFFFD\uFFFD\t");
  EXPECT_EQ(view.grid.text(3, 0), "007");
}

}  // namespace
}  // namespace zelkor::test
