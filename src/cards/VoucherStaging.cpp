#include "cards/VoucherStaging.h"

#include <cstdint>
#include <string_view>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

/// What the rows of one event share.
struct StagedEvent {
  std::string digest;
  std::string coutid;
  std::int32_t firstLine = 1;
};

/// One row: its line within the event, the amounts as text, its order within the voucher.
struct StagedRow {
  std::int32_t inid;
  std::string_view debit;
  std::string_view credit;
  int order;
};

/// Reads it behind the statements of the group.
StagedEvent readEvent(StatementGroup& group, const StagedAsset& asset) {
  StagedEvent event;
  group.open(sql("select * from fa_Origins where sID='", asset.originID, "'"), [&](const Recordset& origin) {
    if (!origin.Eof()) event.digest = origin.TextOrEmpty("sName");
  });
  group.open(sql("select Max(inid) as inidmax from fa_ZWVouchers where coutsysname='FA' and ioutperiod=",
                 asset.month, " and coutsign='卡片' and coutno_id='02'"),
             [&](const Recordset& highest) {
               event.firstLine = CLng(highest.Fields("inidmax").numberOrZero() + 1);
             });
  group.open("select Max(val(coutid)) as imax from fa_ZWVouchers", [&](const Recordset& highest) {
    event.coutid = Format(highest.Fields("imax").numberOrZero() + 1, "00000000000000000000");
  });
  group.run();
  return event;
}

void insertRow(StatementGroup& group, const RunContext& context, const StagedAsset& asset,
               const StagedEvent& event, const StagedRow& row) {
  const std::string day = dayText(context.gdOpDate);
  group.execute(
      sql("insert into fa_ZWVouchers (coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,"
          "ioutperiod,coutsign,coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,"
          "cdigest,md,mc,cdept_id,ccodecontrol,"
          "bvouchedit,bvouchAddordele,bvouchmoneyhold,"
          "bvalueedit,bcodeedit,"
          "bPCSedit,bDeptedit,bItemedit,bCusSupInput,cDefine5,cDefine9,cDefine10) values ('",
          context.gstrAccountId, "',", context.gdOpDate.year(), ",'FA','8.10',#", day, "#,",
          context.gdOpDate.month(), ",'卡片','", asset.cardNum, "',", row.inid, ",#", day, "#,'新增资产','",
          event.coutid, "',0,'", context.gstrUser, "','", event.digest, "',", row.debit, ",", row.credit,
          ",'", asset.department, "','FA,#',true,true,true,true,true,true,true,true,true,", row.order, ",'",
          asset.cardNum, "','新增资产')"));
}

}  // namespace

void stageNewAsset(Database& database, const RunContext& context, const StagedAsset& asset) {
  StatementGroup group(database);
  stageNewAsset(group, context, asset);
}

void stageNewAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset) {
  const StagedEvent event = readEvent(group, asset);
  insertRow(group, context, asset, event, {event.firstLine, asset.originalValue, "0", 1});
  insertRow(group, context, asset, event, {event.firstLine + 1, "0", asset.originalValue, 2});
  group.run();
}

void restageChangedAsset(Database& database, const RunContext& context, const StagedAsset& asset) {
  const std::string condition =
      sql(" from fa_ZWVouchers where coutsysname='FA' and ioutperiod=", asset.month,
          " and coutsign='卡片' and coutno_id='02' and cDefine9='", asset.cardNum, "'");
  if (database.OpenRecordset(sql("select *", condition)).Eof()) return;
  StatementGroup group(database);
  group.execute(sql("delete", condition));
  stageNewAsset(group, context, asset);
}

}  // namespace zelkor
