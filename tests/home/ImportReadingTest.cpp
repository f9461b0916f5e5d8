#include "home/ImportReading.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class ImportReadingTest : public AccountSetTest {};

TEST_F(ImportReadingTest, RefusedRowsGetAFileOfTheirOwnBesideTheImportedOne) {
  const std::string file = directory / "台账.xlsx";
  const std::string first = freeRefusedFile(file);
  EXPECT_EQ(first, directory / "台账.拒绝.csv");
  writeFile(first, "x");
  EXPECT_EQ(freeRefusedFile(file), directory / "台账.拒绝2.csv");
  EXPECT_EQ(freeRefusedFile(first), directory / "台账.拒绝2.csv") << "mended and imported again";
}

TEST_F(ImportReadingTest, ProgressIsFoundAmongWhatAProgramTells) {
  const std::string told = "\r正在导入 10%\x1B[K第3行：坏\n\r正在导入 90%\x1B[K";
  EXPECT_EQ(progressIn(told), "正在导入 90%");
  EXPECT_EQ(progressIn(told + "\r\x1B[K"), "");
  EXPECT_EQ(progressIn("x\r"), "");
  EXPECT_EQ(withoutProgress(told + "第4行：坏\n\r"), "第3行：坏\n第4行：坏\n\r");
}

TEST_F(ImportReadingTest, OnlyAsManyLinesAreShownAsAPersonReads) {
  std::string told;
  for (int i = 0; i < 1000; ++i) told += "坏\n";
  EXPECT_EQ(firstLines(told), told);
  EXPECT_EQ(firstLines(told + "坏"), told + "……其余的没有列出。\n");
}

}  // namespace
}  // namespace zelkor::test
