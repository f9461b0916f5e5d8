// What each job reads on a server: which tables it goes through as a whole, and its dearest statements where
// the server counts them (pg_stat_statements).

#include <cstdio>
#include <functional>
#include <stdexcept>

#include "base/RuntimeError.h"
#include "Benchmarks.h"
#include "cards/ClsBLLFACards.h"
#include "closing/Disposal.h"
#include "closing/MonthEnd.h"
#include "depreciation/RunMonthDepr.h"
#include "PostgreSql.h"
#include "reports/ReportRun.h"
#include "ServerDatabase.h"
#include "Stopwatch.h"
#include "vouchers/BatchBilling.h"

namespace zelkor::bench {
namespace {

constexpr const char* kTakeCounts =
    "DROP TABLE IF EXISTS pg_temp.before; CREATE TEMP TABLE before AS SELECT relname,seq_scan,seq_tup_read,"
    "idx_tup_fetch FROM pg_stat_user_tables";
constexpr const char* kWholeReads =
    "SELECT a.relname,a.seq_scan-coalesce(b.seq_scan,0),a.seq_tup_read-coalesce(b.seq_tup_read,0) FROM "
    "pg_stat_user_tables a LEFT JOIN before b USING (relname) WHERE "
    "a.seq_tup_read-coalesce(b.seq_tup_read,0)>=1000 ORDER BY 3 DESC";
constexpr const char* kOthers =
    "SELECT 1 FROM pg_stat_activity WHERE datname=current_database() AND pid<>pg_backend_pid()";
constexpr const char* kHasStatements = "SELECT 1 FROM pg_extension WHERE extname='pg_stat_statements'";
constexpr const char* kDearest =
    "SELECT calls,round((total_exec_time)::numeric,1),round((total_exec_time/calls)::numeric,3),rows,"
    "round(shared_blks_hit/calls),left(regexp_replace(query,'\\s+',' ','g'),230) FROM pg_stat_statements "
    "WHERE dbid=(SELECT oid FROM pg_database WHERE datname=current_database()) AND query NOT LIKE "
    "'%pg_stat_%' AND query NOT LIKE '%pg_sleep%' AND query NOT LIKE '%pg_proc%' AND query NOT LIKE "
    "'%pg_class%' ORDER BY total_exec_time DESC LIMIT 6";

/// Another session on the set's database, which reads the server's counts before and after a job.
class Counts {
 public:
  explicit Counts(const LargeAccountSet& set) : server_(set.conninfo(), kDataSchema) {
    if (rows("SELECT 1 FROM pg_settings WHERE name='pg_stat_statements.max'") > 0)
      server_.run("CREATE EXTENSION IF NOT EXISTS pg_stat_statements SCHEMA public");
  }

  void take() {
    waitForOthers();
    server_.run(kTakeCounts);
    if (rows(kHasStatements) > 0) server_.run("SELECT pg_stat_statements_reset()");
  }
  void print(const std::string& job, double seconds) {
    waitForOthers();
    std::printf("\n## %s  %.1f ms\n", job.c_str(), seconds * 1e3);
    const BareResult tables = server_.check(PQexec(server_.handle(), kWholeReads), kWholeReads);
    for (int row = 0; row < PQntuples(tables.get()); ++row)
      std::printf("whole: %s  scans %s  rows %s\n", cell(tables, row, 0), cell(tables, row, 1),
                  cell(tables, row, 2));
    if (rows(kHasStatements) == 0) return;
    const BareResult dearest = server_.check(PQexec(server_.handle(), kDearest), kDearest);
    for (int row = 0; row < PQntuples(dearest.get()); ++row)
      std::printf("%7s x %9s ms each (sum %s ms, %s rows, %s blocks each)  %s\n", cell(dearest, row, 0),
                  cell(dearest, row, 2), cell(dearest, row, 1), cell(dearest, row, 3), cell(dearest, row, 4),
                  cell(dearest, row, 5));
    std::fflush(stdout);
  }

 private:
  static const char* cell(const BareResult& result, int row, int column) {
    return PQgetvalue(result.get(), row, column);
  }
  int rows(const char* query) {
    return PQntuples(server_.check(PQexec(server_.handle(), query), query).get());
  }
  // A session hands in its counts when it ends.
  void waitForOthers() {
    while (rows(kOthers) > 0) server_.run("SELECT pg_sleep(0.02)");
  }

  BareServer server_;
};

using Job = std::function<void(RunContext&)>;

void closeTheMonth(RunContext& run) {
  try {
    closeMonth(run, {[](int) {}, [](const auto&) {}});
  } catch (const EndProgram&) {
    return;
  }
  throw std::runtime_error("the month was not closed");
}

void saveCard(RunContext& run) {
  ClsBLLFACards store(run);
  store.setZkDataPath(run.gstrZtFile);
  CardValues card = sampleCard("900000");
  if (!store.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary))
    throw std::runtime_error("the card was not saved");
}

void dispose(RunContext& run) {
  const DisposedAsset asset{"000001", "01000001", "车床", "出售", "201", "1000", "10", "bench"};
  if (!disposeOfAssets(run, {&asset, 1})) throw std::runtime_error("the asset was not disposed of");
}

void makeVouchers(RunContext& run) {
  BatchBilling billing(run);
  billing.markAll();
  billing.loadLines();
  for (std::size_t row = 1; row < billing.lines().rows(); ++row) billing.enterSubject(row, "550202");
  if (!billing.ToolSave()) throw std::runtime_error("the voucher was not made");
}

/// A job that does not get to its end is named; the others still run.
void runToItsEnd(const std::string& name, const Job& job, RunContext& run) {
  try {
    job(run);
  } catch (const std::runtime_error& error) {
    std::printf("\n%s ended early: %s\n", name.c_str(), error.what());
  }
  run.engine.flush();
}

class Jobs {
 public:
  explicit Jobs(const LargeAccountSet& set) : set_(set), counts_(set) {}

  void run(const std::string& name, const Job& job) {
    counts_.take();
    double seconds = 0;
    {
      Session session(set_);
      seconds = secondsOf([&] { runToItsEnd(name, job, session.run()); });
    }
    counts_.print(name, seconds);
  }

 private:
  const LargeAccountSet& set_;
  Counts counts_;
};

}  // namespace

void benchServerScans(const LargeAccountSet& original) {
  const LargeAccountSet set(original);
  keepNumbersSmall(set);
  Jobs jobs(set);
  jobs.run("saving a card", saveCard);
  for (const ChangeKind kind : {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife, ChangeKind::Transfer})
    jobs.run("a sheet: " + std::string(captionOf(kind)),
             [&](RunContext&) { saveOneSheet(set, kind, "00001" + std::to_string(static_cast<int>(kind))); });
  jobs.run("the monthly run", [](RunContext& run) { RunMonthDepr(run, {[] {}, [] {}}); });
  jobs.run("a disposal", dispose);
  jobs.run("batch billing", makeVouchers);
  for (const ReportKind& kind : reportKinds()) {
    if (!kind.build) continue;
    jobs.run("report " + std::string(kind.name), [&](RunContext& run) {
      ReportView view;
      kind.build(run, ReportConditions(2020), view);
    });
  }
  jobs.run("month-end", closeTheMonth);
}

}  // namespace zelkor::bench
