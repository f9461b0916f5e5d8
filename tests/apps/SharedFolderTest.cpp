#include <sys/stat.h>
#include <unistd.h>

#include "apps/JobTest.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

/// Two users of one machine whose group shares an account set, in a folder that hands its group down to
/// nobody.
class SharedFolderTest : public JobTest {
 protected:
  static constexpr unsigned kAnna = 64201;
  static constexpr unsigned kBo = 64202;
  static constexpr unsigned kBooks = 64203;

  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "who is not root cannot be two users";
    fs::copy_file(zelkorctlProgram(), home / "zelkorctl");
    fs::permissions(home.path(), static_cast<fs::perms>(0755));
    create();
    done({"cards", "import", arguments("5"), registerOf({"12000"}), "--today", "2020-01-31"});
    give(home / "set", 0770);
    for (const char* name : {"ZkData.Mdb", "ZkSystem.Mdb"}) give(file("set", name), 0660);
  }

  static void give(const fs::path& path, int mode) {
    ASSERT_EQ(::chown(path.c_str(), kAnna, kBooks), 0);
    fs::permissions(path, static_cast<fs::perms>(mode));
  }
  Words asUser(unsigned user, const Words& call) const {
    const std::string number = std::to_string(user);
    Words words{"--reuid", number, "--regid", number, "--groups", std::to_string(kBooks)};
    words.push_back(home / "zelkorctl");
    words.insert(words.end(), call.begin(), call.end());
    return words;
  }
  ProgramResult bo(const Words& call) const {
    return ProgramRun("/usr/bin/setpriv", asUser(kBo, call), home.path()).finish();
  }
};

TEST_F(SharedFolderTest, TheOtherUserWorksBesideAndAfter) {
  ProgramRun anna("/usr/bin/setpriv", asUser(kAnna, {"run", arguments("8")}), home.path());
  ASSERT_TRUE(anna.waitForOutput("继续?"));
  const ProgramResult beside = bo({"sql", file(), "select sCardNum from fa_Cards"});
  EXPECT_EQ(beside.output, "sCardNum\n00001\n") << beside.errors;
  anna.kill();
  // As a program has left it that made it for its user alone to write.
  const std::string lock = file() + "-job";
  writeFile(lock, "m 20200131090507 anna");
  give(lock, 0644);
  const ProgramResult after = bo({"run", arguments("8"), "--yes"});
  EXPECT_EQ(after.status, 0) << after.errors;
}

}  // namespace
}  // namespace zelkor::test
