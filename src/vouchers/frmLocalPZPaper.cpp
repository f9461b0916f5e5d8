#include <QAction>
#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QRegularExpressionValidator>

#include "ui/Layout.h"
#include "vouchers/frmLocalPZ.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kLineHeight = 30;

QLabel* printed(const char* text, QWidget* buddy = nullptr) {
  auto* label = new QLabel(text);
  label->setProperty("sheet", "open");
  label->setBuddy(buddy);
  return label;
}

/// A signature with its caption, at the left of its quarter of the line.
QLayout* signature(const char* caption, QLabel* name) {
  name->setProperty("sheet", "written");
  name->setMinimumWidth(90);
  return row({printed(caption), name, stretch()});
}

}  // namespace

void LocalPZ::arrangePaper() {
  setProperty("sheet", "paper");
  const struct {
    QWidget* control;
    const char* name;
  } names[] = {{caption_, "Caption"},       {state_, "VoucherState"}, {sign_, "VoucherSign"},
               {signButton_, "CmdSign"},    {date_, "VoucherDate"},   {attachments_, "Attachments"},
               {lines_, "Lines"},           {checker_, "Checker"},    {cashier_, "Cashier"},
               {bookkeeper_, "Bookkeeper"}, {billMaker_, "BillMaker"}};
  for (const auto& [control, name] : names) control->setObjectName(name);
  editor_->nameControls("TxtLine", "CmdLine");
  // Whole amounts up to twelve digits; more than two decimals no voucher has.
  amount_ = new QRegularExpressionValidator(QRegularExpression("-?[0-9,]{0,15}(\\.[0-9]{0,2})?"), this);

  lines_->setSelectionBehavior(QAbstractItemView::SelectItems);
  lines_->setAlternatingRowColors(false);
  lines_->verticalHeader()->setDefaultSectionSize(kLineHeight);
  auto* table = column({wide(lines_), totals_});
  table->setSpacing(0);
  auto* paper = column({title(), head(), wide(table), foot()});
  paper->setContentsMargins(28, 14, 28, 16);
  paper->setSpacing(10);
  setLayout(paper);
  setFocusProxy(lines_);
  setTabOrder(sign_, date_);
  setTabOrder(date_, attachments_);
  setTabOrder(attachments_, lines_);
}

/// The voucher's name in the middle, over a double line; its state at the right.
QLayout* LocalPZ::title() {
  caption_->setProperty("sheet", "title");
  caption_->setAlignment(Qt::AlignCenter);
  caption_->setMinimumSize(220, 40);
  caption_->setStyleSheet("border: none; border-bottom: 3px double #34568b; padding: 0 18px 4px 18px;");
  auto* line = new QGridLayout;
  line->addWidget(caption_, 0, 1, Qt::AlignCenter);
  line->addWidget(state_, 0, 2, Qt::AlignRight | Qt::AlignVCenter);
  line->setColumnStretch(0, 1);
  line->setColumnStretch(2, 1);
  return line;
}

QLayout* LocalPZ::head() {
  sign_->setReadOnly(true);
  sign_->setFixedWidth(64);
  sign_->setAlignment(Qt::AlignCenter);
  sign_->setStyleSheet("QLineEdit { background: white; color: #1f2933; }");
  sign_->setToolTip("F2 选择凭证类别，Delete 清除");
  signButton_->setProperty("pick", true);
  signButton_->setFocusPolicy(Qt::NoFocus);
  date_->setDisplayFormat("yyyy-MM-dd");
  date_->setMinimumDate(QDate(1899, 12, 30));
  date_->setSpecialValueText(" ");  // a voucher that has not been loaded has no date
  date_->setCalendarPopup(true);
  date_->setFixedWidth(126);
  attachments_->setRange(0, 32767);
  attachments_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  attachments_->setAlignment(Qt::AlignRight);
  attachments_->setFixedWidth(56);
  for (QAbstractSpinBox* field :
       {static_cast<QAbstractSpinBox*>(date_), static_cast<QAbstractSpinBox*>(attachments_)}) {
    field->setKeyboardTracking(false);
    field->setMinimumHeight(29);
  }
  return row({printed("凭证类别：", sign_), sign_, signButton_, stretch(), printed("制单日期：", date_),
              date_, stretch(), printed("附单据数：", attachments_), attachments_, printed("张")});
}

QLayout* LocalPZ::foot() {
  return column(
      {row({wide(signature("记账：", bookkeeper_)), wide(signature("审核：", checker_)),
            wide(signature("出纳：", cashier_)), wide(signature("制单：", billMaker_))}),
       note("回车 下一栏　F2 修改、参照　= 平衡金额　空格 借贷换向　Ins 插入分录　Ctrl+Del 删除分录")});
}

void LocalPZ::addMenu() {
  const struct {
    const char* caption;
    void (LocalPZ::*routine)();
  } entries[] = {{"插入分录\tIns", &LocalPZ::insertHere}, {"删除分录\tCtrl+Del", &LocalPZ::removeHere}};
  for (const auto& entry : entries) {
    auto* action = new QAction(entry.caption, lines_);
    on(action, &QAction::triggered, entry.routine);
    lines_->addAction(action);
  }
  lines_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

}  // namespace zelkor
