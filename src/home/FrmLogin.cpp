#include "home/FrmLogin.h"

#include "base/RuntimeError.h"
#include "ui/Focus.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr int kWidth = 460;
constexpr int kWarningHeight = 44;

}  // namespace

FrmLogin::FrmLogin(FormHost& host, const OpenedSet& opened, const std::optional<OpenPeriod>& open)
    : Form(host, "FrmLogin", "操作员与操作日期", Unload::Plain), opened_(opened), open_(open) {
  arrangeControls();
  TxtUser->setText(toQt(opened.user));
  TxtUser->selectAll();
  DateOp->setDate(QDate(opened.date.year(), opened.date.month(), opened.date.day()));
  warn();
  on(DateOp, &QDateEdit::dateChanged, &FrmLogin::warn);
  on(CmdOK, &QPushButton::clicked, &FrmLogin::CmdOK_Click);
  on(CmdCancel, &QPushButton::clicked, [this] { close(); });
}

void FrmLogin::arrangeControls() {
  LblSet->setProperty("title", true);
  LblSet->setText(toQt(opened_.set.account + " " + opened_.set.name));
  DateOp->setDisplayFormat("yyyy-MM-dd");
  DateOp->setCalendarPopup(true);
  LblWarning->setWordWrap(true);
  LblWarning->setMinimumHeight(kWarningHeight);
  LblWarning->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  LblWarning->setStyleSheet("color: #9a5b00;");
  arrange(this, column({LblSet, fields({{"操作员(&U)：", TxtUser}, {"操作日期(&D)：", DateOp}}), LblWarning,
                        stretch(), row({stretch(), CmdOK, CmdCancel})}));
  resize(kWidth, sizeHint().height());
}

DateTime FrmLogin::date() const {
  const QDate day = DateOp->date();
  return *DateTime::fromParts(day.year(), day.month(), day.day());
}

void FrmLogin::warn() {
  const std::string warning = warningOf(date(), open_, run().clock.now());
  LblWarning->setText(warning.empty() ? QString() : "⚠ " + toQt(warning));
}

void FrmLogin::CmdOK_Click() {
  OpenedSet entered = opened_;
  entered.user = fromQt(TxtUser->text().trimmed());
  entered.date = date();
  if (entered.user.empty()) {
    run().dialogs.MsgBox("请填写操作员！", Buttons::Ok, Icon::Exclamation, "固定资产工作台");
    return returnTo(*TxtUser);
  }
  try {
    requireCarriable(entered.set, entered.user);
  } catch (const RuntimeError& error) {
    run().dialogs.MsgBox(std::string(error.what()) + "。", Buttons::Ok, Icon::Exclamation, "固定资产工作台");
    return returnTo(*TxtUser);
  }
  agreed_ = std::move(entered);
  close();
}

std::optional<OpenedSet> askLogin(FormHost& host, const OpenedSet& opened,
                                  const std::optional<OpenPeriod>& open) {
  FrmLogin login(host, opened, open);
  host.showModal(login);
  return login.agreed();
}

}  // namespace zelkor
