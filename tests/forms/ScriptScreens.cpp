#include <optional>

#include "apps/zelkor/Screens.h"
#include "archives/FrmDepartment.h"
#include "archives/FrmDepartPzCode.h"
#include "archives/FrmFATypes.h"
#include "archives/FrmFLBMB.h"
#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "archives/frmType.h"
#include "archives/frmUseStatus.h"
#include "archives/FrmZJFFCZ.h"
#include "archives/SyncDepartments.h"
#include "cards/CardFixture.h"
#include "cards/FrmAddCards.h"
#include "cards/FrmManageCards.h"
#include "changes/FrmBalanType.h"
#include "changes/frmDepart.h"
#include "changes/FrmFABalance.h"
#include "changes/frmMoreDep.h"
#include "changes/frmProject.h"
#include "closing/frmDelZC.h"
#include "closing/frmReduceBLL.h"
#include "closing/frmYMJZ.h"
#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "forms/ScriptTest.h"
#include "reports/FrmBB.h"
#include "reports/FrmBBTJ.h"
#include "store/settings/FrmInit.h"
#include "store/settings/FrmXUANXIANG.h"
#include "vouchers/FrmBatBill.h"
#include "vouchers/FrmEditPZType.h"
#include "vouchers/frmPZCode.h"
#include "vouchers/frmPZCode1.h"
#include "vouchers/frmPZDigest.h"
#include "vouchers/frmPZFill.h"
#include "vouchers/FrmQueryPZ.h"
#include "vouchers/FrmSetPZType.h"

