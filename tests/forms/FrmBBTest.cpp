#include <QListWidget>

#include "reports/FrmBB.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class FrmBBTest : public FormTest {
 protected:
  FrmBB& open() { return host.show<FrmBB>(); }
  static QListWidget& list(const QWidget& form) { return control<QListWidget>(form, "ListView1"); }
  static QTreeWidget& tree(const QWidget& form) { return control<QTreeWidget>(form, "TreeView1"); }
  static Lines listed(const QWidget& form) {
    Lines texts;
    for (int i = 0; i < list(form).count(); ++i) texts.push_back(list(form).item(i)->text().toStdString());
    return texts;
  }
  static std::string marked(const QWidget& form) {
    const auto items = list(form).selectedItems();
    return items.isEmpty() ? "" : items.front()->text().toStdString();
  }
  static std::string selected(const QWidget& form) { return selectedNode(form, "TreeView1"); }
  /// Caption of the conditions that an action opens; they are left by Esc.
  static std::string openedBy(const std::function<void()>& action) {
    std::string caption;
    inModalForm([&caption](QWidget& conditions) {
      caption = conditions.windowTitle().toStdString();
      sendKey(conditions, Qt::Key_Escape);
    });
    action();
    return caption;
  }
};

TEST_F(FrmBBTest, offersTwentyReportsInFiveFolders) {
  FrmBB& form = open();
  keepPicture(form, "FrmBB");
  const Lines nodes = nodesOf(form, "TreeView1");
  EXPECT_EQ(nodes.size(), 26u);
  Lines folders = nodes;
  std::erase_if(folders, [](const std::string& node) { return node.starts_with("    "); });
  EXPECT_EQ(folders, (Lines{"账簿", "  自定义账夹", "  分析表", "  统计表", "  账簿", "  折旧表"}));
  EXPECT_EQ(nodes[3] + nodes[25], "    部门构成分析表    固定资产折旧期间统计表");
  EXPECT_TRUE(tree(form).topLevelItem(0)->isExpanded());
  EXPECT_EQ(listed(form), Lines{});
}

TEST_F(FrmBBTest, listsTheFolderOfTheNodeAndMarksTheReport) {
  const FrmBB& form = open();
  const struct {
    const char* node;
    std::size_t reports;
    const char* first;
    const char* marked;
  } cases[] = {
      {"分析表", 4, "部门构成分析表", ""},
      {"逾龄资产统计表", 7, "(固定资产原值)一览表", "逾龄资产统计表"},
      {"自定义账夹", 0, "", ""},
      {"固定资产登记簿", 4, "(部门、类别)明细账", "固定资产登记簿"},
      {"账簿", 0, "", ""},  // the root
      {"折旧表", 5, "(部门)折旧计提汇总表", ""},
  };
  for (const auto& c : cases) {
    selectNode(form, "TreeView1", c.node);
    ASSERT_EQ(listed(form).size(), c.reports) << c.node;
    if (c.reports > 0) {
      EXPECT_EQ(listed(form).front(), c.first);
    }
    EXPECT_EQ(marked(form), c.marked);
    EXPECT_EQ(selected(form), c.node) << "the list's mark leaves the tree alone";
  }
}

TEST_F(FrmBBTest, followsTheListInTheTree) {
  const FrmBB& form = open();
  selectNode(form, "TreeView1", "折旧表");
  list(form).setCurrentRow(3);
  EXPECT_EQ(selected(form), "固定资产折旧计算明细表");
  EXPECT_EQ(listed(form).size(), 5u) << "the list stays";
  EXPECT_EQ(openedBy([&] { press(form, "打开"); }), "条件 - [固定资产折旧计算明细表]");
}

TEST_F(FrmBBTest, opensTheCurrentReportAgainAndAgain) {
  const FrmBB& form = open();
  selectNode(form, "TreeView1", "固定资产总账");
  auto& node = *tree(form).currentItem();
  auto& item = *list(form).item(3);
  const std::function<void()> ways[] = {
      [&] { press(form, "打开"); },
      [&] { emit tree(form).itemDoubleClicked(&node, 0); },
      [&] { emit list(form).itemDoubleClicked(&item); },
      [&] { sendKey(tree(form), Qt::Key_Return); },
      [&] { sendKey(list(form), Qt::Key_Enter); },
  };
  for (const auto& way : ways) EXPECT_EQ(openedBy(way), "条件 - [固定资产总账]");
}

TEST_F(FrmBBTest, opensNoFolder) {
  const FrmBB& form = open();
  press(form, "打开");
  for (const char* folder : {"自定义账夹", "统计表", "账簿"}) {
    selectNode(form, "TreeView1", folder);
    press(form, "打开");
    emit tree(form).itemDoubleClicked(tree(form).currentItem(), 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(endStatus(), -1) << "the run ends with its last form";
}

}  // namespace
}  // namespace zelkor::test
