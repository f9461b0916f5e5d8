#include <QPushButton>

#include "base/RuntimeError.h"
#include "support/Widgets.h"
#include "ui/Form.h"

namespace zelkor::test {
namespace {

using Routine = std::function<void(FormHost&)>;

/// Presses its second button in the course of the routine after the first one.
class NestingForm final : public Form {
 public:
  NestingForm(FormHost& host, Routine inside, Routine afterwards)
      : Form(host, "NestingForm", "", Unload::Plain) {
    on(Inner, &QPushButton::clicked, [&host, inside = std::move(inside)] { inside(host); });
    on(Outer, &QPushButton::clicked, [this, &host, afterwards = std::move(afterwards)] {
      Inner->click();
      afterwards(host);
    });
  }

 private:
  QPushButton* Inner = make<QPushButton>("Inner", "内");
  QPushButton* Outer = make<QPushButton>("Outer", "外");
};

/// Closes, and with it the program, as soon as it is shown.
class ShortLivedForm final : public Form {
 public:
  explicit ShortLivedForm(FormHost& host, Unload unload) : Form(host, "ShortLivedForm", "", unload) {}

 protected:
  void showEvent(QShowEvent* event) override {
    Form::showEvent(event);
    close();
  }
};

class FormHostTest : public FormTest {
 protected:
  std::string phone() { return row("select cDepPhone from department where cDepCode='1'"); }
};

constexpr const char* kChange = "update department set cDepPhone='1' where cDepCode='1'";

TEST_F(FormHostTest, stopsARoutineInWhoseCourseTheProgramHasEnded) {
  execute("update department set cDepPhone='0' where cDepCode='1'");
  Recordset department = db().OpenRecordset("select * from department where cDepCode='1'");
  const std::pair<const char*, Routine> attempts[] = {
      {"statement", [](FormHost& ended) { ended.run().dbZKData.Execute(kChange); }},
      {"query",
       [](FormHost& ended) {
         ADD_FAILURE() << ended.run().dbZKData.OpenRecordset("select * from code").Eof();
       }},
      {"edit",
       [&department](FormHost&) {
         department.Edit();
         department.Collect("cDepPhone", Value("2"));
         department.Update();
       }},
      {"another file", [](FormHost& ended) { ended.run().engine.OpenDatabase(ended.run().gstrZkSysFile); }},
      {"box", [](FormHost& ended) { ended.run().dialogs.MsgBox("still here"); }},
      {"form", [](FormHost& ended) {
         NestingForm modal(ended, {}, {});
         ended.showModal(modal);
       }}};
  for (const auto& [name, attempt] : attempts) {
    FormHost nested(context, [](int) {});
    const auto tried = [&attempt = attempt, name = name](FormHost& ended) {
      attempt(ended);
      ADD_FAILURE() << name << " let the routine go on";
    };
    NestingForm form(
        nested, [](FormHost&) { throw EndProgram{3}; }, tried);
    click(form, "Outer");
    EXPECT_EQ(nested.endStatus(), 3) << name;
    EXPECT_EQ(phone(), "0") << name;
  }
}

TEST_F(FormHostTest, reportsTheInnerFailureOnce) {
  dialogs.expectOk("实时错误 '11':\n除数为零", Icon::Critical);
  testing::internal::CaptureStderr();
  const NestingForm form(
      host, [](FormHost&) { throw RuntimeError(ErrorNumber::DivisionByZero); },
      [](FormHost& nested) { nested.run().dbZKData.Execute(kChange); });
  click(form, "Outer");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "实时错误 '11':\n除数为零\n");
  EXPECT_EQ(endStatus(), 1);
}

TEST_F(FormHostTest, writesOutWhatWasGatheredBeforeAPersonIsAsked) {
  inModalForm([this](QWidget& form) {
    DbEngine other;
    const Recordset seen = other.OpenDatabase(context.gstrZtFile)
                               .OpenRecordset("select cDepPhone from department where cDepCode='1'");
    EXPECT_EQ(seen.TextOrEmpty("cDepPhone"), "1");
    form.close();
  });
  host.dispatch([this] {
    execute(kChange);
    NestingForm form(host, {}, {});
    host.showModal(form);
  });
}

TEST_F(FormHostTest, doesNotWaitForAFormThatIsGoneAtOnce) {
  host.dispatch([this] {
    ShortLivedForm form(host, Unload::Plain);
    host.showModal(form);
    execute(kChange);
  });
  EXPECT_EQ(phone(), "1");
  host.dispatch([this] {
    ShortLivedForm form(host, Unload::EndsProgram);
    host.showModal(form);
    ADD_FAILURE() << "the program has ended";
  });
  EXPECT_EQ(endStatus(), 0);
}

}  // namespace
}  // namespace zelkor::test
