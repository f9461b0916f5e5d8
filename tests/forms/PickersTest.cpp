#include "archives/frmCnDate.h"
#include "archives/FrmFATypes.h"
#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "archives/frmType.h"
#include "archives/frmWait.h"
#include "archives/FrmZJFFCZ.h"
#include "changes/FrmBalanType.h"
#include "changes/frmMoreDep.h"
#include "support/Widgets.h"

// What a person picks from: the trees of the archives, then the smaller ones.
namespace zelkor::test {
namespace {

std::string entryText(const std::optional<ArchiveEntry>& entry) {
  return entry ? entry->code + "|" + entry->name : "";
}

/// A picker that shows a tree.
struct Picker {
  const char* name;  // of its picture
  const char* title;
  QWidget& (*open)(WithForms<AccountSetTest>& test);
  std::string (*answer)(const QWidget& form);
  std::array<const char*, 3> controls;  // tree, the button that takes, the one that leaves
  const char* refused;                  // an entry that may not be taken
  const char* entry;
  const char* taken;
  const char* left;  // the answer to an opener when it is left
};

template <ArchiveKind kind>
QWidget& openArchive(WithForms<AccountSetTest>& test) {
  return test.host.show<FrmFATypes>(kind);
}
template <StatusPick offered>
QWidget& openStatuses(WithForms<AccountSetTest>& test) {
  return test.host.show<frmSelectUseStatus>(offered);
}
template <typename Form>
QWidget& openPlain(WithForms<AccountSetTest>& test) {
  return test.host.show<Form>();
}
QWidget& openWays(WithForms<AccountSetTest>& test) {
  auto& form = test.host.show<frmType>();
  form.setZkDataPath(test.context.gstrZtFile);
  return form;
}
std::string archiveAnswer(const QWidget& form) {
  const auto& picker = dynamic_cast<const FrmFATypes&>(form);
  return picker.RetValue() + "|" + picker.RetName() + "|" + picker.AssetTypeID();
}
template <typename Form>
std::string chosenIn(const QWidget& form) {
  return entryText(dynamic_cast<const Form&>(form).chosen());
}
std::string pickedMethod(const QWidget& form) {
  return entryText(dynamic_cast<const FrmBalanType&>(form).picked());
}
std::string methodName(const QWidget& form) {
  return dynamic_cast<const FrmZJFFCZ&>(form).pZJFF();
}

constexpr std::array archive{"TvAssentTypes", "CmdOK", "CmdCancel"};
constexpr std::array entries{"TreeView1", "cmdYes", "cmdCancel"};

// clang-format off
const Picker pickers[] = {
  {"FrmFATypes-types", "固定资产类别参照", openArchive<ArchiveKind::AssetTypes>, archiveAnswer, archive, "机器设备", "动力设备", "022|动力设备|022", "-1|-1|-1"},
  {"FrmFATypes-departments", "部门参照", openArchive<ArchiveKind::Departments>, archiveAnswer, archive, "生产部", "一车间", "301|一车间|301", "-1|-1|-1"},
  {"FrmFATypes-origins", "增减方式参照", openArchive<ArchiveKind::Origins>, archiveAnswer, archive, "增加方式", "盘盈", "104|盘盈|104", "-1|-1|-1"},
  {"FrmFATypes-statuses", "使用状态参照", openArchive<ArchiveKind::Statuses>, archiveAnswer, archive, "使用中", "大修理停用", "14|大修理停用|14", "-1|-1|-1"},
  {"FrmFATypes-methods", "折旧方法参照", openArchive<ArchiveKind::Methods>, archiveAnswer, archive, nullptr, "不提折旧", "1|不提折旧|1", "-1|-1|-1"},
  {"frmSelectDepart", "部门参照", openPlain<frmSelectDepart>, chosenIn<frmSelectDepart>, entries, "固定资产部门编码目录", "3 生产部", "3|生产部", ""},
  {"frmSelectUseStatus-statuses", "使用状况参照", openStatuses<StatusPick::Statuses>, chosenIn<frmSelectUseStatus>, entries, "使用状况目录表", "13 经营性出租", "13|经营性出租", ""},
  {"frmSelectUseStatus", "增减方式参照", openStatuses<StatusPick::Reductions>, chosenIn<frmSelectUseStatus>, entries, "增减方式目录表", "205 报废", "205|报废", ""},
  {"frmType", "增减方式参照", openWays, chosenIn<frmType>, {"tvwType", "cmdYes", "cmdCancel"}, "增减方式", "(205)报废", "205|报废", ""},
  {"FrmBalanType", "折旧方法参照", openPlain<FrmBalanType>, pickedMethod, {"tvwType", "cmdOK", "cmdCancel"}, "顶层节点", "工作量法[4]", "4|工作量法", ""},
  {"FrmZJFFCZ", "折旧方法参照", openPlain<FrmZJFFCZ>, methodName, {"TvLeft", "CmdYes", "CmdCancel"}, nullptr, "工作量法", "工作量法", ""},
};
// clang-format on

class PickersTest : public FormTest {};

TEST_F(PickersTest, GiveTheEntryThatIsTakenAndNoneWhenTheyAreLeft) {
  for (const Picker& picker : pickers) {
    SCOPED_TRACE(picker.name);
    const auto& [tree, take, cancel] = picker.controls;
    for (const bool byKey : {false, true}) {
      QWidget& form = picker.open(*this);
      EXPECT_EQ(form.windowTitle(), picker.title);
      if (picker.refused) {
        click(form, take);
        EXPECT_TRUE(form.isVisible()) << "nothing is selected";
        selectNode(form, tree, picker.refused);
        click(form, take);
        EXPECT_TRUE(form.isVisible()) << picker.refused;
      }
      selectNode(form, tree, picker.entry);
      keepPicture(form, picker.name);
      byKey ? sendKey(control<QTreeWidget>(form, tree), Qt::Key_Return) : click(form, take);
      EXPECT_FALSE(form.isVisible());
      EXPECT_EQ(picker.answer(form), picker.taken);
    }
    for (const auto& leave : waysToLeave(cancel)) {
      QWidget& form = picker.open(*this);
      selectNode(form, tree, picker.entry);
      leave(form);
      EXPECT_FALSE(form.isVisible());
      EXPECT_EQ(picker.answer(form), picker.left);
    }
    if (picker.answer == pickedMethod) continue;  // is opened anew for each pick
    QWidget& form = picker.open(*this);
    selectNode(form, tree, picker.entry);
    click(form, take);
    form.show();
    click(form, cancel);
    EXPECT_EQ(picker.answer(form), picker.left) << "an earlier choice is forgotten";
  }
}

TEST_F(PickersTest, StepThroughTheMatchesOfWhatIsTyped) {
  auto& types = host.show<FrmFATypes>(ArchiveKind::AssetTypes);
  types.setAssetTypeID("022");
  EXPECT_EQ(selectedNode(types, "TvAssentTypes"), "动力设备") << "the entry so far is shown";
  type(types, "TxtSearch", "运输");
  for (const char* match : {"运输设备", "道路运输车辆", "运输设备"}) {
    emit control<UpDown>(types, "VScrollChange").stepped(-1);
    EXPECT_EQ(selectedNode(types, "TvAssentTypes") + textOf(types, "TxtSearch"), std::string(match) + "运输");
  }
  const auto& departs = host.show<frmSelectDepart>();
  const auto selected = [&departs] { return selectedNode(departs, "TreeView1"); };
  auto& step = control<UpDown>(departs, "UpDown1");
  type(departs, "TxtZJFF", "3");
  emit step.stepped(-1);
  EXPECT_EQ(selected(), "") << "no name has a 3 in it";
  click(departs, "OptionBM");
  for (const char* match : {"3 生产部", "301 一车间", "302 二车间"}) {
    emit step.stepped(-1);
    EXPECT_EQ(textOf(departs, "TxtZJFF") + selected(), std::string(match) + match);
  }
  emit step.stepped(1);
  EXPECT_EQ(selected(), "301 一车间");
  click(departs, "OptionMC");
  for (const char* match : {"302 二车间", "303 机修车间", "301 一车间"}) {
    enter(departs, "TxtZJFF", "车间");
    EXPECT_EQ(selected(), match) << "it goes round";
  }
}

TEST_F(PickersTest, ShowTheEntryThatTheyAreGivenAndKeepTheBlanksOfNames) {
  frmSelectUseStatus& statuses = host.show<frmSelectUseStatus>(StatusPick::Statuses);
  statuses.setCode("21");
  EXPECT_EQ(textOf(statuses, "TxtZJFF"), "21 未使用");
  execute("update fa_departments set sName='一 车间' where sNum='301'");
  const frmSelectDepart& departs = host.show<frmSelectDepart>();
  click(departs, "cmdHelp");
  selectNode(departs, "TreeView1", "301 一 车间");
  EXPECT_EQ(textOf(departs, "TxtZJFF"), "301 一 车间");
  click(departs, "cmdYes");
  EXPECT_EQ(entryText(departs.chosen()), "301|一 车间");
  execute("delete from fa_departments where sNum<>'&'");
  EXPECT_EQ(nodesOf(host.show<frmSelectDepart>(), "TreeView1").size(), 1u);
}

TEST_F(PickersTest, StayEmptyWithoutEntriesOrWithoutTheirFile) {
  execute("delete from fa_Depreciations");
  FrmFATypes& form = host.show<FrmFATypes>(ArchiveKind::Methods);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
  emit control<UpDown>(form, "VScrollChange").stepped(-1);
  click(form, "CmdOK");
  EXPECT_TRUE(form.isVisible());
  form.setDispType(ArchiveKind::Statuses);
  EXPECT_EQ(form.windowTitle(), "使用状态参照");
  EXPECT_FALSE(nodesOf(form, "TvAssentTypes").empty());
  ClsOpArgs elsewhere;
  elsewhere.setZkDataPath(missingFile());
  form.setoClsOpArgs(elsewhere);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
}

TEST_F(PickersTest, ReadABranchOfTheWaysWhenItIsOpened) {
  execute("update fa_Origins set lChilds=1 where sID='203'");
  execute("insert into fa_Origins (sID,sName,sParentID,lChilds) values ('20301','对外投资','203',0)");
  const QWidget& form = openWays(*this);
  Lines nodes = nodesOf(form, "tvwType");
  ASSERT_EQ(nodes.size(), 9u) << "the root, the ways of reduction, seven of them";
  nodes.resize(3);
  EXPECT_EQ(nodes, (Lines{"增减方式", "  (2)减少方式", "    (201)出售"}));
  for (int i = 0; i < 2; ++i) {
    control<QTreeWidget>(form, "tvwType").collapseAll();
    control<QTreeWidget>(form, "tvwType").expandAll();
  }
  EXPECT_EQ(nodesOf(form, "tvwType").size(), 10u);
  EXPECT_EQ(nodesOf(form, "tvwType")[5], "      (20301)对外投资");
}

TEST_F(PickersTest, TheCalendarShowsWhatIsSelectedAndGivesItOrNone) {
  frmCnDate& form = host.show<frmCnDate>();
  keepPicture(form, "frmCnDate");
  EXPECT_EQ(form.CurDate(), day("2020-6-1")) << "without the time of day";
  form.SetCurDate(day("2020-2-29 17:00:00"));
  EXPECT_EQ(textOf(form, "Label11"), "2020-2-29");
  auto ways = waysToLeave("cmdExit");
  ways.push_back([](QWidget& picker) { click(picker, "cmdOk"); });
  std::string given;
  for (const auto& leave : ways) {
    inModalForm([&leave](QWidget& picker) {
      control<QCalendarWidget>(picker, "").setSelectedDate(QDate(2020, 5, 20));
      EXPECT_EQ(textOf(picker, "Label11"), "2020-5-20");
      leave(picker);
    });
    const auto chosen = askForDate(host, day("2020-5-15"));
    given += (chosen ? chosen->toIso() : "none") + " ";
  }
  EXPECT_EQ(given, "none none none " + day("2020-5-20").toIso() + " ");
}

TEST_F(PickersTest, TheQuestionOfUseGivesTheChosenOne) {
  const std::tuple<const char*, std::function<void(QWidget&)>, int> cases[] = {
      {"opS", [](QWidget& form) { click(form, "cmdOK"); }, frmMoreDep::OneDepartment},
      {"opM", [](QWidget& form) { sendKey(control<QWidget>(form, "opM"), Qt::Key_Return); },
       frmMoreDep::SeveralDepartments},
      {"opM", [](QWidget& form) { sendKey(form, Qt::Key_Escape); }, frmMoreDep::Cancelled}};
  for (const auto& [option, leave, chosen] : cases) {
    frmMoreDep& form = host.show<frmMoreDep>();
    keepPicture(form, "frmMoreDep");
    click(form, option);
    leave(form);
    EXPECT_EQ(form.chosen(), chosen) << option;
    EXPECT_FALSE(form.isVisible());
  }
}

TEST_F(PickersTest, AWaitingFormShowsOnePictureAtATimeInTurn) {
  frmWait& form = host.show<frmWait>();
  form.setLblCaption("正在处理，请稍候……");
  keepPicture(form, "frmWait");
  auto* timer = form.findChild<QTimer*>("Timer1");
  ASSERT_TRUE(timer);
  timer->stop();
  std::string shown;
  for (int tick = 0; tick < 7; ++tick) {
    for (const char* picture : {"Img0", "Img1", "Img2", "Img3"})
      if (control<QLabel>(form, picture).isVisible()) shown += picture + 3;
    shown += " ";
    QMetaObject::invokeMethod(timer, "timeout");
  }
  EXPECT_EQ(shown, "0 0 1 2 3 0 1 ");
}

}  // namespace
}  // namespace zelkor::test
