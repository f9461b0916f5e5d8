#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "startup/SingleInstance.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstanceTest() { ::setenv("XDG_RUNTIME_DIR", home.path().c_str(), 1); }
  ~SingleInstanceTest() override { ::unsetenv("XDG_RUNTIME_DIR"); }

  const TempDir home;
};

TEST_F(SingleInstanceTest, OneAtATimeAndNoPartForProgramsThatAreStarted) {
  SingleInstance first;
  EXPECT_TRUE(first.acquire());
  EXPECT_TRUE(first.acquire());
  SingleInstance second;
  EXPECT_FALSE(second.acquire());
  EXPECT_NE(std::system("ls -l /proc/self/fd | grep -q zelkor.lock"), 0) << "kept by a child";
  first = {};
  EXPECT_TRUE(second.acquire());
}

TEST_F(SingleInstanceTest, TheFolderIsOneThatNobodyElseCanUse) {
  const fs::path open = home / "open";
  const fs::path link = home / "link";
  fs::create_directory(open);
  fs::permissions(open, fs::perms::all);
  fs::create_directory_symlink(home.path(), link);
  const fs::path made = home / "made";
  const std::vector<std::string> unfit = {"", "relative", home / "none", open, link};
  EXPECT_EQ(privateFolder(unfit, made), made);
  EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
  fs::permissions(made, fs::perms::all);
  EXPECT_EQ(errorOf([&] { privateFolder(unfit, made); }), 57);
  fs::remove(made);
  fs::create_directory_symlink(home.path(), made);
  EXPECT_EQ(errorOf([&] { privateFolder(unfit, made); }), 57);
  const std::vector<std::string> fit = {open, home.path()};
  EXPECT_EQ(privateFolder(fit, made), home.path());
}

}  // namespace
}  // namespace zelkor::test
