#include "audit/CheckRule.h"

// The month: what the run has written into the ledger, the allocation and the staged entries.

namespace zelkor {
namespace {

constexpr CheckRule kRules[] = {
    {.code = "M01",
     .severity = Severity::Error,
     .meaning = "折旧分配、折旧台账和凭证数据的合计不一致",
     .remedy = "重新计提本月折旧（运行类型 8），再制单",
     .origin = "计提之后删除卡片，其台账随之删除",
     .time = RuleTime::LastRun,
     .statement = R"(
select {run} as period, a.dblTotal-s.mTotal as amount,
  '分配 ' & format(a.dblTotal,'0.00##') & '，凭证数据 ' & format(s.mTotal,'0.00##') as detail
from (select nz(sum(dblCredit),0) as dblTotal from fa_DeprVouchers) a,
  (select nz(sum(mc),0) as mTotal from {stagedRun}) s
where abs(a.dblTotal-s.mTotal)>0.00005
union all
select {run}, a.dblTotal-t.dblTotal,
  '分配 ' & format(a.dblTotal,'0.00') & '，台账 ' & format(t.dblTotal,'0.00')
from (select nz(sum({cents}),0)/100 as dblTotal from fa_DeprVouchers) a,
  (select nz(sum(dblDepr{run}),0) as dblTotal from fa_DeprTransactions) t
where abs(a.dblTotal-t.dblTotal)>0.004)"},
    {.code = "M02",
     .severity = Severity::Error,
     .meaning = "以前月份的折旧台账与凭证数据不一致",
     .remedy = "与该月的凭证核对；台账由备份查明，凭证数据以账务为准",
     .origin = "删除卡片时，其各月的折旧台账随之删除",
     .time = RuleTime::Run,
     .statement = R"(
select s.ioutperiod as period, {sumOfMonth}-s.mTotal as amount,
  '台账 ' & format({sumOfMonth},'0.00') & '，凭证数据 ' & format(s.mTotal,'0.00') as detail
from (select count(*) as lRows{sumsBeforeRun} from fa_DeprTransactions) l,
  (select ioutperiod, sum(mc) as mTotal from fa_ZWVouchers
    where ioutyear={year} and ioutperiod<{run} and coutsign='折旧计提' group by ioutperiod) s
where abs({sumOfMonth}-s.mTotal)>0.005*(l.lRows+1))"},
    {.code = "M03",
     .severity = Severity::Error,
     .meaning = "部门的折旧分配与凭证数据不一致",
     .remedy = "重新计提本月折旧（运行类型 8），再制单",
     .time = RuleTime::LastRun,
     .statement = R"(
select '部门 ' & a.sDeptNum as place, {run} as period, a.dblTotal-nz(s.mTotal,0) as amount,
  '分配 ' & format(a.dblTotal,'0.00##') & '，凭证数据 ' & format(nz(s.mTotal,0),'0.00##') as detail
from (select sDeptNum, sum(dblCredit) as dblTotal from fa_DeprVouchers group by sDeptNum) a
  left join (select cdept_id, sum(md) as mTotal from {stagedRun} group by cdept_id) s on a.sDeptNum=s.cdept_id
where abs(a.dblTotal-nz(s.mTotal,0))>0.00005
  and abs((select sum(d.dblCredit) from fa_DeprVouchers d)-(select sum(md) from {stagedRun}))<0.00005)"},
    {.code = "M04",
     .severity = Severity::Warning,
     .meaning = "计提之后卡片有变动，再计提会得出另一个金额",
     .remedy = "要使变动在本月起作用，重新计提本月折旧；否则从下月起",
     .origin = "计提之后保存的变动单和卡片修改不改已计提的折旧",
     .time = RuleTime::RunOfMonth,
     .statement = R"(
select iif(t.dblDepr{run}=0,'M05',iif({expected}=0,'M06','M04')) as code,
  c.sCardNum as card, '版本 ' & c.sCardID as place, {run} as period,
  val(format({expected},'0.00'))-t.dblDepr{run} as amount,
  '台账 ' & format(t.dblDepr{run},'0.00') & '，按卡片应为 ' & format({expected},'0.00') as detail
from fa_DeprTransactions t inner join fa_Cards c on c.sCardNum=t.sCardNum
where c.dStartdate<#{first}# and abs({expected}-t.dblDepr{run})>0.0051
  and (c.dDisposeDate is null or c.dDisposeDate<#{first}#) and (c.sDeprMethodID<>'5' or c.lLife>6)
  and exists (select a.sNum from fa_departments a where a.sNum=c.sDeptNum)
  and exists (select a.sNum from fa_AssetTypes a where a.sNum=c.sTypeNum)
  and not exists (select z.sCardID from fa_Cards z
    where z.sCardNum=c.sCardNum and (z.sCardID>c.sCardID or z.dTransDate>=#{next}#)))"},
    {.code = "M05",
     .severity = Severity::Error,
     .meaning = "应计提折旧的卡片本月没有计提",
     .remedy = "重新计提本月折旧（运行类型 8）",
     .origin = "计提之后录入的卡片和作的变动单不在本月的计提中",
     .time = RuleTime::RunOfMonth},
    {.code = "M06",
     .severity = Severity::Error,
     .meaning = "不应计提折旧的卡片本月计提了折旧",
     .remedy = "重新计提本月折旧（运行类型 8）",
     .origin = "计提之后作的变动单不在本月的计提中",
     .time = RuleTime::RunOfMonth},
    {.code = "M07",
     .severity = Severity::Note,
     .meaning = "已减少的资产仍在计提折旧",
     .remedy = "核对本月折旧凭证，在账务中冲回；本系统没有停止计提的设置",
     .origin = "计提折旧不看资产是否已减少",
     .time = RuleTime::Run,
     .statement = R"(
select distinct c.sCardNum as card, {run} as period, t.dblDepr{run} as amount
from fa_Cards c inner join fa_DeprTransactions t on t.sCardNum=c.sCardNum
where c.dDisposeDate<#{first}# and t.dblDepr{run}<>0)"},
    {.code = "M08",
     .severity = Severity::Note,
     .meaning = "累计折旧已超过应计折旧额，仍在计提",
     .remedy = "作折旧方法调整，改为不提折旧；金额是超出的数",
     .origin = "计提折旧不看折旧是否已提足",
     .time = RuleTime::Run,
     .statement = R"(
select c.sCardNum as card, {run} as period, t.dblInputDeprTotal+{addedToRun}-(c.dblValue-c.dblBV) as amount
from fa_DeprTransactions t inner join fa_Cards c on c.sCardNum=t.sCardNum
where t.dblDepr{run}>0 and t.dblInputDeprTotal+{addedToRun}>c.dblValue-c.dblBV+0.005 and {newest})"},
    {.code = "M09",
     .severity = Severity::Note,
     .meaning = "台账的期初累计折旧不是到上月末的累计折旧",
     .remedy = "累计折旧以录入数加各月折旧为准；报表所示的累计折旧只含期初数和本月数",
     .origin = "月末结账从部门台账取期初累计折旧，而计提不写部门台账",
     .time = RuleTime::Closed,
     .statement = R"(
select {closed}+1 as period, sum(t.dblMonthDeprTotal-t.dblInputDeprTotal-({addedToClosed})) as amount,
  count(*) & ' 张卡片' as detail
from fa_DeprTransactions t
where t.iInputPeriod<={closed} and abs(t.dblMonthDeprTotal-t.dblInputDeprTotal-({addedToClosed}))>0.005
having count(*)>0)"},
    {.code = "M10",
     .severity = Severity::Warning,
     .meaning = "以前的月份没有计提折旧",
     .remedy = "以该月的日期登录，计提折旧并制单，然后重新计提以后各月",
     .origin = "月末结账不检查是否已计提折旧",
     .statement = R"(
select g.iperiod as period from GL_mend g
where g.iperiod>={start} and g.iperiod<{month}
  and not exists (select v.i_id from fa_ZWVouchers v
    where v.ioutyear={year} and v.ioutperiod=g.iperiod and v.coutsign='折旧计提')
  and exists (select c.sCardNum from fa_Cards c
    where c.dStartdate<dateserial({year},g.iperiod,1) and c.dInputDate<dateserial({year},g.iperiod+1,1)))"},
    {.code = "M11",
     .severity = Severity::Error,
     .meaning = "凭证数据的一项业务借贷不平",
     .remedy = "折旧：重新计提本月折旧；卡片：删除卡片重新录入；已制单的在凭证中改正",
     .statement = R"(
select coutno_id as card, coutsign as place, ioutperiod as period, sum(md)-sum(mc) as amount,
  '借方 ' & format(sum(md),'0.00##') & '，贷方 ' & format(sum(mc),'0.00##') as detail
from fa_ZWVouchers group by ioutyear, ioutperiod, coutsign, coutno_id
having nz(sum(md),0)<>nz(sum(mc),0))"},
    {.code = "M12",
     .severity = Severity::Warning,
     .meaning = "凭证数据没有科目，或科目不在科目表中",
     .remedy = "在批量制单中填写科目；折旧：填写卡片的对应折旧科目后重新计提",
     .origin = "没有折旧科目的卡片，其折旧没有科目",
     .statement = R"(
select v.coutno_id as card, '凭证数据 ' & v.i_id as place, v.ioutperiod as period,
  nz(v.md,0)+nz(v.mc,0) as amount, iif(nz(v.ccode,'')='','没有科目','科目 ' & v.ccode) as detail
from fa_ZWVouchers v
where (v.coutsign='折旧计提' and v.md<>0 and nz(v.ccode,'')='')
  or (nz(v.ccode,'') not in ('','0') and not exists (select k.ccode from code k where k.ccode=v.ccode)))"},
};

}  // namespace

std::span<const CheckRule> monthRules() {
  return kRules;
}

}  // namespace zelkor
