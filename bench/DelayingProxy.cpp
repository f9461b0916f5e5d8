#include "DelayingProxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <deque>
#include <list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace zelkor::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kSocketName = ".s.PGSQL.5432";
constexpr std::chrono::milliseconds kBetweenLooks{50};

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}
  Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Socket& operator=(Socket&&) = delete;
  ~Socket() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

sockaddr_un addressOf(const std::string& file) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (file.size() >= sizeof address.sun_path) throw std::runtime_error("too long a path: " + file);
  std::memcpy(address.sun_path, file.c_str(), file.size() + 1);
  return address;
}

int opened(const std::string& file, int (*use)(int, const sockaddr*, socklen_t)) {
  Socket socket(::socket(AF_UNIX, SOCK_STREAM, 0));
  const sockaddr_un address = addressOf(file);
  if (use(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("cannot open " + file);
  return ::dup(socket.descriptor());
}

int listening(const std::string& file) {
  const int descriptor = opened(file, ::bind);
  ::listen(descriptor, 10);
  return descriptor;
}

/// One direction of a connection.
class Lane {
 public:
  Lane(int from, int to, Clock::duration delay) : from_(from), to_(to), delay_(delay) {}

  int from() const { return from_; }
  /// Takes what has come; false at its end.
  bool take() {
    std::array<char, 65536> buffer;
    const ssize_t length = ::read(from_, buffer.data(), buffer.size());
    if (length <= 0) return false;
    underWay_.push_back(
        {Clock::now() + delay_, std::string(buffer.data(), static_cast<std::size_t>(length))});
    return true;
  }
  void deliver(Clock::time_point now) {
    for (; !underWay_.empty() && underWay_.front().due <= now; underWay_.pop_front()) {
      std::string_view rest = underWay_.front().bytes;
      while (!rest.empty()) {
        const ssize_t length = ::send(to_, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (length <= 0) return;
        rest.remove_prefix(static_cast<std::size_t>(length));
      }
    }
  }
  std::optional<Clock::time_point> next() const {
    if (underWay_.empty()) return std::nullopt;
    return underWay_.front().due;
  }

 private:
  struct Piece {
    Clock::time_point due;
    std::string bytes;
  };
  int from_;
  int to_;
  Clock::duration delay_;
  std::deque<Piece> underWay_;
};

struct Wire {
  Wire(int client, int server, Clock::duration delay)
      : near(client), far(server), lanes{Lane(client, server, delay), Lane(server, client, delay)} {}
  Socket near;
  Socket far;
  std::array<Lane, 2> lanes;
};

timespec until(const std::list<Wire>& wires) {
  Clock::duration wait = kBetweenLooks;
  for (const Wire& wire : wires)
    for (const Lane& lane : wire.lanes)
      if (const auto due = lane.next())
        wait = std::min(wait, std::max(*due - Clock::now(), Clock::duration{0}));
  return {0, std::chrono::duration_cast<std::chrono::nanoseconds>(wait).count()};
}

}  // namespace

DelayingProxy::DelayingProxy(std::string socket, Delay each)
    : socket_(std::move(socket)),
      delay_(each),
      listening_(listening((directory_.path() / kSocketName).string())),
      thread_([this](const std::stop_token& stop) { serve(stop); }) {}

DelayingProxy::~DelayingProxy() {
  thread_.request_stop();
  thread_.join();
  ::close(listening_);
}

void DelayingProxy::serve(const std::stop_token& stop) const {
  std::list<Wire> wires;
  while (!stop.stop_requested()) {
    std::vector<pollfd> ready{{listening_, POLLIN, 0}};
    for (const Wire& wire : wires)
      for (const Lane& lane : wire.lanes) ready.push_back({lane.from(), POLLIN, 0});
    const timespec wait = until(wires);
    ::ppoll(ready.data(), ready.size(), &wait, nullptr);
    auto polled = ready.begin() + 1;
    for (auto wire = wires.begin(); wire != wires.end();) {
      bool open = true;
      for (Lane& lane : wire->lanes) {
        if ((polled++)->revents != 0) open = lane.take() && open;
        lane.deliver(Clock::now());
      }
      wire = open ? std::next(wire) : wires.erase(wire);
    }
    if (ready.front().revents == 0) continue;
    wires.emplace_back(::accept(listening_, nullptr, nullptr), opened(socket_, ::connect), delay_);
  }
}

}  // namespace zelkor::bench
