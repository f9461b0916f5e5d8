#include "base/FileContent.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

TEST(FileContentTest, IsThatOfTheWholeFileOrNone) {
  const TempDir folder;
  for (const std::string& content : {std::string(), std::string(200'000, '\0') + "end"}) {
    writeFile(folder / "file", content);
    EXPECT_EQ(contentOf(folder / "file"), content);
  }
  for (const std::string& file : {(folder / "none").string(), folder.path().string(),
                                  std::string("/proc/self/mem")})  // cannot be read from its beginning
    EXPECT_EQ(errorOf([&] { contentOf(file); }), 3024) << file;
}

}  // namespace
}  // namespace zelkor::test
