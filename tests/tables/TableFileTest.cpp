#include <gmock/gmock.h>

#include <fstream>

#include "base/KeptRows.h"
#include "base/RuntimeError.h"
#include "support/WorkbookBytes.h"
#include "tables/TableFile.h"

namespace zelkor::test {
namespace {

using Parts = std::map<std::string, std::string>;

/// All rows, each with its line: "2 a|b"; a row that cannot be read by its reason.
std::string rowsOf(TableRows& rows) {
  std::string all;
  while (true) {
    try {
      const auto row = rows.next();
      if (!row) return all;
      all += std::to_string(row->line);
      for (std::size_t i = 0; i < row->fields.size(); ++i) all += (i == 0 ? " " : "|") + row->fields[i];
    } catch (const CsvError& error) {
      all += std::string("!") + error.what();
    }
    all += "\n";
  }
}

std::string rowsOf(const std::string& bytes, const std::vector<std::string_view>& needed = {"a", "b"}) {
  return rowsOf(*readTableFile(bytes, {.needed = needed}).rows);
}

std::string refusalOf(const std::string& bytes, const std::string& charset = {}) {
  try {
    readTableFile(bytes, {.charset = charset, .needed = {"a", "b"}});
    return "taken";
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + " " + error.what();
  }
}

std::string inline_(const std::string& text) {
  return R"(<c t="inlineStr"><is><t>)" + text + "</t></is></c>";
}

const std::string kHeader = "<row>" + inline_("a") + inline_("b") + "</row>";

Parts oneSheet(const std::string& rows) {
  return workbookParts({{"S", sheetOf(kHeader + rows)}});
}

TEST(CsvFile, IsReadInUtf8AndGb18030) {
  const std::string gb = "\xBF\xA8\xC6\xAC,\xD4\xAD\xD2\xF2\r\n1,\x95\x32\x82\x36\xB3\xB5\r\n";  // 卡片,原因
  const struct {
    std::string bytes, charset, source, rows;
  } cases[] = {
      {"卡片,原因\n1,车\n", "", "CSV（UTF-8）", "1 卡片|原因\n2 1|车\n"},
      {"\xEF\xBB\xBF卡片,原因\n1,车", "", "CSV（UTF-8）", "1 卡片|原因\n2 1|车\n"},
      {gb, "", "CSV（GB18030）", "1 卡片|原因\n2 1|𠀀车\n"},
      {gb.substr(0, 9), "gbk", "CSV（gbk）", "1 卡片|原因\n"},
      {"卡片,原因\n", "utf-8", "CSV（UTF-8）", "1 卡片|原因\n"},
  };
  for (const auto& c : cases) {
    TableFile file = readTableFile(c.bytes, {.charset = c.charset});
    EXPECT_EQ(file.source, c.source);
    EXPECT_EQ(rowsOf(*file.rows), c.rows);
  }
  EXPECT_EQ(refusalOf("卡片\n1\n\xFF\n"),
            "3421 文件不是 UTF-8 编码（第3行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”");
  EXPECT_EQ(refusalOf("\xBF\xA8\xC6\xAC\n1\n\xFF\n"),
            "3421 文件不是 UTF-8，也不是 GB18030 编码（第3行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”");
  EXPECT_EQ(refusalOf(gb, "utf-8").substr(0, 30), "3421 文件不是 UTF-8 编码");
  EXPECT_EQ(refusalOf("a", "klingon"), "13 系统不认识字符集 'klingon'。");
}

TEST(Workbook, GivesWhatItsCellsShow) {
  const std::pair<const char*, const char*> cells[] = {
      {R"(<c><v>12</v></c>)", "12"},
      {R"(<c><v>0.050000000000000003</v></c>)", "0.05"},
      {R"(<c><v>1.2E3</v></c>)", "1200"},
      {R"(<c t="n"><v>-1200.5</v></c>)", "-1200.5"},
      {R"(<c><v>123456789012345</v></c>)", "123456789012345"},
      {R"(<c t="s"><v>1</v></c>)", "车 床"},
      {R"(<c t="s"><v>0</v></c>)", "x<y"},
      {R"(<c t="inlineStr"><is><r><t>数控</t></r><r><t>车床</t></r><rPh><t>x</t></rPh></is></c>)",
       "数控车床"},
      {R"(<c t="str"><f>A1</f><v>00001</v></c>)", "00001"},
      {R"(<c t="b"><v>1</v></c>)", "1"},
      {R"(<c t="d"><v>2020-01-31T00:00:00</v></c>)", "2020-01-31"},
      {R"(<c s="1"><v>43861</v></c>)", "2020-01-31"},
      {R"(<c s="1"><v>1</v></c>)", "1900-01-01"},
      {R"(<c s="2"><v>43861.5</v></c>)", "2020-01-31 12:00:00"},
      {R"(<c s="3"><v>43861</v></c>)", "2020-01-31"},
      {R"(<c s="4"><v>7</v></c>)", "00007"},
      {R"(<c s="5"><v>43861</v></c>)", "43861"},
      {R"(<c s="99"><v>43861</v></c>)", "43861"},
      {R"(<c t="inlineStr"><is><t>a_x000A_b_x5F_</t></is></c>)", "a\nb_x5F_"},
      {R"(<x:c t="inlineStr"><x:is><x:t>y</x:t></x:is></x:c>)", "y"},
      {R"(<c t="e"><v>#N/A</v></c>)", "!第 2 行第 1 列：单元格是错误值 #N/A"},
      {R"(<c><f>A1+1</f></c>)", "!第 2 行第 1 列：公式还没有算出的值，请在电子表格中打开并保存一次"},
      {R"(<c t="inlineStr"><is><t>&#x1;</t></is></c>)", "!第 2 行第 1 列：有不能用的字符"},
  };
  for (const auto& [cell, text] : cells) {
    Parts parts = oneSheet("<row>" + std::string(cell) + "</row>");
    parts["xl/sharedStrings.xml"] =
        "<sst><si><t>x&lt;y</t></si><si><t xml:space=\"preserve\">车 床</t></si></sst>";
    parts["xl/styles.xml"] =
        "<styleSheet><numFmts><numFmt numFmtId=\"164\" formatCode=\"yyyy&quot;年&quot;m&quot;月&quot;\"/>"
        "<numFmt numFmtId=\"165\" formatCode=\"00000\"/><numFmt numFmtId=\"166\" "
        "formatCode=\"[Red]0.00&quot;day&quot;\"/></numFmts><cellXfs><xf/><xf numFmtId=\"14\"/><xf "
        "numFmtId=\"22\"/><xf numFmtId=\"164\"/><xf numFmtId=\"165\"/><xf numFmtId=\"166\"/></cellXfs>"
        "</styleSheet>";
    const std::string expected = *text == '!' ? text : "2 " + std::string(text) + "|";
    EXPECT_EQ(rowsOf(zipOf(parts)), "1 a|b\n" + expected + "\n") << cell;
  }
}

TEST(Workbook, CountsItsDaysFrom1904) {
  Parts parts = oneSheet(R"(<row><c s="1"><v>42399</v></c></row>)");
  parts["xl/styles.xml"] = R"(<styleSheet><cellXfs><xf/><xf numFmtId="14"/></cellXfs></styleSheet>)";
  std::string& book = parts["xl/workbook.xml"];
  book.replace(book.find("<sheets>"), 0, R"(<workbookPr date1904="true"/>)");
  EXPECT_EQ(rowsOf(zipOf(parts)), "1 a|b\n2 2020-01-31|\n");
}

TEST(Workbook, ShowsTheTableThatFits) {
  const std::string row = R"(<row r="7"><c r="B7"><v>1</v></c><c r="D7"><v>2</v></c></row>)";
  const std::string late = R"(<row r="5"><c r="B5" t="inlineStr"><is><t> a</t></is></c>)"
                           R"(<c r="D5" t="inlineStr"><is><t>b</t></is></c></row><row r="6"/>)";
  const std::string title = R"(<row r="1">)" + inline_("清册") + "</row>";
  const std::string error = R"(<c t="e"><v>#N/A</v></c>)";
  const struct {
    std::vector<std::pair<std::string, std::string>> sheets;
    const char *source, *rows;
  } cases[] = {
      {{{"说明", sheetOf(title)}, {"台账", sheetOf(title + late + row)}},
       "工作表“台账”，表头在第 5 行",
       "5  a|b\n7 1|2\n"},
      {{{"A", sheetOf("")}, {"B", sheetOf("<row>" + inline_("a") + "</row>")}, {"C", sheetOf(title)}},
       "工作表“B”，表头在第 1 行",
       "1 a\n"},
      {{{"A", sheetOf("")}}, "空工作簿", ""},
      {{{"A", "<worksheet><sheetData/></worksheet>"}}, "空工作簿", ""},
      {{{"A", sheetOf(kHeader + "<row><c/><c/><c><v>3</v></c></row><row><c><v>1</v></c></row>")}},
       "工作表“A”，表头在第 1 行",
       "1 a|b\n3 1|\n"},
      // Of what is wrong in a row that counts which stands below a caption.
      {{{"A", sheetOf("<row>" + inline_(" ") + inline_("a") + inline_("b") + "</row><row>" + error +
                      "<c><v>2</v></c>" + error + "</row><row>" + error + "</row><row>" + error +
                      "<c><v>4</v></c></row>")}},
       "工作表“A”，表头在第 1 行",
       "1 a|b\n!第 2 行第 3 列：单元格是错误值 #N/A\n4 4|\n"},
  };
  for (const auto& c : cases) {
    TableFile file = readTableFile(zipOf(workbookParts(c.sheets)), {.needed = {"a", "b"}});
    EXPECT_EQ(file.source, c.source);
    EXPECT_EQ(rowsOf(*file.rows), c.rows);
  }
  Parts hidden = workbookParts({{"旧", sheetOf(kHeader)}, {"新", sheetOf(kHeader)}});
  std::string& book = hidden["xl/workbook.xml"];
  book.replace(book.find("sheetId"), 0, "state=\"hidden\" ");
  EXPECT_EQ(readTableFile(zipOf(hidden), {.needed = {"a"}}).source, "工作表“新”，表头在第 1 行");
}

TEST(Workbook, ReadsPiecesAcrossTheBuffer) {
  std::string rows;
  std::string expected = "1 a|b\n";
  for (int i = 2; i < 40'000; ++i) {
    rows += "<!-- <row> --><row><c><v>" + std::to_string(i) + "</v></c><c t='str'><v>a>b</v></c></row>";
    expected += std::to_string(i) + " " + std::to_string(i) + "|a>b\n";
  }
  EXPECT_EQ(rowsOf(zipOf(oneSheet(rows))), expected);
}

TEST(Workbook, ThatIsDamagedIsRefusedBeforeAnyRow) {
  std::string rows;
  for (int i = 0; i < 5000; ++i) rows += "<row><c><v>" + std::to_string(i * 7919) + "</v></c></row>";
  const std::string whole = zipOf(oneSheet(rows));
  std::string flipped = whole;
  flipped[whole.find("xl/worksheets") + 2000] ^= 1;
  const auto with = [](const std::string& name, const std::string& text) {
    Parts parts = oneSheet("");
    parts[name] = text;
    return zipOf(parts);
  };
  const std::string sheet = "xl/worksheets/r0.xml";
  const std::pair<std::string, const char*> cases[] = {
      {flipped, "xl/worksheets/r0.xml 已损坏"},
      {whole.substr(0, whole.size() - 100), "工作簿读不出来"},
      {"PK\x03\x04nothing", "工作簿读不出来：文件已损坏，或不是 xlsx 工作簿"},
      {zipOf({{"mimetype", "x"}}), "不是 xlsx 工作簿"},
      {"\xD0\xCF\x11\xE0\xA1\xB1", "旧式的 .xls 工作簿"},
      {with(sheet, "<worksheet><sheetData><row>"), "XML 没有结束"},
      {with(sheet, "<worksheet><sheetData><row><c></row></sheetData></worksheet>"), "不是 XML"},
      {with(sheet, "<!DOCTYPE x><worksheet/>"), "不该有的声明"},
      {with(sheet, sheetOf(R"(<row r="2"/><row r="1"/>)")), "行的次序不对"},
      {with(sheet, sheetOf(R"(<row r="99999999"/>)")), "行的次序不对"},
      {with(sheet, sheetOf(R"(<row><c r="B1"><v>1</v></c><c r="A1"><v>1</v></c></row>)")),
       "单元格的次序不对"},
      {with(sheet, sheetOf(R"(<row><c r="ZZZZ1"><v>1</v></c></row>)")), "单元格的次序不对"},
      {with(sheet, sheetOf(R"(<row><c t="s"><v>5</v></c></row>)")), "缺少文字"},
      {with("xl/styles.xml", "<styleSheet>"), "styles.xml 不是 XML"},
  };
  for (const auto& [bytes, reason] : cases)
    EXPECT_NE(refusalOf(bytes).find(reason), std::string::npos) << refusalOf(bytes) << "\n" << reason;
}

/// The most that the process has held at once, in megabytes.
long peakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6)) / 1024;
  return 0;
}

