#include <fcntl.h>
#include <sys/stat.h>

#include <ostream>
#include <thread>

#include "base/OutputFile.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

class OutputFileTest : public testing::Test {
 protected:
  /// 0, or the number of the error.
  int write(const fs::path& file, bool replace = false) const {
    return errorOf([&] {
      OutputFile output(file, {.replace = replace, .access = {}});
      output.open() << "new";
      output.finish();
    });
  }
  bool knowsNamelessFiles() const {
    return static_cast<bool>(
        FileDescriptor(::open(folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600)));
  }
  long files() const { return std::distance(fs::directory_iterator(folder.path()), {}); }
  int mode(const char* name) const { return static_cast<int>(fs::status(folder / name).permissions()); }

  const TempDir folder;
};

TEST_F(OutputFileTest, TakesItsPlaceWhenItIsWhole) {
  EXPECT_EQ(write(folder / "a"), 0);
  EXPECT_EQ(readFile(folder / "a"), "new");
  EXPECT_EQ(mode("a"), 0600);
  {
    OutputFile output(folder / "b", {});
    output.open() << std::string(100'000, 'x');
  }
  EXPECT_FALSE(fs::exists(folder / "b")) << "was not finished";
  OutputFile late(folder / "b", {});
  late.open() << "new";
  EXPECT_EQ(files(), knowsNamelessFiles() ? 1 : 2) << "nothing that a killed program would leave";
  writeFile(folder / "b", "came meanwhile");
  EXPECT_EQ(errorOf([&] { late.finish(); }), 57);
  EXPECT_EQ(readFile(folder / "b"), "came meanwhile");
}

/// Whoever may plant a link does not choose what is overwritten.
TEST_F(OutputFileTest, ReplacesOnlyWhatItIsTold) {
  writeFile(folder / "private", "before");
  fs::create_symlink(folder / "private", folder / "link");
  fs::create_symlink(folder / "missing", folder / "dangling");
  fs::create_directory(folder / "folder");
  for (const char* name : {"link", "dangling", "folder"}) {
    for (const bool replace : {false, true}) EXPECT_EQ(write(folder / name, replace), 57) << name;
  }
  EXPECT_EQ(write(folder / "private"), 57);
  EXPECT_EQ(readFile(folder / "private"), "before");
  EXPECT_EQ(write(folder / "private", true), 0);
  EXPECT_EQ(readFile(folder / "private"), "new");
  EXPECT_EQ(files(), 4);
}

TEST_F(OutputFileTest, WritesIntoAPipe) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::string read;
  std::jthread reader([&] { read = readFile(folder / "pipe"); });
  EXPECT_EQ(write(folder / "pipe"), 0);
  reader.join();
  EXPECT_EQ(read, "new");
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

/// An open file that the program was given is written where it stands, not replaced and not from its
/// beginning.
TEST_F(OutputFileTest, WritesIntoWhatIsOpen) {
  writeFile(folder / "log", "before, ");
  const FileDescriptor log(::open((folder / "log").c_str(), O_WRONLY | O_APPEND | O_CLOEXEC));
  const std::string number = std::to_string(log.get());
  EXPECT_EQ(write("/dev/fd/" + number), 0);
  EXPECT_EQ(write("/proc/self/fd/" + number), 0);
  EXPECT_EQ(readFile(folder / "log"), "before, newnew");
  EXPECT_EQ(write("/dev/fd/987"), 57);
  fs::create_symlink("/dev/fd/" + number, folder / "planted");
  EXPECT_EQ(write(folder / "planted"), 57);
}

}  // namespace
}  // namespace zelkor::test
