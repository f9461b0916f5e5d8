#include <cstdio>
#include <functional>

#include "Benchmarks.h"
#include "Sqlite.h"
#include "Stopwatch.h"
#include "store/engine/Statement.h"

namespace zelkor::bench {
namespace {

constexpr int kStatements = 20000;

std::string cardNumber(const LargeAccountSet& set, int i) {
  char text[16];
  std::snprintf(text, sizeof text, "%06d", 1 + static_cast<int>((i * 7919L) % set.cards()));
  return text;
}

/// Microseconds per call, the best of seven measurements.
double microseconds(const std::function<void(int)>& call) {
  std::vector<double> rounds;
  for (int round = 0; round < 7; ++round) {
    rounds.push_back(secondsOf([&] {
      for (int i = 0; i < kStatements; ++i) call(i);
    }));
  }
  return best(rounds) * 1e6 / kStatements;
}

void print(const char* what, double store, double bare) {
  std::printf("statement         %-22s %6.2f us        bare  %6.2f us         above %5.2f us\n", what, store,
              bare, store - bare);
}

double storeUpdate(const LargeAccountSet& set, Session& session) {
  Database& data = session.run().dbZKData;
  const double time = microseconds([&](int i) {
    data.Execute(sql("update fa_DeprTransactions set dblDepr1=", i,
                     ".25,dblDeprRate1=0.0079 where scardnum='", cardNumber(set, i), "'"));
  });
  session.run().engine.flush();
  return time;
}

double bareUpdate(const LargeAccountSet& set) {
  BareFile file(set.dataFile());
  BareStatement update(file, "UPDATE fa_DeprTransactions SET dblDepr1=?1,dblDeprRate1=?2 WHERE sCardNum=?3");
  file.run("BEGIN IMMEDIATE");
  const double time = microseconds(
      [&](int i) { update.bind(1, i + 0.25).bind(2, 0.0079).bind(3, cardNumber(set, i)).run(); });
  file.run("COMMIT");
  return time;
}

double storeQuery(const LargeAccountSet& set, Session& session) {
  double sum = 0;
  const double time = microseconds([&](int i) {
    const Recordset row = session.run().dbZKData.OpenRecordset(
        sql("select dblMonthDeprTotal from fa_DeprTransactions where scardnum='", cardNumber(set, i), "'"));
    sum += row.Fields(0).numberOrZero();
  });
  if (sum == 0) std::puts("nothing was read");
  return time;
}

double bareQuery(const LargeAccountSet& set) {
  BareFile file(set.dataFile());
  BareStatement query(file, "SELECT dblMonthDeprTotal FROM fa_DeprTransactions WHERE sCardNum=?1");
  double sum = 0;
  file.run("BEGIN");
  const double time = microseconds([&](int i) {
    query.bind(1, cardNumber(set, i)).step();
    sum += query.number(0);
    query.reset();
  });
  file.run("COMMIT");
  if (sum == 0) std::puts("nothing was read");
  return time;
}

double storeInsert(Session& session) {
  Database& data = session.run().dbZKData;
  data.Execute("delete from fa_DeprVouchers");
  const double time = microseconds([&](int i) {
    data.Execute(
        sql("insert into fa_DeprVouchers (lOptID,sDeptNum,sDeptName,dblCredit) values (5,'301','一车间',", i,
            ")"));
  });
  data.Execute("delete from fa_DeprVouchers");
  session.run().engine.flush();
  return time;
}

double bareInsert(const LargeAccountSet& set) {
  BareFile file(set.dataFile());
  BareStatement insert(
      file, "INSERT INTO fa_DeprVouchers(lOptID,sDeptNum,sDeptName,dblCredit) VALUES(?1,?2,?3,?4)");
  file.run("BEGIN IMMEDIATE");
  const double time = microseconds([&](int i) {
    insert.bind(1, std::int64_t{5}).bind(2, "301").bind(3, "一车间").bind(4, static_cast<double>(i)).run();
  });
  file.run("DELETE FROM fa_DeprVouchers; COMMIT");
  return time;
}

/// A total over a column of every row, beside the engine's own, which counts binary fractions.
void benchTotal(const LargeAccountSet& set, const char* what, const char* value) {
  BareFile file(set.dataFile());
  file.run(std::string("UPDATE fa_DeprTransactions SET dblDepr12=") + value);
  BareStatement bare(file, "SELECT sum(dblDepr12) FROM fa_DeprTransactions");
  Session session(set);
  std::vector<double> bareRounds;
  std::vector<double> rounds;
  for (int round = 0; round < 15; ++round) {
    bareRounds.push_back(secondsOf([&] {
      bare.step();
      bare.reset();
    }));
    rounds.push_back(secondsOf([&] {
      session.run().dbZKData.OpenRecordset("select sum(dblDepr12) from fa_DeprTransactions").Fields(0);
    }));
  }
  std::printf("total             %-22s %6.2f ms        bare  %6.2f ms         ratio %5.2f\n", what,
              best(rounds) * 1e3, best(bareRounds) * 1e3, best(rounds) / best(bareRounds));
}

}  // namespace

void benchStatements(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  const double updateFloor = bareUpdate(set);
  const double queryFloor = bareQuery(set);
  const double insertFloor = bareInsert(set);
  Session session(set);
  print("update by key", storeUpdate(set, session), updateFloor);
  print("query of one field", storeQuery(set, session), queryFloor);
  print("insert", storeInsert(session), insertFloor);
}

void benchTotals(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  benchTotal(set, "of amounts", "round(rowid*7.13,2)");
  benchTotal(set, "of 15 digits", "rowid*7.0/3");
}

}  // namespace zelkor::bench
