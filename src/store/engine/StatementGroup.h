#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "store/engine/Database.h"

namespace zelkor {

struct AheadStatement;

/// Statements whose answers are waited for together. They are carried out in their order, each sees what
/// those before it have written, and what they leave behind, a failure included, is what they leave when each
/// is waited for.
///
/// On a server they go out as a group that stands or falls as one: when one fails, or has to wait for
/// somebody's lock for more than a moment, all of them are taken back and carried out again one by one, up to
/// the failure. An engine that answers at once carries each out as it is added. So whoever adds them must not
/// count on either: the rows of a query are used when it is added, or when the group is run.
class StatementGroup {
 public:
  /// Of so many things the statements go out together: enough that a wait hardly counts, few enough that
  /// nobody waits long for what a group has locked.
  static constexpr std::size_t kThings = 200;

  explicit StatementGroup(Database& database);

  void execute(std::string_view sql);
  /// `use` is called with the rows, which are given up afterwards. It runs no statement that writes. It may
  /// add queries for what the rows have told; on a server they go out together after all that was added
  /// before.
  ///
  /// What it raises ends the group as a statement that fails does, and nothing stays of what was to be
  /// written behind it; where something was, it is called once more to raise again. A failure of a query that
  /// it asks by itself and passes over takes nothing back that the group has written.
  ///
  /// On a server rows come with the columns that were asked for when this statement went out last, at first
  /// with all. Another column is read by itself: in a group that writes, behind all that it writes.
  template <typename Use>
  void open(std::string_view sql, Use use) {
    if (!sendsAhead_) {
      Recordset rows = database_.OpenRecordset(sql);
      ++carriedOut_;
      return use(rows);
    }
    steps_.push_back({.sql = std::string(sql), .isQuery = true, .use = std::move(use)});
  }
  /// Opens the statement to add so many rows, of which `fill` begins each and sets its fields. It looks at no
  /// other row.
  void addRows(std::string_view sql, std::size_t rows,
               const std::function<void(Recordset&, std::size_t)>& fill);
  void add(std::string_view sql, const std::function<void(Recordset&)>& fill) {
    addRows(sql, 1, [&fill](Recordset& row, std::size_t) { fill(row); });
  }
  /// Reads what will be asked for later, where an answer is a wait: on a server all of it together now, on
  /// others each when it is asked for.
  void foresee(const std::vector<std::string>& statements);
  /// What was foreseen of it, if anything.
  const Recordset* foreseen(std::string_view sql) const;
  /// The rows of a query, foreseen or not; what has been added comes before one that was not. Of one that
  /// was, all that are given out are one recordset: who walks in one of them moves the others along.
  Recordset rowsOf(std::string_view sql);
  /// Calls `add`, which adds statements, and runs them. Where it fails, what it has added comes first, and
  /// may fail first.
  template <typename Add>
  void runAll(Add add) {
    try {
      add();
    } catch (const RuntimeError&) {
      run();
      throw;
    } catch (...) {
      steps_.clear();
      throw;
    }
    run();
  }
  /// Whether what is added goes out together: who has many things to do then saves waits by reading for all
  /// of them first.
  bool goesOutTogether() const { return sendsAhead_; }
  /// How many statements have been added, and carried out, so far.
  std::size_t added() const { return carriedOut_ + steps_.size(); }
  std::size_t carriedOut() const { return carriedOut_; }
  /// Carries out what was added. Rows of queries are used in their order; where the group writes too, after
  /// all of it, and until then their rows are kept. After a failure nothing that was added is left. On a
  /// server that is one wait, and another where rows are used before something that is written.
  void run();

 private:
  struct AddedRow;
  struct Step {
    std::string sql{};
    bool isQuery = false;
    std::function<void(Recordset&)> use{};  // of a query whose rows somebody asks for
    std::shared_ptr<const AddedRow> row{};  // instead of a statement
  };

  using Sent = std::vector<AheadStatement>;

  /// Each of these gives how many of the steps, from the first, have been carried out.
  std::size_t runTogether(std::span<const Step> steps);
  std::size_t carryOut(std::span<const Step> steps, Sent sent);
  std::size_t read(std::span<const Step> steps, Sent sent);
  void runTaken(std::span<const Step> steps);
  void runUnused(std::span<const Step> steps, std::size_t used);
  void runOne(const Step& step);
  static bool writesBehindAUse(std::span<const Step> steps);
  std::optional<AheadStatement> aheadOf(const Step& step, bool besideWrites);

  friend std::size_t thingsInGroup(const Database& database);
  friend void askEach(Database& database, std::span<const std::string> queries,
                      const std::function<void(std::size_t query, Recordset& rows)>& use,
                      const std::function<void(const RuntimeError& error)>& failed);
  friend class Foresight;

  static bool sendsAhead(const Database& database);
  static Connection& connectionOf(const Database& database) { return database.connection(); }

  Database& database_;
  bool sendsAhead_;
  std::size_t carriedOut_ = 0;
  std::vector<Step> steps_;
  std::map<std::string, Recordset, std::less<>> foreseen_;
};

/// Asks the queries, many together, and uses the rows of each; `failed` is told of those that fail, and the
/// others go on. A server that has gone away is told once, and none goes on.
void askEach(Database& database, std::span<const std::string> queries,
             const std::function<void(std::size_t query, Recordset& rows)>& use,
             const std::function<void(const RuntimeError& error)>& failed);

/// Of how many things the statements are to be put into one group. Where each statement is answered at once
/// it is one: what is read for it is used while it is at hand, and nothing is kept of many.
std::size_t thingsInGroup(const Database& database);

/// Calls `work` with each part of the things, as many as go out together.
template <typename Things, typename Work>
void forEachGroup(const Database& database, const Things& things, Work work) {
  const std::size_t most = thingsInGroup(database);
  for (std::size_t first = 0; first < things.size(); first += most)
    work(std::span(things).subspan(first, std::min(most, things.size() - first)));
}

}  // namespace zelkor
