#include <QTextBlock>
#include <QTextBrowser>

#include "archives/FrmDepartment.h"
#include "support/Paths.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class GuideTest : public FormTest {};

/// The guide of this tree lies where a program in tests/forms looks for one.
TEST_F(GuideTest, F1OpensItAtTheScreensChapter) {
  auto& screen = host.show<FrmDepartment>();
  tells("没有安装使用手册。", Icon::Information);
  sendKey(screen, Qt::Key_F1);
  context.programFolder = (testFolder() / "forms").string();
  sendKey(screen, Qt::Key_F1);
  auto& guide = control<QTextBrowser>(screen, "Guide");
  EXPECT_TRUE(guide.isVisible());
  EXPECT_EQ(guide.textCursor().block().text(), "4 部门与部门对应科目");
  sendKey(guide, Qt::Key_Escape);
  EXPECT_FALSE(guide.isVisible());
}

}  // namespace
}  // namespace zelkor::test
