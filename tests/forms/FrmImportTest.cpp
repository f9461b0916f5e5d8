#include <sys/stat.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QTabWidget>

#include "home/FrmAccountSets.h"
#include "home/FrmImport.h"
#include "home/FrmImportJet.h"
#include "home/FrmRestore.h"
#include "support/Paths.h"
#include "support/Widgets.h"
#include "transfer/backup/Backup.h"

// What the workbench brings in from files, with a script in the tool's place.
namespace zelkor::test {
namespace {

constexpr const char* kTitle = "固定资产工作台";

class FrmImportTest : public FormTest {
 protected:
  FrmImportTest() {
    context.gdOpDate = day("2020-1-31");
    context.programFolder = directory.path().string();
    setenv("HOME", directory.path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (directory / "config").c_str(), 1);
  }

  OpenedSet opened() const {
    return {{context.gstrZtFile, context.gstrZkSysFile, "001", "示例账套", "", "陈会计", day("2020-1-1")},
            "陈会计",
            context.gdOpDate};
  }
  /// Puts a program in the tool's place that keeps its arguments, call by call, and does as it is told.
  std::string tool(const std::string& does) {
    const std::filesystem::path script = directory / "zelkorctl";
    writeFile(script, "#!/bin/sh\nprintf '%s\\n' \"$@\" >>'" + given().string() + "'\n" + does + "\n");
    ::chmod(script.c_str(), S_IRWXU);
    return script.string();
  }
  std::string carries(const std::string& told) const;
  static std::string call(const std::string& source, const std::string& target);
  std::filesystem::path given() const { return directory / "given"; }
  std::filesystem::path setFolder() const { return std::filesystem::path(context.gstrZtFile).parent_path(); }
  std::string fileOf(const std::string& name, const std::string& text) const {
    writeFile(directory / name, text);
    return directory / name;
  }
  /// A register of these values.
  std::string registerOf(const Lines& values) const {
    std::string csv =
        "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
        "备注\n";
    for (const std::string& value : values)
      csv += "车床,021,301,101,11,120,平均年限法(一),2018-03-05," + value + ",0.05,x\n";
    return fileOf("register.csv", csv);
  }
  /// Types the file's name, and Enter.
  static void choose(QWidget& form, const std::string& file) {
    control<QLineEdit>(form, "TxtFile").setFocus();
    type(form, "TxtFile", toQt(file));
    sendKey(control<QLineEdit>(form, "TxtFile"), Qt::Key_Return);
  }

  template <typename Condition>
  static void until(Condition holds) {
    constexpr int kPatience = 20'000;
    QElapsedTimer waiting;
    waiting.start();
    while (!holds() && waiting.elapsed() < kPatience) QApplication::processEvents(QEventLoop::AllEvents, 20);
  }
  static void untilTold(const QWidget& form, const std::string& text) {
    until([&] { return textOf(form, "LblState").find(text) != std::string::npos; });
    EXPECT_NE(textOf(form, "LblState").find(text), std::string::npos) << textOf(form, "LblState");
  }
  static bool can(const QWidget& form, const char* button) {
    return control<QPushButton>(form, button).isEnabled();
  }

