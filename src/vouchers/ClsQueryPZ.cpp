#include "vouchers/ClsQueryPZ.h"

#include <filesystem>
#include <system_error>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "凭证查询";

std::string dateText(const Recordset& voucher, std::string_view column) {
  return Format(voucher.Fields(column), "yyyy-mm-dd");
}

std::string bookedText(const Value& ibook) {
  if (ibook.isNull()) return {};
  const double flag = ibook.number();
  return flag == 1 ? "记账" : flag == 0 ? "未记账" : "";
}

}  // namespace

bool ClsQueryPZ::OpenZkData() {
  if (zkData_.isOpen()) return true;
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(zkDataPath_, ignored)) {
    run_.dialogs.MsgBox("文件[" + zkDataPath_ + "]不存在！", Buttons::Ok, Icon::Exclamation, kTitle);
    return false;
  }
  zkData_ = run_.engine.OpenDatabase(zkDataPath_);
  return true;
}

Recordset ClsQueryPZ::rstGetCards(int first, int last) {
  if (!OpenZkData()) return {};
  try {
    return zkData_.OpenRecordset(
        sql("SELECT Min(GL_accvouch.ioutperiod) AS ioutperiodOfMin,"
            "Max(GL_accvouch.doutbilldate) AS doutdateOfMin,"
            "Min(GL_accvouch.coutsign) AS coutsignOfMin,"
            "GL_accvouch.coutno_id, GL_accvouch.dbill_date,"
            "Min(GL_accvouch.csign) AS csignOfMin, Min(GL_accvouch.ino_id)"
            "AS ino_idOfMin, Min(GL_accvouch.cbill) AS cbillOfMin,"
            " Min(GL_accvouch.ccheck) AS ccheckOfMin, Min(GL_accvouch.cbook) AS cbookOfMin,"
            "Min(GL_accvouch.ibook) AS ibookOfMin, Min(GL_accvouch.iflag) AS iflagOfMin "
            "From GL_accvouch "
            "WHERE (GL_accvouch.iperiod Between ",
            first, " And ", last,
            "  )"
            "AND (iflag <> 1 Or iflag Is Null)  AND (ccodecontrol ='FA,#') "
            "GROUP BY GL_accvouch.coutsign, GL_accvouch.coutno_id,"
            "GL_accvouch.dbill_date  ORDER BY GL_accvouch.dbill_date,"
            "Min (GL_accvouch.ino_id)"));
  } catch (const RuntimeError&) {
    return {};
  }
}

bool ClsQueryPZ::DelRecord(const QueriedVoucher& voucher) {
  try {
    if (!OpenZkData()) return false;
    zkData_.Execute(sql("delete * from GL_accvouch where  coutno_id='", voucher.coutno_id, "'",
                        "  and  coutsign='", voucher.coutsign, "'", "  and year(dbill_date)=Year('",
                        voucher.date, "')", "  and month(dbill_date)=Month('", voucher.date, "')",
                        "  and day(dbill_date)=Day('", voucher.date, "')"));
    zkData_.Execute(sql("update fa_ZWVouchers set cDefine1=null where cDefine10 like '", voucher.key,
                        "*' and ioutperiod=", CDate(voucher.date).month()));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

std::string queryPeriodText(DateTime opDate) {
  return Format(opDate, "yyyy.mm");
}

int queryPeriodMonth(const std::string& text) {
  const std::size_t point = text.find('.');
  return point == std::string::npos ? 0 : CLng(Val(text.substr(point + 1)));
}

TextGrid queriedVouchers(Recordset vouchers) {
  static constexpr int kWidths[] = {1500, 1500, 1800, 1400, 1500, 1400, 1100};
  TextGrid grid;
  grid.setHeader("业务日期|业务类型|业务号|制单人|凭证日期|凭证号|标志|");
  for (std::size_t column = 0; column < std::size(kWidths); ++column) {
    grid.setColumnWidth(column, kWidths[column]);
  }
  grid.setColumnHidden(query_column::Key, true);
  if (!vouchers.isOpen()) return grid;
  for (; !vouchers.Eof(); vouchers.MoveNext()) {
    const std::string sign = vouchers.TextOrEmpty("coutsignOfMin");
    const std::string number = vouchers.TextOrEmpty("coutno_id");
    grid.addRow({dateText(vouchers, "doutdateOfMin"), sign, number, vouchers.TextOrEmpty("cbillOfMin"),
                 dateText(vouchers, "dbill_date"),
                 vouchers.TextOrEmpty("csignOfMin") + "--" + vouchers.TextOrEmpty("ino_idOfMin"),
                 bookedText(vouchers.Fields("ibookOfMin")), sql(sign, "(", number, ")")});
  }
  return grid;
}

QueriedVoucher queriedVoucher(const TextGrid& grid, std::size_t row) {
  return {grid.text(row, query_column::Sign), grid.text(row, query_column::Number),
          grid.text(row, query_column::VoucherDate), grid.text(row, query_column::Key)};
}

bool deleteQueriedVoucher(RunContext& run, ClsQueryPZ& vouchers, const QueriedVoucher& voucher) {
  const bool deleted = vouchers.DelRecord(voucher);
  run.dialogs.MsgBox(deleted ? "删除成功！" : "删除失败！", Buttons::Ok,
                     deleted ? Icon::Information : Icon::Exclamation, kTitle);
  return deleted;
}

}  // namespace zelkor
