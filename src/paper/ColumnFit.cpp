#include "paper/ColumnFit.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zelkor {
namespace {

constexpr double kSizeStep = 0.5;
constexpr double kLeadersShare = 0.35;  // of the page's width, that leading columns may take on every page
constexpr double kWidestShare = 0.45;   // that one of several columns may take
constexpr double kWidestStretch = 2.2;  // of a column, so that the table is as wide as its headings

/// How far a column is from its least width to that of its whole texts.
double widthAt(const ColumnNeed& column, double ease) {
  return column.least + std::max(0.0, column.whole - column.least) * ease;
}

double sumAt(std::span<const ColumnNeed> columns, double ease) {
  return std::accumulate(columns.begin(), columns.end(), 0.0, [ease](double sum, const ColumnNeed& column) {
    return sum + widthAt(column, ease);
  });
}

double sumOf(const std::vector<double>& widths, std::span<const std::size_t> places) {
  double sum = 0;
  for (const std::size_t place : places) sum += widths[place];
  return sum;
}

/// What is left of the page's width goes to columns that may be wider, then to all.
void widen(std::span<const ColumnNeed> columns, std::span<const std::size_t> places, double room,
           std::vector<double>& widths) {
  double wanted = 0;
  const auto missing = [&](std::size_t place) { return std::max(0.0, columns[place].told - widths[place]); };
  for (const std::size_t place : places) wanted += missing(place);
  if (room <= 0) return;
  const double share = wanted > room ? room / wanted : 1;
  for (const std::size_t place : places) widths[place] += missing(place) * share;
  const double sum = sumOf(widths, places);
  if (sum <= 0) return;
  const double stretch = std::min(kWidestStretch, 1 + (room - wanted * share) / sum);
  for (const std::size_t place : places) widths[place] *= stretch;
}

ColumnFit onOnePage(std::span<const ColumnNeed> columns, double pageWidth, double size, double leastEase) {
  const double least = sumAt(columns, 0) * size;
  const double whole = sumAt(columns, 1) * size;
  const double ease = whole <= pageWidth ? 1 : std::max(leastEase, (pageWidth - least) / (whole - least));
  ColumnFit fit{.size = size, .widths = {}, .bands = {}};
  fit.bands.emplace_back();
  for (const ColumnNeed& column : columns) {
    fit.bands.front().push_back(fit.widths.size());
    fit.widths.push_back(widthAt(column, ease) * size);
  }
  widen(columns, fit.bands.front(), pageWidth - sumOf(fit.widths, fit.bands.front()), fit.widths);
  return fit;
}

/// Lays columns side by side until the page is full, unit by unit.
class BandFiller {
 public:
  BandFiller(std::span<const ColumnNeed> columns, double pageWidth, double size, double ease)
      : columns_(columns), pageWidth_(pageWidth) {
    fit_.size = size;
    for (const ColumnNeed& column : columns) {
      fit_.widths.push_back(std::min(widthAt(column, ease) * size, kWidestShare * pageWidth));
    }
    takeLeaders();
  }

  ColumnFit fill() {
    beginBand();
    for (std::size_t first = leaders_.size(); first < columns_.size();) {
      std::size_t end = first + 1;
      while (end < columns_.size() && columns_[end].unit == columns_[first].unit) ++end;
      addUnit(first, end);
      first = end;
    }
    for (const auto& band : fit_.bands) {
      widen(columns_, std::span(band).subspan(leaders_.size()), pageWidth_ - sumOf(fit_.widths, band),
            fit_.widths);
    }
    return std::move(fit_);
  }

 private:
  void takeLeaders() {
    double used = 0;
    for (std::size_t place = 0; place < columns_.size() && columns_[place].leads; ++place) {
      used += fit_.widths[place];
      if (place > 0 && used > kLeadersShare * pageWidth_) return;
      leaders_.push_back(place);
    }
  }
  void beginBand() {
    fit_.bands.push_back(leaders_);
    used_ = sumOf(fit_.widths, leaders_);
  }
  bool isEmpty() const { return fit_.bands.back().size() == leaders_.size(); }
  void addUnit(std::size_t first, std::size_t end) {
    const double width = std::accumulate(fit_.widths.begin() + static_cast<std::ptrdiff_t>(first),
                                         fit_.widths.begin() + static_cast<std::ptrdiff_t>(end), 0.0);
    const bool fitsAlone = width + sumOf(fit_.widths, leaders_) <= pageWidth_;
    if (fitsAlone && used_ + width > pageWidth_) beginBand();
    for (std::size_t place = first; place < end; ++place) {
      if (used_ + fit_.widths[place] > pageWidth_ && !isEmpty()) beginBand();
      fit_.bands.back().push_back(place);
      used_ += fit_.widths[place];
    }
  }

  std::span<const ColumnNeed> columns_;
  double pageWidth_;
  ColumnFit fit_;
  std::vector<std::size_t> leaders_;
  double used_ = 0;
};

// Somewhat smaller letters are better than broken texts, broken texts better than tiny letters.
struct Try {
  double ease;
  double smallest;
};

/// The largest letters that need no more bands than the smallest do.
ColumnFit inBands(std::span<const ColumnNeed> columns, double pageWidth) {
  constexpr Try kTries[] = {{1, 8}, {0.5, kSmallestSize}};
  ColumnFit smallest = BandFiller(columns, pageWidth, kSmallestSize, 0.5).fill();
  for (const Try& one : kTries) {
    for (double size = kUsualSize; size >= one.smallest; size -= kSizeStep) {
      ColumnFit larger = BandFiller(columns, pageWidth, size, one.ease).fill();
      if (larger.bands.size() == smallest.bands.size()) return larger;
    }
  }
  return smallest;
}

}  // namespace

ColumnFit fitColumns(std::span<const ColumnNeed> columns, double pageWidth) {
  constexpr Try kTries[] = {{1, 8}, {0.5, 7.5}, {0, kSmallestSize}};
  for (const Try& one : kTries) {
    for (double size = kUsualSize; size >= one.smallest; size -= kSizeStep) {
      if (sumAt(columns, one.ease) * size <= pageWidth) return onOnePage(columns, pageWidth, size, one.ease);
    }
  }
  return inBands(columns, pageWidth);
}

}  // namespace zelkor