namespace zelkor::test {
namespace {

using Opener = QWidget& (*)(ScriptTest& test, const Arguments& a);

template <typename Form>
QWidget& plain(ScriptTest& test, const Arguments&) {
  return test.host.show<Form>();
}

/// A screen that opens a data file itself: that of the set, or one that is not there.
template <typename Form>
QWidget& onFile(ScriptTest& test, const Arguments& a) {
  return test.host.show<Form>(a.word(1) == "missing" ? test.missingFile() : test.context.gstrZtFile);
}

/// With the code of the entry so far, if there is one.
template <ArchiveKind kind>
QWidget& archive(ScriptTest& test, const Arguments& a) {
  auto& form = test.host.show<FrmFATypes>(kind);
  if (!a.word(1).empty()) form.setAssetTypeID(a.word(1));
  return form;
}

template <StatusPick offered>
QWidget& statuses(ScriptTest& test, const Arguments& a) {
  auto& form = test.host.show<frmSelectUseStatus>(offered);
  if (!a.word(1).empty()) form.setCode(a.word(1));
  return form;
}

QWidget& otherSubjects(ScriptTest& test, const Arguments&) {
  auto& form = test.host.show<frmPZCode1>();
  EXPECT_TRUE(nodesOf(form, "TvCode").empty()) << "until it is given a database";
  form.setZKDatabase(test.context.dbZKData);
  return form;
}

template <typename Form>
QWidget& voucherTypes(ScriptTest& test, const Arguments&) {
  const auto types = std::make_shared<ClsBLLPZType>(test.engine);
  types->setZkDataPath(test.context.gstrZtFile);
  test.owned.push_back(types);
  return test.host.show<Form>(*types);
}

QWidget& conditions(ScriptTest& test, const Arguments& a) {
  const auto view = std::make_shared<ReportView>();
  test.owned.push_back(view);
  return test.host.show<FrmBBTJ>(*findReport(a.behind(1)), *view);
}

QWidget& ways(ScriptTest& test, const Arguments&) {
  auto& form = test.host.show<frmType>();
  form.setZkDataPath(test.context.gstrZtFile);
  return form;
}

/// "new 021", "asset 032", "stored 3", "view 3".
QWidget& card(ScriptTest& test, const Arguments& a) {
  const std::map<std::string, CardMode> modes{{"new", CardMode::Original},
                                              {"asset", CardMode::NewAsset},
                                              {"stored", CardMode::Stored},
                                              {"view", CardMode::Stored}};
  const CardMode mode = modes.at(a.word(1));
  const bool isNew = mode != CardMode::Stored;
  QWidget& form = test.host.show<FrmAddCards>(ScreenProperties{.AssetTypeID = isNew ? a.word(2) : "",
                                                               .frmType = static_cast<std::int16_t>(mode),
                                                               .CardID = isNew ? "52" : a.word(2),
                                                               .bView = a.word(1) == "view"});
  ScriptTest::settle();  // the window becomes the active one, in which the focus moves
  return form;
}

/// By the card's number and its value; "depreciation" is the month's.
VoucherRequest requested(ScriptTest& test, const Arguments& a) {
  return a.word(1) == "depreciation" ? test.depreciationVoucher() : test.cardVoucher(a.word(1), a.word(2));
}

QWidget& voucher(ScriptTest& test, const Arguments& a) {
  return test.host.show<frmPZFill>(a.word(1) == "saved" ? test.saved.value() : requested(test, a));
}

const std::map<std::string, Opener>& openers() {
  static const std::map<std::string, Opener> openers{
      {"FrmAddCards", card},
      {"FrmBalanType", plain<FrmBalanType>},
      {"FrmBatBill", plain<FrmBatBill>},
      {"FrmBB", plain<FrmBB>},
      {"FrmBBTJ", conditions},
      {"FrmDepartment", plain<FrmDepartment>},
      {"FrmDepartPzCode", plain<FrmDepartPzCode>},
      {"FrmEditPZType", voucherTypes<FrmEditPZType>},
      {"FrmFABalance", onFile<FrmFABalance>},
      {"FrmFATypes-types", archive<ArchiveKind::AssetTypes>},
      {"FrmFATypes-departments", archive<ArchiveKind::Departments>},
      {"FrmFATypes-origins", archive<ArchiveKind::Origins>},
      {"FrmFATypes-statuses", archive<ArchiveKind::Statuses>},
      {"FrmFATypes-methods", archive<ArchiveKind::Methods>},
      {"FrmFLBMB", plain<FrmFLBMB>},
      {"FrmInit", plain<FrmInit>},
      {"FrmManageCards", onFile<FrmManageCards>},
      {"FrmQueryPZ", onFile<FrmQueryPZ>},
      {"FrmSetPZType", voucherTypes<FrmSetPZType>},
      {"FrmXUANXIANG", plain<FrmXUANXIANG>},
      {"FrmZJFFCZ", plain<FrmZJFFCZ>},
      {"FrmZJFPB", plain<FrmZJFPB>},
      {"frmDelZC", plain<frmDelZC>},
      {"frmDepart", plain<frmDepart>},
      {"frmGZL", plain<frmGZL>},
      {"frmMoreDep", plain<frmMoreDep>},
      {"frmProject", plain<frmProject>},
      {"frmPZCode", plain<frmPZCode>},
      {"frmPZCode1", otherSubjects},
      {"frmPZDigest", plain<frmPZDigest>},
      {"frmPZFill", voucher},
      {"frmReduceBLL", plain<frmReduceBLL>},
      {"frmSelectDepart", plain<frmSelectDepart>},
      {"frmSelectUseStatus", statuses<StatusPick::Reductions>},
      {"frmSelectUseStatus-statuses", statuses<StatusPick::Statuses>},
      {"frmType", ways},
      {"frmUseStatus", plain<frmUseStatus>},
      {"frmYMJZ", plain<frmYMJZ>},
      {"frmZJQD", plain<frmZJQD>},
  };
  return openers;
}

std::string entryText(const std::optional<ArchiveEntry>& entry) {
  return entry ? entry->code + "|" + entry->name : "";
}

std::string splitText(const DepartSplit& split) {
  return split.codes + split.names + split.scales + "|" + split.subjects + split.itemClasses + split.projects;
}

/// A card of the register, entered that day.
void enterCard(ScriptTest& test, const std::string& number, const std::string& entered) {
  struct Values : CardTest {
    using CardTest::card;
  };
  CardValues values = Values::card(number, "021" + number);
  values[CardField::EntryDate] = entered;
  ClsBLLFACards cards(test.context);
  cards.setZkDataPath(test.context.gstrZtFile);
  ASSERT_TRUE(cards.SaveNewCard(values, 5, NewCardType::Original, CardLayout::Ordinary));
}

/// Cards 10001 and so on, no more than what a list shows.
void addVersions(ScriptTest& test, int first, int last) {
  for (int i = first; i <= last; ++i) {
    const std::string id = std::to_string(i);
    const std::string number = std::to_string(10000 + i);
    test.execute("insert into fa_Cards (sCardID,sCardNum,sDeptNum,sTypeNum,lLife,dblValue) values ('" + id +
                 "','" + number + "','301','021',60,100)");
  }
}

}  // namespace

QWidget& openScreen(ScriptTest& test, const Arguments& a) {
  return openers().at(a.word(0))(test, a);
}

void startByRunType(ScriptTest& test, const Arguments& a) {
  const auto before = QApplication::topLevelWidgets();
  RunTypeJobs jobs;
  addScreens(jobs, test.host);
  test.host.dispatch([&] {
    startRunType(test.context, *findRunType(static_cast<std::int16_t>(std::stoi(a.word(0)))), jobs);
  });
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && !before.contains(window)) test.enter(*window);
}

