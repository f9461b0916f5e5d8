#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/LockedFile.h"
#include "base/SystemError.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

/// While it lives the process has no rights over the files of others, root's included.
class SomebodyElse {
 public:
  SomebodyElse() {
    if (::geteuid() == 0 && ::seteuid(kNobody) != 0) throw std::runtime_error("no rights to give away");
  }
  SomebodyElse(const SomebodyElse&) = delete;
  SomebodyElse& operator=(const SomebodyElse&) = delete;
  ~SomebodyElse() { EXPECT_EQ(::seteuid(::getuid()), 0); }

 private:
  static constexpr uid_t kNobody = 65534;
};

class LockedFileTest : public testing::Test {
 protected:
  LockedFileTest() { fs::permissions(folder.path(), static_cast<fs::perms>(S_ISVTX | 0777)); }

  static std::unique_ptr<LockedFile> take(const std::string& path) {
    return LockedFile::take(path, 0600, LockedFile::Afterwards::Goes);
  }

  const TempDir folder;
  const std::string path = folder / "lock";
};

// What a killed program of another user has left shuts nobody out.
TEST_F(LockedFileTest, IsTakenByWhoMayOnlyReadIt) {
  writeFile(path, "left");
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  {
    const SomebodyElse anybody;
    const auto lock = take(path);
    ASSERT_NE(lock, nullptr);
    lock->tell("cannot be written");
    EXPECT_EQ(take(path), nullptr);
    EXPECT_EQ(LockedFile::toldBy(path), "");
  }
  EXPECT_NE(take(path), nullptr);
}

// The words of a holder that was killed are not those of the next one.
TEST_F(LockedFileTest, TellsOfItsPresentHolderAlone) {
  writeFile(path, "the one before");
  EXPECT_EQ(LockedFile::toldBy(path), "");
  auto lock = take(path);
  EXPECT_EQ(LockedFile::toldBy(path), "");
  lock->tell("me");
  EXPECT_EQ(LockedFile::toldBy(path), "me");
  lock.reset();
  EXPECT_EQ(LockedFile::toldBy(path), "");
}

TEST_F(LockedFileTest, SaysWhyThereIsNone) {
  fs::create_directory(folder / "kept");
  fs::permissions(folder / "kept", fs::perms::owner_read | fs::perms::owner_exec);
  const SomebodyElse anybody;
  const std::pair<fs::path, int> cases[] = {{folder / "kept/lock", 3051},
                                            {folder / "missing/lock", 3024},
                                            {folder / std::string(300, 'x'), 3051},
                                            {folder / "kept", 57}};
  for (const auto& [file, number] : cases) {
    EXPECT_EQ(errorOf([&, name = file.string()] { take(name); }), number) << file;
  }
  for (const auto& [failure, number] :
       {std::pair(ENOSPC, 3183), {EDQUOT, 3183}, {EROFS, 3051}, {ENOTDIR, 3024}, {EIO, 57}}) {
    EXPECT_EQ(systemError("", failure).number(), number);
  }
}

}  // namespace
}  // namespace zelkor::test
