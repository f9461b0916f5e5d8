#include "cards/frmCards.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmCardsTest : public FormTest {
 protected:
  frmCardsTest() {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sDeprMethodID,dInputDate) values "
        "('1','00001','4',#2020-1-1#)");
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sDeprMethodID,dInputDate) values "
        "('3','00002','6',#2020-1-1#)");
  }
  /// Card number and method of the row that the form gives after this was done in it.
  std::string chosenBy(std::function<void(QWidget&)> action) {
    frmCards form(host);
    inModalForm(std::move(action));
    host.showModal(form);
    if (!form.moStrRow()) return "none";
    return form.mshTable().text(*form.moStrRow(), 0) + " " + form.mshTable().text(*form.moStrRow(), 7);
  }
  static FlexGrid& onRow(const QWidget& form, std::size_t row) {
    gridOf(form, "mshTable").selectGridRow(row);
    return gridOf(form, "mshTable");
  }
};

TEST_F(frmCardsTest, givesTheRowThatIsTaken) {
  EXPECT_EQ(chosenBy([](QWidget& form) {
              EXPECT_FALSE(isEnabled(form, "cmdOK")) << "nothing is selected yet";
              onRow(form, 2);
              click(form, "cmdOK");
            }),
            "00002 6");
  EXPECT_EQ(chosenBy([](QWidget& form) { sendKey(onRow(form, 1), Qt::Key_Return); }), "00001 4");
  for (const auto& leave : waysToLeave("Command2")) {
    EXPECT_EQ(chosenBy([&leave](QWidget& form) {
                onRow(form, 1);
                leave(form);
              }),
              "none");
  }
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
