#include <gmock/gmock.h>

#include "support/Widgets.h"
#include "vouchers/FrmSetPZType.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;

class FrmSetPZTypeTest : public FormTest {
 protected:
  /// Takes a set and gives the signs that the archive has then.
  std::string signsAfter(const char* option, const char* button = "cmdOK") {
    ClsBLLPZType types{engine};
    types.setZkDataPath(context.gstrZtFile);
    const auto& form = host.show<FrmSetPZType>(types);
    click(form, option);
    click(form, button);
    EXPECT_FALSE(form.isVisible());
    std::string signs;
    for (const std::string& sign : rows("select csign from dsign order by I_ID")) signs += sign;
    return signs;
  }
};

TEST_F(FrmSetPZTypeTest, addsToWhatIsThere) {
  execute("delete from dsign");
  EXPECT_EQ(signsAfter("OptType1", "cmdCancel"), "");
  EXPECT_EQ(signsAfter("OptType1"), "收付转");
  EXPECT_EQ(signsAfter("OptType2"), "收付转现银转");
  EXPECT_EQ(signsAfter("OptType3"), "收付转现银转") << "a set without rows";
  EXPECT_EQ(signsAfter("OptType4"), "收付转现银转");
  EXPECT_EQ(signsAfter("OptType0"), "收付转现银转记");
  EXPECT_THAT(rows("select csign,isignseq,ctext,itype from dsign where csign='付' or csign='转'"),
              ElementsAre("付|2|付款凭证|0", "转|3|转账凭证|0", "转|3|转账凭证|0"));
}

}  // namespace
}  // namespace zelkor::test
