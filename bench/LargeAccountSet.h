#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "cards/CardValues.h"
#include "ScratchDirectory.h"
#include "ServerDatabase.h"
#include "startup/RunContext.h"

namespace zelkor::bench {

/// A sample account set in a directory of its own, opened in 2020-01, with any number of cards that went into
/// service in 2019. One card is entered; the others are copies of its rows under numbers of their own, spread
/// over the departments and categories.
class LargeAccountSet {
 public:
  explicit LargeAccountSet(long cards);
  /// The rows of a set in files, on a server in a database of their own.
  LargeAccountSet(const LargeAccountSet& files, const std::string& server);
  /// A copy of the files, or of the database, as they are now.
  LargeAccountSet(const LargeAccountSet& other);
  LargeAccountSet& operator=(const LargeAccountSet&) = delete;

  long cards() const { return cards_; }
  std::string dataFile() const { return (directory_ / "ZkData.Mdb").string(); }
  std::string systemFile() const { return (directory_ / "ZkSystem.Mdb").string(); }
  bool onServer() const { return database_.has_value(); }
  /// From now on the server is reached by that host.
  void reachBy(const std::string& host) const { database_->writeFiles(directory_.path(), " host=" + host); }
  /// How the database of a set on a server is reached.
  std::string conninfo() const { return database_->conninfo(); }

 private:
  long cards_;
  ScratchDirectory directory_;
  std::optional<ServerDatabase> database_;
};

/// Answers Yes (or OK) to everything and shows nothing.
class SilentDialogs final : public Dialogs {
 protected:
  Answer ask(const MessageBox& box) override {
    return box.buttons == Buttons::Ok || box.buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  }
  void present(const std::string&, const TextGrid&) override {}
};

/// A run on the set, in January 2020.
class Session {
 public:
  explicit Session(const LargeAccountSet& set);
  RunContext& run() { return run_; }

 private:
  SilentDialogs dialogs_;
  SystemClock clock_;
  DbEngine engine_;
  RunContext run_{engine_, dialogs_, clock_};
};

/// A card with plausible fields under that number.
CardValues sampleCard(const std::string& cardNum);

}  // namespace zelkor::bench
