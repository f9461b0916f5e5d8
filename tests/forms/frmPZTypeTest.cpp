#include "support/Widgets.h"
#include "vouchers/frmPZType.h"

namespace zelkor::test {
namespace {

class frmPZTypeTest : public FormTest {
 protected:
  frmPZType& open() { return host.show<frmPZType>(db()); }
};

TEST_F(frmPZTypeTest, givesTheTypeThatIsClicked) {
  execute("insert into dsign (csign,isignseq,ctext) values ('收',2,'收款凭证')");
  execute("insert into gl_accvouch (csign,dbill_date,ino_id) values ('收',#2020-5-3#,4)");
  frmPZType& form = open();
  auto& list = control<QListWidget>(form, "List1");
  ASSERT_EQ(list.count(), 2);
  list.setCurrentRow(1);
  emit list.itemClicked(list.item(1));
  EXPECT_FALSE(form.isVisible());
  ASSERT_TRUE(form.picked());
  EXPECT_EQ(form.picked()->sign, "收");
  EXPECT_EQ(form.picked()->isignseq, 2);
  EXPECT_EQ(form.picked()->nextNumber, 5);
}

TEST_F(frmPZTypeTest, takesEnterAndEsc) {
  frmPZType& form = open();
  sendKey(control<QListWidget>(form, "List1"), Qt::Key_Return);
  EXPECT_EQ(form.picked()->sign, "记");
  frmPZType& left = open();
  sendKey(left, Qt::Key_Escape);
  EXPECT_FALSE(left.isVisible());
  EXPECT_FALSE(left.picked());
  execute("delete from dsign");
  frmPZType& empty = open();
  sendKey(control<QListWidget>(empty, "List1"), Qt::Key_Return);
  EXPECT_TRUE(empty.isVisible());
}

}  // namespace
}  // namespace zelkor::test
