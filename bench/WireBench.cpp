#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "Benchmarks.h"
#include "cards/CardImport.h"
#include "cards/ClsBLLFACards.h"
#include "closing/MonthEnd.h"
#include "DelayingProxy.h"
#include "depreciation/RunMonthDepr.h"
#include "ServerDatabase.h"
#include "Stopwatch.h"
#include "store/engine/Statement.h"

namespace zelkor::bench {
namespace {

constexpr std::chrono::microseconds kRoundTripOfDesks{1000};

struct Job {
  const char* name;
  std::function<void(RunContext&)> work;
};

void closeAndEnd(RunContext& run) {
  try {
    closeMonth(run, {[](int) {}, [](const auto&) {}});
  } catch (const EndProgram&) {
    return;
  }
  throw std::runtime_error("the month was not closed");
}

std::vector<Job> jobs() {
  return {{"monthly run",
           [](RunContext& run) {
             RunMonthDepr(run, {[] {}, [] {}});
           }},
          {"month-end", closeAndEnd}};
}

/// As many cards again, which get their numbers in the import.
Job importOf(long cards) {
  std::string csv =
      "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
      "累计折旧,录入日期,对应折旧科目\n";
  for (long i = 0; i < cards; ++i)
    csv += "车床,021,301,101,11,120,平均年限法(一),2019-6-15,100000,0.05,4740,2020-01-01,410502\n";
  return {"card import", [csv = std::move(csv), cards](RunContext& run) {
            std::ostringstream problems;
            if (importCards(run, csv, 1, problems).stored != cards) throw std::runtime_error(problems.str());
          }};
}

/// The file of the socket on which the server listens.
std::string socketOf(const std::string& server) {
  const std::size_t begin = server.find("host=") + 5;
  return server.substr(begin, server.find(' ', begin) - begin) + "/.s.PGSQL.5432";
}

void measure(const LargeAccountSet& original, const Job& job, std::chrono::microseconds roundTrip) {
  LargeAccountSet set(original);
  const DelayingProxy wire(socketOf(benchServer()), roundTrip / 2);
  if (roundTrip.count() > 0) set.reachBy(wire.host());
  Session session(set);
  const std::uint64_t before = session.run().dbZKData.waits();
  const double seconds = secondsOf([&] {
    job.work(session.run());
    session.run().engine.flush();
  });
  const auto waits = static_cast<double>(session.run().dbZKData.waits() - before);
  std::printf("%-16s %7ld cards at %4.1f ms %8.2f s, %7.0f waits, %7.4f a card\n", job.name, set.cards(),
              static_cast<double>(roundTrip.count()) / 1000, seconds, waits,
              waits / static_cast<double>(set.cards()));
}

using Seconds = std::vector<double>;

void printWaits(const char* what, Seconds seconds) {
  if (seconds.empty()) throw std::runtime_error("nothing was saved meanwhile");
  std::ranges::sort(seconds);
  const auto part = [&](double of) {
    return seconds[static_cast<std::size_t>(of * static_cast<double>(seconds.size() - 1))] * 1000;
  };
  std::printf("  %-12s %6zu times: half within %6.1f ms, 99 %% within %6.1f ms, longest %6.1f ms\n", what,
              seconds.size(), part(0.5), part(0.99), part(1));
}

/// Another desk, which saves one thing after the other until it is stopped.
void saveAtADesk(const LargeAccountSet& set, const std::stop_token& stop, Seconds& cards, Seconds& ledgers) {
  Session session(set);
  RunContext& run = session.run();
  ClsBLLFACards store(run);
  store.setZkDataPath(set.dataFile());
  std::mt19937 random(7);
  std::vector<std::string> numbers;
  for (Recordset rows = run.dbZKData.OpenRecordset("select sCardNum from fa_DeprTransactions"); !rows.Eof();
       rows.MoveNext())
    numbers.push_back(rows.Text("sCardNum"));
  for (int number = 900000; !stop.stop_requested(); ++number) {
    CardValues card = sampleCard(std::to_string(number));
    cards.push_back(secondsOf([&] {
      if (!store.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary))
        throw std::runtime_error("a card was not saved");
      run.engine.flush();
    }));
    const std::string& other = numbers[random() % numbers.size()];
    ledgers.push_back(secondsOf([&] {
      run.dbZKData.Execute(
          sql("update fa_DeprTransactions set dblInputValue=", number, " where sCardNum='", other, "'"));
      run.engine.flush();
    }));
  }
}

void measureDesk(const LargeAccountSet& original, const Job& job) {
  LargeAccountSet set(original);
  const DelayingProxy wire(socketOf(benchServer()), kRoundTripOfDesks / 2);
  set.reachBy(wire.host());
  Session session(set);
  Seconds cards;
  Seconds ledgers;
  double seconds = 0;
  {
    std::jthread desk([&](const std::stop_token& stop) { saveAtADesk(set, stop, cards, ledgers); });
    seconds = secondsOf([&] {
      job.work(session.run());
      session.run().engine.flush();
    });
  }
  std::printf("beside a %s of %ld cards at 1 ms, %.2f s:\n", job.name, set.cards(), seconds);
  printWaits("card saved", std::move(cards));
  printWaits("ledger row", std::move(ledgers));
}

}  // namespace

void benchDesk(const LargeAccountSet& set) {
  measureDesk(set, {"pause", [](RunContext&) { std::this_thread::sleep_for(std::chrono::seconds(5)); }});
  for (const Job& job : jobs()) measureDesk(set, job);
}

void benchWire(const LargeAccountSet& set) {
  std::vector<Job> all = jobs();
  all.push_back(importOf(set.cards()));
  for (const Job& job : all)
    for (const int roundTrip : {0, 1000, 5000, 20000})
      measure(set, job, std::chrono::microseconds(roundTrip));
}

}  // namespace zelkor::bench
