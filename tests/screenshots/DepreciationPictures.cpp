#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "screenshots/Pictures.h"
#include "ui/ProgressBox.h"

namespace zelkor {
namespace {

void showDepreciation(Stage& stage) {
  stage.keep(stage.open<frmZJQD>(), "frmZJQD");
  stage.keep(stage.open<FrmZJFPB>(), "FrmZJFPB");
  stage.keep(stage.open<frmGZL>(), "frmGZL");
}

void showLongJob(Stage& stage) {
  ProgressBox box;
  box.showState({"正在计提折旧，请稍候……", 12345, 100000});
  stage.keep(box, "ProgressBox");
}

}  // namespace

void takeDepreciationPictures(Stage& stage) {
  showDepreciation(stage);
  showLongJob(stage);
}

}  // namespace zelkor
