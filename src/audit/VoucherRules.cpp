#include "audit/CheckRule.h"

// The ledger's vouchers of this module against the staged entries that they were made of, and against the
// register.

namespace zelkor {
namespace {

constexpr CheckRule kRules[] = {
    {.code = "V01",
     .severity = Severity::Error,
     .meaning = "凭证借贷不平",
     .remedy = "在填制凭证中改正，或在凭证查询中删除后重新制单",
     .origin = "保存凭证时不检查借贷是否相等",
     .statement = R"(
select csign & '--' & ino_id as place, iperiod as period, sum(md)-sum(mc) as amount,
  '借方 ' & format(sum(md),'0.00##') & '，贷方 ' & format(sum(mc),'0.00##') as detail
from GL_accvouch where {ours} group by year(dbill_date), iperiod, csign, ino_id
having nz(sum(md),0)<>nz(sum(mc),0))"},
    {.code = "V02",
     .severity = Severity::Error,
     .meaning = "凭证数据标为已制单，而账中没有凭证",
     .remedy = "凭证在账务中被删除：由管理员用 zelkorctl sql 把所示凭证数据的 cDefine1 置为 Null，再重新制单",
     .statement = R"(
select x.sNumber as card, x.sKey as place, x.ioutperiod as period, x.mTotal as amount
from (select ioutperiod, cDefine10 as sKey, {kindOfKey} as sKind, {numberOfKey} as sNumber, sum(mc) as mTotal
    from fa_ZWVouchers where ioutyear={year} and cDefine1='1' group by ioutperiod, cDefine10) x
  left join {vouchers} g on x.ioutperiod=g.iperiod and x.sKind=g.sKind and x.sNumber=g.sNumber
where g.iperiod is null)"},
    {.code = "V03",
     .severity = Severity::Warning,
     .meaning = "账中的凭证没有凭证数据",
     .remedy = "同一业务记了两次账：在凭证查询或账务中删除或冲销所示凭证",
     .origin = "制单后重新计提或删除卡片，原来的凭证留在账中；折旧的凭证不能用凭证查询删除",
     .statement = R"(
select g.sNumber as card, '凭证 ' & g.lVoucher as place, g.iperiod as period, g.mTotal as amount,
  g.sKind as detail
from {vouchers} g
  left join (select distinct ioutperiod, {kindOfKey} as sKind, {numberOfKey} as sNumber
    from fa_ZWVouchers where ioutyear={year}
    union select ioutperiod, coutsign, {number} from fa_ZWVouchers where ioutyear={year}) x
  on x.ioutperiod=g.iperiod and x.sKind=g.sKind and x.sNumber=g.sNumber
where x.ioutperiod is null
union all
select '', '凭证 ' & a.ino_id, a.iperiod, sum(a.md), '折旧计提，后来又有凭证 ' & b.lLast
from GL_accvouch a
  inner join (select iperiod, max(ino_id) as lLast from GL_accvouch
    where coutsign='折旧计提' and {ours} and year(dbill_date)={year} group by iperiod) b
  on a.iperiod=b.iperiod
where a.coutsign='折旧计提' and a.ccodecontrol='FA,#' and (a.iflag<>1 or a.iflag is null)
  and year(a.dbill_date)={year} and a.ino_id<b.lLast
group by a.iperiod, a.ino_id, b.lLast)"},
    {.code = "V04",
     .severity = Severity::Warning,
     .meaning = "以前月份的业务没有制单",
     .remedy = "以该月的日期登录，在批量制单中制单；以本月的日期登录时不再列出",
     .origin = "批量制单只列本月的业务",
     .statement = R"(
select coutno_id as card, coutbillsign as place, ioutperiod as period, mc as amount from fa_ZWVouchers
where nz(cDefine1,'')='' and mc<>0 and ioutyear*12+ioutperiod<{year}*12+{month})"},
    {.code = "V05",
     .severity = Severity::Error,
     .meaning = "凭证号重复",
     .remedy = "在账务中把其中一张凭证改号",
     .origin = "两台工作站同时保存凭证，会取到同一个凭证号",
     .statement = R"(
select csign & '--' & ino_id as place, iperiod as period, '第 ' & inid & ' 行有 ' & count(*) & ' 条' as detail
from GL_accvouch where iflag<>1 or iflag is null
group by year(dbill_date), iperiod, csign, ino_id, inid having count(*)>1)"},
    {.code = "V06",
     .severity = Severity::Warning,
     .meaning = "凭证号中断",
     .remedy = "查明缺的凭证是否为人所删；需要时在账务中整理凭证号",
     .origin = "在凭证查询中删除凭证，号码不再用",
     .statement = R"(
select a.csign & '--' & a.ino_id as place, a.iperiod as period, '其后缺号' as detail
from (select distinct year(dbill_date) as iYear, iperiod, csign, ino_id from GL_accvouch) a
  inner join (select year(dbill_date) as iYear, iperiod, csign, max(ino_id) as lLast from GL_accvouch
    group by year(dbill_date), iperiod, csign) b
  on a.iYear=b.iYear and a.iperiod=b.iperiod and a.csign=b.csign
where a.ino_id<b.lLast and not exists (select g.i_id from GL_accvouch g
  where g.iperiod=a.iperiod and g.ino_id=a.ino_id+1 and year(g.dbill_date)=a.iYear))"},
    {.code = "V07",
     .severity = Severity::Error,
     .meaning = "凭证分录没有科目，或科目不在科目表中",
     .remedy = "在填制凭证中改正科目",
     .statement = R"(
select '凭证 ' & g.ino_id & ' 第 ' & g.inid & ' 行' as place, g.iperiod as period,
  nz(g.md,0)+nz(g.mc,0) as amount, '科目 ' & g.ccode as detail
from GL_accvouch g
where g.ccodecontrol='FA,#' and not exists (select k.ccode from code k where k.ccode=g.ccode))"},

    // What finds these is LedgerCheck.
    {.code = "L01",
     .severity = Severity::Warning,
     .meaning = "账务的固定资产科目与登记簿本月的增减不符",
     .remedy = "按所列卡片和凭证查明，在账务中补制或改正凭证",
     .origin = "变动单、卡片修改和多数资产减少不产生凭证数据，由人在账务中制单"},
    {.code = "L02",
     .severity = Severity::Warning,
     .meaning = "账务的累计折旧科目与登记簿本月的增减不符",
     .remedy = "按所列卡片和凭证查明，在账务中补制或改正凭证",
     .origin = "累计折旧调整不产生凭证数据，资产减少的凭证没有累计折旧的分录，由人在账务中制单"},
    {.code = "L03",
     .severity = Severity::Warning,
     .meaning = "账务科目的期初余额与登记簿不符",
     .remedy = "核对期初余额与年初的卡片"},
};

}  // namespace

std::span<const CheckRule> voucherRules() {
  return kRules;
}

}  // namespace zelkor
