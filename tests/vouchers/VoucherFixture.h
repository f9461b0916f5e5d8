#pragma once

#include <string>
#include <vector>

#include "cards/VoucherStaging.h"
#include "depreciation/StagedDepr.h"
#include "support/AccountSetFixture.h"
#include "support/Golden.h"
#include "vouchers/BatchBilling.h"
#include "vouchers/VoucherFill.h"

namespace zelkor::test {

/// Stages events as the other rooms do and reads what becomes of them.
class VoucherTest : public AccountSetTest {
 protected:
  /// An addition with its debit and its credit row, without subjects.
  void stageCard(const std::string& cardNum, const std::string& value) {
    StatementGroup group(db());
    stageNewAsset(group, context, {cardNum, "101", value, "301", context.period()});
  }
  /// The month's depreciation: 410502 once for 301 and once for 302, 550202 for 1, and one credit row without
  /// a subject.
  void stageDepreciation() {
    execute("delete from fa_DeprVouchers");
    for (const char* row : {"'301','410502',100.25", "'302','410502',50", "'1','550202',20.5"}) {
      execute("insert into fa_DeprVouchers (sDeptNum,sSubjectNum,dblCredit) values (" + std::string(row) +
              ")");
    }
    stageDepr(context);
  }
  /// Gives the loaded lines without a subject these, by their side.
  static void completeSubjects(BatchBilling& billing, const std::string& debit, const std::string& credit) {
    for (std::size_t row = 1; row < billing.lines().rows(); ++row) {
      if (billing.lines().text(row, line_column::Subject) != " ") continue;
      const bool onDebit = billing.lines().text(row, line_column::Side) == "借";
      EXPECT_TRUE(billing.enterSubject(row, onDebit ? debit : credit));
    }
  }
  /// Loads what is marked, completes it and prepares its voucher.
  static VoucherRequest prepared(BatchBilling& billing) {
    billing.loadLines();
    completeSubjects(billing, "1501", "1502");
    EXPECT_TRUE(billing.ToolSave());
    return billing.request();
  }
  VoucherRequest cardVoucher(const std::string& cardNum, const std::string& value) {
    stageCard(cardNum, value);
    BatchBilling billing(context);
    for (std::size_t row = 1; row < billing.selection().rows(); ++row) {
      if (billing.selection().text(row, selection_column::Number) == cardNum) billing.toggleMark(row);
    }
    return prepared(billing);
  }
  VoucherRequest depreciationVoucher() {
    stageDepreciation();
    BatchBilling billing(context);
    billing.toggleMark(1);
    return prepared(billing);
  }
  bool saveVoucher(const VoucherRequest& request) {
    Voucher voucher;
    VoucherFill window(context, request, voucher);
    window.LoadVouch();
    return window.Save();
  }

  std::vector<std::string> staged(const std::string& columns) {
    return rows("select " + columns + " from fa_ZWVouchers order by i_id");
  }
  /// The ledger's entries, what they hold but Null, are those of the file.
  void expectLedger(const std::string& name) {
    expectGolden("vouchers/golden/" + name + ".txt",
                 namedRowsOf(db().OpenRecordset("select * from GL_accvouch order by ino_id,inid")));
  }
  std::vector<std::string> ledger(const std::string& columns) {
    return rows("select " + columns + " from GL_accvouch order by ino_id,inid");
  }
};

/// The voucher's lines as texts: digest, subject, name, debit, credit.
inline std::vector<std::string> linesOf(const Voucher& voucher) {
  std::vector<std::string> lines;
  for (std::size_t i = 1; i <= voucher.RowCount(); ++i) {
    const VoucherLine& line = voucher.Row(i);
    lines.push_back(line.Digest + "|" + line.SubjectCode + "|" + line.SubjectName + "|" +
                    line.Debit.toText() + "|" + line.Credit.toText());
  }
  return lines;
}

}  // namespace zelkor::test
