#include <functional>

#include "archives/frmCnDate.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using frmCnDateTest = FormTest;

void chooseDay(QWidget& form, int year, int month, int dayOfMonth) {
  control<QCalendarWidget>(form, "").setSelectedDate(QDate(year, month, dayOfMonth));
}

TEST_F(frmCnDateTest, startsWithTheClocksDayAndShowsWhatIsSelected) {
  frmCnDate& form = host.show<frmCnDate>();
  EXPECT_EQ(form.CurDate(), day("2020-6-1")) << "without the time of day";
  EXPECT_EQ(textOf(form, "Label11"), "2020-6-1");
  form.SetCurDate(day("2020-2-29 17:00:00"));
  EXPECT_EQ(textOf(form, "Label11"), "2020-2-29");
  chooseDay(form, 2019, 12, 31);
  EXPECT_EQ(textOf(form, "Label11"), "2019-12-31");
}

TEST_F(frmCnDateTest, tellsHowItWasLeft) {
  const struct {
    std::function<void(QWidget&)> leave;
    bool cancelled;
  } cases[] = {
      {[](QWidget& form) { click(form, "cmdOk"); }, false},
      {[](QWidget& form) { click(form, "cmdExit"); }, true},
      {[](QWidget& form) { sendKey(form, Qt::Key_Escape); }, true},
      {[](QWidget& form) { form.close(); }, true},
  };
  for (const auto& c : cases) {
    frmCnDate& form = host.show<frmCnDate>();
    c.leave(form);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.gbCnDateCancel(), c.cancelled);
    inModalForm([&c](QWidget& picker) {
      chooseDay(picker, 2020, 5, 20);
      c.leave(picker);
    });
    const auto chosen = askForDate(host, day("2020-5-15"));
    EXPECT_EQ(chosen, c.cancelled ? std::optional<DateTime>() : day("2020-5-20"));
  }
}

}  // namespace
}  // namespace zelkor::test
