#include "closing/frmYMJZ.h"

#include <memory>
#include <QBoxLayout>
#include <QEventLoopLocker>
#include <QLabel>

#include "closing/frmWaiting.h"
#include "closing/MonthEnd.h"
#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kIndent = 24;

QLabel* text(const char* words) {
  return new QLabel(words);
}

/// Lines that belong to the one before them.
QBoxLayout* list(std::initializer_list<const char*> lines) {
  QBoxLayout* items = column({});
  items->setContentsMargins(kIndent, 0, 0, 0);
  for (const char* line : lines) items->addWidget(text(line));
  return items;
}

}  // namespace

frmYMJZ::frmYMJZ(FormHost& host) : Form(host, "frmYMJZ", "月末结账...", Unload::Plain) {
  arrangeControls();
  on(cmdStart, &QPushButton::clicked, &frmYMJZ::cmdStart_Click);
  on(cmdCancel, &QPushButton::clicked, [this] { close(); });
}

void frmYMJZ::arrangeControls() {
  QLabel* heading = text("此操作将花费一定得时间，请认真阅读以下说明后再确定是否进行[月末结账]：");
  heading->setProperty("title", true);
  arrange(this,
          column({heading, space(4), text("请确认已正确地完成了本月的如下操作："),
                  list({"1、正确录入了所有原始资产卡片，新增资产卡片", "2、正确录入了所有变动单",
                        "3、正确录入了本月应进行的资产评估", "4、正确录入了本月资产的所有工作量",
                        "5、正确完成了业务数据的备份"}),
                  space(4), text("月末结账将使本会计期间的所有数据不能修改，而且将进行一系列的自动操作："),
                  list({"1、备份月末结账前 固定资产 帐套状态", "2、整理卡片数据", "3、准备报表数据",
                        "4、对账(要求自动对账情况下)", "5、封账"}),
                  stretch(), rule(), row({stretch(), cmdStart, cmdCancel})}));
  setFixedSize(sizeHint());
  // What is closed cannot be opened again: the key that is pressed without a look must not begin it.
  setDefaultButton(cmdCancel);
  cmdCancel->setFocus();
}

void frmYMJZ::cmdStart_Click() {
  // While the screen is hidden no window may be left at times, which must not end the process.
  const QEventLoopLocker running;
  hide();
  auto waiting = std::make_unique<frmWaiting>(host());
  waiting->show();
  closeMonth(run(), {.backup = [&](int percent) { waiting->setPercent(percent); },
                     .backupEnded = [&](const auto& /*failure*/) { waiting.reset(); }});
  // It did not come to its end. A screen that stays hidden would keep the module from being started again.
  waiting.reset();
  show();
}

}  // namespace zelkor
