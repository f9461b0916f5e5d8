// Shows every screen on a sample account set and keeps a picture of it: zelkor_screenshots <folder>

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <QApplication>
#include <QCursor>

#include "screenshots/Pictures.h"
#include "store/accountset/AccountSet.h"
#include "ui/Theme.h"

namespace zelkor {
namespace {

void takePictures(const std::filesystem::path& pictures) {
  std::filesystem::create_directories(pictures);
  const auto set = std::filesystem::temp_directory_path() / ("zelkor-pictures-" + std::to_string(getpid()));
  std::filesystem::create_directories(set);
  createAccountSet(set, {.account = "001", .year = 2020, .month = 1, .sample = true});
  {
    Stage stage(set, pictures);
    takeStorePictures(stage);
    takeArchivePictures(stage);
    takePickerPictures(stage);
    takeChangePictures(stage);
    takeCardPictures(stage);
    takeCardListPictures(stage);
    takeDepreciationPictures(stage);
    takeVoucherPictures(stage);
    takeClosingPictures(stage);
    takeReportPictures(stage);
  }
  std::filesystem::remove_all(set);
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: zelkor_screenshots <folder>\n";
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  zelkor::applyTheme(application);
  QCursor::setPos(4000, 4000);  // no button looks touched
  try {
    zelkor::takePictures(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
