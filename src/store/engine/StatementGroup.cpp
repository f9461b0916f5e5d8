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

// What cannot be translated or bound fails when it is carried out by itself.
std::optional<AheadStatement> aheadOf(Connection& connection, std::string_view sql) {
  try {
    return connection.ahead(sql);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

void useRows(const std::function<void(Recordset&)>& use, std::shared_ptr<RecordsetState> state) {
  if (!use) return;
  Recordset rows(std::move(state));
  use(rows);
}

}  // namespace

StatementGroup::StatementGroup(Database& database)
    : database_(database), sendsAhead_(database.connection().engine().sendsAhead()) {}

void StatementGroup::execute(std::string_view sql) {
  if (!sendsAhead_) return database_.Execute(sql);
  steps_.push_back({std::string(sql), nullptr});
}

void StatementGroup::run() {
  while (!steps_.empty()) {
    const std::vector<Step> steps = std::exchange(steps_, {});
    for (std::span<const Step> rest(steps); !rest.empty();) {
      const std::size_t done = runTogether(rest);
      if (done == 0) runOne(rest.front());
      rest = rest.subspan(std::max(done, std::size_t{1}));
    }
  }
}

void StatementGroup::runOne(const Step& step) {
  if (!step.use) return database_.Execute(step.sql);
  Recordset rows = database_.OpenRecordset(step.sql);
  step.use(rows);
}

std::size_t StatementGroup::runTogether(std::span<const Step> steps) {
  Connection& connection = database_.connection();
  const auto write = [](std::span<const Step> some) {
    return std::ranges::any_of(some, [](const Step& step) { return step.use == nullptr; });
  };
  if (!write(steps)) steps = steps.first(std::min(steps.size(), kMostQueries));
  Sent sent;
  for (const Step& step : steps) {
    auto ahead = aheadOf(connection, step.sql);
    if (!ahead || (ahead->rows != nullptr) != (step.use != nullptr)) break;
    sent.push_back(std::move(*ahead));
  }
  if (sent.size() < 2) return 0;
  steps = steps.first(sent.size());
  return write(steps) ? carryOut(steps, std::move(sent)) : read(steps, std::move(sent));
}

std::size_t StatementGroup::carryOut(std::span<const Step> steps, Sent sent) {
  try {
    database_.connection().together(sent);
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DeviceIo)) throw;  // nobody is there to take them again
    sent.clear();
    for (const Step& step : steps) runOne(step);
    return steps.size();
  }
  for (std::size_t i = 0; i < steps.size(); ++i) useRows(steps[i].use, std::move(sent[i].rows));
  return steps.size();
}

// A query that fails is left to be carried out by itself.
std::size_t StatementGroup::read(std::span<const Step> steps, Sent sent) {
  database_.connection().together(sent);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    try {
      sent[i].rows->startSent();
    } catch (const RuntimeError& error) {
      if (error.is(ErrorNumber::DeviceIo)) throw;
      return i;
    }
    useRows(steps[i].use, std::move(sent[i].rows));
  }
  return steps.size();
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
      ++next;
    }
  }
}

}  // namespace zelkor
