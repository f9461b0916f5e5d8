#pragma once

#include "cards/CardFixture.h"
#include "changes/frmAssetsAlteration.h"
#include "support/Widgets.h"

namespace zelkor::test {

/// May 2020, system date 2020-6-1, with the card 00001: 12000.50, residual 600.03, 95 depreciated, life 10
/// years, department 301, status 11, entered in May.
class SheetFormTest : public WithForms<CardTest> {
 protected:
  SheetFormTest() { addCard("00001"); }

  void addCard(const std::string& number, const std::string& entered = "2020-05-15") {
    CardValues values = card(number, "021" + number);
    values[CardField::EntryDate] = entered;
    ASSERT_TRUE(save(values));
  }

  frmAssetsAlteration& open(ChangeKind kind) {
    auto& form = host.show<frmAssetsAlteration>(kind);
    activate(form);
    return form;
  }
  /// Types into the value that is open and goes on by Enter.
  static void enter(const QWidget& form, const char* box, std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
      ASSERT_FALSE(control<QLineEdit>(form, box).isHidden()) << "no value is open for " << text;
      test::enter(form, box, text);
    }
  }
  static void enter(const QWidget& form, std::initializer_list<const char*> texts) {
    enter(form, "txtContent", texts);
  }
  /// Goes back from the value that is open by this many.
  static void goBack(const QWidget& form, const char* box, int values) {
    for (int i = 0; i < values; ++i) sendKey(control<QLineEdit>(form, box), Qt::Key_Backtab);
  }
  /// Texts of the controls of a name with these numbers, joined by "|".
  static std::string texts(const QWidget& form, const std::string& name, std::initializer_list<int> numbers) {
    std::string joined;
    for (const int number : numbers) {
      joined +=
          (number == *numbers.begin() ? "" : "|") + textOf(form, (name + std::to_string(number)).c_str());
    }
    return joined;
  }
  /// Texts of labels of the array Label1.
  static std::string labels(const QWidget& form, std::initializer_list<int> numbers) {
    return texts(form, "Label1", numbers);
  }
  static std::string enabledCommands(const QWidget& form) {
    return enabledOf(form, {"增加", "取消", "保存", "退出"});
  }
  /// Picks the row of the card from the list that the button opens.
  static void pickCard(const QWidget& form, const char* button, std::size_t row) {
    inModalForm([row](QWidget& list) {
      gridOf(list, "mshTable").selectGridRow(row);
      click(list, "cmdOK");
    });
    click(form, button);
  }
  void saveAndExpectSuccess(const QWidget& form) {
    tells("数据成功保存！", Icon::Information, "变动单－－使用状况调整");
    press(form, "保存");
    EXPECT_EQ(enabledCommands(form), "增加 退出 ");
    EXPECT_FALSE(engine.workspace().inTransaction());
  }
  void expectRefusal(const QWidget& form, const char* text, const char* title = "固定资产") {
    tells(text, Icon::Exclamation, title);
    press(form, "保存");
    EXPECT_TRUE(dialogs.allShown()) << text;
  }
  std::string newestVersion(const std::string& columns) {
    return row("select top 1 " + columns +
               " from fa_Cards where sCardNum='00001' order by val(sCardID) desc");
  }
  std::string newestSheet() {
    return row(
        "select top 1 sNum,sCardNum,sVoucherName,iVoucherType,sBeforeVoucher,sAfterVoucher,memReason,"
        "sOperatorVou from fa_Vouchers order by sNum desc");
  }
};

}  // namespace zelkor::test