// Small files that unpack to much more than anybody has entered.
TEST(Workbook, ThatUnpacksBeyondBoundsIsRefused) {
  const std::string wide(std::size_t{20} << 20, 'x');
  EXPECT_NE(refusalOf(zipOf(oneSheet("<row><c t='str'><v>" + wide + "</v></c></row>"))).find("太长"),
            std::string::npos);
  Parts shared = oneSheet("");
  shared["xl/sharedStrings.xml"] = "<sst><si><t>" + std::string(30'000, 'y') + "</t></si></sst>";
  std::string cells;
  for (int i = 2; i < 10'000; ++i) cells += "<row><c t='s'><v>0</v></c></row>";
  shared["xl/worksheets/r0.xml"] = sheetOf(kHeader + cells);
  EXPECT_NE(refusalOf(zipOf(shared)).find("工作表太大"), std::string::npos);
  EXPECT_LT(peakMegabytes(), 900);
}

TEST(KeptRowsTest, GiveATableThatIsMendedAndReadAgain) {
  CsvReader reader("a,b\n1,\"x,y\"\n2,\"bad\"q\n3\n4,z\n");
  KeptRows rows(reader);
  rows.next();
  rows.next();
  rows.refuse("第2行：一");
  EXPECT_THROW(rows.next(), CsvError);
  rows.refuse("二");
  rows.next();
  rows.refuse("三");
  rows.next();
  std::ostringstream out;
  rows.write(out);
  EXPECT_EQ(out.str(), "\xEF\xBB\xBF拒绝原因,a,b\r\n第2行：一,1,\"x,y\"\r\n二,2,\"bad\"q\r\n三,3\r\n");

  CsvReader again(out.str());
  KeptRows mended(again);
  EXPECT_THAT(mended.next()->fields, testing::ElementsAre("a", "b"));
  EXPECT_THAT(mended.next()->fields, testing::ElementsAre("1", "x,y"));
  EXPECT_THROW(mended.next(), CsvError);
  mended.refuse("四");
  std::ostringstream rest;
  mended.write(rest);
  EXPECT_EQ(rest.str(), "\xEF\xBB\xBF拒绝原因,a,b\r\n二,2,\"bad\"q\r\n") << "the first reason stays";

  CsvReader moved("a,拒绝原因,b\n1,一,x\n2,二,\"bad\"q\n");
  KeptRows inside(moved);
  inside.next();
  EXPECT_THAT(inside.next()->fields, testing::ElementsAre("1", "x"));
  inside.refuse("三");
  EXPECT_THROW(inside.next(), CsvError);
  inside.refuse("四");
  std::ostringstream kept;
  inside.write(kept);
  EXPECT_EQ(kept.str(),
            "\xEF\xBB\xBF"
            "a,拒绝原因,b\r\n1,三,x\r\n2,二,\"bad\"q\r\n")
      << "in its place";
}

}  // namespace
}  // namespace zelkor::test
