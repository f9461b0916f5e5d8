#include "support/AccountSetFixture.h"
#include "support/Golden.h"
#include "vouchers/Digests.h"

namespace zelkor {

inline void PrintTo(DigestRefusal refusal, std::ostream* out) {
  *out << messageOf(refusal);
}

namespace test {
namespace {

class DigestsTest : public AccountSetTest {
 protected:
  std::string stored(const std::string& code) {
    return row("select cid,ctext,ccode from gl_bdigest where cid='" + code + "'");
  }

  Digests digests{db()};
};

TEST_F(DigestsTest, listsByCode) {
  execute("insert into gl_bdigest (cid,ctext) values ('00','先')");
  const auto grid = textsOf(digests.grid());
  ASSERT_EQ(grid.size(), 8u);
  using Row = std::vector<std::string>;
  EXPECT_EQ(grid[0], (Row{"摘要编码", "摘要内容", "相关科目"}));
  EXPECT_EQ(grid[1], (Row{"00", "先", ""}));
  EXPECT_EQ(grid[2], (Row{"01", "购入固定资产", "1501"}));
}

TEST_F(DigestsTest, refusesADigest) {
  const auto before = textsOf(digests.grid());
  for (const auto& one : casesIn("vouchers/refused-digests.txt")) {
    const Digest digest{one[1], one[2], one[3]};
    const auto refusal = one[0].empty() ? digests.add(digest) : digests.UpdateDigest(one[0], digest);
    ASSERT_TRUE(refusal) << one[4];
    EXPECT_EQ(messageOf(*refusal), one[4]);
  }
  EXPECT_EQ(textsOf(digests.grid()), before) << "nothing is stored";
}

TEST_F(DigestsTest, addsADigestWhateverItsSubject) {
  EXPECT_EQ(digests.add({"07", "盘点", ""}), std::nullopt);
  EXPECT_EQ(stored("07"), "07|盘点|~");
  EXPECT_EQ(digests.add({"08", "修理", "9999"}), std::nullopt);
  EXPECT_EQ(stored("08"), "08|修理|9999");
  EXPECT_EQ(digests.add({"08", "修理", ""}), DigestRefusal::NewCodeTaken) << "its own row counts at once";
}

TEST_F(DigestsTest, changesADigestAndKeepsTheSubjectThatIsNotGiven) {
  EXPECT_EQ(digests.UpdateDigest("02", {"12", "转固", ""}), std::nullopt);
  EXPECT_EQ(stored("12"), "12|转固|1501");
  EXPECT_EQ(stored("02"), "(none)");
  EXPECT_EQ(digests.UpdateDigest("12", {"12", "转固", "1502"}), std::nullopt);
  EXPECT_EQ(stored("12"), "12|转固|1502");
  EXPECT_EQ(digests.UpdateDigest("12", {"", "转固", ""}), std::nullopt) << "an empty code is not asked for";
  EXPECT_EQ(stored(""), "|转固|1502");
}

TEST_F(DigestsTest, removesTheDigestOfACode) {
  digests.remove("03");
  digests.remove("77");
  EXPECT_EQ(stored("03"), "(none)");
  EXPECT_EQ(digests.grid().rows(), 6u);
  EXPECT_NE(errorOf([&] { digests.remove("0'4"); }), 0);
}

}  // namespace
}  // namespace test
}  // namespace zelkor
