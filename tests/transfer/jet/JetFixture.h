#pragma once

#include <limits>
#include <string>
#include <vector>

#include "support/jet/JetDamage.h"
#include "support/jet/JetFileWriter.h"
#include "transfer/jet/JetSource.h"
#include "transfer/TransferFixture.h"

namespace zelkor::test {

inline std::string nameOf(const testing::TestParamInfo<JetVersion>& info) {
  return info.param == JetVersion::Jet3 ? "Jet3" : "Jet4";
}

/// Jet files that are written and imported: into an SQLite file, over a server where there is one.
class JetTest : public TransferTest {
 protected:
  /// Imports the file and compares both; gives what could not be carried.
  std::vector<std::string> import(const std::string& charset = {}) {
    JetSource source(jet_, charset);
    const auto target = onServer() ? openTarget(there_, testServer(), freshSchema()) : openTarget(copy_);
    const TransferReport report = carryTables(source, *target);
    target->finish();
    notes_ = source.notes();
    for (const CarriedTable& table : report.tables) EXPECT_EQ(table.read, table.stored) << table.name;
    const auto imported = openSource((onServer() ? there_ : copy_).string());
    EXPECT_THAT(textsOf(compareTables(source, *imported)), testing::IsEmpty());
    if (onServer()) {
      EXPECT_THAT(copy(there_, copy_), testing::IsEmpty());
    }
    return textsOf(report.problems);
  }

  /// The error that the import ends with, which leaves no target.
  std::string refusal(const std::string& charset = {}) {
    std::string text = "(none)";
    try {
      JetSource source(jet_, charset);
      const auto target = openTarget(copy_);
      carryTables(source, *target);
    } catch (const RuntimeError& error) {
      text = std::to_string(error.number()) + ": " + error.what();
    }
    for (const auto& entry : std::filesystem::directory_iterator(directory_.path()))
      EXPECT_EQ(entry.path(), jet_) << "left behind";
    return text;
  }

  std::vector<std::string> cells(const std::string& table) { return RawFile(copy_).cells(table); }

  std::filesystem::path jet_ = directory_ / "Old.mdb";
  std::vector<std::string> notes_;
};

class JetVersionsTest : public JetTest, public testing::WithParamInterface<JetVersion> {
 protected:
  bool isJet3() const { return GetParam() == JetVersion::Jet3; }
  JetFileWriter writer(const JetOptions& options = {}) { return {jet_, GetParam(), options}; }
};

}  // namespace zelkor::test
