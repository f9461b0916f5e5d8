#include "support/Widgets.h"
#include "vouchers/frmPZCode1.h"

namespace zelkor::test {
namespace {

using frmPZCode1Test = FormTest;

TEST_F(frmPZCode1Test, picksFromTheDatabaseThatItIsGiven) {
  context.pickedSubject = {"1502", "累计折旧", "1502 累计折旧"};
  frmPZCode1& form = host.show<frmPZCode1>();
  EXPECT_TRUE(nodesOf(form, "TvCode").empty());
  form.setZKDatabase(db());
  EXPECT_TRUE(form.ZKDatabase().isOpen());
  selectNode(form, "TvCode", "1501 固定资产");
  sendKey(control<QTreeWidget>(form, "TvCode"), Qt::Key_Return);
  EXPECT_EQ(form.AccountCode() + "," + form.AccountContent(), "1501,固定资产");
  EXPECT_EQ(context.pickedSubject.code, "1502") << "the answer of the other picker is left alone";
}

TEST_F(frmPZCode1Test, answersNothingAfterCancelling) {
  frmPZCode1 form(host);
  form.setZKDatabase(db());
  inModalForm([](QWidget& picker) {
    selectNode(picker, "TvCode", "1501 固定资产");
    click(picker, "cmdCancel");
  });
  host.showModal(form);
  EXPECT_EQ(form.AccountCode() + form.AccountContent(), "");
}

}  // namespace
}  // namespace zelkor::test
