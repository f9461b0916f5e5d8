// The card list at many cards: how soon the first are painted, when all are there, what a page costs.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <QApplication>
#include <string>

#include "cards/FrmManageCards.h"
#include "LargeAccountSet.h"
#include "ScreenBenchmarks.h"
#include "Sqlite.h"
#include "Stopwatch.h"
#include "ui/FlexGrid.h"
#include "ui/FormHost.h"
#include "ui/Theme.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

/// The same rows and columns in the same order by the bare engine.
double readBare(const LargeAccountSet& set) {
  return secondsOf([&set] {
    const BareFile file(set.dataFile());
    BareStatement rows(
        file,
        "SELECT rowid, sCardNum, dStartdate, lLife/12.0, dblValue, sAssetNum, dblBVRate, sOperator "
        "FROM fa_Cards ORDER BY sCardNum, CAST(sCardID AS INTEGER) DESC");
    std::size_t bytes = 0;
    while (rows.step()) {
      for (const int column : {1, 2, 5, 7}) bytes += rows.text(column).size();
      for (const int column : {3, 4, 6}) bytes += rows.number(column) > 0 ? 1 : 0;
    }
    if (bytes == 0) throw std::runtime_error("no rows");
  });
}

struct Opening {
  double firstRows;    // seconds until the first cards are painted
  double complete;     // seconds until all are there
  double longestTurn;  // seconds for which the window did not answer meanwhile
};

void waitForAll(const FrmManageCards& form, double& longestTurn) {
  while (!form.windowTitle().contains("张)")) {
    longestTurn = std::max(longestTurn, secondsOf([] { QApplication::processEvents(); }));
  }
}

Opening openList(Session& session, FrmManageCards*& form, FormHost& host) {
  Opening opening{};
  opening.complete = secondsOf([&] {
    opening.firstRows = secondsOf([&] {
      form = &host.show<FrmManageCards>(session.run().gstrZtFile);
      form->grab();
    });
    waitForAll(*form, opening.longestTurn);
  });
  return opening;
}

void benchCardList(const LargeAccountSet& set) {
  std::vector<double> first;
  std::vector<double> complete;
  std::vector<double> turns;
  std::vector<double> floors;
  std::vector<double> pages;
  double worst = 0;
  double memory = 0;
  for (int round = 0; round < kRounds; ++round) {
    floors.push_back(readBare(set));
    Session session(set);
    FormHost host(session.run(), [](int) {});
    const double before = residentMegabytes();
    FrmManageCards* form = nullptr;
    const Opening opening = openList(session, form, host);
    memory = std::max(memory, residentMegabytes() - before);
    first.push_back(opening.firstRows);
    complete.push_back(opening.complete);
    turns.push_back(opening.longestTurn);
    worst = std::max(worst, worstPage(*form->findChild<FlexGrid*>("mshFA"), pages));
  }
  std::printf(
      "card list         %7ld cards  first rows %.0f ms (worst %.0f)  all %.0f ms = %.2f x floor %.0f ms\n",
      set.cards(), best(first) * 1e3, *std::max_element(first.begin(), first.end()) * 1e3,
      best(complete) * 1e3, best(complete) / best(floors), best(floors) * 1e3);
  std::printf("                  longest turn %.1f ms  page %.1f ms (worst %.1f)  memory %.0f MB\n",
              best(turns) * 1e3, best(pages) * 1e3, worst * 1e3, memory);
}

}  // namespace
}  // namespace zelkor::bench

/// zelkor_screen_bench [cards]
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  zelkor::applyTheme(application);
  try {
    const zelkor::bench::LargeAccountSet set(argc > 1 ? std::atol(argv[1]) : 100000);
    zelkor::bench::benchCardList(set);
    zelkor::bench::benchReportView(set);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
