#include "vouchers/VoucherTypePick.h"

#include <algorithm>

#include "base/Conversion.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::int16_t nextVoucherNumber(Database& data, std::string_view sign, DateTime date) {
  Recordset vouchers =
      data.OpenRecordset(sql("select * from gl_accvouch where year(dbill_date)=", date.year(),
                             " and month(dbill_date)=", date.month(), " and csign='", sign,
                             "' order by dbill_date,csign,ino_id,inid"));
  double greatest = 0;
  for (; !vouchers.Eof(); vouchers.MoveNext())
    greatest = std::max(greatest, vouchers.Fields("ino_id").numberOrZero());
  return CInt(greatest + 1);
}

}  // namespace

std::vector<std::string> voucherTypeList(Database& data) {
  std::vector<std::string> list;
  Recordset types = data.OpenRecordset("select * from  dsign order by isignseq ");
  for (; !types.Eof(); types.MoveNext())
    list.push_back(types.TextOrEmpty("csign") + "  " + types.TextOrEmpty("ctext"));
  return list;
}

PickedVoucherType pickVoucherType(Database& data, std::string_view entry, DateTime date) {
  PickedVoucherType picked;
  picked.sign = Left(entry, 1);
  const std::size_t blanks = entry.find("  ");
  if (blanks != std::string_view::npos) picked.name = entry.substr(blanks + 2);
  const Recordset type = data.OpenRecordset(sql("select * from dsign where csign='", picked.sign, "'"));
  if (!type.Eof()) picked.isignseq = CInt(type.Fields("isignseq").numberOrZero());
  picked.nextNumber = nextVoucherNumber(data, picked.sign, date);
  return picked;
}

}  // namespace zelkor
