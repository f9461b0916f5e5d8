#pragma once

#include "screenshots/Stage.h"

// The screens of each room, one function per room. They are taken in this order on one account set.
namespace zelkor {

void takeStorePictures(Stage& stage);
void takeArchivePictures(Stage& stage);
void takePickerPictures(Stage& stage);
void takeChangePictures(Stage& stage);
void takeCardPictures(Stage& stage);
void takeCardListPictures(Stage& stage);
void takeDepreciationPictures(Stage& stage);
void takeVoucherPictures(Stage& stage);
/// Last: these two change the account set.
void takeClosingPictures(Stage& stage);
void takeReportPictures(Stage& stage);

}  // namespace zelkor
