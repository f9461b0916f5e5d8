// Shows every screen on a sample account set and keeps a picture of it: zelkor_screenshots <folder>

#include "startup/Main.h"

#include <filesystem>
#include <functional>
#include <iostream>
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "archives/FrmAllPerson.h"
#include "archives/FrmDepartment.h"
#include "archives/FrmDepartPzCode.h"
#include "archives/FrmFLBMB.h"
#include "archives/frmUseStatus.h"
#include "archives/FrmZJFFCZ.h"
#include "base/TerminalDialogs.h"
#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "store/AccountSet.h"
#include "store/FrmInit.h"
#include "store/FrmXUANXIANG.h"
#include "ui/FormHost.h"
#include "ui/Theme.h"
#include "vouchers/frmPZCode.h"

namespace zelkor {
namespace {

/// A sample account set in May 2020 with a host for its screens.
class Stage {
 public:
  Stage(const std::filesystem::path& set, std::filesystem::path pictures)
      : pictures_(std::move(pictures)), dialogs_(std::cin, std::cerr), context_(engine_, dialogs_, clock_) {
    prepareRun(context_, (set / "ZkData.Mdb").string() + ",陈会计,2020-05-15,4," +
                             (set / "ZkSystem.Mdb").string() + ",001");
  }

  FormHost& host() { return host_; }
  template <typename FormType>
  FormType& open() {
    return host_.show<FormType>();
  }
  /// Keeps the picture of a form once what it has put off is done.
  void keep(QWidget& form, const std::string& name) {
    QApplication::processEvents();
    const auto file = pictures_ / (name + ".png");
    if (!form.grab().save(QString::fromStdString(file.string()))) {
      throw std::runtime_error("cannot write " + file.string());
    }
    std::cout << file.string() << " " << form.width() << "x" << form.height() << "\n";
  }

 private:
  std::filesystem::path pictures_;
  DbEngine engine_;
  TerminalDialogs dialogs_;
  FixedClock clock_{*parseDate("2020-5-15 9:30:00")};
  RunContext context_;
  FormHost host_{context_, [](int) {}};
};

void click(QWidget& form, const char* name) {
  form.findChild<QAbstractButton*>(name)->click();
}

void press(QWidget& form, const char* caption) {
  form.findChild<QAction*>(caption)->trigger();
}

void selectNode(QWidget& form, const QString& text) {
  auto* tree = form.findChild<QTreeWidget*>();
  for (QTreeWidgetItemIterator it(tree); *it; ++it) {
    if ((*it)->text(0) == text) tree->setCurrentItem(*it);
  }
}

void showWizard(Stage& stage) {
  FrmInit& form = stage.open<FrmInit>();
  click(form, "OptionYes");
  form.findChild<QLineEdit*>("TxtGDZCDZKM")->setText("1501,固定资产");
  form.findChild<QLineEdit*>("TxtLJZJDZKM")->setText("1502,累计折旧");
  for (const char step : std::string("123456")) {
    stage.keep(form, std::string("FrmInit-") + step);
    click(form, "CmdNext");
  }
}

void showOptions(Stage& stage) {
  FrmXUANXIANG& form = stage.open<FrmXUANXIANG>();
  auto* tabs = form.findChild<QTabWidget*>();
  for (int i = 0; i < tabs->count(); ++i) {
    tabs->setCurrentIndex(i);
    stage.keep(form, "FrmXUANXIANG-" + std::to_string(i + 1));
  }
}

void showCategories(Stage& stage) {
  FrmFLBMB& form = stage.open<FrmFLBMB>();
  stage.keep(form, "FrmFLBMB-list");
  selectNode(form, "(02)机器设备");
  press(form, "增加");
  stage.keep(form, "FrmFLBMB-add");
}

void showDepartments(Stage& stage) {
  FrmDepartment& form = stage.open<FrmDepartment>();
  selectNode(form, "(301)一车间");
  stage.keep(form, "FrmDepartment");
  press(form, "修改");
  form.findChild<QLineEdit*>("TxtEdit6")->setText("两班制");
  stage.keep(form, "FrmDepartment-edit");
  FrmDepartPzCode& subjects = stage.open<FrmDepartPzCode>();
  stage.keep(subjects, "FrmDepartPzCode-list");
  selectNode(subjects, "(301)一车间");
  press(subjects, "修改");
  stage.keep(subjects, "FrmDepartPzCode-edit");
}

void showStatuses(Stage& stage) {
  frmUseStatus& form = stage.open<frmUseStatus>();
  stage.keep(form, "frmUseStatus-list");
  selectNode(form, "使用中");
  press(form, "增加");
  stage.keep(form, "frmUseStatus-add");
}

void showDepreciation(Stage& stage) {
  stage.keep(stage.open<frmZJQD>(), "frmZJQD");
  stage.keep(stage.open<FrmZJFPB>(), "FrmZJFPB");
  stage.keep(stage.open<frmGZL>(), "frmGZL");
}

void showPickers(Stage& stage) {
  FrmZJFFCZ methods(stage.host());
  methods.setpZJFF("工作量法");
  methods.show();
  stage.keep(methods, "FrmZJFFCZ");
  frmPZCode subjects(stage.host());
  selectNode(subjects, "1501 固定资产");
  subjects.show();
  stage.keep(subjects, "frmPZCode");
  ClsBLLDepart departs(stage.host().run().engine);
  departs.setZkDataPath(stage.host().run().gstrZtFile);
  FrmAllPerson staff(stage.host());
  staff.setAllPerson(departs.GetAllPersons());
  staff.show();
  stage.keep(staff, "FrmAllPerson");
}

void takePictures(const std::filesystem::path& pictures) {
  std::filesystem::create_directories(pictures);
  const auto set = std::filesystem::temp_directory_path() / ("zelkor-pictures-" + std::to_string(getpid()));
  std::filesystem::create_directories(set);
  createAccountSet(set, {.account = "001", .year = 2020, .month = 1, .sample = true});
  {
    Stage stage(set, pictures);
    showWizard(stage);
    showOptions(stage);
    showCategories(stage);
    showDepartments(stage);
    showStatuses(stage);
    showDepreciation(stage);
    showPickers(stage);
  }
  std::filesystem::remove_all(set);
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: zelkor_screenshots <folder>\n";
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  zelkor::applyTheme(application);
  QCursor::setPos(4000, 4000);  // no button looks touched
  try {
    zelkor::takePictures(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
