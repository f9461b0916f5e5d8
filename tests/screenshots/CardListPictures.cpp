#include <array>
#include <QComboBox>
#include <stdexcept>
#include <string>

#include "base/Format.h"
#include "cards/ClsBLLFACards.h"
#include "cards/frmCards.h"
#include "cards/FrmManageCards.h"
#include "screenshots/Pictures.h"
#include "store/Statement.h"

namespace zelkor {
namespace {

struct Asset {
  const char* name;
  const char* style;
  const char* category;
  const char* depart;
  int months;
  double value;
};

constexpr std::array kAssets = {
    Asset{"一号生产厂房", "", "011", "301", 240, 4860000},
    Asset{"二号生产厂房", "", "011", "302", 240, 4120000},
    Asset{"综合办公楼", "", "012", "1", 240, 6380000},
    Asset{"数控车床", "CK6150", "021", "301", 120, 286000},
    Asset{"卧式加工中心", "HMC500", "021", "301", 120, 1235600.5},
    Asset{"平面磨床", "M7130", "021", "302", 120, 158000},
    Asset{"空气压缩机", "GA37", "022", "303", 100, 96800},
    Asset{"厢式货车", "江淮 4.2米", "031", "6", 48, 128500},
    Asset{"电动叉车", "CPD20", "032", "6", 50, 86500},
    Asset{"台式计算机", "启天 M430", "041", "2", 36, 5299},
    Asset{"笔记本电脑", "T14", "041", "401", 36, 8999.99},
    Asset{"服务器", "R740", "042", "401", 36, 46800},
    Asset{"激光打印机", "M405", "042", "501", 36, 2680},
    Asset{"工具柜", "", "05", "303", 60, 950},
    Asset{"会议桌椅", "", "06", "7", 60, 18600},
};
constexpr int kFirstCard = 2;  // the editor's picture has stored the first
constexpr int kCards = 30;

CardValues cardOf(const Asset& asset, int number) {
  using enum CardField;
  CardValues card;
  card[CardNumber] = Format(std::int32_t{number}, "00000");
  card[AssetNumber] = asset.category + Format(std::int32_t{number}, "00000");
  card[AssetName] = asset.name;
  card[CategoryCode] = asset.category;
  card[Department] = asset.depart;
  card[AdditionWay] = "101";
  card[UsageStatus] = "11";
  card[UsefulLife] = std::to_string(asset.months);
  card[DepreciationMethod] = "平均年限法(一)";
  card[StartDate] = sql(2014 + number % 6, "-", 1 + number % 12, "-", 3 + number % 25);
  card[MonthsDepreciated] = "4";
  card[CurrencyName] = "人民币";
  card[OriginalValue] = Format(asset.value, "0.00");
  card[ResidualRate] = asset.months == 240 ? "0.1" : "0.05";
  card[ResidualValue] = Format(asset.value / 20, "0.00");
  card[AccumulatedDepreciation] = Format(asset.value / asset.months * 4, "0.00");
  card[DepreciationSubject] = "550202";
  card[EnteredBy] = number % 3 == 0 ? "冯晓东" : "陈会计";
  card[EntryDate] = "2020-1-1";
  return card;
}

void enterCards(Stage& stage) {
  const RunContext& run = stage.host().run();
  ClsBLLFACards store(run);
  store.setZkDataPath(run.gstrZtFile);
  for (int number = kFirstCard; number < kFirstCard + kCards; ++number) {
    const Asset& asset = kAssets[static_cast<std::size_t>(number - kFirstCard) % kAssets.size()];
    CardValues card = cardOf(asset, number);
    if (!store.SaveNewCard(card, 1, NewCardType::Original, CardLayout::Ordinary)) {
      throw std::runtime_error("a sample card was not saved");
    }
    stage.data().Execute(sql("update fa_Cards set sStyle='", asset.style, "' where sCardNum='",
                             card[CardField::CardNumber], "'"));
  }
}

void showList(Stage& stage) {
  auto& form = stage.host().show<FrmManageCards>(stage.host().run().gstrZtFile);
  stage.keep(form, "FrmManageCards");
  selectNode(form, "3 生产部(3)");
  form.findChild<QTreeWidget*>()->currentItem()->setExpanded(true);
  stage.keep(form, "FrmManageCards-department");
  form.findChild<QComboBox*>("cmbType")->setCurrentText("按类别查询");
  form.findChild<QComboBox*>("cmbFA")->setCurrentText("在役资产");
  selectNode(form, "02 机器设备(2)");
  stage.keep(form, "FrmManageCards-category");
}

void showPicker(Stage& stage) {
  auto& form = stage.open<frmCards>();
  form.findChild<FlexGrid*>("mshTable")->selectGridRow(2);
  stage.keep(form, "frmCards");
}

}  // namespace

void takeCardListPictures(Stage& stage) {
  enterCards(stage);
  showList(stage);
  showPicker(stage);
}

}  // namespace zelkor
