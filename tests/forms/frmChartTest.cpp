#include "home/frmChart.h"

namespace zelkor::test {
namespace {

TEST(frmChartTest, WhatASpreadsheetReadsHasItsLabelsWhole) {
  frmChart chart;
  chart.setTitle("净值");
  chart.show(frmChart::Kind::Bars, {{"生产部,一", 1.5}, {"销售部", {}}});
  EXPECT_EQ(chart.csv().toStdString(), "\xEF\xBB\xBF净值,金额\n\"生产部,一\",1.50\n");
}

/// The only month of many that has an amount yet is a point, however few labels there is room for.
TEST(frmChartTest, OneMonthIsSeen) {
  frmChart chart;
  chart.resize(220, 140);
  const auto picture = [&](std::optional<double> amount) {
    std::vector<frmChart::Point> points(60, {"2020.01", {}});
    points[5].amount = 100;
    points[30].amount = amount;
    chart.show(frmChart::Kind::Line, points);
    return chart.grab().toImage();
  };
  const auto drawn = [](const QImage& image) {
    long pixels = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) pixels += image.pixel(x, y) == 0xff6f9bd1 ? 1 : 0;
    return pixels;
  };
  EXPECT_GT(drawn(picture(80)), 0);
  EXPECT_GT(drawn(picture({})), 4);
}

}  // namespace
}  // namespace zelkor::test
