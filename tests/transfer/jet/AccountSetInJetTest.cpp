#include "store/accountset/AccountSet.h"
#include "support/jet/JetTables.h"
#include "transfer/jet/JetSource.h"
#include "transfer/TransferFixture.h"

namespace zelkor::test {
namespace {

class AccountSetInJetTest : public TransferTest, public testing::WithParamInterface<JetVersion> {
 protected:
  void writeJet(const std::filesystem::path& file) const {
    JetFileWriter writer(jet_, GetParam());
    writeTables(*openSource(file.string()), writer);
    writer.close();
  }

  TransferReport import(const std::filesystem::path& copy) const {
    JetSource source(jet_);
    const auto target = openTarget(copy);
    TransferReport report = carryTables(source, *target);
    target->finish();
    return report;
  }

  std::filesystem::path jet_ = directory_ / "Old.mdb";
};

std::vector<std::string> layout(const std::filesystem::path& file) {
  return RawFile(file).rows("SELECT name, sql FROM sqlite_master ORDER BY name");
}

std::vector<std::string> counters(const std::filesystem::path& file) {
  RawFile raw(file);
  const char* kept = "SELECT name FROM sqlite_master WHERE name = 'sqlite_sequence'";
  if (raw.rows(kept).empty()) return {};
  return raw.rows("SELECT * FROM sqlite_sequence ORDER BY name");
}

TEST_P(AccountSetInJetTest, ComesBackAsItWas) {
  createAccountSet(directory_.path(), {.account = "001", .year = 2004, .month = 4, .sample = true});
  for (const char* name : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
    SCOPED_TRACE(name);
    const auto original = directory_ / name;
    const auto copy = directory_ / (std::string("Copy-") + name);
    writeJet(original);
    const TransferReport report = import(copy);

    EXPECT_THAT(textsOf(report.problems), testing::IsEmpty());
    EXPECT_THAT(textsOf(compareTables(*openSource(original.string()), *openSource(copy.string()))),
                testing::IsEmpty());
    EXPECT_EQ(layout(copy), layout(original));
    EXPECT_EQ(counters(copy), counters(original));
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, AccountSetInJetTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4));

}  // namespace
}  // namespace zelkor::test
