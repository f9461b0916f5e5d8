#include <gmock/gmock.h>

#include "support/AccountSetFixture.h"
#include "vouchers/ClsBLLPZType.h"
#include "vouchers/VoucherTypePick.h"
#include "vouchers/VoucherTypeTable.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Codes = std::vector<std::string>;

class VoucherTypesTest : public AccountSetTest {
 protected:
  VoucherTypesTest() { types.setZkDataPath(context.gstrZtFile); }

  std::vector<std::string> stored() {
    return rows("select csign,isignseq,ctext,itype from dsign order by I_ID");
  }
  std::vector<std::string> limits() { return rows("select csign,ccode from dsigns order by ccode"); }

  ClsBLLPZType types{engine};
};

TEST_F(VoucherTypesTest, StoresChangesAndDeletesATypeWithItsSubjects) {
  std::int32_t id = kNewDsign;
  EXPECT_TRUE(types.UpdateDsign(id, {"收", 2, "收款凭证", 1}));
  EXPECT_EQ(id, 2);
  EXPECT_EQ(types.GetDsignID("收"), 2);
  EXPECT_EQ(types.GetDsignID("付"), 0);
  EXPECT_TRUE(types.UpdateDsigns("收", {"1001", "1002"}));
  EXPECT_TRUE(types.UpdateDsigns("收", {"1001", "1009"}));
  EXPECT_EQ(types.GetDsignLimitCodes("收"), "1001,1009");
  EXPECT_TRUE(types.UpdateDsign(id, {"收", 5, "收款", 2}));
  EXPECT_TRUE(types.UpdateDsignSeq(id, 7));
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|7|收款|2"));
  EXPECT_TRUE(types.UpdateDsigns("记", {"1501"}));
  EXPECT_TRUE(types.DeleteDsign(id));
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0"));
  EXPECT_THAT(limits(), ElementsAre("记|1501"));
  EXPECT_TRUE(types.DeleteDsign(99));
}

TEST_F(VoucherTypesTest, FailsSilently) {
  std::int32_t id = kNewDsign;
  EXPECT_FALSE(types.UpdateDsign(id, {"'", 1, "", 0}));
  EXPECT_EQ(id, kNewDsign);
  ClsBLLPZType missing(engine);
  missing.setZkDataPath(missingFile());
  EXPECT_FALSE(missing.GetAllDsign().isOpen());
  EXPECT_FALSE(missing.UpdateDsigns("记", {}));
  EXPECT_FALSE(missing.DeleteDsign(1));
  EXPECT_FALSE(missing.UpdateDsignSeq(1, 1));
  EXPECT_EQ(missing.GetDsignID("记"), 0);
  EXPECT_EQ(missing.GetDsignLimitCodes("记"), "");
}

TEST_F(VoucherTypesTest, ReadsTheSuitesArchivesInTreeOrder) {
  execute("insert into customerclass (cCCCode,iCCGrade) values ('0101',2)");
  execute("insert into customerclass (cCCCode,iCCGrade) values ('02',1)");
  execute("insert into customerclass (cCCCode,iCCGrade) values ('01',1)");
  Recordset customers = types.GetAllCustomClass();
  Codes codes;
  for (; !customers.Eof(); customers.MoveNext()) codes.push_back(customers.Text("cCCCode"));
  EXPECT_THAT(codes, ElementsAre("01", "02", "0101"));
  EXPECT_TRUE(types.GetAllDistrictClass().isOpen());
  EXPECT_TRUE(types.GetAllVendorClass().isOpen());
  EXPECT_FALSE(types.GetAllGradedef().Eof());
}

TEST_F(VoucherTypesTest, APresetAddsToWhatIsThere) {
  const auto& presets = voucherTypePresets();
  for (const std::size_t option : {3U, 4U, 1U, 2U, 0U, 0U}) addPreset(types, presets[option]);
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|1|收款凭证|0", "付|2|付款凭证|0",
                                    "转|3|转账凭证|0", "现|1|现金凭证|0", "银|2|银行凭证|0",
                                    "转|3|转账凭证|0", "记|1|记账凭证|0", "记|1|记账凭证|0"));
}

TEST_F(VoucherTypesTest, ALimitDoesNotComeBackAsItWasSaved) {
  const std::array<std::string_view, 5> comesBackAs = {"无限制", "借方必有", "贷方必有", "无限制",
                                                       "凭证必无"};
  VoucherTypeTable table(types);
  for (std::size_t kind = 0; kind < kLimitKinds.size(); ++kind) {
    table.setText(1, type_column::Limit, std::string(kLimitKinds[kind]));
    table.save(1);
    EXPECT_EQ(VoucherTypeTable(types).grid().text(1, type_column::Limit), comesBackAs[kind])
        << kLimitKinds[kind];
  }
  execute("update dsign set itype=4");
  EXPECT_EQ(VoucherTypeTable(types).grid().text(1, type_column::Limit), "凭证必有");
}

TEST_F(VoucherTypesTest, ChecksCellsAndRows) {
  VoucherTypeTable table(types);
  const std::size_t added = table.add();
  ASSERT_EQ(added, 2U);
  struct Case {
    std::size_t column;
    const char* text;
    const char* refusal;
  };
  for (const Case& one : {Case{0, " ", "凭证类别字不能为空！"}, Case{1, "", "类别名称不能为空！"},
                          Case{0, "记", "凭证类别字不能重复！"}, Case{1, "记账凭证", "类别名称不能重复！"},
                          Case{0, "收", ""}, Case{1, "记账", ""}, Case{3, "", ""}}) {
    EXPECT_EQ(table.checkCell(added, one.column, one.text).value_or(""), one.refusal) << one.text;
  }
  EXPECT_EQ(table.checkCell(1, type_column::Sign, "记"), std::nullopt) << "its own text";
  table.setText(added, type_column::Limit, "借方必有");
  EXPECT_EQ(table.checkCell(added, type_column::Codes, " "), "凭证类别有限制，必须输入限制科目！");
  EXPECT_EQ(table.checkRow(added), "凭证类别有限制，必须输入限制科目！");
  table.setText(added, type_column::Codes, "1001");
  EXPECT_EQ(table.checkRow(added), std::nullopt);
}

