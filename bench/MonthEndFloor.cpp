#include "MonthEndFloor.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace zelkor::bench {
namespace {

constexpr const char* kCopied[] = {"fa_AssetAttached",
                                   "fa_AssetTypes",
                                   "fa_Depreciations",
                                   "fa_Origins",
                                   "fa_Status",
                                   "fa_Items",
                                   "fa_ItemsManual",
                                   "fa_ItemsOfQuery",
                                   "fa_ItemsOfModel",
                                   "fa_Models",
                                   "fa_Cards",
                                   "fa_DeptScale",
                                   "fa_Cards_Detail",
                                   "fa_DeprTransactions_Detail",
                                   "fa_WorkLoad_Detail",
                                   "fa_Vouchers_Detail",
                                   "fa_EvaluateVouchers_Detail",
                                   "fa_CardsSheets",
                                   "fa_Control",
                                   "fa_DeprList",
                                   "fa_DeprTransactions",
                                   "fa_DeprVoucherMain",
                                   "fa_DeprVouchers",
                                   "fa_DeprVouchers_pre",
                                   "fa_Dictionary",
                                   "fa_EvaluateMain",
                                   "fa_EvaluateVouchers",
                                   "fa_ZWVouchers",
                                   "fa_Objects",
                                   "fa_QueryFilters",
                                   "fa_Querys",
                                   "fa_Total",
                                   "fa_Vouchers",
                                   "fa_WorkLoad",
                                   "fa_JKSet",
                                   "fa_JKItemSet"};

void copyTables(BareFile& file) {
  file.run("CREATE TABLE ZKFA_BAK_AccInformation_1 AS SELECT * FROM AccInformation WHERE cSysID='FA'");
  for (const std::string table : kCopied) {
    file.run("CREATE TABLE ZKFA_BAK_" + table + "_1 AS SELECT * FROM " + table);
  }
  file.run("CREATE UNIQUE INDEX ZKFA_BAK_sCardNum ON ZKFA_BAK_fa_ItemsManual_1(sCardNum)");
}

/// One card: its ledger and the ledgers of its departments.
class CardFloor {
 public:
  explicit CardFloor(const BareFile& file)
      : ledger_(file, "SELECT dblPeriodValue,dblDeprT1 FROM fa_DeprTransactions WHERE sCardNum=?1"),
        sum_(file, "SELECT sum(dblDeprT1) FROM fa_DeprTransactions_Detail WHERE sCardNum=?1"),
        carry_(file,
               "UPDATE fa_DeprTransactions SET dblMonthValue=?2,dblMonthDeprTotal=?3,lDeprMonths1=?4,"
               "lUsedMonths1=?4,dblDeprT2=?5,lDeprMonths2=?4,lUsedMonths2=?4 WHERE sCardNum=?1"),
        departments_(file,
                     "SELECT sDeptNum FROM fa_Cards_Detail WHERE sCardID IN (SELECT max(sCardID) FROM "
                     "fa_Cards_Detail WHERE sCardNum=?1)"),
        detail_(file,
                "SELECT dblDeprT1,dblMonthValue1 FROM fa_DeprTransactions_Detail WHERE sCardNum=?1 AND "
                "sDeptNum=?2"),
        carryDetail_(file,
                     "UPDATE fa_DeprTransactions_Detail SET dblDeprT2=?3,dblMonthValue2=?4 WHERE sCardNum=?1 "
                     "AND sDeptNum=?2") {}

  void carry(const std::string& card, std::int64_t months) {
    carryLedger(card, months);
    std::vector<std::string> departments;
    departments_.bind(1, card);
    while (departments_.step()) departments.push_back(departments_.text(0));
    departments_.reset();
    for (const std::string& department : departments) carryDepartment(card, department);
  }

 private:
  void carryLedger(const std::string& card, std::int64_t months) {
    ledger_.bind(1, card);
    const bool found = ledger_.step();
    const double value = ledger_.number(0);
    const double total = ledger_.number(1);
    ledger_.reset();
    sum_.bind(1, card).step();
    const double opening = sum_.number(0);
    sum_.reset();
    if (found) carry_.bind(1, card).bind(2, value).bind(3, opening).bind(4, months).bind(5, total).run();
  }
  void carryDepartment(const std::string& card, const std::string& department) {
    detail_.bind(1, card).bind(2, department);
    const bool found = detail_.step();
    const double total = detail_.number(0);
    const double value = detail_.number(1);
    detail_.reset();
    if (found) carryDetail_.bind(1, card).bind(2, department).bind(3, total).bind(4, value).run();
  }

  BareStatement ledger_;
  BareStatement sum_;
  BareStatement carry_;
  BareStatement departments_;
  BareStatement detail_;
  BareStatement carryDetail_;
};

void carryCards(BareFile& file) {
  std::vector<std::pair<std::string, std::int64_t>> cards;
  BareStatement walk(file, "SELECT sCardNum,lUsedMonths FROM fa_Cards WHERE dTransDate IS NULL");
  while (walk.step()) cards.emplace_back(walk.text(0), static_cast<std::int64_t>(walk.number(1)));
  CardFloor floor(file);
  for (const auto& [card, months] : cards) floor.carry(card, months + 1);
}

void setOptions(BareFile& file) {
  constexpr int options = 43;
  BareStatement option(file, "UPDATE AccInformation SET cValue='1' WHERE cSysID='FA' AND cName='iAgentAct'");
  for (int i = 0; i < options; ++i) option.run();
}

}  // namespace

void monthEndFloor(BareFile& file) {
  file.run("BEGIN IMMEDIATE");
  copyTables(file);
  carryCards(file);
  setOptions(file);
  file.run("COMMIT");
}

}  // namespace zelkor::bench
