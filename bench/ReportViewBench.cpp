#include <algorithm>
#include <cstdio>
#include <QApplication>

#include "LargeAccountSet.h"
#include "reports/FrmBBXS.h"
#include "reports/ReportConditions.h"
#include "reports/ReportRoutines.h"
#include "ScreenBenchmarks.h"
#include "Stopwatch.h"
#include "ui/FormHost.h"

namespace zelkor::bench {
namespace {

constexpr int kRounds = 5;

/// The widest report of lines: a line for each card, equal neighbours shown as one in four columns.
ReportView ledgerOf(Session& session) {
  ReportView view;
  BuildDeptTypeLedger(session.run(), ReportConditions(2020), view);
  return view;
}

}  // namespace

void benchReportView(const LargeAccountSet& set) {
  std::vector<double> openings;
  std::vector<double> pages;
  double worst = 0;
  double memory = 0;
  std::size_t lines = 0;
  for (int round = 0; round < kRounds; ++round) {
    Session session(set);
    FormHost host(session.run(), [](int) {});
    ReportView view = ledgerOf(session);
    lines = view.grid.rows();
    const double before = residentMegabytes();
    FrmBBXS* form = nullptr;
    openings.push_back(secondsOf([&] {
      form = &host.show<FrmBBXS>(std::move(view));
      form->grab();
    }));
    memory = std::max(memory, residentMegabytes() - before);
    worst = std::max(worst, worstPage(*form->findChild<FlexGrid*>("MSFlexGrid1"), pages));
  }
  std::printf("report view       %7zu lines  first rows %.0f ms (worst %.0f)  page %.1f ms (worst %.1f)",
              lines, best(openings) * 1e3, *std::max_element(openings.begin(), openings.end()) * 1e3,
              best(pages) * 1e3, worst * 1e3);
  std::printf("  memory %.0f MB\n", memory);
}

}  // namespace zelkor::bench
