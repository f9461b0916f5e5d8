#include "reports/FrmBBXS.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QResizeEvent>
#include <QStyle>
#include <utility>

#include "base/RuntimeError.h"
#include "reports/FrmBBCommands.h"
#include "ui/Layout.h"
#include "ui/Twips.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kAboveGrid = 1900;  // twips that the form has beside the grid's height
constexpr int kCaptionWidth = 300;
constexpr int kCaptionGap = 24;
constexpr int kLineGap = 4;
constexpr int kInvalidPropertyValue = 380;

/// The column of names, or of digests, takes the room that is left; the first where a report has neither.
std::size_t fillingColumn(const TextGrid& grid) {
  std::size_t column = 0;
  while (column + 1 < grid.columns() && grid.columnHidden(column)) ++column;
  for (const char* caption : {"名称", "摘要"}) {
    for (std::size_t named = column; grid.headerRows() > 0 && named < grid.columns(); ++named) {
      const bool isNamed = grid.text(grid.headerRows() - 1, named).ends_with(caption);
      if (isNamed && !grid.columnHidden(named)) return named;
    }
  }
  return column;
}

}  // namespace

FrmBBXS::FrmBBXS(FormHost& host, ReportView view) : Form(host, "FrmBBXS", "查看报表", Unload::Plain) {
  arrangeControls(view);
  showCaptions(view);
  MSFlexGrid1->setGrid(std::move(view.grid));
  MSFlexGrid1->widenColumns();
  MSFlexGrid1->fillWith(fillingColumn(MSFlexGrid1->grid()));
  MSFlexGrid1->freezeFirstColumn();
  arrangeMenu();
  view.grid = {};
  view_ = std::move(view);
}

void FrmBBXS::arrangeControls(const ReportView& view) {
  setCommands(tbToolBar, reportCommands({{"退出", &FrmBBXS::close}}));
  dressCommands();
  arrangePanel(view);
  arrangeScreen(this, tbToolBar, column({lblTitle, Picture1, wide(MSFlexGrid1)}));
  // The form can be made as small as one likes.
  layout()->setSizeConstraint(QLayout::SetNoConstraint);
  setMinimumSize(1, 1);
  resize(1100, 640);
  MSFlexGrid1->setFocus();
}

/// Two lines: the unit and the period, the conditions.
void FrmBBXS::arrangePanel(const ReportView& view) {
  auto* lines = new QGridLayout(Picture1);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setHorizontalSpacing(kCaptionGap);
  lines->setVerticalSpacing(kLineGap);
  lines->setColumnMinimumWidth(0, kCaptionWidth);
  lines->setColumnStretch(1, 1);
  for (const int line : {0, 1}) lines->setRowMinimumHeight(line, Combo1->sizeHint().height());
  Picture1->setFixedHeight(2 * Combo1->sizeHint().height() + lines->verticalSpacing());
  lines->addWidget(Label1[0], 0, 0);
  lines->addLayout(row({Label3, Combo1, stretch(), Command[0], Command[1], Command[2], Command[3]}), 0, 1);
  lines->addWidget(Label1[1], 1, 0);
  lines->addWidget(Label1[2], 1, view.secondLineMovedUp ? 0 : 1);
}

/// They bear pictures and do nothing.
void FrmBBXS::dressCommands() {
  constexpr std::array kPictures = {QStyle::SP_MediaSkipBackward, QStyle::SP_MediaSeekBackward,
                                    QStyle::SP_MediaSeekForward, QStyle::SP_MediaSkipForward};
  for (std::size_t i = 0; i < Command.size(); ++i) {
    Command[i]->setIcon(style()->standardIcon(kPictures[i]));
    Command[i]->setEnabled(false);
    Command[i]->setToolTip("此按钮在本界面不起作用");
    dressPick(Command[i]);
  }
}

void FrmBBXS::showCaptions(const ReportView& view) {
  for (QLabel* label : Label1) label->setTextFormat(Qt::PlainText);
  lblTitle->setText(toQt(view.title));
  lblTitle->setProperty("title", true);
  lblTitle->setAlignment(Qt::AlignCenter);
  Label1[0]->setText(toQt(view.unitLine));
  for (std::size_t i = 0; i < view.conditionLines.size(); ++i) {
    Label1[i + 1]->setText(toQt(view.conditionLines[i].text));
    Label1[i + 1]->setVisible(view.conditionLines[i].visible);
  }
  Label3->setText(toQt(view.periodCaption));
  for (const std::string& period : view.periods) Combo1->addItem(toQt(period));
  if (!view.periods.empty()) Combo1->setCurrentIndex(static_cast<int>(view.selectedPeriod));
  Combo1->setVisible(view.periodListVisible);
}

/// What is left for the grid's height must not be negative.
void FrmBBXS::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  if (height() >= pixelsOf(kAboveGrid, *this)) return;
  host().dispatch([] { throw RuntimeError(static_cast<ErrorNumber>(kInvalidPropertyValue), "无效属性值"); });
}

void showReportView(FormHost& host, ReportView& view) {
  FrmBBXS form(host, std::exchange(view, ReportView{}));
  host.showModal(form);
}

}  // namespace zelkor
