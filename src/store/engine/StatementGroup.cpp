#include "store/engine/StatementGroup.h"

#include <algorithm>
#include <optional>

#include "base/RuntimeError.h"
#include "store/engine/Connection.h"
#include "store/engine/RecordsetState.h"

namespace zelkor {
namespace {

// Of so many queries the answers are awaited together: what is kept of them until they are used stays small.
constexpr std::size_t kMostQueries = 4000;

void useRows(const std::function<void(Recordset&)>& use, std::shared_ptr<RecordsetState> state) {
  if (!use) return;
  Recordset rows(std::move(state));
  use(rows);
}

}  // namespace

struct StatementGroup::AddedRow {
  std::shared_ptr<RecordsetState> table;
  RowEdit edit;
};

StatementGroup::StatementGroup(Database& database) : database_(database), sendsAhead_(sendsAhead(database)) {}

bool StatementGroup::sendsAhead(const Database& database) {
  return database.connection().engine().sendsAhead();
}

void StatementGroup::execute(std::string_view sql) {
  if (sendsAhead_) return steps_.push_back({.sql = std::string(sql)});
  database_.Execute(sql);
  ++carriedOut_;
}

void StatementGroup::addRows(std::string_view sql, std::size_t rows,
                             const std::function<void(Recordset&, std::size_t)>& fill) {
  const auto table = sendsAhead_ ? database_.connection().openForAdding(sql) : nullptr;
  if (table == nullptr) run();
  Recordset row = table ? Recordset(table) : database_.OpenRecordset(sql);
  if (table == nullptr) {
    ++carriedOut_;
  } else if (!table->isWholeTable()) {
    steps_.push_back({.sql = std::string(sql), .isQuery = true});
  }
  for (std::size_t i = 0; i < rows; ++i) {
    fill(row, i);
    if (table == nullptr) {
      row.Update();
      ++carriedOut_;
    } else {
      steps_.push_back({.row = std::make_shared<const AddedRow>(AddedRow{table, table->takeEdit()})});
    }
  }
}

// What fails now fails again where it is asked for.
void StatementGroup::foresee(const std::vector<std::string>& statements) {
  if (!sendsAhead_) return;
  StatementGroup ahead(database_);
  for (const std::string& sql : statements)
    ahead.open(sql, [this, &sql](const Recordset& rows) { foreseen_.insert_or_assign(sql, rows); });
  try {
    ahead.run();
  } catch (const RuntimeError&) {
    foreseen_.clear();
  }
}

const Recordset* StatementGroup::foreseen(std::string_view sql) const {
  const auto rows = foreseen_.find(sql);
  return rows == foreseen_.end() ? nullptr : &rows->second;
}

Recordset StatementGroup::rowsOf(std::string_view sql) {
  if (const Recordset* rows = foreseen(sql)) return *rows;
  run();
  Recordset rows = database_.OpenRecordset(sql);
  ++carriedOut_;
  return rows;
}

void StatementGroup::run() {
  try {
    while (!steps_.empty()) runTaken(std::exchange(steps_, {}));
  } catch (...) {
    steps_.clear();
    throw;
  }
}

void StatementGroup::runTaken(std::span<const Step> steps) {
  while (!steps.empty()) {
    const std::size_t done = runTogether(steps);
    if (done == 0) runOne(steps.front());
    steps = steps.subspan(std::max(done, std::size_t{1}));
  }
}

void StatementGroup::runOne(const Step& step) {
  if (step.row) {
    step.row->table->write(step.row->edit);
  } else if (!step.isQuery) {
    database_.Execute(step.sql);
  } else {
    Recordset rows = database_.OpenRecordset(step.sql);
    if (step.use) step.use(rows);
  }
  ++carriedOut_;
}

// What cannot be translated or bound fails when it is carried out by itself.
std::optional<AheadStatement> StatementGroup::aheadOf(const Step& step, bool besideWrites) {
  try {
    if (!step.row) return database_.connection().ahead(step.sql, besideWrites);
    return AheadStatement{step.row->table->ahead(step.row->edit), nullptr};
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::size_t StatementGroup::runTogether(std::span<const Step> steps) {
  const auto write = [](std::span<const Step> some) {
    return std::ranges::any_of(some, [](const Step& step) { return !step.isQuery; });
  };
  const bool besideWrites = write(steps);
  if (!besideWrites) steps = steps.first(std::min(steps.size(), kMostQueries));
  Sent sent;
  for (const Step& step : steps) {
    auto ahead = aheadOf(step, besideWrites);
    if (!ahead || (ahead->rows != nullptr) != step.isQuery || (ahead->action != nullptr) == step.isQuery)
      break;
    sent.push_back(std::move(*ahead));
  }
  // One alone gains something only where its guard goes along.
  if (sent.empty() || (sent.size() == 1 && !(sent.front().rows && sent.front().rows->isGuarded()))) return 0;
  steps = steps.first(sent.size());
  return write(steps) ? carryOut(steps, std::move(sent)) : read(steps, std::move(sent));
}

// Then what using the rows raises must come before that. A query that is only opened raises nothing then.
bool StatementGroup::writesBehindAUse(std::span<const Step> steps) {
  const auto used = std::ranges::find_if(steps, [](const Step& step) { return step.use != nullptr; });
  return std::any_of(used, steps.end(), [](const Step& step) { return !step.isQuery; });
}

std::size_t StatementGroup::carryOut(std::span<const Step> steps, Sent sent) {
  std::size_t used = 0;               // of the steps, from the first
  std::size_t asked = steps_.size();  // behind them, by those uses
  const auto use = [&] {
    for (; used < steps.size(); ++used) {
      useRows(steps[used].use, std::move(sent[used].rows));
      asked = steps_.size();
    }
  };
  const bool usesFirst = writesBehindAUse(steps);
  try {
    database_.connection().together(sent, usesFirst ? std::function<void()>(use) : nullptr);
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DeviceIo)) throw;  // nobody is there to take them again
    sent.clear();
    steps_.resize(asked);
    runUnused(steps, used);
    return steps.size();
  }
  carriedOut_ += steps.size();
  use();
  return steps.size();
}

// All one by one, but for the first ones' rows, which have been used.
void StatementGroup::runUnused(std::span<const Step> steps, std::size_t used) {
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (i >= used || !steps[i].use) {
      runOne(steps[i]);
    } else {
      ++carriedOut_;
    }
  }
}

