#pragma once

#include "cards/CardFixture.h"
#include "cards/CardVersions.h"
#include "changes/ChangeSheets.h"
#include "store/engine/Statement.h"
#include "support/BookChanges.h"
#include "support/Stranger.h"

namespace zelkor::test {

/// A fresh account set in May 2020 (system date 2020-6-1) with the card 00001 of 1000.00, residual 50.00,
/// life 60 months, in department 301, whose every column has something to be copied.
class SheetTest : public CardTest {
 protected:
  SheetTest() {
    addCard("00001");
    execute(
        "update fa_Cards set sLockedBy='L',iNewType=2,sZWVoucherType='记',sZWVoucherNum='7',sOrgID='O',"
        "sProjectNum='P1',sProjectName='项目',sStyle='C6140',dblBuildArea=10,lBuildNum=4,lMachinNum=8,"
        "dblMachinW=12,dblFCValue=1.5,dblExchangeRate=6.5,sDisposer='D',lDeprMonthsAct=9,dblLegacy=3.5,"
        "sEvaluateNum='E',dblDepr=4.5,dblDecDeprT=5.5,dblDecDepr=6,dblDeprRate=7,dblDecDeprRate=8,"
        "lDecDeprMonths=9,dblDecWorkT=10,dblDecPerDepr=11,dblCanWork=500,dblCanWorkAct=600,dblPerDepr=2.5,"
        "sWorkUnit='小时',dblTransOutDeprTCard=30,iVouchsNextMonthAct=1,sTransTypeNum='T',dblDecPreValueT=31,"
        "dblRetDecPreValueT=32,bMultiDept=True,sDeptNames='甲',dblOffsetTax=33,sOrgDisposeID='X',"
        "sDisposeReason='Y',iDisposePeriod=3");
  }

  void addCard(const std::string& cardNum, const std::string& entered = "2020-05-15") {
    using enum CardField;
    CardValues values = card(cardNum, "0210" + cardNum);
    values[OriginalValue] = "1000";
    values[ResidualValue] = "50";
    values[UsefulLife] = "60";
    values[EntryDate] = entered;
    ASSERT_TRUE(save(values));
  }

  ChangeSheets sheets(ChangeKind kind) { return {context, kind}; }

  /// A new sheet with the card loaded by its number.
  static ChangeSheet sheetFor(ChangeSheets& sheets, const std::string& cardNum = "00001") {
    ChangeSheet sheet = sheets.newSheet();
    const SheetResult result = sheets.loadCard(CardKey::CardNumber, cardNum, sheet);
    EXPECT_TRUE(result.done()) << (result.box ? result.box->text : "");
    sheet.reason = "盘点";
    return sheet;
  }
  /// A new transfer sheet with the card taken from the list.
  static ChangeSheet pickedFor(ChangeSheets& sheets, const std::string& cardNum = "00001") {
    const TextGrid list = sheets.cardList();
    ChangeSheet sheet = sheets.newSheet();
    for (const auto& cells : textsOf(list)) {
      if (cells[0] == cardNum) {
        EXPECT_TRUE(sheets.pickCard(cells, sheet).done());
        sheet.reason = "调拨";
        return sheet;
      }
    }
    ADD_FAILURE() << cardNum << " is not in the list";
    return sheet;
  }

  // A sheet of each kind on card 00001, ready to be saved.
  static ChangeSheet goodSheet(ChangeSheets& sheets, const std::string& cardNum = "00001") {
    ChangeSheet sheet =
        sheets.kind() == ChangeKind::Transfer ? pickedFor(sheets, cardNum) : sheetFor(sheets, cardNum);
    switch (sheets.kind()) {
      case ChangeKind::OriginalValue:
        sheet.increase = "200";
        sheet.recomputeValues();
        break;
      case ChangeKind::UsageStatus:
        sheet.after = {"未使用", "21"};
        break;
      case ChangeKind::AccumulatedDepr:
        sheet.after.text = "120";
        break;
      case ChangeKind::UsefulLife:
        sheet.after.text = "6年0月";
        break;
      case ChangeKind::Transfer:
        sheet.chooseDepartment("302", "二车间");
        sheet.siteAfter = "西区";
        break;
      case ChangeKind::ResidualValue:
        break;
    }
    return sheet;
  }

  static void expectSaved(const SheetResult& result) {
    ASSERT_TRUE(result.box);
    EXPECT_EQ(result.box->text, "数据成功保存！");
    EXPECT_EQ(result.box->title, "变动单－－使用状况调整");
    EXPECT_EQ(result.box->icon, Icon::Information);
    EXPECT_TRUE(result.done());
    EXPECT_TRUE(result.toolbarAsSaved);
  }
  static void expectRefused(const SheetResult& result, const std::string& text,
                            const std::string& title = "固定资产") {
    ASSERT_TRUE(result.box);
    EXPECT_EQ(result.box->text, text);
    EXPECT_EQ(result.box->title, title);
    EXPECT_EQ(result.box->icon, Icon::Exclamation);
    EXPECT_EQ(result.outcome, SheetResult::Outcome::Refused);
    EXPECT_FALSE(result.toolbarAsSaved);
  }
  void saveGood(ChangeKind kind, const std::string& cardNum = "00001") {
    ChangeSheets kindOfSheets = sheets(kind);
    expectSaved(kindOfSheets.save(goodSheet(kindOfSheets, cardNum)));
  }

  /// Saves, and compares what that wrote with the file of that name.
  void expectWrites(const std::string& name, ChangeSheets& kindOfSheets, const ChangeSheet& sheet) {
    expectWritten(db(), "changes/golden/" + name + ".txt", [&] { expectSaved(kindOfSheets.save(sheet)); });
  }
  /// A good sheet of the kind.
  void expectWrites(const std::string& name, ChangeKind kind) {
    ChangeSheets kindOfSheets = sheets(kind);
    expectWrites(name, kindOfSheets, goodSheet(kindOfSheets));
  }

  /// The bare engine on the data file, as a foreign tool has it.
  void bare(const std::string& statements) {
    engine.flush();
    ASSERT_TRUE(strangerAt(context.gstrZtFile)->run(statements)) << statements;
  }

  /// Makes each row of such writes ("UPDATE ON fa_Total") first run the statement and then fail where the
  /// condition holds.
  void failWrites(const std::string& writes, const std::string& statement = "",
                  const std::string& condition = "1=1") {
    const std::string name = sql("zk_trigger_", ++triggers_);
    const std::string first = statement.empty() ? "" : statement + "; ";
    if (onServer()) {
      bare(sql("CREATE FUNCTION ", name, "() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN ", first, "IF ",
               condition, " THEN RAISE EXCEPTION 'injected'; END IF; RETURN NEW; END $$; CREATE TRIGGER ",
               name, " BEFORE ", writes, " FOR EACH ROW EXECUTE FUNCTION ", name, "()"));
    } else {
      bare(sql("CREATE TRIGGER ", name, " BEFORE ", writes, " BEGIN ", first,
               "SELECT RAISE(ABORT,'injected') WHERE ", condition, "; END"));
    }
  }

 private:
  int triggers_ = 0;
};

}  // namespace zelkor::test
