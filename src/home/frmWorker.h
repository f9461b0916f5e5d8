#pragma once

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

  frmWorker();
  frmWorker(const frmWorker&) = delete;
  frmWorker& operator=(const frmWorker&) = delete;
  /// What is still under way is waited for a moment and then left alone; its result is dropped.
  ~frmWorker();

  /// Lines the job up; it may raise nothing.
  void start(Job job);
  /// Whether jobs are under way or lined up.
  bool isBusy() const;

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

  QObject receiver_;
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
  std::thread thread_;
};

}  // namespace zelkor
