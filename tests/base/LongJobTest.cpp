#include <gtest/gtest.h>

#include "base/LongJob.h"

namespace zelkor::test {
namespace {

/// Writes down what it is shown; boxes are not expected.
class WatchedDialogs final : public Dialogs {
 public:
  void showProgress(const Progress& progress) override {
    shown += progress.text + " " + std::to_string(progress.done) + "/" + std::to_string(progress.all) + ";";
  }
  void endProgress() override { shown += "end"; }

  std::string shown;

 protected:
  Answer ask(const MessageBox&) override { return Answer::Cancel; }
  void present(const std::string&, const TextGrid&) override {}
};

std::string shownOf(LongJob::Milliseconds pause) {
  WatchedDialogs dialogs;
  {
    LongJob job(dialogs, "折旧", 2, pause);
    job.step();
    job.step();
  }
  return dialogs.shown;
}

TEST(LongJobTest, showsItselfOnlyWhenItTakesLong) {
  EXPECT_EQ(shownOf(LongJob::Milliseconds{0}), "折旧 1/2;折旧 2/2;end");
  EXPECT_EQ(shownOf(std::chrono::hours{1}), "");
}

}  // namespace
}  // namespace zelkor::test
