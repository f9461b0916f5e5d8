#include "archives/frmCnDate.h"
#include "archives/FrmFATypes.h"
#include "archives/frmWait.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class PickersTest : public FormTest {};

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
