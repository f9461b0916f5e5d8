#include <sys/syscall.h>
#include <unistd.h>

#include <map>
#include <mutex>
#include <ostream>
#include <set>

#include "base/OutputFile.h"
#include "store/accountset/AccountSet.h"
#include "support/Support.h"

namespace {

namespace fs = std::filesystem;

/// What each folder held when its names were last forced to disk: what a failure of the power would leave.
struct ForcedNames {
  std::mutex mutex;
  std::map<fs::path, std::set<std::string>> ofFolder;
};

ForcedNames& forcedNames() {
  static ForcedNames names;
  return names;
}

void noteForced(const fs::path& forced) {
  if (!fs::is_directory(forced)) return;
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(forced)) names.insert(entry.path().filename());
  const std::scoped_lock guard(forcedNames().mutex);
  forcedNames().ofFolder[forced] = std::move(names);
}

}  // namespace

/// In this program it comes before the system's own.
extern "C" int fsync(int file) {
  noteForced(fs::read_symlink("/proc/self/fd/" + std::to_string(file)));
  return static_cast<int>(::syscall(SYS_fsync, file));
}

namespace zelkor::test {
namespace {

using Names = std::set<std::string>;

void write(const fs::path& file, bool replace) {
  OutputFile output(file, {.replace = replace, .access = {}});
  output.open() << "new";
  output.finish();
}

TEST(NewNamesTest, AreOnDiskWhenTheirFilesAre) {
  const TempDir home;
  auto& onDisk = forcedNames().ofFolder;
  createAccountSet(home / "set/", {.account = "001", .year = 2020, .month = 1});
  EXPECT_EQ(onDisk[home.path()], (Names{"set"}));
  EXPECT_EQ(onDisk[home / "set"], (Names{"ZkData.Mdb", "ZkSystem.Mdb"}));
  write(home / "report", false);
  EXPECT_EQ(onDisk[home.path()], (Names{"report", "set"}));
  write(home / "another", true);
  EXPECT_EQ(onDisk[home.path()], (Names{"another", "report", "set"}));
}

}  // namespace
}  // namespace zelkor::test