void prepare(ScriptTest& test, const Arguments& a) {
  const std::string what = a.word(0);
  if (what == "card") return enterCard(test, a.word(1), a.word(2).empty() ? "2020-05-15" : a.word(2));
  if (what == "cards") return addVersions(test, std::stoi(a.word(1)), std::stoi(a.word(2)));
  if (what == "mirror") return SyncDepartments(test.context);
  if (what == "event") return test.stageCard(a.word(1), a.word(2));
  if (what == "depreciation") return test.stageDepreciation();
  if (what == "subjects") return static_cast<void>(test.depreciationVoucher());
  if (what == "checked") {
    auto& voucher = control<LocalPZ>(test.form(), "LocalPZ");
    voucher.Checker = "王";
    return voucher.showVoucher();
  }
  if (what == "voucher") {
    test.saved = requested(test, a);
    EXPECT_TRUE(test.saveVoucher(*test.saved));
    return;
  }
  throw std::runtime_error("cannot prepare " + what);
}

Lines voucherLines(const QWidget& form) {
  return linesOf(control<LocalPZ>(form, "LocalPZ"));
}

std::string answerOf(QWidget& form) {
  if (auto* types = dynamic_cast<FrmFATypes*>(&form))
    return types->RetValue() + "|" + types->RetName() + "|" + types->AssetTypeID();
  if (auto* entries = dynamic_cast<frmSelectEntry*>(&form)) return entryText(entries->chosen());
  if (auto* ways = dynamic_cast<frmType*>(&form)) return entryText(ways->chosen());
  if (auto* methods = dynamic_cast<FrmBalanType*>(&form)) return entryText(methods->picked());
  if (auto* method = dynamic_cast<FrmZJFFCZ*>(&form)) return method->pZJFF();
  if (auto* split = dynamic_cast<frmDepart*>(&form)) return splitText(split->split());
  if (auto* use = dynamic_cast<frmMoreDep*>(&form)) return std::to_string(use->chosen());
  if (auto* project = dynamic_cast<frmProject*>(&form))
    return project->picked().classNumber + "|" + project->picked().code + "|" + project->picked().name;
  if (auto* subject = dynamic_cast<frmPZCode1*>(&form))
    return subject->AccountCode() + "|" + subject->AccountContent();
  if (auto* subject = dynamic_cast<frmPZCode*>(&form))
    return subject->picked().code + "|" + subject->picked().name;
  throw std::runtime_error("no answer of " + form.objectName().toStdString());
}

}  // namespace zelkor::test
