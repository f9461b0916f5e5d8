#include <algorithm>
#include <cstdlib>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <set>
#include <sstream>

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

  std::string file(const char* name) const { return (directory / name).string(); }
  /// Types the name over the one that is offered, under the form of that number.
  void saveAs(FrmBBXS& form, const std::string& name, int filter) {
    inModalForm([&](QWidget& window) {
      auto& dialog = dynamic_cast<QFileDialog&>(window);
      auto& forms = control<QComboBox>(dialog, "fileTypeCombo");
      forms.setCurrentIndex(filter);
      emit forms.activated(filter);
      emit forms.textActivated(forms.currentText());
      dialog.selectFile(toQt(name));
      static_cast<QDialog&>(dialog).accept();
    });
    press(form, "mnuPopSave");
  }
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

TEST_F(FrmBBXSTest, copiesRowsByItsMenu) {
  FrmBBXS& form = open(report());
  auto& menu = control<QMenu>(form, "mnuPop");
  FlexGrid& grid = gridOf(form, "MSFlexGrid1");
  grid.selectGridRow(1);
  emit grid.customContextMenuRequested({4, 4});
  EXPECT_TRUE(menu.isVisible());
  menu.hide();
  press(form, "mnuPopCopy");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "一车间\t12.00\n");
}

/// What the name ends in counts, or else the form that is chosen.
TEST_F(FrmBBXSTest, savesTheReportAsAFile) {
  FrmBBXS& form = open(report());
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"a", 0, "a.xlsx", "PK"},
      {"b", 1, "b.pdf", "%PDF"},
      {"c.2020", 2, "c.2020.csv", "\xEF\xBB\xBF部门构成分析表\r\n"},
      {"d", 3, "d.html", "<!DOCTYPE html>"},
      {"e.PDF", 0, "e.PDF", "%PDF"}};
  for (const auto& [name, filter, written, beginning] : cases) {
    saveAs(form, file(name), filter);
    EXPECT_TRUE(readFile(file(written)).starts_with(beginning)) << written;
  }
  const std::string question = "文件“" + file("d.html") + "”已存在，是否替换？";
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    writeFile(file("d.html"), "before");
    dialogs.expectYesNo(question, answer, Icon::Question, "另存为");
    saveAs(form, file("d"), 3);
    EXPECT_EQ(readFile(file("d.html")) == "before", answer == Answer::No);
  }
  tells("不能写文件“" + file("missing/f.pdf") + "”：找不到所在的文件夹", Icon::Exclamation, "查看报表");
  saveAs(form, file("missing/f.pdf"), 1);
  inModalForm([](QWidget& dialog) { dialog.close(); });
  press(form, "mnuPopSave");
  EXPECT_TRUE(form.isVisible());
}

/// The figures, and the number of pages. A printer knows shapes alone: characters that share one are one to
/// it.
std::pair<std::multiset<std::string>, long> figuresOf(const std::string& pdf) {
  const std::string text = pdf + ".txt";
  if (std::system(("pdftotext -layout '" + pdf + "' '" + text + "'").c_str()) != 0) return {};
  const std::string content = readFile(text);
  std::istringstream words(content);
  std::multiset<std::string> figures;
  for (std::string word; words >> word;) {
    std::erase_if(word, [](char letter) { return static_cast<unsigned char>(letter) >= 0x80; });
    if (!word.empty()) figures.insert(word);
  }
  return {figures, std::ranges::count(content, '\f')};
}

TEST_F(FrmBBXSTest, printsThePagesThatTheDocumentHas) {
  if (std::system("pdftotext -v 2>/dev/null") != 0) GTEST_SKIP() << "poppler-utils is missing";
  ReportView view = report();
  for (int row = 0; row < 100; ++row) view.grid.addRow({"车间" + std::to_string(row), "1234.50"});
  FrmBBXS& form = open(std::move(view));
  saveAs(form, file("saved.pdf"), 1);
  inModalForm([this](QWidget& window) {
    auto& preview = dynamic_cast<QPrintPreviewDialog&>(window);
    auto& pages = *preview.findChild<QPrintPreviewWidget*>();
    EXPECT_EQ(pages.pageCount(), 4);
    const auto isKeyed = [](const QAction* one) { return one->shortcut() == QKeySequence::Print; };
    EXPECT_EQ(std::ranges::count_if(preview.findChildren<QAction*>(), isKeyed), 1);
    preview.printer()->setOutputFileName(toQt(file("printed.pdf")));
    pages.print();
    preview.printer()->setOutputFileName(toQt(file("third.pdf")));
    preview.printer()->setPrintRange(QPrinter::PageRange);
    preview.printer()->setFromTo(3, 3);
    pages.print();
    preview.close();
  });
  press(form, "mnuPopPrint");
  const auto saved = figuresOf(file("saved.pdf"));
  EXPECT_EQ(saved.second, 4);
  EXPECT_EQ(figuresOf(file("printed.pdf")), saved);
  EXPECT_EQ(figuresOf(file("third.pdf")).second, 1);
}

/// A preview would keep them all.
TEST_F(FrmBBXSTest, previewsNoThousandsOfPages) {
  ReportView view = report();
  for (int row = 0; row < 15'000; ++row) view.grid.addRow({"一车间", "1234.50"});
  FrmBBXS& form = open(std::move(view));
  tells("报表共 556 页，页数太多，不能预览；可在打印窗口中选页码。", Icon::Information, "查看报表");
  inModalForm([](QWidget& window) {
    EXPECT_EQ(dynamic_cast<QPrintDialog&>(window).maxPage(), 556);
    window.close();
  });
  press(form, "mnuPopPrint");
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
