#include "cards/CardVersions.h"
#include "support/AccountSetFixture.h"

namespace zelkor::test {
namespace {

class CardVersionsTest : public AccountSetTest {
 protected:
  /// Dates as literals with their hashes, or Null.
  void addVersion(const std::string& cardID, const std::string& cardNum, const std::string& entered,
                  const std::string& changed = "Null", int kind = 1, const std::string& disposed = "Null") {
    execute("insert into fa_Cards (sCardID,sCardNum,dInputDate,dTransDate,iOptType,dDisposeDate) values ('" +
            cardID + "','" + cardNum + "'," + entered + "," + changed + "," + std::to_string(kind) + "," +
            disposed + ")");
  }
  std::vector<std::string> inForce(int month, int day) {
    std::vector<std::string> found;
    Recordset cards =
        db().OpenRecordset(versionsInForce(*DateTime::fromParts(2020, month, day)) + " Order By sCardNum");
    for (; !cards.Eof(); cards.MoveNext())
      found.push_back(cards.Text("sCardNum") + ":" + cards.Text("sCardID"));
    return found;
  }
};

using Found = std::vector<std::string>;

TEST_F(CardVersionsTest, countFromTheirDates) {
  addVersion("1", "A", "#2020-2-1#");
  addVersion("2", "A", "#2020-2-1#", "#2020-3-10#", 10);
  addVersion("3", "B", "#2020-3-5#");
  EXPECT_EQ(inForce(1, 31), Found());
  EXPECT_EQ(inForce(2, 1), Found{"A:1"});
  EXPECT_EQ(inForce(3, 9), (Found{"A:1", "B:3"}));
  EXPECT_EQ(inForce(3, 10), (Found{"A:2", "B:3"}));
}

TEST_F(CardVersionsTest, dropDisposedAndTransferredOutCards) {
  addVersion("1", "disposed", "#2020-1-1#");
  addVersion("2", "disposed", "#2020-1-1#", "#2020-2-1#", 3, "#2020-2-1#");
  addVersion("3", "left", "#2020-1-1#");
  addVersion("4", "left", "#2020-1-1#", "#2020-2-1#", 6);
  addVersion("5", "eight", "#2020-1-1#", "Null", 8);
  addVersion("6", "moved", "#2020-1-1#", "#2020-2-1#", 6);
  addVersion("7", "moved", "#2020-1-1#", "#2020-2-1#", 7);
  EXPECT_EQ(inForce(1, 15), (Found{"disposed:1", "left:3"}));
  EXPECT_EQ(inForce(2, 1), Found{"moved:7"});
}

TEST_F(CardVersionsTest, rankNineAboveTen) {
  addVersion("9", "A", "#2020-1-1#");
  addVersion("10", "A", "#2020-1-1#", "#2020-1-2#", 10);
  EXPECT_EQ(inForce(2, 1), Found{"A:9"});
}

TEST_F(CardVersionsTest, canBeTakenOverAllCardsTogether) {
  addVersion("1", "A", "#2020-1-1#");
  addVersion("2", "B", "#2020-1-1#");
  const std::string newest = versionsInForceBeginning(*DateTime::fromParts(2020, 1, 1)) + " ))";
  EXPECT_EQ(db().OpenRecordset(newest).Text("sCardNum"), "B");
  EXPECT_TRUE(db().OpenRecordset(newest + " And  fa_Cards.sCardNum='A'").Eof());
}

}  // namespace
}  // namespace zelkor::test