TEST_F(VoucherTypesTest, SavesARowUnderItsNumberWithItsSubjects) {
  VoucherTypeTable table(types);
  const std::size_t row = table.add();
  EXPECT_EQ(table.id(row), kNewDsign);
  for (const auto& [column, text] :
       {std::pair{type_column::Sign, "收"}, std::pair{type_column::Name, "收款凭证"},
        std::pair{type_column::Limit, "借方必有"}, std::pair{type_column::Codes, "1001，1002；1009;1501"}}) {
    table.setText(row, column, text);
  }
  table.save(row);
  EXPECT_EQ(table.id(row), 2);
  EXPECT_THAT(stored(), ElementsAre("记|1|记账凭证|0", "收|2|收款凭证|1"));
  EXPECT_THAT(limits(), ElementsAre("收|1001", "收|1002", "收|1009", "收|1501"));
  table.setText(row, type_column::Codes, "");
  table.save(row);
  EXPECT_THAT(limits(), IsEmpty());
  EXPECT_EQ(stored().size(), 2U);
}

TEST_F(VoucherTypesTest, MovesRowsAndNumbersThemAnew) {
  addPreset(types, voucherTypePresets()[1]);
  execute("update dsign set isignseq=9 where csign='记'");
  VoucherTypeTable table(types);
  EXPECT_FALSE(table.moveUp(1));
  EXPECT_FALSE(table.moveDown(4));
  EXPECT_TRUE(table.moveDown(1));
  EXPECT_TRUE(table.moveUp(4));
  EXPECT_THAT(rows("select csign,isignseq from dsign order by isignseq"),
              ElementsAre("付|1", "收|2", "记|3", "转|4"));
  EXPECT_EQ(table.grid().text(3, type_column::Sign), "记");
  EXPECT_EQ(table.id(3), 1);
}

TEST_F(VoucherTypesTest, RemovesStoredAndNewRows) {
  addPreset(types, voucherTypePresets()[1]);
  VoucherTypeTable table(types);
  EXPECT_TRUE(table.remove(table.add()));
  EXPECT_EQ(stored().size(), 4U);
  EXPECT_TRUE(table.remove(2));
  EXPECT_EQ(table.grid().rows(), 4U);
  EXPECT_EQ(stored().size(), 3U);
  EXPECT_EQ(table.id(2), types.GetDsignID(table.grid().text(2, type_column::Sign)));
}

TEST(VoucherTypeTextTest, SplitsAndJoinsCodes) {
  EXPECT_EQ(splitLimitCodes(""), Codes{});
  EXPECT_EQ(splitLimitCodes("1001"), Codes{"1001"});
  EXPECT_EQ(splitLimitCodes("1001,1002，；1;"), (Codes{"1001", "1002", "", "1"}));
  struct Case {
    const char* text;
    const char* joined;
  };
  for (const Case& one : {Case{"", "7"}, Case{"1", "1,7"}, Case{"1,", "1,7"}, Case{"1，", "1，7"},
                          Case{"1；", "1；7"}, Case{"1;", "1;7"}}) {
    EXPECT_EQ(withLimitCode(one.text, "7"), one.joined);
  }
}

class VoucherTypePickTest : public AccountSetTest {
 protected:
  void addVoucher(const char* sign, const char* date, const char* number) {
    execute(std::string("insert into gl_accvouch (csign,dbill_date,ino_id) values ('") + sign + "',#" + date +
            "#," + number + ")");
  }
  std::string picked(const char* entry) {
    const PickedVoucherType type = pickVoucherType(db(), entry, day("2020-5-15"));
    return type.sign + "|" + std::to_string(type.isignseq) + "|" + std::to_string(type.nextNumber);
  }
};

TEST_F(VoucherTypePickTest, listsSignAndNameByTheSequence) {
  execute("update dsign set isignseq=3 where csign='记'");
  execute("insert into dsign (csign,isignseq,ctext) values ('收',1,'收款凭证')");
  EXPECT_EQ(voucherTypeList(db()), (std::vector<std::string>{"收  收款凭证", "记  记账凭证"}));
  execute("delete from dsign");
  EXPECT_TRUE(voucherTypeList(db()).empty());
}

TEST_F(VoucherTypePickTest, numbersBehindTheGreatestOfTheMonth) {
  EXPECT_EQ(picked("记  记账凭证"), "记|1|1");
  addVoucher("记", "2020-5-31", "7");
  addVoucher("记", "2020-5-1", "12");
  addVoucher("记", "2020-5-2", "Null");
  addVoucher("记", "2020-6-1", "40");
  addVoucher("记", "2019-5-1", "50");
  addVoucher("收", "2020-5-1", "60");
  EXPECT_EQ(picked("记  记账凭证"), "记|1|13");
  EXPECT_EQ(picked("收  收款凭证"), "收|0|61") << "a type that has gone";
}

TEST_F(VoucherTypePickTest, failsBeyondTheLastNumber) {
  addVoucher("记", "2020-5-1", "32767");
  EXPECT_EQ(errorOf([&] { picked("记  记账凭证"); }), 6);
}

}  // namespace
}  // namespace zelkor::test