  AccountSetList list{directory / "config/account-sets.tsv"};
};

TEST_F(FrmImportTest, AFileIsLookedAtThenImportedAndItsRefusedRowsAreKept) {
  const std::string file = registerOf({"7000", "8OOO"});
  const std::string program = tool(
      "for word; do case $last in --refused) echo bad >\"$word\";; esac; last=$word; done\n"
      "printf '\\r正在导入卡片 50%%\\033[K\\r\\033[K' >&2; echo 第3行，列“原值”：不是数字 >&2\n"
      "echo 共 2 行：已保存 1 行，拒绝 1 行; echo 拒绝的行已存入 x; exit 1");
  auto& form = host.show<FrmImport>(ImportKind::Cards, opened(), program);
  EXPECT_FALSE(can(form, "CmdImport"));
  choose(form, file);
  untilTold(form, "共 2 行：可以导入 1 行，有问题 1 行");
  EXPECT_EQ(columnOf(form, "GridProblems", 2), Lines{"“8OOO”不是数字"});
  EXPECT_EQ(columnOf(form, "GridRows", 9), (Lines{"7000", "8OOO"}));
  EXPECT_EQ(columnOf(form, "GridColumns", 1).back(), "不认识，不导入");
  const auto& columns = control<FlexGrid>(form, "GridColumns");
  EXPECT_GT(columns.columnWidth(0), columns.fontMetrics().horizontalAdvance("固定资产名称"));
  EXPECT_EQ(control<QTabWidget>(form, "TabsPreview").currentIndex(), 2);
  EXPECT_EQ(row("select count(*) from fa_Cards"), "0");
  keepPicture(form, "FrmImport");

  click(form, "CheckBackup");
  click(form, "CmdImport");
  untilTold(form, "导入完成。共 2 行：已保存 1 行，拒绝 1 行");
  const std::string refused = directory / "register.拒绝.csv";
  EXPECT_NE(textOf(form, "LblState").find(refused), std::string::npos);
  EXPECT_EQ(readFile(given()), "cards\nimport\n" + context.gstrZtFile + ",陈会计,2020-01-31,5," +
                                   context.gstrZkSysFile + ",001\n" + file + "\n--refused\n" + refused +
                                   "\n--progress\n--new-type\n1\n--backup\n" +
                                   (setFolder() / "backups").string() + "\n");
  EXPECT_TRUE(control<QPushButton>(form, "CmdRefused").isVisible());
  EXPECT_FALSE(can(form, "CmdImport")) << "not twice";
  EXPECT_TRUE(form.imported());
  inModalForm([](QWidget& detail) {
    const QString told = control<QPlainTextEdit>(detail, "TxtDetail").toPlainText();
    EXPECT_TRUE(told.contains("第3行，列“原值”")) << told.toStdString();
    EXPECT_FALSE(told.contains("50%"));
    click(detail, "CmdClose");
  });
  click(form, "CmdDetail");
}

/// The rows are stored by then: whoever gave the whole file again would have them twice.
TEST_F(FrmImportTest, RefusedRowsThatCannotBeKeptAreNoFailureOfTheImport) {
  auto& form = host.show<FrmImport>(
      ImportKind::Cards, opened(),
      tool("echo 共 2 行：已保存 1 行，拒绝 1 行; echo zelkorctl: 错误 57：磁盘空间不足 >&2; exit 1"));
  choose(form, registerOf({"7000", "8OOO"}));
  untilTold(form, "可以导入 1 行");
  click(form, "CmdImport");
  untilTold(form, "导入完成。共 2 行：已保存 1 行，拒绝 1 行\n拒绝的行没能另存");
  EXPECT_NE(textOf(form, "LblState").find("不要再导入整个文件"), std::string::npos);
  EXPECT_FALSE(control<QPushButton>(form, "CmdRefused").isVisible());
  EXPECT_TRUE(control<QPushButton>(form, "CmdDetail").isVisible());
}

TEST_F(FrmImportTest, WhatCannotBeImportedIsTold) {
  auto& form = host.show<FrmImport>(ImportKind::Sheets, opened(), tool("exit 0"));
  EXPECT_FALSE(control<QComboBox>(form, "CmbNewType").isVisible());
  const std::string pipe = directory / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRWXU), 0);
  const std::pair<std::string, const char*> cases[] = {
      {(directory / "nowhere.csv").string(), "不能读文件"},
      {directory.path().string(), "是一个目录"},
      {pipe, "不是普通的文件"},
      {fileOf("nothing.csv", ""), "文件是空的"},
      {fileOf("bad.xlsx", "PK\x03\x04x"), "工作簿读不出来"},
      {fileOf("empty.csv", "变动类型,卡片编号,变动后内容,变动原因\n"), "只有表头"},
      {registerOf({"1"}), "不能导入：表头中缺少列“变动类型”、“卡片编号”、“变动后内容”、“变动原因”"},
      {fileOf("no.csv", "变动类型,卡片编号,变动后内容,变动原因\n原值增加,9,1,x\n"),
       "可以导入 0 行，有问题 1 行"},
  };
  for (const auto& [file, reason] : cases) {
    choose(form, file);
    untilTold(form, reason);
    EXPECT_FALSE(can(form, "CmdImport")) << file;
    sendKey(form, Qt::Key_Return);
  }
  EXPECT_FALSE(std::filesystem::exists(given()));
  sendKey(form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmImportTest, TheWindowStaysWhileItIsImported) {
  const std::string gate = (directory / "gate").string();
  ASSERT_EQ(::mkfifo(gate.c_str(), S_IRWXU), 0);
  auto& form = host.show<FrmImport>(
      ImportKind::Cards, opened(),
      tool("printf '\\r正在导入卡片 40%%\\033[K' >&2; read line <'" + gate + "'; kill -9 $$"));
  choose(form, registerOf({"1"}));
  untilTold(form, "可以导入 1 行");
  click(form, "CmdImport");
  untilTold(form, "正在导入卡片 40%");
  EXPECT_FALSE(can(form, "CmdImport"));
  tells("正在导入，请等它结束。", Icon::Information, kTitle);
  sendKey(form, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
  writeFile(gate, "on\n");
  untilTold(form, "“导入卡片”没有正常结束：被信号 9 终止");
  EXPECT_TRUE(form.imported()) << "nobody knows";
}

TEST_F(FrmImportTest, ABackupIsChosenAndRestored) {
  const std::string folder = setFolder();
  engine.flush();
  backUp({.data = context.gstrZtFile,
          .system = context.gstrZkSysFile,
          .account = "001",
          .to = folder + "/backups",
          .label = "结账前",
          .program = "1",
          .now = day("2020-1-31")});
  auto& form = host.show<FrmRestore>(folder, tool("echo 已恢复 x：y; exit 0"));
  until([&] { return can(form, "CmdRestore"); });
  EXPECT_EQ(columnOf(form, "GridBackups", 6), Lines{"结账前"});
  keepPicture(form, "FrmRestore");
  const ListedBackup backup = backupsIn(folder + "/backups").front();
  type(form, "TxtTarget", "relative");
  dialogs.expectOk("请指明账套放在哪个文件夹（从 / 开始的路径）！", Icon::Exclamation, kTitle);
  click(form, "CmdRestore");
  const std::string target = directory / "new";
  type(form, "TxtTarget", toQt(target));
  dialogs.expectYesNo("把 2020-01-31 00:00 的备份（" + backup.note.name + "，" + backup.note.month +
                          "）恢复到 " + target + "？",
                      Answer::Yes, Icon::Question, kTitle);
  click(form, "CmdRestore");
  untilTold(form, "已恢复到 " + target);
  EXPECT_EQ(readFile(given()), "restore\n" + backup.folder.string() + "\n" + target + "\n");
  EXPECT_EQ(form.restored(), target);
  context.dbZKSystem.Execute("update za_account set cUnitName='新单位'");
  engine.flush();
  type(form, "TxtTarget", toQt(folder));
  MessageBox box{"用 2020-01-31 00:00 的备份（" + backup.note.name + "，" + backup.note.month + "）替换 " +
                     folder +
                     " 中的账套？备份以后的记录都不在其中；原来的账套先备份。\n\n"
                     "账套号相同，名称或使用单位不同：现在是“" +
                     backup.note.name + "”（新单位），备份是" + nameOfSet(backup.note) + "。",
                 Buttons::YesNo, Icon::Exclamation, kTitle};
  box.defaultButton = DefaultButton::Second;
  dialogs.expect(box, Answer::Yes);
  click(form, "CmdRestore");
  untilTold(form, "已恢复到 " + folder);
  EXPECT_TRUE(
      readFile(given()).ends_with("restore\n" + backup.folder.string() + "\n" + folder + "\n--renamed\n"));
  type(form, "TxtFrom", toQt((directory / "nowhere").string()));
  sendKey(control<QLineEdit>(form, "TxtFrom"), Qt::Key_Return);
  untilTold(form, "没有这个文件夹");
  EXPECT_FALSE(can(form, "CmdRestore"));
}

/// A tool that carries the files of the tests' account set, but none that is called wrong.
std::string FrmImportTest::carries(const std::string& told) const {
  return "case $2 in *wrong.mdb) echo 不是 Jet 文件 >&2; exit 1;; esac\ncp '" + setFolder().string() +
         "'/\"${3##*/}\" \"$3\"; echo '" + told + "'; exit 1";
}
std::string FrmImportTest::call(const std::string& source, const std::string& target) {
  return "import\n" + source + "\n" + target + "\n--check\n";
}

TEST_F(FrmImportTest, WhatWasCarriedOfAnOldSetIsNotCarriedAgain) {
  const std::string data = fileOf("zkdata.mdb", "x");
  const std::string wrong = fileOf("wrong.mdb", "x");
  const std::string right = fileOf("right.mdb", "x");
  const std::string folder = directory / "set";
  engine.flush();
  auto& form = host.show<FrmImportJet>(tool(carries("x")));
  const auto import = [&](const std::string& system) {
    type(form, "TxtSystem", toQt(system));
    click(form, "CmdImport");
  };
  type(form, "TxtData", toQt(data));
  type(form, "TxtFolder", toQt(folder));
  import(wrong);
  untilTold(form, "数据文件已经导入；改正后再点“导入”");
  import(right);
  untilTold(form, "有些内容没有照原样导入");
  EXPECT_EQ(readFile(given()), call(data, folder + "/ZkData.Mdb") + call(wrong, folder + "/ZkSystem.Mdb") +
                                   call(right, folder + "/ZkSystem.Mdb"));
}

TEST_F(FrmImportTest, TwoOldFilesBecomeASetInTheList) {
  std::filesystem::create_directory(directory / "old");
  const std::string data = fileOf("old/zkdata.mdb", "x");
  const std::string system = fileOf("old/zksystem.mdb", "x");
  const std::string folder = directory / "set";
  tool(carries("表 fa_Status，第3行，列“sName”：含有不能解读的字符"));
  engine.flush();
  auto& form = host.show<FrmAccountSets>(list);
  inModalForm([&](QWidget& import) { click(import, "CmdClose"); });
  click(form, "CmdJet");
  EXPECT_TRUE(list.sets().empty());
  inModalForm([&](QWidget& import) {
    type(import, "TxtData", toQt(data + "x"));
    dialogs.expectOk("请选择旧数据文件！", Icon::Exclamation, kTitle);
    click(import, "CmdImport");
    type(import, "TxtData", toQt(data));
    sendKey(control<QLineEdit>(import, "TxtData"), Qt::Key_Return);
    until([&] { return textOf(import, "TxtSystem") == system; });
    EXPECT_EQ(textOf(import, "TxtSystem"), system);
    type(import, "TxtFolder", toQt(folder + ",2"));
    dialogs.expectOk("参数串以逗号分隔，数据文件“" + folder + ",2”中有逗号或首尾有空格，不能传递。",
                     Icon::Exclamation, kTitle);
    click(import, "CmdImport");
    type(import, "TxtFolder", toQt(folder));
    click(import, "CmdImport");
    untilTold(import, "有些内容没有照原样导入");
    keepPicture(import, "FrmImportJet");
    EXPECT_FALSE(can(import, "CmdImport"));
    click(import, "CmdClose");
  });
  click(form, "CmdJet");
  EXPECT_EQ(readFile(given()), call(data, folder + "/ZkData.Mdb") + call(system, folder + "/ZkSystem.Mdb"));
  ASSERT_EQ(list.sets().size(), 1U);
  EXPECT_EQ(list.sets().front().dataFile, folder + "/ZkData.Mdb");
}

}  // namespace
}  // namespace zelkor::test
