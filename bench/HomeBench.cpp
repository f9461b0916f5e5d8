// The workbench at many cards: when its window is painted, when it is painted with the steps, when figures
// and plots are there, and for how long the window did not answer meanwhile. Beside it the reading alone.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <QApplication>
#include <QLabel>

#include "home/FrmHome.h"
#include "ScreenBenchmarks.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

OpenedSet openedSet(const LargeAccountSet& set) {
  OpenedSet opened;
  opened.set.dataFile = set.dataFile();
  opened.set.systemFile = set.systemFile();
  opened.set.account = "001";
  opened.user = "bench";
  opened.date = *DateTime::fromParts(2020, 1, 31);
  return opened;
}

struct Showing {
  double painted = 0;
  double steps = 0;  // are painted
  double complete = 0;
  double longestTurn = 0;
};

bool hasSteps(const FrmHome& form) {
  return !form.findChild<QLabel*>("LblCounts0")->text().isEmpty();
}

bool isComplete(const FrmHome& form) {
  return !form.findChild<QLabel*>("LblFigure0")->text().isEmpty();
}

Showing showHome(const LargeAccountSet& set, AccountSetList& list) {
  Session session(set);
  FormHost host(session.run(), [](int) {});
  Showing showing;
  showing.complete = secondsOf([&] {
    FrmHome* form = nullptr;
    showing.painted = secondsOf([&] {
      form = &host.show<FrmHome>(list, openedSet(set), HomePrograms{"zelkor", "zelkorctl"});
      form->grab();
    });
    const auto turn = [&](const std::function<void()>& work) {
      showing.longestTurn = std::max(showing.longestTurn, secondsOf(work));
    };
    const auto waitFor = [&](bool (*holds)(const FrmHome&)) {
      while (!holds(*form)) turn([] { QApplication::processEvents(); });
      turn([&] { form->grab(); });
    };
    showing.steps = showing.painted + secondsOf([&] { waitFor(hasSteps); });
    waitFor(isComplete);
  });
  return showing;
}

}  // namespace

void benchHome(const LargeAccountSet& set) {
  const ScratchDirectory scratch;
  AccountSetList list(scratch / "account-sets.tsv");
  std::vector<double> painted;
  std::vector<double> steps;
  std::vector<double> complete;
  std::vector<double> turns;
  std::vector<double> readings;
  for (int round = 0; round < kRounds; ++round) {
    const Showing showing = showHome(set, list);
    painted.push_back(showing.painted);
    steps.push_back(showing.steps);
    complete.push_back(showing.complete);
    turns.push_back(showing.longestTurn);
    readings.push_back(secondsOf([&] { readBooks(openedSet(set).place()); }));
  }
  std::printf(
      "workbench %ld cards  window %.1f ms  steps %.1f ms (worst %.1f)  complete %.1f ms  longest turn %.1f "
      "ms  reading alone %.1f ms\n",
      set.cards(), best(painted) * 1e3, best(steps) * 1e3, *std::ranges::max_element(steps) * 1e3,
      best(complete) * 1e3, *std::ranges::max_element(turns) * 1e3, best(readings) * 1e3);
}

}  // namespace zelkor::bench
