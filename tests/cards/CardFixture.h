#pragma once

#include "cards/ClsBLLFACards.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {

/// A fresh account set in May 2020 with a card class on it.
class CardTest : public AccountSetTest {
 protected:
  CardTest() { cards.setZkDataPath(context.gstrZtFile); }

  /// A card of category 021 in department 301 with these numbers.
  static CardValues card(const std::string& cardNum, const std::string& assetNum = "02100001") {
    using enum CardField;
    CardValues values;
    values[CardNumber] = cardNum;
    values[CardDate] = values[EntryDate] = "2020-05-15";
    values[AssetNumber] = assetNum;
    values[AssetName] = "车床";
    values[CategoryCode] = "021";
    values[CategoryName] = "生产设备";
    values[Style] = "C6140";
    values[Department] = "301,一车间";
    values[AdditionWay] = "101";
    values[Location] = "东区";
    values[UsageStatus] = "11";
    values[UsefulLife] = "120";
    values[DepreciationMethod] = "平均年限法(一)";
    values[StartDate] = "2020-04-01";
    values[MonthsDepreciated] = "1";
    values[CurrencyName] = "人民币";
    values[OriginalValue] = "12000.50";
    values[ResidualRate] = "0.05";
    values[ResidualValue] = "600.03";
    values[AccumulatedDepreciation] = "95";
    values[MonthlyRate] = "0.0079";
    values[MonthlyDepreciation] = "94.80";
    values[NetValue] = "11905.50";
    values[DepreciationSubject] = "410502,折旧费";
    values[Project] = "P";
    values[EnteredBy] = "李录入";
    return values;
  }

  static CardValues workloadCard(const std::string& cardNum) {
    using enum CardField;
    CardValues values = card(cardNum);
    values[DepreciationMethod] = "工作量法";
    values[MonthlyRate] = "1.25";
    values[TotalWorkload] = "9600";
    values[WorkloadDone] = "50";
    values[WorkloadUnit] = "小时";
    values[DeductibleTax] = "1560.07";
    return values;
  }

  bool save(CardValues values, NewCardType type = NewCardType::Original,
            CardLayout layout = CardLayout::Ordinary) {
    return cards.SaveNewCard(values, 5, type, layout);
  }

  ClsBLLFACards cards{context};
};

}  // namespace zelkor::test
