#include <gtest/gtest.h>
#include <mdbtools.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "support/jet/JetFileWriter.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

using Texts = std::vector<std::vector<std::string>>;

/// All rows of a table as libmdb shows them, which knows the format from elsewhere.
Texts rowsOf(const std::filesystem::path& file, std::string table) {
  const std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> mdb(mdb_open(file.c_str(), MDB_NOFLAGS), mdb_close);
  if (!mdb) throw std::runtime_error("no Jet file");
  mdb_set_date_fmt(mdb.get(), "%Y-%m-%d %H:%M:%S");
  const std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)> def(
      mdb_read_table_by_name(mdb.get(), table.data(), MDB_TABLE), mdb_free_tabledef);
  if (!def || mdb_read_columns(def.get()) == nullptr) throw std::runtime_error("no table " + table);
  std::vector<std::array<char, MDB_BIND_SIZE>> bound(def->num_cols);
  for (unsigned column = 0; column < def->num_cols; ++column)
    mdb_bind_column(def.get(), static_cast<int>(column) + 1, bound[column].data(), nullptr);
  mdb_rewind_table(def.get());
  Texts rows;
  while (mdb_fetch_row(def.get()) != 0) {
    rows.emplace_back();
    for (const auto& cell : bound) rows.back().emplace_back(cell.data());
  }
  return rows;
}

std::string longText(int lines) {
  std::string text;
  for (int i = 0; i < lines; ++i) text += "第" + std::to_string(i) + "行;";
  return text;
}

struct Case {
  JetVersion version;
  std::uint32_t key;
};

class JetFileWriterTest : public testing::TestWithParam<Case> {
 protected:
  JetFileWriter create() {
    JetOptions options;
    options.key = GetParam().key;
    return {file, GetParam().version, options};
  }

  TempDir directory;
  std::filesystem::path file = directory / "set.mdb";
};

// clang-format off
const std::vector<JetColumn> kEveryType = {
  {"lID", JetType::Long, 0, true}, {"by", JetType::Byte}, {"i", JetType::Short}, {"m", JetType::Money}, {"f", JetType::Single}, {"d", JetType::Double},
  {"dt", JetType::Date}, {"b", JetType::Boolean}, {"名称", JetType::Text, 100}, {"memo", JetType::Memo}, {"n", JetType::Numeric}, {"late", JetType::Text, 20}};

std::vector<JetCell> written(std::int64_t number, const JetCell& memo) {
  return {number, std::int64_t{200}, std::int64_t{-7}, std::int64_t{-9223372036854775807}, 0.5, -1.25, 38000.25, true, "一般 office 电脑", memo, std::int64_t{-1230001}, "late"};
}
std::vector<std::string> shown(const std::string& number, const std::string& memo, const std::string& late = "late") {
  return {number, "200", "-7", "-922337203685477.5807", "0.5", "-1.25", "2004-01-14 06:00:00", "1", "一般 office 电脑", memo, "-123.0001", late};
}
// clang-format on

TEST_P(JetFileWriterTest, ShowsEveryTypeAndPlace) {
  JetFileWriter writer = create();
  JetTable& table = writer.table("卡片", kEveryType, {{"PrimaryKey", {"lID"}, true, true}});
  table.add(written(1, "short"));
  table.add(written(2, longText(60)));
  table.add(written(3, "gone"), JetRowState::Deleted);
  table.add(written(4, longText(1000)));
  std::vector<JetCell> early = written(5, JetMemo{longText(20), JetPlace::InRow});
  early.pop_back();
  table.add(early);
  table.add(std::vector<JetCell>(kEveryType.size()));
  table.add(written(6, JetMemo{"pages", JetPlace::Pages}));
  writer.close();
  const std::vector<std::string> nulls = {"", "", "", "", "", "", "", "0", "", "", "", ""};
  EXPECT_EQ(rowsOf(file, "卡片"),
            (Texts{shown("1", "short"), shown("2", longText(60)), shown("4", longText(1000)),
                   shown("5", longText(20), ""), nulls, shown("6", "pages")}));
}

TEST_P(JetFileWriterTest, KeepsTablesApartThatGrowTogether) {
  JetFileWriter writer = create();
  JetTable& one = writer.table("one", {{"a", JetType::Long}, {"t", JetType::Text, 200}});
  JetTable& other = writer.table("other", {{"a", JetType::Long}});
  for (std::int64_t i = 0; i < 40000; ++i) {
    one.add({i, std::string(static_cast<std::size_t>(i % 200), 'x')});
    other.add({-i}, i % 1000 == 0 ? JetRowState::Moved : JetRowState::Stored);
  }
  writer.close();

  const Texts rows = rowsOf(file, "one");
  ASSERT_EQ(rows.size(), 40000U);
  EXPECT_EQ(rows.back(), (std::vector<std::string>{"39999", std::string(199, 'x')}));
  EXPECT_EQ(rowsOf(file, "other").size(), 40000U);
}

INSTANTIATE_TEST_SUITE_P(Versions, JetFileWriterTest,
                         testing::Values(Case{JetVersion::Jet3, 0}, Case{JetVersion::Jet4, 0},
                                         Case{JetVersion::Jet3, 0x5EC0DE}, Case{JetVersion::Jet4, 0x5EC0DE}));

}  // namespace
}  // namespace zelkor::test
