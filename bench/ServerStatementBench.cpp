#include <cstdio>
#include <functional>

#include "Benchmarks.h"
#include "PostgreSql.h"
#include "ServerDatabase.h"
#include "Stopwatch.h"
#include "store/engine/Statement.h"

namespace zelkor::bench {
namespace {

constexpr int kStatements = 4000;
constexpr int kRounds = 7;

using Call = std::function<void(int)>;

std::string cardNumber(const LargeAccountSet& set, int i) {
  const std::string number = std::to_string(1 + (i * 7919L) % set.cards());
  return std::string(6 - number.size(), '0') + number;
}

double perCall(const Call& call) {
  return secondsOf([&] {
           for (int i = 0; i < kStatements; ++i) call(i);
         }) *
         1e6 / kStatements;
}

/// By turns, so that whatever else the machine does bears on both alike.
void compare(const char* what, const Call& store, const Call& bare) {
  std::vector<double> stores;
  std::vector<double> bares;
  for (int round = 0; round < kRounds; ++round) {
    stores.push_back(perCall(store));
    bares.push_back(perCall(bare));
  }
  std::printf("server statement  %-26s %6.2f us     bare  %6.2f us     above %5.2f us\n", what, best(stores),
              best(bares), best(stores) - best(bares));
}

/// The statements through the store and bare, on one set.
class Statements {
 public:
  Statements(const LargeAccountSet& set, Database data)
      : set_(set),
        data_(std::move(data)),
        server_(set.conninfo(), kDataSchema),
        update_(server_, "UPDATE fa_DeprTransactions SET dblDepr1=$1,dblDeprRate1=$2 WHERE sCardNum=$3"),
        query_(server_, "SELECT dblMonthDeprTotal FROM fa_DeprTransactions WHERE sCardNum=$1"),
        insert_(server_,
                "INSERT INTO fa_DeprVouchers(lOptID,sDeptNum,sDeptName,dblCredit) VALUES($1,$2,$3,$4)") {}

  void compareUpdates(const char* what) {
    compare(
        what,
        [this](int i) {
          data_.Execute(sql("update fa_DeprTransactions set dblDepr1=", i,
                            ".25,dblDeprRate1=0.0079 where scardnum='", cardNumber(set_, i), "'"));
        },
        [this](int i) { update_.bind(1, i + 0.25).bind(2, 0.0079).bind(3, cardNumber(set_, i)).run(); });
  }
  void compareQueries(const char* what) {
    compare(
        what,
        [this](int i) {
          data_
              .OpenRecordset(sql("select dblMonthDeprTotal from fa_DeprTransactions where scardnum='",
                                 cardNumber(set_, i), "'"))
              .Fields(0);
        },
        [this](int i) { query_.bind(1, cardNumber(set_, i)).run().text(0, 0); });
  }
  void compareInserts(const char* what) {
    compare(
        what,
        [this](int i) {
          data_.Execute(sql(
              "insert into fa_DeprVouchers (lOptID,sDeptNum,sDeptName,dblCredit) values (5,'301','一车间',",
              i, ")"));
        },
        [this](int i) {
          insert_.bind(1, "5").bind(2, "301").bind(3, "一车间").bind(4, static_cast<double>(i)).run();
        });
  }
  void begin() { server_.run("BEGIN"); }
  void commit() { server_.run("COMMIT"); }

 private:
  const LargeAccountSet& set_;
  Database data_;
  BareServer server_;
  BareServerStatement update_;
  BareServerStatement query_;
  BareServerStatement insert_;
};

}  // namespace

void benchServerStatements(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  Session session(set);
  Statements statements(set, session.run().dbZKData);
  statements.compareUpdates("update by key");
  statements.compareQueries("query of one field");
  statements.compareInserts("insert");
  session.run().engine.workspace().BeginTrans();
  statements.begin();
  statements.compareInserts("insert in a transaction");
  statements.compareQueries("query in a transaction");
  statements.commit();
  session.run().engine.workspace().CommitTrans();
}

}  // namespace zelkor::bench
