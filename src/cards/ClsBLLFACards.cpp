#include "cards/ClsBLLFACards.h"

#include <array>

#include "base/Conversion.h"
#include "base/Format.h"
#include "cards/CardSequences.h"
#include "cards/NewCards.h"
#include "cards/VoucherStaging.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

constexpr const char* kNumberLength =
    "Select cValue From AccInformation Where cName='iCardSequenceNumLength' And cSysID='FA'";
constexpr const char* kLastNumber = "Select Top 1 * From FA_Cards Order by sCardNum Desc";

std::string methodQuery(std::string_view id) {
  return sql("Select * From FA_Depreciations Where sID='", id, "'");
}
std::string departmentQuery(std::string_view code) {
  return sql("Select * From FA_Departments Where sNum='", code, "'");
}
std::string originQuery(std::string_view id) {
  return sql("Select * From FA_Origins Where sID='", id, "'");
}
std::string statusQuery(std::string_view id) {
  return sql("Select * From FA_Status Where sID='", id, "'");
}
std::string ledgerQuery(std::string_view cardNum) {
  return sql("Select * From FA_DeprTransactions Where sCardNum='", cardNum, "'");
}
std::string versionsQuery(std::string_view cardNum) {
  return sql("Select * From FA_Cards Where sCardNum='", cardNum, "'");
}
std::string versionQuery(std::string_view cardID) {
  return sql("Select a.*,b.sName From FA_Cards as a,FA_AssetTypes as b Where a.sCardID='", cardID,
             "' and a.sTypeNum=b.sNum");
}

std::string walkStatement(CardMove move, std::string_view currentID) {
  switch (move) {
    case CardMove::First:
      return "Select top 1 * From FA_Cards Order by clng(sCardID)";
    case CardMove::Previous:
      return sql("Select top 2 * From FA_Cards Where clng(sCardID)<=", currentID,
                 " Order by clng(sCardID) Desc");
    case CardMove::Next:
      return sql("Select top 2 * From FA_Cards Where clng(sCardID)>=", currentID, " Order by clng(sCardID)");
    case CardMove::Last:
      break;
  }
  return "Select top 1 * From FA_Cards  Order by clng(sCardID) Desc";
}

}  // namespace

Foresight ClsBLLFACards::foreseeNewCard(std::string_view category) {
  return attempt("foreseeNewCard", Foresight(), [&] {
    // The card's number is asked for once more by the asset's.
    return Foresight(zkData(), {kNumberLength, kLastNumber, kHowAssetsAreNumbered, lastAssetOf(category),
                                kNumberLength, kLastNumber, cardCategoryQuery(category), "fa_depreciations"});
  });
}

Foresight ClsBLLFACards::foreseeVersion(std::string_view cardID) {
  return attempt("foreseeVersion", Foresight(), [&] {
    return Foresight(zkData(), {versionQuery(cardID), "fa_departments", "fa_origins", "fa_status",
                                "fa_depreciations", "fa_deprtransactions"});
  });
}

Foresight ClsBLLFACards::foreseeNames(const Recordset& version) {
  return attempt("foreseeNames", Foresight(), [&] {
    const std::string card = version.TextOrEmpty("sCardNum");
    return Foresight(
        zkData(),
        {departmentQuery(version.TextOrEmpty("sDeptNum")), originQuery(version.TextOrEmpty("sOrgAddID")),
         statusQuery(version.TextOrEmpty("sStatusID")), methodQuery(version.TextOrEmpty("sDeprMethodID")),
         ledgerQuery(card), versionsQuery(card)});
  });
}

std::string ClsBLLFACards::GetNewCardNum(std::int32_t& length) {
  return attempt("GetNewCardNum", std::string(), [&] {
    const Foresight ahead(zkData(), {kNumberLength, kLastNumber});
    // The parameter is read and has no effect: all account sets number with five digits.
    zkData().OpenRecordset(kNumberLength);
    length = kSequenceLength;
    const Recordset last = zkData().OpenRecordset(kLastNumber);
    return nextInSequence(last.Eof() ? "0" : last.TextOrEmpty("sCardNum"), length);
  });
}

std::string ClsBLLFACards::GetNewAssetNum(std::string_view typeCode) {
  return attempt("GetNewAssetNum", std::string(), [&] {
    const bool byHand = areNumberedByHand(zkData().OpenRecordset(kHowAssetsAreNumbered));
    return byHand ? std::string() : std::string(typeCode) + GetNewAssetNum1(typeCode);
  });
}

std::string ClsBLLFACards::GetNewAssetNum1(std::string_view typeCode) {
  return attempt("GetNewAssetNum1", std::string(), [&] {
    const Recordset last = zkData().OpenRecordset(lastAssetOf(typeCode));
    std::int32_t length = 0;
    GetNewCardNum(length);
    return assetSequenceBehind(last.Eof() ? "0" : last.TextOrEmpty("sAssetNum"), typeCode, length);
  });
}

