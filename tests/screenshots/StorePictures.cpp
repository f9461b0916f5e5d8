#include <QTabWidget>

#include "screenshots/Pictures.h"
#include "store/settings/FrmInit.h"
#include "store/settings/FrmXUANXIANG.h"

namespace zelkor {
namespace {

void showWizard(Stage& stage) {
  FrmInit& form = stage.open<FrmInit>();
  click(form, "OptionYes");
  control<QLineEdit>(form, "TxtGDZCDZKM").setText("1501,固定资产");
  control<QLineEdit>(form, "TxtLJZJDZKM").setText("1502,累计折旧");
  for (const char step : std::string("123456")) {
    stage.keep(form, std::string("FrmInit-") + step);
    if (step != '6') click(form, "CmdNext");
  }
}

void showOptions(Stage& stage) {
  FrmXUANXIANG& form = stage.open<FrmXUANXIANG>();
  auto* tabs = form.findChild<QTabWidget*>();
  for (int i = 0; i < tabs->count(); ++i) {
    tabs->setCurrentIndex(i);
    stage.keep(form, "FrmXUANXIANG-" + std::to_string(i + 1));
  }
}

}  // namespace

void takeStorePictures(Stage& stage) {
  showWizard(stage);
  showOptions(stage);
}

}  // namespace zelkor
