// The card list at many cards: how soon the first are painted, when all are there, what a page and a key of a
// search cost.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
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

/// Seconds of each key and of the first one, which reads what is searched.
struct Searching {
  double firstKey = 0;
  std::vector<double> keys;
  std::vector<double> typedAhead;  // in the list itself
  std::vector<double> sorts;
};

double secondsOfPainted(FlexGrid& grid, const std::function<void()>& action) {
  return secondsOf([&] {
    action();
    grid.viewport()->grab();
    QApplication::processEvents();
  });
}

/// A number, a department, and both, each typed key by key and taken back; what is in sight is painted.
Searching searchList(FrmManageCards& form) {
  Searching searching;
  FlexGrid& grid = *form.findChild<FlexGrid*>("mshFA");
  QLineEdit& field = *form.findChild<QLineEdit*>("txtFind");
  field.parentWidget()->show();
  searching.firstKey = secondsOfPainted(grid, [&] { field.setText("0"); });
  for (const QString text : {"004321", "车间", "车间 0432", "no such card"}) {
    for (qsizetype keys = 1; keys <= 2 * text.size(); ++keys) {
      const qsizetype left = keys <= text.size() ? keys : 2 * text.size() - keys;
      searching.keys.push_back(secondsOfPainted(grid, [&] { field.setText(text.left(left)); }));
    }
  }
  for (const QString key : {"0", "0", "4", "3", "2"}) {
    searching.typedAhead.push_back(secondsOfPainted(grid, [&] { grid.keyboardSearch(key); }));
  }
  for (const int column : {1, 1, 2, 4, 5, 5, 5}) {
    searching.sorts.push_back(
        secondsOfPainted(grid, [&] { emit grid.horizontalHeader()->sectionClicked(column); }));
  }
  return searching;
}

double worst(const std::vector<double>& seconds) {
  return *std::max_element(seconds.begin(), seconds.end());
}

double middle(std::vector<double> seconds) {
  const auto half = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::nth_element(seconds.begin(), half, seconds.end());
  return *half;
}

void print(const Searching& searching) {
  std::printf(
      "                  search: a key %.1f ms (worst %.1f), the first %.0f ms; typed in the list %.1f ms; "
      "sorting %.0f ms (worst %.0f)\n",
      middle(searching.keys) * 1e3, worst(searching.keys) * 1e3, searching.firstKey * 1e3,
      worst(searching.typedAhead) * 1e3, middle(searching.sorts) * 1e3, worst(searching.sorts) * 1e3);
}

void benchCardList(const LargeAccountSet& set) {
  std::vector<double> first;
  std::vector<double> complete;
  std::vector<double> turns;
  std::vector<double> floors;
  std::vector<double> pages;
  double slowest = 0;
  double memory = 0;
  Searching searching;
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
    slowest = std::max(slowest, worstPage(*form->findChild<FlexGrid*>("mshFA"), pages));
    searching = searchList(*form);
  }
  std::printf(
      "card list         %7ld cards  first rows %.0f ms (worst %.0f)  all %.0f ms = %.2f x floor %.0f ms\n",
      set.cards(), best(first) * 1e3, *std::max_element(first.begin(), first.end()) * 1e3,
      best(complete) * 1e3, best(complete) / best(floors), best(floors) * 1e3);
  std::printf("                  longest turn %.1f ms  page %.1f ms (worst %.1f)  memory %.0f MB\n",
              best(turns) * 1e3, best(pages) * 1e3, slowest * 1e3, memory);
  print(searching);
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
    zelkor::bench::benchHome(set);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
