#pragma once

#include <sys/stat.h>

#include <QApplication>
#include <QElapsedTimer>
#include <sstream>

#include "cards/CardImport.h"
#include "depreciation/RunMonthDepr.h"
#include "home/FrmHome.h"
#include "support/MonthlyRun.h"
#include "support/Paths.h"
#include "support/Widgets.h"
#include "transfer/backup/Backup.h"

namespace zelkor::test {

/// The workbench on a set whose reader is a thread of its own, with a script in the module's place.
class FrmHomeTest : public FormTest {
 protected:
  FrmHomeTest() {
    context.gdOpDate = day("2020-1-31");
    setenv("HOME", directory.path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (directory / "config").c_str(), 1);
  }

  OpenedSet opened() const {
    return {{context.gstrZtFile, context.gstrZkSysFile, "001", "示例账套", "", "陈会计", day("2020-1-1")},
            "陈会计",
            context.gdOpDate};
  }
  /// Enters the register and runs the month, as other programs would have.
  void useBooks() {
    std::ostringstream problems;
    importCards(context, readFile(dataFolder() / "sample-register.csv"), 1, problems);
    execute("update fa_departments set sSubjectNum='550202' where sNum<>'&'");
    expectWholeRun(dialogs);
    RunMonthDepr(context, {.depreciationList = [] {}, .allocationTable = [] {}});
    engine.flush();
  }
  /// Puts a program in the module's place that keeps its arguments, and then does as it is told.
  std::string module(const std::string& does) {
    const std::filesystem::path script = directory / "module";
    writeFile(script, "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + given().string() + "'\n" + does + "\n");
    ::chmod(script.c_str(), S_IRWXU);
    return script.string();
  }
  std::filesystem::path given() const { return directory / "given"; }
  /// Does something in the next modal form, in its time: once a child has ended.
  static void inComingForm(std::function<void(QWidget&)> action) {
    auto* look = new QTimer;
    const auto* before = QApplication::activeModalWidget();
    QObject::connect(look, &QTimer::timeout, [look, before, action = std::move(action)] {
      QWidget* form = QApplication::activeModalWidget();
      if (form == nullptr || form == before) return;
      look->stop();
      look->deleteLater();
      action(*form);
    });
    look->start(5);
  }
  /// A voucher of all that is staged, so that nothing but check and backup is left before the closing.
  void billAll() {
    execute("update fa_ZWVouchers set cDefine1='1'");
    engine.flush();
  }
  std::vector<ListedBackup> backups() const { return backupsIn(backupsBeside(context.gstrZtFile)); }

  /// Lets the event loop work until it is so.
  template <typename Condition>
  static void until(Condition holds, const char* what) {
    constexpr int kPatience = 20'000;
    QElapsedTimer waiting;
    waiting.start();
    while (!holds() && waiting.elapsed() < kPatience) QApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_TRUE(holds()) << what;
  }
  static void untilTold(const QWidget& form, const char* label, const std::string& text) {
    until([&] { return textOf(form, label).find(text) != std::string::npos; }, text.c_str());
    EXPECT_NE(textOf(form, label).find(text), std::string::npos) << textOf(form, label);
  }
  FrmHome& home(const std::string& does = "exit 0", const std::string& month = "2020年1月") {
    auto& form = host.show<FrmHome>(list, opened(), HomePrograms{module(does), zelkorctlProgram()});
    untilTold(form, "LblHeadline", month);
    until([&] { return !textOf(form, "LblFigure0").empty(); }, "read to the end");
    return form;
  }

  AccountSetList list{directory / "config/account-sets.tsv"};
};

}  // namespace zelkor::test
