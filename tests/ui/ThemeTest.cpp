#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

namespace zelkor::test {
namespace {

/// Every role is ours, and what a desktop sets later on does not stay.
TEST(ThemeTest, NothingOfADesktopIsLeft) {
  EXPECT_FALSE(QApplication::desktopSettingsAware());
  const QPalette ours = QApplication::palette();
  for (int role = 0; role < QPalette::NColorRoles; ++role)
    EXPECT_TRUE(role == QPalette::NoRole || ours.isBrushSet(QPalette::Active, QPalette::ColorRole(role)))
        << role;
  QApplication::setPalette(QPalette(Qt::black));
  QApplication::setFont(QFont("DejaVu Serif", 16));
  EXPECT_EQ(QApplication::palette(), ours);
  EXPECT_EQ(QApplication::font().family(), "Noto Sans CJK SC");
}

}  // namespace
}  // namespace zelkor::test
