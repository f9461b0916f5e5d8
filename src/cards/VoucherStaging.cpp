#include "cards/VoucherStaging.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

/// The number of an event of which a staged row would be rewritten.
constexpr const char* kRewritten = "02";

/// What the rows of one event share.
struct StagedEvent {
  const std::string& digest;
  std::string coutid;
};

/// One row: its line within the event, the amounts as text, its order within the voucher.
struct StagedRow {
  std::int32_t inid;
  std::string_view debit;
  std::string_view credit;
  int order;
};

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

StagedAsset stagedAsset(const CardEntry& card, std::string_view cardNum) {
  return {std::string(cardNum), card[CardField::AdditionWay], card[CardField::OriginalValue], card.department,
          card.month};
}

void AssetStaging::read(StatementGroup& group, const std::string& originID, int month) {
  if (const auto [place, isNew] = digests_.try_emplace(originID); isNew) {
    group.open(sql("select * from fa_Origins where sID='", originID, "'"),
               [&digest = place->second](const Recordset& origin) {
                 if (!origin.Eof()) digest = origin.TextOrEmpty("sName");
               });
  }
  if (std::exchange(haveRead_, true)) return;
  group.open(sql("select Max(inid) as inidmax from fa_ZWVouchers where coutsysname='FA' and ioutperiod=",
                 month, " and coutsign='卡片' and coutno_id='", kRewritten, "'"),
             [this](const Recordset& highest) { lastLine_ = highest.Fields("inidmax").numberOrZero(); });
  group.open("select Max(val(coutid)) as imax from fa_ZWVouchers",
             [this](const Recordset& highest) { lastKey_ = highest.Fields("imax").numberOrZero(); });
}

void AssetStaging::write(StatementGroup& group, const StagedAsset& asset) {
  const std::int32_t line = CLng(lastLine_ + 1);
  const StagedEvent event{digests_.at(asset.originID), Format(lastKey_ + 1, "00000000000000000000")};
  insertRow(group, context_, asset, event, {line, asset.originalValue, "0", 1});
  insertRow(group, context_, asset, event, {line + 1, "0", asset.originalValue, 2});
  if (asset.cardNum == kRewritten && asset.month == context_.gdOpDate.month()) lastLine_ = line + 1;
  lastKey_ = Val(event.coutid);
}

void stageNewAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset) {
  AssetStaging staging(context);
  staging.read(group, asset.originID, asset.month);
  group.run();
  staging.write(group, asset);
  group.run();
}

void restageChangedAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset) {
  const std::string condition =
      sql(" from fa_ZWVouchers where coutsysname='FA' and ioutperiod=", asset.month,
          " and coutsign='卡片' and coutno_id='", kRewritten, "' and cDefine9='", asset.cardNum, "'");
  bool isStaged = false;
  group.open(sql("select *", condition), [&](const Recordset& rows) { isStaged = !rows.Eof(); });
  group.run();
  if (!isStaged) return;
  group.execute(sql("delete", condition));
  stageNewAsset(group, context, asset);
}

}  // namespace zelkor
