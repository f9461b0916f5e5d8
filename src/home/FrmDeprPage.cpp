#include "home/FrmDeprPage.h"

#include <QCloseEvent>
#include <utility>

#include "base/RuntimeError.h"
#include "ui/FlexGrid.h"
#include "ui/GridFindBar.h"
#include "ui/Layout.h"
#include "ui/Reading.h"
#include "ui/SaveDialog.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr QSize kSize(1040, 640);
constexpr int kChartHeight = 190;
constexpr std::size_t kManyRows = 12;  // that are worth a search

QString linesOf(const std::vector<std::string>& sentences) {
  QStringList lines;
  for (const std::string& sentence : sentences) lines << toQt(sentence);
  return lines.join('\n');
}

std::string rowText(const TextGrid& grid, std::size_t row) {
  std::string text;
  for (std::size_t column = 0; column < grid.columns(); ++column) text += grid.text(row, column) + " ";
  return text;
}

}  // namespace

FrmDeprPage::FrmDeprPage(FormHost& host, DeprPageOrder order)
    : Form(host, order.form, order.title, Unload::Plain), order_(std::move(order)) {
  arrangeControls();
  on(ComboMonths, &QComboBox::activated, &FrmDeprPage::read);
  on(CmdSave, &QPushButton::clicked, &FrmDeprPage::save);
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
  ChartMonths->saveThrough(host);
  read();
}

void FrmDeprPage::arrangeControls() {
  LblRemarks->setWordWrap(true);
  LblRemarks->setTextInteractionFlags(Qt::TextSelectableByMouse);
  LblStatus->setWordWrap(true);
  LblStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
  for (const int months : order_.months) ComboMonths->addItem(QString("%1 个月").arg(months), months);
  ChartMonths->setTitle("各月折旧");
  ChartMonths->setFixedHeight(kChartHeight);
  const bool byMonths = !order_.months.empty();
  ChartMonths->setVisible(byMonths);
  auto* asked = page(row({captioned("月数(&M)：", ComboMonths), stretch()}));
  asked->layout()->setContentsMargins(0, 0, 0, 0);
  asked->setVisible(byMonths);
  arrange(this,
          column({asked, LblRemarks, ChartMonths, wide(Tabs), row({wide(LblStatus), CmdSave, CmdClose})}));
  setDefaultButton(CmdClose);
  resize(kSize);
}

int FrmDeprPage::months() const {
  return order_.months.empty() ? 0 : ComboMonths->currentData().toInt();
}

void FrmDeprPage::read() {
  shown_ = false;
  LblStatus->setText("正在计算…");
  lock();
  // It may still be at work when the form has gone.
  worker_.start([this, routine = order_.read, asked = ++asked_, months = months()]() -> frmWorker::Result {
    DeprPage page;
    try {
      page = routine(months);
    } catch (const std::exception& error) {
      page.problems = {error.what()};
    }
    return [this, asked, page = std::move(page)]() mutable {
      host().dispatch([&] {
        if (asked == asked_) take(std::move(page));
      });
    };
  });
}

void FrmDeprPage::take(DeprPage page) {
  shown_ = page.problems.empty();
  LblStatus->setText(shown_ ? QString() : QString("没有列出：先排除上面的原因。"));
  LblRemarks->setText(linesOf(shown_ ? page.remarks : page.problems));
  LblRemarks->setVisible(!LblRemarks->text().isEmpty());
  const int current = Tabs->currentIndex();
  while (Tabs->count() > 0) {
    QWidget* old = Tabs->widget(0);
    Tabs->removeTab(0);
    delete old;
  }
  for (DeprTable& table : page.tables) addTable(std::move(table));
  if (current > 0) Tabs->setCurrentIndex(current);
  showMonths(page.months);
  nameControls(*this);
  tabAsOneReads(*this);
  lock();
}

void FrmDeprPage::addTable(DeprTable table) {
  auto* grid = new FlexGrid;
  grid->setObjectName("Grid" + QString::number(Tabs->count()));
  grid->setAccessibleName(toQt(table.title));
  grid->widenColumns();
  grid->makeSortable();
  const bool many = table.grid.rows() > kManyRows;
  grid->setGrid(std::move(table.grid));
  auto* inner = column({});
  if (many)
    inner->addWidget(new GridFindBar(
        *grid, "查找", [grid](std::size_t row) { return rowText(grid->grid(), row); }, this));
  inner->addWidget(grid);
  Tabs->addTab(layout::page(inner), toQt(table.title));
}

void FrmDeprPage::showMonths(const std::vector<DeprPage::Amount>& months) {
  std::vector<frmChart::Point> points;
  for (const DeprPage::Amount& one : months) points.push_back({toQt(one.month), one.amount});
  ChartMonths->show(frmChart::Kind::Line, std::move(points));
}

void FrmDeprPage::save() {
  static constexpr FileForm kForms[] = {{"xlsx", "工作簿 (*.xlsx)"}, {"csv", "CSV (*.csv)"}};
  const auto file = askWhereToSave(run().dialogs, *this, order_.title, kForms);
  if (!file) return;
  std::vector<std::string> words = order_.words(months());
  for (const std::string& word : {std::string("--format"), fromQt(file->format), std::string("--out"),
                                  fromQt(file->name), std::string("--force")})
    words.push_back(word);
  LblStatus->setText("正在保存…");
  try {
    tool_.start(order_.tool, order_.title, words, [this, name = file->name](const ChildEnd& end) {
      host().dispatch([&] { saved(name, end); });
    });
  } catch (const RuntimeError& error) {
    LblStatus->setText(toQt(std::string("⚠ ") + error.what()));
  }
  lock();
}

void FrmDeprPage::saved(const QString& file, const ChildEnd& end) {
  LblStatus->setText(end.failed() ? "⚠ " + toQt(sentenceAboutEnd("另存为", end))
                                  : "已保存到“" + file + "”。");
  lock();
}

void FrmDeprPage::lock() {
  CmdSave->setEnabled(shown_ && !tool_.isRunning());
}

// A file that is being written is waited for: its end is told here.
void FrmDeprPage::closeEvent(QCloseEvent* event) {
  if (!tool_.isRunning()) return Form::closeEvent(event);
  event->ignore();
}

}  // namespace zelkor
