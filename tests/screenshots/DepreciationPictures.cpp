#include "depreciation/frmGZL.h"
#include "depreciation/FrmZJFPB.h"
#include "depreciation/frmZJQD.h"
#include "screenshots/Pictures.h"

namespace zelkor {
namespace {

void showDepreciation(Stage& stage) {
  stage.keep(stage.open<frmZJQD>(), "frmZJQD");
  stage.keep(stage.open<FrmZJFPB>(), "FrmZJFPB");
  stage.keep(stage.open<frmGZL>(), "frmGZL");
}

}  // namespace

void takeDepreciationPictures(Stage& stage) {
  showDepreciation(stage);
}

}  // namespace zelkor