std::string ClsBLLFACards::GetDeprMethodName(std::string_view methodID) {
  return firstText("GetDeprMethodName", methodQuery(methodID), "sName");
}

bool ClsBLLFACards::UpdateCard(const CardValues& values, int month, std::string_view cardNum,
                               CardLayout layout) {
  return attempt("UpdateCard", false, [&] {
    CardSubject subject;
    StatementGroup group(zkData());
    readSubject(group, values[CardField::DepreciationSubject], subject);
    group.run();
    const CardEntry card(values, layout, month, subject);
    updateCardRows(group, card, cardNum);
    updateDeprTransaction(group, card, cardNum);
    restageChangedAsset(group, context_, stagedAsset(card, cardNum));
    return true;
  });
}

bool ClsBLLFACards::SaveNewCard(CardValues& values, int month, NewCardType type, CardLayout layout) {
  return attempt("SaveNewCard", false, [&] {
    NewCards cards(type);
    StatementGroup group(zkData());
    cards.read(group, values);
    group.run();
    const CardEntry card = cards.entry(values, layout, month);
    cards.write(group, card);
    if (type == NewCardType::AddedInPeriod)
      stageNewAsset(group, context_, stagedAsset(card, card[CardField::CardNumber]));
    group.run();
    return true;
  });
}

double ClsBLLFACards::GetDeprTotal(std::string_view cardNum) {
  return attempt("GetDeprTotal", 0.0, [&] {
    const Recordset row = zkData().OpenRecordset(ledgerQuery(cardNum));
    return row.Eof() ? 0.0 : row.Fields("dblInputDeprTotal").numberOrZero();
  });
}

std::string ClsBLLFACards::GetDeprSubjectName(std::string_view cardNum) {
  return attempt("GetDeprSubjectName", std::string(), [&] {
    const Recordset card = zkData().OpenRecordset(versionsQuery(cardNum));
    if (card.Eof()) return std::string();
    return card.TextOrEmpty("sDeprSubjectNum") + "," + card.TextOrEmpty("sDeprSubjectName");
  });
}

std::string ClsBLLFACards::GetDeptName(std::string_view code) {
  return GetDeptNames(std::array{std::string(code)}).front();
}

std::vector<std::string> ClsBLLFACards::GetDeptNames(std::span<const std::string> codes) {
  std::vector<std::string> statements;
  for (const std::string& code : codes) statements.push_back(departmentQuery(code));
  return firstTexts("GetDeptName", statements, "sName");
}

std::string ClsBLLFACards::GetOrgAddName(std::string_view originID) {
  return firstText("GetOrgAddName", originQuery(originID), "sName");
}

std::string ClsBLLFACards::GetStatusName(std::string_view statusID) {
  return firstText("GetStatusName", statusQuery(statusID), "sName");
}

std::string ClsBLLFACards::GetAssetCard(std::string_view currentID, CardMove move, std::string& methodID) {
  return attempt("GetAssetCard", std::string(), [&] {
    if (zkData().OpenRecordset("Select * From FA_Cards Order by clng(sCardID)").Eof()) return std::string();
    Recordset reached = zkData().OpenRecordset(walkStatement(move, currentID));
    std::string cardID = reached.TextOrEmpty("sCardID");
    methodID = reached.TextOrEmpty("sDeprMethodID");
    if (move == CardMove::Previous || move == CardMove::Next) {
      reached.MoveNext();
      if (!reached.Eof()) {
        cardID = reached.TextOrEmpty("sCardID");
        methodID = reached.TextOrEmpty("sDeprMethodID");
      }
    }
    return cardID;
  });
}

std::string ClsBLLFACards::GetCardID(std::string_view cardNum) {
  return firstText(
      "GetCardID",
      sql("Select * From FA_Cards Where sCardNum='", cardNum, "' order by scardnum,clng(sCardID) desc"),
      "sCardID");
}

bool ClsBLLFACards::DeleteCard(std::string_view cardNum) {
  return attempt("DeleteCard", false, [&] {
    zkData().Execute(sql("Delete From FA_DeprTransactions Where sCardNum='", cardNum, "'"));
    zkData().Execute(sql("Delete From FA_Cards Where sCardNum='", cardNum, "'"));
    zkData().Execute(sql("Delete From fa_ZWVouchers Where cDefine9='", cardNum, "'"));
    CloseZkData();
    return true;
  });
}

Recordset ClsBLLFACards::GetCard(std::string_view cardID) {
  return query("GetCard", versionQuery(cardID));
}

}  // namespace zelkor
