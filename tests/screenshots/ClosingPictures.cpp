#include "closing/frmDelZC.h"
#include "closing/frmReduceBLL.h"
#include "closing/frmWaiting.h"
#include "closing/frmYMJZ.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

/// Fills a list of disposals as a person has it before "确定".
void fillList(QWidget& form, const char* name) {
  auto& grid = gridOf(form, name);
  TextGrid list = emptyDisposalGrid();
  const std::vector<PickedCard> cards = {{"00001", "02100001", "数控车床"},
                                         {"00002", "02200001", "龙门铣床"},
                                         {"00005", "03100002", "载货汽车"}};
  addDisposals(list, cards, "2020-5-15");
  const char* cells[][4] = {{"出售", "35000.00", "1200.00", "设备更新"}, {"报废", "", "800.00", "超龄"}, {}};
  for (std::size_t row = 0; row < std::size(cells); ++row) {
    for (std::size_t i = 0; i < 4 && cells[row][i]; ++i) list.setText(row + 1, 4 + i, cells[row][i]);
  }
  grid.setGrid(std::move(list));
  for (const char* button : {"cmdRemove", "cmdOK"}) {
    control<QAbstractButton>(form, button).setEnabled(true);
  }
  grid.selectCell(2, 4);
}

}  // namespace

void takeClosingPictures(Stage& stage) {
  stage.keep(stage.open<frmYMJZ>(), "frmYMJZ");
  frmWaiting& waiting = stage.open<frmWaiting>();
  waiting.setPercent(50);
  stage.keep(waiting, "frmWaiting");
  stage.data().Execute("update AccInformation set cValue='false' where cName='bNeedDepr'");
  frmDelZC& disposals = stage.open<frmDelZC>();
  fillList(disposals, "MSFZCJS");
  stage.keep(disposals, "frmDelZC");
  frmReduceBLL& plain = stage.open<frmReduceBLL>();
  fillList(plain, "mshTable");
  stage.keep(plain, "frmReduceBLL");
}

}  // namespace zelkor
