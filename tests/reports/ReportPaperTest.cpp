#include <cstdlib>
#include <set>
#include <sstream>

#include "reports/ReportFixture.h"
#include "reports/ReportPaper.h"
#include "reports/ReportRun.h"

// What another program reads out of the PDF documents.
namespace zelkor::test {
namespace {

class ReportPaperTest : public ReportTest {
 protected:
  void SetUp() override {
    if (std::system("pdftotext -v 2>/dev/null") != 0) GTEST_SKIP() << "poppler-utils is missing";
  }

  std::string textOf(std::vector<FinishedReport> reports, const PaperOptions& options) const {
    std::ofstream out(directory / "a.pdf", std::ios::binary);
    ReportPdf document(out, "报表", options, false);
    for (FinishedReport& report : reports) document.add(std::move(report));
    document.finish();
    out.close();
    const std::string command =
        "pdftotext -layout '" + (directory / "a.pdf").string() + "' '" + (directory / "a.txt").string() + "'";
    if (std::system(command.c_str()) != 0) return "(not readable)";
    return readFile(directory / "a.txt");
  }
};

std::set<std::string> wordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// Names of 200 characters, then columns of the largest amounts.
FinishedReport wideReport(std::size_t columns) {
  FinishedReport report;
  report.heading.title = "一览表";
  TextGrid grid(0, columns);
  std::vector<std::string> captions{"部门名称"};
  for (std::size_t i = 1; i < columns; ++i) captions.push_back("原值");
  grid.addRow(captions);
  grid.setHeaderRows(1);
  for (std::size_t i = 1; i < columns; ++i) grid.setAlignment(i, Align::Right);
  for (std::size_t row = 0; row < 5; ++row) {
    std::vector<std::string> cells(1);
    for (std::size_t i = 0; i < 40; ++i) cells[0] += "用" + std::to_string(1000 + row * 40 + i);
    for (std::size_t i = 1; i < columns; ++i) {
      cells.push_back(std::to_string(99999999999 - row * 100 - i) + ".99");
    }
    grid.addRow(cells);
  }
  report.view.grid = std::move(grid);
  return report;
}

TEST_F(ReportPaperTest, EveryCellIsThere) {
  const PaperOptions forms[] = {
      {.form = {}},
      {.form = {.paper = Paper::A4, .landscape = false}},
      {.form = {.paper = Paper::A3, .landscape = true}, .money = true},
  };
  for (const PaperOptions& options : forms) {
    for (const std::size_t columns : {3, 8, 23, 40}) {
      const FinishedReport report = wideReport(columns);
      const std::set<std::string> words = wordsOf(textOf({report}, options));
      for (std::size_t row = 1; row < report.view.grid.rows(); ++row) {
        for (std::size_t i = 1; i < columns; ++i) {
          std::string amount = report.view.grid.text(row, i);
          if (options.money) amount.insert(8, ",").insert(5, ",").insert(2, ",");
          EXPECT_TRUE(words.contains(amount)) << columns << " columns: " << amount;
        }
      }
      for (int i = 1000; i < 1200; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_TRUE(std::ranges::any_of(words, [&](const std::string& word) {
          return word.find(number) != std::string::npos;
        })) << number;
      }
    }
  }
}

std::string withoutBlanks(std::string text) {
  std::erase_if(text, [](char letter) { return letter == ' ' || letter == '\n' || letter == '\f'; });
  return text;
}

/// Each name as a title and as a cell.
TEST_F(ReportPaperTest, TheNamesOfAllReportsCanBeCopied) {
  std::vector<FinishedReport> reports;
  for (const ReportKind& kind : reportKinds()) {
    reports.push_back({});
    reports.back().heading.title = kind.name;
    reports.back().view.grid.addRow({std::string(kind.name), "用日月工生"});
  }
  const std::string text = textOf(std::move(reports), {});
  for (const ReportKind& kind : reportKinds()) {
    const std::size_t title = text.find(kind.name);
    ASSERT_NE(title, std::string::npos) << kind.name;
    EXPECT_NE(text.find(kind.name, title + 1), std::string::npos) << kind.name;
  }
  EXPECT_NE(text.find("用日月工生"), std::string::npos);
}

/// Captions come back with the characters that they have, not with others that look alike.
TEST_F(ReportPaperTest, EveryReportSaysWhatItIs) {
  keepBooks();
  context.dbZKSystem.Execute("update za_account set cAcc_Name='示例账套'");
  const std::string firstAsset = rows("select top 1 sAssetNum from fa_cards order by sCardNum").at(0);
  for (const ReportKind& kind : reportKinds()) {
    if (!kind.build) continue;
    ReportView view;
    ASSERT_EQ(runReport(context, kind, conditions, view), ReportOutcome::Computed);
    FinishedReport report = finishedReport(context, std::move(view));
    const TextGrid grid = report.view.grid;
    const std::string text = withoutBlanks(textOf({std::move(report)}, {}));
    for (const std::string& told :
         {std::string(kind.name), std::string("账套：[001]示例账套"), std::string("单位：元"),
          std::string("使用单位：示例机械制造有限公司"), std::string("期间：2020.0"), std::string("制表人："),
          std::string("打印日期：2020-"), std::string("第1页共"),
          std::string(kind.name == "(单个)固定资产明细账" ? "固定资产：" + firstAsset : "")}) {
      EXPECT_NE(text.find(told), std::string::npos) << told << " in " << kind.name << "\n" << text;
    }
    for (std::size_t row = 0; row < grid.headerRows(); ++row) {
      for (std::size_t column = 0; column < grid.columns(); ++column) {
        const std::string& caption = grid.text(row, column);
        if (caption.size() > 12) continue;  // of several lines
        EXPECT_NE(text.find(caption), std::string::npos) << caption << " in " << kind.name;
      }
    }
  }
}

}  // namespace
}  // namespace zelkor::test
