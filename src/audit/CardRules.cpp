#include "audit/CheckRule.h"

// The cards: their versions, codes and figures, and what belongs to each.

namespace zelkor {
namespace {

constexpr CheckRule kRules[] = {
    {.code = "C01",
     .severity = Severity::Error,
     .meaning = "一个卡片编号用于不同的资产",
     .remedy =
         "给其中一项资产另用一个新编号重新录入卡片，再删除重号的卡片（连同其全部版本），然后重新计提本月折旧",
     .origin = "两台工作站同时录入卡片，会取到同一个编号",
     .statement = R"(
select c.sCardNum as card, max(c.sCardID) as place, max(c.dblValue) as amount,
  min(c.sAssetNum) & ' ' & min(c.sAssetName) & '；' & max(c.sAssetNum) & ' ' & max(c.sAssetName) as detail
from (select sCardNum from fa_Cards group by sCardNum having count(*)>1) x
  inner join fa_Cards c on c.sCardNum=x.sCardNum
group by c.sCardNum having min(c.sAssetNum)<>max(c.sAssetNum) or min(c.sAssetName)<>max(c.sAssetName)
union all
select sCardNum, '', null, count(*) & ' 行折旧台账' from fa_DeprTransactions
group by sCardNum having count(*)>1)"},
    {.code = "C02",
     .severity = Severity::Warning,
     .meaning = "一个固定资产编号用于几张卡片",
     .remedy = "在卡片管理中修改其中一张卡片的固定资产编号",
     .origin = "编号由人录入，或两台工作站同时录入，或类别中有非数字的编号，都会取到用过的编号",
     .statement = R"(
select min(c.sCardNum) as card, '编号 ' & c.sAssetNum as place,
  '卡片 ' & min(c.sCardNum) & '、' & max(c.sCardNum) as detail
from (select sAssetNum from fa_Cards where sAssetNum<>'' group by sAssetNum having count(*)>1) x
  inner join fa_Cards c on c.sAssetNum=x.sAssetNum
group by c.sAssetNum having min(c.sCardNum)<>max(c.sCardNum))"},
    {.code = "C03",
     .severity = Severity::Error,
     .meaning = "一张卡片有两个版本用同一个版本号",
     .remedy = "由管理员用 zelkorctl sql 给后一个版本改用比全表都大的版本号（sCardID）",
     .origin = "版本号超过 9 后，部门转移取到的版本号可能是用过的",
     .statement = R"(
select sCardNum as card, '版本 ' & sCardID as place, count(*) & ' 个版本' as detail
from fa_Cards group by sCardNum, sCardID having count(*)>1)"},
    {.code = "C04",
     .severity = Severity::Note,
     .meaning = "不同卡片的版本用同一个版本号",
     .remedy = "无需处理；按版本号查找的清单会把这几张卡片的版本一并列出",
     .origin = "原值增加、使用状况调整和资产减少按本卡片的最新版本编号，这个号可能已属于另一张卡片",
     .statement = R"(
select min(c.sCardNum) as card, '版本 ' & c.sCardID as place,
  '卡片 ' & min(c.sCardNum) & '、' & max(c.sCardNum) as detail
from (select sCardID from fa_Cards group by sCardID having count(*)>1) x
  inner join fa_Cards c on c.sCardID=x.sCardID
group by c.sCardID having min(c.sCardNum)<>max(c.sCardNum))"},
    {.code = "C05",
     .severity = Severity::Warning,
     .meaning = "卡片版本的次序颠倒：日期较早的变动，版本号较大",
     .remedy = "由管理员用 zelkorctl sql 改正版本号（sCardID），使日期最晚的变动号最大",
     .origin = "版本号超过 9 后，部门转移取到的版本号可能小于已有的",
     .statement = R"(
select a.sCardNum as card, '版本 ' & b.sCardID as place, '版本 ' & a.sCardID & ' 的变动在后' as detail
from fa_Cards a inner join fa_Cards b on a.sCardNum=b.sCardNum
where a.dTransDate is not null and (b.dTransDate is null or b.dTransDate<a.dTransDate) and b.iOptType<>3
  and val(b.sCardID)>val(a.sCardID))"},
    {.code = "C06",
     .severity = Severity::Note,
     .meaning = "计提折旧用的不是卡片的最新版本",
     .remedy = "折旧按所示版本计算；要按最新版本计提，请另作一张变动单，使最新版本的编号按文字也排在最后",
     .origin = "计提折旧取按文字排在最后的版本号，9 排在 10 之后",
     .statement = R"(
select x.sCardNum as card, '版本 ' & x.sText as place, '最新版本是 ' & x.dblNewest as detail
from (select sCardNum, max(sCardID) as sText, max(val(sCardID)) as dblNewest from fa_Cards
  group by sCardNum having count(*)>1) x
where val(x.sText)<>x.dblNewest)"},
    {.code = "C07",
     .severity = Severity::Warning,
     .meaning = "卡片编码在档案中没有",
     .remedy = "在档案中补上该编码，或在卡片管理中改用已有的编码；部门、类别没有的卡片不计提折旧",
     .origin = "删除部门、类别或使用状况时不检查有没有卡片在用",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place,
  iif({noCategory},'类别 ' & c.sTypeNum & ' ','') & iif({noDepartment},'部门 ' & c.sDeptNum & ' ','')
  & iif({noStatus},'使用状况 ' & c.sStatusID & ' ','') & iif({noMethod},'折旧方法 ' & c.sDeprMethodID & ' ','')
  & iif({noWay},'增加方式 ' & c.sOrgAddID,'') as detail
from fa_Cards c
where ({noCategory} or {noDepartment} or {noStatus} or {noMethod} or {noWay})
  and c.dDisposeDate is null and {newest})"},
    {.code = "C08",
     .severity = Severity::Warning,
     .meaning = "要计提折旧的卡片没有折旧科目，或科目不在科目表中",
     .remedy = "在卡片管理中填写对应折旧科目",
     .origin = "保存卡片时不要求填写对应折旧科目；科目表中没有的科目按空保存",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place, c.dblValue as amount,
  iif(nz(c.sDeprSubjectNum,'')='','没有科目','科目 ' & c.sDeprSubjectNum) as detail
from fa_Cards c
where {depreciates} and not exists (select k.ccode from code k where k.ccode=c.sDeprSubjectNum)
  and c.dDisposeDate is null and {newest})"},
    {.code = "C09",
     .severity = Severity::Warning,
     .meaning = "已计提月份超过使用年限，或没有使用年限",
     .remedy = "在卡片管理中改正已计提月份，或作使用年限调整；年数总和法会得出负的折旧",
     .origin = "保存卡片和使用年限调整时不比较已计提月份与使用年限",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place,
  '已计提 ' & c.lUsedMonths & ' 个月，年限 ' & c.lLife & ' 个月' as detail
from fa_Cards c
where {depreciates} and (c.lUsedMonths>c.lLife or (c.lLife<=0 and c.sDeprMethodID<>'5'))
  and c.dDisposeDate is null and {newest})"},
    {.code = "C10",
     .severity = Severity::Error,
     .meaning = "年数总和法的使用年限不足七个月，计提折旧会因除以零而中断",
     .remedy = "作折旧方法调整，改用平均年限法，或作使用年限调整",
     .origin = "保存卡片时不检查年限与折旧方法是否相配",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place, '年限 ' & c.lLife & ' 个月' as detail
from fa_Cards c where c.sDeprMethodID='5' and c.lLife<=6 and {runTakes})"},
    {.code = "C11",
     .severity = Severity::Warning,
     .meaning = "录入的累计折旧超过应计折旧额（原值减净残值）",
     .remedy = "在卡片管理中改正累计折旧、原值或净残值",
     .origin = "原值减少后不比较原值与累计折旧",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place,
  c.dblTransInDeprTCard-(c.dblValue-c.dblBV) as amount,
  '累计折旧 ' & format(c.dblTransInDeprTCard,'0.00') as detail
from fa_Cards c
where c.dblTransInDeprTCard>c.dblValue-c.dblBV+0.005 and c.dDisposeDate is null and {newest})"},
    {.code = "C12",
     .severity = Severity::Note,
     .meaning = "几个部门共用的卡片不计提折旧",
     .remedy = "用部门转移把资产转给一个部门，折旧才会计提",
     .origin = "计提折旧只处理部门编码在部门档案中的卡片，几个部门的编码连写时找不到",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place, '部门 ' & c.sDeptNum as detail
from fa_Cards c
where instr(c.sDeptNum,'/')>0 and {depreciates} and c.dDisposeDate is null and {runTakes})"},
    {.code = "C13",
     .severity = Severity::Error,
     .meaning = "卡片没有折旧台账",
     .remedy = "从备份恢复，或删除卡片重新录入；没有台账的折旧进了分配表而无处累计",
     .statement = R"(
select c.sCardNum as card, max(c.dblValue) as amount from fa_Cards c
where not exists (select t.sCardNum from fa_DeprTransactions t where t.sCardNum=c.sCardNum)
group by c.sCardNum)"},
    {.code = "C14",
     .severity = Severity::Error,
     .meaning = "折旧台账没有卡片",
     .remedy = "从备份恢复卡片，或由管理员用 zelkorctl sql 从 fa_DeprTransactions 删除该行",
     .statement = R"(
select t.sCardNum as card, t.dblInputValue as amount from fa_DeprTransactions t
where not exists (select c.sCardNum from fa_Cards c where c.sCardNum=t.sCardNum))"},
    {.code = "C15",
     .severity = Severity::Warning,
     .meaning = "卡片的部门份额合计不是 100%",
     .remedy = "用部门转移重新分配部门；资产减少按这些份额逐行制单",
     .origin = "删除卡片时部门份额留下，编号重用后新旧份额并列",
     .statement = R"(
select s.sCardNum as card, '业务 ' & s.lOptID as place, sum(s.dblScale) as amount,
  count(*) & ' 个部门' as detail
from fa_DeptScale s group by s.sCardNum, s.lOptID
having not (count(*)=1 and sum(s.dblScale)=1) and sum(s.dblScale)<>100)"},
    {.code = "C16",
     .severity = Severity::Warning,
     .meaning = "部门明细的原值与卡片不符",
     .remedy =
         "资产减少按部门明细的原值制单：减少前由管理员用 zelkorctl sql 改正 fa_Cards_Detail 的 dblValue",
     .origin = "修改卡片和原值增加都不改部门明细；已删除卡片的版本号重用后，留下的明细归到新版本",
     .statement = R"(
select distinct d.sCardNum as card, '版本 ' & d.sCardID as place, {ofDepartments}-c.dblValue as amount,
  '部门明细 ' & format({ofDepartments},'0.00') & '，卡片 ' & format(c.dblValue,'0.00') as detail
from fa_Cards_Detail d inner join fa_Cards c on d.sCardNum=c.sCardNum and d.sCardID=c.sCardID
where d.dblValue<>c.dblValue and abs({ofDepartments}-c.dblValue)>0.005)"},
    {.code = "C17",
     .severity = Severity::Note,
     .meaning = "已删除的卡片留下部门份额和明细",
     .remedy = "无需处理；编号重用后会与新卡片的并列",
     .origin = "删除卡片只删除卡片、折旧台账和凭证数据",
     .statement = R"(
select distinct x.sCardNum as card from (
  select s.sCardNum from fa_DeptScale s where {noCard} union all
  select s.sCardNum from fa_Cards_Detail s where {noCard} union all
  select s.sCardNum from fa_DeprTransactions_Detail s where {noCard}) x)"},
    {.code = "C18",
     .severity = Severity::Warning,
     .meaning = "变动单没有对应的卡片版本",
     .remedy = "由管理员从备份查明；变动没有进入卡片，要重新填制变动单",
     .statement = R"(
select v.sCardNum as card, '变动单 ' & v.sNum as place,
  v.sVoucherName & ' ' & v.sBeforeVoucher & ' → ' & v.sAfterVoucher as detail
from fa_Vouchers v
where v.sVoucherName<>'折旧方法调整'
  and exists (select c.sCardNum from fa_Cards c where c.sCardNum=v.sCardNum)
  and not exists (select c.sCardNum from fa_Cards c where c.sCardNum=v.sCardNum and c.sVoucherNum=v.sNum))"},
    {.code = "C19",
     .severity = Severity::Error,
     .meaning = "卡片的版本号、日期、年限或金额缺少，或读不出来",
     .remedy = "卡片表被手工改动过：由管理员用 zelkorctl sql 改正所示的项目，或从备份恢复",
     .statement = R"(
select c.sCardNum as card, '版本 ' & c.sCardID as place,
  iif({hasNumber},'','版本号 ') & iif({hasDates},'','日期 ') & iif({hasLife},'','使用年限、已计提月份 ')
  & iif({hasAmounts},'','原值、净残值、累计折旧') as detail
from fa_Cards c where iif({hasNumber} and {hasDates} and {hasLife} and {hasAmounts},0,1)=1)"},
};

}  // namespace

std::span<const CheckRule> cardRules() {
  return kRules;
}

}  // namespace zelkor
