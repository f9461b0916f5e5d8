#include <string>
#include <vector>

#include "depreciation/CalcCardDepr.h"
#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "depreciation/Workload.h"
#include "screenshots/Pictures.h"
#include "ui/ProgressBox.h"

namespace zelkor {
namespace {

/// The fork lifts go by the hour.
void enterWorkload(Stage& stage) {
  stage.data().Execute("update fa_Cards set dblCanWork=9600,sWorkUnit='小时' where sDeprMethodID='4'");
  const int month = stage.run().period();
  double work = 168;
  for (const CardWorkload& card : workloadCards(stage.data(), month)) {
    storeWorkload(stage.data(), card.cardNum, month, work, card.before + work);
    work -= 20;
  }
}

/// The month's depreciation of every card, as the run leaves it.
void depreciate(Stage& stage) {
  std::vector<std::string> cards;
  Recordset rows = stage.data().OpenRecordset("select distinct sCardNum from fa_Cards");
  for (; !rows.Eof(); rows.MoveNext()) cards.push_back(rows.TextOrEmpty("sCardNum"));
  for (const std::string& card : cards) CalcCardDepr(stage.run(), card);
}

}  // namespace

void takeDepreciationPictures(Stage& stage) {
  enterWorkload(stage);
  depreciate(stage);
  stage.keep(stage.open<frmZJQD>(), "frmZJQD");
  stage.keep(stage.open<FrmZJFPB>(), "FrmZJFPB");
  stage.keep(stage.open<frmGZL>(), "frmGZL");
  ProgressBox box;
  box.showState({"正在计提折旧，请稍候……", 12345, 100000});
  stage.keep(box, "ProgressBox");
}

}  // namespace zelkor
