#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <QObject>
#include <thread>

namespace zelkor {

/// A thread beside that of the windows, which does one job after the other. What a job gives is run by the
/// windows' thread.
class frmWorker {
 public:
  using Result = std::function<void()>;
  using Job = std::function<Result()>;

  static constexpr std::chrono::milliseconds kUntilEnd{2000};
  static constexpr std::chrono::milliseconds kBriefly{50};  // for who goes while other windows stay

  /// `patience` is how long its end waits for what is still under way.
  explicit frmWorker(std::chrono::milliseconds patience = kUntilEnd);
  frmWorker(const frmWorker&) = delete;
  frmWorker& operator=(const frmWorker&) = delete;
  /// What is then still under way is left alone, a server that does not answer; its result is dropped.
  ~frmWorker();

  /// Lines the job up; it may raise nothing.
  void start(Job job);
  /// Whether jobs are under way or lined up.
  bool isBusy() const;

  /// Ends the process. Where a job was left alone it may be anywhere, in a library's code too: nothing is
  /// taken down beneath it then, neither what is static nor what libraries do at the end.
  [[noreturn]] static void endProcess(int status);

 private:
  struct Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    bool working = false;
    bool ending = false;
    bool ended = false;
    QObject* receiver = nullptr;  // null once nobody takes results any more
  };
  static void work(const std::shared_ptr<Shared>& shared);
  static void deliver(Shared& shared, Result result);

  std::chrono::milliseconds patience_;
  QObject receiver_;
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
  std::thread thread_;
};

}  // namespace zelkor
