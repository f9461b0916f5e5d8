#include "store/engine/StatementMaker.h"

namespace zelkor::test {

std::string StatementMaker::textLiteral() {
  return pick({"'abc'", "'ABC '", "'a'", "''", "'固定'", "'Ａ'", "'10'", "'9'", "'x y'", "'b  '", "' b'",
               "'2004-4-1'", "'ab%'"});
}

std::string StatementMaker::pattern() {
  return pick({"'a*'", "'*c'", "'?b*'", "'[a-c]*'", "'[!a]*'", "'#*'", "'固*'", "'*'", "'ABC'", "'a[*]*'",
               "'*%*'", "'b *'", "''"});
}

std::string StatementMaker::text(int depth) {
  if (depth == 0) return below(3) == 0 ? textLiteral() : pick({"p.sT", "p.sU"});
  switch (below(9)) {
    case 0:
      return "ucase(" + text(depth - 1) + ")";
    case 1:
      return "left(" + text(depth - 1) + "," + pick({"0", "1", "2", "9"}) + ")";
    case 2:
      return "mid(" + text(depth - 1) + "," + pick({"1", "2", "3,1"}) + ")";
    case 3:
      return "(" + text(depth - 1) + " & " + any(depth - 1) + ")";
    case 4:
      return "(" + text(depth - 1) + " + " + text(depth - 1) + ")";
    case 5:
      return "trim(" + text(depth - 1) + ")";
    case 6:
      return "format(" + number(depth - 1) + "," + pick({"'0.00'", "'#,##0.##'", "'000'", "'0.0%'"}) + ")";
    case 7:
      return "format(" + date(depth - 1) + "," + pick({"'yyyy-mm-dd'", "'yyyy.m'", "'hh:nn'"}) + ")";
    default:
      return "iif(" + condition(depth - 1) + "," + text(depth - 1) + "," + text(depth - 1) + ")";
  }
}

std::string StatementMaker::number(int depth) {
  if (depth == 0)
    return pick(
        {"p.iK", "p.lN", "p.dblN", "p.mN", "p.bN", "p.id", "0", "1", "2.5", "-3", "0.1", "1000", "null"});
  switch (below(9)) {
    case 0:
      return "(" + number(depth - 1) + pick({" + ", " - ", " * "}) + number(depth - 1) + ")";
    case 1:
      return "val(" + text(0) + " & '')";
    case 2:
      return "len(" + text(depth - 1) + ")";
    case 3:
      return pick({"int(", "fix(", "abs(", "round("}) + number(depth - 1) + ")";
    case 4:
      return "round(" + number(depth - 1) + "," + pick({"0", "1", "2"}) + ")";
    case 5:
      return "instr(" + text(depth - 1) + "," + textLiteral() + ")";
    case 6:
      return "datediff(" + pick({"'d'", "'m'", "'yyyy'", "'ww'", "'h'"}) + "," + date(depth - 1) + "," +
             date(0) + ")";
    case 7:
      return pick({"year(", "month(", "day("}) + date(depth - 1) + ")";
    default:
      return "(" + number(depth - 1) + pick({" / 4", " \\ 3", " mod 3", " / 0.7"}) + ")";
  }
}

std::string StatementMaker::date(int depth) {
  if (depth == 0)
    return pick({"p.dN", "p.dN", "#2004-2-29#", "#12/31/2003 23:59:59#", "#2004-4-1 12:00:00#"});
  switch (below(3)) {
    case 0:
      return "dateadd(" + pick({"'d'", "'m'", "'q'", "'n'"}) + "," + pick({"1", "-13", "2.5"}) + "," +
             date(depth - 1) + ")";
    case 1:
      return "(" + date(depth - 1) + pick({" + 1", " - 0.5", " + p.iK", " - 36"}) + ")";
    default:
      return "iif(" + condition(depth - 1) + "," + date(depth - 1) + "," + date(depth - 1) + ")";
  }
}

std::string StatementMaker::any(int depth) {
  switch (below(4)) {
    case 0:
      return number(depth);
    case 1:
      return date(depth);
    default:
      return text(depth);
  }
}

std::string StatementMaker::condition(int depth) {
  const std::string sign = pick({" = ", " <> ", " < ", " <= ", " > ", " >= "});
  switch (below(depth == 0 ? 8 : 12)) {
    case 0:
      return number(0) + sign + number(0);
    case 1:
      return text(0) + sign + text(0);
    case 2:
      return text(0) + pick({" like ", " not like "}) + pattern();
    case 3:
      return any(0) + pick({" is null", " is not null"});
    case 4:
      return "p.sT" + pick({" in ('abc ','B','固定')", " not in ('abc','x y ')"});
    case 5:
      return pick({"p.bN", "not p.bN", "p.bN = true", "p.bN <> 'True'", "p.lN = '2'", "p.sT = 10",
                   "p.dN = '2004-4-1'"});
    case 6:
      return date(0) + sign + date(0);
    case 7:
      return text(0) + " between " + textLiteral() + " and " + textLiteral();
    case 8:
      return "(" + condition(depth - 1) + pick({" and ", " or ", " xor "}) + condition(depth - 1) + ")";
    case 9:
      return "not (" + condition(depth - 1) + ")";
    case 10:
      return text(depth - 1) + sign + text(depth - 1);
    default:
      return pick({"p.sT in (select q.sT from q)", "p.id not in (select q.id from q where q.lN > 1)",
                   "exists (select * from q where q.id = p.id)",
                   "p.lN > all (select q.lN from q where q.id = p.id)",
                   "p.mN = (select max(q.mN) from q where q.lN = p.lN)",
                   "(select count(*) from q where q.sT = p.sT) > 0"});
  }
}

std::string StatementMaker::risky() {
  return pick({"clng(p.sT)", "cint(p.sU)", "cdbl(p.sT & '')", "p.sT * 2", "p.lN / p.iK", "p.lN \\ p.iK",
               "p.lN mod p.iK", "cdate(p.sU)", "p.iK ^ p.dblN", "ccur(p.dblN * 1e12)", "cint(p.lN * 100)",
               "left(p.sT,p.iK)", "p.sNone", "cstr(p.mN)", "none(p.lN)"});
}

std::string StatementMaker::query() {
  const std::string where = below(3) == 0 ? "" : " where " + condition(2);
  switch (below(9)) {
    case 0:
      return "select p.id," + any(2) + "," + any(2) + " from p" + where + " order by p.id";
    case 1:
      return "select p.id," + risky() + " from p where p.id < " + std::to_string(2 + below(24)) +
             " order by p.id";
    case 2:
      return "select p.id,p.sT from p" + where + " order by " + any(1) + pick({"", " desc"});
    case 3:
      return "select " + pick({"p.lN", "p.bN", "p.iK", "p.dN", "p.mN"}) +
             ",count(*),sum(p.mN),avg(p.mN),min(p.sT),max(p.dN),sum(p.dblN),avg(p.lN) from p" + where +
             " group by " + pick({"p.lN", "p.bN", "p.iK", "p.dN", "p.mN"});
    case 4:
      return "select distinct " + pick({"p.lN", "p.iK", "p.dN", "year(p.dN)", "ucase(p.sT)"}) + " from p" +
             where + " order by 1";
    case 5:
      return "select p.id,q.id," + any(1) + ",q.sT from p " +
             pick({"left join", "inner join", "right join"}) + " q on " +
             pick({"p.id = q.id", "p.sT = q.sT", "p.lN = q.lN"}) + where + " order by q.lN desc";
    case 6:
      return "select top " + std::to_string(1 + below(6)) + " p.id,p.lN from p" + where + " order by p.lN" +
             pick({"", " desc"});
    case 7:
      return "select " + pick({"p.lN", "p.mN", "ucase(p.sT)", "p.dN"}) + " as x from p" + where +
             pick({" union ", " union all "}) + "select " + pick({"q.lN", "q.mN", "q.sT"}) +
             " from q order by 1";
    default:
      return "select x.n,x.c from (select " + number(1) + " as n,count(*) as c from p" + where +
             " group by " + "p.lN,p.iK) x order by x.n,x.c";
  }
}

std::string StatementMaker::action() {
  const std::string where = " where " + condition(1);
  switch (below(5)) {
    case 0:
      return "update p set " + pick({"sT", "iK", "lN", "dblN", "mN", "dN", "bN"}) + "=" + any(2) + where;
    case 1:
      return "update p inner join q on p.id = q.id set p." +
             pick({"sU=q.sT", "lN=q.lN*2", "mN=q.mN/3", "iK=q.lN*q.id*1000"}) + where;
    case 2:
      return "insert into p (id,sT,iK,lN,dblN,mN,dN,bN) select p.id+100," + any(1) + "," + any(1) + "," +
             any(1) + "," + any(1) + "," + any(1) + "," + any(1) + "," + any(1) + " from p" + where +
             " and p.id < 6";
    case 3:
      return "delete from p" + where + " and p.id > 100";
    default:
      return "update p set " +
             pick({"lN=lN*lN", "iK=iK*lN", "lN=lN+iK", "mN=mN*mN", "dblN=lN/iK", "sT=sT+1", "bN=lN",
                   "dN=dN+lN"}) +
             " where p.id " + pick({"<", ">", "="}) + " " + std::to_string(1 + below(26));
  }
}

}  // namespace zelkor::test