// A query that fails is left to be carried out by itself.
std::size_t StatementGroup::read(std::span<const Step> steps, Sent sent) {
  database_.connection().sendQueries(sent);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    try {
      sent[i].rows->startSent();
    } catch (const RuntimeError& error) {
      if (error.is(ErrorNumber::DeviceIo)) throw;
      return i;
    }
    ++carriedOut_;
    useRows(steps[i].use, std::move(sent[i].rows));
  }
  return steps.size();
}

std::size_t thingsInGroup(const Database& database) {
  return StatementGroup::sendsAhead(database) ? StatementGroup::kThings : 1;
}

// After one that fails those behind it go out once more.
void askEach(Database& database, std::span<const std::string> queries,
             const std::function<void(std::size_t, Recordset&)>& use,
             const std::function<void(const RuntimeError&)>& failed) {
  constexpr std::size_t kTogether = 1000;
  for (std::size_t next = 0; next < queries.size();) {
    try {
      StatementGroup group(database);
      for (const std::string& query : queries.subspan(next, std::min(kTogether, queries.size() - next)))
        group.open(query, [&](Recordset& rows) {
          use(next, rows);
          ++next;
        });
      group.run();
    } catch (const RuntimeError& error) {
      failed(error);
      if (error.is(ErrorNumber::DeviceIo) && StatementGroup::sendsAhead(database)) return;
      ++next;
    }
  }
}

}  // namespace zelkor
