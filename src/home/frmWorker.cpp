#include "home/frmWorker.h"

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace zelkor {
namespace {

/// How many threads of workers there are in the process.
std::atomic<int>& threads() {
  static std::atomic<int> count = 0;
  return count;
}

}  // namespace

frmWorker::frmWorker(std::chrono::milliseconds patience) : patience_(patience) {
  shared_->receiver = &receiver_;
  ++threads();
  thread_ = std::thread([shared = shared_] { work(shared); });
}

frmWorker::~frmWorker() {
  bool ended = false;
  {
    std::unique_lock lock(shared_->mutex);
    shared_->ending = true;
    shared_->receiver = nullptr;
    shared_->jobs.clear();
    shared_->changed.notify_all();
    ended = shared_->changed.wait_for(lock, patience_, [this] { return shared_->ended; });
  }
  if (ended) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

void frmWorker::start(Job job) {
  const std::lock_guard lock(shared_->mutex);
  shared_->jobs.push_back(std::move(job));
  shared_->changed.notify_all();
}

bool frmWorker::isBusy() const {
  const std::lock_guard lock(shared_->mutex);
  return shared_->working || !shared_->jobs.empty();
}

void frmWorker::deliver(Shared& shared, Result result) {
  const std::lock_guard lock(shared.mutex);
  shared.working = false;
  if (shared.receiver != nullptr && result)
    QMetaObject::invokeMethod(shared.receiver, std::move(result), Qt::QueuedConnection);
}

void frmWorker::work(const std::shared_ptr<Shared>& shared) {
  while (true) {
    Job job;
    {
      std::unique_lock lock(shared->mutex);
      shared->changed.wait(lock, [&] { return shared->ending || !shared->jobs.empty(); });
      if (shared->ending) break;
      job = std::move(shared->jobs.front());
      shared->jobs.pop_front();
      shared->working = true;
    }
    deliver(*shared, job());
  }
  --threads();
  const std::lock_guard lock(shared->mutex);
  shared->ended = true;
  shared->changed.notify_all();
}

void frmWorker::endProcess(int status) {
  if (threads() == 0) std::exit(status);
  std::cout.flush();
  std::cerr.flush();
  std::_Exit(status);
}

}  // namespace zelkor
