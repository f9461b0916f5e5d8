#include "archives/frmCnDate.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using frmCnDateTest = FormTest;

TEST_F(frmCnDateTest, startsWithTheClocksDayAndShowsWhatIsSelected) {
  frmCnDate& form = host.show<frmCnDate>();
  EXPECT_EQ(form.CurDate(), day("2020-6-1")) << "without the time of day";
  form.SetCurDate(day("2020-2-29 17:00:00"));
  EXPECT_EQ(textOf(form, "Label11"), "2020-2-29");
  control<QCalendarWidget>(form, "").setSelectedDate(QDate(2019, 12, 31));
  EXPECT_EQ(textOf(form, "Label11"), "2019-12-31");
}

TEST_F(frmCnDateTest, givesTheChosenDayOrNone) {
  auto ways = waysToLeave("cmdExit");
  ways.push_back([](QWidget& form) { click(form, "cmdOk"); });
  std::string given;
  for (const auto& leave : ways) {
    inModalForm([&leave](QWidget& picker) {
      control<QCalendarWidget>(picker, "").setSelectedDate(QDate(2020, 5, 20));
      leave(picker);
    });
    const auto chosen = askForDate(host, day("2020-5-15"));
    given += (chosen ? chosen->toIso() : "none") + " ";
  }
  EXPECT_EQ(given, "none none none " + day("2020-5-20").toIso() + " ");
}

}  // namespace
}  // namespace zelkor::test
