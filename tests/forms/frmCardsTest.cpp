#include "cards/frmCards.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmCardsTest : public FormTest {
 protected:
  frmCardsTest() {
    addVersion("1", "00001", "4");
    addVersion("2", "00002", "2");
    addVersion("3", "00002", "6");
  }
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& method) {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName,sDeprMethodID,dInputDate) values ('" +
        cardID + "','" + cardNum + "','A" + cardNum + "','车床','" + method + "',#2020-1-1#)");
  }
  static FlexGrid& table(const QWidget& form) { return control<FlexGrid>(form, "mshTable"); }
  /// Card number and method of the row that the form gives.
  static std::string chosen(const frmCards& form) {
    if (!form.moStrRow()) return "none";
    return form.mshTable().text(*form.moStrRow(), 0) + " " + form.mshTable().text(*form.moStrRow(), 7);
  }
};

TEST_F(frmCardsTest, givesTheSelectedRow) {
  frmCards form(host);
  inModalForm([](QWidget& shown) {
    EXPECT_EQ(shown.windowTitle(), "卡片参照");
    EXPECT_EQ(table(shown).grid().rows(), 3u);
    EXPECT_FALSE(isEnabled(shown, "cmdOK")) << "nothing is selected yet";
    table(shown).selectGridRow(2);
    click(shown, "cmdOK");
  });
  host.showModal(form);
  EXPECT_EQ(chosen(form), "00002 6");
}

TEST_F(frmCardsTest, takesARowThatIsOpened) {
  frmCards form(host);
  inModalForm([](QWidget& shown) {
    table(shown).selectGridRow(1);
    sendKey(table(shown), Qt::Key_Return);
  });
  host.showModal(form);
  EXPECT_EQ(chosen(form), "00001 4");
}

TEST_F(frmCardsTest, givesNothingWhenCancelled) {
  for (const bool byKey : {false, true}) {
    frmCards form(host);
    inModalForm([byKey](QWidget& shown) {
      table(shown).selectGridRow(1);
      if (byKey) return sendKey(shown, Qt::Key_Escape);
      click(shown, "Command2");
    });
    host.showModal(form);
    EXPECT_EQ(chosen(form), "none");
  }
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(frmCardsTest, staysEmptySilentlyBeyondSixteenBits) {
  addVersion("40000", "00003", "4");
  frmCards form(host);
  form.show();
  EXPECT_EQ(form.mshTable().rows(), 1u);
  EXPECT_EQ(endStatus(), -1);
}

}  // namespace
}  // namespace zelkor::test
