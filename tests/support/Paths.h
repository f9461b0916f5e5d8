#pragma once

#include <filesystem>
#include <string>

namespace zelkor::test {

/// The folder of the tests, which holds the golden files.
std::filesystem::path testFolder();
/// The folder of the data that comes with the system, such as the sample register.
std::filesystem::path dataFolder();
/// The programs of this build.
std::string zelkorctlProgram();
std::string zelkorProgram();
std::string zelkorHomeProgram();
/// Where pictures of screens are kept as output of the build.
std::filesystem::path pictureFolder();

}  // namespace zelkor::test
