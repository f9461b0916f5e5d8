#include "home/FrmNewAccountSet.h"

#include <filesystem>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>

#include "base/RuntimeError.h"
#include "home/AccountSetState.h"
#include "store/accountset/ServerAccountSet.h"
#include "ui/Focus.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr int kWidth = 560;
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2999;
constexpr int kMonths = 12;
constexpr const char* kTitle = "固定资产工作台";

/// Makes the set; returns why it could not, or nothing.
std::string failureOfMaking(const std::string& folder, const std::string& server,
                            const AccountSetOptions& options) {
  try {
    if (server.empty()) {
      createAccountSet(folder, options);
    } else {
      createServerAccountSet(server, folder, options);
    }
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace

FrmNewAccountSet::FrmNewAccountSet(FormHost& host)
    : Form(host, "FrmNewAccountSet", "新建账套", Unload::Plain) {
  arrangeControls();
  on(CmdFolder, &QPushButton::clicked, &FrmNewAccountSet::CmdFolder_Click);
  on(CmdOK, &QPushButton::clicked, &FrmNewAccountSet::CmdOK_Click);
  on(CmdCancel, &QPushButton::clicked, [this] { close(); });
}

void FrmNewAccountSet::arrangeControls() {
  const DateTime today = run().clock.now();
  TxtAccount->setText(toQt(AccountSetOptions().account));
  SpinYear->setRange(kFirstYear, kLastYear);
  SpinYear->setValue(today.year());
  SpinMonth->setRange(1, kMonths);
  SpinMonth->setValue(today.month());
  TxtServer->setPlaceholderText("留空：建在文件夹里。例：host=pg dbname=zelkor");
  TxtFolder->setPlaceholderText("一个新的文件夹，例：/home/li/账套001");
  dressPick(CmdFolder, TxtFolder);
  SpinMonth->setAccessibleName("启用月");
  SpinMonth->setSuffix(" 月");
  SpinYear->setSuffix(" 年");
  arrange(this, column({fields({{"账套名称(&N)：", TxtName},
                                {"使用单位(&U)：", TxtUnit},
                                {"账套主管(&M)：", TxtManager},
                                {"账套号(&I)：", TxtAccount},
                                {"启用年月(&Y)：", row({SpinYear, SpinMonth, stretch()})},
                                {"", CheckSample},
                                {"文件夹(&F)：", row({wide(TxtFolder), CmdFolder})},
                                {"服务器(&V)：", TxtServer}}),
                        note("账套是文件夹里的两个文件：ZkData.Mdb 和 "
                             "ZkSystem.Mdb。建在服务器上时，两个文件只指明服务器，不写口令。"),
                        stretch(), row({stretch(), CmdOK, CmdCancel})}));
  resize(kWidth, sizeHint().height());
}

/// A box with arrows moves on like any other field.
bool FrmNewAccountSet::enterPressed(QObject* control) {
  return (control == SpinYear || control == SpinMonth) && focusNextChild();
}

void FrmNewAccountSet::CmdFolder_Click() {
  const QString folder = QFileDialog::getExistingDirectory(this, "账套放在哪个文件夹", TxtFolder->text());
  if (!folder.isEmpty()) TxtFolder->setText(folder);
}

AccountSetOptions FrmNewAccountSet::options() const {
  return {.account = fromQt(TxtAccount->text().trimmed()),
          .year = SpinYear->value(),
          .month = SpinMonth->value(),
          .sample = CheckSample->isChecked(),
          .name = fromQt(TxtName->text().trimmed()),
          .unit = fromQt(TxtUnit->text().trimmed()),
          .manager = fromQt(TxtManager->text().trimmed())};
}

void FrmNewAccountSet::refuse(const std::string& reason, QWidget& field) {
  run().dialogs.MsgBox(reason, Buttons::Ok, Icon::Exclamation, kTitle);
  returnTo(field);
}

void FrmNewAccountSet::CmdOK_Click() {
  const std::string folder = fromQt(TxtFolder->text().trimmed());
  if (options().account.empty()) return refuse("请填写账套号！", *TxtAccount);
  if (!folder.starts_with('/')) return refuse("请指明账套放在哪个文件夹（从 / 开始的路径）！", *TxtFolder);
  KnownAccountSet wanted;
  wanted.dataFile = folder;
  wanted.account = options().account;
  try {
    requireCarriable(wanted, "");
  } catch (const RuntimeError& error) {
    return refuse(std::string(error.what()) + "。", *TxtFolder);
  }
  create(folder);
}

// On a server this takes its time.
void FrmNewAccountSet::create(const std::string& folder) {
  lock(true);
  worker_.start([this, folder, server = fromQt(TxtServer->text().trimmed()), chosen = options()] {
    return [this, folder, failure = failureOfMaking(folder, server, chosen)] {
      host().dispatch([&] { ended(folder, failure); });
    };
  });
}

void FrmNewAccountSet::lock(bool making) {
  making_ = making;
  CmdOK->setEnabled(!making);
  CmdOK->setText(making ? "正在建立…" : "确定");
}

// A set that is made is listed, too.
void FrmNewAccountSet::closeEvent(QCloseEvent* event) {
  if (!making_) return Form::closeEvent(event);
  event->ignore();
  host().dispatch(
      [this] { run().dialogs.MsgBox("正在建立账套，请等它结束。", Buttons::Ok, Icon::Information, kTitle); });
}

void FrmNewAccountSet::ended(const std::string& folder, const std::string& failure) {
  lock(false);
  if (!failure.empty()) return refuse("没有建立账套：" + failure, *TxtFolder);
  made_ = accountSetsAt(folder).front();
  close();
}

}  // namespace zelkor
