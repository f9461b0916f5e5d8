#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <thread>

#include "store/accountset/DataFile.h"
#include "store/engine/postgresql/ServerFile.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"
#include "store/StoreFixture.h"

// A pooler that takes one statement at a time, and what is done about it.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

int unixSocket(const std::string& file, int (*use)(int, const sockaddr*, socklen_t)) {
  const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::memcpy(address.sun_path, file.c_str(), file.size() + 1);
  if (use(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("no socket " + file);
  return descriptor;
}

/// Before anybody polls: a socket that does not listen is ready at once, and gives no connection.
int listenAt(int descriptor, const sockaddr* address, socklen_t length) {
  constexpr int kMostWaiting = 5;
  return ::bind(descriptor, address, length) != 0 ? -1 : ::listen(descriptor, kMostWaiting);
}

/// The messages of a client, as they come: each but the first one has a letter, then its length.
class Messages {
 public:
  /// False at a second Execute without a Sync between them.
  bool take(std::string_view bytes) {
    pending_.append(bytes);
    for (;;) {
      const std::size_t head = begun_ ? 1 : 0;
      if (pending_.size() < head + 4) return true;
      std::uint32_t length = 0;
      for (std::size_t i = 0; i < 4; ++i)
        length = length << 8U | static_cast<unsigned char>(pending_[head + i]);
      if (pending_.size() < head + length) return true;
      const char kind = begun_ ? pending_.front() : ' ';
      if (kind == 'S' || kind == 'Q') executed_ = 0;
      if (kind == 'E' && ++executed_ > 1) return false;
      begun_ = true;
      pending_.erase(0, head + length);
    }
  }

 private:
  std::string pending_;
  bool begun_ = false;
  int executed_ = 0;
};

/// Stands before the test server, one connection after the other, and ends one that sends a statement before
/// the last one's Sync.
class NarrowPooler {
 public:
  NarrowPooler()
      : listening_(unixSocket((directory_ / ".s.PGSQL.5432").string(), listenAt)),
        thread_([this](const std::stop_token& stop) { serve(stop); }) {}
  NarrowPooler(const NarrowPooler&) = delete;
  NarrowPooler& operator=(const NarrowPooler&) = delete;
  ~NarrowPooler() {
    thread_.request_stop();
    thread_.join();
    ::close(listening_);
  }
  std::string host() const { return directory_.path().string(); }
  int ended() const { return ended_; }

 private:
  static bool ready(int descriptor) {
    pollfd one{descriptor, POLLIN, 0};
    return ::poll(&one, 1, 1) > 0;
  }
  static std::string serverSocket() {
    const std::string server = testServer();
    const std::size_t begin = server.find("host=") + 5;
    return server.substr(begin, server.find(' ', begin) - begin) + "/.s.PGSQL.5432";
  }
  void serve(const std::stop_token& stop) {
    while (!stop.stop_requested())
      if (ready(listening_)) carry(stop, ::accept(listening_, nullptr, nullptr));
  }
  void carry(const std::stop_token& stop, int client) {
    const int server = unixSocket(serverSocket(), ::connect);
    Messages messages;
    std::array<char, 65536> buffer;
    for (bool open = true; open && !stop.stop_requested();)
      for (const auto& [from, to] : {std::pair(client, server), {server, client}}) {
        if (!open || !ready(from)) continue;
        const ssize_t length = ::read(from, buffer.data(), buffer.size());
        open = length > 0;
        const std::string_view bytes(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
        if (open && from == client && !messages.take(bytes)) {
          ++ended_;
          open = false;
        }
        if (open) open = ::send(to, bytes.data(), bytes.size(), MSG_NOSIGNAL) == length;
      }
    ::close(client);
    ::close(server);
  }

  TempDir directory_;
  std::atomic<int> ended_ = 0;
  int listening_;
  std::jthread thread_;
};

class OneByOneTest : public StoreTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }
};

TEST_F(OneByOneTest, DoesTheSameWork) {
  NarrowPooler pooler;
  ServerFile file = ServerFile::read(path);
  file.conninfo += " host=" + pooler.host();
  const std::string narrowPath = (directory / "Narrow.Mdb").string();
  file.write(narrowPath);
  EXPECT_NE(openDataFile(narrowPath)->remark().find("一条一条地发送"), std::string::npos);
  EXPECT_EQ(openDataFile(path)->remark(), "");
  EXPECT_EQ(pooler.ended(), 1);

  DbEngine narrow;
  Database one = narrow.OpenDatabase(narrowPath);
  one.Execute("CREATE TABLE t (sNum TEXT(20), lN SHORT)");
  one.Execute("CREATE UNIQUE INDEX sNum ON t (sNum)");
  Lines sums;
  StatementGroup group(one);
  for (const char* num : {"1", "2", "3"}) {
    group.execute(sql("insert into t (sNum,lN) values ('", num, "',", num, ")"));
    group.open("select sum(lN) as a from t", [&](const Recordset& sum) { sums.push_back(sum.Text("a")); });
  }
  group.run();
  EXPECT_EQ(sums, (Lines{"1", "3", "6"}));
  narrow.workspace().BeginTrans();
  one.Execute("insert into t (sNum,lN) values ('4',4)");
  EXPECT_TRUE(refusalOf([&] { one.Execute("insert into t (sNum,lN) values ('4',5)"); }).starts_with("3022 "));
  one.Execute("select * into u from t");
  EXPECT_NE(refusalOf([&] { one.Execute("select * into u from t"); }), "(none)");
  one.Execute("delete from t where sNum='1'");
  narrow.workspace().CommitTrans();
  EXPECT_EQ(rows("select sNum from t order by sNum"), (Lines{"2", "3", "4"}));
  EXPECT_EQ(rows("select sNum from u order by sNum"), (Lines{"1", "2", "3", "4"}));

  // A long result that another statement interrupts.
  one.Execute(
      "insert into t (sNum,lN) select a.sNum & b.sNum & c.sNum & d.sNum & e.sNum & f.sNum,7 "
      "from u a,u b,u c,u d,u e,u f");
  long walked = 0;
  for (Recordset all = one.OpenRecordset("select sNum,lN from t where lN=7"); !all.Eof(); all.MoveNext())
    if (++walked == 1500) one.Execute("update t set lN=8 where sNum='2'");
  EXPECT_EQ(walked, 4096);
}

}  // namespace
}  // namespace zelkor::test
