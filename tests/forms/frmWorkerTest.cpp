#include <unistd.h>

#include <cstdlib>
#include <future>

#include "home/frmWorker.h"

namespace zelkor::test {
namespace {

constexpr int kTakenDown = 9;

/// Ends the process with a job that may be left alone; libraries are taken down in it where that is told by
/// the status.
[[noreturn]] void endBeside(bool left) {
  std::atexit([] { std::_Exit(kTakenDown); });
  std::promise<void> begun;
  {
    frmWorker worker{std::chrono::milliseconds(left ? 1 : 20'000)};
    worker.start([&]() -> frmWorker::Result {
      begun.set_value();
      while (left) ::pause();
      return {};
    });
    begun.get_future().wait();
  }
  frmWorker::endProcess(3);
}

TEST(frmWorkerTest, NothingIsTakenDownBeneathAJobThatWasLeftAlone) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(endBeside(true), testing::ExitedWithCode(3), "");
  EXPECT_EXIT(endBeside(false), testing::ExitedWithCode(kTakenDown), "");
}

}  // namespace
}  // namespace zelkor::test
