#include "ScreenBenchmarks.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <QApplication>
#include <QScrollBar>

#include "Stopwatch.h"
#include "ui/FlexGrid.h"

namespace zelkor::bench {

double residentMegabytes() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0;
  statm >> pages >> pages;
  return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

double worstPage(FlexGrid& grid, std::vector<double>& pages) {
  constexpr int kPages = 200;
  QScrollBar& bar = *grid.verticalScrollBar();
  double worst = 0;
  for (int page = 0; page < kPages; ++page) {
    pages.push_back(secondsOf([&] {
      bar.setValue(static_cast<int>(static_cast<long>(bar.maximum()) * page / kPages) + page % 7);
      grid.viewport()->grab();
      QApplication::processEvents();
    }));
    worst = std::max(worst, pages.back());
  }
  return worst;
}

}  // namespace zelkor::bench
