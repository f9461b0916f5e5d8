#include "support/Paths.h"

namespace zelkor::test {

std::filesystem::path testFolder() {
  return ZELKOR_TEST_SOURCE_DIR;
}

std::filesystem::path dataFolder() {
  return ZELKOR_DATA_DIR;
}

std::string zelkorctlProgram() {
  return ZELKORCTL;
}

std::string zelkorProgram() {
  return ZELKOR_PROGRAM;
}

std::string zelkorHomeProgram() {
  return ZELKOR_HOME_PROGRAM;
}

std::filesystem::path pictureFolder() {
  return ZELKOR_PICTURES;
}

}  // namespace zelkor::test
