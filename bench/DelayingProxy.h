#pragma once

#include <chrono>
#include <string>
#include <thread>

#include "ScratchDirectory.h"

namespace zelkor::bench {

/// Stands between programs and a server on a local socket, as a wire does: what either side sends arrives
/// later by the delay, however much of it is under way.
class DelayingProxy {
 public:
  using Delay = std::chrono::microseconds;

  /// `socket` is the file of the server's socket.
  DelayingProxy(std::string socket, Delay each);
  DelayingProxy(const DelayingProxy&) = delete;
  DelayingProxy& operator=(const DelayingProxy&) = delete;
  ~DelayingProxy();

  /// The folder that stands for the host.
  std::string host() const { return directory_.path().string(); }

 private:
  void serve(const std::stop_token& stop) const;

  std::string socket_;
  Delay delay_;
  ScratchDirectory directory_;
  int listening_;
  std::jthread thread_;
};

}  // namespace zelkor::bench
